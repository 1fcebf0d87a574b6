#!/usr/bin/python3
"""What the pages for people (all *.md) name is there: linked pages and headings, paths, options of our programs,
commands of the tool, CMake's presets and settings, tests. A code block whose first line names a file stands in that
file; a line of "..." in it leaves something out. The environment: BUILD the build folder."""

import fnmatch
import functools
import json
import os
import re
import subprocess
import unittest
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("BUILD", REPOSITORY / "build")).resolve()
SOURCE_NAME = re.compile(r"[\w.*/-]+\.(cpp|h|py|md|cmake|sh|t|session)")
BUILT = re.compile(r"build[a-z-]*/bin/([\w-]+)")
# Elsewhere on a machine, or a place-holder.
NOT_OURS = re.compile(r"[$<>@=:|%]|\.\.\.|^[-/~]|(^|/)[A-Z]+(_[a-z]+)?(\*|/|$|\.[a-z]+$)(?<!\.md)")
# Where the words of a program's options stand.
PROGRAMS = {
    "./check": ["check"],
    "./desk": ["desk"],
    "ipmcd": ["ipmcd/options.cpp", "ipmcd/main.cpp"],
    "cfgtool-state": ["state/main.cpp"],
    "platform-check": ["platform/linux/platform_check.cpp"],
    "tests/transcript.py": ["tests/transcript.py"],
    "tests/faults/play": ["tests/faults/grid.cpp"],
}


@functools.cache
def tree():
    """Every file and folder but those of builds, as "/path/from/the/root"."""
    found = []
    for folder, folders, files in os.walk(REPOSITORY):
        folders[:] = [name for name in folders if name not in ("build", ".desk", ".git", "__pycache__")
                      and not name.startswith("build-")]
        found += [os.path.join(folder, name)[len(str(REPOSITORY)):] for name in folders + files]
    return found


@functools.cache
def text_of(pattern):
    return "".join((REPOSITORY / path[1:]).read_text() for path in sorted(tree()) if fnmatch.fnmatch(path, pattern))


@functools.cache
def names_of_tests():
    if not (BUILD / "CTestTestfile.cmake").exists():
        return None
    return subprocess.run(["ctest", "--test-dir", BUILD, "-N"], check=True, stdout=subprocess.PIPE, text=True).stdout


def pages():
    return {path[1:]: (REPOSITORY / path[1:]).read_text() for path in tree() if path.endswith(".md")}


def fenced(page):
    """(what stands behind the first ```, the lines)."""
    return re.findall(r"^```([^\n`]*)\n(.*?)^```$", page, re.MULTILINE | re.DOTALL)


def pieces_of_code(page):
    """Lines of code blocks, and what stands between backquotes."""
    for _, block in fenced(page):
        yield from block.replace("\\\n", " ").splitlines()
    prose = re.sub(r"^```[^\n`]*\n.*?^```$", "", page, flags=re.MULTILINE | re.DOTALL)
    for line in prose.splitlines():
        if line.startswith("    "):
            yield line
        else:
            yield from re.findall(r"`([^`]+)`", line)


def headings(page):
    """As links name them."""
    return {re.sub(r"[^\w -]", "", line.lower()).replace(" ", "-") for line in re.findall(r"^#+ (.*)$", page, re.M)}


def wrong_links(page, folder):
    for target in re.findall(r"\]\(([^)\s]+)\)", page):
        if re.match(r"[a-z]+:", target):
            continue
        name, _, heading = target.partition("#")
        path = (REPOSITORY / folder / name).resolve() if name else None
        if path and not path.exists():
            yield f"no such page: {target}"
        elif heading and heading not in headings(path.read_text() if path else page):
            yield f"no such heading: {target}"


def is_there(path):
    """From the root or below anything, so that a page may leave out the folder that it speaks of; of transcripts the
    ending as well."""
    pattern = re.escape(path).replace(r"\*", "[^/\n]*")
    return re.search(rf"/{pattern}(\.t)?$", "\n".join(tree()), re.MULTILINE) is not None


def is_built(program):
    if program.startswith("fuzz-"):
        return is_there(f"tests/fuzz/{program.removeprefix('fuzz-')}_fuzz.cpp")
    return re.search(rf"add_executable\({re.escape(program)}\s", text_of("*/CMakeLists.txt")) is not None


def wrong_paths(code):
    top = {path.split("/")[1] for path in tree()}
    for word in re.split(r"[\s\"'`();,]+", code):
        word = word.rstrip(".:").removeprefix("./").rstrip("/")
        if built := BUILT.fullmatch(word):
            if "*" not in built[1] and not is_built(built[1]):
                yield f"no such program: {word}"
        elif not NOT_OURS.search(word) and (SOURCE_NAME.fullmatch(word) or "/" in word and word.split("/")[0] in top):
            if not is_there(word):
                yield f"no such file: {word}"


def wrong_options(code):
    words = code.split()
    sources = [source for program, files in PROGRAMS.items() for source in files
               if any(word == program or word.endswith(f"/{program}") for word in words)]
    if sources:
        known = "".join((REPOSITORY / source).read_text() for source in sources)
        for option in re.findall(r"(?<!\S)--([a-z-]+)", code):
            if not re.search(rf"[\"\s|(-]{option}\b", known):
                yield f"no such option: --{option} in {code.strip()}"


def wrong_commands(code):
    rows = re.findall(r'^    \{"(\w+)", "', text_of("/cfgtool/cli/registry.cpp"), re.MULTILINE)
    for command in re.findall(r"\bcfgtool((?: -[td] [a-z]\w*)+)", code):
        for name in re.findall(r" -[td] (\w+)", command):
            if not any(row.startswith(name) for row in rows):
                yield f"no such command: {name} in {code.strip()}"


def wrong_builds(code):
    presets = {preset["name"] for preset in json.loads(text_of("/CMakePresets.json"))["configurePresets"]}
    for preset in re.findall(r"--preset[ =]([a-z]\w*)", code):
        if preset not in presets:
            yield f"no such preset: {preset}"
    for setting in re.findall(r"(?<!\S)-D([A-Z][A-Z_]*)=", code):
        if not setting.startswith("CMAKE_") and setting not in text_of("*/CMakeLists.txt") + text_of("*.cmake"):
            yield f"no such setting: {setting}"
    for test in re.findall(r"ctest .*-R ([a-z]\S*)", code):
        if names_of_tests() and not re.search(test, names_of_tests()):
            yield f"no such test: {test}"


def wrong_excerpts(page):
    for words, block in fenced(page):
        if len(words.split()) != 2:
            continue
        path = REPOSITORY / words.split()[1]
        text = path.read_text() if path.exists() else ""
        start = 0
        for piece in re.split(r"^\s*\.\.\.\n", block, flags=re.MULTILINE):
            start = text.find(piece, start)
            if start < 0:
                yield f"not in {words.split()[1]}: {piece}"
                break
            start += len(piece)


def mistakes(page, folder="."):
    yield from wrong_links(page, folder)
    yield from wrong_excerpts(page)
    for code in pieces_of_code(page):
        for look in (wrong_paths, wrong_options, wrong_commands, wrong_builds):
            yield from look(code)


class Pages(unittest.TestCase):
    def test_name_only_what_is_there(self):
        for name, page in pages().items():
            with self.subTest(name):
                self.assertEqual(list(mistakes(page, os.path.dirname(name))), [])

    def test_quote_the_tree(self):
        for name in ("CONTRIBUTING.md", "docs/porting.md"):
            self.assertTrue([words for words, _ in fenced(pages()[name]) if len(words.split()) == 2], name)


class Mistakes(unittest.TestCase):
    """That this test can fail."""

    def test_are_found(self):
        for page in ("[a](docs/nowhere.md)", "[a](README.md#nowhere)", "[a](#nowhere)", "`docs/nowhere.md`",
                     "`nowhere.cpp`", "`./scripts/nowhere`", "    tests/nowhere/x\n", "`build/bin/nowhere`",
                     "`build-asan/bin/fuzz-nowhere`", "`./check --nowhere`", "`./desk --nowhere cfgtool`",
                     "`cfgtool -d nowhere`", "`cfgtool -t nowhere -d state`",
                     "`cmake --preset nowhere`", "`cmake -DNOWHERE=1`", "```sh\n./check \\\n  --nowhere\n```\n",
                     "```cpp cfgtool/cli/main.cpp\nint nowhere;\n```\n", "```cpp cfgtool/cli/nowhere.cpp\n\n```\n",
                     "```cpp cfgtool/cli/main.cpp\n    ipc_exit();\n    ...\n    cpld_init();\n```\n"):
            self.assertEqual(len(list(mistakes(page))), 1, page)
        if names_of_tests():
            self.assertEqual(len(list(mistakes("`ctest --test-dir build -R nowhere`"))), 1)

    def test_are_not_found_where_there_are_none(self):
        for page in ("[a](docs/porting.md)", "[a](README.md#two-commands)", "# A b\n[a](#a-b)\n", "`docs/*.md`",
                     "`main.cpp`", "`./desk`", "`/data/cli.conf`", "`tests/transcripts/AREA/*.t`", "`chassis/fan`",
                     "`build/bin/cfgtool`", "`./check --quick`", "`./desk --user 503 cfgtool -d fanl`",
                     "`cmake --preset arm`", "`cmake -DOEM_IANA=1`",
                     "```cpp cfgtool/cli/main.cpp\n    cpld_init();\n    ...\n    ipc_exit();\n```\n"):
            self.assertEqual(list(mistakes(page)), [], page)


if __name__ == "__main__":
    unittest.main()
