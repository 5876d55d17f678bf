#!/usr/bin/env bash
# extract_sample.sh takes a document's sample whole, and refuses a document whose sample it cannot take.
#   check_extract_sample.sh EXTRACT_SAMPLE
#
# The backquotes are the documents' own.
# shellcheck disable=SC2016
set -uo pipefail
extract=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
document=$folder/document.md
includes=$folder/includes.inc
body=$folder/body.inc

wrong=0
fail() {
  echo "$1"
  wrong=$((wrong + 1))
}

# refuses TEXT COMPLAINT: the text is refused with the complaint, and nothing of an earlier run is left to compile.
refuses() {
  printf %b "$1" >"$document"
  touch "$includes" "$body"
  local said
  said=$("$extract" "$document" "$includes" "$body" 2>&1) && fail "\"$1\" was taken"
  [[ $said == "$document: $2" ]] || fail "\"$1\" was refused with \"$said\", expected \"$2\""
  [[ ! -e $includes && ! -e $body ]] || fail "\"$1\" left an output behind"
}

one='but exactly one was expected: the sample of a client'
refuses '# No sample\n```console\n$ ls\n```\n' "has 0 \`\`\`cpp blocks, $one"
refuses '```cpp\n#include <a>\na();\n```\n```cpp\nb();\n```\n' "has 2 \`\`\`cpp blocks, $one"
refuses 'text\n```cpp\n#include <a>\na();\n' 'the ```cpp block that begins on line 2 has no end'
refuses '```cpp\na();\n```\n' 'the sample on line 2 includes nothing, so no reader could compile it'
refuses '```cpp\n#include <a>\n\n```\n' 'the sample on line 2 has no code'

printf 'text\n```cpp\n#include <a>\n\na[0];  // b\n#include "c"\nd();\n```\n#include <no>\n' >"$document"
"$extract" "$document" "$includes" "$body" || fail 'a sample was refused'
diff "$includes" <(printf '#line 3 "%s"\n#include <a>\n\n\n#include "c"\n\n' "$document") || fail 'the includes are others'
diff "$body" <(printf '#line 3 "%s"\n\n\na[0];  // b\n\nd();\n' "$document") || fail 'the body is another'

printf '```cpp\n#include <a>\na();\n```\n```cpp two\n#include <b>\nb();\n```\n' >"$document"
"$extract" "$document" "$includes" "$body" two || fail 'a named sample was refused'
diff "$body" <(printf '#line 6 "%s"\n\nb();\n' "$document") || fail 'the body of a named sample is another'
"$extract" "$document" "$includes" "$body" three 2>/dev/null && fail 'a sample that is not there was taken'

((wrong == 0))
