#!/usr/bin/python3
"""cfgtool-verdict and what it runs: the real cfgtool on the scripted platform, and programs that take its place.

CFGTOOL_VERDICT, CFGTOOL and SCRIPTED_PLATFORM_LIBRARY name the two programs and the library.
"""

import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
import transcript as runner  # noqa: E402

VERDICT, TOOL, PLATFORM = (
    os.path.abspath(os.environ[name]) for name in ("CFGTOOL_VERDICT", "CFGTOOL", "SCRIPTED_PLATFORM_LIBRARY")
)
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


class Ran:
    def __init__(self, status, out, err, document=None):
        self.status, self.out, self.err = status, out, err
        self.document = document
        if document is None and out.startswith(b"{"):
            self.document = json.loads(out.decode("utf-8"))


class verdict(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="verdict-test-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def program(self, script, name="other"):
        path = self.folder / name
        path.write_text("#!/bin/sh\n" + script)
        path.chmod(0o755)
        return str(path)

    def run_verdict(self, *words, **more):
        pipes = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | more
        program = pipes.pop("program", VERDICT)
        ran = subprocess.run([program, *words], timeout=TIME_LIMIT_S, **pipes)
        return Ran(ran.returncode, ran.stdout, ran.stderr)

    def run_script(self, script, *words):
        """With a program in the tool's place."""
        return self.run_verdict("--tool", self.program(script), *words)

    def play(self, text):
        """With the real tool on the scripted platform, on a terminal when keys are typed."""
        root = self.folder / "root"
        runner.put_file(str(root), "file", "/data/cli.conf", runner.STANDARD_BOARD)
        file = self.folder / "one.t"
        file.write_text(text)
        transcript = runner.Reader(str(file)).one()
        script = "\n".join([f"uid {transcript.uid}", f"root {root}", *transcript.script]) + "\n"
        script_fd, trace_fd = runner.write_to_memory(script.encode()), runner.write_to_memory()
        tool = self.program(f'LD_PRELOAD="{PLATFORM}" exec "{TOOL}" "$@"\n', "cfgtool")
        terminal = runner.Terminal(transcript)
        command = [VERDICT, "--json", str(self.folder / "json"), "--tool", tool, *transcript.commands[0][1:]]
        process = subprocess.Popen(
            command,
            stdin=terminal.child,
            stdout=terminal.child,
            stderr=subprocess.PIPE,
            env={**os.environ, "LOGNAME": "tester", "SCRIPTED_PLATFORM": f"{script_fd},{trace_fd}"},
            pass_fds=(script_fd, trace_fd),
            start_new_session=True,
        )
        os.close(terminal.child)
        terminal.follow(process, time.monotonic() + TIME_LIMIT_S)
        _, err = process.communicate(timeout=TIME_LIMIT_S)
        self.assertEqual(termios.tcgetattr(terminal.main), terminal.settings)
        os.close(terminal.main)
        os.close(script_fd)
        os.close(trace_fd)
        return Ran(process.returncode, terminal.shown, err, json.loads((self.folder / "json").read_text()))

    def assert_verdict(self, ran, name, status):
        self.assertEqual((ran.document["verdict"], ran.status), (name, status), ran.document)

    # The tool itself

    def test_done(self):
        ran = self.play(FANLEVEL.format(answer="00 00"))
        self.assert_verdict(ran, "done", 0)
        self.assertEqual(
            ran.document,
            {
                "format": 1,
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

    def test_failed_without_an_answer(self):
        ran = self.play("$ cfgtool -d fanlevel -v 60\n> 2C 15  00 00 3C < silent\n")
        self.assert_verdict(ran, "failed", 1)
        self.assertEqual(
            ran.document["error"], {"code": "0x40000001", "text": "no answer came, or one of a wrong length"}
        )
        self.assertIn("Select OutTime ", ran.document["lines"])

    def test_refused_by_privilege(self):
        ran = self.play("uid 503\n$ cfgtool -d fanlevel -v 60\n> 06 44  01 03 < 00 11 04 01 33\n")
        self.assert_verdict(ran, "refused", 2)
        self.assertEqual(ran.document["sentence"], "Insufficient privilege level")

    def test_refused_where_the_privilege_cannot_be_asked(self):
        for answer, sentence in (
            ("silent", "send 'Get User Access Command' failed!"),
            ("C1", "Get User Access Command failed!"),
        ):
            with self.subTest(answer):
                ran = self.play(f"uid 503\n$ cfgtool -d fanlevel -v 60\n> 06 44  01 03 < {answer}\n")
                self.assert_verdict(ran, "refused", 2)
                self.assertEqual(ran.document["sentence"], sentence)

    def test_a_refusal_has_its_error_code(self):
        script = "printf \"send 'check user password' failed, error code: 0x40000001\\r\\n\"\n"
        ran = self.run_script(script, "-d", "deluser", "-v", "bob")
        self.assert_verdict(ran, "refused", 2)
        self.assertEqual(ran.document["error"]["code"], "0x40000001")

    def test_a_run_that_ends_half_way_may_have_recorded_the_first_half(self):
        ran = self.play("""$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 255.0.0.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 0A 00 00 05  < 00
> 0C 01  01 06 FF 00 00 00  < C9
> 0C 01  01 00 00           < 00
""")
        self.assert_verdict(ran, "failed", 1)
        self.assertIn("0x21200650", ran.document["event_codes"])

    def test_event_codes_of_a_command_that_records_its_failures(self):
        done, failed = "0x20B003F0", "0x20B003F1"
        for text, codes in (
            ("Set rollback successfully, system will reboot soon!", [done]),
            ("Insufficient privilege level", [failed]),
            ("Set rollback failed, error code: 0x2C3800C9", [done, failed]),
            ("something else", [done, failed]),
        ):
            with self.subTest(text):
                ran = self.run_script(f"printf '{text}\\r\\n'\n", "-d", "rollback")
                self.assertEqual(ran.document["event_codes"], codes)

    def test_refused_by_usage(self):
        ran = self.play("$ cfgtool -d fanlevel\n")
        self.assert_verdict(ran, "refused", 2)
        self.assertEqual(ran.document["sentence"], "Usage: cfgtool -d fanlevel -v <value>")

    def test_a_yes_is_typed(self):
        ran = self.play(RESET.format(answer="y"))
        self.assert_verdict(ran, "done", 0)
        self.assertEqual(ran.document["event_codes"], ["0x202001E0"])

    def test_a_no_is_typed(self):
        self.assert_verdict(self.play(RESET.format(answer="n").partition(">")[0]), "refused", 2)

    def test_a_hidden_word_is_typed_and_nowhere_shown(self):
        ran = self.play(COMMUNITY)
        self.assert_verdict(ran, "done", 0)
        self.assertNotIn(b"Sesame", ran.out)
        self.assertNotIn("Sesame", json.dumps(ran.document))

    # What it says

    def test_nothing_said_means_what_the_command_means_by_it(self):
        for words, name, status in (
            (("-t", "maintenance", "-d", "downloadbios"), "done", 0),
            (("-d", "deluser", "-v", "x"), "failed", 1),
            (("-d", "serialdir", "-v", "2"), "unknown", 3),
            ((), "unknown", 3),
        ):
            with self.subTest(words):
                self.assert_verdict(self.run_script("exit 0\n", *words), name, status)

    def test_a_confirmation_with_nothing_behind_it(self):
        question = "printf 'WARNING: The operation may have many adverse effects\\r\\n'\n"
        question += "printf 'Do you want to continue?[Y/N]:'\n"
        self.assert_verdict(self.run_script(question, "-d", "clearcmos"), "refused", 2)
        self.assert_verdict(self.run_script(question, "-d", "powerstate", "-v", "1"), "unknown", 3)

    def test_a_failure_behind_a_success(self):
        ran = self.run_script("printf 'Update successfully.\\r\\nfinish upgrade failed!\\r\\n'\n", "-d", "upgrade")
        self.assert_verdict(ran, "failed", 1)
        self.assertEqual(ran.document["sentence"], "finish upgrade failed!")

    def test_strange_text_is_never_done(self):
        success = "printf 'Set fan level successfully.\\r\\n'\n"
        for text in ("Set fan level successfully", "set fan level successfully.", "?", "Set fan level successfully.."):
            with self.subTest(text):
                ran = self.run_script(success + f"printf '{text}\\r\\n'\n", "-d", "fanlevel", "-v", "60")
                self.assert_verdict(ran, "unknown", 3)
                self.assertIsNone(ran.document["sentence"])

    def test_a_line_without_its_end_is_never_done(self):
        ran = self.run_script("printf 'Set fan level successfully.'\n", "-d", "fanlevel", "-v", "60")
        self.assert_verdict(ran, "unknown", 3)

    def test_a_typed_word_cannot_make_a_success(self):
        script = "printf 'Set httphost x\\r\\nSet httphost success.\\r\\n failed, error code: 0xC9\\r\\n'\n"
        self.assert_verdict(self.run_script(script, "-d", "httphost", "-v", "x"), "unknown", 3)

    def test_the_code_at_the_end_counts_not_one_typed(self):
        script = "printf 'Set trap username error code: 0x1 failed, error code: 0x309300C1\\r\\n'\n"
        ran = self.run_script(script, "-t", "trap", "-d", "user", "-v", "error code: 0x1")
        self.assertEqual(ran.document["error"]["code"], "0x309300C1")

    def test_codes_that_are_shown_otherwise(self):
        for text, error in (
            ("Upgrade failed, error code:0xc1", {"code": "0x000000C1", "completion": 0xC1, "text": "Invalid command"}),
            ("recv ipmi msg  fail, g_error_code=1073741824 ",
             {"code": "0x40000000", "text": "the request could not be sent"}),
            ("Set eth0 vlan failed, error code: 0x0", {"code": "0x00000000", "text": "no reason is known"}),
            ("Error code: 0x0102 ", None),
        ):
            with self.subTest(text):
                ran = self.run_script(f"printf '{text}\\r\\nUpdate fail.\\r\\n'\n", "-d", "upgrade")
                self.assert_verdict(ran, "failed", 1)
                self.assertEqual(ran.document["error"], error)

    def test_codes_that_ipmi_has_no_words_for(self):
        for text, words in (
            ("Set sideband enable port failed, error code: 0x30930000", "no reason is known"),
            ("Set IP address, error code: 0xC01CD00", "no reason is known"),
            ("Set user password failed, error code: 0x6470084", "against the controller's rules for passwords"),
            ("Set SNMP trap community failed, error code: 0xC011084", "against the controller's rules for communities"),
            ("Set trap V3 failed, error code: 0xC01C384", "Unknown (0x84)"),
        ):
            with self.subTest(text):
                ran = self.run_script(f"printf '{text}\\r\\n'\n", "-d", "x")
                self.assertEqual(ran.document["error"]["text"], words)

    def test_a_failure_with_a_code_goes_before_one_without(self):
        script = "printf 'Err in cmd get sensor sdr info\\r\\nSensor test failed, error code: 0x40000003\\r\\n'\n"
        script += "printf 'Sensor test failed, error code: 0x40000004\\r\\n'\n"
        ran = self.run_script(script, "-t", "sensor", "-d", "test")
        self.assertEqual(ran.document["sentence"], "Sensor test failed, error code: 0x40000003")
        self.assertEqual(ran.document["error"], {"code": "0x40000003", "text": "sensor not found"})

    def test_other_programs_text_does_not_count_where_the_tool_runs_them(self):
        script = "printf 'Collecting...\\r\\ncopied 3 files\\n\\r\\n'\n"
        self.assert_verdict(self.run_script(script, "-t", "maintenance", "-d", "zntool"), "done", 0)
        self.assert_verdict(self.run_script(script, "-d", "fanlevel"), "unknown", 3)

    def test_names_are_cut_short_as_the_tool_takes_them(self):
        for words, target, dataitem in (
            (("-t", "mai", "-d", "webr"), "maintenance", "webrestart"),
            (("-t", "se", "-d", "state"), None, None),  # sensor or service
            (("-d", "password", "-v", "x"), None, "password"),  # though passwordcomplexity begins so
            (("-d", "passwordc"), None, "passwordcomplexity"),
            (("-d", "fan"), None, None),
            (("-t", "smbios", "-d", "serialnumber"), None, None),  # no command line reaches it
            (("-dsel",), None, None),
        ):
            with self.subTest(words):
                document = self.run_script("exit 0\n", *words).document
                self.assertEqual((document["target"], document["dataitem"]), (target, dataitem))

    def test_bytes_that_are_not_utf_8(self):
        script = r"""printf 'a\303\251b\303\001\377"\\ \355\240\200\360\237\230\200\000c\r\n'""" + "\n"
        ran = self.run_script(script, "-d", b"\xe9\xc3\xa9")
        self.assertEqual(ran.document["words"], ["-d", "\ufffd\u00e9"])
        self.assertEqual(ran.document["lines"], ['a\u00e9b\ufffd\x01\ufffd"\\ \ufffd\ufffd\ufffd\U0001f600\0c'])
        self.assertEqual(ran.err, b'a\xc3\xa9b\xc3\x01\xff"\\ \xed\xa0\x80\xf0\x9f\x98\x80\0c\r\n')

    def test_much_text_is_counted_and_handed_on(self):
        script = "yes 'Current Mode:        Auto ' | head -n 100000\necho 'Set fan level successfully.'\n"
        ran = self.run_script(script, "-d", "fanlevel")
        self.assert_verdict(ran, "done", 0)
        kept = ran.document["lines"]
        self.assertEqual(len(kept) + ran.document["lines_left_out"], 100001)
        self.assertLessEqual(sum(len(line) + 1 for line in kept), 65536)
        self.assertEqual(ran.err.count(b"\n"), 100001)

    def test_a_line_that_is_too_long_is_none_of_the_tools(self):
        script = "printf 'Set trap user %s success.\\r\\n' $(head -c 20000 /dev/zero | tr '\\0' x) name\n"
        ran = self.run_script(script, "-t", "trap", "-d", "user")
        self.assert_verdict(ran, "unknown", 3)

    # How it ends

    def test_ended_by_a_signal(self):
        ran = self.run_script("printf 'Set fan level successfully.\\r\\n'\nkill -KILL $$\n", "-d", "fanlevel")
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
        tool = self.program("trap 'echo Update fail.; exit 0' INT\necho ready\nwhile :; do sleep 0.05; done\n")
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
        ran = self.run_script("printf 'Set fan level successfully.\\r\\n'\nexit 1\n", "-d", "fanlevel")
        self.assert_verdict(ran, "unknown", 3)

    def test_a_server_that_is_left_behind_is_not_waited_for(self):
        begun = time.monotonic()
        script = "sleep 45 2>/dev/null &\nprintf 'Set fan level successfully.\\r\\n'\n"
        ran = self.run_verdict("--tool", self.program(script), "-d", "fanlevel", stderr=subprocess.DEVNULL)
        self.assert_verdict(ran, "done", 0)
        self.assertLess(time.monotonic() - begun, 40)

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

    def test_json_in_a_file(self):
        held = self.folder / "json"
        held.write_text("x" * 5000)
        tool = self.program("echo Update fail.\n")
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
        tool = self.program("printf 'Set fan level successfully.\\r\\n'\n")
        ran = self.run_verdict("--tool", tool, "-d", "fanlevel", stderr=writer)
        os.close(writer)
        self.assert_verdict(ran, "done", 0)

    def test_closed_descriptors(self):
        tool = self.program("printf 'Set fan level successfully.\\r\\n'\n")
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
        ran = self.run_verdict("--jsn", "x")
        complaint = b"cfgtool-verdict: --jsn: unknown option; see cfgtool-verdict --help\n"
        self.assertEqual((ran.status, ran.err), (4, complaint))
        ran = self.run_verdict("--tool")
        self.assertEqual((ran.status, ran.err), (4, b"cfgtool-verdict: --tool: a word is missing behind it\n"))
        ran = self.run_script("exit 0\n", "--", "--help", "x")
        self.assertEqual(ran.document["words"], ["--help", "x"])

if __name__ == "__main__":
    unittest.main(verbosity=1)
