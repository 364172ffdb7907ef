#!/usr/bin/env python3
"""Duplicate search speed against rdfind, fdupes and jdupes, scan included.

Runs `zorvane-cli dups --by size,crc TREE`, `rdfind`, `fdupes -r` and
`jdupes -r` alternately on a warm cache (and on a cold one where
/proc/sys/vm/drop_caches can be written), prints the median wall times and
their ratios, zorvane-cli's peak memory per scanned file, and checks that
all four found the same sets of identical non-empty files. Hard links count
as duplicates for every tool (fdupes -H, jdupes -H, rdfind
-removeidentinode false), as they do for Zorvane.

Usage: bench/dups_vs_others.py [TREE] [RUNS] [CACHES]
                                  (default /usr/share, 5, warm,cold)
The other tools are installed from Debian when missing. With
ZORVANE_BASELINE_CLI naming another zorvane-cli (an earlier build), that one
runs alternately with the rest as "baseline", for a before-and-after figure
from the same run.
"""
import json
import shutil
import os
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CLI = os.path.join(ROOT, "build", "release", "src", "app", "zorvane-cli")


def run(command, cwd=None):
    """Wall seconds, peak RSS in bytes and stdout of one run."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, cwd=cwd)
    out = process.stdout.read()
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.monotonic() - start
    if os.waitstatus_to_exitcode(status) not in (0, 1):
        sys.exit("failed: %s" % " ".join(command))
    return elapsed, usage.ru_maxrss * 1024, out


def blank_separated_groups(out):
    """fdupes and jdupes: one path per line, a blank line after each group."""
    groups, current = set(), []
    for line in out.split(b"\n") + [b""]:
        if line:
            current.append(line)
        elif current:
            groups.add(frozenset(current))
            current = []
    return groups


def zorvane_groups(out):
    """Groups of non-empty files from the text form ("Group N: SIZE bytes")."""
    groups, current, size = set(), [], 0
    for line in out.split(b"\n") + [b""]:
        if line.startswith(b"Group "):
            size = int(line.split(b": ")[1].split()[0])
        elif line:
            current.append(line)
        else:
            if current and size > 0:
                groups.add(frozenset(current))
            current = []
    return groups


def rdfind_groups(results_file):
    """results.txt: duptype id depth size device inode priority name; the
    first occurrence carries id N and its duplicates -N."""
    by_id = {}
    with open(results_file, "rb") as f:
        for line in f:
            if line.startswith(b"#"):
                continue
            fields = line.rstrip(b"\n").split(b" ", 7)
            if len(fields) == 8 and int(fields[3]) > 0:
                by_id.setdefault(abs(int(fields[1])), set()).add(fields[7])
    return {frozenset(g) for g in by_id.values() if len(g) >= 2}


def drop_caches():
    try:
        subprocess.run(["sync"], check=True)
        with open("/proc/sys/vm/drop_caches", "w") as f:
            f.write("3\n")
        return True
    except OSError:
        return False


def main():
    tree = sys.argv[1] if len(sys.argv) > 1 else "/usr/share"
    missing = [tool for tool in ("rdfind", "fdupes", "jdupes") if not shutil.which(tool)]
    if missing:
        subprocess.run(["apt-get", "install", "-y", "-o", "DPkg::Lock::Timeout=900",
                        "--no-install-recommends"] + missing, check=True)
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    subprocess.run(["cmake", "--preset", "release"], cwd=ROOT, check=True,
                   stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "zorvane-cli"],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    work = tempfile.mkdtemp(prefix="dups-bench-")
    results = os.path.join(work, "results.txt")
    tools = {
        "zorvane": [CLI, "dups", "--by", "size,crc", tree],
        "rdfind": ["rdfind", "-removeidentinode", "false", "-outputname", results, tree],
        "fdupes": ["fdupes", "-r", "-n", "-H", "-q", tree],
        "jdupes": ["jdupes", "-r", "-H", "-q", tree],
    }
    baseline = os.environ.get("ZORVANE_BASELINE_CLI")
    if baseline:
        tools["baseline"] = [baseline, "dups", "--by", "size,crc", tree]

    # Same sets of identical non-empty files.
    outputs = {name: run(command, cwd=work)[2] for name, command in tools.items()}
    sets = {
        "zorvane": zorvane_groups(outputs["zorvane"]),
        "rdfind": rdfind_groups(results),
        "fdupes": blank_separated_groups(outputs["fdupes"]),
        "jdupes": blank_separated_groups(outputs["jdupes"]),
    }
    if baseline:
        sets["baseline"] = zorvane_groups(outputs["baseline"])
    for name, groups in sets.items():
        same = groups == sets["fdupes"]
        print("%-8s %6d groups, %7d files  %s" % (
            name, len(groups), sum(len(g) for g in groups),
            "same sets as fdupes" if same else "DIFFERENT from fdupes"))
        if not same:
            for g in list(groups ^ sets["fdupes"])[:5]:
                print("   ", sorted(g)[:4])

    files = json.loads(run([CLI, "dups", "--by", "size,crc", "--json", tree])[2])["files_scanned"]
    caches = sys.argv[3].split(",") if len(sys.argv) > 3 else ["warm", "cold"]
    for cache in caches:
        if cache == "cold" and not drop_caches():
            print("\ncold cache: not measured (cannot write /proc/sys/vm/drop_caches here)")
            break
        times = {name: [] for name in tools}
        peaks = []
        for i in range(runs):
            order = list(tools) if i % 2 == 0 else list(reversed(list(tools)))
            for name in order:
                if cache == "cold":
                    drop_caches()
                seconds, peak, _ = run(tools[name], cwd=work)
                times[name].append(seconds)
                if name == "zorvane":
                    peaks.append(peak)
        medians = {name: statistics.median(t) for name, t in times.items()}
        print("\n%s cache, %s (%d files), median of %d alternated runs:" % (cache, tree, files, runs))
        for name, median in medians.items():
            print("  %-8s %7.3f s   zorvane/%s = %.2f" % (
                name, median, name, medians["zorvane"] / median))
        print("  peak memory per scanned file: %.0f bytes" % (max(peaks) / files))
        print("  goal: zorvane/rdfind at most 0.50 and below 1.00 for every tool")


if __name__ == "__main__":
    main()
