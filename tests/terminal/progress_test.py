#!/usr/bin/python3
"""The progress of an upgrade and of a download on a real terminal: typed in a shell of ./desk, shown by the real tool,
told by the real ipmcd. How far the controller is, is said by the test: nothing here depends on how long things take.

DESK_BUILD names the build folder whose programs are tested (default: build in the repository)."""
import json
import os
import pty
import re
import select
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = os.environ.get("DESK_BUILD", str(REPOSITORY / "build"))
TIME_LIMIT_S = 60
AN_HOUR_MS = 3_600_000
PROMPT = "ipmc# "
CTRL_C, CTRL_Z = "\x03", "\x1a"

UPGRADE_BEGINS = ["Please make sure the Zentro is working while upgrading!", "Updating..."]


def screen(shown):
    """The lines of a terminal that was sent this: what follows a carriage return is written over what stands there."""
    lines, column = [""], 0
    for character in shown:
        if character == "\r":
            column = 0
        elif character == "\n":
            lines.append(" " * column)
        else:
            lines[-1] = lines[-1][:column] + character + lines[-1][column + 1 :]
            column += 1
    return lines


class progress(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="progress-"))
        self.addCleanup(shutil.rmtree, self.folder)
        environment = {"PATH": os.environ["PATH"], "TERM": "dumb", "DESK_BUILD": BUILD}
        environment["DESK_DIR"] = f"{self.folder}/desk"
        environment.update({name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")})
        self.shown = ""
        self.shell, self.terminal = pty.fork()
        if self.shell == 0:
            os.execve(REPOSITORY / "desk", ["desk"], environment)
        self.addCleanup(self.leave)
        self.until(lambda: self.shown.endswith(PROMPT))
        self.shown = ""

    def leave(self):
        """What still runs in the shell ends with it."""
        os.kill(self.shell, signal.SIGHUP)
        while self.read(TIME_LIMIT_S):
            pass
        os.waitpid(self.shell, 0)
        os.close(self.terminal)

    # At the terminal

    def read(self, timeout_s):
        """False: nothing came, or the other side is closed."""
        if not select.select([self.terminal], [], [], timeout_s)[0]:
            return False
        try:
            self.shown += os.read(self.terminal, 65536).decode()
        except OSError:
            return False
        return True

    def until(self, condition):
        deadline = time.monotonic() + TIME_LIMIT_S
        while not condition():
            self.assertLess(time.monotonic(), deadline, f"never; it shows {self.shown!r}")
            self.read(0.01)

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def until_prompt(self):
        self.until(lambda: self.shown.endswith("\n" + PROMPT))

    def until_redrawn(self, times):
        """So many more redraws have come, one by one."""
        wanted = self.shown.count("\r 0%") + times
        self.until(lambda: self.shown.count("\r 0%") >= wanted)

    # At the controller

    def ask(self, command):
        words = [BUILD + "/bin/ipmcd", "--ipc-dir", self.folder / "desk/run", "--ask", command]
        return json.loads(subprocess.run(words, stdout=subprocess.PIPE, check=True).stdout)

    def take(self, family, duration_ms):
        """What it does begins anew, and takes so long."""
        self.ask(f"set /{family}/duration_ms {duration_ms}")

    def make_image(self):
        payload = b"new firmware\n" * 1000
        done = subprocess.run(["cksum"], input=payload, stdout=subprocess.PIPE, check=True)
        sum_and_size = done.stdout.decode().strip()
        header = f"ipmcd image 1\ncomponent 1\nversion 1.05\ncksum {sum_and_size}\n\n"
        (self.folder / "desk/tmp/image.hpm").write_bytes(header.encode() + payload)

    # Upgrade

    def start_upgrade(self):
        """An upgrade that stays at 0 %."""
        self.make_image()
        self.take("upgrade", AN_HOUR_MS)
        self.type("cfgtool -d upgrade\n")
        self.until_redrawn(1)

    def test_upgrade_redraws_its_percentage_in_place(self):
        self.start_upgrade()
        self.until_redrawn(2)
        self.assertEqual(self.ask("show upgrade")["phase"], "updating")
        self.assertEqual(screen(self.shown), ["cfgtool -d upgrade", *UPGRADE_BEGINS, " 0%"])
        self.take("upgrade", 2000)
        self.until_prompt()
        self.assertEqual(
            screen(self.shown), ["cfgtool -d upgrade", *UPGRADE_BEGINS, "100%", "Update successfully.", PROMPT]
        )
        # The terminal makes \r\n of \n.
        whole = r"Updating\.\.\.\r\r\n((?:\r[ \d]\d%){4,})\r100%\r\r\nUpdate successfully\.\r\r\n"
        redraws = re.search(whole, self.shown)
        self.assertTrue(redraws, self.shown)
        percentages = [int(text[:-1]) for text in redraws[1].split("\r")[1:]]
        self.assertEqual(percentages, sorted(percentages))
        self.assertEqual(self.ask("show device")["firmware_minor"], 5)

    def test_ctrl_c_and_ctrl_z_leave_an_upgrade_alone(self):
        self.start_upgrade()
        for key in (CTRL_C, CTRL_Z, CTRL_C):
            self.type(key)
            self.until_redrawn(2)
            self.assertNotIn(PROMPT, self.shown)
        self.assertRegex(self.shown, r"(?s)\^C.*\^Z.*\^C")
        self.take("upgrade", 0)
        self.until_prompt()
        self.assertIn("\r100%\r\r\nUpdate successfully.\r\r\n", self.shown)
        self.assertEqual(self.ask("show device")["firmware_minor"], 5)
        self.type("echo status $? $(jobs)\n")
        self.until(lambda: self.shown.endswith("\r\nstatus 0\r\n" + PROMPT))

    def test_why_an_upgrade_failed_stands_behind_its_percentage(self):
        self.start_upgrade()
        self.ask('set /upgrade {"phase": "failed", "failure": "invalid file"}')
        self.until_prompt()
        self.assertEqual(screen(self.shown)[-3:], [" 0%Invalid upgraded file!", "Update fail.", PROMPT])

    # Download

    def start_download(self):
        """A collection that stays at 0 %."""
        self.take("download", AN_HOUR_MS)
        self.type("cfgtool -d download -v 0\n")
        self.until_redrawn(1)

    def test_download_redraws_its_percentage_in_place(self):
        self.start_download()
        self.until_redrawn(2)
        self.assertEqual(self.ask("show download")["phase"], "running")
        self.assertEqual(screen(self.shown), ["cfgtool -d download -v 0", "Downloading...", " 0%"])
        self.take("download", 2000)
        self.until_prompt()
        ending = ["100%,Download successfully.", '"sol.dat" save to path /tmp/', PROMPT]
        self.assertEqual(screen(self.shown), ["cfgtool -d download -v 0", "Downloading...", *ending])
        self.assertRegex(self.shown, r"Downloading\.\.\.\r\r\n(\r[ \d]\d%){3,}\r100%,Download successfully\.\r\r\n")

    def test_ctrl_c_ends_a_download_that_the_controller_goes_on_with(self):
        self.start_download()
        self.type(CTRL_C)
        self.until_prompt()
        self.assertEqual(self.ask("show download")["phase"], "running")
        self.type("echo status $?; cfgtool -d download -v 0\n")
        self.until(lambda: self.shown.endswith("\r\nstatus 130\r\nOther user downloading, please wait.\r\r\n" + PROMPT))

    def test_a_download_stopped_by_ctrl_z_goes_on(self):
        self.start_download()
        self.type(CTRL_Z)
        self.until_prompt()
        self.assertRegex(self.shown, r"\[1\]\+ +Stopped +cfgtool -d download -v 0")
        self.take("download", 0)
        self.type("fg\n")
        ending = '\r100%,Download successfully.\r\r\n"sol.dat" save to path /tmp/\r\r\n' + PROMPT
        self.until(lambda: self.shown.endswith(ending))


if __name__ == "__main__":
    unittest.main()
