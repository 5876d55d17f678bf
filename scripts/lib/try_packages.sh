#!/usr/bin/env bash
# Installs Debian packages in a bare Debian of their own, uses them as their users would, and removes them.
#   try_packages.sh FOLDER PACKAGES...
# FOLDER is where that Debian stands for as long as it runs.
set -euo pipefail
folder=$1
shift
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
root=$(realpath "$(mktemp -d "$folder/debian.XXXXXX")")
remove_root() {
  ! mountpoint -q "$root/proc" || umount "$root/proc"
  rm -rf --one-file-system "$root"
}
trap remove_root EXIT

echo "Setting up a bare Debian in $root ..."
# From where this machine's packages come, whose versions those that are tried were made for.
sources=()
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources}; do
  [[ ! -s $file ]] || sources+=("$file")
done
# shellcheck disable=SC1091
mmdebstrap --quiet --variant=apt "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" "${sources[@]}"
mount -t proc proc "$root/proc"
mkdir "$root/tried"
cp "$@" "$root/tried"

# inside COMMAND: runs it in that Debian, whose programs ask nothing.
inside() {
  chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive bash -euc "$1"
}
# prints EXPECTED COMMAND: its output holds the text.
prints() {
  local output
  output=$(inside "$2" 2>&1) && [[ $output == *"$1"* ]] && return
  printf '%s\nprints, and not "%s":\n%s\n' "$2" "$1" "$output" >&2
  return 1
}
# files_left: whatever bears the project's name.
files_left() {
  inside "find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /tried \) -prune -o \( -path '*feecenter*' -o -path '*feedesk*' \) -print |
    grep -v '^/var/\(cache\|lib\)/\(apt\|dpkg\)/\|^/var/log/' || true"
}
# quietly COMMAND: what it says is shown only when it fails.
quietly() {
  inside "$1" >"$root/said" 2>&1 && return
  printf '%s\nfailed:\n' "$1" >&2
  tail -n 40 "$root/said" >&2
  return 1
}
install="apt-get -y -o Dpkg::Use-Pty=0 install --no-install-recommends"
quietly "apt-get -q update"

echo "The program, without a market and with the one of its package"
quietly "$install /tried/libfeecenter[0-9]*.deb /tried/feedesk_*.deb"
quietly "ldd /usr/bin/feedesk | grep 'libfeecenter\.so\.[0-9]* => /'"
if inside "cd / && feedesk accounts" >/dev/null 2>&1; then
  echo "feedesk finds a market where no package brings one" >&2
  exit 1
fi
quietly "$install /tried/feecenter-market_*.deb"
prints 1000001 "cd / && feedesk accounts"
prints 0.025% "cd / && feedesk fee 1000001 SH:600519"

echo "The library, built against by the examples that it brings"
quietly "$install /tried/libfeecenter-dev_*.deb g++ cmake make"
quietly "cp -r /usr/share/doc/feecenter/examples /tried"
for example in host host-own-records desktop-loop; do
  expected=$(<"examples/$example/expected.txt")
  prints "$expected" "cd /tried/examples/$example && cmake -S . -B /tried/$example >/dev/null && cmake --build /tried/$example >/dev/null &&
    /tried/$example/$example"
  command=$(sed -n 's/^#   c++ /c++ /p' "examples/$example/CMakeLists.txt")
  prints "$expected" "cd /tried/examples/$example && $command && ./$example"
done

echo "Removing them"
quietly "dpkg --purge feecenter-market feedesk libfeecenter-dev \$(dpkg-query -W -f '\${Package}' 'libfeecenter[0-9]*')"
left=$(files_left)
if [[ $left ]]; then
  printf 'these files were left:\n%s\n' "$left" >&2
  exit 1
fi
echo "The packages were installed, used and removed"
