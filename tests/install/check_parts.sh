#!/usr/bin/env bash
# Which parts are built with which options, in several runs of CMake on one folder; what contradicts itself is refused.
#   check_parts.sh CMAKE PARTS_CMAKE
set -uo pipefail
cmake=$1 parts=$2
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

mkdir "$place/alone" "$place/around"
cat >"$place/alone/CMakeLists.txt" <<PROJECT
cmake_minimum_required(VERSION 3.25)
project(alone LANGUAGES NONE)
include($parts)
foreach(part IN ITEMS RECORDS COST STANDALONE FEEDESK CONFORMANCE TESTS)
  if(FEECENTER_\${part})
    string(APPEND effective "\${part} ")
  endif()
endforeach()
message(STATUS "built: \${effective}")
feecenter_needs(FEECENTER_MANUAL FEEDESK)
PROJECT
cat >"$place/around/CMakeLists.txt" <<'PROJECT'
cmake_minimum_required(VERSION 3.25)
project(around LANGUAGES NONE)
add_subdirectory(../alone alone)
PROJECT

wrong=0
# run EXPECTED [OPTIONS...]: another run on the same folder says so.
run() {
  local expected=$1 said
  said=$("$cmake" -S "$place/$project" -B "$place/build" "${@:2}" 2>&1 | tr '\n' ' ' | tr -s ' ')
  [[ $said == *"$expected"* ]] && return
  printf '%s, options "%s": expected "%s", but CMake says:\n%s\n' "$project" "${*:2}" "$expected" "$said"
  wrong=$((wrong + 1))
}
# first PROJECT EXPECTED [OPTIONS...]: the first run of a folder.
first() {
  project=$1
  rm -rf "$place/build"
  run "${@:2}"
}
everything="built: RECORDS COST STANDALONE FEEDESK CONFORMANCE TESTS "
nothing="built: -- Conf"

first alone "$everything"
run "Parts of the fee center: library, records, cost, standalone, feedesk, conformance, tests -- "
run "$nothing" -DFEECENTER_LIBRARY_ONLY=ON
run "Parts of the fee center: library; not built: records, cost, standalone, feedesk, conformance, tests -- "
run "$everything" -DFEECENTER_LIBRARY_ONLY=OFF
run "built: RECORDS COST STANDALONE FEEDESK CONFORMANCE -- " -DBUILD_TESTING=OFF
run "FEECENTER_TESTS=ON was asked for, but BUILD_TESTING=OFF builds no tests. Leave one of the two out." -DFEECENTER_TESTS=ON

# What was refused takes along what stands on it.
first alone "built: RECORDS CONFORMANCE -- " -DFEECENTER_COST=OFF
run "built: RECORDS CONFORMANCE -- "
run "FEECENTER_FEEDESK=ON was asked for, but it needs FEECENTER_COST, which is OFF." -DFEECENTER_FEEDESK=ON
run "$everything" -DFEECENTER_COST=ON
run "built: RECORDS COST CONFORMANCE -- " -DFEECENTER_FEEDESK:BOOL=OFF -DFEECENTER_STANDALONE:BOOL=OFF
first alone "FEECENTER_COST=ON was asked for, but FEECENTER_LIBRARY_ONLY=ON builds the library" -DFEECENTER_LIBRARY_ONLY=ON -DFEECENTER_COST=ON
first alone "FEECENTER_FEEDESK=ON was asked for, but it needs FEECENTER_RECORDS" -DFEECENTER_FEEDESK:BOOL=ON -DFEECENTER_RECORDS:BOOL=OFF
first alone "FEECENTER_MANUAL=ON was asked for, but it needs FEECENTER_FEEDESK" -DFEECENTER_MANUAL=ON -DFEECENTER_FEEDESK=OFF

# As part of another build less is built, and what was asked for brings what it stands on.
first around "built: RECORDS -- "
! grep BUILD_TESTING "$place/build/CMakeCache.txt" || { echo "the other build is given BUILD_TESTING" && wrong=$((wrong + 1)); }
run "built: RECORDS -- " -DBUILD_TESTING=ON
run "built: RECORDS COST STANDALONE FEEDESK -- " -DFEECENTER_FEEDESK=ON
first around "$everything" -DFEECENTER_TESTS=ON
first around "FEECENTER_TESTS=ON was asked for, but BUILD_TESTING=OFF" -DFEECENTER_TESTS=ON -DBUILD_TESTING=OFF

((wrong == 0))
