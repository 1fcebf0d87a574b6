#!/usr/bin/python3
"""A signal at every exchange inside every bracket that a transcript opens: the bracket is closed, then the tool ends. The
same while the add-user lock is held: its file is removed.

TOOL and SCRIPTED_PLATFORM_LIBRARY name the two programs. Of the exchanges under the lock each EVERYth is played: a number
that takes another one in each transcript."""
import copy
import itertools
import os
import signal
import unittest
from pathlib import Path

from session import PLATFORM, TOOL, runner

EVERY = int(os.environ.get("EVERY", "29"))
FOLDER = Path(__file__).resolve().parents[1] / "transcripts"
SIGNALS = itertools.cycle([signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGQUIT, signal.SIGUSR2])
OPENED, ALREADY_OPEN = 0x00, 0x81
BRACKETS = {  # of each request: the byte that makes it a bracket, and where that and "open or close" stand
    (0x00, 0x08): (0x00, 0, 1),  # boot options
    (0x0C, 0x01): (0x00, 1, 2),  # LAN parameters
    (0x30, 0x90): (0x20, 0, 4),  # SMBIOS data
}


def bracket_step(frame):
    """Whether a request opens (1) or closes (0) a bracket; None for all others."""
    parameter, place, step = BRACKETS.get((frame[1] >> 2, frame[5]), (None, 0, 0))
    data = frame[6:-1]
    return data[step] if len(data) > step and data[place] == parameter else None


def completion_code(line):
    """Of a receive in the scripted platform's words."""
    words = line.split()
    return bytes.fromhex(words[2])[6] if words[1] != "none" and len(words) > 2 and len(words[2]) > 12 else None


def receives_in_brackets(transcript):
    """Places in the platform's script of the receives from the opening of a bracket to its closing."""
    receives = [place for place, line in enumerate(transcript.script) if line.startswith("recv ")]
    places, step, is_open = [], None, False
    for event in transcript.events:
        if event[0] == "send":
            step = bracket_step(event[1])
        elif event[0] == "recv":
            place = receives.pop(0)
            if step == 1 and completion_code(transcript.script[place]) in (OPENED, ALREADY_OPEN):
                is_open = True
            if is_open:
                places.append(place)
            if step == 0:
                is_open = False
    return places


def receives_under_lock(transcript):
    receives = [place for place, line in enumerate(transcript.script) if line.startswith("recv ")]
    places, is_locked = [], False
    for event in transcript.events:
        if event[0] == "call" and event[1].startswith("lock "):
            is_locked = True
        elif event == ("call", "unlock"):
            is_locked = False
        elif event[0] == "recv":
            place = receives.pop(0)
            if is_locked:
                places.append(place)
    return places


def with_signal(transcript, place, number):
    changed = copy.deepcopy(transcript)
    changed.script.insert(place + 1, f"signal recv {number.value}")
    changed.ending = number.value
    return changed


PROMPT = b"Password:"


def up_to_next_prompt(transcript):
    """After the add-user lock a user who has a name is asked for a password."""
    events, told = transcript.events, transcript.told
    shown = (n for n, event in enumerate(events) if event[0] == "screen" and event[1].startswith(PROMPT))
    transcript.events = events[: next(shown, None)]
    asked = (n for n, each in enumerate(told) if each.text == PROMPT)
    transcript.told = told[: next(asked, None)]


class brackets(unittest.TestCase):
    def play(self, changed, receive):
        with self.subTest(transcript=changed.where, receive=receive, signal=changed.ending):
            run = runner.play(changed, changed.commands[0], TOOL, PLATFORM)
            self.assertEqual(runner.faults_of(changed, run), [])

    def test_every_transcript(self):
        played = 0
        for path in sorted(FOLDER.glob("*/*.t")):
            for transcript in runner.Reader(path).transcripts():
                for place in receives_in_brackets(transcript) if not transcript.ending else []:
                    self.play(with_signal(transcript, place, next(SIGNALS)), transcript.script[place])
                    played += 1
        self.assertGreater(played, 100)

    def test_the_add_user_lock(self):
        transcripts = [each for each in runner.Reader(FOLDER / "user/adduser.t").transcripts() if not each.ending]
        places = [(each, place) for each in transcripts for place in receives_under_lock(each)]
        self.assertGreater(len(places), 1000)
        for transcript, place in places[::EVERY]:
            changed = with_signal(transcript, place, next(SIGNALS))
            up_to_next_prompt(changed)
            self.play(changed, transcript.script[place])


if __name__ == "__main__":
    unittest.main()
