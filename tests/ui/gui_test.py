#!/usr/bin/env python3
"""Drives the desktop program under a virtual X server and keeps a PNG
screenshot of the screen after each step in OUT_DIR.

The program's own test hook (ZORVANE_GUI_TEST, see src/ui/GuiTestDriver.h)
scans a generated tree named by a settings file, clicks a tree item and a
column header with the toolkit's UI action simulator, makes a New Folder and
types its new name, stops a rescan and rescans, then selects by a pattern,
copies the selection to the clipboard, finds a file, sets the printing options
and opens the about box and the dialogs that set up a scan, sets a duplicate
files filter and scans through it, and shows the about box's links; it writes
NAME.request when it wants a screenshot, and this script
takes it with ImageMagick's `import`. A second run checks the unattended
mode: a settings file with "Exit program after printing" ends with status 0
by itself.

Run it inside xvfb-run:
    gui_test.py OUT_DIR ZORVANE                 (native: all steps)
    gui_test.py --wine WINE OUT_DIR ZORVANE.exe (the Windows build under Wine)
"""
import glob
import os
import shutil
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
WINE_RUNNER = os.path.join(HERE, "..", "..", "cmake", "run-under-wine.sh")
TIMEOUT = 120


def make_tree(root):
    """A few hundred files in nested directories: enough for a scan that a
    slowed pump keeps busy for some seconds."""
    for d in range(8):
        sub = os.path.join(root, "dir%02d" % d)
        os.makedirs(os.path.join(sub, "inner"))
        for f in range(40):
            with open(os.path.join(sub, "file%03d.txt" % ((f * 17) % 40)), "wb") as out:
                out.write(b"z" * (f * 37 + d))
        for f in range(15):
            with open(os.path.join(sub, "inner", "deep%02d.dat" % f), "wb") as out:
                out.write(b"y" * (f * 100))
    for name, size in (("Zebra.txt", 10), ("apple.txt", 3000), ("mango.txt", 200)):
        with open(os.path.join(root, name), "wb") as out:
            out.write(b"x" * size)


class Program:
    def __init__(self, program, wine):
        self.command = ["sh", WINE_RUNNER, wine, program] if wine else [program]
        self.wine = wine

    def native(self, path):
        return "Z:" + path.replace("/", "\\") if self.wine else path

    def stop_wine_server(self):
        """Ends the prefix's Wine server and every program it still runs.
        The desktop of a Wine server belongs to the display its first program
        saw: after a test without one (CTest runs the Windows unit tests
        without a display) the server and its desktop outlive their last
        program by a few seconds, and a window program started into them
        gets no graphics driver, so no window at all (and the toolkit's
        assertion on that window stops the unattended run with a breakpoint
        trap). Started afresh, the server's desktop is on the virtual X
        server. The test runs alone (RUN_SERIAL), so no other test's Wine
        program is stopped."""
        server = shutil.which("wineserver", path=os.path.dirname(os.path.abspath(self.wine)))
        server = server or shutil.which("wineserver") or "wineserver"
        subprocess.run([server, "-k"], check=False, stderr=subprocess.DEVNULL)
        subprocess.run([server, "-w"], check=False, stderr=subprocess.DEVNULL)

    def run(self, settings, out_dir, env):
        """Runs the program, answering screenshot requests in out_dir, and
        returns its status (None when it had to be killed)."""
        if self.wine:
            self.stop_wine_server()
        process = subprocess.Popen(self.command + [self.native(settings)], env=env)
        deadline = time.time() + TIMEOUT
        while time.time() < deadline:
            for request in sorted(glob.glob(os.path.join(out_dir, "*.request"))):
                png = request[:-len(".request")] + ".png"
                part = png + ".part.png"
                subprocess.run(["import", "-window", "root", part], check=False)
                os.replace(part, png)
                os.remove(request)
                print("screenshot", os.path.basename(png), flush=True)
            status = process.poll()
            if status is not None:
                return status
            time.sleep(0.1)
        process.kill()
        process.wait()
        return None


def main(argv):
    wine = None
    if argv[1] == "--wine":
        wine = argv[2]
        argv = argv[2:]
    out_dir, program = os.path.abspath(argv[1]), argv[2]
    os.makedirs(out_dir, exist_ok=True)
    for old in glob.glob(os.path.join(out_dir, "*.png")) + glob.glob(os.path.join(out_dir, "*.request")):
        os.remove(old)
    runner = Program(program, wine)
    work = tempfile.mkdtemp(prefix="zorvane-gui-")
    failures = 0
    try:
        root = os.path.join(work, "tree")
        make_tree(root)
        settings = os.path.join(work, "scan.txt")
        with open(settings, "w", encoding="utf-8") as f:
            f.write("[SCAN DIRECTORIES]\n%s\n" % runner.native(root))
        env = dict(os.environ, ZORVANE_CONFIG_DIR=os.path.join(work, "config"),
                   ZORVANE_GUI_TEST=runner.native(out_dir))
        status = runner.run(settings, out_dir, env)
        print("interactive run: status", status)
        failures += status != 0
        expected = [
            "gui-1-scanned", "gui-2-directory-selected", "gui-3-sorted-by-name",
            "gui-4-sorted-by-name-descending", "gui-5-folder-renamed", "gui-6-scanning",
            "gui-7-stopped", "gui-8-rescanned", "gui-9-select-matching",
            "gui-10-matching-selected", "gui-11-find", "gui-12-found",
            "gui-13-printing-options", "gui-0-about", "gui-14-duplicate-options",
            "gui-15-size-date-filters", "gui-16-max-depth", "gui-17-all-folders-open",
            "gui-20-duplicate-files-filter", "gui-21-duplicate-file-options",
            "gui-22-duplicate-filter-scanned", "gui-23-duplicate-directories-filter",
            "gui-24-about-links"]
        for name in expected:
            if not os.path.exists(os.path.join(out_dir, name + ".png")):
                print("FAILED: no screenshot", name)
                failures += 1

        # Unattended: the scan runs and the process ends by itself.
        unattended = os.path.join(work, "unattended.txt")
        with open(unattended, "w", encoding="utf-8") as f:
            f.write("[SCAN DIRECTORIES]\n%s\n\n[AUTOPRINT_MAIN]\nautoprint=0\n"
                    "Exit program after printing=1\n" % runner.native(root))
        env.pop("ZORVANE_GUI_TEST")
        started = time.time()
        status = runner.run(unattended, out_dir, env)
        print("unattended run: status", status, "after %.1f s" % (time.time() - started))
        failures += status != 0
    finally:
        shutil.rmtree(work, ignore_errors=True)
    print("FAILED" if failures else "passed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
