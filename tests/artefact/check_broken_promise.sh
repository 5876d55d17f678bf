#!/usr/bin/env bash
# The host guide shows what its program says of a host that breaks a promise: its ```text promises block is, word for word,
# what PROGRAM prints, and PROGRAM fails.
#   check_broken_promise.sh GUIDE PROGRAM
set -euo pipefail
guide=$1
program=$2

said=$(mktemp)
trap 'rm -f "$said"' EXIT
if "$program" >"$said"; then
  echo "$program found every promise kept, but its host breaks one"
  exit 1
fi
# The backquotes are the document's own.
# shellcheck disable=SC2016
if ! difference=$(diff <(awk '/^```/ { inside = $0 == "```text promises"; next } inside' "$guide") "$said"); then
  printf '%s shows (<) what its program does not print (>) of a broken promise:\n%s\n' "$guide" "$difference"
  exit 1
fi
