#!/usr/bin/env bash
# The tests of programs, one "Suite.Test" a line, sorted: a suite of types without its type, a test without its value.
#   list_tests.sh PROGRAM...
set -euo pipefail

# A suite of types is before the slash, one of values behind it.
for program in "$@"; do
  "$program" --gtest_list_tests | awk '
    /^[^ ].*\./ { parts = split($1, part, "/"); suite = /# TypeParam/ ? part[1] : part[parts]; sub(/\.$/, "", suite) }
    /^  /       { split($1, test, "/"); print suite "." test[1] }'
done | sort -u
