#!/usr/bin/env bash
# Builds the fuzz preset and runs every fuzz target on a working copy of its
# seed corpus. A crash, a leak, a timeout or a failed check makes the script
# fail; the input that caused it is saved under build/fuzz/artifacts/.
#
#   fuzz/run-fuzzers.sh SECONDS [RUNS]
#
# Each target runs for at most SECONDS, and at most RUNS inputs when given.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:?usage: fuzz/run-fuzzers.sh SECONDS [RUNS]}
runs=${2:--1}

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

out=build/fuzz
mkdir -p "$out/artifacts"
for corpus in fuzz/corpus/*/; do
  target=$(basename "$corpus")
  echo "=== fuzz $target"
  # New inputs go to the working copy; the committed seeds stay as they are.
  work="$out/corpus/$target"
  log="$out/$target.log"
  mkdir -p "$work"
  cp "$corpus"* "$work"/
  status=0
  # The metadata readers take whole files; their seeds are real ones.
  case "$target" in
    fuzz_meta_*) max_len=16384 ;;
    *) max_len=512 ;;
  esac
  "$out/fuzz/$target" "$work" -max_total_time="$seconds" -runs="$runs" -timeout=10 \
    -max_len="$max_len" -print_final_stats=1 -artifact_prefix="$out/artifacts/$target-" \
    >"$log" 2>&1 || status=$?
  grep -E '^#[0-9]+[[:space:]]+(INITED|DONE)|^Done|^stat::(number_of_executed_units|peak_rss)' "$log" || true
  if [ "$status" -ne 0 ]; then
    tail -n 40 "$log" >&2
    echo "fuzz target $target failed (status $status); full output in $log" >&2
    exit 1
  fi
done
