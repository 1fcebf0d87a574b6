#!/usr/bin/python3
"""The tests leave a machine's own files alone: every test program that runs outside a sandbox runs here on a machine that
has somebody's files wherever a controller has its own. It must pass, and no file may have been read or changed.

    isolation_test.py UID COMMAND...      each command is one word; UID runs them and owns the files

BUILD names the build folder."""

import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["BUILD"])
TIME_LIMIT_S = 120
LONG_AGO = 1_000_000_000  # a file that is read shows a later time
PROGRAM = b"#!/bin/sh\necho somebody's program\n"
FILES = {
    "/data/blacklist": b"cfgtool -d fanlevel\ncfgtool -d identify\ncfgtool -t maintenance\ncfgtool -t user\n",
    "/data/cli.conf": b"[FAN_PROPERTITY]\nFAN_MinLevel=99\n[MAC_PROPERTITY]\nMAC_Num=9\nMAC_Name=other\n",
    "/data/linux-board.conf": b"mtd6 = /data/board/flash\ni2c-2-a0 = /data/board/eeprom\n",
    "/data/board/eeprom": bytes(4096),
    "/data/board/flash": bytes(65536),
    "/data/log/operation.log": b"somebody's\n",
    "/data/sectbl.cfg": b"somebody's\n",
    "/data/share/sel/sel.bin": bytes(16),
    "/data/share/sel/sel_1.tar.gz": b"somebody's\n",
    "/ipmc/usr/adduser_mutex": b"somebody's\n",
    "/ipmc/zntool": PROGRAM,
    "/ko/m25p80.ko": b"somebody's\n",
    "/tmp/bios.bin": b"somebody's\n",
    "/tmp/debug-info.tar.gz": b"somebody's\n",
    "/tmp/dev/shm/save/reboot_file/sel_bak.bin": bytes(16),
    "/tmp/eeprom.bin": b"somebody's\n",
    "/tmp/image.hpm": b"somebody's\n",
    "/tmp/screen/snapshot1.ppm": b"somebody's\n",
    "/tmp/sel.tar": b"somebody's\n",
    "/tmp/sel_temp/sel.csv": b"somebody's\n",
    "/web/linux/webs": PROGRAM,
}


def state_of(path):
    about = path.stat()
    return about.st_ino, about.st_mode, about.st_size, about.st_mtime_ns, about.st_atime_ns


class isolation(unittest.TestCase):
    """Inside the sandbox."""

    def plant(self):
        for name, content in FILES.items():
            path = Path(name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
            path.chmod(0o755)
            os.utime(path, (LONG_AGO, LONG_AGO))

    def states(self):
        """Of a folder only the names in it."""
        return {str(path): state_of(path) if path.is_file() else sorted(entry.name for entry in path.iterdir())
                for name in FILES for path in (Path(name), *Path(name).parents[:-2])}

    def test_no_file_is_read_or_changed(self):
        self.plant()
        before = self.states()
        for command in commands:
            with self.subTest(command):
                done = subprocess.run(command.split(), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                      stderr=subprocess.STDOUT, timeout=TIME_LIMIT_S, check=False)
                self.assertEqual(done.returncode, 0, done.stdout.decode(errors="replace"))
                self.assertEqual(self.states(), before)

    def test_a_file_that_is_read_is_noticed(self):
        self.plant()
        before = self.states()
        Path("/data/cli.conf").read_bytes()
        self.assertNotEqual(self.states(), before)


def sandbox(user):
    """The machine as this user has it, with empty folders in memory where a controller has its own."""
    command = ["bwrap", "--unshare-user", "--uid", user, "--gid", user]
    for top in sorted(Path("/").iterdir()):
        if top.is_symlink():
            command += ["--symlink", os.readlink(top), str(top)]
        elif top.name not in ("data", "ipmc", "ko", "tmp", "web", "dev", "proc"):
            command += ["--ro-bind", str(top), str(top)]
    command += ["--dev-bind", "/dev", "/dev", "--bind", "/proc", "/proc"]  # a test has a sandbox of its own
    for folder in ("/data", "/ipmc", "/ko", "/tmp", "/web"):
        command += ["--tmpfs", folder]
    # These may be below /tmp. An installation leaves its manifest in the build folder.
    command += ["--ro-bind", str(REPOSITORY), str(REPOSITORY), "--bind", str(BUILD), str(BUILD)]
    return [*command, "--setenv", "INSIDE", "yes"]


if __name__ == "__main__":
    user, *commands = sys.argv[1:]
    if "INSIDE" in os.environ:
        unittest.main(argv=sys.argv[:1])
    if shutil.which("bwrap") is None:
        print("OK (skipped: bubblewrap is not installed)")
        sys.exit(77)
    os.execvp("bwrap", [*sandbox(user), sys.executable, "-B", __file__, *sys.argv[1:]])
