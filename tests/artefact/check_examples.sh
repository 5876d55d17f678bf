#!/usr/bin/env bash
# The examples of a document are what feedesk prints. In each ```console block a line "$ feedesk ..." is run where the
# bundled market is the usual one, `market` too, `broken` is a copy of it with faults and `proposed` one to which every
# ```diff block is applied; what follows must be its output. A block ```csv NAME is a file of that name; a block
# ```csv >>FOLDER/TABLE adds lines to a table of a copy of the bundled market.
#   check_examples.sh FEEDESK MARKET DOCUMENT
set -uo pipefail
feedesk=$(realpath "$1")
market=$(realpath "$2")
document=$(realpath "$3")
export FEEDESK_MARKET=$market COLUMNS=80

place=$(mktemp -d) || exit 1
trap 'rm -rf "$place"' EXIT
cd "$place" || exit 1

# A rate in percent, an account and a market that are misspelt.
cp -r "$market" broken || exit 1
sed -i -e '2s/,0\.00025,/,0.025%,/' -e '5s/^1000001,/100001,/' -e '10s/,SH,/,SX,/' broken/fees/stock.csv || exit 1

ln -s "$market" market || exit 1
cp -r "$market" proposed || exit 1

checked=0
wrong=0
command=
expected=

check() {
  [[ -n $command ]] || return 0
  local arguments actual
  read -ra arguments <<<"${command#'$ feedesk '}"
  actual=$("$feedesk" "${arguments[@]}" 2>&1)
  checked=$((checked + 1))
  if [[ "$actual" != "${expected%$'\n'}" ]]; then
    wrong=$((wrong + 1))
    printf '%s: "%s" prints something else:\n' "$document" "$command"
    diff <(printf '%s' "$expected") <(printf '%s\n' "$actual")
  fi
  command=
}

inside=
file=
while IFS= read -r line; do
  if [[ $line == '```console' ]]; then
    inside=yes
  elif [[ $line == '```csv '* ]]; then
    file=${line#'```csv '}
    if [[ $file == '>>'* ]]; then
      file=${file#'>>'}
      [[ -d ${file%%/*} ]] || cp -r "$market" "${file%%/*}"
    else
      : >"$file"
    fi
  elif [[ $line == '```diff' ]]; then
    file=change.diff
    : >"$file"
  elif [[ $line == '```' ]]; then
    check
    [[ $file != change.diff ]] || patch -s -p0 <change.diff || exit 1
    inside=
    file=
  elif [[ -n $file ]]; then
    printf '%s\n' "$line" >>"$file"
  elif [[ -n $inside && $line == '$ '* ]]; then
    check
    expected=
    command=$line
  elif [[ -n $inside ]]; then
    expected+=$line$'\n'
  fi
done <"$document"

if ((checked == 0)); then
  echo "$document has no examples"
  exit 1
fi
echo "$checked examples, $wrong wrong"
((wrong == 0))
