"""The runs of all transcripts, and which lines of the tool each of them reaches."""

import dataclasses
import functools
import glob
import hashlib
import json
import mmap
import multiprocessing
import os
import re
import subprocess
import sys
import time

from build import ROOT, content

sys.path.insert(0, f"{ROOT}/tests")
import transcript as transcripts  # noqa: E402

# What differs is not told, and a comparison of thousands of lines takes minutes.
transcripts.difference = lambda expected, actual: ["something else happened"]

TABLE_SIZE = 1 << 20  # reach.cpp
LEAST_LIMIT_S = 3


@dataclasses.dataclass
class Run:
    file: str
    where: str
    transcript: object
    argv: list
    normal_s: float = 0.1

    @property
    def name(self):
        return f"{self.where} $ {' '.join(self.argv)[:80]}"

    def faults(self, tool, platform):
        """What is wrong with the tool in this run; one that takes ten times as long as it should hangs."""
        transcripts.TIME_LIMIT_S = max(LEAST_LIMIT_S, 10 * self.normal_s)
        try:
            return transcripts.faults_of(self.transcript, transcripts.play(self.transcript, self.argv, tool, platform))
        except Exception as error:  # a mutant can garble what the scripted platform writes down
            return [f"{type(error).__name__}: {error}"]


def runs_of(path):
    name = os.path.relpath(path, f"{ROOT}/tests/transcripts")
    for transcript in transcripts.Reader(path).transcripts():
        where = f"{name}:{transcript.where.rpartition(':')[2]}"
        for argv in transcript.commands:
            yield Run(name, where, transcript, argv)


def all_runs():
    return [run for path in sorted(glob.glob(f"{ROOT}/tests/transcripts/*/*.t")) for run in runs_of(path)]


# Reach ----------------------------------------------------------------------------------------------------------------


def build_tracing_tool(build, folder):
    """The tool that tells which blocks of code it goes through, unoptimised."""
    tool = f"{folder}/bin/cfgtool"
    objects = {}
    for source, name in build.objects.items():
        objects[source] = f"{folder}/{name}"
        if not build.compile(source, f"{ROOT}/{source}", objects[source], "-O0", "-g", "-fsanitize-coverage=trace-pc"):
            sys.exit(f"mutants: {source} does not compile")
    own = f"{folder}/reach.o"
    flags = build.compilers["cfgtool/cli/main.cpp"]
    subprocess.run([*flags, "-c", f"{ROOT}/tests/mutants/reach.cpp", "-o", own], check=True, cwd=build.folder)
    os.makedirs(f"{folder}/bin", exist_ok=True)
    if not os.path.islink(f"{folder}/lib"):
        os.symlink(f"{build.folder}/lib", f"{folder}/lib")
    if not build.link("cfgtool", objects, tool, own):
        sys.exit("mutants: the tracing tool does not link")
    return tool


def lines_of_blocks(tool):
    """Where a call from each block comes back to -> the lines of the block."""
    listing = subprocess.run(
        ["objdump", "-dl", "--no-show-raw-insn", tool], check=True, capture_output=True, text=True
    ).stdout
    blocks, waiting, line, begun = {}, set(), None, False
    block = None
    for text in listing.splitlines():
        if match := re.match(rf"{re.escape(ROOT)}/(\S+):(\d+)", text):
            line = (match[1], int(match[2]))
        elif re.match(r"\S+ <.*>:$", text):
            block, line, waiting = None, None, set()
        elif match := re.match(r"\s+([0-9a-f]+):\t(.*)", text):
            if begun:
                block = blocks.setdefault(int(match[1], 16), waiting)
                waiting, begun = set(), False
            if line:
                (waiting if block is None else block).add(line)
            if "<__sanitizer_cov_trace_pc" in match[2]:
                waiting, begun = waiting if block is None else {line} - {None}, True
    return blocks


def trace(job):
    """Plays the runs of one file: for each its seconds and the blocks it went through."""
    runs, tool, platform, folder = job
    path = f"{folder}/table-{os.getpid()}"
    found = []
    with open(path, "w+b") as file:
        file.truncate(TABLE_SIZE)
        with mmap.mmap(file.fileno(), TABLE_SIZE) as table:
            for run in runs:
                run.transcript.env["REACH_TABLE"] = os.fsencode(path)
                table[:] = bytes(TABLE_SIZE)
                start = time.monotonic()
                transcripts.play(run.transcript, run.argv, tool, platform)
                seconds = time.monotonic() - start
                hit = table[:]
                blocks, at = [], hit.find(1)
                while at >= 0:
                    blocks.append(at)
                    at = hit.find(1, at + 1)
                found.append((seconds, blocks))
    os.remove(path)
    return found


class Reach:
    """line -> the runs that reach it, as bits of a number."""

    def __init__(self, build, runs, folder, jobs):
        os.makedirs(folder, exist_ok=True)
        tool = build_tracing_tool(build, folder)
        by_file = {}
        for index, run in enumerate(runs):
            by_file.setdefault(run.file, []).append(index)
        traced = self.traced(build, runs, by_file, tool, folder, jobs)
        reached = {}
        for name, indexes in by_file.items():
            for index, (seconds, blocks) in zip(indexes, traced[name]):
                runs[index].normal_s = seconds
                for block in blocks:
                    reached[block] = reached.get(block, 0) | 1 << index
        if not reached:
            sys.exit("mutants: the transcripts reach nothing of the tracing tool")
        self.lines = {}
        for block, lines in lines_of_blocks(tool).items():
            for line in lines:
                self.lines[line] = self.lines.get(line, 0) | reached.get(block, 0)
        self.count = len(runs)

    @staticmethod
    def traced(build, runs, by_file, tool, folder, jobs):
        """Kept for the next time: what a file of transcripts reaches changes with it and with the tool."""
        keys = {
            name: hashlib.sha256(content(tool) + content(f"{ROOT}/tests/transcripts/{name}")).hexdigest()
            for name in by_file
        }
        kept = f"{folder}/reach.json"
        known = {}
        if os.path.exists(kept):
            with open(kept, encoding="utf-8") as file:
                known = {key: value for key, value in json.load(file).items() if key in keys.values()}
        new = [name for name in by_file if keys[name] not in known]
        parts = [([runs[index] for index in by_file[name]], tool, build.platform, folder) for name in new]
        with multiprocessing.Pool(jobs) as pool:
            for name, result in zip(new, pool.imap(trace, parts, 1)):
                known[keys[name]] = result
        with open(kept, "w", encoding="utf-8") as file:
            json.dump(known, file)
        return {name: known[key] for name, key in keys.items()}

    def of_line(self, source, line):
        """The runs that reach the line; where it holds no code, those that reach the file; of a header, all."""
        if (source, line) in self.lines:
            return self.lines[source, line]
        if source.endswith(".h"):
            return (1 << self.count) - 1
        return self.of_file(source)

    def of_file(self, source):
        found = 0
        for (name, _), runs in self.lines.items():
            if name == source:
                found |= runs
        return found

    @functools.lru_cache(maxsize=None)
    def lines_reached(self, source):
        """For each run, how many lines of the source it reaches."""
        counts = [0] * self.count
        for (name, _), runs in self.lines.items():
            while name == source and runs:
                lowest = runs & -runs
                counts[lowest.bit_length() - 1] += 1
                runs ^= lowest
        return counts
