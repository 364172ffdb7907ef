#!/usr/bin/env bash
# Builds, for the Windows cross build, the libraries that Debian ships for
# Linux only: each from its Debian source package, cross-compiled with the
# project's MinGW-w64 toolchain and installed into build/win-deps, where the
# toolchain file looks for packages. Work already done is skipped.
set -euo pipefail
cd "$(dirname "$0")/.."

root="$PWD"
src_dir="$root/build/win-deps-src"
prefix="$root/build/win-deps"
toolchain="$root/cmake/mingw-w64-x86_64.cmake"

sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"

# Adds deb-src entries mirroring the machine's deb entries (same URIs,
# suites, components and keys) when there are none, so that
# "apt-get source" works.
ensure_deb_src() {
  if grep -Eqs '^Types:.*deb-src' /etc/apt/sources.list.d/*.sources ||
     grep -Eqs '^[[:space:]]*deb-src[[:space:]]' /etc/apt/sources.list /etc/apt/sources.list.d/*.list; then
    return
  fi
  local sources list
  # deb822 files: every stanza whose Types include "deb", with Types
  # rewritten; comments dropped.
  sources=$(awk '
    /^[[:space:]]*#/ { next }
    /^[[:space:]]*$/ { if (stanza != "" && isdeb) printf "%s\n", stanza; stanza = ""; isdeb = 0; next }
    /^Types:/ { if ($0 ~ /[[:space:]]deb([[:space:]]|$)/) isdeb = 1; stanza = stanza "Types: deb-src\n"; next }
    { stanza = stanza $0 "\n" }
    END { if (stanza != "" && isdeb) printf "%s\n", stanza }
  ' /dev/null $(ls /etc/apt/sources.list.d/*.sources 2>/dev/null))
  # One-line files.
  list=$(sed -n 's/^[[:space:]]*deb[[:space:]]/deb-src /p' \
    /dev/null /etc/apt/sources.list $(ls /etc/apt/sources.list.d/*.list 2>/dev/null) 2>/dev/null || true)
  if [ -n "$sources" ]; then
    printf '%s\n' "$sources" | $sudo tee /etc/apt/sources.list.d/zorvane-deb-src.sources >/dev/null
  fi
  if [ -n "$list" ]; then
    printf '%s\n' "$list" | $sudo tee /etc/apt/sources.list.d/zorvane-deb-src.list >/dev/null
  fi
  $sudo apt-get update -qq
}

# build_from_debian_source PACKAGE MARKER CMAKE-OPTIONS...: MARKER is a file
# under the prefix that exists once the package is installed there.
build_from_debian_source() {
  local package=$1 marker=$2
  shift 2
  [ -e "$prefix/$marker" ] && return
  ensure_deb_src
  mkdir -p "$src_dir"
  local tree
  tree=$(find "$src_dir" -mindepth 1 -maxdepth 1 -type d -name "$package-*" | head -n 1)
  if [ -z "$tree" ]; then
    (cd "$src_dir" && apt-get source -qq "$package")
    tree=$(find "$src_dir" -mindepth 1 -maxdepth 1 -type d -name "$package-*" | head -n 1)
  fi
  local build="$src_dir/build-$package"
  cmake -S "$tree" -B "$build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "$@" >/dev/null
  cmake --build "$build" >/dev/null
  cmake --install "$build" >/dev/null
}

build_from_debian_source pugixml lib/cmake/pugixml/pugixml-config.cmake -DPUGIXML_BUILD_TESTS=OFF
# The ZIP reader of the OOXML package reader; zlib comes from Debian's
# MinGW-w64 package, linked statically.
build_from_debian_source libzip lib/cmake/libzip/libzip-config.cmake \
  -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a -DZLIB_INCLUDE_DIR=/usr/x86_64-w64-mingw32/include \
  -DENABLE_BZIP2=OFF -DENABLE_LZMA=OFF -DENABLE_ZSTD=OFF -DENABLE_COMMONCRYPTO=OFF \
  -DENABLE_GNUTLS=OFF -DENABLE_MBEDTLS=OFF -DENABLE_OPENSSL=OFF -DENABLE_WINDOWS_CRYPTO=OFF \
  -DBUILD_TOOLS=OFF -DBUILD_REGRESS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_DOC=OFF

# wxWidgets for MinGW-w64, static, from Debian's wxwidgets3.2 source package.
# It takes some ten minutes on two cores, so it is installed into a cache
# outside the build tree and the clone, one directory per Debian version, and
# every build on this machine shares it. The windows preset finds it there
# (cmake/WinWxWidgets.cmake); ZORVANE_CACHE_DIR moves the cache.
build_wxwidgets() {
  local cache="${ZORVANE_CACHE_DIR:-/var/cache/zorvane}/win-deps"
  ensure_deb_src
  local version
  version=$(apt-cache showsrc wxwidgets3.2 | sed -n 's/^Version: //p' | sort -V | tail -n 1)
  local wx_prefix="$cache/wxwidgets-$version"
  [ -x "$wx_prefix/bin/wx-config" ] && return
  if ! mkdir -p "$cache" 2>/dev/null; then
    $sudo mkdir -p "$cache"
    $sudo chown "$(id -u):$(id -g)" "$cache"
  fi
  local work="$cache/wxwidgets-$version.work"
  rm -rf "$work"
  echo "Building wxWidgets $version for Windows into $wx_prefix (about ten minutes)"
  mkdir -p "$work"
  (cd "$work" && apt-get source -qq "wxwidgets3.2=$version" >/dev/null)
  local tree
  tree=$(find "$work" -mindepth 1 -maxdepth 1 -type d -name 'wxwidgets3.2-*' | head -n 1)
  mkdir -p "$work/build"
  (
    cd "$work/build"
    "$tree/configure" --host=x86_64-w64-mingw32 --build="$(gcc -dumpmachine)" \
      --prefix="$wx_prefix" \
      CC=x86_64-w64-mingw32-gcc-posix CXX=x86_64-w64-mingw32-g++-posix \
      --with-msw --disable-shared --without-libpng --without-libjpeg \
      --without-libtiff --without-expat --disable-svg --disable-xrc \
      --disable-richtext --disable-stc --disable-webview --disable-mediactrl \
      --with-zlib=sys >configure.log 2>&1
    nice make -j"$(nproc)" >make.log 2>&1
    make install >install.log 2>&1
  ) || { tail -n 30 "$work"/build/*.log >&2; return 1; }
  rm -rf "$work"
}

build_wxwidgets
