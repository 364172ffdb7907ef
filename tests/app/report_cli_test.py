#!/usr/bin/env python3
"""Checks `zorvane-cli report` on a generated tree: the four forms in both
encodings list every file, the XML parses, the HTML escapes a hostile name,
and an output that cannot be opened or written gives exit status 1.

Usage: report_cli_test.py ZORVANE_CLI
       report_cli_test.py --wine WINE ZORVANE_CLI.exe
"""
import os
import shutil
import subprocess
import sys
import tempfile
import xml.dom.minidom

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")
# Wine maps '<' and '\\' of host names to other characters: native runs only.
HOSTILE = "<script>x<\\script>.txt"


def make_tree(root, hostile):
    for i in range(30):
        sub = os.path.join(root, "d%d" % (i % 4), "e%d" % (i % 3))
        os.makedirs(sub, exist_ok=True)
        with open(os.path.join(sub, "f%02d.txt" % i), "wb") as f:
            f.write(b"x" * i)
    if hostile:
        with open(os.path.join(root, HOSTILE), "wb") as f:
            f.write(b"alert")


def main(argv):
    wine = argv[2] if argv[1] == "--wine" else None
    cli = argv[3] if wine else argv[1]
    prefix = ["sh", WINE_RUNNER, wine, cli] if wine else [cli]
    native = (lambda p: "Z:" + p.replace("/", "\\")) if wine else (lambda p: p)
    temp = tempfile.mkdtemp(prefix="zorvane-report-")
    failures = []
    passed = [0]

    def check(condition, label):
        print(("ok   " if condition else "FAIL ") + label)
        if condition:
            passed[0] += 1
        else:
            failures.append(label)

    try:
        tree = os.path.join(temp, "tree")
        make_tree(tree, not wine)
        for form in ("text", "csv", "html", "xml"):
            for ansi in (False, True):
                out = os.path.join(temp, "report." + form)
                args = ["report", "--format", form, "-o", native(out), native(tree)]
                result = subprocess.run(prefix + args + (["--ansi"] if ansi else []),
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300)
                label = "%s %s" % (form, "narrow" if ansi else "unicode")
                check(result.returncode == 0, label + " exit 0 (%d: %s)" % (result.returncode, result.stderr[-300:]))
                data = open(out, "rb").read()
                check(data.startswith(b"\xff\xfe") != ansi, label + " byte order mark")
                text = data.decode("utf-8" if ansi else "utf-16")
                check("\r\n" in text and "\n" not in text.replace("\r\n", ""), label + " CR LF line ends")
                check(all("f%02d.txt" % i in text for i in range(30)), label + " lists every file")
                if form == "xml":
                    doc = xml.dom.minidom.parseString(data)
                    check(doc.documentElement.tagName == "Zorvane", label + " parses, root Zorvane")
                if form == "html" and not wine:
                    check(HOSTILE not in text and "&lt;script&gt;x&lt;\\script&gt;.txt" in text,
                          label + " escapes the hostile name")

        # The current directory and its subdirectories.
        result = subprocess.run(prefix + ["report", "--ansi", "--current", native(os.path.join(tree, "d1")),
                                          "--with-subdirs", native(tree)],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300)
        text = result.stdout.decode("utf-8")
        check(result.returncode == 0 and "f01.txt" in text and "f00.txt" not in text,
              "--current with --with-subdirs")

        bad = os.path.join(temp, "missing", "report.txt")
        result = subprocess.run(prefix + ["report", "-o", native(bad), native(tree)],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300)
        check(result.returncode == 1 and b"Cannot open the file " in result.stderr,
              "unopenable output: exit 1 and the message")
        if not wine and os.path.exists("/dev/full"):
            result = subprocess.run([cli, "report", "-o", "/dev/full", tree],
                                    stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300)
            check(result.returncode == 1 and b"cannot write" in result.stderr,
                  "full disk: exit 1 and a message")
            with open("/dev/full", "wb") as full:
                result = subprocess.run([cli, "report", tree], stdout=full,
                                        stderr=subprocess.PIPE, timeout=300)
            check(result.returncode == 1, "full disk on standard output: exit 1")
    finally:
        shutil.rmtree(temp, ignore_errors=True)
    print("%d passed, %d failed" % (passed[0], len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
