#!/usr/bin/env bash
# The whole test run: native tests, the same tests under AddressSanitizer and
# UndefinedBehaviorSanitizer, the Windows build's tests under Wine, and a
# short run of each fuzz target.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh

jobs=$(nproc)
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
# A Wine prefix of the build's own, so a run never depends on the user's.
export WINEPREFIX="$PWD/build/wineprefix"

# Libraries that Debian packages for Linux only, built for Windows from their
# Debian source packages.
scripts/build-win-deps.sh

for preset in debug asan; do
  echo "=== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  ctest --preset "$preset" -j "$jobs"
done

# Each fuzz target briefly on a copy of its seed corpus (clang, sanitizers);
# `make fuzz` runs them longer.
echo "=== fuzz"
fuzz/run-fuzzers.sh 20 300000

# The Windows binaries last, so the run ends with CTest's own summary.
echo "=== windows"
cmake --preset windows >/dev/null
cmake --build --preset windows -j "$jobs"
ctest --preset windows -j "$jobs"
