#!/usr/bin/python3
"""cfgtool-verdict and what it runs: the real cfgtool on the scripted platform, and programs that take its place. Every
document is checked against verdict/schema.json.

CFGTOOL_VERDICT, CFGTOOL and SCRIPTED_PLATFORM_LIBRARY name the two programs and the library.
"""

import json
import os
import pty
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest
from pathlib import Path

import jsonschema

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
import transcript as runner  # noqa: E402

VERDICT, TOOL, PLATFORM = (
    os.path.abspath(os.environ[name]) for name in ("CFGTOOL_VERDICT", "CFGTOOL", "SCRIPTED_PLATFORM_LIBRARY")
)
SCHEMA = json.loads((Path(__file__).resolve().parents[2] / "verdict/schema.json").read_text())
TIME_LIMIT_S = 60

FANLEVEL = """$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < {answer}
| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 3C
| Manual Fan Level:    60%
"""
RESET = """$ cfgtool -d reset
|"This operation will reboot IPMC system. Continue? [Y/N]:"
keys "{answer}\\n"
> 06 02  < 00
| Resetting...
"""
COMMUNITY = """$ cfgtool -t trap -d community
|"New Community:"
hidden "Sesame-77\\r"
|"\\n"
|"Confirm Community:"
hidden "Sesame-77\\r"
|"\\n"
> 0C 01  01 00 01                                                  < 00
> 0C 01  01 10 53 65 73 61 6D 65 2D 37 37 00 00 00 00 00 00 00 00 00 < 00
> 0C 01  01 00 00                                                  < 00
| Set SNMP trap community success.
"""
VERSION, END = "version\t1", "end"
SUCCESS = "done\t\tSet fan level successfully.\\r\\n"


class Ran:
    def __init__(self, status, out, err, document=None):
        self.status, self.out, self.err = status, out, err
        self.document = document
        if document is None and out.startswith(b"{"):
            self.document = json.loads(out.decode("utf-8"))
        if self.document is not None:
            jsonschema.validate(self.document, SCHEMA)


class verdict(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="verdict-test-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def program(self, script, name="other"):
        path = self.folder / name
        path.write_text("#!/bin/sh\n" + script)
        path.chmod(0o755)
        return str(path)

    def says(self, *lines):
        """A shell command that writes these lines to the status descriptor."""
        handle, path = tempfile.mkstemp(dir=self.folder)
        with os.fdopen(handle, "wb") as file:
            file.write(b"".join(line.encode() + b"\n" if isinstance(line, str) else line for line in lines))
        return f"cat {path} >/proc/self/fd/$CFGTOOL_STATUS_FD\n"

    def run_verdict(self, *words, **more):
        pipes = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | more
        if "input" in pipes:
            del pipes["stdin"]
        program = pipes.pop("program", VERDICT)
        ran = subprocess.run([program, *words], timeout=TIME_LIMIT_S, **pipes)
        return Ran(ran.returncode, ran.stdout, ran.stderr)

    def run_script(self, script, *words, **more):
        """With a program in the tool's place."""
        return self.run_verdict("--tool", self.program(script), *words, **more)

    def run_lines(self, *lines):
        """With a program in the tool's place that writes these lines and nothing else."""
        return self.run_script(self.says(*lines), "-d", "fanlevel")

    def prepare(self, text):
        """The real tool on the scripted platform: its path, its transcript and what it needs."""
        root = self.folder / "root"
        runner.put_file(str(root), "file", "/data/cli.conf", runner.STANDARD_BOARD)
        file = self.folder / "one.t"
        file.write_text(text)
        transcript = runner.Reader(str(file)).one()
        script = "\n".join([f"uid {transcript.uid}", f"root {root}", *transcript.script]) + "\n"
        descriptors = runner.write_to_memory(script.encode()), runner.write_to_memory()
        for descriptor in descriptors:
            self.addCleanup(os.close, descriptor)
        tool = self.program(f'LD_PRELOAD="{PLATFORM}" exec "{TOOL}" "$@"\n', "cfgtool")
        scripted = "{},{}".format(*descriptors)
        environment = {**os.environ, "LOGNAME": "tester", "SCRIPTED_PLATFORM": scripted}
        return tool, transcript, {"env": environment, "pass_fds": descriptors}

    def play(self, text):
        """With the real tool, on a terminal where its keys are typed."""
        tool, transcript, needs = self.prepare(text)
        terminal = runner.Terminal(transcript)
        process = subprocess.Popen(
            [VERDICT, "--json", str(self.folder / "json"), "--tool", tool, *transcript.commands[0][1:]],
            stdin=terminal.child,
            stdout=terminal.child,
            stderr=subprocess.PIPE,
            start_new_session=True,
            **needs,
        )
        os.close(terminal.child)
        terminal.follow(process, time.monotonic() + TIME_LIMIT_S)
        _, err = process.communicate(timeout=TIME_LIMIT_S)
        self.assertEqual(termios.tcgetattr(terminal.main), terminal.settings)
        os.close(terminal.main)
        return Ran(process.returncode, terminal.shown, err, json.loads((self.folder / "json").read_text()))

    def play_unattended(self, text, *options, **more):
        """With the real tool, and nobody at a terminal."""
        tool, transcript, needs = self.prepare(text)
        return self.run_verdict(*options, "--tool", tool, *transcript.commands[0][1:], **needs, **more)

    def assert_verdict(self, ran, name, status):
        self.assertEqual((ran.document["verdict"], ran.status), (name, status), ran.document)

    # The tool itself

    def test_done(self):
        ran = self.play(FANLEVEL.format(answer="00 00"))
        self.assert_verdict(ran, "done", 0)
        self.assertEqual(
            ran.document,
            {
                "format": 2,
                "words": ["-d", "fanlevel", "-v", "60"],
                "target": None,
                "dataitem": "fanlevel",
                "verdict": "done",
                "sentence": "Set fan level successfully.",
                "error": None,
                "event_codes": ["0x20E004F0"],
                "signal": None,
                "lines": [
                    "Set fan level successfully.",
                    "Current Mode:        manual, timeout 30 seconds.",
                    "Manual Fan Level:    60%",
                ],
                "lines_left_out": 0,
            },
        )
        self.assertEqual(ran.err, b"")

    def test_failed_with_the_completion_code_in_words(self):
        ran = self.play("$ cfgtool -d fanlevel -v 60\n> 2C 15  00 00 3C < C9\n")
        self.assert_verdict(ran, "failed", 1)
        self.assertEqual(ran.document["sentence"], "Set fan level  failed, error code: 0x2C1500C9")
        parts = {"netfn": 0x2C, "command": 0x15, "selector": 0, "completion": 0xC9, "text": "Parameter out of range"}
        self.assertEqual(ran.document["error"], {"code": "0x2C1500C9", **parts})
        self.assertEqual(ran.document["event_codes"], [])

    def test_no_answer_from_the_controller(self):
        ran = self.play("$ cfgtool -d fanlevel -v 60\n> 2C 15  00 00 3C < silent\n")
        self.assert_verdict(ran, "no_answer", 5)
        self.assertEqual(
            ran.document["error"], {"code": "0x40000001", "text": "no answer came, or one of a wrong length"}
        )

    def test_refused_by_privilege(self):
        ran = self.play("uid 503\n$ cfgtool -d fanlevel -v 60\n> 06 44  01 03 < 00 11 04 01 33\n")
        self.assert_verdict(ran, "refused", 2)
        self.assertEqual(ran.document["sentence"], "Insufficient privilege level")

    def test_privilege_that_cannot_be_asked_for(self):
        for answer, name, status, sentence in (
            ("silent", "no_answer", 5, "send 'Get User Access Command' failed!"),
            ("C1", "refused", 2, "Get User Access Command failed!"),
        ):
            with self.subTest(answer):
                ran = self.play(f"uid 503\n$ cfgtool -d fanlevel -v 60\n> 06 44  01 03 < {answer}\n")
                self.assert_verdict(ran, name, status)
                self.assertEqual(ran.document["sentence"], sentence)

    def test_refused_by_usage(self):
        ran = self.play("$ cfgtool -d fanlevel\n")
        self.assert_verdict(ran, "refused", 2)
        self.assertEqual(ran.document["sentence"], "Usage: cfgtool -d fanlevel -v <value>")

    def test_a_yes_is_typed(self):
        ran = self.play(RESET.format(answer="y"))
        self.assert_verdict(ran, "done", 0)
        self.assertEqual(ran.document["event_codes"], ["0x202001E0"])

    def test_a_no_is_typed(self):
        ran = self.play(RESET.format(answer="n").partition(">")[0])
        self.assert_verdict(ran, "refused", 2)
        self.assertIsNone(ran.document["sentence"])

    def test_a_hidden_word_is_typed_and_nowhere_shown(self):
        ran = self.play(COMMUNITY)
        self.assert_verdict(ran, "done", 0)
        self.assertNotIn(b"Sesame", ran.out)
        self.assertNotIn("Sesame", json.dumps(ran.document))

    # Nobody at a terminal

    def test_a_question_is_answered_no_unless_ordered_otherwise(self):
        answered = RESET.format(answer="y")
        self.assert_verdict(self.play_unattended(answered.partition(">")[0], input=b"y\n"), "refused", 2)
        self.assert_verdict(self.play_unattended(answered, "--yes"), "done", 0)

    def test_yes_goes_before_a_terminal(self):
        main, child = pty.openpty()
        ran = self.play_unattended(RESET.format(answer="y"), "--yes", stdin=child)
        os.close(main)
        os.close(child)
        self.assert_verdict(ran, "done", 0)

    def secrets(self, words):
        """A descriptor with these bytes."""
        path = self.folder / "secrets"
        path.write_bytes(words)
        descriptor = os.open(path, os.O_RDONLY)
        self.addCleanup(os.close, descriptor)
        return descriptor

    def test_secrets_on_standard_input(self):
        ran = self.play_unattended(COMMUNITY, "--secrets", "0", input=b"Sesame-77\nSesame-77\n")
        self.assert_verdict(ran, "done", 0)
        self.assertNotIn(b"Sesame", ran.out + ran.err)

    def test_secrets_on_another_descriptor_without_the_last_line_feed_and_with_words_left_over(self):
        for words in (b"Sesame-77\nSesame-77", b"Sesame-77\nSesame-77\nleft over\n"):
            with self.subTest(words):
                tool, transcript, needs = self.prepare(COMMUNITY)
                descriptor = self.secrets(words)
                needs["pass_fds"] += (descriptor,)
                ran = self.run_verdict(
                    "--secrets", str(descriptor), "--tool", tool, *transcript.commands[0][1:], **needs
                )
                self.assert_verdict(ran, "done", 0)

    def test_words_that_come_late(self):
        reader, writer = os.pipe()
        tool, transcript, needs = self.prepare(COMMUNITY)
        process = subprocess.Popen(
            [VERDICT, "--secrets", "0", "--tool", tool, *transcript.commands[0][1:]],
            stdin=reader, stdout=subprocess.PIPE, stderr=subprocess.PIPE, **needs,
        )
        os.close(reader)
        shown = b""
        while b"New Community:" not in shown:
            shown += os.read(process.stderr.fileno(), 100)
        for piece in (b"Ses", b"ame-77", b"\nSesame-77\n"):
            os.write(writer, piece)
            time.sleep(0.02)  # so that they are read in pieces, on most runs
        out, _ = process.communicate(timeout=TIME_LIMIT_S)
        os.close(writer)
        self.assertEqual((process.returncode, json.loads(out)["verdict"]), (0, "done"))

    def test_an_empty_line_is_an_empty_word(self):
        typed = COMMUNITY.partition("|\"Confirm")[0].replace("Sesame-77", "")
        ran = self.play_unattended(typed, "--secrets", "0", input=b"\n")
        self.assert_verdict(ran, "refused", 2)
        self.assertEqual(ran.document["sentence"], "Usage: cfgtool -t trap -d community")

    def test_a_missing_word_ends_the_input(self):
        for words, sentence in (
            (b"", "Usage: Input New Community error "),
            (b"Sesame-77\n", "Confirm Community error "),
        ):
            with self.subTest(words):
                ran = self.play_unattended(COMMUNITY.partition(">")[0], "--secrets", "0", input=words)
                self.assert_verdict(ran, "refused", 2)
                self.assertEqual((ran.document["sentence"], ran.document["signal"]), (sentence, None))

    def test_a_word_that_cannot_be_typed_is_withheld(self):
        for words, why in ((b"S\xc3\xa9same\n", b"has a byte that cannot be typed"), (b"x" * 1024, b"is too long"),
                           (b"two\rwords\n", b"has a byte that cannot be typed")):
            with self.subTest(words):
                ran = self.play_unattended(COMMUNITY.partition("|\"Confirm")[0], "--secrets", "0", input=words)
                self.assertNotIn(ran.document["verdict"], ("done", "unknown"))
                self.assertTrue(ran.err.endswith(b"cfgtool-verdict: --secrets: a hidden word " + why + b"\n"), ran.err)

    def test_secrets_of_a_terminal_are_misuse(self):
        main, child = pty.openpty()
        ran = self.run_verdict("--secrets", "0", "-d", "reset", stdin=child)
        os.close(main)
        os.close(child)
        self.assertEqual((ran.status, ran.document), (4, None))
        self.assertIn(b"not read from a terminal", ran.err)

    def test_a_descriptor_that_cannot_be_read_is_misuse(self):
        for descriptor in ("77", "1", "-1", "x", "", "99999999999999999999"):
            with self.subTest(descriptor):
                ran = self.run_verdict("--secrets", descriptor, "-d", "reset")
                self.assertEqual(
                    (ran.status, ran.err), (4, b"cfgtool-verdict: --secrets: not a descriptor that can be read\n")
                )

    def test_the_tool_does_not_get_the_secrets(self):
        descriptor = self.secrets(b"Sesame-77\n")
        script = f"[ ! -e /proc/self/fd/{descriptor} ] || echo open\n" + self.says(VERSION, END)
        ran = self.run_script(script, "--secrets", str(descriptor), pass_fds=(descriptor,))
        self.assertEqual((ran.status, ran.err), (3, b""))

    # What the lines say

    def test_failed_goes_before_refused_and_refused_before_done(self):
        refused, failed = "refused\t\tNo.\\r\\n", "failed\t\tSet fan level  failed\\r\\n"
        for lines, name, status, sentence in (
            ((SUCCESS, failed, refused), "failed", 1, "Set fan level  failed"),
            ((refused, SUCCESS), "refused", 2, "No."),
            (("usage\t\tUsage: a\\r\\n  b\\r\\n", SUCCESS), "refused", 2, "Usage: a"),
            ((SUCCESS, "done\t\tAll done.\\r\\n"), "done", 0, "Set fan level successfully."),
            (("done\t\t",), "done", 0, None),
            (("refused\t\t\\r\\nNo.\\r\\n",), "refused", 2, "No."),
            (("information\t\tfailed\\r\\n",), "unknown", 3, None),
            ((), "unknown", 3, None),
        ):
            with self.subTest(lines):
                ran = self.run_lines(VERSION, *lines, END)
                self.assert_verdict(ran, name, status)
                self.assertEqual(ran.document["sentence"], sentence)

    def test_a_failure_with_a_code_goes_before_one_without(self):
        ran = self.run_lines(
            VERSION,
            "failed\t\tErr in cmd get sensor sdr info\\r\\n",
            "failed\t0x40000003\tSensor test failed, error code: 0x40000003\\r\\n",
            "failed\t0x40000004\tSensor test failed, error code: 0x40000004\\r\\n",
            END,
        )
        self.assertEqual(ran.document["sentence"], "Sensor test failed, error code: 0x40000003")
        self.assertEqual(ran.document["error"], {"code": "0x40000003", "text": "sensor not found"})

    def test_no_answer_is_told_from_a_refusal_by_the_code(self):
        for code, name, status in (
            ("0x40000000", "no_answer", 5),
            ("0x40000001", "no_answer", 5),
            ("0x40000002", "no_answer", 5),
            ("0x40000003", "failed", 1),
            ("0x3FFFFFFF", "failed", 1),
            ("0x00000000", "failed", 1),
        ):
            with self.subTest(code):
                self.assert_verdict(self.run_lines(VERSION, f"failed\t{code}\tx\\r\\n", END), name, status)
        self.assert_verdict(self.run_lines(VERSION, "refused\t0x40000001\tx\\r\\n", END), "no_answer", 5)
        self.assert_verdict(self.run_lines(VERSION, "done\t0x40000001\tx\\r\\n", END), "done", 0)

    def test_codes_that_ipmi_has_no_words_for(self):
        for code, words in (
            ("0x30930000", "no reason is known"),
            ("0x06470084", "against the controller's rules for passwords"),
            ("0x0C011084", "against the controller's rules for communities"),
            ("0x0C01C384", "Unknown (0x84)"),
            ("0x000000C1", "Invalid command"),
            ("0x40000007", "unknown"),
        ):
            with self.subTest(code):
                ran = self.run_lines(VERSION, f"failed\t{code}\tx\\r\\n", END)
                self.assertEqual(ran.document["error"]["text"], words)

    def test_a_run_without_all_its_lines_is_unknown(self):
        for lines in (
            (VERSION, SUCCESS),
            (SUCCESS, END),
            ("version\t2", SUCCESS, END),
            (VERSION, SUCCESS, "lost", END),
            (VERSION, SUCCESS, b"x" * 10000 + b"\n", END),
        ):
            with self.subTest(lines):
                ran = self.run_lines(*lines)
                self.assert_verdict(ran, "unknown", 3)
                self.assertIsNone(ran.document["sentence"])

    def test_lines_and_fields_it_does_not_know_are_skipped(self):
        ran = self.run_lines(
            "version\t1\tx", "weather\train", "", "\t", "command\teth0\tvlan\tx", "done\t\tDone.\\r\\n\tmore", "end\tx"
        )
        self.assert_verdict(ran, "done", 0)
        self.assertEqual((ran.document["target"], ran.document["dataitem"]), ("eth0", "vlan"))
        self.assertEqual(ran.document["lines"], ["Done."])

    def test_event_codes_are_those_recorded(self):
        ran = self.run_lines(
            VERSION,
            "record\t2\tFan\tSet EvtCode:0x00000000 success,EvtCode:0x20E004F0",
            SUCCESS,
            "record\t2\tFan\twithout one",
            "record\t1\tFan\tagain,EvtCode:0x20E004F1",
            END,
        )
        self.assertEqual(ran.document["event_codes"], ["0x20E004F0", "0x20E004F1"])

    def test_escapes_and_bytes_that_are_not_utf_8(self):
        ran = self.run_lines(
            VERSION,
            b"done\t\ta\xc3\xa9b\xc3\\x01\xff\"\\\\ \xed\xa0\x80\xf0\x9f\x98\x80\\x00c\\t\\q\\x0g\\r\\n\n",
            "more\tsecond\\r",
            "more\t\\nthird",
            END,
        )
        self.assertEqual(
            ran.document["lines"],
            ['a\u00e9b\ufffd\x01\ufffd"\\ \ufffd\ufffd\ufffd\U0001f600\0c\t\\q\\x0g', "second", "third"],
        )
        words = self.run_script("exit 0\n", "-d", b"\xe9\xc3\xa9").document["words"]
        self.assertEqual(words, ["-d", "\ufffd\u00e9"])

    def test_what_is_on_the_screen_changes_nothing(self):
        script = "printf 'Set fan level  failed\\r\\r\\nno end'\n" + self.says(VERSION, SUCCESS, END)
        ran = self.run_script(script, "-d", "fanlevel")
        self.assert_verdict(ran, "done", 0)
        self.assertEqual(ran.document["lines"], ["Set fan level successfully."])
        self.assertEqual(ran.err, b"Set fan level  failed\r\r\nno end")

    def test_a_million_lines(self):
        script = self.says(VERSION) + (
            "yes 'information\t\tCurrent Mode:        Auto \\r\\n' | head -n 1000000"
            " >/proc/self/fd/$CFGTOOL_STATUS_FD\n"
        ) + self.says(SUCCESS, END)
        ran = self.run_script(script, "-d", "fanlevel")
        self.assert_verdict(ran, "done", 0)
        kept = ran.document["lines"]
        self.assertEqual(len(kept) + ran.document["lines_left_out"], 1000001)
        self.assertLessEqual(sum(len(line) + 1 for line in kept), 65536)

    def test_a_line_that_fills_the_room(self):
        pieces = ["more\t" + "x" * 4000] * 17  # 68,000 bytes: more than are kept
        ran = self.run_lines(VERSION, "information\t\tfirst\\r\\n", *pieces, "more\tx\\r\\n", SUCCESS, END)
        self.assert_verdict(ran, "done", 0)
        self.assertEqual((ran.document["lines"], ran.document["lines_left_out"]), (["first"], 2))

    # How it ends

    def test_ended_by_a_signal(self):
        ran = self.run_script(self.says(VERSION, SUCCESS) + "kill -KILL $$\n", "-d", "fanlevel")
        self.assert_verdict(ran, "unknown", 128 + signal.SIGKILL)
        self.assertEqual(ran.document["signal"], signal.SIGKILL)

    def test_a_signal_is_handed_on(self):
        tool = self.program("echo ready\nexec sleep 60\n")
        process = subprocess.Popen([VERDICT, "--tool", tool], stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.assertEqual(process.stderr.readline(), b"ready\n")
        process.terminate()
        out, _ = process.communicate(timeout=TIME_LIMIT_S)
        self.assertEqual(process.returncode, 128 + signal.SIGTERM)
        self.assertEqual(json.loads(out)["signal"], signal.SIGTERM)

    def test_a_key_of_the_terminal_is_for_the_tool(self):
        failed = self.says(VERSION, "failed\t\tUpdate fail.\\r\\n", END).strip()
        tool = self.program(f"trap '{failed}; exit 0' INT\necho ready\nwhile :; do sleep 0.05; done\n")
        process = subprocess.Popen(
            [VERDICT, "--tool", tool, "-d", "upgrade"],
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            start_new_session=True,
        )
        self.assertEqual(process.stderr.readline(), b"ready\n")
        os.killpg(process.pid, signal.SIGINT)
        out, _ = process.communicate(timeout=TIME_LIMIT_S)
        self.assertEqual((process.returncode, json.loads(out)["verdict"]), (1, "failed"))

    def test_another_exit_status_than_0_is_none_of_the_tools(self):
        ran = self.run_script(self.says(VERSION, SUCCESS, END) + "exit 1\n", "-d", "fanlevel")
        self.assert_verdict(ran, "unknown", 3)

    def test_a_server_that_is_left_behind_is_not_waited_for(self):
        begun = time.monotonic()
        script = "sleep 45 2>/dev/null &\n" + self.says(VERSION, SUCCESS, END)
        ran = self.run_verdict("--tool", self.program(script), "-d", "fanlevel", stderr=subprocess.DEVNULL)
        self.assert_verdict(ran, "done", 0)
        self.assertLess(time.monotonic() - begun, 40)

    def test_a_timeout(self):
        ran = self.run_script(self.says(VERSION, SUCCESS) + "exec sleep 60\n", "--timeout", "1")
        self.assert_verdict(ran, "timed_out", 6)
        self.assertEqual((ran.document["signal"], ran.document["sentence"]), (signal.SIGTERM, None))

    def test_a_tool_that_holds_signals_back_is_not_killed(self):
        holding = (
            "import signal, time\n"
            "signal.pthread_sigmask(signal.SIG_BLOCK, {signal.SIGTERM})\n"
            "time.sleep(5)\n"  # longer than SIGTERM is given to have its effect
            "signal.pthread_sigmask(signal.SIG_UNBLOCK, {signal.SIGTERM})\n"
            "time.sleep(60)\n"
        )
        tool = self.program(f"exec /usr/bin/python3 -c '{holding}'\n")
        ran = self.run_verdict("--timeout", "1", "--tool", tool)
        self.assert_verdict(ran, "timed_out", 6)
        self.assertEqual(ran.document["signal"], signal.SIGTERM)

    def test_a_tool_that_ignores_sigterm_is_killed(self):
        ran = self.run_verdict("--timeout", "1", "--tool", self.program("trap '' TERM\nexec sleep 60\n"))
        self.assert_verdict(ran, "timed_out", 6)
        self.assertEqual(ran.document["signal"], signal.SIGKILL)

    # What it runs, and where it writes

    def test_no_such_tool(self):
        held = self.folder / "json"
        held.write_text("as it was\n")
        ran = self.run_verdict("--json", str(held), "--tool", "/nowhere/cfgtool", "-d", "reset")
        self.assertEqual((ran.status, ran.out), (4, b""))
        self.assertEqual(ran.err, b"cfgtool-verdict: /nowhere/cfgtool: No such file or directory\n")
        self.assertEqual(held.read_text(), "as it was\n")

    def test_the_tool_beside_it_is_run_else_that_on_the_path(self):
        own = self.folder / "own"
        own.mkdir()
        program = shutil.copy(VERDICT, own)
        self.program("echo on the path\n", "cfgtool")
        path = {**os.environ, "PATH": f"{self.folder}:{os.environ['PATH']}"}
        self.assertEqual(self.run_verdict(program=program, env=path).err, b"on the path\n")
        self.program("echo beside it\n", "own/cfgtool")
        self.assertEqual(self.run_verdict(program=program, env=path).err, b"beside it\n")

    def test_a_status_descriptor_of_its_own_is_not_handed_on(self):
        script = "env | grep -c ^CFGTOOL_STATUS_FD=\n" + self.says(VERSION, SUCCESS, END)
        ran = self.run_script(script, "-d", "x", env={**os.environ, "CFGTOOL_STATUS_FD": "2"})
        self.assert_verdict(ran, "done", 0)
        self.assertEqual(ran.err, b"1\n")

    def test_json_in_a_file(self):
        held = self.folder / "json"
        held.write_text("x" * 5000)
        tool = self.program("echo Update fail.\n" + self.says(VERSION, "failed\t\tUpdate fail.\\r\\n", END))
        ran = subprocess.run([VERDICT, "--json", held, "--tool", tool], capture_output=True, stdin=subprocess.DEVNULL)
        self.assertEqual((ran.returncode, ran.stdout, ran.stderr), (1, b"Update fail.\n", b""))
        self.assertEqual(json.loads(held.read_text())["lines"], ["Update fail."])

    def test_a_document_that_cannot_be_written(self):
        tool = self.program("touch " + str(self.folder / "has-run") + "\n")
        ran = self.run_verdict("--json", "/nowhere/json", "--tool", tool)
        self.assertEqual((ran.status, ran.err), (4, b"cfgtool-verdict: /nowhere/json: No such file or directory\n"))
        self.assertFalse((self.folder / "has-run").exists(), "it is found out before anything is done")
        ran = self.run_verdict("--json", "/dev/full", "--tool", tool)
        self.assertEqual((ran.status, ran.err), (4, b"cfgtool-verdict: the document: No space left on device\n"))

    def test_a_document_is_not_written_to_a_link_or_a_fifo(self):
        tool = self.program("touch " + str(self.folder / "has-run") + "\n")
        victim, link, fifo = self.folder / "victim", self.folder / "link", self.folder / "fifo"
        victim.write_text("precious")
        link.symlink_to(victim)
        (self.folder / "dangling").symlink_to(self.folder / "made")
        os.mkfifo(fifo)
        reader = None
        for name in ("link", "dangling", "fifo", "fifo"):
            path = str(self.folder / name)
            ran = self.run_verdict("--json", path, "--tool", tool)
            refused = f"cfgtool-verdict: {path}: a link or a FIFO is not written to\n".encode()
            self.assertEqual((ran.status, ran.err), (4, refused), name)
            if name == "fifo" and reader is None:
                reader = os.open(fifo, os.O_RDONLY | os.O_NONBLOCK)
        os.close(reader)
        self.assertEqual(victim.read_text(), "precious")
        self.assertFalse((self.folder / "made").exists())
        self.assertFalse((self.folder / "has-run").exists(), "it is found out before anything is done")

    def test_names_change_no_terminal(self):
        name = "/nowhere/\x1b[2J\x7f\x9bü"
        shown = "cfgtool-verdict: /nowhere/\\x1B[2J\\x7F\\xC2\\x9Bü: No such file or directory\n".encode()
        for option in ("--json", "--tool"):
            ran = self.run_verdict(option, name, "-d", "fanlevel")
            self.assertEqual((ran.status, ran.err), (4, shown))

    def test_nobody_reads_the_text(self):
        reader, writer = os.pipe()
        os.close(reader)
        script = "trap '' PIPE\necho x\n" + self.says(VERSION, SUCCESS, END)
        ran = self.run_script(script, "-d", "fanlevel", stderr=writer)
        os.close(writer)
        self.assert_verdict(ran, "done", 0)

    def test_closed_descriptors(self):
        tool = self.program(self.says(VERSION, SUCCESS, END))
        for closed in ("<&-", "2>&-", "<&- 2>&-"):
            with self.subTest(closed):
                ran = self.run_verdict("-c", f'"{VERDICT}" --tool "{tool}" -d fanlevel {closed}', program="/bin/sh")
                self.assert_verdict(ran, "done", 0)
        held = self.folder / "json"
        ran = self.run_verdict("-c", f'"{VERDICT}" --json "{held}" --tool "{tool}" -d fanlevel >&-', program="/bin/sh")
        self.assertEqual((ran.status, json.loads(held.read_text())["verdict"]), (0, "done"))

    def test_options(self):
        ran = self.run_verdict("--help")
        self.assertEqual((ran.status, ran.err, ran.out.splitlines()[0][:22]), (0, b"", b"Usage: cfgtool-verdict"))
        self.assertRegex(self.run_verdict("--version").out, rb"\Acfgtool-verdict \d+\.\d+\.\d+\n\Z")
        for words, complaint in (
            (("--jsn", "x"), "--jsn: unknown option; see cfgtool-verdict --help"),
            (("--tool",), "--tool: a value is missing"),
            (("--timeout", "0"), "--timeout: a number of seconds is needed"),
            (("--timeout", "1x"), "--timeout: a number of seconds is needed"),
            (("--timeout", "-1"), "--timeout: a number of seconds is needed"),
        ):
            with self.subTest(words):
                ran = self.run_verdict(*words)
                self.assertEqual((ran.status, ran.err.decode()), (4, f"cfgtool-verdict: {complaint}\n"))
        ran = self.run_script("exit 0\n", "--", "--help", "x")
        self.assertEqual(ran.document["words"], ["--help", "x"])


if __name__ == "__main__":
    unittest.main(verbosity=1)
