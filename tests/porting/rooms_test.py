#!/usr/bin/python3
"""The tool's rooms: includes lead downwards only, floor by floor as cfgtool/rooms lists them."""

import re
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from rooms import ROOT, floors, sources  # noqa: E402

INCLUDE = re.compile(r'^ *#include "([^"]+)"', re.MULTILINE)


def arrows(file: str, text: str) -> list[str]:
    """The includes of a file that lead anywhere but down."""
    floor_of = {room: number for number, rooms in enumerate(floors()) for room in rooms}
    room = file.split("/")[1]
    wrong = []
    for header in INCLUDE.findall(text):
        other = header.split("/")[0]
        below = other in floor_of and floor_of[other] > floor_of[room]
        if not (other == room or below or header == "platform/platform.h"):
            wrong.append(f"{file} includes {header}")
    return wrong


class Rooms(unittest.TestCase):
    def test_includes_lead_downwards_only(self):
        self.maxDiff = None
        self.assertEqual([], [arrow for file in sources() for arrow in arrows(file, (ROOT / file).read_text())])

    def test_every_folder_is_a_room(self):
        folders = sorted(path.name for path in (ROOT / "cfgtool").iterdir() if path.is_dir())
        self.assertEqual(folders, sorted(room for rooms in floors() for room in rooms))

    def test_an_include_that_leads_up_or_across_is_found(self):
        for room, header in (("ui", "ipmi/sdr.h"), ("sel", "sensor/sensor.h"), ("ipmi", "cli/options.h"),
                             ("user", "tests/unit/printed.h"), ("user", "platform/linux/linux.h")):
            self.assertEqual([f"cfgtool/{room}/x.cpp includes {header}"],
                             arrows(f"cfgtool/{room}/x.cpp", f'#include "{header}"\n'))
        self.assertEqual([], arrows("cfgtool/sel/x.cpp", '#include <a/b.h>\n#include "sel/csv.h"\n#include "ui/console.h"\n'))


if __name__ == "__main__":
    unittest.main()
