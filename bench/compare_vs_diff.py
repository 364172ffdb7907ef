#!/usr/bin/env python3
"""Directory compare speed against `diff -rq` on the same pair, warm cache.

Copies TREE (default /usr/share) under /tmp once, changes a few files of the
copy (two same-size files with one byte changed, two files grown, one file
removed, one added), then runs `diff -rq TREE COPY` and
`zorvane-cli compare --subdirs TREE COPY` alternately and prints the median
wall times, the median CPU times (user + system) and their ratios.
Usage: bench/compare_vs_diff.py [TREE] [RUNS]
With ZORVANE_BASELINE_CLI naming another zorvane-cli (an earlier build), that
one runs alternately with the other two, for a before-and-after figure from
the same run.
"""
import json
import os
import shutil
import statistics
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CLI = os.path.join(ROOT, "build", "release", "src", "app", "zorvane-cli")


def run(command):
    """Wall seconds and CPU seconds (user + system) of one run."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.monotonic() - start
    # diff and zorvane-cli both exit 1 on differences and 2 on trouble (the
    # dangling links of a copied tree); anything else is a failure.
    if os.waitstatus_to_exitcode(status) not in (0, 1, 2):
        sys.exit("failed: %s" % " ".join(command))
    return elapsed, usage.ru_utime + usage.ru_stime


def regular_files(tree):
    found = []
    for directory, _, names in os.walk(tree):
        for name in names:
            path = os.path.join(directory, name)
            if os.path.isfile(path) and not os.path.islink(path) and os.path.getsize(path) > 100:
                found.append(path)
    return sorted(found)


def make_copy(tree, copy):
    if os.path.isdir(copy):
        return
    subprocess.run(["cp", "-a", tree, copy + ".part"], check=True)
    files = regular_files(copy + ".part")
    step = max(1, len(files) // 7)
    picked = files[step::step][:5]
    for path in picked[:2]:  # same size, one byte changed in the middle
        with open(path, "r+b") as f:
            f.seek(os.path.getsize(path) // 2)
            byte = f.read(1)
            f.seek(-1, os.SEEK_CUR)
            f.write(bytes([byte[0] ^ 0xFF]))
    for path in picked[2:4]:
        with open(path, "ab") as f:
            f.write(b"grown\n")
    os.remove(picked[4])
    with open(os.path.join(copy + ".part", "zorvane-bench-added"), "wb") as f:
        f.write(b"added\n")
    os.rename(copy + ".part", copy)


_twins = {}


def has_case_twin(path):
    """Whether a component of path shares its name, ignoring case, with
    another entry of its directory: Zorvane matches names as Windows does,
    diff byte by byte, so such names are left out of the check."""
    while path not in ("/", ""):
        directory, name = os.path.split(path)
        if directory not in _twins:
            try:
                names = [n.lower() for n in os.listdir(directory)]
            except OSError:
                names = []
            _twins[directory] = {n for n in names if names.count(n) > 1}
        if name.lower() in _twins[directory]:
            return True
        path = directory
    return False


def without_twins(findings):
    differ, only = findings
    return ({(a, b) for a, b in differ if not has_case_twin(a) and not has_case_twin(b)},
            {p for p in only if not has_case_twin(p)})


def diff_findings(tree, copy):
    """Pairs that differ in content and the top names found on one side only,
    as `diff -rq` reports them."""
    out = subprocess.run(["diff", "-rq", tree, copy], stdout=subprocess.PIPE,
                         stderr=subprocess.DEVNULL).stdout.decode("utf-8", "surrogateescape")
    differ, only = set(), set()
    for line in out.splitlines():
        if line.startswith("Files ") and line.endswith(" differ"):
            left, right = line[len("Files "):-len(" differ")].split(" and " + copy, 1)
            differ.add((left, copy + right))
        elif line.startswith("Only in "):
            directory, name = line[len("Only in "):].split(": ", 1)
            only.add(os.path.join(directory, name))
    return differ, only


def zorvane_findings(tree, copy):
    """The same from the compare's statuses: sizes, checksums and bytes for
    content, and the missing entries whose parent has a counterpart."""
    out = subprocess.run([CLI, "compare", "--subdirs", "--format", "json", tree, copy],
                         stdout=subprocess.PIPE).stdout
    entries = json.loads(out)["entries"]
    differ = {(e["left"], e["right"]) for e in entries if e["status"] in (2, 3, 4, 5)}
    missing = {e["left"] or e["right"] for e in entries if e["status"] in (6, 7, 10, 11)}
    only = {path for path in missing if os.path.dirname(path) not in missing}
    return differ, only


def main():
    tree = sys.argv[1] if len(sys.argv) > 1 else "/usr/share"
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    copy = "/tmp/zorvane-bench-" + tree.strip("/").replace("/", "-")
    subprocess.run(["cmake", "--preset", "release"], cwd=ROOT, check=True,
                   stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "zorvane-cli"],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    make_copy(tree, copy)
    diff = ["diff", "-rq", tree, copy]
    compare = [CLI, "compare", "--subdirs", tree, copy]
    same = without_twins(diff_findings(tree, copy)) == without_twins(zorvane_findings(tree, copy))
    print("statuses: %s" % ("the same differences as diff -rq" if same else
                            "DIFFERENT from diff -rq"))
    baseline = os.environ.get("ZORVANE_BASELINE_CLI")
    before = [baseline] + compare[1:] if baseline else None
    run(diff), run(compare)  # warm the cache
    diff_runs, compare_runs, before_runs = [], [], []
    for _ in range(runs):
        diff_runs.append(run(diff))
        compare_runs.append(run(compare))
        if before:
            before_runs.append(run(before))
    diff_wall = statistics.median(r[0] for r in diff_runs)
    compare_wall = statistics.median(r[0] for r in compare_runs)
    diff_cpu = statistics.median(r[1] for r in diff_runs)
    compare_cpu = statistics.median(r[1] for r in compare_runs)
    print("pair:                    %s  %s" % (tree, copy))
    print("diff -rq median:         %.3f s wall, %.3f s CPU" % (diff_wall, diff_cpu))
    print("zorvane-cli median:      %.3f s wall, %.3f s CPU" % (compare_wall, compare_cpu))
    if before:
        before_wall = statistics.median(r[0] for r in before_runs)
        before_cpu = statistics.median(r[1] for r in before_runs)
        print("baseline median:         %.3f s wall, %.3f s CPU   (ratio wall %.2f)" % (
            before_wall, before_cpu, before_wall / diff_wall))
    print("ratio wall (zorvane/diff): %.2f   (goal: at most 0.70)" % (compare_wall / diff_wall))
    print("ratio CPU  (zorvane/diff): %.2f" % (compare_cpu / diff_cpu))
    print("(the copy stays for the next run; remove it with rm -rf %s)" % copy)


if __name__ == "__main__":
    main()
