#!/usr/bin/python3
"""End to end: cfgtool on the Linux platform library, against ipmcd, through ./desk.

DESK_BUILD names the build folder whose programs are tested (default: build in the repository).
"""
import json
import os
import pty
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

REPOSITORY = Path(__file__).resolve().parents[2]
BUILD = os.environ.get("DESK_BUILD", str(REPOSITORY / "build"))
FANLEVEL_60 = (
    b"Set fan level successfully.\r\n"
    b"Current Mode:        manual, timeout 30 seconds.\r\n"
    b"Manual Fan Level:    60%\r\n"
)
UPGRADE_QUESTION = b"This operation will upgrade BIOS. Continue? [Y/N]:"
# A dot for each of 256 blocks, 78 to a line.
EEPROM_READ = 3 * (78 * b"." + b"\r\n") + 22 * b"." + b"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
OWN_FAILURE = 125


class desk(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="desk-test-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.environment = {"PATH": os.environ["PATH"], "TERM": "dumb", "DESK_BUILD": BUILD}
        self.environment["DESK_DIR"] = str(self.folder / "desk")
        self.environment.update({name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")})
        possible = subprocess.run(["bwrap", "--unshare-user", "--ro-bind", "/", "/", "true"], stderr=subprocess.PIPE)
        if possible.returncode:
            self.fail("this machine has no user namespaces for bubblewrap: " + possible.stderr.decode())

    def start(self, *words, **more):
        environment = self.environment | more.pop("environment", {})
        pipes = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | more
        process = subprocess.Popen([REPOSITORY / "desk", *words], env=environment, **pipes)
        self.addCleanup(self.end, process)
        return process

    def end(self, process):
        if process.poll() is None:
            process.terminate()
        process.communicate()

    def run_desk(self, *words, keys=None, **more):
        """Status, output and standard error of one ./desk."""
        if keys is not None:
            more["stdin"] = subprocess.PIPE
        process = self.start(*words, **more)
        out, err = process.communicate(keys, timeout=60)
        return process.returncode, out, err.decode()

    def output_of(self, *words, **more):
        """Output of a ./desk that ends well and has nothing to say itself."""
        status, out, err = self.run_desk(*words, **more)
        self.assertEqual((status, err), (0, ""))
        return out

    def start_waiting(self):
        """A desk in use: its command runs until its input ends."""
        process = self.start("sh", "-c", "echo in; cat", stdin=subprocess.PIPE)
        self.assertEqual(process.stdout.readline(), b"in\n")
        return process

    def leave(self, process):
        out, err = process.communicate(timeout=60)
        self.assertEqual((process.returncode, out, err), (0, b"", b""))

    def log_records(self):
        """(class, user, origin, module, record) of each line; the time in front is not compared."""
        lines = (self.folder / "desk/data/log/operation.log").read_text().splitlines()
        for line in lines:
            self.assertRegex(line, r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ\t")
        return [tuple(line.split("\t")[1:]) for line in lines]

    def controller_process(self):
        return int((self.folder / "desk/controller/pid").read_text())

    def is_controller_running(self):
        try:
            return "ipmcd" in Path(f"/proc/{self.controller_process()}/comm").read_text()
        except (FileNotFoundError, ProcessLookupError):
            return False

    def wait_for_controllers_end(self):
        """A process is in the list for a moment after its end."""
        end = time.monotonic() + 30
        while self.is_controller_running():
            self.assertLess(time.monotonic(), end, "the controller is still running")
            time.sleep(0.02)

    # A command on the controller

    def test_fanlevel_prints_its_three_lines_alone(self):
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)

    def test_fanlevel_reaches_the_controller(self):
        self.output_of("cfgtool", "-d", "fanlevel", "-v", "60")
        fans = self.output_of("ipmcd", "--ask", "show fans")
        self.assertIn(b'"mode":"manual"', fans)
        self.assertIn(b'"level":60', fans)

    def test_fanlevel_leaves_a_log_record(self):
        self.output_of("cfgtool", "-d", "fanlevel", "-v", "60")
        record = ("2", "root", "console", "Fan", "Set fan level(60) success,EvtCode:0x20E004F0")
        self.assertEqual(self.log_records(), [record])

    def system_log(self, wanted):
        """What the desk's system log says after the time, once it has `wanted`: it may be a moment late."""
        log, end = self.folder / "desk/data/log/messages", time.monotonic() + 30
        while not log.exists() or wanted not in log.read_text():
            self.assertLess(time.monotonic(), end, f"{wanted} is not logged")
            time.sleep(0.02)
        return [line.split("\t", 1)[1] for line in log.read_text().splitlines()]

    def test_records_are_in_the_system_log_too(self):
        self.output_of("--user", "502", "cfgtool", "-d", "fanlevel", "-v", "60")
        record = "zentro: 2\tadmin\tconsole\tFan\tSet fan level(60) success,EvtCode:0x20E004F0"
        self.assertEqual(self.system_log("level(60)"), [record])

    def test_system_log_names_what_is_in_the_way(self):
        waiting = self.start_waiting()
        self.output_of("mkfifo", "/tmp/bios.bin")
        out = self.output_of("cfgtool", "-t", "maintenance", "-d", "downloadbios")
        self.assertEqual(out, b"Download bios fail\r\n")
        wanted = "zentro: /tmp/bios.bin: not written: a FIFO of user 0 is in the way"
        self.assertEqual(self.system_log("bios"), [wanted])
        self.output_of("perl", "-e", "use Socket; socket(S, AF_UNIX, SOCK_DGRAM, 0); "
                       "send(S, qq(<13>name\\n\\e[2J), 0, sockaddr_un('/dev/log')) or die")
        self.assertIn("name\\x0A\\x1B[2J", self.system_log("name"))
        self.leave(waiting)

    def test_log_record_names_user_and_ssh_client(self):
        here = {"SSH_CONNECTION": "192.0.2.7 40022 192.0.2.1 22", "REMOTEHOST": "elsewhere"}
        self.output_of("--user", "502", "cfgtool", "-d", "fanlevel", "-v", "61", environment=here)
        record = ("2", "admin", "192.0.2.7", "Fan", "Set fan level(61) success,EvtCode:0x20E004F0")
        self.assertEqual(self.log_records(), [record])

    def test_log_record_names_remote_host(self):
        self.output_of("cfgtool", "-d", "fanlevel", "-v", "62", environment={"REMOTEHOST": "console-server"})
        self.assertEqual([record[2] for record in self.log_records()], ["console-server"])

    def test_board_profile_is_the_disks(self):
        refused = b"Fanlevel must not be lower than 20 percent.\r\n"
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "19"), refused)

    def test_operator_is_refused_after_asking_the_controller(self):
        status, out, err = self.run_desk("--user", "503", "--trace", "cfgtool", "-d", "fanlevel", "-v", "60")
        self.assertEqual((status, out), (0, b"Insufficient privilege level\r\n"))
        request, answer = err.splitlines()
        self.assertRegex(request, r"request 06/44 Get User Access: 01 03 \(channel 1, user 3\)$")
        self.assertRegex(answer, r"answer  00 done: .*\(operator, ")
        self.assertFalse((self.folder / "desk/data/log/operation.log").exists())

    def test_administrator_is_allowed(self):
        self.assertEqual(self.output_of("--user", "502", "cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)

    def test_collection_exports_the_event_log(self):
        self.output_of("cfgtool", "-t", "maintenance", "-d", "zntool")
        table = self.output_of("tar", "-xOf", "/tmp/sel.tar", "--wildcards", "*sel.csv").decode()
        rows = [line.split(",") for line in table.split("\r\n")[1:-1]]
        fields = [(row[0], row[1], row[2], row[5], row[6], row[7]) for row in rows]
        fan = "Fan below the lower critical speed. check it"
        self.assertEqual(fields[0], ("5", "Major", "2024-05-06  08:00:00", fan, "20120001", "Asserted"))
        self.assertEqual([field[0] for field in fields], ["5", "4", "3", "2", "1"])
        self.assertIn(b"tmp/sel.tar", self.output_of("tar", "-tf", "/tmp/debug-info.tar.gz"))

    # The board's devices: files on the disk

    def board(self, name):
        return self.folder / "desk/data/board" / name

    def programs_run(self):
        """What the recorded programs were called with; the time in front is not compared."""
        log = self.folder / "desk/data/log/programs.log"
        lines = log.read_text().splitlines() if log.exists() else []
        for line in lines:
            self.assertRegex(line, r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ\t")
        return [line.split("\t")[1] for line in lines]

    def answer_at_terminal(self, keys, *words):
        """Output of a ./desk whose question is answered by keys typed at a terminal."""
        ours, theirs = pty.openpty()
        self.addCleanup(os.close, ours)
        self.addCleanup(os.close, theirs)
        process = self.start(*words, stdin=theirs)
        seen = b""
        while not seen.endswith(b"]:"):
            part = os.read(process.stdout.fileno(), 1024)
            self.assertTrue(part, seen)
            seen += part
        os.write(ours, keys)
        out, err = process.communicate(timeout=60)
        self.assertEqual((process.returncode, err), (0, b""))
        return seen + out

    def upgrade_bios(self, keys=b"y\n", size=8 << 20):
        """The image and what the tool shows."""
        self.output_of("true")
        image = os.urandom(size)
        (self.folder / "desk/tmp/new.bin").write_bytes(image)
        command = ["cfgtool", "-t", "maintenance", "-d", "upgradebios", "-v", "/tmp/new.bin"]
        return image, self.answer_at_terminal(keys, *command)

    def output_with_small_folder(self, name, script, **more):
        """Output of a shell at the desk whose folder of this name is on a disk of 1 MiB."""
        self.output_of("true")
        mounted = 'mount -t tmpfs -o size=1M tmpfs "$1" && shift && exec "$@"'
        around = ["unshare", "--user", "--map-root-user", "--mount", "sh", "-ec", mounted, "sh"]
        words = [*around, self.folder / "desk" / name, REPOSITORY / "desk", "sh", "-ec", script]
        pipes = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | more
        done = subprocess.run(words, env=self.environment, timeout=60, **pipes)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return done.stdout

    def test_readeeprom_makes_the_file_equal_to_the_eeprom(self):
        self.output_of("true")
        image = os.urandom(16384)
        self.board("eeprom").write_bytes(image)
        self.assertEqual(self.output_of("cfgtool", "-t", "maintenance", "-d", "readeeprom"), EEPROM_READ)
        self.assertEqual((self.folder / "desk/tmp/eeprom.bin").read_bytes(), image)
        record = ("2", "root", "console", "Zentro", "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480")
        self.assertEqual(self.log_records(), [record])

    def test_eeprom_of_a_new_disk_tells_where_each_block_is(self):
        self.output_of("true")
        image = self.board("eeprom").read_text()
        self.assertEqual(len(image), 16384)
        lines = [image[start : start + 64] for start in range(0, 16384, 64)]
        self.assertRegex(lines[0], r"bytes 0x0000 to 0x003F *\n$")
        self.assertRegex(lines[1], r"bytes 0x0040 to 0x007F *\n$")
        self.assertRegex(lines[255], r"bytes 0x3FC0 to 0x3FFF *\n$")
        self.assertEqual(len(set(lines)), 256)

    def test_readeeprom_of_an_image_that_is_too_short_says_so(self):
        self.output_of("true")
        os.truncate(self.board("eeprom"), 16320)
        out = self.output_of("cfgtool", "-t", "maintenance", "-d", "readeeprom")
        self.assertEqual(out, b".ret = -22, pos = 0\r\n\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n")
        self.assertEqual(self.board("eeprom").stat().st_size, 16320)

    def test_without_a_board_file_there_is_no_device(self):
        self.output_of("true")
        (self.folder / "desk/data/linux-board.conf").unlink()
        out = self.output_of("cfgtool", "-t", "maintenance", "-d", "readeeprom")
        self.assertTrue(out.startswith(b".ret = -2, pos = 0\r\n"), out)
        out = self.output_of("cfgtool", "-t", "maintenance", "-d", "downloadbios")
        self.assertEqual(out, b"Download bios fail\r\n")
        out = self.output_of("cfgtool", "-t", "maintenance", "-d", "biosprint", "-v", "2")
        self.assertEqual(out, b"Unsupported command.\r\n")

    def test_downloadbios_reads_the_first_8_mib_of_the_flash(self):
        self.output_of("true")
        self.assertEqual(self.board("bios-flash").stat().st_size, 16 << 20)
        flash = os.urandom(16 << 20)
        self.board("bios-flash").write_bytes(flash)
        self.assertEqual(self.output_of("cfgtool", "-t", "maintenance", "-d", "downloadbios"), b"")
        self.assertTrue((self.folder / "desk/tmp/bios.bin").read_bytes() == flash[: 8 << 20])
        record = ("2", "root", "console", "BIOS", "Download bios to /tmp/bios.bin success, EvtCode:0x21701490")
        self.assertEqual(self.log_records(), [record])

    def test_upgradebios_writes_the_flash_and_gives_it_back(self):
        for size in (8 << 20, 16 << 20):
            image, out = self.upgrade_bios(size=size)
            self.assertEqual(out, UPGRADE_QUESTION + b"size of /tmp/new.bin is %d\r\n" % size)
            flash = self.board("bios-flash").read_bytes()
            self.assertTrue(flash == image + bytes((16 << 20) - size))
            self.assertEqual(self.board("bios-owner").read_text(), "0\n")
        record = ("2", "root", "console", "BIOS", " Upgrade bios from /tmp/new.bin success, EvtCode:0x217014A0")
        self.assertEqual(self.log_records(), [record] * 2)
        self.assertEqual(self.programs_run(), ["/sbin/insmod /ko/m25p80.ko", "/sbin/rmmod /ko/m25p80.ko"] * 2)

    def test_upgradebios_refused_at_the_terminal_does_nothing(self):
        for keys, shown in ((b"n\n", b""), (b"x\n", b"Input character invalid.\r\n")):
            _, out = self.upgrade_bios(keys)
            self.assertEqual(out, UPGRADE_QUESTION + shown)
        self.assertTrue(self.board("bios-flash").read_bytes() == bytes(16 << 20))
        self.assertEqual(self.programs_run(), [])

    def test_upgradebios_that_does_not_fit_the_flash_gives_it_back(self):
        self.output_of("true")
        os.truncate(self.board("bios-flash"), 8 << 20)
        _, out = self.upgrade_bios(size=16 << 20)
        self.assertEqual(out, UPGRADE_QUESTION + b"size of /tmp/new.bin is 16777216\r\nUpgrade bios fail\r\n")
        self.assertTrue(self.board("bios-flash").read_bytes() == bytes(8 << 20))
        self.assertEqual(self.board("bios-owner").read_text(), "0\n")
        self.assertEqual(self.programs_run(), ["/sbin/insmod /ko/m25p80.ko", "/sbin/rmmod /ko/m25p80.ko"])
        self.assertFalse((self.folder / "desk/data/log/operation.log").exists())

    def test_upgradebios_without_the_flash_loads_nothing(self):
        self.output_of("true")
        self.board("bios-owner").unlink()
        _, out = self.upgrade_bios()
        self.assertEqual(out, UPGRADE_QUESTION + b"size of /tmp/new.bin is 8388608\r\nUpgrade bios fail\r\n")
        self.assertTrue(self.board("bios-flash").read_bytes() == bytes(16 << 20))
        self.assertFalse(self.board("bios-owner").exists())
        self.assertEqual(self.programs_run(), [])

    def test_upgradebios_on_a_full_disk_gives_the_flash_back(self):
        script = """
            cd /data/board
            echo 0 >bios-owner
            truncate -s 16M bios-flash
            head -c 8M /dev/urandom >/tmp/new.bin
            cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
            cat bios-owner
            stat -c %s bios-flash"""
        out = self.output_with_small_folder("data/board", script, input=b"y\n")
        shown = UPGRADE_QUESTION + b"size of /tmp/new.bin is 8388608\r\nUpgrade bios fail\r\n0\n16777216\n"
        self.assertEqual(out, shown)
        self.assertEqual(self.programs_run(), ["/sbin/insmod /ko/m25p80.ko", "/sbin/rmmod /ko/m25p80.ko"])

    def test_full_tmp_keeps_what_is_there(self):
        script = """
            echo old BIOS >/tmp/bios.bin
            echo old EEPROM >/tmp/eeprom.bin
            cat /dev/zero >/tmp/filler 2>/data/no-room || true
            ls -A /tmp >/data/before
            cfgtool -t maintenance -d downloadbios
            cfgtool -t maintenance -d readeeprom
            cat /tmp/bios.bin /tmp/eeprom.bin
            ls -A /tmp | diff /data/before -"""
        out = self.output_with_small_folder("tmp", script, stdin=subprocess.DEVNULL)
        self.assertEqual(out, b"Download bios fail\r\n" + EEPROM_READ + b"old BIOS\nold EEPROM\n")

    def test_read_only_tmp_keeps_what_is_there(self):
        self.output_of("true")
        tmp = self.folder / "desk/tmp"
        for name in ("bios.bin", "eeprom.bin"):
            (tmp / name).write_text("old")
        before = sorted(os.listdir(tmp))
        tmp.chmod(0o555)
        self.addCleanup(tmp.chmod, 0o755)
        out = self.output_of("cfgtool", "-t", "maintenance", "-d", "downloadbios")
        self.assertEqual(out, b"Download bios fail\r\n")
        out = self.output_of("cfgtool", "-t", "maintenance", "-d", "readeeprom")
        self.assertEqual(out, EEPROM_READ.replace(b"\nRead", b"fp is null\r\n\nRead"))
        self.assertEqual(sorted(os.listdir(tmp)), before)
        self.assertEqual([(tmp / name).read_text() for name in ("bios.bin", "eeprom.bin")], ["old", "old"])

    def test_webrestart_ends_and_starts_the_web_server(self):
        self.assertEqual(self.output_of("cfgtool", "-t", "maintenance", "-d", "webrestart"), b"")
        self.assertEqual(self.programs_run(), ["/sbin/killall /web/linux/webs", "/web/linux/webs"])
        record = ("2", "root", "console", "Zentro", "Restart web service success, EvtCode:0x202014E0")
        self.assertEqual(self.log_records(), [record])

    def test_biosprint_is_set_on_the_disk(self):
        out = self.answer_at_terminal(b"y\n", "cfgtool", "-t", "maintenance", "-d", "biosprint", "-v", "1")
        self.assertTrue(out.endswith(b"]:Set BIOS debug info enable successfully.\r\n"), out)
        self.assertEqual(self.board("bios-print").read_text(), "1\n")
        self.output_of("cfgtool", "-t", "maintenance", "-d", "biosprint", "-v", "2")
        self.assertEqual(self.board("bios-print").read_text(), "0\n")

    # The trace

    def test_trace_shows_the_traffic_of_this_command(self):
        first = self.start_waiting()  # one controller for all three
        self.output_of("cfgtool", "-d", "fanlevel", "-v", "99")
        status, out, err = self.run_desk("--trace", "cfgtool", "-d", "fanlevel", "-v", "60")
        self.assertEqual((status, out), (0, FANLEVEL_60))
        requests = re.findall(r"request (\S+)", err)
        self.assertEqual(requests, ["2C/15", "30/91", "2C/16"])
        self.assertIn("2C/15 Set Fan Level: 00 00 3C (FRU 0, 60 %)", err)
        self.leave(first)

    # Command, user and environment

    def test_exit_status_is_the_commands(self):
        self.assertEqual(self.run_desk("sh", "-c", "exit 7"), (7, b"", ""))

    def test_unknown_command_ends_with_127(self):
        status, out, err = self.run_desk("no-such-command")
        self.assertEqual((status, out), (127, b""))
        self.assertIn("no-such-command", err)

    def test_input_is_the_commands(self):
        self.assertEqual(self.output_of("tr", "a-z", "A-Z", keys=b"typed\n"), b"TYPED\n")

    def test_output_and_errors_stay_apart(self):
        self.assertEqual(self.run_desk("sh", "-c", "echo out; echo err >&2"), (0, b"out\n", "err\n"))

    def test_words_reach_the_command_as_they_are(self):
        words = ["two  blanks", "*", "$HOME", "", "--trace"]
        self.assertEqual(self.output_of("printf", "[%s]", *words).decode(), "".join(f"[{word}]" for word in words))

    def test_user_and_names(self):
        for number, name in [("0", "root"), ("502", "admin"), ("503", "operator"), ("504", "guest"), ("505", "locked")]:
            out = self.output_of("--user", number, "sh", "-c", 'echo "$(id -u) $(id -un) $LOGNAME"')
            self.assertEqual(out.decode(), f"{number} {name} {name}\n")

    def test_user_without_a_name_has_no_logname(self):
        self.assertEqual(self.output_of("--user", "510", "sh", "-c", "echo $(id -u) ${LOGNAME-none}"), b"510 none\n")

    def test_environment_is_the_controllers(self):
        mine = {"ZENTRO_IPC_DIR": "/nowhere", "SECRET": "1", "LOGNAME": "me", "REMOTEHOST": "far"}
        out = self.output_of("env", environment=mine).decode()
        names = {line.split("=")[0] for line in out.splitlines() if "SAN_OPTIONS" not in line}
        self.assertEqual(names, {"HOME", "LANG", "LOGNAME", "PATH", "PWD", "REMOTEHOST", "SHELL", "TERM", "USER"})
        self.assertIn("LOGNAME=root\n", out)

    def test_without_command_it_is_a_login_shell(self):
        out = self.output_of(keys=b"pwd; command -v cfgtool; shopt -q login_shell && echo login\n")
        self.assertEqual(out, b"/data/home\n/ipmc/bin/cfgtool\nlogin\n")

    def test_login_shell_on_a_terminal(self):
        process, terminal = pty.fork()
        if process == 0:
            os.execve(REPOSITORY / "desk", ["desk", "--user", "502"], self.environment)
        seen = self.read_until(terminal, b"ipmc$ ")
        os.write(terminal, b"echo s'tart'; cat\n")
        self.read_until(terminal, b"start\r\n")
        os.write(terminal, b"typed\n")
        self.read_until(terminal, b"typed\r\ntyped\r\n")  # the terminal's echo, then cat
        os.write(terminal, b"\x03")
        self.read_until(terminal, b"ipmc$ ")
        os.write(terminal, b"exit 3\n")
        _, status = os.waitpid(process, 0)
        os.close(terminal)
        self.assertEqual(os.waitstatus_to_exitcode(status), 3)
        self.assertNotIn(b"no job control", seen)

    def read_until(self, terminal, expected):
        seen = b""
        while expected not in seen:
            seen += os.read(terminal, 1024)
        return seen

    # The machine is left alone

    def test_tmp_is_the_desks(self):
        before = set(os.listdir("/tmp"))
        name = f"left-by-{self.folder.name}"
        self.output_of("touch", f"/tmp/{name}")
        self.assertNotIn(name, set(os.listdir("/tmp")) - before)
        self.assertTrue((self.folder / "desk/tmp" / name).exists())

    def test_disk_is_the_desks(self):
        there = [name for name in ("data", "ipmc", "web", "ko") if os.path.exists("/" + name)]
        self.output_of("sh", "-c", "for folder in data ipmc web ko run/zentro; do touch /$folder/mine; done")
        for folder in ("data", "ipmc", "web", "ko", "run"):
            self.assertTrue((self.folder / "desk" / folder / "mine").exists(), folder)
        self.assertEqual([name for name in ("data", "ipmc", "web", "ko") if os.path.exists("/" + name)], there)

    def test_system_and_repository_are_read_only(self):
        for folder in ("/usr", "/etc", str(REPOSITORY)):
            status, out, err = self.run_desk("touch", folder + "/desk-test-was-here")
            self.assertEqual((status, out), (1, b""), folder)
            self.assertIn("Read-only file system", err)

    def test_command_cannot_type_into_the_terminal(self):
        ours, theirs = pty.openpty()
        self.addCleanup(os.close, ours)
        self.addCleanup(os.close, theirs)
        program = "import fcntl, termios; fcntl.ioctl(0, termios.TIOCSTI, b'x')"
        status, _, err = self.run_desk("/usr/bin/python3", "-c", program, stdin=theirs)
        self.assertEqual(status, 1)
        self.assertIn("PermissionError: [Errno 1]", err)

    def test_processes_end_with_the_command(self):
        mark = f"/tmp/{self.folder.name}"
        self.output_of("sh", "-c", f"sh -c 'while :; do sleep 0.1; echo >>{mark}; done' </dev/null >/dev/null 2>&1 & :")
        count = Path(self.folder, "desk", mark[1:])
        before = count.stat().st_size if count.exists() else 0
        time.sleep(0.5)
        self.assertEqual(count.stat().st_size if count.exists() else 0, before)

    # One folder, one controller

    def test_second_desk_joins_and_the_last_one_ends_it(self):
        first = self.start_waiting()
        running = self.controller_process()
        second = self.start_waiting()
        self.assertEqual(self.controller_process(), running)
        self.leave(first)
        self.assertTrue(self.is_controller_running())
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)
        self.assertEqual(self.controller_process(), running)
        self.leave(second)
        self.wait_for_controllers_end()

    def test_state_outlives_the_desk(self):
        self.output_of("cfgtool", "-d", "fanlevel", "-v", "60")
        self.wait_for_controllers_end()
        self.assertIn(b'"level":60', self.output_of("ipmcd", "--ask", "show fans"))

    def test_many_at_once(self):
        many = [self.start("cfgtool", "-d", "fanlevel", "-v", "60") for _ in range(8)]
        for one in many:
            out, err = one.communicate(timeout=60)
            self.assertEqual((one.returncode, out, err), (0, FANLEVEL_60, b""))
        self.wait_for_controllers_end()

    def test_after_a_killed_desk(self):
        first = self.start_waiting()
        first.kill()
        first.communicate()
        self.assertTrue(self.is_controller_running())
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)
        self.wait_for_controllers_end()

    def test_after_a_killed_controller(self):
        first = self.start_waiting()
        running = self.controller_process()
        os.kill(running, signal.SIGKILL)
        self.wait_for_controllers_end()
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)
        self.leave(first)
        self.wait_for_controllers_end()

    def test_terminated_desk_takes_command_and_controller_along(self):
        for number in (signal.SIGTERM, signal.SIGHUP):
            process = self.start_waiting()
            process.send_signal(number)
            process.communicate(timeout=60)
            self.assertEqual(process.returncode, 128 + number)
            self.wait_for_controllers_end()

    def test_controller_that_cannot_start_says_why(self):
        self.output_of("true")
        (self.folder / "desk/controller/state.json").write_text("no JSON")
        status, out, err = self.run_desk("true")
        self.assertEqual((status, out), (OWN_FAILURE, b""))
        self.assertRegex(err, r"ipmcd: state file .*state\.json: not readable as JSON")
        self.assertRegex(err, r"desk: the controller did not start .*; \./desk --reset makes its state as new\n")

    def test_controller_that_refuses_its_board_does_not_ask_for_a_reset(self):
        status, out, err = self.run_desk("--board", "nosuch", "true")
        self.assertEqual((status, out), (OWN_FAILURE, b""))
        self.assertRegex(err, r"desk: the controller did not start \(/run/ipmcd is .*\)\n")

    # Its board

    def sdrs(self, *options, **more):
        return json.loads(self.output_of(*options, "ipmcd", "--ask", "show sdr", **more))

    def test_board_is_chosen_for_as_long_as_the_controller_runs(self):
        self.assertEqual(self.sdrs("--board", "device-sdrs")["source"], "device")
        self.wait_for_controllers_end()
        self.assertEqual(self.sdrs()["source"], "repository")

    def test_built_in_boards_have_states_of_their_own(self):
        for board in ("device-sdrs", "default", "short-reads"):
            out = self.output_of("--board", board, "cfgtool", "-t", "sensor", "-d", "uppercritical", "-v", "CPU1 Temp", "90")
            self.assertEqual(out, b"Set sensor upper critical successfully.\r\n", board)
            self.wait_for_controllers_end()

    def test_board_of_ones_own(self):
        self.output_of("cfgtool", "-d", "fanlevel", "-v", "60")
        records = '[{"record": "full", "name": "12V", "number": 1, "type": "voltage", "at": "system board 1"}]'
        (self.folder / "mine.json").write_text('{"board": "mine", "records": ' + records + "}")
        for _ in range(2):
            self.assertEqual(self.sdrs("--board=./mine.json", cwd=self.folder)["sensors"], 1)
            self.assertIn(b'"level":60', self.output_of("ipmcd", "--ask", "show fans"))

    def test_unknown_board_is_refused_with_the_known_ones(self):
        status, out, err = self.run_desk("--board", "nosuch", "true")
        self.assertEqual((status, out), (OWN_FAILURE, b""))
        self.assertIn("no board of that name is built in, there are: default device-sdrs", err)

    def test_another_board_is_refused_while_a_desk_is_in_use(self):
        first = self.start("--board=short-reads", "sh", "-c", "echo in; cat", stdin=subprocess.PIPE)
        self.assertEqual(first.stdout.readline(), b"in\n")
        status, out, err = self.run_desk("--board", "default", "true")
        self.assertEqual((status, out, err), (OWN_FAILURE, b"", "desk: a desk is in use with board short-reads\n"))
        for same in ([], ["--board", "short-reads"]):
            self.assertEqual(self.sdrs(*same)["board"], "short-reads")
        self.leave(first)

    # The platform library of a board

    def test_platform_library_is_the_given_one(self):
        library = f"{BUILD}/lib/libzentro_platform.so.1"
        (self.folder / "mine").mkdir()
        shutil.copy(library, self.folder / "mine")
        for given in (library, self.folder / "mine"):
            self.output_of("--platform", given, "cmp", library, "/ipmc/lib/libzentro_platform.so.1")
            self.assertEqual(self.output_of("--platform", given, "cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)
        status, _, _ = self.run_desk("cmp", library, "/ipmc/lib/libzentro_platform.so.1")
        self.assertEqual(status, 1)  # the desk's own is another

    def test_platform_library_for_another_processor_is_refused(self):
        library = bytearray(Path(BUILD, "lib/libzentro_platform.so.1").read_bytes())
        library[18:20] = b"\0\0"  # e_machine: none
        (self.folder / "other.so").write_bytes(library)
        (self.folder / "empty.so").write_bytes(b"")
        for name in ("other.so", "empty.so"):
            status, out, err = self.run_desk("--platform", self.folder / name, "true")
            self.assertEqual((status, out), (OWN_FAILURE, b""))
            self.assertEqual(err, f"desk: --platform: {self.folder}/{name} is not a library for this machine's processor\n")

    # The desk's folder

    def test_disk_keeps_what_the_user_changed_and_removed(self):
        self.output_of("true")
        profile = self.folder / "desk/data/cli.conf"
        profile.write_text("[FAN_PROPERTITY]\nFAN_MinLevel=55\n")
        refused = b"Fanlevel must not be lower than 55 percent.\r\n"
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "54"), refused)
        profile.unlink()
        self.assertIn(b"open cli.conf file fails.", self.output_of("cfgtool", "-d", "fanlevel", "-v", "54"))

    def test_reset_makes_disk_and_state_new(self):
        self.output_of("cfgtool", "-d", "fanlevel", "-v", "60")
        (self.folder / "desk/data/cli.conf").write_text("")
        (self.folder / "desk/data/blacklist").write_text("cfgtool -d fanlevel\n")
        self.assertEqual(self.output_of("--reset"), b"")
        self.assertNotIn(b'"level":60', self.output_of("ipmcd", "--ask", "show fans"))
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)
        self.assertEqual(len(self.log_records()), 1)

    def test_reset_refuses_while_a_desk_is_in_use(self):
        first = self.start_waiting()
        status, out, err = self.run_desk("--reset")
        self.assertEqual((status, out), (OWN_FAILURE, b""))
        self.assertIn("a desk is in use", err)
        self.assertEqual(self.output_of("cfgtool", "-d", "fanlevel", "-v", "60"), FANLEVEL_60)
        self.leave(first)

    def test_reset_after_a_killed_desk(self):
        first = self.start_waiting()
        first.kill()
        first.communicate()
        self.assertEqual(self.output_of("--reset"), b"")
        self.assertEqual(sorted(os.listdir(self.folder / "desk")), ["lock"])

    def test_folder_of_something_else_is_refused(self):
        treasure = self.folder / "desk/data/treasure"
        treasure.parent.mkdir(parents=True)
        treasure.write_text("x")
        for words in (["true"], ["--reset"]):
            status, out, err = self.run_desk(*words)
            self.assertEqual((status, out), (OWN_FAILURE, b""))
            self.assertIn("holds other things", err)
        self.assertEqual(os.listdir(self.folder / "desk"), ["data"])
        self.assertTrue(treasure.exists())

    def test_build_without_programs_is_refused(self):
        status, out, err = self.run_desk("true", environment={"DESK_BUILD": str(self.folder)})
        self.assertEqual((status, out), (OWN_FAILURE, b""))
        self.assertIn("bin/cfgtool", err)

    # The build

    def fresh_repository(self):
        """A clone where nothing is built, and a ninja of four steps that makes what the build folder has."""
        repository = self.folder / "repository"
        for name in ("desk", "scripts", "ipmcd/disk"):
            source = REPOSITORY / name
            (repository / name).parent.mkdir(parents=True, exist_ok=True)
            (shutil.copytree if source.is_dir() else shutil.copy)(source, repository / name)
        tools = {"cmake": "echo >build/build.ninja",
                 "ninja": f"""
                     [ "$3" != -n ] || exit 0
                     for n in 1 2 3 4; do echo "[$n/4] Building $4"; done
                     cp -R {BUILD}/bin {BUILD}/lib {repository}/build"""}
        for name, script in tools.items():
            path = self.folder / "bin" / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(f"#!/bin/sh -e\n{script}\n")
            path.chmod(0o755)
        del self.environment["DESK_BUILD"]
        self.environment["PATH"] = f"{self.folder}/bin:{self.environment['PATH']}"
        return repository

    def test_first_desk_builds_and_shows_how_far_it_is(self):
        repository = self.fresh_repository()
        ours, theirs = pty.openpty()
        self.addCleanup(os.close, ours)
        command = [repository / "desk", "cfgtool-verdict", "--help"]
        done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=theirs, timeout=60)
        os.close(theirs)
        self.assertEqual(done.returncode, 0)
        self.assertIn(b"Usage: cfgtool-verdict ", done.stdout)
        shown = os.read(ours, 4096).decode()
        steps = "".join(f"\rdesk: step {number} of 4" for number in (1, 2, 3, 4))
        self.assertEqual(shown, f"desk: building, which takes some minutes ...\r\n{steps}\r\n")

    def test_first_desk_without_a_terminal_says_that_it_builds(self):
        repository = self.fresh_repository()
        done = subprocess.run([repository / "desk", "true"], env=self.environment, stderr=subprocess.PIPE, timeout=60)
        self.assertEqual((done.returncode, done.stderr), (0, b"desk: building, which takes some minutes ...\n"))

    def test_build_makes_every_installed_program(self):
        if not os.path.exists(f"{BUILD}/build.ninja"):
            self.skipTest("not a build by ninja")
        made = subprocess.run(["ninja", "-C", BUILD, "-t", "query", "desk"], capture_output=True, text=True, check=True).stdout
        installed = re.findall(r"^\w+ +\d+ +(bin/\S+)$", (REPOSITORY / "packaging/files").read_text(), re.MULTILINE)
        self.assertGreater(len(installed), 3)
        self.assertEqual(sorted(re.findall(r"^    (bin/\S+)$", made, re.MULTILINE)), sorted(installed))

    # Options

    def test_bad_options(self):
        for words in (["--nosuch"], ["-x"], ["--user"], ["--user", "root"], ["--user=-1"], ["--user", ""],
                      ["--user", "9999999999"], ["--reset", "true"], ["--board"], ["--board", ""],
                      ["--board=no.such/file"], ["--platform"], ["--platform", ""], ["--platform=no.such/file"],
                      ["--platform", "/usr"], ["--machine"], ["--machine=ast2500"],
                      ["--machine=ast2600", "--platform=/etc/passwd", "true"], ["-d", "fanlevel"]):
            status, out, err = self.run_desk(*words)
            self.assertEqual((status, out), (2, b""), words)
            self.assertIn("see ./desk --help", err)
        self.assertFalse((self.folder / "desk").exists())

    def test_names_change_no_terminal(self):
        for words in (["--board=no/\x1b[2J"], ["--\x1b[2J"]):
            status, out, err = self.run_desk(*words)
            self.assertEqual((status, out), (2, b""), words)
            self.assertIn("\\E[2J", err)
            self.assertNotIn("\x1b", err)

    def test_help(self):
        out = self.output_of("--help").decode()
        for option in ("--machine", "--user", "--board", "--platform", "--trace", "--reset", "DESK_DIR",
                       "DESK_BUILD"):
            self.assertIn(option, out)

    def test_options_end_where_the_command_begins(self):
        self.assertEqual(self.output_of("--user=0503", "--", "id", "-u"), b"503\n")


if __name__ == "__main__":
    unittest.main()
