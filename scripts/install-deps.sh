#!/usr/bin/env bash
# Installs the Debian packages that are missing, and any further packages
# named as arguments (the benchmarks name theirs). Needs root (or sudo) only
# when something is to be installed.
#
#   install-deps.sh --build [PKG...]   what the release build needs (make run)
#   install-deps.sh [PKG...]           that and everything the tests, the
#                                      sanitizers, the fuzzers and the Windows
#                                      cross build need (make test)
set -euo pipefail

build_packages=(
  cmake ninja-build g++ pkg-config tzdata
  libcli11-dev nlohmann-json3-dev libpugixml-dev
  libzip-dev zlib1g-dev libwxgtk3.2-dev
)
test_packages=(
  googletest libgtest-dev libbenchmark-dev
  g++-mingw-w64-x86-64-posix wine wine64 libz-mingw-w64-dev
  util-linux python3 dpkg-dev
  clang libclang-rt-14-dev
  xvfb xauth imagemagick make
)

packages=("${build_packages[@]}")
if [ "${1:-}" = "--build" ]; then
  shift
else
  packages+=("${test_packages[@]}")
fi
packages+=("$@")

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
