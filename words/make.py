#!/usr/bin/python3
"""Makes what others need of the tool's own words, from its tables, its sources and the verdicts beside this file.

    words/make.py --list build/bin/list-words            writes words/words.json, docs/results.md and words/table.h
    words/make.py --list build/bin/list-words --check    fails, and says where, when they are not as they would be made
"""

import argparse
import dataclasses
import difflib
import json
import os
import re
import subprocess
import sys
import typing

from sentences import CONVERSION, FOLDERS, Sentence, Words, rows_of
from source import Source, Token, Tokens, Unreadable

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
RESULTS = ["done", "failed", "refused"]
MEANINGS = RESULTS + ["usage", "confirm", "question", "progress", "information", "never"]
COMMAND_WORDS = {"silent=done", "silent=failed", "declined=unknown", "others"}


Listed = dict[str, list[dict[str, typing.Any]]]  # what list-words prints


class Wrong(Exception):
    """What a person has to put right."""


# Verdicts -------------------------------------------------------------------------------------------------------------


@dataclasses.dataclass
class Verdicts:
    meanings: dict[str, str]  # by the first line of a sentence that is not empty
    commands: dict[str, set[str]]  # what needs more to be judged, by "-t target -d dataitem"


def read_verdicts(path: str) -> Verdicts:
    found = Verdicts({}, {})
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            line = line.rstrip("\n")
            if match := re.fullmatch(r'(\w+) +"(.*)"', line):
                meaning, text = match[1], unquoted(match[2])
                if meaning not in MEANINGS or text in found.meanings:
                    raise Wrong(f"{path}:{number}: {'twice' if text in found.meanings else 'no such meaning'}: {line}")
                found.meanings[text] = meaning
            elif match := re.fullmatch(r"command +((?:-t \w+ )?-d \w+) +(.*)", line):
                if not (words := set(match[2].split())) <= COMMAND_WORDS:
                    raise Wrong(f"{path}:{number}: unknown words: {line}")
                found.commands[match[1]] = words
            elif line and not line.startswith("#"):
                raise Wrong(f"{path}:{number}: neither a sentence nor a command: {line}")
    return found


def unquoted(text: str) -> str:
    return re.sub(r"\\(.)", lambda match: {"r": "\r", "a": "\a"}.get(match[1], match[1]), text)


def quoted(text: str) -> str:
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"').replace("\r", "\\r").replace("\a", "\\a") + '"'


# Lines ----------------------------------------------------------------------------------------------------------------


def lines_of(sentence: Sentence) -> list[str]:
    """Its lines without their ends. The last is the beginning of a line when the sentence does not end one."""
    lines = (sentence.text + sentence.ending).split("\n")
    return [line.removesuffix("\r") for line in lines[:-1]] + lines[-1:]


def telling_line(sentence: Sentence) -> str:
    return next((line for line in lines_of(sentence) if line), "")


def meaning_of(sentence: Sentence, verdicts: Verdicts) -> str:
    line = telling_line(sentence)
    return verdicts.meanings[line] if line else "information"  # nothing but an empty line


def compare(all_sentences: list[Sentence], verdicts: Verdicts) -> None:
    said = {telling_line(sentence): sentence for sentence in all_sentences if telling_line(sentence)}
    missing = [f"  {said[line].file}: {quoted(line)}" for line in said if line not in verdicts.meanings]
    left = [f"  {quoted(line)}" for line in verdicts.meanings if line not in said]
    if missing:
        raise Wrong("\n".join(["words/verdicts has no row for these sentences:", *missing]))
    if left:
        raise Wrong("\n".join(["no source has these sentences of words/verdicts:", *left]))


# Commands -------------------------------------------------------------------------------------------------------------


@dataclasses.dataclass
class Command:
    target: str
    dataitem: str
    listed: dict[str, typing.Any]  # its row of list-words
    cells: Tokens  # the handler's column of the registry
    sentences: list[Sentence] = dataclasses.field(default_factory=list)
    records: list[dict[str, str]] = dataclasses.field(default_factory=list)

    @property
    def words(self) -> str:
        return (f"-t {self.target} " if self.target else "") + f"-d {self.dataitem}"


def registry_rows(words: Words, table: str) -> dict[str, Tokens]:
    """The handler's column of a table, by name."""
    constant = words.constant(table, "cfgtool/cli/registry.cpp")
    if constant is None:
        raise Wrong(f"cfgtool/cli/registry.cpp has no table {table}")
    rows = rows_of(constant.value)
    comma = Token("sign", ",", 0)
    return {row[0][0].value: [token for cell in row[3:] for token in [*cell, comma]][:-1] for row in rows if row}


def commands_of(words: Words, listed: Listed, verdicts: Verdicts) -> list[Command]:
    tables = [("", "top_level_dataitems", listed["dataitems"])]
    names = words.constant("target_dataitems", "cfgtool/cli/registry.cpp")
    table_names = [token.value for token in names.value if token.kind == "name"] if names else []
    for table, target in zip(table_names, listed["targets"], strict=True):
        tables.append((target["name"], table, target["dataitems"]))
    commands = []
    for target_name, table, rows in tables:
        handlers = registry_rows(words, table)
        if list(handlers) != [row["name"] for row in rows]:
            raise Wrong(f"the sources' table {table} and the program's differ")
        commands += [Command(target_name, row["name"], row, handlers[row["name"]]) for row in rows]
    for command in commands:
        fill(command, words, verdicts)
    return commands


def fill(command: Command, words: Words, verdicts: Verdicts) -> None:
    reach = words.reach(command.cells, "cfgtool/cli/registry.cpp")
    command.sentences = words.said_by(reach.functions)
    for record in words.records_of(reach):
        if verdicts.meanings.get(record) == "never":
            continue
        match = re.search(r"EvtCode:0x([0-9A-F]{8}|%08X)", record)
        events = [match[1]] if match else [""]
        if events == ["%08X"]:
            events = own_codes(command, words)
        for event in events:
            text = record.replace("%08X", event)
            command.records.append({"event": event and f"0x{event}", "text": text})


def own_codes(command: Command, words: Words) -> list[str]:
    """The codes in the constants that the registry's row or the handler itself names."""
    names = {token.value for token in command.cells}
    for function in words.source.functions:
        if function.name in names and "argc" in function.parameters and "which" not in function.parameters:
            names |= {token.value for token in function.body}
    constants = [words.constant(name, "cfgtool/sensor/sensor.cpp") for name in sorted(names)]
    codes = [t.value[2:] for c in constants if c for t in c.value if re.fullmatch("0x[0-9A-F]{8}", t.value)]
    if len(codes) != 1:
        raise Wrong(f"{command.words}: one event code was to be found, not {codes}")
    return codes


# words.json -----------------------------------------------------------------------------------------------------------


def own(text: str, command: Command) -> str:
    """A text that several commands share, with the words of this one."""
    text = text.replace("-t %s", f"-t {command.target}").replace("-d %s", f"-d {command.dataitem}")
    return text.replace("<%sval>", f"<{command.dataitem}val>")


def texts(sentences: list[Sentence], verdicts: Verdicts, meanings: list[str]) -> list[dict[str, str]]:
    """Each once, by meaning, and otherwise as they stand in the sources."""
    shown = {sentence.text: meaning_of(sentence, verdicts) for sentence in sentences if telling_line(sentence)}
    return [{"verdict": each, "text": text} for each in meanings for text, meaning in shown.items() if meaning == each]


def described(command: Command, verdicts: Verdicts) -> dict[str, object]:
    usage = texts(command.sentences, verdicts, ["usage"])
    others = ["confirm", "question", "progress", "information"]
    return {
        **command.listed,
        "usage": [own(row["text"], command) for row in usage],
        "results": texts(command.sentences, verdicts, RESULTS),
        "others": texts(command.sentences, verdicts, others),
        "records": command.records,
    }


def json_text(
    words: Words, commands: list[Command], listed: Listed, every: list[Sentence], verdicts: Verdicts
) -> str:
    said_by_commands = {sentence for command in commands for sentence in command.sentences}
    options = [call.arguments[2][0].value for _, call in words.calls["getopt"]]
    document = {
        "options": options[0],
        "dataitems": [described(c, verdicts) for c in commands if not c.target],
        "targets": [
            {**target, "dataitems": [described(c, verdicts) for c in commands if c.target == target["name"]]}
            for target in listed["targets"]
        ],
        "elsewhere": texts([s for s in every if s not in said_by_commands], verdicts, MEANINGS[:-1]),
        "sentences": [
            {"file": s.file, "function": s.function, "call": s.call, "text": s.text, "ending": s.ending,
             "verdict": meaning_of(s, verdicts)}
            for s in every
        ],
    }
    return json.dumps(document, indent=1, ensure_ascii=False) + "\n"


# docs/results.md ------------------------------------------------------------------------------------------------------

RESULTS_HEAD = """# What each command says

Made by `words/make.py` from the sources; `%s`, `%d` and `%X` stand for a word, a number and a hexadecimal number. A
*done* sentence is the success of a run unless it says *failed* or *refused* too: so
[cfgtool-verdict](verdict.md) reads them. A record is what the operation log gets.
"""


def cell(text: str) -> str:
    shown = text.strip("\r\n").replace("%%", "%").replace("\r\n", " / ").replace("\n", " / ").replace("\r", "")
    return "`` " + shown.replace("|", "\\|") + " ``"


def results_text(commands: list[Command], verdicts: Verdicts) -> str:
    parts = [RESULTS_HEAD]
    for command in commands:
        parts.append(f"\n## {command.words}\n\n| | |\n|---|---|\n")
        for row in texts(command.sentences, verdicts, RESULTS):
            parts.append(f"| {row['verdict']} | {cell(row['text'])} |\n")
        for record in command.records:
            parts.append(f"| record | {cell(record['text'])} |\n")
        for word in verdicts.commands.get(command.words, ()):
            if word.startswith("silent="):
                parts.append(f"| {word.removeprefix('silent=')} | nothing is said |\n")
    return "".join(parts)


# table.h --------------------------------------------------------------------------------------------------------------

TABLE_HEAD = """// clang-format off
// What the tool can say, line by line, and what its commands record. Made by words/make.py.
//
// In a text \\001 stands for any characters, \\002 for a decimal and \\003 for a hexadecimal number.
"""


def pattern_of(line: str) -> str:
    def wildcard(match: re.Match[str]) -> str:
        return {"%": "%", "s": "\1", "d": "\2", "u": "\2", "x": "\3", "X": "\3"}[match[0][-1]]

    return CONVERSION.sub(wildcard, line).replace("\3\3", "\3")


def in_cpp(text: str) -> str:
    shown = (f"\\{ord(c):03o}" if ord(c) < 32 else "\\" + c if c in '"\\' else c for c in text)
    return '"' + "".join(shown) + '"'


def code_of(line: str) -> str:
    """How an error code stands in it."""
    for kind, pattern in (("completion", "error code:0x%02x"), ("decimal", "g_error_code=%d"), ("whole", "0x%X")):
        if pattern in line:
            return kind
    return "none"


def patterns(every: list[Sentence], verdicts: Verdicts) -> dict[tuple[bool, str], tuple[str, str]]:
    """What a line, or the beginning of one, means."""
    found: dict[tuple[bool, str], tuple[str, str]] = {}
    for sentence in every:
        meaning = meaning_of(sentence, verdicts)
        if meaning == "never":
            continue
        lines = lines_of(sentence)
        for at, line in enumerate(lines):
            if not line:
                continue
            own_meaning = meaning if line == telling_line(sentence) else "information"
            key, value = (at < len(lines) - 1, pattern_of(line)), (own_meaning, code_of(line))
            before = found.get(key, value)
            if before != value and "information" not in (before[0], value[0]):
                raise Wrong(f"this line means {before[0]} and {value[0]}: {quoted(line)}")
            found[key] = value if before[0] == "information" else before
    return found


def compare_patterns(rows: dict[tuple[bool, str], tuple[str, str]]) -> None:
    """No line that one pattern is made for means something else by another's wildcards."""
    wildcards = {"\1": ".+", "\2": r" *-?\d+", "\3": "[0-9A-Fa-f]+"}
    examples = str.maketrans({"\1": "x", "\2": "7", "\3": "C9"})
    shapes = {
        key: re.compile("".join(wildcards.get(c, re.escape(c)) for c in key[1]))
        for key in rows
        if re.search("[\1-\3]", key[1])
    }
    for key, shape in shapes.items():
        for other, (meaning, _) in rows.items():
            if key[0] == other[0] and meaning != rows[key][0] and shape.fullmatch(other[1].translate(examples)):
                shown = [line.translate({1: "%s", 2: "%d", 3: "%X"}) for line in (other[1], key[1])]
                raise Wrong(f"{quoted(shown[0])} means {meaning}, and {rows[key][0]} by {quoted(shown[1])}")


def listing_line(row: dict[str, typing.Any]) -> str:
    return f"{'':7}{row['name']:<23}{row['help']}"[:80]


def table_text(commands: list[Command], listed: Listed, every: list[Sentence], verdicts: Verdicts) -> str:
    rows = patterns(every, verdicts)
    for row in [*listed["targets"], *(command.listed for command in commands)]:
        rows[(True, listing_line(row))] = ("information", "none")
    compare_patterns(rows)
    out = [TABLE_HEAD, "\nstatic constexpr line_pattern line_patterns[] = {\n"]
    for (whole, text), (meaning, code) in sorted(rows.items()):
        shape = "line" if whole else "beginning"
        out.append(f"    {{{in_cpp(text)}, shape::{shape}, meaning::{meaning}, code_shape::{code}}},\n")
    out.append("};\n\nstatic constexpr command commands[] = {\n")
    for command in commands:
        words = verdicts.commands.get(command.words, set())
        recorded = {(record["event"], re.search(r"\bfail", record["text"]) is not None) for record in command.records}
        all_events = sorted({event for event, _ in recorded if event})
        done_events, refused_events = (
            [event for event in all_events if (event, is_failure) in recorded] for is_failure in (False, True)
        )
        silent = next((word.removeprefix("silent=") for word in words if word.startswith("silent=")), "unknown")
        out.append(
            f"    {{{in_cpp(command.target)}, {in_cpp(command.dataitem)}, verdict::{silent}, "
            f"verdict::{'unknown' if 'declined=unknown' in words else 'refused'}, "
            f"{'true' if 'others' in words else 'false'}, {in_cpp(' '.join(done_events))}, "
            f"{in_cpp(' '.join(refused_events))}, {in_cpp(' '.join(all_events))}}},\n"
        )
    out.append("};\n")
    return "".join(out)


# ----------------------------------------------------------------------------------------------------------------------


def make(listed: Listed) -> dict[str, str]:
    words = Words(Source(ROOT, FOLDERS))
    verdicts = read_verdicts(os.path.join(ROOT, "words/verdicts"))
    every = sorted(set(words.said_by(words.source.functions)))
    compare(every, verdicts)
    commands = commands_of(words, listed, verdicts)
    if unknown := set(verdicts.commands) - {command.words for command in commands}:
        raise Wrong(f"words/verdicts: no such command: {', '.join(sorted(unknown))}")
    return {
        "words/words.json": json_text(words, commands, listed, every, verdicts),
        "words/table.h": table_text(commands, listed, every, verdicts),
        "docs/results.md": results_text(commands, verdicts),
    }


def difference(path: str, made: str) -> list[str]:
    try:
        with open(os.path.join(ROOT, path), encoding="utf-8") as file:
            there = file.read()
    except FileNotFoundError:
        there = ""
    return list(difflib.unified_diff(there.splitlines(), made.splitlines(), path, path + " (made)", "", "", 1, ""))


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--list", required=True, metavar="PROGRAM")
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args()
    printed = subprocess.run([options.list], check=True, stdout=subprocess.PIPE, stdin=subprocess.DEVNULL).stdout
    listed = json.loads(printed)
    try:
        made = make(listed)
    except (Wrong, Unreadable) as fault:
        print(fault, file=sys.stderr)
        return 1
    stale = {path: lines for path, text in made.items() if (lines := difference(path, text))}
    for path, lines in stale.items():
        if options.check:
            print("\n".join(lines[:40]), file=sys.stderr)
        else:
            with open(os.path.join(ROOT, path), "w", encoding="utf-8") as file:
                file.write(made[path])
            print(f"{path} is new")
    if stale and options.check:
        print("What is made from the tool's words is not up to date: ninja -C build words", file=sys.stderr)
    return int(bool(stale) and options.check)


if __name__ == "__main__":
    sys.exit(main())
