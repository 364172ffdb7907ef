#!/usr/bin/env python3
"""Scan speed and memory against du, gdu and ncdu on the same tree.

Builds the release zorvane-cli, installs gdu and ncdu (Debian packages) when
they are missing, then runs `zorvane-cli scan --json TREE` (with the default
read threads and with 1, 2, 3 and 8 reading threads), `du -s TREE`, `gdu -n TREE` and
`ncdu -o /dev/null TREE` alternately: warm cache first, then with the cache
dropped before every run where this machine lets us write
/proc/sys/vm/drop_caches. Prints medians, each one's ratio to the fastest
peer, the median CPU time (user plus system: steadier than wall time while
the machine does other work), peak resident memory, zorvane-cli's peak memory per scanned entry
(directories plus files) and the load average, since every figure on a
shared machine depends on it.
Usage: bench/scan_vs_du.py [TREE] [RUNS] [COLD_RUNS]
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
PEERS = ("du", "gdu", "ncdu")


def run(command):
    """Wall seconds, CPU seconds (user + system), peak RSS in bytes and stdout of one run."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    out = process.stdout.read()
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.monotonic() - start
    if status != 0:
        sys.exit("failed: %s" % " ".join(command))
    return elapsed, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024, out


def install_peers():
    missing = [p for p in ("gdu", "ncdu") if not shutil.which(p)]
    if not missing:
        return
    sudo = [] if os.geteuid() == 0 else ["sudo"]
    subprocess.run(sudo + ["apt-get", "install", "-y", "-o", "DPkg::Lock::Timeout=900",
                           "--no-install-recommends"] + missing, check=True)


def drop_caches():
    """True when the page, dentry and inode caches could be dropped."""
    try:
        os.sync()
        with open("/proc/sys/vm/drop_caches", "w") as control:
            control.write("3\n")
        return True
    except OSError:
        return False


def measure(commands, runs, cold):
    """Per command: median seconds, median CPU seconds and peak memory; zorvane's entry count."""
    times = {name: [] for name in commands}
    cpu = {name: [] for name in commands}
    peaks = {name: 0 for name in commands}
    entries = 0
    for _ in range(runs):
        for name, command in commands.items():
            if cold:
                drop_caches()
            seconds, cpu_seconds, peak, out = run(command)
            times[name].append(seconds)
            cpu[name].append(cpu_seconds)
            peaks[name] = max(peaks[name], peak)
            if name.startswith("zorvane"):
                summary = json.loads(out)
                entries = summary["directories"] + summary["files"]
    return ({name: statistics.median(t) for name, t in times.items()},
            {name: statistics.median(c) for name, c in cpu.items()}, peaks, entries)


def report(title, medians, cpu, peaks):
    fastest = min(medians[p] for p in PEERS)
    print("\n%s (load average at start %.2f %.2f %.2f)" % ((title,) + os.getloadavg()))
    print("  %-24s %9s %9s %9s %10s" % ("", "median s", "/fastest", "CPU s", "peak MB"))
    for name, seconds in medians.items():
        print("  %-24s %9.3f %9.2f %9.3f %10.1f" % (name, seconds, seconds / fastest, cpu[name],
                                                    peaks[name] / 1e6))


def main():
    tree = sys.argv[1] if len(sys.argv) > 1 else "/usr"
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    cold_runs = int(sys.argv[3]) if len(sys.argv) > 3 else 3
    install_peers()
    subprocess.run(["cmake", "--preset", "release", "-DZORVANE_BUILD_TESTS=OFF"], cwd=ROOT,
                   check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "zorvane-cli"],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    commands = {
        "zorvane scan": [CLI, "scan", "--json", tree],
        "zorvane scan --threads 1": [CLI, "scan", "--json", "--threads", "1", tree],
        "zorvane scan --threads 2": [CLI, "scan", "--json", "--threads", "2", tree],
        "zorvane scan --threads 3": [CLI, "scan", "--json", "--threads", "3", tree],
        "zorvane scan --threads 8": [CLI, "scan", "--json", "--threads", "8", tree],
        "du": ["du", "-s", tree],
        "gdu": ["gdu", "-n", tree],
        "ncdu": ["ncdu", "-o", "/dev/null", tree],
    }
    for command in commands.values():  # warm the cache
        run(command)
    medians, cpu, peaks, entries = measure(commands, runs, cold=False)
    print("tree: %s (%d entries), %d cores" % (tree, entries, os.cpu_count()))
    report("warm cache, median of %d alternated runs" % runs, medians, cpu, peaks)
    print("  goal: zorvane scan at most 0.80 x the fastest peer")
    print("  peak memory / entry: %.0f bytes (goal: at most 250)"
          % (peaks["zorvane scan"] / entries))
    if cold_runs > 0 and drop_caches():
        medians, cpu, peaks, _ = measure(commands, cold_runs, cold=True)
        report("cold cache, median of %d alternated runs" % cold_runs, medians, cpu, peaks)
        print("  goal: zorvane scan at most the fastest peer")
    elif cold_runs > 0:
        print("\ncold cache: not measured (caches cannot be dropped here)")


if __name__ == "__main__":
    main()
