"""What the tests of the installation share: the list of files, and a place to install to."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path
from typing import NamedTuple

REPOSITORY = Path(__file__).resolve().parents[2]
PACKAGING = REPOSITORY / "packaging"
BUILD = Path(os.environ["BUILD"])
LEFT_OUT = os.environ.get("LEFT_OUT", "").split()  # "simulator", "share/man": what this machine cannot build
VERSION = os.environ["VERSION"]


class Listed(NamedTuple):
    component: str
    mode: str
    path: str


def listed_files() -> list[Listed]:
    """packaging/files, but for what cannot be built here. The page of platform-check needs nothing."""
    lines = (PACKAGING / "files").read_text().splitlines()
    rows = [Listed(*line.split()) for line in lines if line and not line.startswith("#")]
    assert len({row.path for row in rows}) == len(rows) > 20, "a file is listed twice"
    return [row for row in rows
            if not any(row.component == name or (row.component != "dev" and row.path.startswith(name + "/"))
                       for name in LEFT_OUT)]


def run(*command: object, **more) -> subprocess.CompletedProcess:
    """A command that has to work; says what it said when it does not."""
    more = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.STDOUT, "text": True} | more
    done = subprocess.run([str(word) for word in command], **more)
    if done.returncode:
        raise AssertionError(f"{' '.join(map(str, command))}: status {done.returncode}\n{done.stdout}")
    return done


def on_bare_machine(*words: object, folders: tuple[Path, ...]) -> list[str]:
    """The command that runs these words as root on a machine of these folders and system programs: without a controller's
    files, and without a service."""
    command = ["bwrap", "--unshare-user", "--uid", "0", "--gid", "0", "--ro-bind", "/usr", "/usr",
               "--ro-bind", "/proc", "/proc", "--dev", "/dev"]
    for top in map(str, (Path("/bin"), *Path("/").glob("lib*"))):
        command += ["--symlink", os.readlink(top), top] if os.path.islink(top) else ["--ro-bind", top, top]
    for folder in map(str, folders):
        command += ["--ro-bind", folder, folder]
    return [*command, "--", *map(str, words)]


def mode_of(path: Path) -> str:
    return "link" if path.is_symlink() else f"{path.lstat().st_mode & 0o7777:04o}"


def files_below(folder: Path) -> dict[str, str]:
    """Path and mode of everything below that is no folder."""
    found = {}
    for top, folders, names in os.walk(folder):
        for name in names + [name for name in folders if (Path(top) / name).is_symlink()]:
            path = Path(top) / name
            found[str(path.relative_to(folder))] = mode_of(path)
    return found


class Test(unittest.TestCase):
    def setUp(self):
        self.addCleanup(os.umask, os.umask(0o022))
        folder = tempfile.TemporaryDirectory(prefix="install-test-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        os.chmod(self.folder, 0o755)
        self.environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8", "HOME": folder.name}

    def install(self, name: str = "stage", *components: str) -> Path:
        """Installs these components, all without any, with a umask that hides everything. The place of /usr."""
        for options in [["--component", component] for component in components] or [[]]:
            run("cmake", "--install", BUILD, "--prefix", "/usr", *options, umask=0o077,
                env=self.environment | {"DESTDIR": str(self.folder / name)})
        return self.folder / name / "usr"
