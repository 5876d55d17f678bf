#!/usr/bin/env bash
# check_manual.sh MAKE FEEDESK: the manual pages that MAKE makes of the program FEEDESK say what its help says.
set -euo pipefail

make=$1 feedesk=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$make" "$feedesk" "$folder"

failed=0
# says PAGE WORDS...: each of these is in the page.
says() {
  local page=$1 text
  shift
  for text; do
    if ! grep -qF -- "$text" "$folder/$page"; then
      echo "$page does not say: $text" >&2
      failed=1
    fi
  done
}

says feedesk.1 'What trading costs an account' '\-\-market' 'Exit status: 0 answered' '贵州茅台'
says feedesk-fee.1 'feedesk-fee \- ' 'INSTRUMENT' '\-\-strict' 'Answer as JSON'
says feedesk-cost.1 '\-\-break\-even'
exit "$failed"
