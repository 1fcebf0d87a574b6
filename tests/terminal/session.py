"""The tool on a terminal, step by step: keys and signals come when it is known to wait for them."""

import fcntl
import os
import resource
import select
import shutil
import signal
import sys
import tempfile
import termios
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
import transcript as runner  # noqa: E402

TOOL, PLATFORM = (os.path.abspath(os.environ[name]) for name in ("TOOL", "SCRIPTED_PLATFORM_LIBRARY"))
TIME_LIMIT_S = 60


def read_transcript(text):
    with tempfile.NamedTemporaryFile("w", suffix=".t") as file:
        print(text, file=file, flush=True)
        return runner.Reader(file.name).one()


class Session:
    """Runs a transcript's command. The transcript says what is to come of it all; its keys are typed by hand.

    job      False: the terminal is nobody's controlling terminal, as on a console without job control
    ignored  signals that the tool's caller ignores
    screen   False: standard output is a file
    status   the tool has a status descriptor
    """

    def __init__(self, text, job=True, ignored=(), screen=True, status=False):
        self.transcript = read_transcript(text)
        self.transcript.script.append("modes shown")
        self.root = tempfile.mkdtemp(prefix="terminal-")
        runner.put_file(self.root, "file", "/data/cli.conf", self.transcript.board)
        script = "\n".join(["uid 0", f"root {self.root}", *self.transcript.script]) + "\n"
        self.script_fd, self.trace_fd = runner.write_to_memory(script.encode()), runner.write_to_memory()
        self.told_reader, self.status_fd = runner.open_status() if status else (-1, -1)
        self.told_text = b"" if status else None
        self.main, self.child = os.openpty()
        self.out = None if screen else tempfile.TemporaryFile()
        self.err = tempfile.TemporaryFile()
        self.before = termios.tcgetattr(self.child)
        self.shown = b""
        self.states = []  # what the shell was told of its job
        self.orders, theirs = os.pipe(), os.pipe()
        self.told = theirs[0]
        self.shell = os.fork()
        if self.shell == 0:
            self.be_the_shell(theirs[1], job, ignored)
        os.close(theirs[1])
        os.close(self.orders[0])
        self.pid = int(self.next_word())

    # The shell: starts the tool as a job in the foreground, and tells what becomes of it ------------------------------

    def be_the_shell(self, told, job, ignored):
        try:
            os.close(self.orders[1])
            os.close(self.main)
            os.setsid()
            if job:
                fcntl.ioctl(self.child, termios.TIOCSCTTY, 0)
            signal.signal(signal.SIGTTOU, signal.SIG_IGN)
            tool = os.fork()
            if tool == 0:
                self.become_the_tool(job, ignored)
            os.write(told, b"%d\n" % tool)
            if not job:
                os.close(self.child)
            while self.report(told, tool):
                if select.select([self.orders[0]], [], [], 0.002)[0]:
                    order = os.read(self.orders[0], 1)
                    if order == b"":
                        os.kill(tool, signal.SIGKILL)
                    else:
                        os.tcsetpgrp(self.child, tool if order == b"f" else os.getpgrp())
                        os.write(told, b"turned\n")
        finally:
            os._exit(0)

    @staticmethod
    def report(told, tool):
        pid, status = os.waitpid(tool, os.WNOHANG | os.WUNTRACED)
        if pid == 0:
            return True
        if os.WIFSTOPPED(status):
            os.write(told, b"stopped %d\n" % os.WSTOPSIG(status))
        else:
            os.write(told, b"ended %d\n" % os.waitstatus_to_exitcode(status))
            return False
        return True

    def become_the_tool(self, job, ignored):
        try:
            os.setpgid(0, 0)
            if job:
                os.tcsetpgrp(self.child, os.getpid())
            signal.signal(signal.SIGTTOU, signal.SIG_DFL)
            signal.signal(signal.SIGINT, signal.SIG_DFL)  # python has a handler of its own
            signal.signal(signal.SIGPIPE, signal.SIG_DFL)
            for number in ignored:
                signal.signal(number, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            os.dup2(self.child, 0)
            os.dup2(self.out.fileno() if self.out else self.child, 1)
            os.dup2(self.err.fileno(), 2)
            for descriptor in (self.script_fd, self.trace_fd):
                os.set_inheritable(descriptor, True)
            env = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}
            env |= {"LOGNAME": "tester", "LD_PRELOAD": PLATFORM}
            env["SCRIPTED_PLATFORM"] = f"{self.script_fd},{self.trace_fd}"
            if self.status_fd >= 0:
                os.set_inheritable(self.status_fd, True)
                env["CFGTOOL_STATUS_FD"] = str(self.status_fd)
            os.execve(TOOL, self.transcript.commands[0], env)
        finally:
            os._exit(127)

    # Waiting ----------------------------------------------------------------------------------------------------------

    def until(self, what, condition):
        """Waits for a state of things; how long it takes is nobody's business."""
        deadline = time.monotonic() + TIME_LIMIT_S
        while not condition():
            if time.monotonic() > deadline:
                raise AssertionError(f"never: {what}; shown {self.shown}, trace {self.trace()[-300:]}, {self.states}")
            self.read_what_is_there()

    def read_what_is_there(self):
        for descriptor in select.select([self.told] + ([self.main] if self.main >= 0 else []), [], [], 0.002)[0]:
            if descriptor == self.main:
                self.shown += os.read(self.main, 65536)
            elif text := os.read(self.told, 65536).decode():
                self.states += text.splitlines()

    def next_word(self):
        self.until("a word of the shell", lambda: self.states)
        return self.states.pop(0)

    def state(self):
        return Path(f"/proc/{self.pid}/stat").read_text().rpartition(") ")[2][0]

    def trace(self):
        return os.pread(self.trace_fd, 1 << 20, 0)

    def told_to_programs(self):
        """What the status descriptor has said."""
        while select.select([self.told_reader], [], [], 0)[0]:
            self.told_text += os.read(self.told_reader, 65536)
        return self.told_text

    def modes(self):
        return [line.split()[1].decode() for line in self.trace().splitlines() if line.startswith(b"mode ")]

    def waits_for_key(self, number):
        """The tool waits for its key with this number, in raw mode."""
        self.until(
            f"key {number} is asked for",
            lambda: self.modes().count("raw") == number and self.modes()[-1] == "raw" and self.state() == "S",
        )

    def waits_in_line(self, shown):
        """The terminal has shown this, and the tool waits for the end of a line."""
        self.until(f"{shown} is shown", lambda: self.shown == shown and self.state() == "S")

    # Acting -----------------------------------------------------------------------------------------------------------

    def type(self, keys):
        os.write(self.main, keys)

    def type_each(self, keys, first=1):
        """Types hidden keys one by one, each when the tool waits for it."""
        for number, key in enumerate(keys, first):
            self.waits_for_key(number)
            self.type(bytes([key]))
        return first + len(keys)

    def send(self, number):
        os.kill(self.pid, number)

    def stop(self, number):
        self.send(number)
        self.wait_stopped(number)

    def wait_stopped(self, number):
        word = self.next_word()
        assert word == f"stopped {number.value}", word

    def go_on(self):
        self.send(signal.SIGCONT)

    def turn(self, order):
        os.write(self.orders[1], order)
        assert self.next_word() == "turned"

    def to_background(self):
        self.turn(b"b")

    def to_foreground(self):
        self.turn(b"f")

    def hang_up(self):
        os.close(self.main)
        self.main = -1

    def mode(self):
        return termios.tcgetattr(self.child)

    # Ending -----------------------------------------------------------------------------------------------------------

    def end(self):
        """What differs from what the transcript says; the terminal's mode is compared too."""
        status = int(self.next_word().removeprefix("ended "))
        while self.main >= 0 and select.select([self.main], [], [], 0)[0]:
            self.shown += os.read(self.main, 65536)
        changed = self.main >= 0 and self.mode() != self.before
        events = [event for event in runner.parse_trace(self.trace()) if event[0] != "mode"]
        self.err.seek(0)
        told = self.told_to_programs() if self.status_fd >= 0 else None
        run = runner.Run(events, status, self.err.read(), {}, changed, False, self.shown, told=told)
        return runner.faults_of(self.transcript, run)

    def close(self):
        os.close(self.orders[1])  # ends the tool, if it is still there
        os.waitpid(self.shell, 0)
        for descriptor in (self.main, self.child, self.told, self.script_fd, self.trace_fd, self.told_reader,
                           self.status_fd):
            if descriptor >= 0:
                os.close(descriptor)
        for file in (self.out, self.err):
            if file:
                file.close()
        shutil.rmtree(self.root)
