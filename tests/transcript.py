#!/usr/bin/python3
"""Plays transcripts of cfgtool against the real binary, with the scripted platform in front of it.

    transcript.py --tool build/bin/cfgtool --platform build/lib/libscripted_platform.so FILE.t ...
        [--only WORDS]   those whose title holds the words
        [--trace]        print what happened in each
        [--emulator "qemu-arm -L FOLDER"]  what runs a tool of another machine

README.md beside this file tells how a transcript is written.
"""

import argparse
import dataclasses
import fcntl
import io
import os
import re
import resource
import select
import shlex
import shutil
import signal
import stat
import subprocess
import sys
import tarfile
import tempfile
import termios
import time

import status_lines

TIME_LIMIT_S = 30
ATTEMPTS = 5
RETRY_PAUSE_US = 50000
IPMI_SERVICE = "0 2001"  # flags and port of every message

# The calls that frame every run, in their order. Transcripts list them only when they say "calls shown".
START_UP = ["cpld_init", "fpga_Init", "ipc_no_listen_init 0", "CfgFileOpenReadOnly '/data/cli.conf'"]
THEN = ["CfgFileClose"]
BLACKLIST = ["vos_get_file_length '/data/blacklist'"]
TEAR_DOWN = ["ipc_exit", "cpld_clean", "fpga_clean"]
# cfgtool-state has less around it, and the lines of a Unix program.
STATE = "cfgtool-state"
STATE_START_UP, STATE_TEAR_DOWN = ["ipc_no_listen_init 0"], ["ipc_exit"]
LIFECYCLE = {call.split()[0] for call in START_UP + THEN + TEAR_DOWN} | {"KeySearch", "get_mac_num"}

STANDARD_BOARD = b"""[FRU_PROPERTITY]
Fru_Num=1
[FAN_PROPERTITY]
FAN_MinLevel=20
[MAC_PROPERTITY]
MAC_Num=2
MAC_Name=NIC
"""


class BadTranscript(Exception):
    pass


# Words and bytes ------------------------------------------------------------------------------------------------------


def unescape(text):
    """The bytes of a quoted text: \\r \\n \\t \\\\ \\" \\xNN, and {TEXT*COUNT} for TEXT repeated."""

    def repeated(match):
        return match.group(1) * int(match.group(2))

    text = re.sub(r"\{([^{}*]+)\*(\d+)\}", repeated, text)
    return text.encode("utf-8").decode("unicode_escape").encode("latin-1")


def hex_bytes(text):
    return bytes.fromhex(text.replace(" ", ""))


def checksum(data):
    return -sum(data) & 0xFF


# Transcripts ----------------------------------------------------------------------------------------------------------


@dataclasses.dataclass
class Transcript:
    title: str
    where: str
    commands: list = dataclasses.field(default_factory=list)  # the words of each; all of them do the same
    uid: int = 0
    env: dict = dataclasses.field(default_factory=lambda: {"LOGNAME": b"tester"})
    closed: list = dataclasses.field(default_factory=list)  # standard descriptors
    screen: str = ""  # "full" or "gone" where nothing can be shown, "file" where it shows late
    files: list = dataclasses.field(default_factory=list)  # (kind, path, bytes)
    archives: dict = dataclasses.field(default_factory=dict)  # path -> [(kind, member, bytes)]
    cuts: dict = dataclasses.field(default_factory=dict)  # path -> length
    board: bytes = STANDARD_BOARD
    events: list = dataclasses.field(default_factory=list)  # what is to happen, in order
    script: list = dataclasses.field(default_factory=list)  # what the scripted platform is told
    stderr: bytes = b""
    changed: dict = dataclasses.field(default_factory=dict)  # path -> bytes, or None for gone
    modes: dict = dataclasses.field(default_factory=dict)  # path -> mode, where it is given
    umask: int = 0o022
    data_limit: int = resource.RLIM_INFINITY  # the bytes of memory that the tool may take
    calls_shown: bool = False
    ending: int = 0  # the signal that ends the tool
    status: int = 0  # its exit status otherwise
    told: list = dataclasses.field(default_factory=list)  # sentences and records, as programs are told of them
    exchanges: int = 0

    def is_state(self):
        return self.commands and self.commands[0][0] == STATE

    def frame(self):
        """The calls around what a run does."""
        if self.is_state():
            return STATE_START_UP, STATE_TEAR_DOWN
        return START_UP + (THEN if self.board is not None else []) + BLACKLIST, TEAR_DOWN

    def has_status(self):
        return self.commands and self.commands[0][0] == "cfgtool"

    def expect_sentence(self, sentence):
        self.told.append(sentence)
        if sentence.text and self.screen not in ("full", "gone"):
            self.expect_screen(sentence.text)

    def expect_screen(self, text):
        if self.events and self.events[-1][0] == "screen":
            self.events[-1] = ("screen", self.events[-1][1] + text)
        else:
            self.events.append(("screen", text))

    def expect_sleep(self, microseconds):
        if self.events and self.events[-1][0] == "sleep":
            microseconds += self.events.pop()[1]
        self.events.append(("sleep", microseconds))


def request_frame(netfn, command, data, sequence):
    frame = bytes([0x00, netfn << 2])
    frame += bytes([checksum(frame), 0x63, (sequence & 0x3F) << 2, command]) + data
    return frame + bytes([checksum(frame)])


def answer_frame(netfn, command, data, sequence, wrong=None):
    """The payload of an answer, with one of its four checked fields wrong if asked for."""
    netfn, command, address, sequence = netfn + 1, command, 0x00, sequence & 0x3F
    if wrong == "netfn":
        netfn ^= 0x02
    elif wrong == "command":
        command ^= 0x01
    elif wrong == "address":
        address = 0x20
    elif wrong == "sequence":
        sequence ^= 0x20
    frame = bytes([0x63, netfn << 2])
    frame += bytes([checksum(frame), address, sequence << 2, command]) + data
    return frame + bytes([checksum(frame[3:])])


def play_attempt(transcript, request, ending, last, patient, netfn, command, sequence):
    """Adds what one attempt of an exchange expects and what the platform is told. True = the exchange is over."""
    waits = ATTEMPTS if patient else 1
    transcript.events.append(("send", request))
    if ending == "unsent":
        transcript.script.append("send -1")
        if not last:
            transcript.expect_sleep(RETRY_PAUSE_US)
        return last
    transcript.script.append("send 0")
    if ending == "silent":
        transcript.events += [("recv",)] * waits
        transcript.script += ["recv none"] * waits
        return last
    while ending.startswith("wait "):
        ending = ending[5:]
        transcript.events.append(("recv",))
        transcript.script.append("recv none")
    transcript.events.append(("recv",))
    if ending in ("netfn", "command", "address", "sequence"):
        payload = answer_frame(netfn, command, b"\x00", sequence, ending)
        transcript.script.append(f"recv {len(payload)} {payload.hex()}")
        if not last:
            transcript.expect_sleep(RETRY_PAUSE_US)
        return last
    if match := re.fullmatch(r"(.*?) *length (\d+)", ending):
        payload = answer_frame(netfn, command, hex_bytes(match.group(1) or "00"), sequence)
        transcript.script.append(f"recv {match.group(2)} {payload.hex()}")
        return True
    cut = None
    if match := re.fullmatch(r"(.*) cut (\d+)", ending):
        ending, cut = match.group(1), int(match.group(2))
    payload = answer_frame(netfn, command, hex_bytes(ending), sequence)[:cut]
    transcript.script.append(f"recv {len(payload)} {payload.hex()}")
    return True


def parse_exchange(transcript, line, patient):
    """> NETFN COMMAND DATA... < ENDING[, ENDING...]"""
    request, bar, endings = line.partition("<")
    if not bar:
        raise BadTranscript(f"no answer in: {line}")
    netfn, command, *data = hex_bytes(request)
    sequence = transcript.exchanges
    transcript.exchanges += 1
    frame = request_frame(netfn, command, bytes(data), sequence)
    endings = [ending.strip() for ending in endings.split(",")]
    if len(endings) == 1 and endings[0] in ("silent", "unsent", "netfn", "command", "address", "sequence"):
        endings *= ATTEMPTS
    for number, ending in enumerate(endings, 1):
        over = play_attempt(transcript, frame, ending, number == ATTEMPTS, patient, netfn, command, sequence)
        if over != (number == len(endings)):
            raise BadTranscript(f"an exchange of {len(endings)} attempts does not end so: {line}")


def parse_raw_send(transcript, line):
    """send HEX... [-> RESULT]"""
    frame, _, result = line.partition("->")
    transcript.events.append(("send", hex_bytes(frame)))
    transcript.script.append(f"send {int(result or 0)}")


def parse_raw_recv(transcript, line):
    """recv none, or recv LENGTH HEX..."""
    transcript.events.append(("recv",))
    if line != "none":
        length, _, payload = line.partition(" ")
        line = f"{int(length)} {hex_bytes(payload).hex()}"
    transcript.script.append(f"recv {line}")


def signal_number(name):
    try:
        return signal.Signals["SIG" + name].value
    except KeyError:
        raise BadTranscript(f"no signal SIG{name}") from None


def parse_signal(transcript, name):
    """signal NAME: sent during the platform call above, the last receive of an exchange."""
    verb, *call = transcript.events[-1] if transcript.events else ("nothing",)
    if verb not in ("recv", "call"):
        raise BadTranscript("a signal stands right behind an exchange that waits for an answer, or a call")
    transcript.script.append(f"signal {call[0].split()[0] if call else verb} {signal_number(name)}")


def parse_secret(transcript, text):
    transcript.events.append(("secret", text))
    if f"secret {text.hex()}" not in transcript.script:
        transcript.script.append(f"secret {text.hex()}")


def words_of(text):
    return shlex.split(text, comments=False)


def parse_call(transcript, line):
    """call NAME ARGUMENT... [-> RESULT]"""
    call, _, result = line.partition(" -> ")
    transcript.events.append(("call", " ".join(shown_word(word) for word in split_call(call))))
    if result:
        transcript.script.append(f"result {call.split()[0]} {int(result)}")


def split_call(call):
    """Numbers and bare words as they are, quoted texts as bytes."""
    for match in re.finditer(r'"((?:[^"\\]|\\.)*)"|(\S+)', call):
        yield unescape(match.group(1)) if match.group(1) is not None else match.group(2)


def shown_word(word):
    return repr(word)[1:] if isinstance(word, bytes) else word


def split_path(text):
    """A path, in quotes where it holds blanks, and what follows it."""
    path, rest = re.fullmatch(r'("(?:[^"\\]|\\.)*"|\S+) ?(.*)', text).groups()
    return os.fsdecode(unescape(path[1:-1])) if path.startswith('"') else path, rest


def parse_log(transcript, line):
    """log CLASS MODULE "RECORD" [by "USER"] [from "ORIGIN"]"""
    words = list(split_call(line))
    log_class, module, record = int(words[0]), words[1], words[2]
    module = module if isinstance(module, bytes) else module.encode()
    user, origin = transcript.env.get("LOGNAME", b"unknown"), b"console"
    for name, value in zip(words[3::2], words[4::2]):
        if name == "by":
            user = value
        elif name == "from":
            origin = value
        else:
            raise BadTranscript(f"log ... {name}?")
    transcript.events.append(("log", log_class, user, origin, module, record))
    results = [line for line in transcript.script if line.startswith("result vos_zentro_log ")]
    number = sum(event[0] == "log" for event in transcript.events)
    if number > len(results) or results[number - 1].endswith(" 0"):  # else it is not written
        transcript.told.append(status_lines.Record(log_class, module, record))


@dataclasses.dataclass
class LineCount:
    """Stands for a content of so many lines."""

    count: int

    def __eq__(self, content):
        return isinstance(content, bytes) and content.count(b"\r\n") == self.count and content.endswith(b"\r\n")


def parse_screen(line, line_end=b"\r\n"):
    """TEXT is a line that ends in \\r\\n; "TEXT" is exactly that text."""
    if line.startswith('"'):
        return unescape(line[1 : line.rindex('"')])
    if line != line.rstrip():
        raise BadTranscript(f"blanks at a line's end are easily lost, write |\"...\\r\\n\": {line!r}")
    return line.removeprefix(" ").encode() + line_end


def without_comment(line):
    return re.sub(r"\s+#.*$", "", line)


class Reader:
    """Reads a file of transcripts, separated by blank lines."""

    def __init__(self, path):
        self.path = path
        with open(path, encoding="utf-8") as file:
            self.lines = file.read().split("\n")
        self.at = 0
        self.named_bytes = {}
        self.named_steps = {}

    def with_bytes(self, line):
        """NAME or NAME[FROM:TO] in a line of the wire stands for the bytes that `let` gave it."""

        def looked_up(match):
            name, begin, end = match.groups()
            if name not in self.named_bytes:
                return match.group(0)
            part = slice(int(begin), int(end) if end else None) if begin else slice(None)
            return self.named_bytes[name][part].hex(" ")

        return re.sub(r"\b([A-Z][A-Z0-9_]{2,})\b(?:\[(\d+):(\d*)\])?", looked_up, line)

    def text_block(self, mark):
        block = []
        while True:
            if self.at >= len(self.lines):
                raise BadTranscript(f"no line {mark} ends the text")
            line = self.lines[self.at]
            self.at += 1
            if line == mark:
                return "".join(text + "\n" for text in block).encode()
            block.append(line)

    def value(self, text):
        """ "escaped text", or <<MARK and the lines up to MARK, or nothing."""
        if text.startswith("<<"):
            return self.text_block(text[2:])
        if text.startswith("hex "):
            words = [word.partition("*") for word in text[4:].split()]
            return b"".join(hex_bytes(self.with_bytes(word)) * int(count or 1) for word, _, count in words)
        if text.startswith('"') and text.endswith('"'):
            return unescape(text[1:-1])
        raise BadTranscript(f"neither \"text\" nor <<MARK: {text}")

    def kind_and_value(self, text):
        """What lies at a path: (kind, content)."""
        if text in ("fifo", "folder") or text.startswith(("folder ", "link ", "zeros ")):
            return text, b""
        return "file", self.value(text)

    def packed(self, rest):
        """packed NAME MODE <<MARK, its lines ending in \\r\\n, or "text", or COUNT lines."""
        name, rest = split_path(rest)
        mode, _, value = rest.partition(" ")
        if match := re.fullmatch(r"(\d+) lines", value):
            return ("packed", os.fsencode(name), mode, LineCount(int(match[1])))
        content = self.value(value)
        return ("packed", os.fsencode(name), mode, content.replace(b"\n", b"\r\n") if value.startswith("<<") else content)

    def transcripts(self):
        while self.at < len(self.lines):
            if self.lines[self.at].strip():
                if transcript := self.one():
                    yield transcript
            else:
                self.at += 1

    def one(self):
        first = self.at
        title = []
        while self.at < len(self.lines) and self.lines[self.at].startswith("#"):
            title.append(self.lines[self.at][1:].strip())
            self.at += 1
        transcript = Transcript(" ".join(title), f"{self.path}:{first + 1}")
        taken = False
        while self.at < len(self.lines) and self.lines[self.at].strip():
            line = self.lines[self.at]
            self.at += 1
            try:
                if line.startswith("let "):
                    name, _, value = line[4:].partition(" = ")
                    self.named_bytes[name] = hex_bytes(self.with_bytes(without_comment(value)))
                elif line.startswith("steps "):
                    return self.take_steps(line[6:])
                elif taken or not line.startswith("#"):  # else a comment between names
                    taken = True
                    self.take(transcript, line)
            except (BadTranscript, ValueError, IndexError) as error:
                raise BadTranscript(f"{self.path}:{self.at}: {error}") from error
        if not transcript.commands and taken:
            raise BadTranscript(f"{transcript.where}: no command line")
        return transcript if transcript.commands else None  # else a comment of the file

    def take_steps(self, name):
        self.named_steps[name] = []
        while self.at < len(self.lines) and self.lines[self.at].strip():
            self.named_steps[name].append(self.lines[self.at])
            self.at += 1

    def take(self, transcript, line):
        if line.startswith(">"):
            line = self.with_bytes(line)
        if match := status_lines.MARKED.fullmatch(line):
            mark, code, text = match.groups()
            text = parse_screen(text, b"\n" if transcript.is_state() else b"\r\n")
            transcript.expect_sentence(status_lines.sentence(mark, code, text))
        elif line.startswith("2|"):
            transcript.stderr += parse_screen(line[2:], b"\n")
        elif line.startswith(">>"):
            parse_exchange(transcript, without_comment(line[2:]), patient=True)
        elif line.startswith(">"):
            parse_exchange(transcript, without_comment(line[1:]), patient=False)
        elif line.startswith("$"):
            words = re.sub(r"\{([^{}*]+)\*(\d+)\}", lambda m: m.group(1) * int(m.group(2)), line[1:])
            transcript.commands.append(words_of(words))
        else:
            verb, _, rest = line.partition(" ")
            self.take_word(transcript, verb, rest.strip())

    def take_word(self, transcript, verb, rest):
        if verb == "uid":
            transcript.uid = int(rest)
        elif verb == "env":
            name, _, value = rest.partition("=")
            transcript.env[name] = unescape(value)
        elif verb == "unset":
            transcript.env.pop(rest, None)
        elif verb == "closed":
            transcript.closed = [int(number) for number in rest.split()]
        elif verb == "screen" and rest in ("full", "gone", "file"):
            transcript.screen = rest
            if rest == "file":
                transcript.script.append("screen file")
        elif verb == "umask":
            transcript.umask = int(rest, 8)
        elif verb == "board":
            transcript.board = None if rest == "none" else self.value(rest)
        elif verb in ("file", "wrote"):
            path, value = split_path(rest)
            if verb == "wrote":
                if match := re.match(r"([0-7]+) ", value):
                    transcript.modes[path] = int(match[1], 8)
                    value = value[match.end() :]
                transcript.changed[path] = self.value(value)
            else:
                kind, content = self.kind_and_value(value)
                transcript.files.append((kind, path, content))
        elif verb == "archive":
            path, rest = split_path(rest)
            member, value = split_path(rest)
            kind, content = self.kind_and_value(value)
            transcript.archives.setdefault(path, []).append((kind, member, content))
        elif verb == "cut":
            path, length = split_path(rest)
            transcript.cuts[path] = int(length)
        elif verb in ("owner", "fails", "damaged"):
            transcript.script.append(f"{verb} {rest}")
        elif verb == "event":
            severity, code, *text = rest.split(" ", 2)
            described = ["s:" + self.value(text[0]).hex()] if text else []
            transcript.script.append(" ".join(["event", severity, code, *described]))
        elif verb == "events" and rest == "shown":
            transcript.script.append("events shown")
        elif verb == "packed":
            transcript.events.append(self.packed(rest))
        elif verb == "removed":
            transcript.changed[split_path(rest)[0]] = None
        elif verb == "result":
            call, *values = rest.split()
            transcript.script += [f"result {call} {value}" for value in values]
        elif verb == "real":
            transcript.script.append(f"real {int(rest)}")
        elif verb == "calls" and rest == "shown":
            transcript.calls_shown = True
        elif verb == "call":
            parse_call(transcript, without_comment(rest))
        elif verb == "log":
            parse_log(transcript, rest)
        elif verb == "sleep":
            transcript.expect_sleep(int(rest))
        elif verb == "send":
            parse_raw_send(transcript, without_comment(rest))
        elif verb == "recv":
            parse_raw_recv(transcript, without_comment(rest))
        elif verb in ("keys", "hidden"):
            transcript.events.append(("keys", self.value(rest), verb))
        elif verb == "secret":
            parse_secret(transcript, self.value(rest))
        elif verb == "signal":
            parse_signal(transcript, rest)
        elif verb == "exits":
            transcript.status = int(rest)
        elif verb == "ends":
            transcript.ending = signal_number(rest)
        elif verb == "modes" and rest == "shown":
            transcript.script.append("modes shown")
        elif verb == "mode":
            transcript.events.append(("mode", rest))
        elif verb == "do":
            self.take_named_steps(transcript, rest)
        else:
            raise BadTranscript(f"what is \"{verb}\"?")

    def take_named_steps(self, transcript, line):
        """do NAME, or do NAME for FIRST..LAST: {N*FACTOR:FORMAT} in the steps is the number's multiple."""
        name, first, last = re.fullmatch(r"(.*?)(?: for (\d+)\.\.(\d+))?", line).groups()
        if name not in self.named_steps:
            raise BadTranscript(f"no steps \"{name}\" stand above")
        for number in range(int(first or 0), int(last or 0) + 1):
            for step in self.named_steps[name]:
                step = re.sub(r"\{N\*(\d+):(\w+)\}", lambda m: format(number * int(m[1]), m[2]), step)
                self.take(transcript, step)


# Playing --------------------------------------------------------------------------------------------------------------


@dataclasses.dataclass
class Run:
    events: list
    status: int
    stderr: bytes
    changed: dict
    terminal_changed: bool = False
    late: bool = False
    shown: bytes = b""  # by the terminal, what it echoed included
    modes: dict = dataclasses.field(default_factory=dict)  # path -> mode, of files whose mode is looked at
    told: bytes | None = None  # on the status descriptor; None where there is none


def put_file(root, kind, path, content):
    place = root + path
    os.makedirs(os.path.dirname(place), exist_ok=True)
    if kind == "fifo":
        os.mkfifo(place)
    elif kind.startswith("folder"):
        os.makedirs(place, exist_ok=True)
        os.chmod(place, int(kind[7:] or "755", 8))
    elif kind.startswith("link "):
        os.symlink(kind.split()[1], place)
    else:
        with open(place, "wb") as file:
            file.write(content)
            if kind.startswith("zeros "):
                file.truncate(int(kind.split()[1]))


MEMBER_TYPES = {"file": tarfile.REGTYPE, "folder": tarfile.DIRTYPE, "fifo": tarfile.FIFOTYPE, "link": tarfile.SYMTYPE}


def put_archive(root, path, members):
    content = io.BytesIO()
    with tarfile.open(fileobj=content, mode="w:gz") as archive:
        for kind, member, text in members:
            word, _, more = kind.partition(" ")
            entry = tarfile.TarInfo(member)
            entry.type, entry.size = MEMBER_TYPES[word], len(text)
            entry.linkname = more if word == "link" else ""
            entry.mode = int(more or "755", 8) if word == "folder" else 0o644
            archive.addfile(entry, io.BytesIO(text))
    put_file(root, "file", path, content.getvalue())


def files_below(root):
    """path -> content, or a word for what is no regular file of a sensible size."""
    found = {}
    for folder, inner, names in os.walk(root):
        for name in names + [name for name in inner if os.path.islink(os.path.join(folder, name))]:
            place = os.path.join(folder, name)
            about = os.lstat(place)
            path = place[len(root) :]
            if not stat.S_ISREG(about.st_mode) or about.st_size > 1 << 24:
                found[path] = (about.st_mode, about.st_size)
            else:
                with open(place, "rb") as file:
                    found[path] = file.read()
    return found


def unquote(word):
    return repr(bytes.fromhex(word[2:]))[1:] if word.startswith("s:") else word


def parse_trace(text):
    events = []
    for line in text.decode().splitlines():
        verb, *words = line.split(" ")
        if verb == "send":
            events.append(("send", bytes.fromhex(words[2])))
            if " ".join(words[:2]) != IPMI_SERVICE:
                events.append(("flags and port", " ".join(words[:2])))
        elif verb == "recv":
            events.append(("recv",))
        elif verb == "sleep":
            slept = int(words[0])
            if events and events[-1][0] == "sleep":
                slept += events.pop()[1]
            events.append(("sleep", slept))
        elif verb == "screen":
            shown = bytes.fromhex(words[0])
            if events and events[-1][0] == "screen":
                shown = events.pop()[1] + shown
            events.append(("screen", shown))
        elif verb == "held":
            events.append(("held", bytes.fromhex(words[0][2:]), words[1]))
        elif verb == "packed":
            name, mode, content = words
            events.append(("packed", bytes.fromhex(name[2:]), mode, bytes.fromhex(content[2:])))
        elif verb == "log":
            texts = [bytes.fromhex(word[2:]) for word in words[1:]]
            events.append(("log", int(words[0]), *texts))
        else:
            events.append((verb, " ".join(words[:1] + [unquote(word) for word in words[1:]])))
    return events


def write_to_memory(content=b""):
    file = os.memfd_create("transcript")
    os.write(file, content)
    os.lseek(file, 0, os.SEEK_SET)
    return file


class Terminal:
    """A pseudo-terminal on which keys are typed, each batch once the screen shows what comes before it."""

    def __init__(self, transcript):
        self.main, self.child = os.openpty()
        self.settings = termios.tcgetattr(self.main)
        self.batches = []
        screen = b""
        for event in transcript.events:
            if event[0] == "screen":
                screen += event[1]
            elif event[0] == "keys":
                self.batches.append((screen[-40:].replace(b"\r", b""), *event[1:]))
                screen = b""
        self.shown = b""
        self.seen = b""  # since the last keys

    def is_raw(self):
        return not termios.tcgetattr(self.main)[3] & termios.ICANON

    def type_what_is_due(self):
        # The terminal echoes keys of its own accord and turns \n into \r\n, so only the end of the screen is compared.
        while self.batches and self.seen.replace(b"\r", b"").endswith(self.batches[0][0]):
            if self.batches[0][2] == "hidden" and not self.is_raw():
                return
            _, keys, _ = self.batches.pop(0)
            self.seen = b""
            os.write(self.main, keys)

    def follow(self, process, deadline):
        self.type_what_is_due()
        while process.poll() is None and time.monotonic() < deadline:
            ready, _, _ = select.select([self.main], [], [], 0.01)
            if ready and not self.read():
                return
            self.type_what_is_due()
        while select.select([self.main], [], [], 0)[0] and self.read():
            pass

    def read(self):
        """False = the tool has ended."""
        try:
            shown = os.read(self.main, 65536)
        except OSError:
            return False
        self.shown += shown
        self.seen += shown
        return True


def open_screen(kind):
    """Where standard output goes: a file, a full device, or a pipe that nobody reads."""
    if kind == "full":
        return open("/dev/full", "wb", buffering=0)
    if kind == "gone":
        reader, writer = os.pipe()
        os.close(reader)
        return os.fdopen(writer, "wb")
    return tempfile.TemporaryFile()


def open_status():
    """A pipe with room for all that a run says."""
    reader, writer = os.pipe()
    fcntl.fcntl(writer, fcntl.F_SETPIPE_SZ, 1 << 20)
    return reader, writer


def prepare_process(transcript):
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    os.umask(transcript.umask)
    resource.setrlimit(resource.RLIMIT_DATA, (transcript.data_limit, transcript.data_limit))
    for number in transcript.closed:
        os.close(number)


def start_of(argv, tool, platform, emulator):
    """The command that starts the tool behind the platform, and what the environment has to say for that."""
    if not emulator:
        return tool, argv, {"LD_PRELOAD": platform}
    command = [*shlex.split(emulator), "-0", argv[0], "-E", f"LD_PRELOAD={platform}", tool, *argv[1:]]
    return command[0], command, {}


# What the emulator says of its own when a signal ends the tool.
EMULATOR_LINE = re.compile(rb"^qemu: uncaught target signal \d+ \(.*\) - (?:not )?core dumped\n", re.MULTILINE)


def play(transcript, argv, tool, platform, emulator=""):
    root = tempfile.mkdtemp(prefix="transcript-")
    for folder in ("/data", "/tmp"):
        os.makedirs(root + folder)
    if transcript.board is not None:
        put_file(root, "file", "/data/cli.conf", transcript.board)
    for kind, path, content in transcript.files:
        put_file(root, kind, path, content)
    for path, members in transcript.archives.items():
        put_archive(root, path, members)
    for path, length in transcript.cuts.items():
        os.truncate(root + path, length)
    before = files_below(root)

    script = "\n".join([f"uid {transcript.uid}", f"root {root}", *transcript.script]) + "\n"
    script_fd, trace_fd = write_to_memory(script.encode()), write_to_memory()
    program, command, preload = start_of(argv, tool, platform, emulator)
    env = {**transcript.env, **preload, "SCRIPTED_PLATFORM": f"{script_fd},{trace_fd}"}
    for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"):
        if name in os.environ:
            env[name] = os.environ[name]

    told_fd, status_fd = open_status()
    if transcript.has_status():
        env["CFGTOOL_STATUS_FD"] = str(status_fd)

    typing = any(event[0] == "keys" for event in transcript.events)
    terminal = Terminal(transcript) if typing else None
    deadline = time.monotonic() + TIME_LIMIT_S
    late = False
    with open_screen(transcript.screen) as out, tempfile.TemporaryFile() as err:
        process = subprocess.Popen(
            command,
            executable=program,
            env=env,
            pass_fds=(script_fd, trace_fd, status_fd),
            stdin=terminal.child if terminal else subprocess.DEVNULL,
            stdout=terminal.child if terminal else out,
            stderr=err,
            start_new_session=True,
            preexec_fn=lambda: prepare_process(transcript),
        )
        if terminal:
            os.close(terminal.child)
            terminal.follow(process, deadline)
        try:
            process.wait(max(0.1, deadline - time.monotonic()))
        except subprocess.TimeoutExpired:
            process.send_signal(signal.SIGKILL)
            process.wait()
            late = True
        err.seek(0)
        complaints = EMULATOR_LINE.sub(b"", err.read()) if emulator else err.read()
    terminal_changed = False
    if terminal:
        terminal_changed = termios.tcgetattr(terminal.main) != terminal.settings
        os.close(terminal.main)
    os.close(status_fd)
    with os.fdopen(told_fd, "rb") as reader:
        told = reader.read() if transcript.has_status() else None
    os.lseek(trace_fd, 0, os.SEEK_SET)
    with os.fdopen(trace_fd, "rb") as trace:
        events = parse_trace(trace.read())
    os.close(script_fd)
    after = files_below(root)
    modes = {path: stat.S_IMODE(os.lstat(root + path).st_mode) for path in transcript.modes if path in after}
    shutil.rmtree(root)
    changed = {path: content for path, content in after.items() if before.get(path) != content}
    changed.update({path: None for path in before if path not in after})
    shown = terminal.shown if terminal else b""
    return Run(events, process.returncode, complaints, changed, terminal_changed, late, shown, modes, told)


# Comparing ------------------------------------------------------------------------------------------------------------


def shown(event):
    verb, *rest = event
    if verb == "send":
        return "send " + rest[0].hex(" ").upper()
    if verb in ("screen", "keys"):
        return f"{verb} {repr(rest[0])[1:]}"
    if verb == "log":
        return f"log {rest[0]} " + " ".join(repr(text)[1:] for text in rest[1:])
    return " ".join(str(word) for word in event)


def is_lifecycle(event):
    return event[0] == "call" and (event[1].split()[0] in LIFECYCLE or event[1] == BLACKLIST[0])


def split_lifecycle(events):
    """The calls that frame a run apart from what the command did; the screen's parts join up again."""
    frame, rest = [], []
    for event in events:
        if is_lifecycle(event):
            frame.append(event[1])
        elif event[0] == "screen" and rest and rest[-1][0] == "screen":
            rest[-1] = ("screen", rest[-1][1] + event[1])
        else:
            rest.append(event)
    return frame, rest


def split_secrets(events):
    """The findings of secrets, or where they must end, each behind the number of steps before it; and all else."""
    found, rest, steps = [], [], 0
    for event in events:
        if event[0] in ("secret", "held"):
            found.append((steps, *event[1:]))
        elif rest and rest[-1][0] == event[0] and event[0] in ("screen", "sleep"):
            rest[-1] = (event[0], rest[-1][1] + event[1])
        else:
            rest.append(event)
            steps += event[0] not in ("screen", "keys") and not is_lifecycle(event)
    return found, rest


TRACE_LENGTH = 6  # so many bytes of a secret in a row are a trace of it, as the scripted platform counts


def faults_of_secrets(forgotten, held, terminal):
    faults = []
    for since, secret in forgotten:
        places = [(steps, place) for steps, text, place in held if text == secret and steps >= since]
        faults += [f"{secret} in memory after {steps} steps: {place}" for steps, place in places]
        parts = [secret[n : n + TRACE_LENGTH] for n in range(max(1, len(secret) - TRACE_LENGTH + 1))]
        if any(part in terminal for part in parts):
            faults.append(f"{secret} on the terminal: {terminal}")
    return faults


def difference(expected, actual):
    """Line by line, both ways: "-" what was to happen and did not, "+" what happened and was not to."""
    import difflib

    return [line for line in difflib.ndiff(expected, actual) if not line.startswith("?")]


def beginning(content):
    return repr(content if not isinstance(content, bytes) or len(content) <= 400 else content[:400] + b"...")


def faults_of_status(transcript, told):
    """What is said to programs: what the screen shows, each sentence with its meaning, and the records, in this order."""
    try:
        actual = status_lines.read(told, ends=not transcript.ending)
    except status_lines.Unreadable as error:
        return [f"status descriptor: {error}"]
    arranged = status_lines.in_two if transcript.screen == "file" else status_lines.joined
    expected, actual = arranged(transcript.told), arranged(actual)
    if expected == actual:
        return []
    return ["status descriptor:"] + difference([str(each) for each in expected], [str(each) for each in actual])


def faults_of(transcript, run):
    forgotten, expected = split_secrets(event for event in transcript.events if event[0] != "keys")
    held, actual = split_secrets(run.events)
    faults = faults_of_secrets(forgotten, held, run.shown)
    if not transcript.calls_shown:
        frame, actual = split_lifecycle(actual)
        frame = [call for call in frame if call.split()[0] not in ("KeySearch", "get_mac_num")]
        before, after = transcript.frame()
        wanted = before + ([] if transcript.ending else after)
        if frame != wanted:
            faults += ["start-up and tear-down:"] + difference(wanted, frame)
        _, expected = split_lifecycle(expected)
    if expected != actual:
        faults += difference([shown(event) for event in expected], [shown(event) for event in actual])
    if run.told is not None:
        faults += faults_of_status(transcript, run.told)
    if run.late:
        faults.append(f"still running after {TIME_LIMIT_S} seconds")
    elif run.status != (transcript.status or -transcript.ending):
        faults.append(f"exit status {run.status}")
    if run.stderr != transcript.stderr:
        faults.append(f"standard error: {run.stderr.decode(errors='replace')}")
    if run.terminal_changed:
        faults.append("the terminal was left in another mode")
    for path in sorted(run.changed.keys() | transcript.changed.keys()):
        if path not in transcript.changed:
            faults.append(f"file {path} was changed: {beginning(run.changed[path])}")
        elif path not in run.changed:
            faults.append(f"file {path} was not changed")
        elif run.changed[path] != transcript.changed[path]:
            faults.append(f"file {path} holds {beginning(run.changed[path])}")
        elif path in transcript.modes and run.modes[path] != transcript.modes[path]:
            faults.append(f"file {path} has mode {run.modes[path]:o}")
    return faults


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--tool", required=True)
    options.add_argument("--platform", required=True)
    options.add_argument("--only", default="")
    options.add_argument("--trace", action="store_true")
    options.add_argument("--no-search", action="store_true", help="for secrets in memory")
    options.add_argument("--emulator", default="", metavar="COMMAND", help="what runs a tool of another machine")
    options.add_argument("files", nargs="+")
    chosen = options.parse_args()
    tool, platform = os.path.abspath(chosen.tool), os.path.abspath(chosen.platform)

    passed = failed = 0
    for path in chosen.files:
        for transcript in Reader(path).transcripts():
            if chosen.only not in transcript.title:
                continue
            if chosen.no_search:
                transcript.script = [line for line in transcript.script if not line.startswith("secret ")]
            for argv in transcript.commands:
                run = play(transcript, argv, tool, platform, chosen.emulator)
                command = "$ " + shlex.join(argv)[:100]
                if chosen.trace:
                    print(f"# {transcript.title}", command, *(shown(event) for event in run.events), sep="\n  ")
                if faults := faults_of(transcript, run):
                    failed += 1
                    print(f"FAILED {transcript.where}: {transcript.title}", command, *faults, sep="\n    ")
                else:
                    passed += 1
    print(f"{passed} runs as written, {failed} not")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except BadTranscript as error:
        sys.exit(str(error))
