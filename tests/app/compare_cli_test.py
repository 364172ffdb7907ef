#!/usr/bin/env python3
"""Checks `zorvane-cli compare` and `compare-files` on a generated pair of
trees: the statuses in JSON and text, the compare report to a file, the show words, the exit statuses, a
name that is not UTF-8 (POSIX), and --diff with the settings file's diff
program keys handing the pair to a program that records its arguments.

Usage: compare_cli_test.py ZORVANE_CLI RECORD_ARGS          (native)
       compare_cli_test.py --wine WINE ZORVANE_CLI.exe RECORD_ARGS.exe
"""
import json
import os
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")

LEFT = {
    "same": b"same\n",
    "size": b"a",
    "byte": b"x" * 100,
    "lines": b"a\nb\n",
    "only-left": b"1",
    "Case": b"c",
    "sub/inner": b"1",
    "gone/file": b"1",
}
RIGHT = {
    "same": b"same\n",
    "size": b"ab",
    "byte": b"x" * 6 + b"y" + b"x" * 93,
    "lines": b"a\nc\n",
    "only-right": b"1",
    "case": b"c",
    "sub/inner": b"1",
    "new/": None,
}
# Name (left or right) -> (directory, status, text) with subdirectories.
EXPECTED = {
    "same": (False, 0, "Identical"),
    "size": (False, 2, "Different in size"),
    "byte": (False, 4, "Different at byte: 3"),
    "lines": (False, 4, "Different at byte: 1"),
    "only-left": (False, 7, "Right file not found"),
    "only-right": (False, 6, "Left file not found"),
    "Case": (False, 0, "Identical"),
    "sub": (True, 0, "Identical"),
    "inner": (False, 0, "Identical"),
    "gone": (True, 11, "Right directory not found"),
    "file": (False, 7, "Right file not found"),
    "new": (True, 10, "Left directory not found"),
}


def write_tree(root, layout):
    for rel, content in layout.items():
        path = os.path.join(root, rel)
        if content is None:
            os.makedirs(path, exist_ok=True)
            continue
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as f:
            f.write(content)


class Cli:
    def __init__(self, cli, wine):
        self.prefix = ["sh", WINE_RUNNER, wine, cli] if wine else [cli]
        self.wine = wine

    def path(self, path):
        return "Z:" + path.replace("/", "\\") if self.wine else path

    def run(self, *args):
        result = subprocess.run(self.prefix + list(args), capture_output=True)
        # Standard output is in text mode on Windows.
        result.stdout = result.stdout.replace(b"\r\n", b"\n")
        return result


def base_name(path):
    return path.replace("\\", "/").rstrip("/").split("/")[-1]


def check(condition, message, failures):
    if not condition:
        failures.append(message)


def main(argv):
    wine = None
    if argv[1] == "--wine":
        wine, argv = argv[2], argv[2:]
    cli, recorder = Cli(argv[1], wine), argv[2]
    failures = []
    with tempfile.TemporaryDirectory() as temp:
        left, right = os.path.join(temp, "left"), os.path.join(temp, "right")
        write_tree(left, LEFT)
        write_tree(right, RIGHT)
        if not wine:
            with open(os.path.join(left.encode(), b"bad\xff name"), "wb") as f:
                f.write(b"1")

        result = cli.run("compare", "--subdirs", "--format", "json", cli.path(left), cli.path(right))
        check(result.returncode == 1, "compare exit %d, not 1" % result.returncode, failures)
        entries = json.loads(result.stdout)["entries"]
        root = entries[0]
        check(root["directory"] and root["left"] == cli.path(left), "root entry first", failures)
        seen = {}
        for entry in entries[1:]:
            name = base_name(entry["left"] if entry["left"] is not None else entry["right"])
            seen[name] = (entry["directory"], entry["status"], entry["text"])
        if not wine:
            # The byte 0xFF of the name comes back as the escape \udcff.
            check(seen.pop(os.fsdecode(b"bad\xff name"), None) == (False, 7, "Right file not found"),
                  "name that is not UTF-8 lost", failures)
            check(b'/bad\\udcff name"' in result.stdout, "no \\udcff escape", failures)
        check(seen == EXPECTED, "statuses:\n%s\nexpected:\n%s" % (seen, EXPECTED), failures)

        for show, count in (("dirs", 4), ("identical-dirs,different-dirs", 2), ("dirs-not-found", 2)):
            result = cli.run("compare", "--show", show, cli.path(left), cli.path(right))
            lines = result.stdout.decode("utf-8", "surrogateescape").splitlines()
            check(all(line.startswith("dir\t") for line in lines) and len(lines) == count,
                  "show %s: %s" % (show, lines), failures)

        result = cli.run("compare", "--subdirs", cli.path(os.path.join(left, "sub")),
                         cli.path(os.path.join(right, "sub")))
        check(result.returncode == 0 and result.stdout.count(b"\tIdentical\t") == 2,
              "identical pair: exit %d %s" % (result.returncode, result.stdout), failures)
        # The compare report to a file: the XML form has one DiffData per entry
        # (it is not parsed: a name that is not UTF-8 stands as &#xDCFF;, which
        # XML readers refuse); an unwritable report is an error.
        report = os.path.join(temp, "report.xml")
        result = cli.run("compare", "--subdirs", "--ansi", "--format", "xml", "-o", cli.path(report),
                         cli.path(left), cli.path(right))
        check(result.returncode == 1 and result.stdout == b"", "report exit %d" % result.returncode,
              failures)
        with open(report, "rb") as f:
            diffs = f.read().count(b"<DiffData\r\n")
        check(diffs == len(entries), "report rows %d, entries %d" % (diffs, len(entries)), failures)
        result = cli.run("compare", "--format", "csv", "-o", cli.path(os.path.join(temp, "no", "x")),
                         cli.path(left), cli.path(right))
        check(result.returncode == 2 and b"Cannot open the file " in result.stderr,
              "unopenable report: exit %d %s" % (result.returncode, result.stderr), failures)

        result = cli.run("compare", cli.path(left), cli.path(os.path.join(left, "sub")))
        check(result.returncode == 2 and b"Directory 2 is contained within directory 1" in result.stderr,
              "nested pair not refused", failures)

        for args, code, text in (
            ([], 1, b"Different at byte: 1\n"),
            (["--lines"], 1, b"Different at line: 2\n"),
            (["--bytes"], 1, b"Difference found at byte 2\n"),
        ):
            result = cli.run("compare-files", *args, cli.path(os.path.join(left, "lines")),
                             cli.path(os.path.join(right, "lines")))
            check(result.returncode == code and result.stdout.startswith(text),
                  "compare-files %s: %d %s" % (args, result.returncode, result.stdout), failures)
        result = cli.run("compare-files", cli.path(os.path.join(left, "same")),
                         cli.path(os.path.join(left, "missing")))
        check(result.returncode == 2 and result.stdout == b"Cannot read right file\n",
              "missing file: %d %s" % (result.returncode, result.stdout), failures)

        # --diff: the settings file names the program and its options.
        record = os.path.join(temp, "record")
        settings = os.path.join(temp, "settings.txt")
        with open(settings, "w", encoding="utf-8") as f:
            f.write("[DIFF PROGRAM]\nuse default program=0\nprogram=%s\noptions string=%s\n"
                    "file1 string=--left=\nfile2 string=\n\n" % (cli.path(recorder), cli.path(record)))
        hostile = os.path.join(temp, "-n; $(touch x) 'q'")
        with open(hostile, "wb") as f:
            f.write(b"1")
        result = cli.run("compare-files", "--diff", "--settings", cli.path(settings),
                         cli.path(hostile), cli.path(os.path.join(left, "same")))
        recorded = open(record, "rb").read().split(b"\0")[:-1] if os.path.exists(record) else []
        check(result.returncode == 0 and recorded == [("--left=" + cli.path(hostile)).encode(),
                                                     cli.path(os.path.join(left, "same")).encode()],
              "diff program got %s (exit %d)" % (recorded, result.returncode), failures)
        check(not os.path.exists("x") and not os.path.exists(os.path.join(temp, "x")),
              "something ran", failures)
    for failure in failures:
        print("FAIL:", failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
