#!/usr/bin/python3
"""The completion against the tool, and TAB in bash, zsh and fish: completion_test.py [NAME...] plays it at a desk.

A desk of its own each time, with the programs of $DESK_BUILD (default: build in the repository).
"""

import fcntl
import json
import os
import pty
import re
import select
import shutil
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
SHARE = Path("/ipmc/share")
BLACKLIST = Path("/data/blacklist")
TIME_LIMIT_S = 60
ALL_SKIPPED = 77


def run(*words):
    """What a program shows: no questions can be answered."""
    pipes = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.STDOUT}
    ran = subprocess.run(words, **pipes, timeout=TIME_LIMIT_S, check=False)
    return ran.stdout.decode(errors="replace").replace("\r\n", "\n")


def offered(*typed):
    """[(candidate, what it means)] behind these words."""
    return [tuple(line.split("\t")) for line in run("sh", str(SHARE / "cfgtool/complete"), *typed).splitlines()]


def words_offered(*typed):
    return [word for word, _ in offered(*typed)]


def listed(*typed):
    """[(name, help text)] of what the tool lists, headings left out."""
    return re.findall(r"^ {7}(\S+) +(.*)$", run("cfgtool", *typed), re.M)


def commands():
    """The words in front of the values, of every dataitem."""
    for name in words_offered("-d"):
        yield ["-d", name]
    for target in words_offered("-t"):
        for name in words_offered("-t", target, "-d"):
            yield ["-t", target, "-d", name]


# Words for what is written in capital letters in the table of values.
SAMPLES = {
    "ADDRESS": "192.0.2.5", "COUNT": "1", "DATE": "2026-11-21", "HOST": "board", "ID": "5",
    "IMAGE": "/tmp/none.bin", "MASK": "255.255.255.0", "NAME": "admin", "OEM": "oem1", "OFF": "10", "ON": "10",
    "PATH": "/tmp/none.hpm", "PERCENT": "60", "PORT": "8443", "SECONDS": "20", "SENSOR": "CPU1 Temp", "TIME": "12:00:00", "VALUE": "50",
    "ZONE": "+1:00",
}  # fmt: skip
OWN_SAMPLES = {("eth0", "ipaddr6"): {"ADDRESS": "2001:db8::5/64"}, ("-", "ipmctime"): {"ZONE": "1"}}


def forms():
    """(target, dataitem, [words of each column]) of the table of values."""
    for line in (SHARE / "cfgtool/values").read_text().splitlines():
        if not line.startswith("#"):
            target, name, *columns = re.split("  +", line)
            yield target, name, [[choice.partition("=")[0] for choice in column.split("|")] for column in columns]


def usage_of(command):
    """Nothing takes so many words; of LEDs it is told only where there is one of that name."""
    return run("cfgtool", *command, "-v", "ledall", *"234567")


def command_words(target, name):
    return ["-d", name] if target == "-" else ["-t", target, "-d", name]


class tables(unittest.TestCase):
    """The words of the completion are those of the tool."""

    def setUp(self):
        self.addCleanup(BLACKLIST.unlink, missing_ok=True)
        profile = Path("/data/cli.conf")
        profile.write_text(profile.read_text().replace("MAC_Num=2", "MAC_Num=4"))  # with all ports for sideband
        run("ipmcd", "--ask", "set /download/duration_ms 0")

    def compare_listings(self):
        self.assertEqual(offered("-t"), listed("-t", "fru0", "-h"))
        everything = listed("-h")
        self.assertEqual(offered("-d"), everything[len(listed("-t", "fru0", "-h")) :])
        for target in words_offered("-t"):
            self.assertEqual(offered("-t", target, "-d"), listed("-t", target), target)

    def test_targets_and_dataitems_are_those_of_the_listings(self):
        self.compare_listings()
        self.assertEqual(len(list(commands())), 25 + 39)

    def test_what_the_blacklist_disables_is_left_out(self):
        for text in BLACKLISTS:
            with self.subTest(blacklist=text):
                BLACKLIST.write_bytes(text)
                self.compare_listings()

    def test_a_blacklist_that_is_no_file_disables_nothing(self):
        os.mkfifo(BLACKLIST)
        self.compare_listings()

    def test_a_beginning_means_what_it_means_to_the_tool(self):
        for text in (b"", b"cfgtool -t sensor\n", b"cfgtool -d password\n", b"cfgtool -t led\n"):
            BLACKLIST.write_bytes(text)
            for beginning in ("s", "se", "ser", "t", "u", "eth", "led", "ledx", "m", ""):
                with self.subTest(blacklist=text, target=beginning):
                    refused = "-t <target>" in run("cfgtool", "-t", beginning)
                    self.assertEqual(words_offered("-t", beginning), [] if refused else ["-d"])
                    if not refused:
                        self.assertEqual(offered("-t", beginning, "-d"), listed("-t", beginning))
            for beginning in ("p", "pa", "password", "passwordc", "fanm", "fan", "sel", "shut", "zz"):
                with self.subTest(blacklist=text, dataitem=beginning):
                    refused = "-d <dataitem>" in run("cfgtool", "-d", beginning, "a", "b", "c")
                    self.assertEqual(words_offered("-d", beginning), [] if refused else ["-v"])

    def test_values_are_offered_where_the_usage_text_has_them(self):
        for command in commands():
            with self.subTest(command=command):
                usage = usage_of(command)
                self.assertEqual(words_offered(*command), ["-v"] if " -v" in usage or "[-v" in usage else [])

    def test_a_value_stands_in_the_usage_text(self):
        led_names = {"blueled", "led1", "led2", "led3"}  # of these it says nothing
        for target, name, columns in forms():
            command = command_words(target, name)
            usage = with_ranges(usage_of(command))
            for word in {word for column in columns for word in column if not word.isupper()} - led_names:
                self.assertIn(word, usage, command)

    def test_the_options_of_the_usage_text_are_offered(self):
        known = {}
        for target, name, columns in forms():
            known.setdefault((target, name), set()).update(word for column in columns for word in column)
        for (target, name), words in known.items():
            usage = usage_of(command_words(target, name))
            options = re.findall(r"^ +(\d+|0x\w|off|on|blink|lamptest|localcontrol) {2,}", usage, re.M)
            choices = re.findall(r"<([\w|/]+)>", usage.replace("<id>", "id"))
            words_of_choices = [word for choice in choices for word in re.split("[|/]", choice) if re.search("[|/]", choice)]
            self.assertEqual({*options, *words_of_choices} - words - {"id"}, set(), (target, name))

    def test_every_value_is_taken(self):
        for target, name, columns in forms():
            samples = SAMPLES | OWN_SAMPLES.get((target, name), {})
            for number, column in enumerate(columns):
                for word in column:
                    values = [samples.get(other[0], other[0]) for other in columns]
                    values[number] = samples.get(word, word)
                    shown = run("cfgtool", *command_words(target, name), "-v", *values)
                    self.assertNotRegex(shown, r"cfgtool -|nput parameter|must be|out of range", (target, name, values))

    def test_sensors_are_those_that_the_controller_shows(self):
        document = json.loads(run("cfgtool-state", "--json", "sensors"))
        names = [sensor["name"] for sensor in document["sensors"]]
        self.assertEqual(len(names), 61)
        for command in commands():
            if command[1] == "sensor":
                self.assertEqual(words_offered(*command, "-v"), names)
        run("ipmcd", "--ask", "fail any any silence count=99")
        self.assertEqual(words_offered("-t", "sensor", "-d", "test", "-v"), [])
        run("ipmcd", "--ask", "fail clear")

    def test_forms_go_on_as_they_began(self):
        colours = ["1", "2", "3", "4", "5", "6", "0xE", "0xF"]
        leds = ["-t", "led", "-d", "ledstate", "-v"]
        for typed, expected in [
            ([], ["-d", "-t", "-h"]),
            (["-x"], []),
            (["-h"], []),
            (["-t", "fru0", "-t", "led"], ["-d"]),
            (["-t", "fru0", "-t", "led", "-d"], ["ledstate"]),
            (["-d", "reset"], []),
            (["-d", "sel", "-x"], []),
            (["-d", "sel", "-v", "clear"], []),
            (["-d", "fanmode", "-v", "1"], []),
            (["-t", "trap", "-d", "state", "-v"], ["disabled", "enabled", "1", "2", "3", "4"]),
            (["-t", "trap", "-d", "state", "-v", "2"], ["disabled", "enabled"]),
            (["-t", "trap", "-d", "state", "-v", "enabled"], []),
            (["-t", "trap", "-d", "state", "-v", "5"], []),
            (leds, ["blueled", "led1", "led2", "led3", "ledall"]),
            ([*leds, "led1"], ["off", "on", "localcontrol", "blink", "lamptest"]),
            ([*leds, "oem2"], ["off", "on", "localcontrol", "blink", "lamptest"]),
            ([*leds, "ledall"], ["lamptest"]),
            ([*leds, "led1", "on"], colours),
            ([*leds, "led1", "off"], []),
            ([*leds, "led1", "blink", "10", "20"], colours),
            (["-d", "upgrade", "-v"], ["0", "1", ""]),  # "" stands for a file
            (["-d", "upgrade", "-v", "/tmp/image.hpm"], ["0", "1"]),
            (["-d", "upgrade", "-v", "1"], []),
        ]:
            with self.subTest(typed=typed):
                self.assertEqual(words_offered(*typed), expected)


def with_ranges(usage):
    """A usage text with what "1~4" and "port1-port4" leave out."""

    def spelled_out(match):
        word, first, last = match.groups()
        return " ".join(f"{word}{n}" for n in range(int(first), int(last) + 1))

    return re.sub(r"\b([a-z]*)(\d)[~-]\1(\d)\b", spelled_out, usage)


BLACKLISTS = [
    b"",
    b"cfgtool -d fanlevel\n",
    b"cfgtool -d passwordcomplexity\n",  # password is found first
    b"cfgtool -d sel\ncfgtool -d reset",
    b"cfgtool -t sensor\n",
    b"cfgtool -t maintenance -d zntool\n",  # nothing
    b"cfgtool -t maintenance\r\n",
    b"cfgtool -t trap -d user\n",
    b"cfgtool -t user -d unlock\n",
    b"cfgtool -t fru0 -d sel\rcfgtool -t led -d ledstate\r",
    b"cfgtool -t smbios -d serialnumber\n",
    b"cfgtool -t smbios -d state of trap\n",  # smbios is found first
    b"cfgtool -t led -d sel of fru0\n",  # fru0 is
    b"cfgtool -t eth0 -d gateway6\n",  # gateway is found first
    b"cfgtool  -d sel\n",
    b"  cfgtool -d sel\n",
    b"xxxxxxxx-d sel cfgtool\n",
    b"xxxxxxxx-t sensor\n",
    b"cfgtool -d sel\nxxxxxxxx-t sensor\nxxxxxxxx-t trap\n",
    b"cfgtool -d sel\r\nxxxxxxxx-t sensor\n",  # the empty line between them uses it up
    b"cfgtool -d sel\n\nxxxxxxxx-t sensor\n",
    b"cfgtool -d\n",
    b"cfgtool -",
    b"cfgtool -t everything of user and service",
    b"\xff\xfe cfgtool -t led\ncfgtool -t \xe9 trap\n",
    "cfgtool -d é sel\n".encode(),
]


class Terminal:
    """A shell on a pseudo-terminal."""

    def __init__(self, words, environment, setup=""):
        self.shown = ""
        self.pid, self.main = pty.fork()
        if self.pid == 0:
            try:
                os.execvpe(words[0], words, {"PATH": os.environ["PATH"], "TERM": "xterm", "LANG": "C.UTF-8"} | environment)
            finally:
                os._exit(127)
        fcntl.ioctl(self.main, termios.TIOCSWINSZ, struct.pack("HHHH", 100, 200, 0, 0))
        self.type(setup + "echo be''gin\n")
        self.until("begin")

    def type(self, text):
        os.write(self.main, text.encode())

    def until(self, pattern):
        """Waits until a match is shown behind what was matched before."""
        deadline = time.monotonic() + TIME_LIMIT_S
        while not (match := re.search(pattern, self.shown)):
            if time.monotonic() > deadline:
                raise AssertionError(f"never: {pattern!r}; shown {self.shown!r}")
            if select.select([self.main], [], [], 0.1)[0]:
                self.shown += os.read(self.main, 65536).decode(errors="replace")
        self.shown = self.shown[match.end() :]
        return match

    def line_after(self, keys):
        """The words of the command line when these keys have been typed: they are shown in place of being run."""
        self.type(f"{keys}\x01printf '<%s>' \n")
        found = self.until(r"<cfgtool>((?:<[^<>]*>)*)[^<]")[1]
        return re.findall("<([^<>]*)>", found)

    def close(self):
        os.close(self.main)  # hangs up
        os.waitpid(self.pid, 0)


class in_shell:
    """TAB; a class below for each shell."""

    environment: dict = {}
    setup = ""
    list_keys = "\t"

    def setUp(self):
        if not shutil.which(self.words[0]):
            self.skipTest(f"{self.words[0]} is not installed")
        self.addCleanup(BLACKLIST.unlink, missing_ok=True)

    def open(self):
        terminal = Terminal(self.words, {"HOME": os.environ["HOME"]} | self.environment, self.setup)
        self.addCleanup(terminal.close)
        return terminal

    def test_tab_completes(self):
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir("/tmp")
        Path("images").mkdir(exist_ok=True)
        for name in ("image.hpm", "board.bin", "board.txt", "images/old.bin", "images/old.txt"):
            Path(name).touch()
        terminal = self.open()
        for typed, expected in [
            ("-t ser\t", "-t service"),
            ("-t se\t", "-t se"),
            ("-t service \t", "-t service -d"),
            ("-t ser -d po\t", "-t ser -d port"),
            ("-t maint -d zn\t", "-t maint -d zntool"),
            ("-t nothing -d zn\t", "-t nothing -d zn"),
            ("-d fanl\t", "-d fanlevel"),
            ("-d fan\t", "-d fan"),
            ("-d qqq\t", "-d qqq"),
            ("-d sel \t", "-d sel -v"),
            ("-d sel -v \t", "-d sel -v clear"),
            ("-d bootd -v 0\t", "-d bootd -v 0"),
            ("-d bootd -v 0x\t", "-d bootd -v 0xF"),
            ("-t eth0 -d ipaddr -v d\t", "-t eth0 -d ipaddr -v dhcp"),
            ("-t trap -d state -v 3 e\t", "-t trap -d state -v 3 enabled"),
            ("-t led -d ledstate -v ledall \t", "-t led -d ledstate -v ledall lamptest"),
            ("-t trap -d user -v \t", "-t trap -d user -v"),
            ("-t sensor -d test -v 'CPU1 Temp' \t", "-t sensor -d test -v CPU1 Temp stop"),
            ("-t sensor -d test -v Inl\t", "-t sensor -d test -v Inlet Temp"),
            ("-t sensor -d test -v Inl\t \t", "-t sensor -d test -v Inlet Temp stop"),
            ("-t sensor -d test -v CPU1\\ T\t", "-t sensor -d test -v CPU1 Temp"),
            ("-t sensor -d test -v 'CPU1 T\t", "-t sensor -d test -v CPU1 Temp"),
            ('-t sensor -d test -v "CPU1 T\t', "-t sensor -d test -v CPU1 Temp"),
            ("-t sensor -d uppercritical -v 12\t", "-t sensor -d uppercritical -v 12V"),
            ("-t sensor -d uppercritical -v Nothing\t", "-t sensor -d uppercritical -v Nothing"),
            ("-d upgrade -v /tmp/image.\t", "-d upgrade -v /tmp/image.hpm"),
            ("-d upgrade -v /tmp/image.\t \t", "-d upgrade -v /tmp/image.hpm"),
            ("-d upgrade -v image.\t", "-d upgrade -v image."),  # has to be an absolute path
            ("-t maint -d upgradeb -v bo\t", "-t maint -d upgradeb -v board.bin"),
            ("-t maint -d upgradeb -v /tmp/bo\t", "-t maint -d upgradeb -v /tmp/board.bin"),
            ("-t maint -d upgradeb -v images/\t", "-t maint -d upgradeb -v images/old.bin"),
        ]:
            with self.subTest(typed=typed):
                self.assertEqual(" ".join(terminal.line_after("cfgtool " + typed)), expected)

    def test_tab_completes_areas(self):
        terminal = self.open()
        for typed, expected in [
            ("fa\t", "fans"),
            ("fans e\t", "fans event-log"),
            ("--j\t fa\t", "--json fans"),
            ("x\t", "x"),
        ]:
            with self.subTest(typed=typed):
                terminal.type(f"cfgtool-state {typed}\x01printf '<%s>' \n")
                found = terminal.until(r"<cfgtool-state>((?:<[^<>]*>)*)[^<]")[1]
                self.assertEqual(" ".join(re.findall("<([^<>]*)>", found)), expected)

    def test_tab_leaves_out_what_the_blacklist_disables(self):
        terminal = self.open()
        for blacklist, typed, expected in [
            ("", "-d fan\t", "-d fan"),
            ("cfgtool -d fanlevel\n", "-d fan\t", "-d fanmode"),
            ("cfgtool -t sensor\n", "-t se\t", "-t service"),
            ("cfgtool -t trap -d port\n", "-t trap -d p\t", "-t trap -d p"),
        ]:
            with self.subTest(blacklist=blacklist, typed=typed):
                BLACKLIST.write_text(blacklist)
                self.assertEqual(" ".join(terminal.line_after("cfgtool " + typed)), expected)

    def test_tab_shows_what_there_is(self):
        terminal = self.open()
        terminal.type("cfgtool -t " + self.list_keys)
        terminal.until("(?s)" + "".join(f"(?=.*{target})" for target in words_offered("-t")))  # in any order


class bash(in_shell, unittest.TestCase):
    """The desk's own login shell."""

    words = ["bash", "-l"]
    list_keys = "\t\t"


class zsh(in_shell, unittest.TestCase):
    words = ["zsh", "-f"]
    setup = f"fpath=({SHARE}/zsh/site-functions $fpath); autoload -U compinit; compinit -u -D\n"


class fish(in_shell, unittest.TestCase):
    words = ["fish"]
    environment = {"XDG_DATA_DIRS": f"{SHARE}:/usr/local/share:/usr/share"}


def play_at_desk(names):
    """The exit status of a desk of its own."""
    folder = tempfile.mkdtemp(prefix="completion-test-")
    try:
        build = os.environ.get("DESK_BUILD", str(REPOSITORY / "build"))
        desk = dict(os.environ, DESK_DIR=folder + "/desk", DESK_BUILD=build)
        words = [REPOSITORY / "desk", "/usr/bin/python3", __file__, "--inside", *names]
        return subprocess.run(words, env=desk, stdin=subprocess.DEVNULL, check=False).returncode
    finally:
        shutil.rmtree(folder)


if __name__ == "__main__":
    if sys.argv[1:2] != ["--inside"]:
        sys.exit(play_at_desk(sys.argv[1:]))
    result = unittest.main(argv=[sys.argv[0], *sys.argv[2:]], exit=False, verbosity=2).result
    sys.exit(ALL_SKIPPED if len(result.skipped) == result.testsRun else not result.wasSuccessful())
