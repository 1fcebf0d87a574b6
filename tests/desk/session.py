#!/usr/bin/python3
"""Plays a session at the desk: what is typed at the shell, what it shows, what the controller's state is afterwards.

    session.py FILE      with ./desk around it: a fresh desk of its own, the programs of $DESK_BUILD
    session.py --inside FILE     at a desk already

A file is made of steps, complete and in order:
    board BOARD... in the first line: the --board of the desk; with several it is played on each
    # TEXT         a claim, for the reader and for what fails
    $ COMMAND      run by bash; its exit status must be 0
    keys "TEXT"    typed at a terminal while it runs, where it waits for a line
    hidden "TEXT"  typed where it waits for a hidden key
    | TEXT         a line of what it shows; |~ PATTERN a line that the regular expression fits
    ? COMMAND      of the control socket, as "show fans"
    = JSON         what it answers; of an object only the fields given here are compared
    log MODULE "RECORD"      the records that the operation log got since the last look, all of them
"""
import json
import os
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import termios
import time
from pathlib import Path

TIME_LIMIT_S = 60
OPERATION_LOG = Path("/data/log/operation.log")
REPOSITORY = Path(__file__).resolve().parents[2]


class Different(Exception):
    pass


def unescape(text):
    return text.encode().decode("unicode_escape").encode("latin-1")


class Typist:
    """The terminal of one command: types each batch of keys when it is waited for."""

    def __init__(self, batches):
        self.batches = list(batches)
        self.main, self.child = pty.openpty()

    def type_what_is_due(self, shown):
        if not self.batches:
            return
        kind, keys, prompts = self.batches[0]
        raw = not termios.tcgetattr(self.main)[3] & termios.ICANON
        if raw if kind == "hidden" else not raw and len(shown) > prompts:
            self.batches.pop(0)
            if self.batches:
                self.batches[0] = (*self.batches[0][:2], len(shown))
            os.write(self.main, keys)


def run(command, batches):
    """What the command shows."""
    typist = Typist(batches)
    process = subprocess.Popen(
        ["bash", "-c", command], stdin=typist.child, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True
    )
    os.close(typist.child)
    shown = b""
    deadline = time.monotonic() + TIME_LIMIT_S
    while time.monotonic() < deadline:
        if select.select([process.stdout], [], [], 0.01)[0]:
            part = os.read(process.stdout.fileno(), 65536)
            if not part:
                break
            shown += part
        typist.type_what_is_due(shown)
    else:
        process.kill()
        raise Different(f"still running after {TIME_LIMIT_S} s; it shows {shown}")
    if status := process.wait():
        raise Different(f"exit status {status}; it shows {shown}")
    if typist.batches:
        raise Different(f"nobody waited for {typist.batches[0][1]}")
    return shown


def ask(command):
    answer = subprocess.run(["ipmcd", "--ask", command], stdout=subprocess.PIPE, check=False).stdout
    return json.loads(answer)


def fits(actual, expected):
    if isinstance(expected, dict) and isinstance(actual, dict):
        return all(name in actual and fits(actual[name], value) for name, value in expected.items())
    if isinstance(expected, list) and isinstance(actual, list):
        return len(actual) == len(expected) and all(fits(*pair) for pair in zip(actual, expected))
    return actual == expected


class Session:
    def __init__(self, path):
        self.path = path
        self.claim = ""
        self.command = None
        self.batches = []
        self.expected = []
        self.question = None
        self.records = None
        self.log_lines = 0

    def play(self):
        """The number of steps that were not as written."""
        faults = 0
        for number, line in enumerate([*self.path.read_text().splitlines(), ""], 1):
            for step in (self.finish_command, self.compare_records, self.take):
                try:
                    step(line)
                except Different as difference:
                    faults += 1
                    print(f"{self.path}:{number}: {self.claim}\n    {difference}")
        return faults

    def take(self, line):
        if line.startswith("#"):
            self.claim = line[1:].strip()
        elif line.startswith("$ "):
            self.command, self.batches, self.expected = line[2:], [], []
        elif match := re.fullmatch(r'(keys|hidden) "(.*)"', line):
            self.batches.append((match[1], unescape(match[2]), 0))
        elif line.startswith("|~ "):
            self.expected.append(re.compile(line[3:]))
        elif line.startswith("|"):
            self.expected.append(re.compile(re.escape(line[1:].removeprefix(" "))))
        elif line.startswith("? "):
            self.question = line[2:]
        elif line.startswith("= "):
            actual = ask(self.question)
            if not fits(actual, json.loads(line[2:])):
                raise Different(f"{self.question}: {json.dumps(actual)}")
        elif match := re.fullmatch(r'log (\w+|"[^"]*") "(.*)"', line):
            self.records = [*(self.records or []), (match[1].strip('"'), match[2])]
        elif line and not line.startswith("board "):
            raise Different(f"what is {line!r}?")

    def finish_command(self, next_line):
        if self.command is None or next_line.startswith(("|", "keys ", "hidden ")):
            return
        command, self.command = self.command, None
        shown = run(command, self.batches).decode(errors="replace").replace("\r\n", "\n").replace("\r", "\n")
        lines = [text.rstrip() for text in shown.splitlines()]
        if len(lines) != len(self.expected) or not all(map(re.Pattern.fullmatch, self.expected, lines)):
            raise Different("\n        ".join([f"{command} shows", *shown.splitlines()]))

    def compare_records(self, next_line):
        if self.records is None or next_line.startswith("log "):
            return
        expected, self.records = self.records, None
        lines = OPERATION_LOG.read_text().splitlines()
        new = [tuple(line.split("\t")[4:6]) for line in lines[self.log_lines :]]
        self.log_lines = len(lines)
        if new != expected:
            raise Different(f"the log got {new}")


def play_at_desk(path, board):
    """The exit status of a desk of its own."""
    folder = tempfile.mkdtemp(prefix="desk-session-")
    try:
        build = os.environ.get("DESK_BUILD", str(REPOSITORY / "build"))
        desk = dict(os.environ, DESK_DIR=folder + "/desk", DESK_BUILD=build)
        words = [REPOSITORY / "desk", "--board", board, "/usr/bin/python3", __file__, "--inside", path]
        status = subprocess.run(words, env=desk, stdin=subprocess.DEVNULL).returncode
        if status:
            print(f"{path}: so it was with board {board}")
        return status
    finally:
        shutil.rmtree(folder)


def main():
    if sys.argv[1] == "--inside":
        sys.exit(1 if Session(Path(sys.argv[2])).play() else 0)
    path = Path(sys.argv[1]).resolve()
    first, *boards = path.read_text().partition("\n")[0].split()
    if first != "board":
        boards = ["default"]
    sys.exit(any([play_at_desk(path, board) for board in boards]))


if __name__ == "__main__":
    main()
