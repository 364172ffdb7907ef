#!/usr/bin/env python3
"""Checks `zorvane-cli scan --json` against an independent walk of the same
generated tree: directories, files and bytes.

Usage: scan_json_test.py ZORVANE_CLI            (native)
       scan_json_test.py --wine WINE ZORVANE_CLI.exe
"""
import json
import os
import shutil
import stat
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")


def make_tree(root, posix):
    def write(rel, size):
        path = os.path.join(root, rel)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as f:
            f.write(b"z" * size)

    write("a.txt", 10)
    write("with space.bin", 5000)
    write("nested/b", 1)
    write("nested/deeper/c", 4096)
    write("nested/deeper/deepest/d", 70000)
    write("\u00dcn\u00efc\u00f6d\u00e9 \u65e5\u672c/e", 7)
    write(".hidden/f", 3)
    os.makedirs(os.path.join(root, "empty"))
    for i in range(30):
        write("many/file%02d" % i, i)
    if posix:
        with open(os.path.join(root.encode(), b"bad\xff name"), "wb") as f:
            f.write(b"12")
        os.symlink(os.path.join(root, "nested"), os.path.join(root, "link-to-dir"))
        os.symlink(os.path.join(root, "a.txt"), os.path.join(root, "link-to-file"))
        os.symlink("nowhere", os.path.join(root, "dangling"))
        write("locked/secret", 11)
        os.chmod(os.path.join(root, "locked"), 0)


def independent_walk(root):
    """Directories are real directories (links to directories are not
    followed and not counted); files are all other entries, links included;
    bytes are the sizes of regular files."""
    dirs = files = size = 0
    protected = []
    stack = [root.encode()]
    while stack:
        path = stack.pop()
        dirs += 1
        try:
            names = os.listdir(path)
        except PermissionError:
            protected.append(path)
            continue
        for name in names:
            full = os.path.join(path, name)
            st = os.lstat(full)
            if stat.S_ISDIR(st.st_mode):
                stack.append(full)
            elif stat.S_ISLNK(st.st_mode) and os.path.isdir(full):
                continue
            else:
                files += 1
                if stat.S_ISREG(st.st_mode):
                    size += st.st_size
    return dirs, files, size, protected


def main(argv):
    wine = None
    if argv[1] == "--wine":
        wine, cli = argv[2], argv[3]
    else:
        cli = argv[1]
    temp = tempfile.mkdtemp(prefix="zorvane-scan-")
    try:
        root = os.path.join(temp, "tree")
        os.makedirs(root)
        make_tree(root, posix=wine is None)
        if wine:
            command = ["sh", WINE_RUNNER, wine, cli, "scan", "--json", "Z:" + root.replace("/", "\\")]
        else:
            command = [cli, "scan", "--json", root]
        result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300)
        if result.returncode != 0:
            print("zorvane-cli failed:", result.returncode, result.stderr.decode(errors="replace"))
            return 1
        got = json.loads(result.stdout)
        dirs, files, size, protected = independent_walk(root)
        expected = {"directories": dirs, "files": files, "bytes": size, "protected": len(protected)}
        actual = {"directories": got["directories"], "files": got["files"], "bytes": got["bytes"],
                  "protected": len(got["protected"])}
        if actual != expected or len(got["roots"]) != 1:
            print("mismatch\n expected", expected, "\n actual  ", actual)
            print(result.stdout.decode(errors="replace"))
            return 1
        if got["actual_bytes"] < got["bytes"]:
            print("actual bytes below bytes:", got)
            return 1
        print("scan agrees with an independent walk:", actual)
        return 0
    finally:
        locked = os.path.join(temp, "tree", "locked")
        if os.path.isdir(locked):
            os.chmod(locked, 0o700)
        shutil.rmtree(temp, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main(sys.argv))
