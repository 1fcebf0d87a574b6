"""The tool built with one of its files changed, by the commands that a build folder of CMake and Ninja has for it."""

import json
import os
import re
import shlex
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
# Played when no transcript notices: what is linked anew, and how it is run. The grid plays its runs without a fault
# and sees what is not given back; the terminal tests see signals between two keys.
SECOND_LINE = {
    "unit tests": ("unit-tests", "PROGRAM"),
    "fault grid": ("fault-grid", f"{ROOT}/tests/faults/play PROGRAM --sweep requests --every 1000000"),
    "terminal tests": (
        "cfgtool",
        f"env TOOL=PROGRAM SCRIPTED_PLATFORM_LIBRARY=IN_FRONT python3 {ROOT}/tests/terminal/terminal_test.py -f",
    ),
}
WITHOUT = ("-Werror", "-Wall", "-Wextra", "-Wconversion", "-Wshadow", "-Wformat=2")


def text_of(source):
    with open(f"{ROOT}/{source}", encoding="utf-8") as file:
        return file.read()


def content(path):
    with open(path, "rb") as file:
        return file.read()


def succeeds(argv, folder, limit_s=None):
    nowhere = subprocess.DEVNULL
    try:
        done = subprocess.run(argv, cwd=folder, timeout=limit_s, stdin=nowhere, stdout=nowhere, stderr=nowhere)
    except subprocess.TimeoutExpired:
        return False
    return done.returncode == 0


class Build:
    def __init__(self, folder):
        self.folder = os.path.abspath(folder)
        self.tool = f"{self.folder}/bin/cfgtool"
        self.platform = f"{self.folder}/lib/libscripted_platform.so"
        self.compilers = {}  # source -> the command line up to the name of the object
        self.objects = {}  # source -> object, relative to the folder
        programs = ["cfgtool", *(program for program, _ in SECOND_LINE.values())]
        self.linkers = {program: self.link_command(f"bin/{program}") for program in programs}
        with open(f"{self.folder}/compile_commands.json", encoding="utf-8") as file:
            for entry in json.load(file):
                words = shlex.split(entry["command"])
                end = words.index("-o")
                if words[end + 1] in self.linkers["cfgtool"]:  # other programs may be made of a source, too
                    source = os.path.relpath(entry["file"], ROOT)
                    self.objects[source] = words[end + 1]
                    self.compilers[source] = [word for word in words[:end] if word not in WITHOUT] + ["-w"]
        self.users = self.users_of_headers()

    def ninja(self, *words):
        return subprocess.run(
            ["ninja", "-C", self.folder, "-t", *words], check=True, capture_output=True, text=True
        ).stdout

    def link_command(self, program):
        """None where the program is not there."""
        if not os.path.exists(f"{self.folder}/{program}"):
            return None
        last = self.ninja("commands", program).splitlines()[-1]
        return shlex.split(last.removeprefix(": && ").split(" && ")[0].replace("\\$", "$"))

    def users_of_headers(self):
        """header -> the sources that include it."""
        source_of = {name: source for source, name in self.objects.items()}
        users, source = {}, None
        for line in self.ninja("deps").splitlines():
            if match := re.match(r"(\S+): #deps", line):
                source = source_of.get(match[1])
            elif source and line.startswith(" "):
                name = os.path.relpath(os.path.join(self.folder, line.strip()), ROOT)
                users.setdefault(name, []).append(source)
        return users

    def compile(self, source, path, made, *options):
        """Compiles the file at `path` as if it were the source. False = it is no C++."""
        os.makedirs(os.path.dirname(made), exist_ok=True)
        return succeeds([*self.compilers[source], *options, "-c", path, "-o", made], self.folder)

    def link(self, program, replaced, made, *options):
        """Links with other objects for some sources."""
        swap = {self.objects[source]: path for source, path in replaced.items()}
        words = [swap.get(word, word) for word in self.linkers[program]]
        words[words.index("-o") + 1] = made
        return succeeds([*words, *options], self.folder)


class Workshop:
    """Where one mutant at a time is built."""

    def __init__(self, build, folder):
        self.build = build
        self.folder = folder
        self.tool = f"{folder}/bin/cfgtool"
        self.changed = {}  # source -> its object, where that differs
        os.makedirs(f"{folder}/bin", exist_ok=True)
        if not os.path.islink(f"{folder}/lib"):  # where the tool looks for its platform library
            os.symlink(f"{build.folder}/lib", f"{folder}/lib")

    def make(self, source, text):
        """The tool with this text for the source: "built", "no C++", or "the same" machine code."""
        changed = self.compile(source, text)
        if changed is None:
            return "no C++"
        if not changed:
            return "the same"
        self.changed = changed
        if not self.build.link("cfgtool", changed, self.tool):
            return "no C++"
        return "the same" if content(self.tool) == content(self.build.tool) else "built"

    def compile(self, source, text):
        """The sources whose objects differ, each with its object; None where one cannot be compiled."""
        path = f"{self.folder}/{source}"
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        changed = {}
        try:
            for user in [source] if source in self.build.objects else self.build.users.get(source, []):
                made = f"{self.folder}/objects/{self.build.objects[user]}"
                given = path if user == source else f"{ROOT}/{user}"
                if not self.build.compile(user, given, made, "-iquote", self.folder):
                    return None
                if content(made) != content(f"{self.build.folder}/{self.build.objects[user]}"):
                    changed[user] = made
        finally:
            os.remove(path)
        return changed

    def fails(self, name):
        """Whether a test of the second line does with what was made last, twice. False also where it is not built."""
        program, command = SECOND_LINE[name]
        if self.build.linkers[program] is None:
            return False
        made = f"{self.folder}/bin/{program}"
        if not self.build.link(program, self.changed, made):
            sys.exit(f"mutants: {program} does not link")
        words = shlex.split(command.replace("PROGRAM", made).replace("IN_FRONT", self.build.platform))
        return not any(succeeds(words, self.folder, limit_s=300) for _ in range(2))
