#!/usr/bin/env python3
"""Checks `zorvane-cli crc` against Python's own CRC-32 (zlib.crc32).

Natively it checks every file under a real tree (default /usr/share/doc,
a few thousand files) and a generated tree; under Wine the generated tree.

Usage: crc_cli_test.py ZORVANE_CLI [TREE]
       crc_cli_test.py --wine WINE ZORVANE_CLI.exe
"""
import os
import random
import shutil
import subprocess
import sys
import tempfile
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")


def make_tree(root):
    rng = random.Random(1234)
    sizes = [0, 1, 4095, 4096, 4097, 8191, 8192, 8193, 65536, 131071, 131072, 131073, 1000003]
    for i in range(2000):
        size = sizes[i] if i < len(sizes) else rng.randrange(0, 20000)
        sub = os.path.join(root, "d%02d" % (i % 37))
        os.makedirs(sub, exist_ok=True)
        with open(os.path.join(sub, "f%04d.bin" % i), "wb") as f:
            f.write(rng.randbytes(size))


def expected_crcs(root):
    crcs = {}
    for path, dirs, files in os.walk(root):
        for name in files:
            full = os.path.join(path, name)
            if os.path.islink(full):
                continue
            try:
                with open(full, "rb") as f:
                    crcs[full] = "0x%X" % zlib.crc32(f.read())
            except OSError:
                crcs[full] = "UNKNOWN"
    return crcs


def run_crc(command):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=600)
    listed = {}
    for line in result.stdout.decode("utf-8", errors="surrogateescape").splitlines():
        crc, _, path = line.partition("  ")
        listed[path] = crc
    return listed


def compare(listed, expected, label):
    if listed != expected:
        missing = sorted(set(expected) - set(listed))[:5]
        extra = sorted(set(listed) - set(expected))[:5]
        wrong = [p for p in expected if p in listed and listed[p] != expected[p]][:5]
        print(label, "differs: missing", missing, "extra", extra,
              "wrong", [(p, listed[p], expected[p]) for p in wrong])
        return False
    print(label, ": %d files agree" % len(expected))
    return True


def main(argv):
    wine = None
    if argv[1] == "--wine":
        wine, cli, real = argv[2], argv[3], None
    else:
        cli = argv[1]
        real = argv[2] if len(argv) > 2 else "/usr/share/doc"
    temp = tempfile.mkdtemp(prefix="zorvane-crc-")
    ok = True
    try:
        make_tree(temp)
        expected = expected_crcs(temp)
        if wine:
            listed = run_crc(["sh", WINE_RUNNER, wine, cli, "crc", "--hex", "Z:" + temp.replace("/", "\\")])
            listed = {"/" + p[3:].replace("\\", "/"): c for p, c in listed.items()}
        else:
            listed = run_crc([cli, "crc", "--hex", temp])
        ok = compare(listed, expected, "generated tree")
        if real and os.path.isdir(real):
            ok = compare(run_crc([cli, "crc", "--hex", real]), expected_crcs(real), real) and ok
    finally:
        shutil.rmtree(temp, ignore_errors=True)
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv))
