#!/usr/bin/python3
"""cfgtool-state: its documents fit their schema, and its table is for people."""

import json
import os
import pty
import re
import subprocess
import sys
import unittest
from pathlib import Path

import jsonschema

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))
import transcript as runner  # noqa: E402

SCHEMA = json.loads((HERE.parents[1] / "state/schema.json").read_text())
STATE = os.environ["CFGTOOL_STATE"]
PLATFORM = os.environ["SCRIPTED_PLATFORM_LIBRARY"]

VALIDATOR = jsonschema.Draft202012Validator(SCHEMA, format_checker=jsonschema.FormatChecker())


def libraries():
    """What of the environment a program of this build needs."""
    return {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}


def transcripts():
    for path in sorted((HERE / "transcripts").glob("*.t")):
        yield from runner.Reader(path).transcripts()


def documents():
    """What the transcripts show, which is what the program shows."""
    for one in transcripts():
        if any("--json" in words for words in one.commands):
            for text in (event[1] for event in one.events if event[0] == "screen"):
                yield one.where, json.loads(text)


def keys_in(schema, path=""):
    """Each key that the schema names, with the keys on the way to it."""
    for key, inner in schema.get("properties", {}).items():
        yield f"{path}{key}"
        yield from keys_in(inner, f"{path}{key}.")
    for inner in (schema.get("items"), schema.get("additionalProperties")):
        if isinstance(inner, dict):
            yield from keys_in(inner, path)


def keys_of(value, schema, path=""):
    for inner in value if isinstance(value, list) else ():
        yield from keys_of(inner, schema.get("items", {}), path)
    for key, inner in value.items() if isinstance(value, dict) else ():
        if key in schema.get("properties", {}):
            yield f"{path}{key}"
            yield from keys_of(inner, schema["properties"][key], f"{path}{key}.")
        else:
            yield from keys_of(inner, schema.get("additionalProperties", {}), path)


class documents_fit(unittest.TestCase):
    def test_the_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_every_document_fits(self):
        count = 0
        for where, document in documents():
            errors = [f"{error.json_path}: {error.message}" for error in VALIDATOR.iter_errors(document)]
            self.assertEqual(errors, [], where)
            count += 1
        self.assertGreater(count, 80)

    def test_every_key_is_shown_somewhere(self):
        shown = set()
        for _, document in documents():
            shown.update(keys_of(document, SCHEMA))
        self.assertEqual(shown, set(keys_in(SCHEMA)))

    def test_what_does_not_fit_is_noticed(self):
        """That the schema is strict."""
        for document in (
            {"format": 2, "unreadable": []},
            {"format": 1},
            {"format": 1, "unreadable": [], "more": 1},
            {"format": 1, "unreadable": [], "fans": {"mode": "manuel"}},
            {"format": 1, "unreadable": [], "fans": {"level_percent": 101}},
            {"format": 1, "unreadable": [], "clock": {"time": "yesterday"}},
            {"format": 1, "unreadable": [], "network": {"eth0": {"ipv4": {"address": "300.1.1.1"}}}},
            {"format": 1, "unreadable": [], "traps": {"community": "public"}},
            {"format": 1, "unreadable": [], "users": [{"name": "admin"}]},
        ):
            self.assertFalse(VALIDATOR.is_valid(document), document)


ROOT = HERE.parents[1]
AREAS = ["device", "power", "boot", "fans", "leds", "clock", "network", "users", "sensors", "traps", "event-log"]


class pages(unittest.TestCase):
    """What is said of it."""

    def test_help_manual_and_completion_have_every_area(self):
        helped = subprocess.run([STATE, "--help"], env=libraries(), capture_output=True, text=True, check=True).stdout
        areas = helped.partition("Areas:\n")[2].partition("Options:\n")[0]
        self.assertEqual(set(re.findall(r"(?:^|  )([a-z-]+) {2,}", areas, re.M)), set(AREAS))
        offered = [line.split("\t")[0] for line in (ROOT / "completions/state-words").read_text().splitlines()]
        self.assertEqual(offered, AREAS + re.findall(r"^  (--[a-z]+) ", helped, re.M))
        manual = (ROOT / "man/cfgtool-state.8.scd").read_text()
        section = manual.partition("# AREAS\n")[2].partition("\n# ")[0]
        self.assertEqual(re.findall(r"^\*([a-z-]+)\*$", section, re.M), AREAS)

    def table(self):
        """[(dataitems, where they show)] of the page's table."""
        page = (ROOT / "docs/state.md").read_text().partition("## Which command changes what")[2].partition("\n## ")[0]
        rows = re.findall(r"^\| (`.*?) \| (.*) \|$", page, re.M)
        return [(re.findall("`(.*?)`", names), places) for names, places in rows], page.rpartition("|")[2]

    def test_the_page_leaves_no_dataitem_out(self):
        rows, others = self.table()
        named = [name for names, _ in rows for name in names] + re.findall("`(.*?)`", others.replace("\n", " "))
        lines = (ROOT / "completions/dataitems").read_text().splitlines()
        every = [line.split("\t")[:2] for line in lines if not line.startswith(("#", "target"))]
        self.assertEqual(sorted(named), sorted(name if target == "-" else f"{target} {name}" for target, name in every))

    def test_each_place_is_a_key_or_is_named_as_unreadable(self):
        keys = set(keys_in(SCHEMA))
        unreadable = {path for _, document in documents() for path in document["unreadable"] if "[" not in path}
        mentioned = set()
        for names, places in self.table()[0]:
            readable, _, rest = places.partition("unreadable: ")
            for path in re.findall("`([a-z0-9_.]+)`", readable):
                self.assertIn(path, keys, names)
            for path in re.findall("`([a-z0-9_.]+)`", rest):
                self.assertIn(path, unreadable, names)
                mentioned.add(path)
        self.assertEqual(mentioned, unreadable)


class requests(unittest.TestCase):
    """None but those of allowed-requests; the sweep looks at those of whole runs."""

    def permitted(self):
        """[(when, a regular expression for a request)]"""
        for line in (HERE / "allowed-requests").read_text().splitlines():
            if match := re.match(r"(whole|then)? *((?:[0-9A-F]{2}(?:\.\.[0-9A-F]{2})? *)+)(?:  |$)", line):
                expression = "".join(self.byte(word) for word in match[2].split())
                yield match[1], re.compile(expression.encode("latin-1"), re.DOTALL)

    def byte(self, word):
        first, _, last = word.partition("..")
        return rf"[\x{first}-\x{last or first}]"

    def test_of_every_transcript_are_permitted(self):
        permitted = list(self.permitted())
        self.assertGreater(len(permitted), 40)
        count = 0
        for path in sorted((HERE / "transcripts").glob("*.t")):
            was_refused = False
            for line in path.read_text().splitlines():
                if not (match := re.match(r"> ([0-9A-F ]+?) +< (\S+)", line)):
                    was_refused = was_refused and line.startswith(("call", "sleep"))
                    continue
                request = bytes.fromhex(match[1])
                fitting = [when for when, expression in permitted if expression.fullmatch(request)]
                self.assertTrue([when for when in fitting if when != "then" or was_refused], line)
                was_refused = was_refused or ("whole" in fitting and re.match("[0-9A-F]", match[2]) and match[2] != "00")
                count += 1
        self.assertGreater(count, 300)


CROSSED = "sensors: the table, with a mark where a threshold is crossed"


def show(one, words=("sensors",), environment=None, on_terminal=True):
    """What the program shows of a transcript's controller."""
    script = "\n".join(["uid 0", "root /nowhere", *one.script]) + "\n"
    descriptors = runner.write_to_memory(script.encode()), runner.write_to_memory()
    env = {"LD_PRELOAD": PLATFORM, "SCRIPTED_PLATFORM": "{},{}".format(*descriptors), **(environment or {})}
    env.update(libraries())
    reader, writer = pty.openpty() if on_terminal else os.pipe()
    with subprocess.Popen([STATE, *words], env=env, pass_fds=descriptors, stdout=writer) as process:
        os.close(writer)
        shown = b""
        while part := read(reader):
            shown += part
    os.close(reader)
    for descriptor in descriptors:
        os.close(descriptor)
    assert process.returncode == 0
    return shown.decode().replace("\r\n", "\n")


def read(descriptor):
    try:
        return os.read(descriptor, 65536)
    except OSError:  # a terminal whose program has ended
        return b""


class table(unittest.TestCase):
    def setUp(self):
        self.crossed = next(one for one in transcripts() if one.title == CROSSED)
        self.plain = b"".join(event[1] for event in self.crossed.events if event[0] == "screen").decode()

    def test_colours_on_a_terminal_are_beside_the_words(self):
        shown = show(self.crossed, environment={"TERM": "xterm"})
        self.assertIn("\x1b[31m!   Temp", shown)  # red: a critical threshold
        self.assertIn("upper_critical\x1b[0m\n", shown)
        self.assertIn("\x1b[1msensors\x1b[0m\n", shown)
        for code in ("\x1b[1m", "\x1b[31m", "\x1b[0m"):
            shown = shown.replace(code, "")
        self.assertEqual(shown, self.plain)

    def test_a_threshold_that_is_not_critical_is_yellow(self):
        low = next(one for one in transcripts() if one.title == "sensors: the gravest of several crossed thresholds is told")
        shown = show(low, environment={"TERM": "xterm"})
        self.assertRegex(shown, "\x1b\\[33m!   12V .* lower_noncritical\x1b\\[0m\n")

    def test_no_colours_elsewhere(self):
        self.assertEqual(show(self.crossed, environment={"TERM": "xterm"}, on_terminal=False), self.plain)
        self.assertEqual(show(self.crossed, environment={"TERM": "xterm", "NO_COLOR": "1"}), self.plain)
        self.assertEqual(show(self.crossed, environment={"TERM": "dumb"}), self.plain)
        self.assertIn("\x1b[1m", show(self.crossed, environment={"TERM": "xterm", "NO_COLOR": ""}))

    def test_a_document_has_no_colours(self):
        self.assertNotIn("\x1b", show(self.crossed, words=("--json", "sensors"), environment={"TERM": "xterm"}))


if __name__ == "__main__":
    unittest.main()
