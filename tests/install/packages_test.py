#!/usr/bin/python3
"""The Debian packages: what is in them, what lintian says of them, and their life on a machine. See install_test.py."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from staged import BUILD, LEFT_OUT, PACKAGING, Test, files_below, listed_files, run

PACKAGE_OF = {"tool": "cfgtool", "manual": "cfgtool", "completion": "cfgtool", "platform": "libzentro-platform1",
              "dev": "libzentro-platform-dev", "simulator": "cfgtool-simulator"}
NO_SERVICE = "Set fan level  failed, error code: 0x40000000"
LIBRARY = "usr/lib/libzentro_platform.so.1"


def as_debian_has_it(path: str) -> str:
    """Where a listed file is in its package."""
    path = path.replace("share/zsh/site-functions/", "share/zsh/vendor-completions/")
    if path.startswith("etc/"):
        return path
    return f"usr/{path}.gz" if path.startswith("share/man/") else f"usr/{path}"


class packages(Test):
    made: Path
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        for program in ("dpkg-shlibdeps", "file"):
            if shutil.which(program) is None:
                raise unittest.SkipTest(f"{program} is not installed: no packages can be made")
        cls.made = Path(tempfile.mkdtemp(prefix="packages-test-"))
        cls.addClassCleanup(shutil.rmtree, cls.made)
        os.chmod(cls.made, 0o755)
        run("cpack", "-B", cls.made, cwd=BUILD, umask=0o077)

    def deb(self, package: str) -> Path:
        found, = self.made.glob(f"{package}_*.deb")
        return found

    def debs(self) -> dict[str, Path]:
        return {package: self.deb(package) for package in {PACKAGE_OF[row.component] for row in listed_files()}}

    def field(self, package: str, name: str) -> str:
        return run("dpkg-deb", "-f", self.deb(package), name).stdout.strip()

    # What is in them

    def test_hold_the_files_of_the_list(self):
        self.assertEqual(sorted(self.made.glob("*.deb")), sorted(self.debs().values()))
        for package, deb in self.debs().items():
            expected = {as_debian_has_it(row.path): row.mode for row in listed_files()
                        if PACKAGE_OF[row.component] == package}
            expected |= {path: "0644" for path in (f"usr/share/doc/{package}/copyright",
                                                   f"usr/share/doc/{package}/changelog.gz",
                                                   f"usr/share/doc/{package}/changelog.Debian.gz",
                                                   f"usr/share/lintian/overrides/{package}")}
            run("dpkg-deb", "-x", deb, self.folder / package)
            with self.subTest(package):
                self.assertEqual(files_below(self.folder / package), expected)

    def test_belong_to_root_and_nobody_else_may_write_them(self):
        for deb in self.debs().values():
            for line in run("dpkg-deb", "-c", deb).stdout.splitlines():
                self.assertRegex(line, r"^(-rw-r--r--|[-d]rwxr-xr-x|lrwxrwxrwx) root/root ")

    def test_are_stripped(self):
        run("dpkg-deb", "-x", self.deb("cfgtool"), self.folder / "x")
        self.assertNotIn(".symtab", run("readelf", "-SW", self.folder / "x/usr/bin/cfgtool").stdout)
        self.assertIn(".symtab", run("readelf", "-SW", BUILD / "bin/cfgtool").stdout)

    def test_ask_for_what_they_need(self):
        depends = {package: self.field(package, "Depends").split(", ") for package in self.debs()}
        self.assertIn("libzentro-platform1", depends["cfgtool"])  # in no version: a board's own package has others
        self.assertEqual({re.sub(r" \(.*", "", word) for word in depends["cfgtool"]}, {"libzentro-platform1", "libc6"})
        self.assertEqual({re.sub(r" \(.*", "", word) for word in depends["libzentro-platform1"]}, {"libc6"})
        if "DT_RELR" in run("readelf", "-VW", BUILD / "bin/cfgtool").stdout:
            self.assertIn("libc6 (>= 2.36)", depends["cfgtool"])
            self.assertIn("libc6 (>= 2.36)", depends["libzentro-platform1"])

    def test_are_without_fault_to_lintian(self):
        if shutil.which("lintian") is None:
            self.skipTest("lintian is not installed")
        if "share/man" in LEFT_OUT:
            self.skipTest("lintian asks for manual pages, and scdoc is not installed")
        with tempfile.TemporaryDirectory() as folder:  # it leaves files there
            said = run("lintian", "--allow-root", "--fail-on", "error,warning", *self.debs().values(),
                       env=os.environ | {"TMPDIR": folder}).stdout
        self.assertEqual(said, "")

    def test_look_after_the_operation_log(self):
        """The folder is made, and the file rotated, where the library writes."""
        log = re.search(r'default_log\[\] = "(.*)"', (PACKAGING.parent / "platform/linux/oplog.cpp").read_text()).group(1)
        run("dpkg-deb", "-R", self.deb("libzentro-platform1"), self.folder / "x")
        rotated = (self.folder / "x/etc/logrotate.d/zentro-platform").read_text()
        self.assertIn(f"\n{log} {{\n", rotated)
        folders = (self.folder / "x/usr/lib/tmpfiles.d/zentro-platform.conf").read_text()
        self.assertIn(f"\nd {os.path.dirname(log)} 2750 root adm -\n", folders)
        self.assertEqual((self.folder / "x/DEBIAN/conffiles").read_text(), "/etc/logrotate.d/zentro-platform\n")
        self.assertIn("--create zentro-platform.conf", (self.folder / "x/DEBIAN/postinst").read_text())

    def test_override_lintian_with_a_reason(self):
        lines = (PACKAGING / "debian/lintian-overrides").read_text().splitlines()
        self.assertGreater(len(lines), 1)
        for before, line in zip(["", *lines], lines):
            self.assertTrue(line.startswith("#") or before.startswith("# "), line)

    # Their life on a machine: a folder with a few of the programs that every Debian has, and dpkg's own records

    def make_machine(self):
        if subprocess.run(["unshare", "--map-root-user", "true"], stderr=subprocess.DEVNULL).returncode:
            self.skipTest("there are no user namespaces here, in which everybody is root")
        self.root = self.folder / "root"
        for folder in ("usr/bin", "usr/sbin", "usr/lib", "usr/lib64", "etc", "data", "run", "tmp", "proc", "dev",
                       "var/cache/ldconfig", "var/lib/dpkg/info", "var/lib/dpkg/updates", "var/lib/dpkg/triggers"):
            (self.root / folder).mkdir(parents=True)
        for folder in ("bin", "sbin", "lib", "lib64"):
            (self.root / folder).symlink_to(f"usr/{folder}")
        theirs = ["/bin/sh", "/bin/tar", "/bin/gzip", "/bin/rm"]
        for program in ("/sbin/ldconfig", *theirs):
            self.copy_to_machine(program)
        ours = [BUILD / row.path for row in listed_files() if row.path.startswith("bin/")]
        needed = "".join(run("ldd", program).stdout for program in [*theirs, *ours])
        for library in set(re.findall(r"(/\S+) \(0x", needed)):
            if not library.startswith(str(BUILD)):
                self.copy_to_machine(library)
        wanted = {re.split(r"[ :]", word)[0] for package in self.debs() for word in self.field(package, "Depends").split(", ")}
        status = run("dpkg-query", "-s", *sorted(wanted - set(PACKAGE_OF.values()))).stdout
        (self.root / "var/lib/dpkg/status").write_text(status + "\n")

    def copy_to_machine(self, path: str):
        place = self.root / path.lstrip("/")
        place.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(path, place)

    def on_machine(self) -> set[str]:
        """What is there, but for records of dpkg and the loader."""
        return {str(path.relative_to(self.root)) for top in ("usr", "etc", "data") for path in (self.root / top).rglob("*")
                if path.name != "ld.so.cache"}

    def dpkg(self, *words: object) -> str:
        return run("unshare", "--map-root-user", "dpkg", f"--root={self.root}", *words, env=self.environment).stdout

    def answer(self, *words: str) -> str:
        return run(*self.inside(*words), env=self.environment).stdout

    def inside(self, *words: str) -> list[str]:
        return ["bwrap", "--unshare-user", "--uid", "0", "--gid", "0", "--bind", str(self.root), "/", "--proc", "/proc",
                "--dev", "/dev", "--unshare-pid", "--die-with-parent", "--setenv", "ZENTRO_IPC_DIR", "/run/zentro", *words]

    def test_come_work_and_go(self):
        self.make_machine()
        before = self.on_machine()
        self.dpkg("-i", *self.debs().values())
        self.assertIn("Useage: cfgtool [-t target] -d dataitem [-v value]", self.answer("cfgtool"))
        self.assertIn(NO_SERVICE, self.answer("cfgtool", "-d", "fanlevel", "-v", "60"))
        self.assertIn(" ok, 0 broken, ", self.answer("platform-check"))
        self.assertGreater(len(self.on_machine()), len(before) + 20)
        self.dpkg("--purge", *self.debs())
        self.assertEqual(self.on_machine(), before)

    def test_will_not_go_without_each_other(self):
        self.make_machine()
        with self.assertRaisesRegex(AssertionError, "cfgtool depends on libzentro-platform1"):
            self.dpkg("-i", self.deb("cfgtool"))

    def test_have_examples_that_work(self):
        self.make_machine()
        self.dpkg("-i", self.deb("cfgtool"), self.deb("libzentro-platform1"))
        examples = self.root / "usr/share/doc/cfgtool/examples"
        self.assertIn("rollback", self.answer("cfgtool"))
        self.assertNotIn("must not be lower", self.answer("cfgtool", "-d", "fanlevel", "-v", "19"))
        for name in ("cli.conf", "blacklist"):
            shutil.copy(examples / name, self.root / "data")
        self.assertIn("Fanlevel must not be lower than 20 percent.", self.answer("cfgtool", "-d", "fanlevel", "-v", "19"))
        listing = self.answer("cfgtool")
        for word in ("fanlevel", " trap "):
            self.assertIn(word, listing)
        for word in ("rollback", " service "):
            self.assertNotIn(word, listing)
        self.assertNotIn("unlock", self.answer("cfgtool", "-t", "user"))

    def test_leave_the_library_to_a_board(self):
        """As docs/installing.md says: a package with another library takes the place of ours, under the tool."""
        self.make_machine()
        self.dpkg("-i", self.deb("cfgtool"), self.deb("libzentro-platform1"))
        board = self.folder / "board"
        (board / "DEBIAN").mkdir(parents=True)
        (board / LIBRARY).parent.mkdir(parents=True)
        shutil.copy(self.root / LIBRARY, board / LIBRARY)
        lines = re.findall(r"^    (\w+: libzentro-platform1)$", (PACKAGING.parent / "docs/installing.md").read_text(), re.M)
        self.assertEqual(len(lines), 3)
        (board / "DEBIAN/control").write_text(
            f"Package: board-platform\nVersion: 7\nArchitecture: {self.field('cfgtool', 'Architecture')}\n"
            "Maintainer: A Board <board@packages.invalid>\nDescription: library of a board\n" + "\n".join(lines) + "\n")
        run("dpkg-deb", "--root-owner-group", "--build", board, self.folder / "board.deb")
        self.dpkg("-i", self.folder / "board.deb")
        self.assertNotIn("installed", run("dpkg-query", f"--admindir={self.root}/var/lib/dpkg", "-W",
                                          "-f", "${db:Status-Status}", "libzentro-platform1").stdout.split("-")[0])
        self.assertIn(NO_SERVICE, self.answer("cfgtool", "-d", "fanlevel", "-v", "60"))

    def test_have_a_unit_that_systemd_understands(self):
        """And whose program knows the options."""
        if "simulator" in LEFT_OUT or shutil.which("systemd-analyze") is None:
            self.skipTest("ipmcd is not built, or systemd is not installed")
        text = (PACKAGING / "ipmcd.service").read_text().replace("/usr/bin/ipmcd", str(BUILD / "bin/ipmcd"))
        (self.folder / "ipmcd.service").write_text(text)
        said = run("systemd-analyze", "verify", "--man=no", "--recursive-errors=no", self.folder / "ipmcd.service").stdout
        self.assertEqual(said, "")
        options = re.search(r"^ExecStart=\S+ (.*)$", text, re.MULTILINE).group(1)
        known = run(BUILD / "bin/ipmcd", "--help").stdout
        for option in re.findall(r"--[a-z-]+", options):
            self.assertIn(f"  {option} ", known)

    def test_bring_a_controller_to_talk_to(self):
        """As docs/installing.md says."""
        if "simulator" in LEFT_OUT:
            self.skipTest("ipmcd is not built: its packages are not installed")
        self.make_machine()
        for program in ("/bin/mkdir", "/bin/cp", "/usr/bin/unshare", "/bin/sleep"):
            self.copy_to_machine(program)
            for library in re.findall(r"(/\S+) \(0x", run("ldd", program).stdout):
                self.copy_to_machine(library)
        self.dpkg("-i", *(self.deb(package) for package in ("cfgtool", "libzentro-platform1", "cfgtool-simulator")))
        page = (PACKAGING.parent / "docs/installing.md").read_text()
        lines = re.findall(r"^    \$ (.*)$", page.split("## A simulated controller")[1].split("\n## ")[0], re.M)
        self.assertEqual(len(lines), 4)
        wait = "while [ ! -e /tmp/board/run/2001 ]; do sleep 0.05; done"
        script = "\n".join([*lines[:2], wait, *lines[2:], lines[3].replace("-d fanlevel -v 60", "-t maintenance -d readeeprom")])
        said = self.answer("/bin/sh", "-c", script + "\nkill $!")
        self.assertRegex(said, r"^ready\nSet fan level successfully\.\n[^\n]*\nManual Fan Level: {4}60%\n\.{78}\n")
        self.assertTrue(said.endswith("....\nRead eeprom to file /tmp/eeprom.bin successfully.\n"), said)
        self.assertEqual((self.root / "tmp/eeprom.bin").read_bytes(), (self.root / "tmp/board/disk/data/board/eeprom").read_bytes())
        self.assertEqual(len((self.root / "tmp/board/disk/data/log/operation.log").read_text().splitlines()), 2)

    def test_leave_the_installed_library_to_the_tool(self):
        """The simulator's library is for whoever asks for it; no other package may be built against it."""
        self.assertEqual({package for package, deb in self.debs().items()
                          if "./shlibs" in run("dpkg-deb", "--ctrl-tarfile", deb, text=False).stdout.decode("latin1")},
                         {"libzentro-platform1"})


if __name__ == "__main__":
    unittest.main()
