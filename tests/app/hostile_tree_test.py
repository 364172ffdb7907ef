#!/usr/bin/env python3
"""zorvane-cli against hostile trees and odd use: deep chains, a low
descriptor limit, mount points, linked and slash-ended roots, special and
unreadable files, exit statuses, names that are not UTF-8, concurrent
remembering runs.

Usage: hostile_tree_test.py ZORVANE_CLI            (native; as root the
                                                     mount cases run, as a
                                                     user the permission ones)
       hostile_tree_test.py --statuses-only ZORVANE_CLI   (the exit statuses,
                                                     for a second run as a user)
       hostile_tree_test.py --wine WINE ZORVANE_CLI.exe
"""
import json
import os
import resource
import signal
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")
FAILURES = []


def check(condition, what, detail=""):
    print(("ok   " if condition else "FAIL ") + what)
    if not condition:
        if detail:
            print("     ", detail)
        FAILURES.append(what)


def make_chain(top, levels, name="d"):
    """top/d/d/.../d/f, made relative to each new directory so that the
    depth is not bounded by the path limit."""
    os.mkdir(top)
    fd = os.open(top, os.O_RDONLY | os.O_DIRECTORY)
    for _ in range(levels):
        os.mkdir(name, dir_fd=fd)
        child = os.open(name, os.O_RDONLY | os.O_DIRECTORY, dir_fd=fd)
        os.close(fd)
        fd = child
    os.close(os.open("f", os.O_WRONLY | os.O_CREAT, 0o644, dir_fd=fd))
    os.close(fd)


def remove_chain(top, name="d"):
    fd = os.open(top, os.O_RDONLY | os.O_DIRECTORY)
    depth = 0
    while True:
        try:
            child = os.open(name, os.O_RDONLY | os.O_DIRECTORY, dir_fd=fd)
        except FileNotFoundError:
            break
        os.close(fd)
        fd, depth = child, depth + 1
    while True:
        for entry in os.listdir(fd):
            os.unlink(entry, dir_fd=fd)
        if depth == 0:
            break
        parent = os.open("..", os.O_RDONLY | os.O_DIRECTORY, dir_fd=fd)
        os.close(fd)
        fd, depth = parent, depth - 1
        os.rmdir(name, dir_fd=fd)
    os.close(fd)
    os.rmdir(top)


class Cli:
    def __init__(self, cli, wine, env):
        self.prefix = ["sh", WINE_RUNNER, wine, cli] if wine else [cli]
        self.wine = wine
        self.env = env

    def path(self, path):
        return "Z:" + path.replace("/", "\\") if self.wine else path

    def run(self, args, stdout=subprocess.PIPE, preexec_fn=None, timeout=300):
        return subprocess.run(self.prefix + args, stdout=stdout, stderr=subprocess.PIPE,
                              env=self.env, preexec_fn=preexec_fn, timeout=timeout)

    def scan_json(self, args, **kwargs):
        result = self.run(["scan", "--json"] + args, **kwargs)
        try:
            return result.returncode, json.loads(result.stdout), result.stderr.decode(errors="replace")
        except ValueError:
            return result.returncode, None, result.stderr.decode(errors="replace")


def deep_chains(cli, temp):
    # Removing 100,000 nested directories takes minutes on a journalling
    # file system, seconds in memory.
    if os.access("/dev/shm", os.W_OK):
        temp = tempfile.mkdtemp(prefix="zorvane-chain-", dir="/dev/shm")
    try:
        walk_chains(cli, temp)
    finally:
        if temp.startswith("/dev/shm/"):
            os.rmdir(temp)


def walk_chains(cli, temp):
    chain = os.path.join(temp, "chain")
    start = time.time()
    make_chain(chain, 100000)
    try:
        status, got, err = cli.scan_json([chain])
        check(status == 0 and got and got["directories"] == 100001 and got["files"] == 1,
              "a chain of 100,000 directories is walked whole", (status, err[-300:]))
        # Ctrl-C mid-walk: what was found is printed, status 130.
        child = subprocess.Popen(cli.prefix + ["scan", chain], stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE, env=cli.env)
        time.sleep(1.0)
        child.send_signal(signal.SIGINT)
        out, _ = child.communicate(timeout=120)
        check(child.returncode == 130 and b"Stopped before the end" in out,
              "Ctrl-C stops a scan with status 130", child.returncode)
    finally:
        remove_chain(chain)
    print("     (deep chain cases took %.1f s)" % (time.time() - start))

    # Descriptors run out long before the chain ends: nothing may be lost.
    chain = os.path.join(temp, "fdchain")
    make_chain(chain, 3000, "dir")
    try:
        def low_limit():
            resource.setrlimit(resource.RLIMIT_NOFILE, (48, 48))
        status, got, err = cli.scan_json([chain], preexec_fn=low_limit)
        check(status == 0 and got and got["directories"] == 3001 and got["files"] == 1
              and not got["protected"],
              "with 48 descriptors a chain of 3,000 is walked whole", (status, got and got["directories"], err[-300:]))
    finally:
        remove_chain(chain, "dir")


def mount_points(cli, temp):
    if os.geteuid() != 0:
        print("skip mount points: mounting needs root")
        return
    tree = os.path.join(temp, "mounts")
    for sub in ("own", "tmp", "bound"):
        os.makedirs(os.path.join(tree, sub))
    open(os.path.join(tree, "own", "a"), "w").close()
    mounted = []
    try:
        for args in (["-t", "tmpfs", "none", os.path.join(tree, "tmp")],
                     ["--bind", os.path.join(tree, "own"), os.path.join(tree, "bound")]):
            if subprocess.run(["mount"] + args, stderr=subprocess.DEVNULL).returncode != 0:
                print("skip mount points: mount refused here")
                return
            mounted.append(args[-1])
        open(os.path.join(tree, "tmp", "b"), "w").close()
        status, got, _ = cli.scan_json(["--list", tree])
        check(status == 0 and got["files_list"] == [os.path.join(tree, "own", "a")],
              "a tmpfs and a bind mount inside a tree are not entered", got)
        status, got, _ = cli.scan_json([os.path.join(tree, "tmp")])
        check(status == 0 and got["files"] == 1, "a mount point given as the root is scanned")
    finally:
        for point in reversed(mounted):
            subprocess.run(["umount", point])


def roots_and_crc(cli, temp):
    tree = os.path.join(temp, "roots")
    os.makedirs(os.path.join(tree, "real", "sub"))
    with open(os.path.join(tree, "real", "sub", "f"), "w") as f:
        f.write("abc")
    os.symlink("real", os.path.join(tree, "link"))
    os.symlink("sub", os.path.join(tree, "real", "sublink"))
    status, got, err = cli.scan_json([os.path.join(tree, "link")])
    check(status == 0 and got["directories"] == 2 and got["files"] == 1,
          "a linked root is followed, a link below it is not", (status, got, err))
    result = cli.run(["crc", "--hex", os.path.join(tree, "link")])
    check(result.returncode == 0 and result.stdout.decode() ==
          "0x352441C2  %s\n" % os.path.join(tree, "link", "sub", "f"),
          "crc follows a linked root", result)

    os.mkfifo(os.path.join(tree, "real", "fifo"))
    result = cli.run(["crc", os.path.join(tree, "real")])
    check(result.returncode == 0 and b"fifo" not in result.stdout and b"fifo" in result.stderr,
          "crc skips a FIFO with a line on stderr", result)

    # Two names that differ only in bytes that are not UTF-8.
    names = os.path.join(tree, "names").encode()
    os.mkdir(names)
    for name in (b"a\xff", b"a\xfe"):
        open(os.path.join(names, name), "w").close()
    status, got, _ = cli.scan_json(["--list", names.decode(errors="surrogateescape")])
    listed = sorted(os.fsencode(p) for p in got["files_list"])
    check(listed == [os.path.join(names, b"a\xfe"), os.path.join(names, b"a\xff")],
          "JSON keeps names that are not UTF-8 apart and lossless", got["files_list"])
    result = cli.run(["scan", "--list", "-0", names.decode(errors="surrogateescape")])
    check(result.stdout.endswith(os.path.join(names, b"a\xfe") + b"\0"), "--null ends paths with NUL")


def exit_statuses(cli, temp):
    tree = os.path.join(temp, "statuses")
    os.makedirs(os.path.join(tree, "open"))
    for name in ("g", os.path.join("open", "f")):
        with open(os.path.join(tree, name), "w") as f:
            f.write("x")
    for args in (["--max-size", "nan"], ["--min-size", "-5"], ["--max-size", "inf"]):
        result = cli.run(["scan"] + args + [cli.path(tree)])
        check(result.returncode == 2 and args[0].encode() in result.stderr,
              "scan %s is refused with status 2" % " ".join(args), result.stderr)
    # The same root typed with and without its trailing separator.
    for root in (cli.path(tree), cli.path(tree) + ("\\" if cli.wine else "/")):
        status, got, _ = cli.scan_json(["--dir", "statuses", "--list", root])
        check(status == 0 and got["roots"] == [cli.path(tree)] and got["files"] == 1,
              "root %s: the same root, its own name seen by --dir" % root, got)
    # A missing root of a settings file is reported once.
    settings = os.path.join(temp, "missing.ini")
    with open(settings, "w") as f:
        f.write("[SCAN DIRECTORIES]\n%s\n" % cli.path(os.path.join(temp, "nowhere")))
    result = cli.run(["scan", "--settings", cli.path(settings)])
    check(result.stderr.count(b"CreateFile failed") == 1, "a root's times are read once",
          result.stderr)
    if cli.wine:
        return
    for command in (["scan", tree], ["crc", tree]):
        with open("/dev/full", "w") as full:
            result = cli.run(command, stdout=full)
        check(result.returncode == 1 and b"cannot write" in result.stderr,
              "%s > /dev/full ends with status 1" % command[0], result)
    if os.geteuid() == 0:
        print("skip unreadable files and directories: permission bits do not stop root")
        return
    os.makedirs(os.path.join(tree, "locked"))
    os.makedirs(os.path.join(tree, "listable", "inner"))
    open(os.path.join(tree, "listable", "empty"), "w").close()
    os.chmod(os.path.join(tree, "locked"), 0)
    os.chmod(os.path.join(tree, "listable"), 0o400)  # listed, not searched
    try:
        status, got, _ = cli.scan_json([tree])
        check(status == 1 and len(got["protected"]) >= 1,
              "a directory that cannot be read makes scan end with status 1", (status, got))
        result = cli.run(["crc", tree])
        out = result.stdout.decode()
        check(result.returncode == 1 and
              "UNKNOWN  %s\n" % os.path.join(tree, "listable", "empty") in out,
              "crc: an unreadable file reads UNKNOWN, status 1", (result.returncode, out))
    finally:
        os.chmod(os.path.join(tree, "locked"), 0o700)
        os.chmod(os.path.join(tree, "listable"), 0o700)


def remembering(cli, temp):
    config = cli.env["ZORVANE_CONFIG_DIR"]
    state = os.path.join(config, "remembered-state.txt")
    roots = []
    for i in range(12):
        roots.append(os.path.join(temp, "remember", "r%02d" % i))
        os.makedirs(roots[-1])
    cli.run(["scan", cli.path(roots[0])])
    check(not os.path.exists(state), "a plain scan remembers nothing")
    children = []
    for i, root in enumerate(roots):
        settings = os.path.join(temp, "remember", "s%02d.ini" % i)
        with open(settings, "w") as f:
            f.write("[SCAN DIRECTORIES]\n%s\n" % cli.path(root))
        children.append(subprocess.Popen(cli.prefix + [cli.path(settings)], env=cli.env,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
    for child in children:
        child.wait(timeout=300)
    with open(state, encoding="utf-8", errors="replace") as f:
        text = f.read()
    kept = [root for root in roots if cli.path(root).replace("\\", "\\\\") in text]
    check(len(kept) == 12, "twelve runs at once all remember their roots (%d kept)" % len(kept))


def main(argv):
    wine = None
    statuses_only = argv[1] == "--statuses-only"
    if statuses_only:
        argv = argv[1:]
    if argv[1] == "--wine":
        wine, cli_path = argv[2], argv[3]
    else:
        cli_path = argv[1]
    temp = tempfile.mkdtemp(prefix="zorvane-hostile-")
    env = dict(os.environ, ZORVANE_CONFIG_DIR=os.path.join(temp, "config"))
    cli = Cli(cli_path, wine, env)
    try:
        exit_statuses(cli, temp)
        if not wine and not statuses_only:
            # Under Wine the registry is the store; the remembering case
            # runs natively only, where the file store is shared.
            remembering(cli, temp)
            roots_and_crc(cli, temp)
            mount_points(cli, temp)
            deep_chains(cli, temp)
    finally:
        subprocess.run(["chmod", "-R", "u+rwx", temp])
        subprocess.run(["rm", "-rf", temp])
    if FAILURES:
        print("%d failed" % len(FAILURES))
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
