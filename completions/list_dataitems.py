#!/usr/bin/python3
"""The tool's tables of commands for the completion: list-words | list_dataitems.py >dataitems"""

import json
import sys

HEADING = "# Targets and dataitems as the tool lists them: target (- for none), name, help text. Made by list_dataitems.py.\n"


def table_of(words):
    rows = [("target", row["name"], row["help"]) for row in words["targets"]]
    rows += [("-", row["name"], row["help"]) for row in words["dataitems"]]
    rows += [(target["name"], row["name"], row["help"]) for target in words["targets"] for row in target["dataitems"]]
    return HEADING + "".join("\t".join(row) + "\n" for row in rows)


if __name__ == "__main__":
    sys.stdout.write(table_of(json.load(sys.stdin)))
