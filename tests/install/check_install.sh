#!/usr/bin/env bash
# What a build installs can be moved, built against and removed. Each project of examples/ is built against the moved copy
# with CMake and, where it says how, without; by g++ and by clang++. It must print what its expected.txt says.
#   check_install.sh CMAKE SOURCE BUILD MANUAL
# MANUAL is whether the build makes manual pages and completions, ON or OFF.
#
# The installed headers are read all at once: what one of them includes must be installed too. That each compiles alone is
# seen where the project's own are compiled, which are the same files.
set -uo pipefail
cmake=$1 source=$2 build=$3 manual=$4
place=$(realpath "$(mktemp -d)")
trap 'rm -rf "$place"' EXIT
unset FEEDESK_MARKET PKG_CONFIG_PATH LD_LIBRARY_PATH CMAKE_PREFIX_PATH DESTDIR

wrong=0
# must WHAT COMMAND...: runs it; its output is shown when it fails.
must() {
  local what=$1 log=$place/log.$BASHPID
  shift
  "$@" >"$log" 2>&1 && return
  echo "$what failed:"
  tail -n 40 "$log"
  return 1
}
fail() {
  echo "$1"
  wrong=$((wrong + 1))
}

installed=$place/moved/here
must "installing" "$cmake" --install "$build" --prefix "$place/first" || exit 1
mkdir "$place/moved"
mv "$place/first" "$installed"

# No file knows where it was built or first installed.
if grep -rlF --include='*.cmake' --include='*.pc' -e "$source/" -e "$build/" -e "$place" "$installed"; then
  fail "these files name a folder of the build"
fi
for file in "$installed"/bin/feedesk "$installed"/lib/libfeecenter.so; do
  path=$(readelf -d "$file" | sed -nE 's/.*(RPATH|RUNPATH).*\[(.*)\]/\2/p')
  # The loader's own word, not the shell's.
  # shellcheck disable=SC2016
  [[ -z $path || $path == '$ORIGIN/'* ]] || fail "$file looks for libraries in $path"
done

(cd "$installed/include/feecenter" && find . -name '*.h' | sort | sed 's|^\./\(.*\)|#include "\1"|') >"$place/headers.cpp"
must "reading the installed headers" g++ -std=c++17 -O0 -fsyntax-only -I "$installed/include/feecenter" "$place/headers.cpp" ||
  wrong=$((wrong + 1))

# The page names the file that a client ships.
shipped=$(readelf -d "$installed/lib/libfeecenter.so" | sed -nE 's/.*SONAME.*\[(.*)\]/\1/p')
named=$(grep -oE 'libfeecenter\.so\.[0-9]+' "$source/docs/packaging.md" | sort -u)
[[ $named == "$shipped" ]] || fail "docs/packaging.md names \"$named\", and the library is \"$shipped\""

# Each header of the boundary is there, also one that no other includes.
diff <(cd "$source" && ls host/*.h && cd include && ls -- *.h) <(cd "$installed/include/feecenter" && ls host/*.h && ls -- *.h) ||
  fail "the installed headers (>) are not those of the project (<)"

# What is installed is described on the site, which has the folders of the boundary whole.
(cd "$installed/include/feecenter" && find . -mindepth 2 -name '*.h' ! -path './host/*' | sed 's|^\./||') >"$place/headers.txt"
grep -oE '[a-z_]+/[a-z_]+\.h' "$source/docs/site/Doxyfile" | sort | diff - <(sort "$place/headers.txt") ||
  fail "the installed headers (>) are not those that docs/site/Doxyfile names (<)"

# feedesk finds the market that was moved with it, and goes by one at hand before that.
shows() {
  (cd "$place" && must "feedesk $2" "$installed/bin/feedesk" accounts && "$installed/bin/feedesk" accounts | grep -qF "$1") ||
    fail "feedesk $2 does not show \"$1\""
}
shows 1000001 "with the installed market"
cp -r "$installed/share/feecenter/market" "$place/market"
sed -i 's/^1000001,[^,]*/1000001,AT HAND/' "$place/market/accounts.csv"
shows "AT HAND" "with a market at hand"

# Both shells find by themselves what completes its words, and take it.
if [[ $manual == ON ]]; then
  [[ -e $installed/share/man/man1/feedesk.1.gz ]] || fail "there is no manual page"
  bash -c "source '$installed/share/bash-completion/completions/feedesk' && complete -p feedesk" >/dev/null ||
    fail "bash does not take the installed completion"
  said=$(PATH=$installed/bin:$PATH zsh -f 2>&1 <<ZSH
fpath=('$installed/share/zsh/site-functions' \$fpath)
autoload -Uz compinit && compinit -D
compadd() { shift && print -r -- "\$@"; }
words=(feedesk acc) CURRENT=2
\${_comps[feedesk]}; \${_comps[feedesk]}
ZSH
)
  [[ $said == $'accounts\naccounts' ]] || fail "zsh, asked twice for what follows \"acc\", says \"$said\""
fi

# prints EXAMPLE PROGRAM: the program prints what is expected of the example.
prints() {
  LD_LIBRARY_PATH=$installed/lib "$2" >"$2.txt" && diff "$source/examples/$1/expected.txt" "$2.txt"
}

# The projects are those that are installed, away from the tree, where they could find what is not.
examples=$place/examples
cp -r "$installed/share/doc/feecenter/examples" "$examples"
diff -r "$source/examples" "$examples" || fail "the installed examples (>) are not those of the project (<)"
guide=$installed/share/doc/feecenter/docs/host-guide.md
[[ -e $guide ]] || fail "the guide for hosts is not installed"
lost=$(cd "${guide%/*}/.." && grep -roE --include='*.md' '\]\([^)#]+' . | while IFS=: read -r page link; do
  [[ $link == *://* || -e ${page%/*}/${link#](} ]] || echo "$page: ${link#](}"
done)
[[ -z $lost ]] || fail "these links of the installed pages lead nowhere: $lost"

# with_cmake EXAMPLE COMPILER [OPTIONS...]
with_cmake() {
  local example=$1 compiler=$2 built=$place/$1-$2-cmake
  shift 2
  must "$example: configuring with $compiler" "$cmake" -S "$examples/$example" -B "$built" -G Ninja \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=None -DCMAKE_PREFIX_PATH="$installed" "$@" &&
    must "$example: building with CMake and $compiler" "$cmake" --build "$built" -j1 &&
    must "$example, built with CMake and $compiler," prints "$example" "$built/$example"
}

# without_cmake EXAMPLE COMPILER: by the command that the project gives.
without_cmake() {
  local example=$1 compiler=$2 program=$place/$1-$2
  local command
  command=$(sed -n 's/^#   c++ //p' "$source/examples/$example/CMakeLists.txt")
  [[ -n $command ]] || { echo "$example gives no command with pkg-config" && return 1; }
  (cd "$examples/$example" &&
    PKG_CONFIG_PATH=$installed/lib/pkgconfig \
      must "$example: $compiler with pkg-config" bash -c "$compiler ${command/-o $example /-o $program }") &&
    must "$example, built with $compiler and pkg-config," prints "$example" "$program"
}

# Whether the records are named before the library or behind it makes no difference: a linker takes them where it comes by,
# also for a program that names none of them.
records_are_taken() {
  local program=$place/records-$1 libs
  libs=$(PKG_CONFIG_PATH=$installed/lib/pkgconfig pkg-config --libs feecenter-records)
  echo 'int main() {}' >"$program.cpp"
  must "linking the records with $1" bash -c "$1 '$program.cpp' -o '$program' $libs" || return
  [[ $(nm --defined-only --demangle "$program") == *'RecordOf<qmservice::CInstrument>::copy'* ]] ||
    { echo "$1 leaves the records out of a program that names none of them" && return 1; }
}

# The guide's way to a host in a folder of one's own, by the files as it prints them.
by_the_guide() {
  local folder=$place/my-host
  mkdir "$folder"
  awk '/^```/ { inside = $0 == "```cmake own-host" || $0 == "```cmake promises"; next } inside' "$guide" >"$folder/CMakeLists.txt"
  awk '/^```/ { inside = $0 == "```cpp promises"; next } inside' "$guide" >"$folder/promises.cpp"
  cp "$examples/host/main.cpp" "$folder"
  must "the guide's project: configuring" "$cmake" -S "$folder" -B "$folder/build" -G Ninja -DCMAKE_CXX_COMPILER="$1" \
    -DCMAKE_PREFIX_PATH="$installed" &&
    must "the guide's project: building" "$cmake" --build "$folder/build" -j1 &&
    must "the guide's host" prints host "$folder/build/my-host" &&
    must "the guide's promises" "$folder/build/promises"
}

# The examples' host and its own record operations keep what a host promises, by the installed suite.
promises() {
  PKG_CONFIG_PATH=$installed/lib/pkgconfig must "linking the conformance suite" \
    bash -c "$1 -std=c++17 -Wno-return-type -I '$examples' '$source/tests/install/host_promises.cpp' \
      '$examples/host-own-records/records.cpp' -o '$place/promises' \$(pkg-config --cflags --libs feecenter-conformance)" &&
    LD_LIBRARY_PATH=$installed/lib must "the examples' host" "$place/promises"
}

# As a part of another build, whose tree has no other folder of the project, which finds nothing but Boost, makes errors of all
# warnings, and has modules of its own with the project's names.
tree=$place/embedding
mkdir -p "$tree/modules"
cp -r "$source"/{CMakeLists.txt,cmake,examples,feecenter,host,include} "$tree"
for module in "$source"/cmake/*.cmake; do
  echo 'message(FATAL_ERROR "the module of another project is taken")' >"$tree/modules/${module##*/}"
done
# embedded COMPILER [OPTIONS...]
embedded() {
  local examples=$tree/examples options=(-DCMAKE_MODULE_PATH="$tree/modules") package
  for package in CLI11 PkgConfig fmt; do
    options+=("-DCMAKE_DISABLE_FIND_PACKAGE_$package=ON")
  done
  options+=(-DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
    "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Werror")
  with_cmake embedded "$1" "${options[@]}" "${@:2}"
}
embedded_in_one_file() {
  embedded "$1" -DLINKED=feecenter::objects || return
  ! readelf -d "$place/embedded-$1-cmake/embedded" | grep libfeecenter || { echo "the program needs the library" && return 1; }
}

# Folders that are given in full are where they are said to be, wherever the rest goes.
full=$place/full
in_full() {
  embedded "$1" -DFEECENTER_INSTALL=ON -DCMAKE_INSTALL_PREFIX="$full/rest" -DCMAKE_INSTALL_LIBDIR="$full/lib" \
    -DCMAKE_INSTALL_INCLUDEDIR="$full/include" &&
    must "installing into full folders" "$cmake" --install "$place/embedded-$1-cmake" || return
  local said expected="-I$full/include/feecenter -L$full/lib -lfeecenter "
  said=$(PKG_CONFIG_PATH=$full/lib/pkgconfig pkg-config --cflags --libs feecenter)
  [[ $said == "$expected" ]] || { echo "pkg-config says \"$said\" of full folders, and not \"$expected\"" && return 1; }
  must "finding what is in full folders" "$cmake" -S "$examples/host-own-records" -B "$place/full-cmake" -G Ninja \
    -DCMAKE_CXX_COMPILER="$1" -Dfeecenter_DIR="$full/lib/cmake/feecenter"
}

# finding EXPECTED ARGUMENTS [COMMAND]: find_package(feecenter ARGUMENTS) says so of what it finds, or why it does not, behind
# that command. Each is a folder of one project.
finding() {
  local folder=$place/finding/${#expected[@]}
  expected+=("$1")
  mkdir -p "$folder"
  cat >"$folder/CMakeLists.txt" <<PROJECT
${3-}
find_package(feecenter CONFIG QUIET $2)
message("[$2] found \${feecenter_FOUND}, records \${feecenter_records_FOUND}, cost \${feecenter_cost_FOUND}: \${feecenter_NOT_FOUND_MESSAGE}")
if(feecenter_FOUND AND NOT TARGET feecenter::feecenter)
  message("there is no feecenter::feecenter")
endif()
PROJECT
  echo "add_subdirectory(${folder##*/})" >>"$place/finding/CMakeLists.txt"
}
finds() {
  local expected=() said text bad=0 no_pkgconfig="set(CMAKE_DISABLE_FIND_PACKAGE_PkgConfig ON)"
  mkdir "$place/finding"
  printf '%s\n' "cmake_minimum_required(VERSION 3.25)" "project(finding LANGUAGES CXX)" >"$place/finding/CMakeLists.txt"
  finding "[COMPONENTS cost] found 1, records TRUE, cost TRUE: " "COMPONENTS cost"
  finding "[COMPONENTS library] found 1, records , cost : " "COMPONENTS library"
  finding "[OPTIONAL_COMPONENTS records cost] found 1, records FALSE, cost FALSE: " "OPTIONAL_COMPONENTS records cost" "$no_pkgconfig"
  finding "[COMPONENTS records OPTIONAL_COMPONENTS cost] found 0, records FALSE, cost : feecenter's component records needs " \
    "COMPONENTS records OPTIONAL_COMPONENTS cost" "$no_pkgconfig"
  finding "feecenter's component cost needs its component records: " "COMPONENTS cost" "$no_pkgconfig"
  finding "[COMPONENTS records OPTIONAL_COMPONENTS tax] found 1, records TRUE, " "COMPONENTS records OPTIONAL_COMPONENTS tax"
  finding 'no component "tax"; it has: library, records, cost, standalone, conformance' "COMPONENTS tax"
  finding "and fits no other version" "" "set(CMAKE_DISABLE_FIND_PACKAGE_Boost ON)"
  finding "but Boost_USE_STATIC_LIBS takes the static one here" "" "set(Boost_USE_STATIC_LIBS ON)"
  finding "[COMPONENTS conformance] found 1, " "COMPONENTS conformance" "cmake_policy(VERSION 3.0)"
  finding "feecenter needs CMake 3.23 or newer, and this is 3.22.6." "" "set(CMAKE_VERSION 3.22.6)"
  said=$("$cmake" -S "$place/finding" -B "$place/found" -G Ninja -DCMAKE_PREFIX_PATH="$installed" 2>&1)
  for text in "${expected[@]}"; do
    [[ $said == *"$text"* ]] || { echo "find_package does not say \"$text\"" && bad=$((bad + 1)); }
  done
  [[ $said != *"there is no feecenter::feecenter"* ]] || bad=$((bad + 1))
  ((bad == 0)) || { echo "$said" && return 1; }
}

# count COMMAND...: what fails is counted.
count() {
  "$@" || wrong=$((wrong + 1))
}
# lane COMPILER: what is tried with both; it ends with the number of what failed.
lane() {
  local example options
  for example in host host-own-records desktop-loop; do
    options=()
    # One source is compiled faster than two.
    [[ $example != host-own-records ]] || options=(-DCMAKE_UNITY_BUILD=ON)
    count with_cmake "$example" "$1" "${options[@]}"
    count without_cmake "$example" "$1"
  done
  count records_are_taken "$1"
  count embedded "$1"
  count embedded_in_one_file "$1"
}
# Each lane counts for itself.
# shellcheck disable=SC2030,SC2031
{
  (
    wrong=0
    lane g++
    count in_full g++
    count by_the_guide g++
    exit "$wrong"
  ) &
  lanes=($!)
  (
    wrong=0
    lane clang++
    count promises clang++
    count finds
    exit "$wrong"
  ) &
  lanes+=($!)
  for one in "${lanes[@]}"; do
    wait "$one" || wrong=$((wrong + $?))
  done
}

# uninstall: its status, and what it says.
mkdir "$place/manifests"
mv "$build/install_manifest.txt" "$place/manifests"
uninstall() {
  said=$("$cmake" -DBUILD="$place/manifests" -P "$source/cmake/uninstall.cmake" 2>&1)
}
# Where it was installed there is nothing any more.
uninstall && fail "removing what was moved away claims success: $said"
[[ $said == *"No file of"*"was there"* ]] || fail "removing what was moved away does not say that nothing was there: $said"
# A folder of this name is written down as two.
cp "$place/manifests/install_manifest.txt" "$place/whole"
printf '%s\n' "$place/one" "two/lib/libfeecenter.so" >>"$place/manifests/install_manifest.txt"
mv "$installed" "$place/first"
uninstall && fail "removing by a manifest that is not whole claims success: $said"
[[ -e $place/first/bin/feedesk ]] || fail "removing by a manifest that is not whole removes files"
cp "$place/whole" "$place/manifests/install_manifest.txt"
# Back where it was installed, it is removed: no file stays, and no folder of the project's own.
uninstall || fail "removing fails: $said"
[[ $said == *"files below $place/first"* ]] || fail "removing does not say what it removed: $said"
left=$(find "$place/first" ! -type d -o -path '*feecenter*')
[[ -z $left ]] || fail "these were left: $left"

((wrong == 0))
