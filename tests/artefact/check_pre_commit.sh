#!/usr/bin/env bash
# scripts/pre-commit refuses what must not be committed, looks at what is staged, and lets the rest through; and so does
# scripts/commit-msg, which is next to it, with messages.
#   check_pre_commit.sh PRE_COMMIT CLANG_FORMAT_FILE
set -euo pipefail
pre_commit=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp "$2" "$folder"
cd "$folder"
git init -q .
wrong=0

# stages NAME TEXT
stage() {
  rm -f .git/index
  printf %b "$2" >"$1"
  git add "$1"
}
# refuses NAME TEXT WORDS: it is refused with these words.
refuses() {
  stage "$1" "$2"
  local said
  if said=$("$pre_commit" 2>&1); then
    echo "let through: $1"
    wrong=$((wrong + 1))
  elif [[ $said != *"$3"* ]]; then
    echo "$1 was refused with: $said"
    wrong=$((wrong + 1))
  fi
}
passes() {
  stage "$1" "$2"
  "$pre_commit" || { echo "refused: $1"; wrong=$((wrong + 1)); }
}

refuses a.cpp 'int  main() { return 0; }\n' 'a.cpp is not formatted; run scripts/format'
# Mended, and not staged again.
printf 'int main() { return 0; }\n' >a.cpp
"$pre_commit" 2>/dev/null && { echo 'looked at the file and not at what is staged'; wrong=$((wrong + 1)); }
refuses tool '#!/usr/bin/env bash\nif true\n' 'tool is no valid shell script'
refuses tool.py 'def f(:\n' 'tool.py is no valid Python'
refuses page.md 'a line \n' 'blanks at the end of lines'
refuses table.csv "$(head -c 1000001 /dev/zero | tr '\0' 1)" 'table.csv has 1000001 bytes'
passes a.cpp 'int main() { return 0; }\n'
passes tool '#!/usr/bin/env bash\nif true; then :; fi\n'
passes tool.py 'def f():\n    pass\n'

"$pre_commit" --install >/dev/null
stage a.cpp 'int  main() { return 0; }\n'
git -c user.name=a -c user.email=a@b commit -qm x 2>/dev/null && { echo 'the hook let it through'; wrong=$((wrong + 1)); }
stage a.cpp 'int main() { return 0; }\n'
long=$(printf '费%.0s' {1..72})
# commits MESSAGE: whether the hooks let a commit with the message through.
commits() { git -c user.name=a -c user.email=a@b commit -q --allow-empty -m "$1" 2>said; }
commits "${long}x" && { echo 'the hook let a first line of 73 characters through'; wrong=$((wrong + 1)); }
grep -q 'the first line has 73 characters, more than 72' said || { echo "said: $(cat said)"; wrong=$((wrong + 1)); }
commits $'Do this\nand that' && { echo 'the hook let a second line through that is not empty'; wrong=$((wrong + 1)); }
commits "$long"$'\n\nWhy.' || { echo "refused: $(cat said)"; wrong=$((wrong + 1)); }
((wrong == 0))
