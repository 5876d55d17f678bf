# shellcheck shell=bash
# Boost 1.81 beside the system's Boost. Debian does not let the two be installed side by side, so the packages are unpacked
# below build/ and nothing of them is installed.

# unpack_boost: downloads it unless it is there. Sets `boost_options`, for cmake, and `boost_libraries`, for
# LD_LIBRARY_PATH.
unpack_boost() {
  local root=$PWD/build/boost-1.81-root packages package
  if [[ ! -e $root/usr/include/boost/version.hpp ]]; then
    packages=(libboost1.81-dev libboost-{thread,atomic,chrono,date-time,system}1.81{-dev,.0})
    mkdir -p "$root/packages"
    if ! (cd "$root/packages" && apt-get download -qq "${packages[@]}"); then
      echo "${me:?}: could not download ${packages[*]}; run apt-get update first" >&2
      exit 1
    fi
    for package in "$root"/packages/*.deb; do
      dpkg-deb -x "$package" "$root"
    done
  fi
  # shellcheck disable=SC2034
  boost_libraries=$root/usr/lib/$(g++ -print-multiarch)
  # shellcheck disable=SC2034
  boost_options=(-DBoost_DIR="$boost_libraries/cmake/Boost-1.81.0")
}
