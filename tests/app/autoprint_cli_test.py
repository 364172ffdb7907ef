#!/usr/bin/env python3
"""Checks the unattended run `zorvane-cli SETTINGS_FILE` with all seven Auto
Print reports on: written in their fixed order in the chosen forms, dated
names, a report that cannot be opened skipped (and named on stderr) while the
others are written, exit status 0 with "Exit program after printing", a
duplicate report without a criterion named on stderr, and nothing written
when the scan finds no file.

Usage: autoprint_cli_test.py ZORVANE_CLI            (native)
       autoprint_cli_test.py --wine WINE ZORVANE_CLI.exe
"""
import datetime
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")

# Block, form, file name, dated: in the order the run writes them.
REPORTS = [
    ("AUTOPRINT_MAIN", "html", "main.html", True),
    ("AUTOPRINT_DUP_FILES", "text", "dups.txt", True),
    ("AUTOPRINT_DUP_DIRS", "excel", "dupdirs.csv", False),
    ("AUTOPRINT_LARGEST_FILES", "xml", "largest", True),
    ("AUTOPRINT_LARGEST_DIRS", "text", "largest-dirs.txt", False),
    ("AUTOPRINT_LARGEST_OWNER", "excel", "owner.csv", False),
    ("AUTOPRINT_LARGEST_TYPE", "html", "types.html", False),
]
FIRST_LINES = {
    "main.html": "<html>",
    "dups.txt": "Zorvane: Duplicate Files",
    "dupdirs.csv": '"Zorvane: Duplicate Directories"',
    "largest": '<?xml version="1.0" encoding="utf-16" ?>',
    "largest-dirs.txt": "Zorvane: Largest directories",
    "owner.csv": '"Zorvane: Largest Owner"',
    "types.html": "<html>",
}


def dated(name):
    stamp = datetime.date.today().strftime("_%Y_%m_%d")
    base, dot, ext = name.rpartition(".")
    return base + stamp + dot + ext if dot else name + stamp


class Runner:
    def __init__(self, cli, wine):
        self.command = ["sh", WINE_RUNNER, wine, cli] if wine else [cli]
        self.wine = wine

    def native(self, path):
        return "Z:" + path.replace("/", "\\") if self.wine else path

    def run(self, settings):
        return subprocess.run(self.command + [self.native(settings)], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=300)


def write_settings(path, runner, root, out, unwritable=None, criteria=True, exit_after=True):
    lines = ["[SCAN DIRECTORIES]", runner.native(root), "", "[DUPLICATE OPTIONS]"]
    if criteria:
        lines += ["Duplicate files by CRC=1", "Duplicate dirs by CRC=1"]
    lines.append("")
    for block, form, name, is_dated in REPORTS:
        target = os.path.join(out if name != unwritable else out + "/missing", name)
        lines += ["[%s]" % block, "autoprint=1", "print_type=" + form,
                  "fname=" + runner.native(target),
                  "Append date to file name=%d" % is_dated]
        if block == "AUTOPRINT_MAIN" and exit_after:
            lines.append("Exit program after printing=1")
        lines.append("")
    with open(path, "w", encoding="utf-8") as f:
        f.write("\n".join(lines))


def first_line(path):
    with open(path, "rb") as f:
        data = f.read()
    assert data[:2] == b"\xff\xfe", path  # Unicode by default
    return data[2:].decode("utf-16-le").split("\r\n", 1)[0]


def main(argv):
    wine = argv[2] if argv[1] == "--wine" else None
    runner = Runner(argv[3] if wine else argv[1], wine)
    failures = []
    work = tempfile.mkdtemp(prefix="zv-autoprint-")
    try:
        root = os.path.join(work, "tree")
        for sub in ("a", "b", "c"):
            os.makedirs(os.path.join(root, sub))
            with open(os.path.join(root, sub, "same.txt"), "wb") as f:
                f.write(b"duplicate bytes\n")
        with open(os.path.join(root, "c", "big.dat"), "wb") as f:
            f.write(b"x" * 5000)

        # All seven, in order, in their forms, with dated names.
        out = os.path.join(work, "out")
        os.makedirs(out)
        settings = os.path.join(work, "all.zorvane")
        write_settings(settings, runner, root, out)
        result = runner.run(settings)
        if result.returncode != 0:
            failures.append("all seven: status %d, %s" % (result.returncode, result.stderr))
        expected = [dated(name) if is_dated else name for _, _, name, is_dated in REPORTS]
        if sorted(os.listdir(out)) != sorted(expected):
            failures.append("all seven: files %s, expected %s" % (sorted(os.listdir(out)), expected))
        else:
            written = sorted(expected, key=lambda n: os.stat(os.path.join(out, n)).st_mtime_ns)
            if [os.path.getmtime(os.path.join(out, n)) for n in expected] != sorted(
                    os.path.getmtime(os.path.join(out, n)) for n in expected):
                failures.append("order: written as %s" % written)
            for (_, _, name, _), file in zip(REPORTS, expected):
                line = first_line(os.path.join(out, file))
                if line != FIRST_LINES[name]:
                    failures.append("%s begins %r" % (file, line))
            with open(os.path.join(out, expected[1]), "rb") as f:
                dups = f.read().decode("utf-16-le")
            if dups.count("same.txt") != 3:
                failures.append("duplicate files report: %r" % dups)

        # One that cannot be opened is skipped; the rest are written.
        out2 = os.path.join(work, "out2")
        os.makedirs(out2)
        write_settings(settings, runner, root, out2, unwritable="largest-dirs.txt")
        result = runner.run(settings)
        if result.returncode != 0 or b"largest-dirs.txt" not in result.stderr:
            failures.append("unwritable: status %d, stderr %r" % (result.returncode, result.stderr))
        if len(os.listdir(out2)) != 6:
            failures.append("unwritable: wrote %s" % os.listdir(out2))

        # Duplicate reports without a criterion: both named on stderr, the
        # others written, and the run counts as incomplete.
        out4 = os.path.join(work, "out4")
        os.makedirs(out4)
        write_settings(settings, runner, root, out4, criteria=False, exit_after=False)
        result = runner.run(settings)
        stderr = result.stderr.decode("utf-8", "replace")
        if (result.returncode != 1 or "duplicate files report" not in stderr
                or "duplicate directories report" not in stderr or len(os.listdir(out4)) != 5):
            failures.append("no criterion: status %d, stderr %r, wrote %s" % (
                result.returncode, stderr, os.listdir(out4)))

        # The same reports from the commands, through --format and -o.
        for args, first in [
                (["largest", "types", "--format", "csv"], '"Zorvane: Largest Type"'),
                (["largest", "files", "--format", "xml"], '<?xml version="1.0" encoding="utf-16" ?>'),
                (["dups", "--format", "html"], "<html>"),
                (["dupdirs", "--format", "text"], "Zorvane: Duplicate Directories")]:
            target = os.path.join(work, "command-report")
            result = subprocess.run(runner.command + args + ["-o", runner.native(target),
                                                             runner.native(root)],
                                    stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300)
            if result.returncode != 0 or first_line(target) != first:
                failures.append("%s: status %d, begins %r" % (args, result.returncode,
                                                              first_line(target)))

        # No file found: nothing written.
        empty = os.path.join(work, "empty")
        os.makedirs(empty)
        out3 = os.path.join(work, "out3")
        os.makedirs(out3)
        write_settings(settings, runner, empty, out3)
        result = runner.run(settings)
        if result.returncode != 0 or os.listdir(out3):
            failures.append("no files: status %d, wrote %s" % (result.returncode, os.listdir(out3)))
    finally:
        shutil.rmtree(work, ignore_errors=True)
    for failure in failures:
        print("FAIL:", failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
