#!/usr/bin/python3
"""Eight operators add users at the same time, some of them killed on the way, while strangers read-lock the lock's file: at
a desk of its own (DESK_BUILD: the programs). No user may get another's slot or be left half made by anybody who was not
killed; nobody waits for a stranger; the lock goes."""
import fcntl
import json
import os
import pty
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
LOCK = Path("/ipmc/usr/adduser_mutex")
OWN_PASSWORD, NEW_PASSWORD = b"Zentro-admin1\r", b"Winter-9x\r"
TIME_LIMIT_S = 60


class Operator:
    """Types what an adduser asks for; one that is to be killed is killed in front of an answer."""

    opening = threading.Lock()  # of a pseudo-terminal, whose descriptors no other child is to inherit

    def __init__(self, name, killed_before=None):
        self.killed_before = killed_before
        with self.opening:
            self.main, child = pty.openpty()
            self.process = subprocess.Popen(
                ["cfgtool", "-d", "adduser", "-v", name], stdin=child, stdout=subprocess.PIPE, start_new_session=True
            )
            os.close(child)

    def run(self):
        """What the tool said."""
        answers = {b"Input your password:": OWN_PASSWORD, b"\nPassword:": NEW_PASSWORD, b"Confirm password:": NEW_PASSWORD}
        said = b""
        for number, (prompt, answer) in enumerate(answers.items()):
            while not said.endswith(prompt):
                part = os.read(self.process.stdout.fileno(), 4096)
                if not part:
                    return self.end(said)
                said += part
            self.wait_for_hidden_key()
            if number == self.killed_before:
                self.process.send_signal(signal.SIGKILL)
                break
            os.write(self.main, answer)
        return self.end(said)

    def end(self, said):
        rest, _ = self.process.communicate(timeout=TIME_LIMIT_S)
        os.close(self.main)
        return (said + rest).decode()

    def wait_for_hidden_key(self):
        while self.process.poll() is None and termios.tcgetattr(self.main)[3] & termios.ICANON:
            time.sleep(0.002)


def disturb(seed):
    """A stranger's process: has a read lock on the file as often as it can, now and then until the end."""
    child = os.fork()
    if child:
        return child
    chance = random.Random(seed)
    kept = []
    while True:
        try:
            file = os.open(LOCK, os.O_RDONLY)
            fcntl.lockf(file, chance.choice([fcntl.LOCK_SH, fcntl.LOCK_SH | fcntl.LOCK_NB]), 10, 40)
            time.sleep(chance.random() / 100)
            if len(kept) < 50 and chance.random() < 0.3:
                kept.append(file)
            else:
                os.close(file)
        except OSError:
            time.sleep(0.001)


def users():
    shown = json.loads(subprocess.run(["ipmcd", "--ask", "show users"], stdout=subprocess.PIPE, check=True).stdout)
    return {number: user for number, user in shown.items() if number.isdigit() and user["name"]}


def is_whole(user):
    return user["enabled"] and user["has_password"]


def play(seed):
    chance = random.Random(seed)
    names = [f"user-{number}" for number in range(10)]
    killed = {name: chance.choice([0, 1, 2]) for name in chance.sample(names, 3)}
    with ThreadPoolExecutor(8) as operators:
        said = dict(zip(names, operators.map(lambda name: Operator(name, killed.get(name)).run(), names)))

    there = users()
    found = [user["name"] for user in there.values()]
    assert len(found) == len(set(found)), f"a name twice: {found}"
    for number, user in there.items():
        assert is_whole(user) or user["name"] in killed or user["name"] not in names, f"half made: {number} {user}"
    for name in names:
        if name not in killed:
            assert "Add user successfully." in said[name], f"{name}: {said[name]!r}"
            assert name in found, f"{name} is not there: {found}"

    # Whoever was killed leaves nothing that stops the next one.
    said_last = Operator("last-of-all").run()
    assert "Add user successfully." in said_last, said_last
    assert not LOCK.exists(), "the lock file is left"


def main():
    if sys.argv[1:2] == ["--inside"]:
        strangers = [disturb(number) for number in range(3)]
        try:
            play(int(sys.argv[2]))
        finally:
            for stranger in strangers:
                os.kill(stranger, signal.SIGKILL)
                os.waitpid(stranger, 0)
        return
    for seed in range(3):
        folder = tempfile.mkdtemp(prefix="desk-users-")
        try:
            build = os.environ.get("DESK_BUILD", str(REPOSITORY / "build"))
            desk = dict(os.environ, DESK_DIR=folder + "/desk", DESK_BUILD=build)
            words = [REPOSITORY / "desk", "/usr/bin/python3", __file__, "--inside", str(seed)]
            if subprocess.run(words, env=desk, stdin=subprocess.DEVNULL).returncode:
                sys.exit(f"with seed {seed}")
        finally:
            shutil.rmtree(folder)


if __name__ == "__main__":
    main()
