#!/usr/bin/env bash
# The examples of a document are what feedesk prints. In each ```console block a line "$ feedesk ..." is run on the
# bundled market, and what follows must be its output. Commands on another market folder are passed over.
#   check_examples.sh FEEDESK MARKET DOCUMENT
set -uo pipefail
feedesk=$1
export FEEDESK_MARKET=$2 COLUMNS=80
document=$3

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
while IFS= read -r line; do
  if [[ $line == '```console' ]]; then
    inside=yes
  elif [[ $line == '```' ]]; then
    check
    inside=
  elif [[ -n $inside && $line == '$ '* ]]; then
    check
    expected=
    [[ $line == '$ feedesk --market '* ]] || command=$line
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
