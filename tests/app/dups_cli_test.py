#!/usr/bin/env python3
"""Checks `zorvane-cli dups` and `dupdirs` on a generated tree against groups
computed here from the files' bytes: the text and JSON forms, names that are
not UTF-8 (kept in JSON as \\udcXX escapes), the duplicate files filter of a
settings file, and the exit statuses.

Usage: dups_cli_test.py ZORVANE_CLI            (native, as an ordinary user)
       dups_cli_test.py --wine WINE ZORVANE_CLI.exe
"""
import json
import os
import random
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")
FAILURES = []


def check(condition, message, result=None):
    if not condition:
        FAILURES.append(message)
        print("FAIL:", message)
        if result is not None:
            print(result.stdout.decode(errors="replace")[:2000], result.stderr.decode(errors="replace")[:2000])


class Cli:
    def __init__(self, cli, wine, config_dir):
        self.command = ["sh", WINE_RUNNER, wine, cli] if wine else [cli]
        self.wine = wine
        self.env = dict(os.environ, ZORVANE_CONFIG_DIR=config_dir)

    def native(self, path):
        return "Z:" + path.replace("/", "\\") if self.wine else path

    def local(self, path):
        return path[2:].replace("\\", "/") if self.wine else path

    def run(self, args):
        return subprocess.run(self.command + args, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              timeout=300, env=self.env)


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(data)


def make_tree(root, wine):
    rng = random.Random(7)
    contents = [rng.randbytes(rng.choice([1, 100, 4096, 4097, 20000])) for _ in range(40)]
    for i in range(300):
        data = contents[rng.randrange(len(contents))] if i % 3 else rng.randbytes(100)
        write(os.path.join(root, "d%d" % (i % 11), "f%03d" % i), data)
    write(os.path.join(root, "e1"), b"")
    write(os.path.join(root, "e2"), b"")
    write(os.path.join(root, "twin", "a"), b"twin content")
    write(os.path.join(root, "twin", "b"), b"twin content")
    if not wine:
        write(os.path.join(root.encode(), b"odd", b"bad\xffname"), b"twin content")


def reference(root):
    groups = {}
    for path, dirs, files in os.walk(root.encode()):
        for name in files:
            full = os.path.join(path, name)
            with open(full, "rb") as f:
                groups.setdefault(f.read(), set()).add(os.fsdecode(full))
    return {frozenset(g) for g in groups.values() if len(g) >= 2}


def json_groups(cli, result, key="files"):
    data = json.loads(result.stdout)
    return {frozenset(cli.local(p) for p in g[key]) for g in data["groups"]}, data


def text_groups(cli, result):
    groups, current = set(), None
    for line in os.fsdecode(result.stdout).replace("\r\n", "\n").split("\n"):
        if line.startswith("Group "):
            current = set()
        elif line:
            current.add(cli.local(line))
        elif current:
            groups.add(frozenset(current))
            current = None
    if current:
        groups.add(frozenset(current))
    return groups


def main(argv):
    wine = None
    if argv[1] == "--wine":
        wine, cli_path = argv[2], argv[3]
    else:
        cli_path = argv[1]
    with tempfile.TemporaryDirectory() as temp:
        cli = Cli(cli_path, wine, os.path.join(temp, "config"))
        root = os.path.join(temp, "root")
        make_tree(root, wine)
        expected = reference(root)

        result = cli.run(["dups", "--json", cli.native(root)])
        check(result.returncode == 0, "dups --json succeeds", result)
        got, data = json_groups(cli, result)
        check(got == expected, "JSON groups equal the reference", result)
        check(data["files_scanned"] == sum(len(f) for _, _, f in os.walk(root)), "files_scanned")
        sizes = [g["size"] for g in data["groups"]]
        check(sizes == sorted(sizes, reverse=True), "groups sorted by size, largest first")
        check([g["group"] for g in data["groups"]] == list(range(len(sizes))), "groups numbered")

        for by in (["--by", "size,crc"], ["--by", "bytes"], ["--by", "crc,bytes"]):
            result = cli.run(["dups"] + by + [cli.native(root)])
            check(result.returncode == 0 and text_groups(cli, result) == expected,
                  "text groups by %s equal the reference" % by[1], result)

        result = cli.run(["dupdirs", "--json", "--by", "crcsub", cli.native(root)])
        got, _ = json_groups(cli, result, "directories")
        check(result.returncode == 0 and got == set(), "no duplicate directories", result)

        # The duplicate files filter of a settings file: only files identical
        # to twin/a are scanned, and they form one group.
        settings = os.path.join(temp, "filter.txt")
        write(settings, ("[FILTER DUP FILES]\n%s\n\n[DUPLICATE OPTIONS]\n"
                         "Duplicate files by size=1\nDuplicate files by CRC=1\n"
                         % cli.native(os.path.join(root, "twin", "a"))).encode())
        result = cli.run(["dups", "--json", "--settings", cli.native(settings), cli.native(root)])
        got, _ = json_groups(cli, result)
        twins = {g for g in expected if os.path.join(root, "twin", "a") in g}
        check(result.returncode == 0 and got == twins, "filter keeps the twins only", result)

        result = cli.run(["dups", "--by", "size,colour", cli.native(root)])
        check(result.returncode == 2, "an unknown criterion is a usage error", result)
        if not wine:
            os.chmod(os.path.join(root, "twin", "b"), 0)
            result = cli.run(["dups", "--json", cli.native(root)])
            check(result.returncode == 1, "an unreadable file gives status 1", result)
            got, _ = json_groups(cli, result)
            check(all(os.path.join(root, "twin", "b") not in g for g in got),
                  "the unreadable file is in no group", result)
            os.chmod(os.path.join(root, "twin", "b"), 0o644)
    if FAILURES:
        return 1
    print("dups_cli_test: all checks passed")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
