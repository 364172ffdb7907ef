#!/usr/bin/env python3
"""Checks the settings file forms of zorvane-cli: a hand-written settings
file, in UTF-8 and in UTF-16, drives `zorvane-cli SETTINGS_FILE` and
`zorvane-cli scan --settings` through a filtered scan; `settings save`
writes a file that loads to the same state; a missing file is an error.
The per-user store goes to a temporary directory (ZORVANE_CONFIG_DIR).

Usage: settings_cli_test.py ZORVANE_CLI            (native)
       settings_cli_test.py --wine WINE ZORVANE_CLI.exe
"""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")


class Cli:
    def __init__(self, cli, wine, config_dir):
        self.command = ["sh", WINE_RUNNER, wine, cli] if wine else [cli]
        self.wine = wine
        self.env = dict(os.environ, ZORVANE_CONFIG_DIR=config_dir)

    def native(self, path):
        """The path as the program sees it."""
        return "Z:" + path.replace("/", "\\") if self.wine else path

    def local(self, path):
        return path[2:].replace("\\", "/") if self.wine else path

    def run(self, args, cwd=None):
        return subprocess.run(self.command + args, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              timeout=300, env=self.env, cwd=cwd)


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(data)


def make_tree(root):
    write(os.path.join(root, "keep.txt"), b"x" * 10)
    write(os.path.join(root, "small.txt"), b"x" * 2)
    write(os.path.join(root, "skip-me.txt"), b"x" * 50)
    write(os.path.join(root, "image.png"), b"x" * 50)
    write(os.path.join(root, "sub", "KEEP2.TXT"), b"x" * 20)
    write(os.path.join(root, "sub", "nested", "lost.txt"), b"x" * 20)
    write(os.path.join(root, "\u00fcml\u00e4ut", "d\u00e9j\u00e0.txt"), b"x" * 30)


EXPECTED = ["keep.txt", "sub/KEEP2.TXT", "\u00fcml\u00e4ut/d\u00e9j\u00e0.txt"]


def settings_text(cli, root):
    """Hand-written: keys and sections in mixed case, comments, an unknown
    section, and no blank line at the end."""
    return ("# written by hand\n"
            "[SCAN DIRECTORIES]\n%s\n\n"
            "[filter file names]\n*.TXT\n\n"
            "[FILTER FILE NAMES EXCLUDE]\nskip*\n\n"
            "[FILTER DIR EXCLUDE]\n*NESTED\n\n"
            "[SOMETHING ELSE]\nignored=1\n\n"
            "[filter min size]\nMIN SIZE=5\n\n"
            "[other]\nscan subdirectories=1\nDisplay size=kb" % cli.native(root))


def files_of(cli, result):
    listed = json.loads(result.stdout)["files_list"]
    return sorted(cli.local(p) for p in listed)


def check(condition, message, result=None):
    if not condition:
        print("FAILED:", message)
        if result is not None:
            print(" status", result.returncode)
            print(" stdout", result.stdout.decode(errors="replace"))
            print(" stderr", result.stderr.decode(errors="replace"))
        raise SystemExit(1)


def main(argv):
    wine = None
    if argv[1] == "--wine":
        wine, cli_path = argv[2], argv[3]
    else:
        cli_path = argv[1]
    temp = tempfile.mkdtemp(prefix="zorvane-settings-")
    try:
        cli = Cli(os.path.abspath(cli_path), wine, os.path.join(temp, "config"))
        root = os.path.join(temp, "tree")
        make_tree(root)
        expected = sorted(os.path.join(root, p) for p in EXPECTED)
        text = settings_text(cli, root)
        utf8 = os.path.join(temp, "hand-utf8.txt")
        utf16 = os.path.join(temp, "hand-utf16.txt")
        write(utf8, text.encode("utf-8"))
        write(utf16, text.replace("\n", "\r\n").encode("utf-16"))

        # The one-argument form: a filtered scan and its summary.
        for path in (utf8, utf16):
            result = cli.run([cli.native(path)])
            check(result.returncode == 0, "zorvane-cli SETTINGS_FILE", result)
            check(re.search(rb"^Files: 3\r?$", result.stdout, re.M), "three files kept", result)
            result = cli.run(["scan", "--settings", cli.native(path), "--json", "--list"])
            check(result.returncode == 0 and files_of(cli, result) == expected,
                  "scan --settings keeps the files the filters admit", result)
        print("both encodings drive a filtered scan of %d files" % len(expected))

        # The scan saved the lists in use to the per-user store (a file on
        # POSIX; the registry under Wine is the platform tests' part).
        if not wine:
            with open(os.path.join(temp, "config", "remembered-state.txt"), "rb") as f:
                state = f.read().decode()
            check(("RootDir0=%s\n" % root) in state and "FileName0=*.TXT\n" in state
                  and "FileNameExclude0=skip*\n" in state, "the scan remembered its lists")

        # Further roots come after those of the file; options add to it.
        other = os.path.join(temp, "other")
        write(os.path.join(other, "more.txt"), b"x" * 9)
        write(os.path.join(other, "tiny.txt"), b"x")
        result = cli.run(["scan", "--settings", cli.native(utf8), "--json", "--list",
                          "--exclude-name", "keep*", cli.native(other)])
        check(result.returncode == 0, "scan --settings with a root", result)
        got = json.loads(result.stdout)
        check([cli.local(r) for r in got["roots"]] == [root, other], "roots in order", result)
        check(files_of(cli, result) == sorted([os.path.join(other, "more.txt"), expected[2]]),
              "the options' filters add to the file's", result)

        # settings save: UTF-16 with a byte order mark and CRLF, and a load
        # followed by a save gives the same file.
        saved = os.path.join(temp, "saved.txt")
        again = os.path.join(temp, "again.txt")
        result = cli.run(["settings", "save", cli.native(saved), "--settings", cli.native(utf8)])
        check(result.returncode == 0, "settings save --settings", result)
        with open(saved, "rb") as f:
            data = f.read()
        check(data.startswith(b"\xff\xfe#\x00Z\x00"), "byte order mark and title")
        decoded = data.decode("utf-16")
        check("\r\n" in decoded and "\n" not in decoded.replace("\r\n", ""), "CRLF line ends")
        check("[FILTER MIN SIZE]\r\nmin size=5.000000\r\n" in decoded, "the file's values saved")
        check("Display size=KB\r\n" in decoded, "the size unit saved")
        result = cli.run(["settings", "save", cli.native(again), "--settings", cli.native(saved)])
        check(result.returncode == 0, "settings save of a saved file", result)
        with open(again, "rb") as f:
            check(f.read() == data, "a load followed by a save gives the same file")
        result = cli.run(["scan", "--settings", cli.native(saved), "--json", "--list"])
        check(result.returncode == 0 and files_of(cli, result) == expected,
              "the saved file drives the same scan", result)
        defaults = os.path.join(temp, "defaults.txt")
        result = cli.run(["settings", "save", cli.native(defaults)])
        check(result.returncode == 0, "settings save of the defaults", result)
        with open(defaults, "rb") as f:
            check("[FILTER OFFICE EXTENSIONS]\r\n*.doc\r\n" in f.read().decode("utf-16"),
                  "the defaults include the Office extensions")
        print("settings save round-trips")

        # Errors: a missing file, a settings file together with a command,
        # nothing to scan, an unwritable output.
        missing = os.path.join(temp, "missing.txt")
        for args in ([cli.native(missing)], ["scan", "--settings", cli.native(missing)],
                     ["settings", "save", cli.native(saved), "--settings", cli.native(missing)]):
            result = cli.run(args)
            check(result.returncode == 2, "missing settings file exits 2: %s" % args, result)
            check(("Cannot open file: " + cli.native(missing)).encode() in result.stderr,
                  "missing settings file named", result)
        result = cli.run([cli.native(utf8), "scan"])
        check(result.returncode == 2, "a settings file and a command", result)
        empty = os.path.join(temp, "no-roots.txt")
        write(empty, b"[OTHER]\nScan Subdirectories=1\n")
        result = cli.run([cli.native(empty)])
        check(result.returncode == 2 and b"nothing to scan" in result.stderr,
              "a settings file without roots", result)
        result = cli.run(["settings", "save", cli.native(os.path.join(temp, "no", "dir.txt"))])
        check(result.returncode == 1, "an unwritable output", result)

        # A settings file named like a command is given after --.
        shutil.copy(utf8, os.path.join(temp, "scan"))
        result = cli.run(["--", "scan"], cwd=temp)
        check(result.returncode == 0 and re.search(rb"^Files: 3\r?$", result.stdout, re.M),
              "-- scan reads the file named scan", result)
        print("errors and the file named like a command behave")
        return 0
    finally:
        shutil.rmtree(temp, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main(sys.argv))
