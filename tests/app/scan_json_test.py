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
ENV = dict(os.environ)


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
    write("nested/inner.txt", 50)
    write("skip-me.txt", 50)
    write("tiny.TXT", 2)
    write("sub/data.Bin", 900)
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


def filtered_walk(root):
    """The files a scan with FILTER_ARGS keeps, by the filter rules: names
    matching *.TXT or *.BIN without regard to case, none named SKIP*, at
    least 5 bytes, nothing under a directory called nested."""
    kept = []
    for path, dirs, files in os.walk(root):
        dirs[:] = [d for d in dirs if d.upper() != "NESTED"]
        for name in files:
            full = os.path.join(path, name)
            upper = name.upper()
            if os.path.islink(full) or upper.startswith("SKIP"):
                continue
            if not (upper.endswith(".TXT") or upper.endswith(".BIN")):
                continue
            if os.path.getsize(full) < 5:
                continue
            kept.append(full)
    return sorted(kept)


FILTER_ARGS = ["--name", "*.txt", "--name", "*.BIN", "--exclude-name", "skip*",
               "--min-size", "5", "--exclude-dir", "*NESTED", "--list"]


def check_filtered(cli_command, root, wine):
    result = subprocess.run(cli_command + FILTER_ARGS + ["--json", native_root(root, wine)],
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300, env=ENV)
    if result.returncode != expected_status(wine):
        print("filtered scan failed:", result.stderr.decode(errors="replace"))
        return False
    listed = json.loads(result.stdout)["files_list"]
    if wine:
        listed = [p[2:].replace("\\", "/") for p in listed]  # Z:\x\y -> /x/y
    expected = filtered_walk(root)
    if sorted(listed) != expected:
        print("filtered scan kept\n ", sorted(listed), "\nexpected\n ", expected)
        return False
    print("filtered scan kept the %d files the rules admit" % len(expected))
    return True


def expected_status(wine):
    """1 where the tree holds a directory that cannot be read (POSIX)."""
    return 0 if wine else 1


def native_root(root, wine):
    return "Z:" + root.replace("/", "\\") if wine else root


def main(argv):
    wine = None
    if argv[1] == "--wine":
        wine, cli = argv[2], argv[3]
    else:
        cli = argv[1]
    temp = tempfile.mkdtemp(prefix="zorvane-scan-")
    # Scans save their remembered lists: keep them away from the user's.
    ENV["ZORVANE_CONFIG_DIR"] = os.path.join(temp, "config")
    try:
        root = os.path.join(temp, "tree")
        os.makedirs(root)
        make_tree(root, posix=wine is None)
        cli_command = ["sh", WINE_RUNNER, wine, cli, "scan"] if wine else [cli, "scan"]
        command = cli_command + ["--json", native_root(root, wine)]
        result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300,
                                env=ENV)
        if result.returncode != expected_status(wine):
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
        return 0 if check_filtered(cli_command, root, wine) else 1
    finally:
        locked = os.path.join(temp, "tree", "locked")
        if os.path.isdir(locked):
            os.chmod(locked, 0o700)
        shutil.rmtree(temp, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main(sys.argv))
