#!/usr/bin/env python3
"""The main report's cost, two ways, warm cache, medians of alternated runs.

1. The CSV report of a real tree (default /usr/share) with the default
   print flags, checksums and owners included, against `zorvane-cli crc`
   of the same tree (goal: at most 1.3 x).
2. The CSV report of a generated tree (default 1,000,000 entries, made once
   under /tmp and reused) with the checksum columns off, against the scan
   alone (`scan --json`; goal: the report adds at most 50 %), and the
   report's peak resident memory.

Builds the release zorvane-cli first.
Usage: bench/report_bench.py [REAL_TREE] [ENTRIES] [RUNS]
"""
import os
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CLI = os.path.join(ROOT, "build", "release", "src", "app", "zorvane-cli")


def run(command):
    """Wall seconds and peak RSS in bytes of one run; output discarded."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.monotonic() - start
    if status != 0:
        sys.exit("failed: %s" % " ".join(command))
    return elapsed, usage.ru_maxrss * 1024


def alternate(commands, runs):
    """Median seconds and largest peak of each command, run in turn."""
    for command in commands:
        run(command)  # warm the cache
    times = [[] for _ in commands]
    peaks = [0 for _ in commands]
    for _ in range(runs):
        for i, command in enumerate(commands):
            seconds, peak = run(command)
            times[i].append(seconds)
            peaks[i] = max(peaks[i], peak)
    return [statistics.median(t) for t in times], peaks


def generated_tree(entries):
    """A tree of about `entries` files and directories: 100 files per
    directory, directories 20 to a parent; made once and reused."""
    root = "/tmp/zorvane-report-bench-%d" % entries
    marker = os.path.join(root, ".complete")
    if os.path.exists(marker):
        return root
    files_per_dir, made = 100, 0
    for d in range(entries // (files_per_dir + 1) + 1):
        path = os.path.join(root, "g%03d" % (d // 400), "h%02d" % (d // 20 % 20), "d%05d" % d)
        os.makedirs(path, exist_ok=True)
        for f in range(files_per_dir):
            with open(os.path.join(path, "file%03d.dat" % f), "wb") as out:
                out.write(b"x" * (f * 37 % 5000))
        made += files_per_dir + 1
        if made >= entries:
            break
    open(marker, "w").close()
    return root


def main():
    real = sys.argv[1] if len(sys.argv) > 1 else "/usr/share"
    entries = int(sys.argv[2]) if len(sys.argv) > 2 else 1000000
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 5
    subprocess.run(["cmake", "--preset", "release", "-DZORVANE_BUILD_TESTS=OFF"], cwd=ROOT,
                   check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "zorvane-cli"],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)

    (report, crc), _ = alternate([[CLI, "report", "--format", "csv", real],
                                  [CLI, "crc", real]], runs)
    print("real tree:            %s" % real)
    print("csv report median:    %.3f s" % report)
    print("crc command median:   %.3f s" % crc)
    print("ratio (report/crc):   %.2f   (goal: at most 1.30)" % (report / crc))

    tree = generated_tree(entries)
    flags = "[GENERAL PRINT FLAGS]\nPrint CRC=0\nPrint CRC with SUBDIR=0\n"
    with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as settings:
        settings.write(flags)
    # The same without the columns that read the disk for each row (size on
    # disk, link count, owner): what writing the report itself costs.
    with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as bare:
        bare.write(flags + "Print owner=0\nPrint size on disk=0\nLink count=0\n")
    try:
        (report, scan, report_bare), (peak, _, _) = alternate(
            [[CLI, "report", "--format", "csv", "--settings", settings.name, tree],
             [CLI, "scan", "--json", tree],
             [CLI, "report", "--format", "csv", "--settings", bare.name, tree]], runs)
    finally:
        os.unlink(settings.name)
        os.unlink(bare.name)
    print("generated tree:       %s (%d entries)" % (tree, entries))
    print("csv report median:    %.3f s (checksums off)" % report)
    print("scan median:          %.3f s" % scan)
    print("report adds:          %.0f %%   (goal: at most 50 %%)" % ((report / scan - 1) * 100))
    print("without disk columns: %.3f s, adds %.0f %%" % (report_bare, (report_bare / scan - 1) * 100))
    print("report peak memory:   %.0f MB" % (peak / 1e6))


if __name__ == "__main__":
    main()
