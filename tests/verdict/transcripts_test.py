#!/usr/bin/python3
"""Every transcript's screen, read by cfgtool-verdict, against what the transcript itself says of the outcome: its
records, whose event codes the document has to name, and the answers to its requests.

    CFGTOOL_VERDICT=build/bin/cfgtool-verdict tests/verdict/transcripts_test.py
"""

import dataclasses
import functools
import glob
import json
import os
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
sys.path.insert(0, os.path.dirname(HERE))
import transcript as transcripts  # noqa: E402

VERDICT = os.environ["CFGTOOL_VERDICT"]
STATUS = {"done": 0, "failed": 1, "refused": 2, "unknown": 3}

@dataclasses.dataclass
class Exchange:
    netfn: int
    command: int
    data: bytes
    answer: bytes | None = None  # completion code and data; None = there is none that counts


@dataclasses.dataclass
class Case:
    title: str
    where: str
    words: list[str]
    screen: bytes
    records: list[str]
    exchanges: list[Exchange]
    has_blacklist: bool  # which changes what names mean


def answer_in(frame: bytes, line: str) -> bytes | None:
    """Of "recv LENGTH HEX" what belongs to the request."""
    _, length, payload = line.split()
    answer = bytes.fromhex(payload)
    asked = ((frame[1] >> 2) + 1, frame[0], frame[4] >> 2, frame[5])
    belongs = (answer[1] >> 2, answer[3], answer[4] >> 2, answer[5]) == asked
    return answer[6:-1] if belongs and 0 < int(length) <= 1024 else None


def exchanges_of(transcript: transcripts.Transcript) -> list[Exchange]:
    """What is sent and what comes of it, from what the scripted platform is told."""
    frames = [event[1] for event in transcript.events if event[0] == "send"]
    found: dict[int, Exchange] = {}
    sent = -1
    for line in transcript.script:
        if line.startswith("send "):
            sent += 1
            frame = frames[sent]
            found.setdefault(frame[4], Exchange(frame[1] >> 2, frame[5], frame[6:-1]))
        elif line.startswith("recv ") and line != "recv none" and sent >= 0:
            found[frames[sent][4]].answer = answer_in(frames[sent], line)
    return list(found.values())


def cases() -> list[Case]:
    found = []
    for path in sorted(glob.glob(os.path.join(ROOT, "tests/transcripts/*/*.t"))):
        for each in transcripts.Reader(path).transcripts():
            if each.ending or each.screen or 1 in each.closed:
                continue  # nothing can be read of these
            screen = b"".join(event[1] for event in each.events if event[0] == "screen")
            records = [event[5].decode("latin-1") for event in each.events if event[0] == "log"]
            has_blacklist = "/data/blacklist" in [file[1] for file in each.files]
            for words in each.commands:
                found.append(
                    Case(each.title, each.where, words[1:], screen, records, exchanges_of(each), has_blacklist)
                )
    return found


def command_words(words: list[str]) -> tuple[str, ...]:
    """Without the values: they mean nothing for the verdict."""
    return tuple(words[: words.index("-d") + 2] if "-d" in words else words)


@functools.lru_cache(maxsize=None)
def read(words: tuple[str, ...], shown: bytes, screen: str, tool: str) -> dict:
    with open(screen, "wb") as file:
        file.write(shown)
    run = subprocess.run(
        [VERDICT, "--tool", tool, "--", *words],
        capture_output=True,
        stdin=subprocess.DEVNULL,
        env={"SCREEN": screen, "PATH": os.environ["PATH"]},
    )
    document = json.loads(run.stdout.decode("utf-8"))
    assert run.stderr == shown, "the text is not handed on as it is"
    assert run.returncode == STATUS[document["verdict"]], "the status is another than the verdict"
    return document


# What a transcript says of its outcome --------------------------------------------------------------------------------

Command = tuple[str | None, str | None]  # target and dataitem

# These record nothing. They have succeeded when this request has, and all between its brackets.
WITHOUT_RECORD: dict[Command, tuple[int, int]] = {
    (None, "bioswriteprotect"): (0x00, 0x08),
    (None, "ipmctime"): (0x0A, 0x49),
    ("led", "ledstate"): (0x2C, 0x07),
}

# These record each step. The last one's record holds:
LAST_RECORD: dict[Command, str] = {
    ("eth0", "ipaddr"): "submask|address source",
    ("eth0", "ipaddr6"): "prefix length|address source",
    (None, "upgrade"): "Finish",
}

# These record a success whatever happens. Without a failure on the way they say:
WITHOUT_FAILURE: dict[Command, bytes] = {
    ("maintenance", "readeeprom"): rb"[.\r\n]+Read eeprom to file /tmp/eeprom.bin successfully.\r\n",
    ("maintenance", "zntool"): rb"Collecting\.\.\.\r\n((enum_files: path.* > 10|Select OutTime )\r\n)*\r\n",
}

# What cfgtool does not tell, by the transcript's claim.
NOT_TOLD = [
    "frucontrol 0: n says nothing and leaves the option's record",
    "frucontrol 2: a capital N says nothing and leaves the option's record",
    "frucontrol 0: any other refusal is only recorded",
    "frucontrol 2: any other refusal is only recorded",
    "powerstate: n says nothing, and leaves the same record whatever the option",
    "powerstate: a capital N and whatever follows it is a no",
    "powerstate 0: any other refusal is only recorded",
    "powerstate 1: any other refusal is only recorded",
    "powerstate 2: any other refusal is only recorded",
    "printscreen: what is not answered is recorded as done, but not said to be",
    "printscreen: what is not sent is recorded as done, but not said to be",
    "serialdir: 2 is taken, and nothing is done, said or recorded",
    "shutdowntimeout: a time that is not answered is not told, only closed",
    "shutdowntimeout: a time that is not sent is not told, only closed",
    "trap port: a close that is refused leaves a port that is written, recorded and not told",
    "trap port: a close that is not answered does too",
    "trap port: and one that is not sent",
    "and without a dataitem nothing is printed",
]


def is_gate_or_bracket(exchange: Exchange) -> bool:
    request = (exchange.netfn, exchange.command)
    return request == (0x06, 0x44) or (request, exchange.data[:2]) in (
        ((0x0C, 0x01), b"\1\0"),
        ((0x00, 0x08), b"\0\0"),
        ((0x00, 0x08), b"\0\1"),
    )


def is_finished_without_reboot(case: Case) -> bool:
    """Of upgrade, whose end is recorded by the reboot only: the controller has said that it is finished."""
    finished = 3
    status = case.exchanges[-1].answer or b"" if case.exchanges else b""
    return case.words[-1] == "0" and status[:1] == b"\0" and status[5:6] == bytes([finished])


def is_answered(exchange: Exchange) -> bool:
    return exchange.answer is not None and exchange.answer[:1] in (b"", b"\0")


def succeeded(case: Case, command: Command) -> bool:
    if command == (None, "upgrade") and is_finished_without_reboot(case):
        return True
    if command in WITHOUT_RECORD:
        own = [exchange for exchange in case.exchanges if not is_gate_or_bracket(exchange)]
        asked = {(exchange.netfn, exchange.command) for exchange in own}
        return WITHOUT_RECORD[command] in asked and all(is_answered(exchange) for exchange in own)
    if not case.records or not case.records[-1] or re.search(r"\bfail", case.records[-1]):
        return False
    if command in WITHOUT_FAILURE and re.fullmatch(WITHOUT_FAILURE[command], case.screen) is None:
        return False
    return re.search(LAST_RECORD.get(command, ""), case.records[-1]) is not None


def expected(case: Case, command: Command) -> set[str]:
    """The verdicts that the transcript allows."""
    if case.title in NOT_TOLD:
        return {"unknown"}
    if succeeded(case, command):
        return {"done"}
    if re.search(r"\bn says nothing|\bN says nothing", case.title):
        return {"refused"}
    if command != (None, None) and not case.exchanges and not case.records and command[0] != "maintenance":
        return {"refused"}
    return {"failed", "refused"}


# Sentences ------------------------------------------------------------------------------------------------------------

# No transcript shows these: what eth1 and smbios say, which no command line reaches, and what memory or a caller in the
# tool must be wrong for.
NEVER_SHOWN = [
    "\r\ninput parameter<-d> error",
    "Eth1 can not been enabled or disabled!",
    "Get sdr fail.",
    "IPCheck:go here2!",
    "Make sure one network port enabled at least!",
    "Set eth1 state failed, error code: 0x%X",
    "Set eth1 state success.",
    "Set smbios serial number failed, error code: 0x%X",
    "Set smbios serial number successfully.",
    "ipmi_sdr_find_sdr_byid: malloc failure",
    "malloc failed!",
    "set_trap_dest_state:str_buf is null ptr!",
    "set_trap_state:str_buf is null ptr!",
]


def shape_of(sentence: str) -> re.Pattern[bytes]:
    wildcards = {"s": ".*", "d": " *-?[0-9]+", "u": "[0-9]+", "x": "[0-9a-f]+", "X": "[0-9A-F]+", "%": "%"}
    parts = re.split("(%[-0-9.*]*[a-zA-Z]|%%)", sentence)
    shapes = [wildcards[part[-1]] if n % 2 else re.escape(part) for n, part in enumerate(parts)]
    return re.compile("".join(shapes).encode())


def unmet_sentences(screens: list[bytes]) -> list[str]:
    """The sentences of results that none of the screens shows."""
    with open(os.path.join(ROOT, "words/words.json"), encoding="utf-8") as file:
        sentences = json.load(file)["sentences"]
    results = {row["text"] for row in sentences if row["verdict"] in ("done", "failed", "refused")}
    shown = b"\0".join(screens)
    return sorted(text for text in results if shape_of(text).search(shown) is None)


# ----------------------------------------------------------------------------------------------------------------------


def main() -> int:
    with tempfile.TemporaryDirectory() as folder:
        tool = os.path.join(folder, "cfgtool")
        with open(tool, "w", encoding="utf-8") as file:
            file.write('#!/bin/sh\nexec cat "$SCREEN"\n')
        os.chmod(tool, 0o755)
        faults = 0
        all_cases = cases()
        if (unmet := unmet_sentences([case.screen for case in all_cases])) != sorted(NEVER_SHOWN):
            print("Not as listed, these sentences are met with in no transcript:", *unmet, sep="\n    ")
            faults += 1
        for case in all_cases:
            document = read(command_words(case.words), case.screen, os.path.join(folder, "screen"), tool)
            command = (document["target"], document["dataitem"])
            if document["verdict"] not in (allowed := expected(case, command)):
                print(f"{case.where}: {document['verdict']}, not {' or '.join(sorted(allowed))}: {case.title}")
                print(case.screen.decode("latin-1"))
                faults += 1
            recorded = set(re.findall("EvtCode:(0x[0-9A-F]{8})", " ".join(case.records)))
            untold = recorded - set(document["event_codes"])
            if untold and not case.has_blacklist:
                print(f"{case.where}: {document['verdict']}, recorded but not in event_codes: {untold}: {case.title}")
                faults += 1
    return int(faults > 0)


if __name__ == "__main__":
    sys.exit(main())
