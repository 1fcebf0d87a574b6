#!/usr/bin/env python3
"""What is delivered is hardened: seen on the built files, and for what leaves no trace there, on how they were compiled."""
import argparse
import json
import os
import re
import shlex
import stat
import subprocess
import sys
import unittest

arguments = argparse.ArgumentParser()
arguments.add_argument("--source", required=True)
arguments.add_argument("--build", required=True)
arguments.add_argument("--library", required=True)
arguments.add_argument("programs", nargs="+")
given = arguments.parse_args()

delivered_folders = re.compile(r"(cfgtool|platform|ipmcd|state|verdict)/")


def readelf(option, path):
    return subprocess.run(["readelf", "-W", option, path], check=True, capture_output=True, text=True).stdout


def segments(path):
    """(type, flags) of each program header."""
    rows = re.findall(r"^ +([A-Z_]+) +0x\w+ 0x\w+ 0x\w+ 0x\w+ 0x\w+ ([RWE ]{3}) ", readelf("-l", path), re.MULTILINE)
    return [(kind, flags.replace(" ", "")) for kind, flags in rows]


def imported(path):
    return set(re.findall(r" UND (\w+)", readelf("--dyn-syms", path)))


def compilations():
    """(file, flags) of each delivered source."""
    with open(os.path.join(given.build, "compile_commands.json"), encoding="utf-8") as commands:
        for entry in json.load(commands):
            name, flags = os.path.relpath(entry["file"], given.source), shlex.split(entry["command"])
            if delivered_folders.match(name) and not flags[flags.index("-o") + 1].startswith("tests/"):
                yield name, flags


class Hardening(unittest.TestCase):
    def of_each(self, paths=None):
        for path in paths or [given.library, *given.programs]:
            with self.subTest(os.path.basename(path)):
                yield path

    def test_programs_can_be_loaded_anywhere(self):
        for path in self.of_each(given.programs):
            self.assertRegex(readelf("-h", path), r"Type: +DYN")
            self.assertRegex(readelf("-d", path), r"\(FLAGS_1\).*\bPIE\b")

    def test_tables_of_addresses_are_read_only(self):
        for path in self.of_each():
            self.assertIn(("GNU_RELRO", "R"), segments(path))
            self.assertRegex(readelf("-d", path), r"\(FLAGS_1\).*\bNOW\b")

    def test_what_can_be_written_cannot_be_executed(self):
        for path in self.of_each():
            self.assertIn(("GNU_STACK", "RW"), segments(path))
            self.assertFalse([flags for _, flags in segments(path) if "W" in flags and "E" in flags])

    def test_there_are_guard_words_and_checked_buffers(self):
        for path in self.of_each():
            names = imported(path)
            self.assertIn("__stack_chk_fail", names)
            self.assertTrue([name for name in names if re.fullmatch(r"__\w+_chk", name)], names)

    def test_no_program_runs_as_its_owner(self):
        for path in self.of_each():
            self.assertFalse(os.stat(path).st_mode & (stat.S_ISUID | stat.S_ISGID))

    def test_each_source_is_compiled_so(self):
        seen = 0
        for name, flags in compilations():
            seen += 1
            with self.subTest(name):
                self.assertIn("-fstack-protector-strong", flags)
                self.assertIn("-fstack-clash-protection", flags)
                self.assertIn("-D_FORTIFY_SOURCE=3", flags)
                self.assertTrue({"-fPIC", "-fPIE"} & set(flags))
        self.assertGreater(seen, 60)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
