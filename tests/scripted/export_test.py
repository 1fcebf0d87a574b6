#!/usr/bin/python3
"""The export of event logs against other users of /tmp and against hostile archives: the real tool, the real platform
library and the real tar, as root, with folders of their own for /data and /tmp. Skipped for anybody but root, who alone
can own files in other users' names.

CFGTOOL names the tool, with its library in ../lib."""

import contextlib
import io
import os
import shutil
import signal
import stat
import subprocess
import tarfile
import tempfile
import unittest
from pathlib import Path

CFGTOOL = Path(os.environ.get("CFGTOOL", Path(__file__).parents[2] / "build/bin/cfgtool")).resolve()
TIME_LIMIT_S = 30
SOMEBODY = 1234
RACES = 5

RECORD = bytes.fromhex("0300C0008E38660ABCDE04300102FFFF")  # of a maker's own type: names no sensor
LOG = "dev/shm/save/reboot_file/sel_bak.bin"


def table_of(content):
    """How many records a table has."""
    return content.count(b"\r\n") - 1


def as_somebody(path, act):
    """A process of another user that does this to a path until it is killed."""
    child = os.fork()
    if child == 0:
        os.setgid(SOMEBODY)
        os.setuid(SOMEBODY)
        while True:
            with contextlib.suppress(OSError):
                act(path)
    return child


@unittest.skipUnless(os.geteuid() == 0 and shutil.which("bwrap"), "as root, with bubblewrap")
class Export(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp(prefix="export-"))
        self.addCleanup(shutil.rmtree, self.root, True)
        self.root.chmod(0o755)
        self.tmp, self.logs, self.elsewhere = (self.root / name for name in ("tmp", "data/share/sel", "data/elsewhere"))
        for folder in (self.tmp, self.logs, self.elsewhere):
            folder.mkdir(parents=True)
        self.tmp.chmod(0o1777)
        self.elsewhere.chmod(0o777)
        (self.root / "data/sectbl.cfg").write_text("* * * * 1 00000001 x\n")
        (self.logs / "sel.bin").write_bytes(RECORD)

    def archive(self, name, *members):
        """Members are (name, content), somebody else's and everybody's to write in. A content is bytes, a link's
        (target,), or the type of anything else."""
        with tarfile.open(self.logs / name, "w:gz") as packed:
            for member, content in members:
                entry = tarfile.TarInfo(member)
                entry.uid = entry.gid = SOMEBODY
                entry.mode = 0o777
                if isinstance(content, tuple):
                    entry.type, entry.linkname = tarfile.SYMTYPE, content[0]
                elif content in (tarfile.DIRTYPE, tarfile.FIFOTYPE, tarfile.CHRTYPE):
                    entry.type, entry.devmajor, entry.devminor = content, 1, 7  # /dev/full
                else:
                    entry.size = len(content)
                packed.addfile(entry, io.BytesIO(content) if entry.size else None)

    def run_export(self):
        """An export leaves the logs as they are, and what lies elsewhere."""
        before = {path: path.lstat().st_mtime_ns for path in self.logs.iterdir()}
        words = ["bwrap", "--dev-bind", "/dev", "/dev", "--proc", "/proc", "--cap-add", "ALL"]
        for folder in ("/usr", "/lib", "/lib64", "/bin", "/etc"):
            words += ["--ro-bind-try", folder, folder]
        words += ["--ro-bind", str(CFGTOOL.parents[1]), "/tool"]
        words += ["--bind", str(self.root / "data"), "/data", "--bind", str(self.tmp), "/tmp"]
        words += ["/tool/bin/cfgtool", "-t", "maintenance", "-d", "zntool"]
        subprocess.run(words, timeout=TIME_LIMIT_S, capture_output=True, check=True)  # tar has much to say
        self.assertEqual(before, {path: path.lstat().st_mtime_ns for path in self.logs.iterdir()})
        self.assertEqual(list(self.elsewhere.iterdir()), [])

    def export(self):
        """name -> records of each table of an export."""
        self.run_export()
        result = self.tmp / "sel.tar"
        self.assertTrue(stat.S_ISREG(result.lstat().st_mode))
        self.assertEqual(result.lstat().st_uid, 0)
        with tarfile.open(result) as packed:
            return {member.name: table_of(packed.extractfile(member).read()) for member in packed}

    def test_live_log_and_archive(self):
        self.archive("sel_1.tar.gz", (LOG, 2 * RECORD))
        self.assertEqual(self.export(), {"sel.csv": 1, "sel_1.csv": 2})
        self.assertEqual([path.name for path in self.tmp.iterdir()], ["sel.tar"])

    def test_links_of_somebody_else(self):
        self.archive("sel_1.tar.gz", (LOG, 2 * RECORD))
        for name in ("dev", "sel_temp", "sel.tar"):
            (self.tmp / name).symlink_to("/data/elsewhere")
            os.lchown(self.tmp / name, SOMEBODY, SOMEBODY)
        self.assertEqual(self.export(), {"sel.csv": 1, "sel_1.csv": 2})

    def test_folders_of_somebody_else(self):
        self.archive("sel_1.tar.gz", (LOG, 2 * RECORD))
        for name in ("dev", "sel_temp", "sel.tar"):
            (self.tmp / name).mkdir()
            os.chown(self.tmp / name, SOMEBODY, SOMEBODY)
        (self.tmp / "dev/shm").symlink_to("/data/elsewhere")
        self.assertEqual(self.export(), {"sel.csv": 1, "sel_1.csv": 2})

    def test_fifos_of_somebody_else(self):
        self.archive("sel_1.tar.gz", (LOG, 2 * RECORD))
        for name in ("dev", "sel_temp", "sel.tar"):
            os.mkfifo(self.tmp / name)
            os.chown(self.tmp / name, SOMEBODY, SOMEBODY)
        self.assertEqual(self.export(), {"sel.csv": 1, "sel_1.csv": 2})

    def test_archive_with_folders_of_somebody_else(self):
        folders = ("sel_temp", "dev", "dev/shm", "dev/shm/save", "dev/shm/save/reboot_file")
        members = [(name, tarfile.DIRTYPE) for name in folders] + [(LOG, 2 * RECORD)]
        self.archive("sel_1.tar.gz", *members)
        self.archive("sel_2.tar.gz", *members)
        self.assertEqual(self.export(), {"sel.csv": 1, "sel_1.csv": 2, "sel_2.csv": 2})

    def test_archive_with_a_link_in_place_of_the_work_folder(self):
        (self.logs / "sel.bin").unlink()
        for target in ("/data/share/sel", "/data/elsewhere", "../data/elsewhere"):
            self.archive("sel_1.tar.gz", (LOG, RECORD), ("sel_temp", (target,)))
            self.assertEqual(self.export(), {"sel_1.csv": 1})

    def test_archive_that_fills_the_work_folder(self):
        for content in (tarfile.FIFOTYPE, tarfile.CHRTYPE, ("/data/elsewhere/x",), b"x"):
            with self.subTest(content):
                names = ("sel_1.csv", "sel_1.bin", "sel.csv", "other")
                self.archive("sel_1.tar.gz", (LOG, 2 * RECORD), *((f"sel_temp/{name}", content) for name in names))
                self.assertEqual(self.export(), {"sel.csv": 1, "sel_1.csv": 2})

    def test_archive_whose_log_is_none(self):
        for content in (tarfile.FIFOTYPE, tarfile.CHRTYPE, ("/data/share/sel/sel.bin",), tarfile.DIRTYPE):
            with self.subTest(content):
                self.archive("sel_1.tar.gz", (LOG, content))
                self.assertEqual(self.export(), {"sel.csv": 1})

    def test_archive_with_links_on_the_way(self):
        for name in ("dev", "dev/shm", "dev/shm/save", "dev/shm/save/reboot_file"):
            with self.subTest(name):
                self.archive("sel_1.tar.gz", (name, ("/data/share/sel",)))
                self.archive("sel_2.tar.gz", (LOG, 2 * RECORD))
                self.assertEqual(self.export(), {"sel.csv": 1, "sel_2.csv": 2})

    def test_truncated_archive(self):
        self.archive("sel_1.tar.gz", (LOG, os.urandom(100000)))
        os.truncate(self.logs / "sel_1.tar.gz", 5000)
        self.assertEqual(self.export()["sel.csv"], 1)

    def race(self, act):
        """Somebody goes on doing this at a path in /tmp while logs are exported. Tables may be missing then."""
        self.archive("sel_1.tar.gz", (LOG, 2 * RECORD))
        for name in ("dev", "sel_temp", "sel.tar"):
            with self.subTest(name):
                child = as_somebody(self.tmp / name, act)
                try:
                    for _ in range(RACES):
                        self.run_export()
                finally:
                    os.kill(child, signal.SIGKILL)
                    os.waitpid(child, 0)

    def test_race_for_links(self):
        self.race(lambda path: path.symlink_to("/data/elsewhere"))

    def test_race_for_links_that_come_and_go(self):
        def come_and_go(path):
            path.symlink_to("/data/elsewhere")
            path.unlink()

        self.race(come_and_go)

    def test_race_for_folders(self):
        def make_and_fill(path):
            path.mkdir()
            (path / "shm").symlink_to("/data/elsewhere")

        self.race(make_and_fill)


if __name__ == "__main__":
    unittest.main()
