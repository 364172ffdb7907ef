#!/usr/bin/env python3
"""The unattended run of examples/usr-share.zorvane (scan, main HTML report
with checksums, duplicate files, largest files, largest types) against the
sum of its parts measured alone in the same session: `scan`, `crc` and
`dups --by size,crc` of the same tree. Warm cache, medians of alternated
runs. Goal: at most 1.2 x, so nothing is computed twice (the checksums read
for the report are the ones the duplicate search uses).

Builds the release zorvane-cli first.
Usage: bench/autoprint_bench.py [TREE] [RUNS]
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CLI = os.path.join(ROOT, "build", "release", "src", "app", "zorvane-cli")
EXAMPLE = os.path.join(ROOT, "examples", "usr-share.zorvane")


def run(command, cwd):
    start = time.monotonic()
    result = subprocess.run(command, cwd=cwd, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    elapsed = time.monotonic() - start
    if result.returncode not in (0, 1):  # 1: something unreadable, still measured
        sys.exit("failed (%d): %s" % (result.returncode, " ".join(command)))
    return elapsed


def main(argv):
    tree = argv[1] if len(argv) > 1 else "/usr/share"
    runs = int(argv[2]) if len(argv) > 2 else 5
    subprocess.run(["cmake", "--preset", "release", "-DZORVANE_BUILD_TESTS=OFF"], cwd=ROOT,
                   check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "zorvane-cli"],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    work = tempfile.mkdtemp(prefix="zv-autoprint-bench-")
    try:
        os.makedirs(os.path.join(work, "build", "reports"))
        with open(EXAMPLE, encoding="utf-8") as f:
            text = f.read().replace("\n/usr/share\n", "\n%s\n" % tree)
        settings = os.path.join(work, "run.zorvane")
        with open(settings, "w", encoding="utf-8") as f:
            f.write(text)
        commands = {
            "unattended run": [CLI, settings],
            "scan": [CLI, "scan", tree],
            "crc": [CLI, "crc", tree],
            "dups": [CLI, "dups", "--by", "size,crc", tree],
        }
        for command in commands.values():
            run(command, work)  # warm the cache
        times = {name: [] for name in commands}
        for _ in range(runs):
            for name, command in commands.items():
                times[name].append(run(command, work))
        median = {name: statistics.median(t) for name, t in times.items()}
        parts = median["scan"] + median["crc"] + median["dups"]
        for name, seconds in median.items():
            print("%-15s %7.3f s" % (name, seconds))
        print("sum of parts    %7.3f s" % parts)
        ratio = median["unattended run"] / parts
        print("ratio           %7.2f x (goal <= 1.2)" % ratio)
    finally:
        shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
    main(sys.argv)
