#!/usr/bin/env bash
# Takes the one ```cpp block out of a document, or the one "```cpp NAME", for a test to compile as it is: its #include
# lines go to INCLUDES, the rest goes to BODY. Every line keeps its number, so that the compiler's messages name the
# document's own lines.
#   extract_sample.sh DOCUMENT INCLUDES BODY [NAME]
set -uo pipefail
document=$1
includes=$2
body=$3
opening='```cpp'${4:+ $4}

refuse() {
  echo "$document: $1" >&2
  rm -f "$includes" "$body"
  exit 1
}

blocks=0
number=0
inside=
hoisted=
rest=
while IFS= read -r line || [[ -n $line ]]; do
  number=$((number + 1))
  if [[ -n $inside && $line == '```' ]]; then
    inside=
  elif [[ -n $inside && $line == '#include '* ]]; then
    hoisted+=$line$'\n'
    rest+=$'\n'
  elif [[ -n $inside ]]; then
    hoisted+=$'\n'
    rest+=$line$'\n'
  elif [[ $line == "$opening" ]]; then
    inside=yes
    blocks=$((blocks + 1))
    start=$((number + 1))
  fi
done <"$document"

((blocks == 1)) || refuse "has $blocks $opening blocks, but exactly one was expected: the sample of a client"
[[ -z $inside ]] || refuse "the $opening block that begins on line $((start - 1)) has no end"
[[ $hoisted == *'#include'* ]] || refuse "the sample on line $start includes nothing, so no reader could compile it"
[[ $rest == *[![:space:]]* ]] || refuse "the sample on line $start has no code"
printf '#line %d "%s"\n%s' "$start" "$document" "$hoisted" >"$includes"
printf '#line %d "%s"\n%s' "$start" "$document" "$rest" >"$body"
