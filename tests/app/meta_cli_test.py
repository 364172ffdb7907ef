#!/usr/bin/env python3
"""Checks `zorvane-cli meta` on the metadata fixtures against the values
committed in meta_expected.json, which hold natively and under Wine alike;
then the text form, a file that cannot be opened, and (natively) a name
that is not UTF-8.

Usage: meta_cli_test.py ZORVANE_CLI
       meta_cli_test.py --wine WINE ZORVANE_CLI.exe
"""
import json
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
FIXTURES = os.path.join(HERE, "..", "metadata", "fixtures")
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")


def run(prefix, args, cwd):
    # Document dates are shown in local time: the same zone on both sides.
    env = dict(os.environ, TZ="UTC")
    return subprocess.run(prefix + ["meta"] + args, cwd=cwd, env=env, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, timeout=300)


def main(argv):
    if argv[1] == "--wine":
        prefix, native = ["sh", WINE_RUNNER, argv[2], argv[3]], False
    else:
        prefix, native = [argv[1]], True
    ok = True
    with open(os.path.join(HERE, "meta_expected.json"), encoding="utf-8") as f:
        expected = json.load(f)
    names = [entry["path"] for entry in expected]

    result = run(prefix, ["--json"] + names + ["missing.mp3"], FIXTURES)
    listed = json.loads(result.stdout.decode("utf-8"))
    if listed != expected:
        ok = False
        for want, got in zip(expected, listed + [None] * len(expected)):
            if want != got:
                print("differs:", json.dumps(want, ensure_ascii=False), "\n    got:",
                      json.dumps(got, ensure_ascii=False))
    if result.returncode != 1 or b"missing.mp3" not in result.stderr:
        print("a file that cannot be opened: status", result.returncode, result.stderr)
        ok = False

    # Text form: "label: value" lines, a blank line between files.
    text = run(prefix, ["version.exe", "id3v1.mp3"], FIXTURES).stdout.decode("utf-8")
    text = text.replace("\r\n", "\n")
    blocks = text.split("\n\n")
    if len(blocks) != 2 or "VER Version: 1.2.3.4" not in blocks[0].splitlines() or \
            "MP3 Genre: Rock" not in blocks[1].splitlines():
        print("text form:", repr(text))
        ok = False

    if native:
        temp = tempfile.mkdtemp(prefix="zorvane-meta-")
        try:
            name = os.path.join(temp.encode(), b"\xff.mp3")
            shutil.copyfile(os.path.join(FIXTURES, "id3v1.mp3"), name)
            out = run(prefix, ["--json", name.decode("utf-8", "surrogateescape")], temp).stdout
            if b'\\udcff.mp3"' not in out or json.loads(out)[0]["fields"]["MP3 Title"] != "V1 Title":
                print("name not UTF-8:", out[:200])
                ok = False
        finally:
            shutil.rmtree(temp, ignore_errors=True)
    print("meta: all fixtures agree" if ok else "meta: FAILED")
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv))
