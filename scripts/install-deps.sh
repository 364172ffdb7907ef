#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, and any further
# packages named as arguments (the benchmarks name theirs), if any is
# missing. Needs root (or sudo) only when something is to be installed.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  googletest libgtest-dev libbenchmark-dev
  g++-mingw-w64-x86-64-posix wine wine64
  util-linux tzdata python3
  libcli11-dev nlohmann-json3-dev
  libpugixml-dev dpkg-dev
  clang libclang-rt-14-dev
  libwxgtk3.2-dev xvfb xauth imagemagick
  libz-mingw-w64-dev make
  "$@"
)

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
