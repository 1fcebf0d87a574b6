#!/usr/bin/python3
"""docs/porting.md, walked through: its commands make a platform library of examples/board_platform.cpp, and the built
tool runs in front of it on a board made of folders. The environment: BUILD the build folder, CXX the compiler. Skipped
without bubblewrap."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ.get("BUILD", REPOSITORY / "build")).resolve()
CXX = os.environ.get("CXX", "g++") + " -Wall -Wextra -Wconversion -Wshadow -Wformat=2 -Werror"
PAGE = (REPOSITORY / "docs/porting.md").read_text()
TIME_LIMIT_S = 60

# Nothing is received before anything was sent; then Get Device ID (IPMI 2.0), whose answer adds up to 0 from its fourth
# byte to the checksum, and to something else with what lay behind it.
ONE_MESSAGE = """
import ctypes
platform, record = ctypes.CDLL("/board/lib/libzentro_platform.so.1"), (ctypes.c_ubyte * 1056)(*[0xEE] * 1056)
platform.ipc_no_listen_init(0)
before = platform.ipc_msg_recv(record)
sent = platform.ipc_msg_send(bytes([0x00, 0x18, 0xE8, 0x63, 0x00, 0x01, 0x9C]), 7, 0, 2001)
received = platform.ipc_msg_recv(record)
print(before, sent, received, sum(record[32 + 3:32 + record[8] + record[9] * 256]) % 256)
"""


def block_with(words):
    """The one code block of the page that holds these words."""
    blocks = [block for block in re.findall(r"^```\S[^\n]*\n(.*?)^```$", PAGE, re.M | re.S) if words in block]
    if len(blocks) != 1:
        raise AssertionError(f"docs/porting.md has {len(blocks)} code blocks with {words}")
    return blocks[0]


def declared():
    header = (REPOSITORY / "platform/platform.h").read_text()
    code = re.sub(r"//.*|^#.*|__attribute__.*", "", header, flags=re.MULTILINE)
    return set(re.findall(r"(\w+)\([^;]*?\)\s*;", code))


def lines_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()


@unittest.skipUnless(shutil.which("bwrap"), "without bubblewrap there is no board")
class Template(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.home = tempfile.TemporaryDirectory(prefix="porting-")
        cls.addClassCleanup(cls.home.cleanup)
        cls.root = Path(cls.home.name)
        for folder in ("bin", "lib", "data/log", "run", "tmp"):
            (cls.root / folder).mkdir(parents=True)
        for program in ("cfgtool", "platform-check"):
            shutil.copy(BUILD / "bin" / program, cls.root / "bin")
        (cls.root / "data/cli.conf").write_text(block_with("[FAN_PROPERTITY]"))
        cls.library = cls.root / "lib/libzentro_platform.so.1"
        cls.type_as_written(block_with("examples/board_platform.cpp"))

    @classmethod
    def type_as_written(cls, commands):
        done = subprocess.run(["sh", "-ec", commands.replace("build-board", str(cls.root))], cwd=REPOSITORY,
                              env={**os.environ, "CXX": CXX}, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False)
        if done.returncode != 0:
            raise AssertionError(done.stdout)

    def on_board(self, *words):
        """What a program says there, to root, and its exit status."""
        around = ["bwrap", "--unshare-user", "--uid", "0", "--gid", "0", "--ro-bind", "/usr", "/usr", "--proc", "/proc",
                  "--dev", "/dev", "--clearenv", "--setenv", "LOGNAME", "root", "--setenv", "PATH", "/usr/bin:/bin"]
        for top in ["/bin", *map(str, Path("/").glob("lib*"))]:
            link = os.path.islink(top)
            around += ["--symlink", os.readlink(top), top] if link else ["--ro-bind", top, top]
        around += ["--ro-bind", f"{self.root}", "/board", "--bind", f"{self.root}/run", "/run/zentro"]
        for folder in ("data", "tmp"):
            around += ["--bind", f"{self.root}/{folder}", f"/{folder}"]
        done = subprocess.run([*around, *words], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=TIME_LIMIT_S, check=False)
        return done.stdout.decode(), done.returncode

    def cfgtool(self, command_line):
        """Its lines; its exit status is 0 whatever happened."""
        text, status = self.on_board("/board/bin/cfgtool", *command_line.split())
        self.assertEqual(status, 0, text)
        return text.splitlines()

    def start_controller(self):
        if not (BUILD / "bin/ipmcd").exists():
            self.skipTest("without ipmcd there is no controller")
        controller = subprocess.Popen([BUILD / "bin/ipmcd", "--ipc-dir", self.root / "run"], stdin=subprocess.DEVNULL,
                                      stdout=subprocess.PIPE)
        self.addCleanup(controller.stdout.close)
        self.addCleanup(controller.wait, TIME_LIMIT_S)
        self.addCleanup(controller.terminate)
        self.assertEqual(controller.stdout.readline(), b"ready\n")

    def test_has_every_function_of_the_header_and_nothing_else(self):
        self.assertEqual(len(declared()), 39)
        exported = {line.split()[-1] for line in lines_of("nm", "-D", "--defined-only", self.library)}
        self.assertEqual(exported, declared())
        dynamic = "\n".join(lines_of("readelf", "-dW", self.library))
        self.assertEqual(re.findall(r"NEEDED.*\[(.*)\]", dynamic), ["libc.so.6"])
        self.assertEqual(re.findall(r"SONAME.*\[(.*)\]", dynamic), ["libzentro_platform.so.1"])

    def test_breaks_no_promise(self):
        text, status = self.on_board("/board/bin/platform-check", "--log")
        self.assertEqual(status, 0, text)
        self.assertRegex(text.splitlines()[-1], r"^\d\d ok, 0 broken, 9 not tried$")
        self.assertIn("not tried: ipc_msg_send: no IPMI service takes messages at port 2001", text)

    def test_its_messages_reach_a_controller(self):
        self.start_controller()
        text, status = self.on_board("/board/bin/platform-check", "--service")
        self.assertEqual(status, 0, text)
        self.assertIn("ok: ipc_msg_recv: puts the payload at byte 32", text)

    def test_its_messages_tell_their_length(self):
        self.start_controller()
        text, status = self.on_board("/usr/bin/python3", "-c", ONE_MESSAGE)
        self.assertEqual((text, status), ("-1 0 0 0\n", 0))

    def test_the_tool_lists_its_commands(self):
        self.assertEqual(self.cfgtool("")[0], "Useage: cfgtool [-t target] -d dataitem [-v value]")

    def test_without_a_controller_the_tool_says_that_nothing_was_sent(self):
        self.assertEqual(self.cfgtool("-d fanlevel -v 60"), ["Set fan level  failed, error code: 0x40000000"])
        self.assertEqual(self.cfgtool("-d identify"), ["Identify UID led failed, error code: 0x40000000"])

    def test_with_a_controller_the_tool_does_its_work_and_records_it(self):
        self.start_controller()
        self.assertEqual(self.cfgtool("-d fanlevel -v 60")[0], "Set fan level successfully.")
        record = (self.root / "data/log/operation.log").read_text().splitlines()[-1]
        self.assertIn("Set fan level(60) success,EvtCode:0x20E004F0", record)
        self.assertEqual(self.cfgtool("-d fanlevel -v 19"), ["Fanlevel must not be lower than 20 percent."])

    def test_what_the_board_does_not_have_is_said(self):
        self.assertEqual(self.cfgtool("-t maintenance -d biosprint -v 2"), ["Unsupported command."])
        self.assertEqual(self.cfgtool("-t maintenance -d downloadbios"), ["Download bios fail"])
        self.assertEqual(self.cfgtool("-t maintenance -d zntool")[-1], "Pack SEL failed, error code: 0x0.")
        self.assertIn("ret = -19, pos = 0", self.cfgtool("-t maintenance -d readeeprom")[0])

    def test_a_blacklist_as_in_the_page_takes_its_commands_away(self):
        lines = re.findall(r"^    (cfgtool -[dt] .*)$", PAGE, re.MULTILINE)
        self.assertEqual(len(lines), 3)
        self.assertIn("bioswriteprotect", "".join(self.cfgtool("")))
        self.assertIn("vlan", "".join(self.cfgtool("-t eth0")))
        blacklist = self.root / "data/blacklist"
        self.addCleanup(blacklist.unlink)
        blacklist.write_text("\n".join(lines) + "\n")
        self.assertNotRegex("".join(self.cfgtool("")), "bioswriteprotect|Operate with led")
        self.assertNotIn("vlan", "".join(self.cfgtool("-t eth0")))

    def test_the_library_runs_at_the_desk(self):
        if not (BUILD / "bin/ipmcd").exists():
            self.skipTest("without ipmcd there is no desk")
        commands = block_with("./desk --platform").replace("build-desk", str(self.root))
        with tempfile.TemporaryDirectory(prefix="porting-") as folder:
            desk = {**os.environ, "DESK_DIR": f"{folder}/desk", "DESK_BUILD": str(BUILD)}
            done = subprocess.run(["sh", "-ec", commands], cwd=REPOSITORY, env=desk, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=TIME_LIMIT_S)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertIn("ok: ipc_msg_recv: brings the answer of the service\n", done.stdout)
        self.assertIn(" 0 broken, ", done.stdout)
        self.assertTrue(done.stdout.endswith("Manual Fan Level:    60%\n"), done.stdout)

    def test_an_empty_library_may_name_those_that_have_the_functions(self):
        template = block_with("examples/board_platform.cpp")
        self.addCleanup(self.library.write_bytes, self.library.read_bytes())
        self.type_as_written(template.replace("libzentro_platform.so.1", "libboard.so"))
        self.library.unlink()
        self.type_as_written(block_with("--no-as-needed").replace("-lboard", "-lboard -Wl,-rpath,'$ORIGIN'"))
        self.assertNotIn(" T vos_", "\n".join(lines_of("nm", "-D", "--defined-only", self.library)))
        self.assertEqual(self.cfgtool("-d fanlevel -v 60"), ["Set fan level  failed, error code: 0x40000000"])


if __name__ == "__main__":
    unittest.main()
