#!/usr/bin/env python3
"""What the library is as a file, and platform-check run over it. usage: library_test.py --library FILE --check FILE
--broken FILE --simulator FILE [--lean] TEST...; --simulator is the library that heeds everybody's environment, --lean a
release build without sanitizers, whose symbols, needs and size count."""

import argparse
import os
import re
import socket
import subprocess
import sys
import tempfile
import threading
import unittest

HEADER = os.path.join(os.path.dirname(__file__), "..", "..", "platform", "platform.h")
ARGUMENTS = argparse.Namespace()


def lines_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()


class Library(unittest.TestCase):
    def setUp(self):
        if not ARGUMENTS.lean:
            self.skipTest("only a release build without sanitizers is what it shall be")

    def test_exports_what_the_header_declares_and_nothing_else(self):
        with open(HEADER) as header:
            code = re.sub(r"//.*|^#.*|__attribute__.*", "", header.read(), flags=re.MULTILINE)
        declared = set(re.findall(r"(\w+)\([^;]*?\)\s*;", code))
        self.assertGreater(len(declared), 30)
        for library in (ARGUMENTS.library, ARGUMENTS.simulator):
            exported = {line.split()[-1] for line in lines_of("nm", "-D", "--defined-only", library)}
            self.assertEqual(exported, declared)

    def test_has_no_way_to_the_screen(self):
        """What it has to say goes to the system's log."""
        needed = {line.split()[-1].split("@")[0] for line in lines_of("nm", "-D", "--undefined-only", ARGUMENTS.library)}
        self.assertIn("write", needed)
        self.assertFalse({name for name in needed if re.fullmatch(
            r"(std(out|err)|(__)?v?(f|d)?printf(_chk)?|(f|_IO_)?put(s|c|char)|fwrite|perror|v?(warn|err)x?|psignal|syslog)", name)})

    def test_needs_libc_alone(self):
        dynamic = "\n".join(lines_of("readelf", "-dW", ARGUMENTS.library))
        self.assertEqual(re.findall(r"NEEDED.*\[(.*)\]", dynamic), ["libc.so.6"])
        self.assertEqual(re.findall(r"SONAME.*\[(.*)\]", dynamic), ["libzentro_platform.so.1"])
        self.assertNotIn("TEXTREL", dynamic)

    def test_is_small_and_runs_nothing_when_it_is_loaded(self):
        with tempfile.TemporaryDirectory() as folder:
            stripped = os.path.join(folder, "stripped")
            subprocess.run(["strip", "-o", stripped, ARGUMENTS.library], check=True)
            self.assertLessEqual(os.path.getsize(stripped), 65536)
        self.assertNotIn("INIT", "\n".join(lines_of("readelf", "-dW", ARGUMENTS.library)))


def answer_get_device_id(service):
    """The least of an IPMI service: one request, one answer."""
    request, client = service.recvfrom(1024)
    header = [request[3], (request[1] >> 2) + 1 << 2]
    body = [0x20, request[4], request[5], 0x00, 0x20, 0x01, 0x01, 0x00, 0x02, 0x00, 0xD9, 0x7E, 0x00, 0x01, 0x00]
    service.sendto(bytes([*header, -sum(header) & 255, *body, -sum(body) & 255]), client)


class Check(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.environment = {**os.environ, "LD_LIBRARY_PATH": os.path.dirname(ARGUMENTS.simulator),
                            "ZENTRO_IPC_DIR": self.folder.name, "ZENTRO_IPC_TIMEOUT_MS": "5000", "ZENTRO_SYSLOG": "",
                            "ZENTRO_OPLOG": self.path("log")}

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def run_check(self, program, *options):
        done = subprocess.run([program, *options], env=self.environment, stdin=subprocess.DEVNULL, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return done.returncode, done.stdout, done.stderr

    def test_finds_nothing_broken_and_tries_no_device(self):
        status, text, errors = self.run_check(ARGUMENTS.check)
        self.assertEqual((status, errors), (0, ""), text)
        self.assertNotIn("BROKEN", text)
        for call in ("ipc_msg_send", "ipc_msg_recv", "vos_zentro_log", "i2c_write_read", "get_bios", "set_bios_owner",
                     "spi_flash_copy", "set_bios_print_flag", "event_parse"):
            self.assertIn(f"not tried: {call}: ", text)
        self.assertRegex(text.splitlines()[-1], r"^\d\d ok, 0 broken, 10 not tried$")
        self.assertFalse(os.path.exists(self.path("log")))

    def test_tries_messages_log_and_events_when_it_may(self):
        service = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        self.addCleanup(service.close)
        service.bind(self.path("2001"))
        service.settimeout(20)
        with open(self.path("table"), "w") as table:
            table.write("1 1 9 assert 2 10000001 Upper critical, going high\n")
        answering = threading.Thread(target=answer_get_device_id, args=[service])
        answering.start()
        status, text, errors = self.run_check(ARGUMENTS.check, "--service", "--log", "--event-table",
                                              self.path("table"))
        answering.join()
        self.assertEqual((status, errors), (0, ""), text)
        self.assertNotIn("BROKEN", text)
        for promise in ("ipc_msg_recv: puts the payload at byte 32", "vos_zentro_log: writes a record",
                        "event_parse: sets severity and description"):
            self.assertIn(f"ok: {promise}", text)
        self.assertRegex(text.splitlines()[-1], r"^\d\d ok, 0 broken, 5 not tried$")
        with open(self.path("log")) as log:
            self.assertEqual(len(log.readlines()), 1)

    def test_a_service_that_should_be_there_and_is_not_is_broken(self):
        status, text, _ = self.run_check(ARGUMENTS.check, "--service")
        self.assertEqual(status, 1)
        self.assertIn("BROKEN: ipc_msg_send: ", text)
        self.assertIn(" 1 broken,", text.splitlines()[-1])

    def test_tells_what_is_broken(self):
        status, text, _ = self.run_check(ARGUMENTS.broken)
        self.assertEqual(status, 1)
        self.assertEqual([line.split(": ")[1:] for line in text.splitlines() if line.startswith("BROKEN")], [
            ["vos_memset", "refuses more than there is room for, and writes nothing"],
            ["vos_strncpy", "copies at most the count, and terminates"],
            ["vos_strncpy", "terminates within the room there is"],
            ["vos_task_delay", "sleeps in milliseconds"],
            ["vos_rand", "gives one number and another"],
            ["vos_system", "gives another exit status"],
            ["vos_system", "gives -1 for a program that is not there"],
            ["get_sensor_type_name", "is never null"]])
        self.assertIn(" 8 broken,", text.splitlines()[-1])

    def test_explains_its_options(self):
        status, text, errors = self.run_check(ARGUMENTS.check, "--wrong\x1b[2J")
        self.assertEqual((status, text), (2, ""))
        self.assertTrue(errors.startswith("Usage: platform-check"), errors)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True)
    parser.add_argument("--check", required=True)
    parser.add_argument("--broken", required=True)
    parser.add_argument("--simulator", required=True)
    parser.add_argument("--lean", action="store_true")
    _, rest = parser.parse_known_args(namespace=ARGUMENTS)
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
