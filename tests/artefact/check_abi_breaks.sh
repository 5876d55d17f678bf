#!/usr/bin/env bash
# check_abi.sh takes the headers as they are and refuses each change of them that breaks a host.
#   check_abi_breaks.sh SOURCE COMPILER FLAGS...
# COMPILER and FLAGS are what the witness is built with, here with a copy of the headers.
set -uo pipefail
source=$1
shift
abi=$source/tests/artefact/abi
place=$(mktemp -d) || exit 1
trap 'rm -rf "$place"' EXIT

wrong=0
fail() {
  echo "$1"
  wrong=$((wrong + 1))
}

# build_witness COMPILER FLAGS...: out of the copy of the headers.
build_witness() {
  "$@" -std=c++17 -fPIC -shared "-ffile-prefix-map=$place=." -I"$abi/others" -I"$place/include" -I"$place" \
    "$abi/witness.cpp" "-Wl,--version-script=$abi/witness.map" -Wl,-soname,libabi_witness.so -o "$place/witness.so"
}
taken() {
  "${BASH_SOURCE[0]%/*}/check_abi.sh" "$place/witness.so" "$abi/x86_64.abi" >"$place/said" 2>&1
}

cp -r "$source/host" "$source/include" "$place"
build_witness "$@" || exit 1
taken || fail "the headers as they are were refused: $(<"$place/said")"

# What is changed | the header | how
while IFS='|' read -r what header change; do
  cp "$place/$header" "$place/before"
  sed -i "$change" "$place/$header"
  if cmp -s "$place/before" "$place/$header"; then
    fail "$what: $header has no such line"
  elif ! build_witness "$@"; then
    fail "$what: the witness does not compile"
  elif taken; then
    fail "$what: was taken"
  elif ! grep -q 'scripts/abi --renew' "$place/said"; then
    fail "$what: was refused without a word on scripts/abi: $(<"$place/said")"
  fi
  cp "$place/before" "$place/$header"
done <<'ROWS'
a parameter of a virtual operation has another type|host/catalogue.h|s/getAccountData(uint64 /getAccountData(long long /
a virtual operation has one parameter more|host/catalogue.h|s/getAccountData(uint64 accountKey/&, int more/
a parameter of a service has another type|host/configuration.h|s/getTradeMinUnit(const std::string& market/getTradeMinUnit(std::string market/
a service gives back another type|host/configuration.h|s/int getTradeMinUnit/long getTradeMinUnit/
two fields of one type change places|host/stock_records.h|s/double rate1 /double rate0 /; s/double rate2 /double rate1 /; s/double rate0 /double rate2 /
two fields of different types change places|host/stock_records.h|/double rate1 /{h;d}; /int32_t unitVolume/G
an operation of a service gives back another type|host/configuration.h|s/bool isSimulationPlatform/int isSimulationPlatform/
ROWS
((wrong == 0))
