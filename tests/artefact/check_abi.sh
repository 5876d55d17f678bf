#!/usr/bin/env bash
# The types that a host and the library share are laid out as EXPECTED describes them: the order, type and place of every field
# and every virtual operation, and the type of every service.
#   check_abi.sh WITNESS EXPECTED [--renew]
# WITNESS is the built abi/witness.cpp. --renew writes EXPECTED anew.
set -uo pipefail
witness=$1 expected=$2
place=$(mktemp -d) || exit 1
trap 'rm -rf "$place"' EXIT

# Nothing of the description depends on where or when it was built.
abidw --type-id-style hash --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names --no-write-default-sizes \
  --out-file "$place/now.abi" "$witness" || exit 1
if [[ ${3-} == --renew ]]; then
  cp "$place/now.abi" "$expected"
  exit
fi
# A parameter of another type breaks a host, and counts as harmless there.
abidiff --harmless --redundant "$expected" "$place/now.abi" && exit
echo "A host that was built before this change does not fit the library any more. If that is meant: scripts/abi --renew;"
echo "docs/packaging.md says when FEECENTER_SOVERSION is raised, too."
exit 1
