#!/usr/bin/python3
"""Writes down every transcript for the driver of the faults: what the tool finds, what it is answered, what it shows.

    conversations.py FILE.t ... >CONVERSATIONS

One line a fact, its first word says which, bytes are in hexadecimal; conversation.cpp reads them. Transcripts in which a
signal comes are left out: when it comes is told by their own conversation, which a fault changes."""
import os
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
import transcript as runner

OF_THE_WIRE = {"send", "recv", "uid", "secret", "screen"}  # words of the script that are written down otherwise


def archive_bytes(members):
    with tempfile.TemporaryDirectory() as root:
        runner.put_archive(root, "/archive", members)
        return Path(root, "archive").read_bytes()


def files_of(transcript):
    """(kind, path, content); a cut comes last, as it is made last."""
    yield from [("folder", "/data", b""), ("folder", "/tmp", b"")]
    if transcript.board is not None:
        yield ("file", "/data/cli.conf", transcript.board)
    yield from transcript.files
    for path, members in transcript.archives.items():
        yield ("file", path, archive_bytes(members))
    for path, length in transcript.cuts.items():
        yield (f"cut {length}", path, b"")


def wire_of(transcript):
    """The script's sends and receives, each send with the frame that is expected of it."""
    frames = [event[1] for event in transcript.events if event[0] == "send"]
    for line in transcript.script:
        verb, _, rest = line.partition(" ")
        if verb == "send":
            yield f"send {rest} {frames.pop(0).hex()}"
        elif verb == "recv":
            yield line


def conversation(transcript):
    yield "transcript " + os.path.relpath(transcript.where, Path(__file__).parents[2])
    yield f"uid {transcript.uid}"
    yield from (f"word {os.fsencode(word).hex()}" for word in transcript.commands[0])
    yield from (f"environment {name.encode().hex()}3D{value.hex()}" for name, value in transcript.env.items())
    yield from (f"closed {number}" for number in transcript.closed)
    if transcript.screen:
        yield f"screen {transcript.screen}"
    for kind, path, content in files_of(transcript):
        yield f"file {os.fsencode(path).hex()} {content.hex() or '-'} {kind}"
    yield from (line for line in transcript.script if line.split()[0] not in OF_THE_WIRE)
    yield from wire_of(transcript)
    secrets = {event[1] for event in transcript.events if event[0] == "secret" and not is_alphabet(event[1])}
    yield from (f"secret {secret.hex()}" for secret in sorted(secrets))
    for event in transcript.events:
        if event[0] == "keys":
            yield f"keys {event[1].hex()}"
        elif event[0] == "screen":
            yield f"shown {event[1].hex()}"
        elif event[0] == "log":
            yield "logged " + b"\n".join([str(event[1]).encode(), *event[2:]]).hex()
    yield "end"


def is_alphabet(secret):
    """Characters of neighbouring codes: libc's own tables hold them too."""
    return all(code + 1 == following for code, following in zip(secret, secret[1:]))


def has_signal(transcript):
    return transcript.ending or any(line.startswith("signal ") for line in transcript.script)


def main():
    for path in sorted(sys.argv[1:]):
        for transcript in runner.Reader(os.path.abspath(path)).transcripts():
            if not has_signal(transcript):
                print(*conversation(transcript), sep="\n")


if __name__ == "__main__":
    main()
