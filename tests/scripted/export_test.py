#!/usr/bin/python3
"""The export of event logs against other users of /tmp and against hostile archives: the real tool, the real platform
library and the real tar, as root, with folders of their own for /data and /tmp. Skipped for anybody but root, who alone
can own files in other users' names.

CFGTOOL names the tool, with its library in ../lib and ipmcd beside it."""

import contextlib
import io
import os
import shutil
import signal
import stat
import subprocess
import tarfile
import tempfile
import time
import unittest
from pathlib import Path

CFGTOOL = Path(os.environ.get("CFGTOOL", Path(__file__).parents[2] / "build/bin/cfgtool")).resolve()
TIME_LIMIT_S = 30
SOMEBODY = 1234
ADMINISTRATOR = 502  # controller user 2
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
    @classmethod
    def setUpClass(cls):
        cls.run_folder = Path(tempfile.mkdtemp(prefix="export-run-"))
        cls.run_folder.chmod(0o755)
        words = [CFGTOOL.parent / "ipmcd", "--ipc-dir", cls.run_folder]
        cls.ipmcd = subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        cls.ipmcd.stdout.readline()
        (cls.run_folder / "2001").chmod(0o666)

    @classmethod
    def tearDownClass(cls):
        cls.ipmcd.terminate()
        cls.ipmcd.communicate()
        shutil.rmtree(cls.run_folder)

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

    def archive(self, name, *members, mode=0o777, owner=SOMEBODY, changed=0):
        """Members are (name, content). A content is bytes, a link's (target,), a hard link's [target], or the type of
        anything else."""
        with tarfile.open(self.logs / name, "w:gz", format=tarfile.PAX_FORMAT) as packed:
            for member, content in members:
                entry = tarfile.TarInfo(member)
                entry.uid = entry.gid = owner
                entry.mode = mode
                entry.mtime = changed
                if isinstance(content, (tuple, list)):
                    entry.type = tarfile.SYMTYPE if isinstance(content, tuple) else tarfile.LNKTYPE
                    entry.linkname = content[0]
                elif content in (tarfile.DIRTYPE, tarfile.FIFOTYPE, tarfile.CHRTYPE):
                    entry.type, entry.devmajor, entry.devminor = content, 1, 7  # /dev/full
                else:
                    entry.size = len(content)
                packed.addfile(entry, io.BytesIO(content) if entry.size else None)

    def in_tmp(self):
        """What each path below /tmp, and /tmp itself, is."""
        found = {}
        for path in [self.tmp, *self.tmp.rglob("*")]:
            about = path.lstat()
            content = path.read_bytes() if path.is_file() and not path.is_symlink() else b""
            found[str(path.relative_to(self.tmp))] = (about.st_mode, about.st_uid, about.st_gid, content)
        return found

    def assert_tmp_is_kept(self, user=None):
        """After an export /tmp holds what it held before, and the tables."""
        before = self.in_tmp()
        self.run_export(user)
        after = self.in_tmp()
        self.assertIn("sel.tar", after)
        del after["sel.tar"]
        self.assertEqual(after, before)

    def run_export(self, user=None):
        """An export leaves the logs as they are, and what lies elsewhere."""
        before = {path: path.lstat().st_mtime_ns for path in self.logs.iterdir()}
        words = ["bwrap", "--dev-bind", "/dev", "/dev", "--proc", "/proc", "--cap-add", "ALL"]
        for folder in ("/usr", "/lib", "/lib64", "/bin", "/etc"):
            words += ["--ro-bind-try", folder, folder]
        words += ["--ro-bind", str(CFGTOOL.parents[1]), "/tool"]
        words += ["--bind", str(self.root / "data"), "/data", "--bind", str(self.tmp), "/tmp"]
        words += ["--perms", "0755", "--dir", "/run", "--bind", str(self.run_folder), "/run/zentro"]
        if user is not None:
            words += ["setpriv", f"--reuid={user}", f"--regid={user}", "--clear-groups"]
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

    def test_archive_with_tmp_itself(self):
        for name in (".", "./", "./.", "sub/.."):
            for mode, owner in ((0o1777, 0), (0o1770, 7), (0o755, 0)):
                with self.subTest(name, mode=oct(mode)):
                    os.chown(self.tmp, owner, owner)
                    self.tmp.chmod(mode)
                    self.archive("sel_1.tar.gz", (name, tarfile.DIRTYPE), (LOG, RECORD))
                    self.assert_tmp_is_kept()
                    (self.tmp / "sel.tar").unlink()

    def hostile_members(self):
        log = [(LOG, RECORD), ("dev/evil", b"x"), ("dev/shm/evil", b"x")]
        kinds = [b"x", tarfile.FIFOTYPE, tarfile.CHRTYPE, tarfile.DIRTYPE, ("/etc/passwd",)]
        return [*log, *((f"evil-{n}", kind) for n, kind in enumerate(kinds)), ("sub/sub/evil", b"x"), ("./dot/evil", b"x")]

    def test_archive_of_set_user_id_members(self):
        for owner in (0, SOMEBODY):
            for mode in (0o4755, 0o6777, 0o2755):
                with self.subTest(mode=oct(mode), owner=owner):
                    self.archive("sel_1.tar.gz", (".", tarfile.DIRTYPE), *self.hostile_members(), mode=mode, owner=owner)
                    self.assert_tmp_is_kept()
                    (self.tmp / "sel.tar").unlink()

    def test_archive_of_any_age(self):
        day = 24 * 3600
        for changed in (0, time.time() - day, time.time(), time.time() + 3600, time.time() + 20000 * day):
            with self.subTest(changed):
                self.archive("sel_1.tar.gz", *self.hostile_members(), changed=changed)
                self.assert_tmp_is_kept()
                (self.tmp / "sel.tar").unlink()

    def test_archive_that_says_it_was_made_now(self):
        """What could do harm goes whatever time it says. A plain file of just this moment could be anybody's."""
        now = time.time()
        steps = [now + step / 1000 for step in range(0, 3000, 2)]
        with tarfile.open(self.logs / "sel_1.tar.gz", "w:gz", format=tarfile.PAX_FORMAT) as packed:
            for number, changed in enumerate(steps):
                entry = tarfile.TarInfo(f"evil-{number}")
                entry.mode, entry.mtime, entry.size = 0o4755, changed, 1
                packed.addfile(entry, io.BytesIO(b"x"))
        self.assert_tmp_is_kept()

    def test_archive_that_enters_folders_of_others(self):
        for folder, owner, mode in (("ours", 0, 0o755), ("theirs", 99, 0o700), ("theirs/inner", 99, 0o1755)):
            (self.tmp / folder).mkdir()
            (self.tmp / folder / "own").write_bytes(b"own")
            os.chown(self.tmp / folder, owner, owner)
            (self.tmp / folder).chmod(mode)
        folders = [(name, tarfile.DIRTYPE) for name in ("ours", "theirs", "theirs/inner")]
        for members in (folders, []):
            inside = [(f"{folder}/{name}", content) for folder, _ in folders for name, content in self.hostile_members()]
            self.archive("sel_1.tar.gz", *members, *inside, (LOG, RECORD), mode=0o4777)
            self.assert_tmp_is_kept()
            (self.tmp / "sel.tar").unlink()

    def test_archive_with_a_file_in_place_of_one_that_was_there(self):
        (self.tmp / "bios.bin").write_bytes(b"own")
        self.archive("sel_1.tar.gz", ("bios.bin", b"brought"), (LOG, RECORD))
        self.run_export()
        self.assertEqual([path.name for path in self.tmp.iterdir()], ["sel.tar"])

    def test_archive_with_new_names_of_files_that_were_there(self):
        (self.tmp / "own").write_bytes(b"own")
        os.link(self.tmp / "own", self.tmp / "other name")
        self.archive("sel_1.tar.gz", ("evil", ["own"]), ("sub/evil", ["own"]), (LOG, RECORD))
        self.assert_tmp_is_kept()

    def test_archive_of_many_folders_in_each_other(self):
        for depth in (60, 63, 64, 65, 66, 150, 400):
            with self.subTest(depth):
                (self.logs / "sel_1.tar.gz").unlink(True)
                way = "/".join("abc"[n % 3] for n in range(depth))
                self.archive("sel_1.tar.gz", (way, tarfile.DIRTYPE), (f"{way}/evil", b"x"), (f"d/{way}/evil", b"x"))
                self.assert_tmp_is_kept()
                (self.tmp / "sel.tar").unlink()

    def test_second_archive_cannot_follow_what_the_first_brought(self):
        self.archive("sel_2.tar.gz", ("way", ("/data/elsewhere",)), ("deep/way", ("/data/elsewhere",)))
        self.archive("sel_1.tar.gz", ("way/x", b"x"), ("deep/way/x", b"x"), (LOG, RECORD))
        self.assert_tmp_is_kept()

    def test_what_others_make_meanwhile_stays(self):
        """Files and folders of somebody, made and renamed all the time while archives come and go."""
        large = ("evil-large", os.urandom(4 << 20))  # which takes some time
        for number in range(6):
            self.archive(f"sel_{number}.tar.gz", *self.hostile_members(), ("own/evil", b"x"), large, (LOG, RECORD))
        (self.tmp / "own").mkdir()
        os.chown(self.tmp / "own", SOMEBODY, SOMEBODY)
        reader, writer = os.pipe()
        numbers = iter(range(1 << 30))

        def make(folder):
            number = next(numbers)
            try:
                for place in (folder, folder.parent):
                    (place / f"file-{number}").write_bytes(b"x")
                    (place / f"folder-{number}").mkdir()
                    (place / f"folder-{number}" / "x").touch()
                    (place / f"old-{number}").write_bytes(b"x")
                    (place / f"old-{number}").rename(place / f"new-{number}")
                os.write(writer, b".")
            except OSError as error:
                os.write(writer, f"{error}".encode())
            time.sleep(0.005)

        child = as_somebody(self.tmp / "own", make)
        os.close(writer)
        try:
            self.run_export()
        finally:
            os.kill(child, signal.SIGKILL)
            os.waitpid(child, 0)
        with open(reader, "rb") as done:
            rounds = done.read()
        self.assertEqual(rounds, len(rounds) * b".")
        self.assertGreater(len(rounds), 10)
        names = {f"{kind}-{number}" for number in range(len(rounds)) for kind in ("file", "folder", "new")}
        for folder in (self.tmp, self.tmp / "own"):
            self.assertEqual(names - set(os.listdir(folder)), set())
        self.assertEqual([path for path in self.tmp.rglob("*evil*")], [])

    def test_administrator_who_is_not_root(self):
        (self.tmp / "theirs").mkdir(mode=0o700)
        for mode in (0o4777, 0o555, 0o000):
            with self.subTest(mode=oct(mode)):
                folders = [(name, tarfile.DIRTYPE) for name in (".", "sub", "sub/sub")]
                self.archive("sel_1.tar.gz", *self.hostile_members(), *folders, mode=mode)
                self.assert_tmp_is_kept(ADMINISTRATOR)
                (self.tmp / "sel.tar").unlink()

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
