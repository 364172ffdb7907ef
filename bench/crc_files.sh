#!/usr/bin/env bash
# Whole-file CRC-32 of every file under a tree: zorvane-cli's crc command
# against "rhash --crc32 -r", warm cache. Builds the release binaries, checks
# that both give the same checksums, then runs the two alternately and
# prints the median wall times and their ratio.
# Usage: bench/crc_files.sh [TREE] [RUNS]
set -euo pipefail
cd "$(dirname "$0")/.."

tree=${1:-/usr/share}
runs=${2:-5}

scripts/install-deps.sh libbenchmark-dev zlib1g-dev libisal-dev rhash
cmake --preset release -DZORVANE_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release --target zorvane-cli >/dev/null
ours=(build/release/src/app/zorvane-cli crc --hex)
theirs=(rhash --crc32 -r)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C
tab=$'\t'

# Warm the cache, and compare: ours prints "0x" and no leading zeros, rhash
# eight digits. Only files both list are compared (rhash reads links too).
"${ours[@]}" "$tree" 2>/dev/null |
  awk '$1 != "UNKNOWN" { h = substr($1, 3); while (length(h) < 8) h = "0" h;
                         print substr($0, index($0, "  ") + 2) "\t" h }' |
  sort -t "$tab" -k1,1 >"$work/ours"
"${theirs[@]}" --printf='%p\t%C\n' "$tree" 2>/dev/null | sort -t "$tab" -k1,1 >"$work/theirs"
join -t "$tab" "$work/ours" "$work/theirs" >"$work/joined"
compared=$(wc -l <"$work/joined")
differing=$(awk -F "$tab" '$2 != $3' "$work/joined" | wc -l)
echo "files compared: $compared, checksums differing: $differing"
[ "$differing" -eq 0 ] || { echo "checksums differ" >&2; exit 1; }

# Wall seconds of one run.
time_of() {
  local start end
  start=$(date +%s.%N)
  "$@" "$tree" >/dev/null 2>&1 || true
  end=$(date +%s.%N)
  awk -v a="$start" -v b="$end" 'BEGIN { printf "%.4f\n", b - a }'
}

median() { sort -g | awk '{ a[NR] = $1 } END { print (NR % 2) ? a[(NR + 1) / 2] : (a[NR / 2] + a[NR / 2 + 1]) / 2 }'; }

: >"$work/t_ours"
: >"$work/t_theirs"
for ((i = 0; i < runs; i++)); do
  time_of "${ours[@]}" >>"$work/t_ours"
  time_of "${theirs[@]}" >>"$work/t_theirs"
done
m_ours=$(median <"$work/t_ours")
m_theirs=$(median <"$work/t_theirs")
bytes=$(du -sb "$tree" 2>/dev/null | cut -f1)
awk -v tree="$tree" -v files="$(wc -l <"$work/ours")" -v mb="$((bytes / 1000000))" \
    -v tool="${ours[0]##*/}" -v o="$m_ours" -v t="$m_theirs" 'BEGIN {
  printf "tree: %s (%s files, %s MB)\n", tree, files, mb
  printf "zorvane (%s): median %.3f s\n", tool, o
  printf "rhash --crc32 -r: median %.3f s\n", t
  printf "rhash / zorvane: %.2fx\n", t / o
}'
