#!/usr/bin/python3
"""The manual pages against the tool: every dataitem, event code and sentence, every example, and mandoc's opinion.

DESK_BUILD names the build folder (default: build in the repository).
"""

import functools
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("DESK_BUILD", REPOSITORY / "build"))
SOURCES = sorted((REPOSITORY / "man").glob("*.scd"))
PROMPT = "$ "
ALL_SKIPPED = 77

sys.path.insert(0, str(REPOSITORY / "tests"))
import transcript as runner  # noqa: E402

# What the tool is ------------------------------------------------------------------------------------------------------


def read_dataitems():
    """{target, or - : its dataitems}, in the order of the listings."""
    rows = {}
    for line in (REPOSITORY / "completions/dataitems").read_text().splitlines():
        if not line.startswith(("#", "target\t")):
            target, name, _ = line.split("\t")
            rows.setdefault(target, []).append(name)
    return rows


def meant_by(text, names):
    """A name, or a beginning that no other has."""
    fitting = [name for name in names if name.startswith(text)]
    return text if text in names else fitting[0] if len(fitting) == 1 else None


def command_of(words):
    """(target, dataitem) of a command line; None when it is none."""
    match words:
        case ["cfgtool", "-t", text, "-d", item, *_]:
            target = meant_by(text, DATAITEMS)
        case ["cfgtool", "-d", item, *_]:
            target = "-"
        case _:
            return None
    item = meant_by(item, DATAITEMS.get(target, []))
    return (target, item) if item else None


def screen_of(transcript):
    """What the terminal shows: the tool's words and the keys that are echoed."""
    parts = {"screen": lambda event: event[1], "keys": lambda event: event[1] if event[2] == "keys" else b""}
    shown = b"".join(parts[event[0]](event) for event in transcript.events if event[0] in parts)
    return shown.decode(errors="replace").replace("\r\n", "\n")


@functools.cache
def transcripts_in(path):
    """All but those of a blacklist, which changes what names mean."""
    every = runner.Reader(str(path)).transcripts()
    return [transcript for transcript in every if "/data/blacklist" not in [file[1] for file in transcript.files]]


def all_transcripts():
    for path in TRANSCRIPTS:
        yield from transcripts_in(path)


DATAITEMS = read_dataitems()
TRANSCRIPTS = sorted((REPOSITORY / "tests/transcripts").rglob("*.t"))

# What the pages say ----------------------------------------------------------------------------------------------------


def plain(text):
    """Without marks and indentation, on one line."""
    return re.sub(r"\s+", " ", re.sub(r"[*\\]|\+\+$", "", text, flags=re.MULTILINE)).strip()


def read_entries():
    """{(target, dataitem): what the page says of it, the headings in front}"""
    entries = {}
    page = (REPOSITORY / "man/cfgtool.8.scd").read_text()
    for headings, body in re.findall(r"^((?:\*-[td] .*\n)+)((?:\t.*\n)+)", page, re.M):
        for line in headings.splitlines():
            words = plain(line).replace("[", "").split()
            if command := command_of(["cfgtool", *words]):
                entries[command] = plain(headings + body)
    return entries


def event_codes(text, mark=""):
    return set(re.findall(mark + r"(0x[0-9A-F]{8})", text))


def examples_of(page):
    """(line number, command, lines that it shows) of the examples of a page."""
    steps = []
    inside = False
    for number, line in enumerate(page.read_text().splitlines(), 1):
        if line == "```":
            inside = not inside
        elif inside and line.startswith(PROMPT):
            steps.append((number, line[len(PROMPT) :], []))
        elif inside:
            steps[-1][2].append(line.rstrip())
    return steps


def in_transcripts(command, shown):
    for path in TRANSCRIPTS:
        if f"$ {command}\n" in path.read_text():
            for transcript in transcripts_in(path):
                screen = [line.rstrip() for line in screen_of(transcript).splitlines()]
                if screen == shown and command in [" ".join(words) for words in transcript.commands]:
                    return True
    return False


class texts(unittest.TestCase):
    """What cfgtool(8) says of the dataitems."""

    def test_every_dataitem_has_an_entry_and_there_are_no_others(self):
        every = {(target, name) for target, names in DATAITEMS.items() for name in names}
        self.assertEqual(every, set(read_entries()))

    def test_an_entry_has_the_event_codes_of_its_dataitem(self):
        logged = {}
        for transcript in all_transcripts():
            records = b" ".join(event[-1] for event in transcript.events if event[0] == "log").decode()
            for words in transcript.commands:
                logged.setdefault(command_of(words), set()).update(event_codes(records, "EvtCode:"))
        for command, text in read_entries().items():
            with self.subTest(command=command):
                self.assertEqual(event_codes(text), self.of_all_forms(logged, command))

    def test_what_an_entry_quotes_is_what_the_dataitem_shows(self):
        shown = {}
        for transcript in all_transcripts():
            for words in transcript.commands:
                shown.setdefault(command_of(words), set()).add(plain(screen_of(transcript)))
        for command, text in read_entries().items():
            screens = self.of_all_forms(shown, command)
            for sentence in re.findall(r'"([^"]+)"', text):
                with self.subTest(command=command, sentence=sentence):
                    self.assertTrue(any(sentence in screen for screen in screens))

    def test_an_entry_has_the_values_of_its_dataitem(self):
        entries = read_entries()
        for line in (REPOSITORY / "completions/values").read_text().splitlines():
            if not line.startswith("#"):
                target, name, *columns = re.split("  +", line)
                for word in [choice.partition("=")[0] for column in columns for choice in column.split("|")]:
                    if not word.isupper():  # what stands for any
                        self.assertRegex(entries[target, name], rf"(?<!\w){re.escape(word)}(?!\w)", line)

    def of_all_forms(self, known, command):
        """Of all dataitems that share the entry, as those of fru0 and of the top level do."""
        entries = read_entries()
        return set().union(*(known.get(other, set()) for other, text in entries.items() if text == entries[command]))


class examples(unittest.TestCase):
    """Those that no transcript holds are played at a desk."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="man-test-", dir=BUILD))  # where a desk sees it
        self.addCleanup(shutil.rmtree, self.folder)

    def test_there_are_examples(self):
        self.assertEqual([page.name for page in SOURCES if not examples_of(page)], [])

    def play(self, name):
        steps = [step for step in examples_of(REPOSITORY / "man" / name) if not in_transcripts(*step[1:])]
        session = self.folder / "page.session"
        text = []
        for number, command, shown in steps:
            text += [f"# {name}, line {number}", PROMPT + command, *(f"| {line}".rstrip() for line in shown)]
        session.write_text("\n".join(text) + "\n")
        run = [sys.executable, REPOSITORY / "tests/desk/session.py", session]
        result = subprocess.run(run, env=os.environ | {"DESK_BUILD": str(BUILD)}, capture_output=True, text=True)
        self.assertEqual((result.stdout + result.stderr, result.returncode), ("", 0))

    def test_cfgtool(self):
        self.play("cfgtool.8.scd")

    def test_state(self):
        self.play("cfgtool-state.8.scd")

    def test_verdict(self):
        self.play("cfgtool-verdict.1.scd")

    def test_cli_conf(self):
        self.play("cli.conf.5.scd")

    def test_blacklist(self):
        self.play("blacklist.5.scd")

    def test_ipmcd(self):
        self.play("ipmcd.8.scd")

    def shown_by(self, command):
        """Of the repository's own ./desk."""
        environment = os.environ | {"DESK_BUILD": str(BUILD), "DESK_DIR": str(self.folder / "desk")}
        pipes = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.STDOUT, "text": True}
        return subprocess.run(["bash", "-c", command], cwd=REPOSITORY, env=environment, **pipes).stdout

    def test_desk(self):
        for number, command, shown in examples_of(REPOSITORY / "man/desk.1.scd"):
            with self.subTest(line=number):
                self.assertEqual(self.shown_by(command).splitlines(), shown)

    def test_man_finds_the_pages_at_the_desk(self):
        if not shutil.which("man") or not (BUILD / "share/man").exists():
            self.skipTest("man, or scdoc at build time, is not installed")
        pages = self.shown_by("./desk man -w cfgtool cli.conf").splitlines()
        self.assertEqual(pages, ["/ipmc/share/man/man8/cfgtool.8", "/ipmc/share/man/man5/cli.conf.5"])


class form(unittest.TestCase):
    def test_mandoc_has_nothing_to_warn_of(self):
        pages = sorted((BUILD / "share/man").glob("man?/*"), key=lambda page: page.name)
        if not shutil.which("mandoc") or not pages:
            self.skipTest("mandoc, or scdoc at build time, is not installed")
        self.assertEqual([page.name + ".scd" for page in pages], [page.name for page in SOURCES])
        # Not style: it has words about the length of lines that only scdoc writes.
        lint = subprocess.run(["mandoc", "-Tlint", "-W", "warning", *pages], stdout=subprocess.PIPE, text=True)
        self.assertEqual((lint.stdout, lint.returncode), ("", 0))

    def test_pages_name_only_pages_that_there_are(self):
        names = {re.sub(r"(.*)\.(\d)\.scd", r"\1(\2)", page.name) for page in SOURCES}
        for page in SOURCES:
            named = set(re.findall(r"\*([\w.-]+)\*(\(\d\))", page.read_text()))
            self.assertEqual({name + section for name, section in named} - names, set(), page.name)


if __name__ == "__main__":
    result = unittest.main(exit=False, verbosity=2).result
    sys.exit(ALL_SKIPPED if len(result.skipped) == result.testsRun else not result.wasSuccessful())
