"""What a run says to programs, line by line on its status descriptor (docs/status.md), against what its transcript says."""

import dataclasses
import re

# What stands in front of a text of the screen, and what it means.
MEANINGS = {
    "": "information",
    "done": "done",
    "fail": "failed",
    "refuse": "refused",
    "usage": "usage",
    "confirm": "confirm",
    "hidden": "hidden",
}
MARKED = re.compile(rf"({'|'.join(MEANINGS)})(?: ([0-9A-F]{{8}}|none))?\|(.*)")


@dataclasses.dataclass(frozen=True)
class Sentence:
    meaning: str
    code: int  # 0 for none
    text: bytes

    def __str__(self):
        mark = next(mark for mark, meaning in MEANINGS.items() if meaning == self.meaning)
        return f"{mark}{f' {self.code:08X}' if self.code else ''}| {repr(self.text)[1:]}"


@dataclasses.dataclass(frozen=True)
class Record:
    log_class: int
    module: bytes
    text: bytes

    def __str__(self):
        return f"record {self.log_class} {repr(self.module)[1:]} {repr(self.text)[1:]}"


def sentence(mark, stated, text):
    """As a transcript has it. The error code is the one stated, else what the text of a failure or refusal shows."""
    if stated:
        return Sentence(MEANINGS[mark], 0 if stated == "none" else int(stated, 16), text)
    shown = re.findall(rb"error code: ?0x([0-9A-F]{1,8})\b", text) if mark in ("fail", "refuse") else []
    return Sentence(MEANINGS[mark], int(shown[-1], 16) if shown else 0, text)


def unescape(field):
    def byte(match):
        letter = match[1]
        return bytes([int(letter[1:], 16)]) if letter.startswith(b"x") else {b"\\": b"\\", b"t": b"\t", b"r": b"\r",
                                                                            b"n": b"\n"}[letter]

    return re.sub(rb"\\(x[0-9A-F]{2}|.)", byte, field)


class Unreadable(Exception):
    pass


def read(lines, ends=True):
    """The sentences and records of a run. `ends` says whether it comes to its end by itself."""
    if not lines.endswith(b"\n"):
        raise Unreadable("the last line has no end")
    first, *between = [[unescape(field) for field in line.split(b"\t")] for line in lines[:-1].split(b"\n")]
    if first != [b"version", b"1"]:
        raise Unreadable("the version does not come first")
    if ends and (not between or between.pop() != [b"end"]):
        raise Unreadable("there is no end")
    told = []
    for kind, *fields in between:
        if kind == b"record" and len(fields) == 3:
            told.append(Record(int(fields[0]), *fields[1:]))
        elif kind.decode() in MEANINGS.values() and len(fields) == 2 and re.fullmatch(rb"(0x[0-9A-F]{8})?", fields[0]):
            told.append(Sentence(kind.decode(), int(fields[0] or b"0", 16), fields[1]))
        elif kind != b"command" or len(fields) != 2:
            raise Unreadable(f"what is {kind} {fields}?")
    return told


def joined(told):
    """Neighbours that mean the same make one: a transcript has a line for each line of the screen."""
    found = []
    for each in told:
        last = found[-1] if found else None
        if isinstance(each, Sentence) and isinstance(last, Sentence) and each.text and last.text:
            if (each.meaning, each.code) == (last.meaning, last.code):
                found[-1] = Sentence(each.meaning, each.code, last.text + each.text)
                continue
        found.append(each)
    return found


def in_two(told):
    """Where the screen shows late, only the order among sentences and that among records can be compared."""
    return [each for kind in (Sentence, Record) for each in joined(one for one in told if isinstance(one, kind))]
