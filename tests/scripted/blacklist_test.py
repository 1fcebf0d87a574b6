#!/usr/bin/python3
"""A blacklist larger than the memory that the tool may take is read to its end, be it many lines or one.

CFGTOOL names the tool, SCRIPTED_PLATFORM_LIBRARY the platform in front of it."""

import os
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
import transcript as runner

MEMORY = 16 << 20
SIZE = 2 * MEMORY


class Blacklist(unittest.TestCase):
    def shows(self, blacklist):
        """What "-t fru0" shows: the dataitems of a target, or an error where the blacklist has disabled it."""
        words = ["cfgtool", "-t", "fru0"]
        asked = runner.Transcript("a large blacklist", "", data_limit=MEMORY, files=[("file", "/data/blacklist", blacklist)])
        run = runner.play(asked, words, os.environ["CFGTOOL"], os.environ["SCRIPTED_PLATFORM_LIBRARY"])
        self.assertEqual((run.status, run.stderr, run.late), (0, b"", False))
        return b"".join(event[1] for event in run.events if event[0] == "screen")

    def test_of_many_lines(self):
        line = b"cfgtool  -d a line that disables nothing\n"
        lines = line * (SIZE // len(line))
        self.assertIn(b"powerstate", self.shows(lines))
        self.assertIn(b"input parameter[-t] error", self.shows(lines + b"cfgtool -t fru0"))

    def test_of_one_line(self):
        line = b"cfgtool -t " + SIZE * b"x"
        self.assertIn(b"powerstate", self.shows(line))
        self.assertIn(b"input parameter[-t] error", self.shows(line + b"fru0"))


if __name__ == "__main__":
    unittest.main()
