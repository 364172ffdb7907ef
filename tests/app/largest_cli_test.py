#!/usr/bin/env python3
"""Checks `zorvane-cli largest files|dirs|owners|types` against an
independent ranking of a generated tree: ties, a count above the number of
files, no limit, the JSON shapes, the text report as the default output, a
name that is not UTF-8 kept byte for byte, and the exit statuses.

Usage: largest_cli_test.py ZORVANE_CLI            (native)
       largest_cli_test.py --wine WINE ZORVANE_CLI.exe
"""
import json
import os
import random
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")
ENV = dict(os.environ)


def make_tree(root, posix):
    rng = random.Random(5)
    dirs = [b""]
    for i in range(8):
        dirs.append(os.path.join(rng.choice(dirs), b"d%d" % i))
        os.makedirs(os.path.join(root, dirs[-1]))
    names = [b"a.txt", b"b.TXT", b"c", b"d.", b"e.tar.gz", b"f.gz"]
    if posix:
        names.append(b"bad\xff name.bin")
    for i in range(40):
        name = b"%d-%s" % (i, names[i % len(names)])
        with open(os.path.join(root, rng.choice(dirs), name), "wb") as f:
            f.write(b"z" * (rng.randrange(6) * 1000))  # many ties
    if posix:
        os.makedirs(os.path.join(root, b"locked"))
        os.chmod(os.path.join(root, b"locked"), 0)


def walk(root):
    """Files with their sizes, and each directory's own size."""
    files, dirs = {}, {}
    for path, subdirs, names in os.walk(root):
        dirs[path] = 0
        for name in names:
            size = os.path.getsize(os.path.join(path, name))
            files[os.path.join(path, name)] = size
            dirs[path] += size
    return files, dirs


def file_type(path):
    name = os.path.basename(path)
    dot = name.rfind(b".")
    return "" if dot < 0 else os.fsdecode(name[dot + 1:])


class Runner:
    def __init__(self, cli, wine, root):
        self.command = ["sh", WINE_RUNNER, wine, cli, "largest"] if wine else [cli, "largest"]
        self.wine = wine
        self.root = root

    def native_root(self):
        root = os.fsdecode(self.root)
        return "Z:" + root.replace("/", "\\") if self.wine else root

    def run(self, *args):
        return subprocess.run(self.command + list(args) + [self.native_root()],
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300, env=ENV)

    def path(self, text):
        if self.wine:
            text = text[2:].replace("\\", "/")  # Z:\x\y -> /x/y
        return os.fsencode(text)  # \udcXX back to the byte it stands for


def check_ranking(name, got, sizes, count):
    """got: [(path, size)]. Largest first, true sizes, and the sizes of the
    independent ranking; equal sizes may come in any order."""
    ranked = sorted(sizes.values(), reverse=True)
    if count >= 0:
        ranked = ranked[:max(count, 1)]
    ok = [size for _, size in got] == ranked and all(sizes.get(p) == s for p, s in got)
    ok = ok and len(set(p for p, _ in got)) == len(got)
    if not ok:
        print(name, "wrong:\n ", got, "\nexpected sizes\n ", ranked)
    return ok


def main(argv):
    wine = argv[2] if argv[1] == "--wine" else None
    cli = argv[3] if wine else argv[1]
    temp = tempfile.mkdtemp(prefix="zorvane-largest-")
    ENV["ZORVANE_CONFIG_DIR"] = os.path.join(temp, "config")
    root = os.path.join(os.fsencode(temp), b"tree")
    posix = wine is None
    try:
        os.makedirs(root)
        make_tree(root, posix)
        files, dirs = walk(root)
        runner = Runner(cli, wine, root)
        unreadable = posix and os.geteuid() != 0
        status = 1 if unreadable else 0
        ok = True
        for kind, sizes in (("files", files), ("dirs", dirs)):
            for count in (1, 3, 1000, -1):
                result = runner.run(kind, "--count", str(count), "--format", "json")
                if result.returncode != status:
                    print(kind, count, "exit", result.returncode, result.stderr.decode())
                    return 1
                rows = json.loads(result.stdout)
                got = [(runner.path(row["path"]), row["size"]) for row in rows]
                ok = check_ranking("%s --count %d" % (kind, count), got, sizes, count) and ok
            # Without --format: the text report of the list (UTF-16 with a
            # byte order mark), the same rows in the same order.
            text = runner.run(kind, "--count", "-1").stdout
            report = text.decode("utf-16", "surrogatepass")
            title = "Zorvane: Largest " + ("files" if kind == "files" else "directories")
            paths = [runner.path(line) for line in report.splitlines()
                     if line.startswith(runner.native_root())]
            if not text.startswith(b"\xff\xfe") or not report.startswith(title) \
                    or paths != [p for p, _ in got]:
                print(kind, "text report differs from JSON:\n", report, "\n", got)
                ok = False

        types = {}
        for path, size in files.items():
            entry = types.setdefault(file_type(path), [0, 0])
            entry[0] += 1
            entry[1] += size
        rows = json.loads(runner.run("types", "--json").stdout)
        got = {row["name"]: [row["files"], row["size"]] for row in rows}
        # Largest first, equal sizes by type descending.
        descending = all((a["size"], a["name"]) > (b["size"], b["name"])
                         for a, b in zip(rows, rows[1:]))
        if got != types or not descending:
            print("types wrong:", rows, "\nexpected", types)
            ok = False

        rows = json.loads(runner.run("owners", "--json").stdout)
        if (sum(row["files"] for row in rows) != len(files)
                or sum(row["size"] for row in rows) != sum(files.values())
                or [r["size"] for r in rows] != sorted((r["size"] for r in rows), reverse=True)):
            print("owners wrong:", rows)
            ok = False

        if runner.run("bogus").returncode != 2 or runner.run("files", "--count", "-2").returncode != 2:
            print("bad usage does not give 2")
            ok = False
        if ok:
            print("largest files, dirs, types and owners agree with an independent ranking")
        return 0 if ok else 1
    finally:
        locked = os.path.join(root, b"locked")
        if os.path.isdir(locked):
            os.chmod(locked, 0o700)
        shutil.rmtree(temp, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main(sys.argv))
