#!/usr/bin/env python3
"""Scan speed and memory against `du -s` on the same tree, warm cache.

Builds the release zorvane-cli, then runs `du -s TREE` and
`zorvane-cli scan --json TREE` alternately, and prints the median wall
times, their ratio and zorvane-cli's peak resident memory per scanned entry
(directories plus files). Usage: bench/scan_vs_du.py [TREE] [RUNS]
"""
import json
import os
import statistics
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CLI = os.path.join(ROOT, "build", "release", "src", "app", "zorvane-cli")


def run(command):
    """Wall seconds, peak RSS in bytes and stdout of one run."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    out = process.stdout.read()
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.monotonic() - start
    if status != 0:
        sys.exit("failed: %s" % " ".join(command))
    return elapsed, usage.ru_maxrss * 1024, out


def main():
    tree = sys.argv[1] if len(sys.argv) > 1 else "/usr"
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    subprocess.run(["cmake", "--preset", "release", "-DZORVANE_BUILD_TESTS=OFF"], cwd=ROOT,
                   check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "zorvane-cli"],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    du = ["du", "-s", tree]
    scan = [CLI, "scan", "--json", tree]
    run(du), run(scan)  # warm the cache
    du_times, scan_times, peaks = [], [], []
    entries = 0
    for _ in range(runs):
        du_times.append(run(du)[0])
        seconds, peak, out = run(scan)
        scan_times.append(seconds)
        peaks.append(peak)
        summary = json.loads(out)
        entries = summary["directories"] + summary["files"]
    du_median, scan_median = statistics.median(du_times), statistics.median(scan_times)
    print("tree:                 %s (%d entries)" % (tree, entries))
    print("du -s median:         %.3f s" % du_median)
    print("zorvane-cli median:   %.3f s" % scan_median)
    print("ratio (zorvane/du):   %.2f   (goal: at most 1.20)" % (scan_median / du_median))
    print("peak memory / entry:  %.0f bytes   (goal: at most 250)" % (max(peaks) / entries))


if __name__ == "__main__":
    main()
