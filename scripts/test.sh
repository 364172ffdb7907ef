#!/usr/bin/env bash
# The whole test run: native tests, the same tests under AddressSanitizer and
# UndefinedBehaviorSanitizer, and the Windows build's tests under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh

jobs=$(nproc)
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
# A Wine prefix of the build's own, so a run never depends on the user's.
export WINEPREFIX="$PWD/build/wineprefix"

for preset in debug asan windows; do
  echo "=== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  ctest --preset "$preset" -j "$jobs"
done
