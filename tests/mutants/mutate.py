#!/usr/bin/python3
"""Changes the tool in one place at a time and plays its transcripts: does one of them notice?

    mutate.py --build build [--count 500] [--seed 1] [--jobs 2] [--only FILE ...]
    mutate.py --build build --again build/mutants/report.json     those that survived then

A mutant that is no C++, or is the same machine code, does not count: the next place is taken. It is caught when a run
goes wrong twice that goes right with the tool as it is, or by other tests (SECOND_LINE). BUILD/mutants/report.json
tells of each. docs/mutants.md has the figures.
"""

import argparse
import collections
import dataclasses
import json
import multiprocessing
import os
import random
import resource
import signal
import sys

from build import ROOT, SECOND_LINE, Build, Workshop, text_of
from equivalent import EQUIVALENT
from places import File
from runs import Reach, all_runs

sys.path.insert(0, f"{ROOT}/scripts")
from rooms import sources  # noqa: E402

LARGEST_FILE = 1 << 28  # that a mutant may write
ALLOWED = 0.05  # of the mutants may survive


@dataclasses.dataclass
class Mutant:
    file: str
    line: int
    kind: str
    before: str
    after: str
    verdict: str = ""  # "caught", "survived"
    by: str = ""  # the run that caught it

    def __str__(self):
        told = f"{self.verdict:8} {self.file}:{self.line} {self.kind}: {short(self.before)} -> {short(self.after)}"
        return f"{told}    [{self.by}]" if self.by else told


def short(text):
    text = " ".join(text.split())
    return text if len(text) <= 60 else text[:57] + "..."


# Choice ---------------------------------------------------------------------------------------------------------------


def order_of(source, text, seed):
    """All places of a file, by chance, the kinds in turn: constants would be most of them otherwise."""
    chance = random.Random(f"{seed} {source}")
    by_kind = {}
    for place in File(text).places():
        by_kind.setdefault(place.kind, []).append(place)
    for places in by_kind.values():
        chance.shuffle(places)
    order = []
    while by_kind:
        kind = chance.choice(sorted(by_kind))
        order.append(by_kind[kind].pop())
        if not by_kind[kind]:
            del by_kind[kind]
    return order


def shares(count, sizes):
    """`count` dealt out by size, to every file one at least while there are any."""
    dealt = {name: 0 for name in sizes}
    for _ in range(count):
        able = [name for name in sizes if dealt[name] < sizes[name]]
        if not able:
            break
        dealt[max(able, key=lambda name: (sizes[name] / (dealt[name] + 0.1), name))] += 1
    return dealt


# Trial ----------------------------------------------------------------------------------------------------------------


class Trial:
    """Tries mutants, one after the other, in a workshop of its own."""

    def __init__(self, build, runs, reach, folder):
        self.build, self.runs, self.reach = build, runs, reach
        self.workshop = Workshop(build, f"{folder}/{os.getpid()}")
        self.caught_before = collections.Counter()  # (source, run)
        os.makedirs(f"{folder}/empty", exist_ok=True)
        os.chdir(f"{folder}/empty")  # a mutant may garble a path
        resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))

    def of(self, source, text, place):
        """None = it does not count."""
        mutant = Mutant(source, place.line(text), place.kind, text[place.start : place.end], place.after)
        line = text.splitlines()[mutant.line - 1].strip()
        if (source, line, mutant.before, mutant.after) in EQUIVALENT:
            return None
        if self.workshop.make(source, place.apply(text)) != "built":
            return None
        mutant.by = self.catcher(source, mutant.line) or next(filter(self.workshop.fails, SECOND_LINE), "")
        mutant.verdict = "caught" if mutant.by else "survived"
        return mutant

    def catcher(self, source, line):
        """The run that notices; those that go most through the source are tried first."""
        reaching = self.reach.of_line(source, line)
        through = self.reach.lines_reached(source)
        candidates = [index for index in range(len(self.runs)) if reaching >> index & 1]
        candidates.sort(key=lambda index: (-self.caught_before[source, index], -through[index], index))
        for index in candidates:
            if self.catches(self.runs[index]):
                self.caught_before[source, index] += 1
                return self.runs[index].name
        return ""

    def catches(self, run):
        platform = self.build.platform
        faults = run.faults(self.workshop.tool, platform)
        if not faults or run.faults(self.build.tool, platform):
            return False
        return bool(run.faults(self.workshop.tool, platform))


trial = None  # of this process


def begin(*about):
    global trial
    trial = Trial(*about)


def try_file(job):
    """Mutants of one file until the quota is met: (file, the places left over, the mutants)."""
    source, text, places, quota = job
    places, mutants = list(places), []
    while places and len(mutants) < quota:
        if mutant := trial.of(source, text, places.pop(0)):
            mutants.append(mutant)
            print(mutant, flush=True)
    return source, places, mutants


def try_all(pool, texts, orders, count):
    """`count` mutants that count, or as many as there are."""
    mutants = []
    while len(mutants) < count and any(orders.values()):
        quotas = shares(count - len(mutants), {source: len(places) for source, places in orders.items()})
        largest_first = sorted(quotas, key=quotas.get, reverse=True)
        jobs = [(source, texts[source], orders[source], quotas[source]) for source in largest_first]
        for source, left, found in pool.imap_unordered(try_file, jobs, 1):
            orders[source] = left
            mutants += found
    return mutants


def survivors_of(report, texts):
    """file -> the places of the mutants that survived."""
    with open(report, encoding="utf-8") as file:
        wanted = [Mutant(**mutant) for mutant in json.load(file) if mutant["verdict"] == "survived"]
    orders = {}
    for mutant in wanted:
        text = texts[mutant.file]
        for place in File(text).places():
            if (place.line(text), place.kind, text[place.start : place.end], place.after) == (
                mutant.line,
                mutant.kind,
                mutant.before,
                mutant.after,
            ):
                orders.setdefault(mutant.file, []).append(place)
    return orders


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--build", required=True)
    options.add_argument("--count", type=int, default=500)
    options.add_argument("--seed", default="1")
    options.add_argument("--jobs", type=int, default=2)
    options.add_argument("--only", nargs="+", metavar="FILE", default=sources())
    options.add_argument("--again", metavar="REPORT")
    options.add_argument("--report")
    chosen = options.parse_args()
    os.nice(15)
    for number in (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT):  # a job in the background comes with some ignored
        signal.signal(number, signal.SIG_DFL)

    build = Build(chosen.build)
    for name in SECOND_LINE:
        if Workshop(build, f"{build.folder}/mutants/unchanged").fails(name):
            sys.exit(f"mutants: the {name} fail with the tool as it is")
    folder = f"{build.folder}/mutants"
    report = os.path.abspath(chosen.report or f"{folder}/report.json")
    texts = {source: text_of(source) for source in sources()}
    if chosen.again:
        orders = survivors_of(chosen.again, texts)
        chosen.count = sum(map(len, orders.values()))
    else:
        orders = {source: order_of(source, texts[source], chosen.seed) for source in chosen.only}
    runs = all_runs()
    reach = Reach(build, runs, f"{folder}/reach", chosen.jobs)
    with multiprocessing.Pool(chosen.jobs, begin, (build, runs, reach, folder)) as pool:
        mutants = try_all(pool, texts, orders, chosen.count)

    mutants.sort(key=lambda mutant: (mutant.file, mutant.line, mutant.kind, mutant.after))
    with open(report, "w", encoding="utf-8") as file:
        json.dump([dataclasses.asdict(mutant) for mutant in mutants], file, indent=1)
    survived = [mutant for mutant in mutants if mutant.verdict == "survived"]
    by_others = collections.Counter(mutant.by for mutant in mutants if mutant.by in SECOND_LINE)
    print("\nSurvivors:" if survived else "\nNo survivors.", *survived, sep="\n    ")
    print(
        f"{len(mutants)} mutants, {len(mutants) - len(survived)} caught"
        f" ({len(mutants) - len(survived) - by_others.total()} by transcripts,"
        f" {', '.join(f'{by_others[name]} by {name}' for name in SECOND_LINE)}),"
        f" {len(survived)} survived: {100 * (1 - len(survived) / max(1, len(mutants))):.1f} % caught"
    )
    return 0 if mutants and len(survived) <= -(-ALLOWED * len(mutants) // 1) else 1


if __name__ == "__main__":
    sys.exit(main())
