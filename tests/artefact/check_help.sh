#!/usr/bin/env bash
# Every script that a person calls answers --help with how it is called, and does nothing else.
#   check_help.sh SOURCE
set -uo pipefail
source=$(realpath "$1")
place=$(mktemp -d) || exit 1
trap 'rm -rf "$place"' EXIT
cd "$place" || exit 1

wrong=0
for script in "$source"/{run,test} "$source"/scripts/*; do
  [[ -f $script ]] || continue
  said=$("$script" --help 2>&1) && [[ $said == usage:* ]] && [[ -z $(ls -A) ]] && continue
  printf '%s --help fails, does not begin with "usage:", or leaves %s:\n%s\n' "$script" "$(ls -A)" "$said"
  wrong=$((wrong + 1))
done
((wrong == 0))
