#!/usr/bin/python3
"""The search for secrets in the tool's memory finds them: a stand-in for the tool leaves one in every sort of place.

LEAKING_TOOL and SCRIPTED_PLATFORM_LIBRARY name the two programs, EMULATOR what runs them if they are another machine's."""
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

RUNNER = Path(__file__).resolve().parents[1] / "transcript.py"
SECRET = "Sesame-1"
WORD = "".join(chr(ord(letter) ^ 1) for letter in SECRET)


class secrets(unittest.TestCase):
    def play(self, place, *events):
        """Whether a transcript of these events goes as written, and what the runner says."""
        with tempfile.NamedTemporaryFile("w", suffix=".t") as transcript:
            print("# a secret", f"$ tool {place} {WORD}", *events, sep="\n", file=transcript, flush=True)
            tool, platform = os.environ["LEAKING_TOOL"], os.environ["SCRIPTED_PLATFORM_LIBRARY"]
            emulator = ["--emulator", os.environ.get("EMULATOR", "")]
            words = [sys.executable, RUNNER, "--tool", tool, "--platform", platform, *emulator, transcript.name]
            run = subprocess.run(words, stdout=subprocess.PIPE, text=True)
        return run.returncode == 0, run.stdout

    def assert_found(self, place, *events, where, times=None):
        good, output = self.play(place, *events)
        self.assertFalse(good, output)
        self.assertIn(f"b'{SECRET}' in memory {where}", output)
        if times:
            self.assertEqual(output.count(f"b'{SECRET}' in memory"), times, output)

    def test_a_copy_that_stays(self):
        # Four platform calls follow: the sleep, and three when the static copy is wiped.
        self.assert_found("static", f'secret "{SECRET}"', "sleep 1000", where="after 0 steps: ", times=1)
        self.assert_found("heap", f'secret "{SECRET}"', "sleep 1000", where="after 1 steps: ", times=4)

    def test_memory_given_back(self):
        self.assert_found("freed", f'secret "{SECRET}"', "sleep 1000", where="after 1 steps: ", times=4)
        # until later calls overwrite it
        self.assert_found("stack", f'secret "{SECRET}"', "sleep 1000", where="after 0 steps: [stack]")

    def test_six_characters_are_a_trace(self):
        for place in ("start", "middle"):
            self.assert_found(place, f'secret "{SECRET}"', "sleep 1000", where="after 0 steps: ", times=1)

    def test_five_characters_are_none(self):
        good, output = self.play("little", f'secret "{SECRET}"', "sleep 1000")
        self.assertTrue(good, output)

    def test_what_stands_above_the_line_may_hold_it(self):
        good, output = self.play("static", "sleep 1000", f'secret "{SECRET}"')
        self.assertTrue(good, output)
        self.assert_found("heap", "sleep 1000", f'secret "{SECRET}"', where="after 1 steps: ", times=3)

    def test_nothing_is_found_where_nothing_is(self):
        good, output = self.play("wiped", f'secret "{SECRET}"', "sleep 1000")
        self.assertTrue(good, output)

    def test_a_process_that_others_may_look_into(self):
        good, output = self.play("dumpable", f'secret "{SECRET}"', 'hidden "y"', "sleep 1000")
        self.assertFalse(good, output)
        self.assertIn("+ dumpable", output)

    def test_a_terminal_that_shows_it(self):
        good, output = self.play("shown", f'secret "{SECRET}"', f'keys "{SECRET}\\n"', "sleep 1000")
        self.assertFalse(good, output)
        self.assertIn(f"b'{SECRET}' on the terminal", output)


if __name__ == "__main__":
    unittest.main()
