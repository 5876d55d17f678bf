#!/usr/bin/env bash
# The host guide's lists are what the library wants of a host: every service that it lists is undefined in the library,
# nothing else of a host is, and the record classes that it lists, their operations and those of their base class IData are
# those of the records library. Each test that it names is one of the programs'.
#   check_host_guide.sh GUIDE NM LIBRARY RECORDS_ARCHIVE PROGRAM...
#
# The backquotes are the document's own.
# shellcheck disable=SC2016
set -euo pipefail
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
guide=$1
nm=$2
library=$3
archive=$4
shift 4

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# section TITLE: the lines of the section with that heading.
section() {
  awk -v title="### $1" '/^##/ { inside = $0 == title } inside' "$guide"
}
# names PATTERN: the names in backquotes of the paragraph of the records that begins so.
names() {
  section 'The records' | awk -v start="^$1:" '$0 ~ start { inside = 1 } /^$/ { inside = 0 } inside' |
    { grep -o '`[~A-Za-z]*`' || true; } | tr -d '`' | sort
}

section 'The services' | sed -nE 's/^\| `((qmservice|utils|net)::[^`]*)` .*/\1/p' | sort >"$folder/services"
names Classes >"$folder/classes"
names Operations >"$folder/operations"
names 'Of the base class' >"$folder/base"

# Names without their parameters.
without_parameters() {
  sed -e 's/^[0-9a-f]* *[A-Za-z] //' -e 's/(.*//' -e 's/\[abi:cxx11\]//' | sort -u
}
"$nm" -D --undefined-only --demangle "$library" | sed 's/^ *//' | without_parameters |
  grep -E '(^| )(qmservice|utils|net)::' >"$folder/undefined"
"$nm" --defined-only --demangle "$archive" >"$folder/defined" 2>/dev/null
without_parameters <"$folder/defined" | sed -n 's/^qmservice::IData:://p' >"$folder/base_defined"
sed -n 's/^[0-9a-f]* [A-Za-z] qmservice::RecordOf<qmservice::\([A-Za-z]*\)>::\([A-Za-z]*\).*/\1 \2/p' "$folder/defined" |
  sort -u >"$folder/records"

wrong=0
# agree FILE OTHER WHAT: both hold the same lines.
agree() {
  local difference
  if ! difference=$(diff "$1" "$2"); then
    printf '%s: %s:\n%s\n' "$guide" "$3" "$(grep '^[<>]' <<<"$difference")"
    wrong=$((wrong + 1))
  fi
}

classes=$(paste -sd'|' "$folder/classes")
operations=$(paste -sd'|' "$folder/operations")
base=$(paste -sd'|' "$folder/base")
grep -vE "^((vtable|typeinfo|typeinfo name) for qmservice::($classes|IData)|qmservice::($classes)::~?($classes)|qmservice::IData::($base)|qmservice::RecordOf<qmservice::($classes)>::($operations))\$" \
  "$folder/undefined" >"$folder/undefined_services"
agree "$folder/services" "$folder/undefined_services" 'a service that the library does not want (<), or that the guide does not list (>)'
agree "$folder/classes" <(cut -d' ' -f1 "$folder/records" | sort -u) 'a record class of the guide (<) or of the records library (>) alone'
agree "$folder/operations" <(cut -d' ' -f2 "$folder/records" | sort -u | grep .) 'an operation of the guide (<) or of the records library (>) alone'
agree "$folder/base" "$folder/base_defined" 'an operation of IData that the guide (<) or the records library (>) has alone'

count=$(wc -l <"$folder/services")
grep -q "^$count functions," "$guide" || { echo "$guide: lists $count services, and says another number"; wrong=$((wrong + 1)); }
count="$(wc -l <"$folder/classes") classes with nine operations each"
grep -q "^$count" "$guide" || { echo "$guide: does not say: $count"; wrong=$((wrong + 1)); }

grep -o '`[A-Za-z0-9_]*Test\.[A-Za-z0-9_]*`' "$guide" | tr -d '`' | sort -u >"$folder/named"
"$here/list_tests.sh" "$@" >"$folder/tests"
agree "$folder/named" <(comm -12 "$folder/named" "$folder/tests") 'no test program has the test'
[[ -s $folder/named ]] || { echo "$guide: names no test"; wrong=$((wrong + 1)); }
((wrong == 0))
