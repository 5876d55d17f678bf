#!/usr/bin/env bash
# The page of surprising rules, the code and the tests agree: each rule of the page names tests, each test that it names is
# one of the programs', and each rule that a comment names is on the page. The table at the end of MAP has each rule once.
#   check_rules.sh PAGE MAP SOURCES PROGRAM...
set -euo pipefail
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
page=$1
map=$2
sources=$3
shift 3

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

"$here"/list_tests.sh "$@" >tests

grep '^### ' "$page" | sed 's/^### //' | sort >rules
awk '/^### / { rule = substr($0, 5) }
     { text = $0
       while (match(text, /`[A-Za-z0-9_]+\.[A-Za-z0-9_]+`/)) {
         print substr(text, RSTART + 1, RLENGTH - 2) "\t" rule
         text = substr(text, RSTART + RLENGTH) } }' "$page" >named
cut -f 1 named | sort -u >named_tests
cut -f 2 named | sort -u >held
# A comment may break the line inside a rule's name.
cat "$sources"/*.h "$sources"/*.cpp | sed 's|^ *///* *||' | tr '\n' ' ' |
  grep -oE '[Rr]ule "[^"]*"' | sed 's/^[Rr]ule "//; s/"$//' | sort -u >in_code

sed -n '/^| rule /,$p' "$map" | sed -n '3,$s/^| \(.*\) | .*/\1/p' | sort >mapped

wrong=0
# complain FILE WHAT: each line of FILE is wrong.
complain() {
  while IFS= read -r line; do
    printf '%s: %s: "%s"\n' "$page" "$2" "$line"
    wrong=$((wrong + 1))
  done <"$1"
}
uniq -d rules >twice
comm -23 rules held >untested
comm -23 named_tests tests >missing
comm -13 rules in_code >unknown
comm -3 rules mapped | sed 's/^\t//' >unmapped
complain twice "two rules have one name"
complain untested "a rule that names no test"
complain missing "no test program has the test"
complain unknown "feecenter/ names a rule that is not on the page"
complain unmapped "here or in $map, not in both"

count=$(wc -l <rules)
named_in_code=$(wc -l <in_code)
if ((count == 0 || named_in_code == 0)); then
  echo "$page: $count rules, $named_in_code of them named in $sources: nothing to check"
  exit 1
fi
echo "$count rules, $(wc -l <named_tests) tests, $named_in_code rules named in the code, $wrong complaints"
((wrong == 0))
