#!/usr/bin/env python3
"""kelagent_test.py KELAGENT KELTERM: net-snmp's own tools, and worse, against the agent."""

import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys

import agents
import ber
from agents import CANARY, CHANGE, LOOK, PROMPTLY, ROOT, Folder, device


class NetSnmp(Folder):
    def test_gets_and_sets_each_type(self):
        self.write(device(["1\tInteger\t-5", "2\tBool\t0", "3\tIP Address\t10.0.0.1", "4\tGauge\t7", "5\tCounter\t4294967295",
                           "6\tTime Ticks\t100", "7\tOctet String\ttext", "8\tReaderCmd\t0105", "9\tInteger\t"]))
        self.start()
        self.assertEqual(self.get(*range(1, 10)),
                         "1 = INTEGER: -5\n2 = INTEGER: 0\n3 = IpAddress: 10.0.0.1\n4 = Gauge32: 7\n5 = Counter32: 4294967295\n"
                         '6 = Timeticks: (100) 0:00:01.00\n7 = STRING: "text"\n8 = STRING: "0105"\n9 = ""\n')
        self.assertEqual(self.set((1, "i", "2147483647"), (2, "i", "1"), (3, "a", "192.168.1.255"), (4, "u", "0"),
                                  (7, "s", "Größe"), (9, "i", "1")).count("\n"), 6)
        self.assertEqual(self.get(1, 2, 3, 4, 9),
                         "1 = INTEGER: 2147483647\n2 = INTEGER: 1\n3 = IpAddress: 192.168.1.255\n4 = Gauge32: 0\n9 = INTEGER: 1\n")
        self.assertIn(f"{ROOT}.7\tOctet String\tGröße\n", self.read())
        self.assertEqual(self.end()[0], 0)
        self.assertEqual(self.read(),
                         device(["1\tInteger\t2147483647", "2\tBool\t1", "3\tIP Address\t192.168.1.255", "4\tGauge\t0",
                                 "5\tCounter\t4294967295", "6\tTime Ticks\t100", "7\tOctet String\tGröße", "8\tReaderCmd\t0105",
                                 "9\tInteger\t1"]))

    def test_walks_alike_whatever_the_step(self):
        numbers = random.Random(1).sample(range(5000), 700)
        self.write(device(f"{number // 70}.{number}.0\tOctet String\tvalue {number}" for number in numbers)
                   + "cfg|b\tInteger\t2\ncfg|a\tInteger\t1\n")
        self.start()
        walked = self.tool("snmpwalk", LOOK, f"{ROOT}")
        self.assertEqual(walked, "".join(f'{number // 70}.{number}.0 = STRING: "value {number}"\n' for number in sorted(numbers)))
        for step in (1, 10, 50):
            self.assertEqual(self.tool("snmpbulkwalk", [*LOOK, f"-Cr{step}"], ROOT), walked, step)
        names = ".1.3.6.1.4.1.4242.20.1.5.99.102.103.124"
        self.assertEqual(self.tool("snmpwalk", LOOK, "1.3.6.1.4.1.4242.20"),
                         f"{names}.97 = INTEGER: 1\n{names}.98 = INTEGER: 2\n{names}.98 = No more variables left in this MIB "
                         "View (It is past the end of the MIB tree)\n")

    def test_says_each_error_and_where(self):
        self.write(device(["1\tInteger\t1", "2\tInteger\t2\treadonly", "3\tInteger\t3\tget=0x80004005",
                           "4\tInteger\t4\tset=0x80004005", "5\tInteger\t5\tnull", "6\tInteger\t6\tset=0x80070005",
                           "7\tIP Address\t1.1.1.1", "8\tTime Ticks\t1"]))
        self.start()
        before = self.read()
        self.assertEqual(self.reason(self.get(1, 3)), ("genError", "3"))
        self.assertEqual(self.get(5, 9), "5 = No Such Instance currently exists at this OID\n"
                                         "9 = No Such Object available on this agent at this OID\n")
        for wrong, reason in [((2, "i", "1"), "notWritable"), ((4, "i", "1"), "commitFailed"), ((6, "i", "1"), "noAccess"),
                              ((9, "i", "1"), "noCreation"), ((8, "t", "1"), "notWritable"), ((7, "i", "1"), "wrongType"),
                              ((7, "s", "1.1.1.2"), "wrongType")]:
            self.assertEqual(self.reason(self.set(wrong)), (reason, str(wrong[0])))
            self.assertEqual(self.reason(self.set((1, "i", "9"), wrong)), (reason, str(wrong[0])))
        self.assertEqual(self.reason(self.set((1, "i", "9"), options=LOOK)), ("noAccess", "1"))
        self.assertEqual(self.read(), before)
        self.assertEqual(self.get(1), "1 = INTEGER: 1\n")

    def test_answers_nobody_without_the_word(self):
        self.write(device(["1\tInteger\t1"]))
        self.start()
        for options in (["-v2c", "-cpublic"], ["-v1", "-clook"], ["-v2c", "-c", ""]):
            self.assertIn("Timeout", self.get(1, options=[*options, *PROMPTLY]))
        self.assertEqual(self.end()[0], 0)
        self.start(KEL_SNMP_WRITE_COMMUNITY="")
        self.assertIn("Timeout", self.set((1, "i", "2"), options=[*CHANGE, *PROMPTLY]))
        self.assertEqual(self.reason(self.set((1, "i", "2"), options=LOOK)), ("noAccess", "1"))

    def test_a_long_text_goes_both_ways(self):
        self.write(device(["1\tOctet String\t", "2\tOctet String\t" + "y" * 70000]))
        self.start()
        self.set((1, "s", "x" * 60000))
        self.assertEqual(self.get(1), '1 = STRING: "' + "x" * 60000 + '"\n')
        self.assertIn("Reason: (tooBig)", self.get(2))

    def test_a_device_that_takes_its_time_holds_up_nobody_else(self):
        self.write(device(["1\tInteger\t1", "2\tInteger\t2\tdelay=1200"]))
        self.start()
        patiently = [*CHANGE, "-t", "0.3", "-r", "30"]
        slow = self.launch("snmpset", *patiently, self.address, f"{ROOT}.2", "i", "22")
        reading = self.launch("snmpget", *LOOK, "-t", "20", self.address, f"{ROOT}.2")
        self.assertEqual(self.get(1), "1 = INTEGER: 1\n")
        self.assertEqual((slow.poll(), reading.poll()), (None, None))
        self.assertEqual(self.set((1, "i", "11")), "1 = INTEGER: 11\n")
        self.assertTrue(slow.communicate()[0].endswith(".2 = INTEGER: 22\n"))
        self.assertIn(".2 = INTEGER: 2", reading.communicate()[0])
        # Asked again and again, it did it once.
        self.assertEqual(self.read().count(f"{ROOT}.2\tInteger\t22"), 1)


class Program(Folder):
    def setUp(self):
        super().setUp()
        self.write(device(["1\tInteger\t1", f"2\tPassword\t{CANARY}", f"3\tHex\t{CANARY}"]) + f"x|y\tHex32\t{CANARY}\n")

    def test_ends_when_asked_to_and_leaves_nothing_behind(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            self.start()
            self.assertEqual(self.end(number)[0], 0)
            self.assertEqual([path.name for path in self.root.iterdir()], ["device.txt"])

    def test_has_the_terminal_to_itself(self):
        self.start()
        self.assertIn(f"this terminal runs already, as process {self.agent.pid}", self.refused())
        terminal = subprocess.run([KELTERM, "--root", self.root, "--script", "-"], input="wait\n", encoding="utf-8",
                                  capture_output=True, timeout=60, env=self.environment)
        self.assertIn(f"this terminal already runs, as process {self.agent.pid}", terminal.stderr)

    def test_needs_words_and_a_place_of_its_own(self):
        none = {"KEL_SNMP_COMMUNITY": "", "KEL_SNMP_WRITE_COMMUNITY": ""}
        self.assertIn("nobody may ask yet", self.refused(**none))
        for wrong in ("1161", "127.0.0.1", "127.0.0.1:99999"):
            self.assertIn("--listen takes ADDRESS:PORT", self.refused("--listen", wrong))
        self.start()
        other = self.root / "other"
        other.mkdir()
        other.chmod(0o777)
        self.assertIn(f"cannot listen on {self.address}: Address already in use",
                      self.refused("--root", other, "--listen", self.address))
        self.assertIn(f"{self.root}/none: no such folder", self.refused("--root", self.root / "none"))

    def test_takes_words_from_a_file_of_its_owner_and_none_from_arguments(self):
        none = {"KEL_SNMP_COMMUNITY": "", "KEL_SNMP_WRITE_COMMUNITY": ""}
        words = self.home / "words"
        words.write_text("community = see\n")
        if self.user:
            os.chown(words, 65534, 65534)
        words.chmod(0o640)
        self.assertIn(f"{words}: others than its owner may use it", self.refused("--credentials", words, **none))
        words.chmod(0o600)
        self.start("--listen", "127.0.0.1:0", "--credentials", words, **none)
        self.assertEqual(self.get(1, options=["-v2c", "-csee"]), "1 = INTEGER: 1\n")
        arguments = pathlib.Path(f"/proc/{self.agent.pid}/cmdline").read_bytes().split(b"\0")
        self.assertFalse([argument for argument in arguments if argument == b"see"])
        self.end()
        self.refused("--community", "see")

    def test_tells_no_secret(self):
        self.start()
        told = self.tool("snmpwalk", CHANGE, ".1") + self.get(2, 3, options=CHANGE)
        self.assertIn("2 = No Such Instance", told)
        self.assertEqual(self.reason(self.set((2, "s", "new"))), ("noAccess", "2"))
        status, (output, errors) = self.end()
        self.assertEqual(status, 0)
        for said in (told, output, errors):
            for secret in (CANARY, "look", "change"):
                self.assertNotIn(secret, said)

    def test_names_what_it_cannot_serve(self):
        self.write("1.3.1\tInteger\t1\nsysName\tOctet String\tx\n")
        self.start()
        self.assertIn("device.txt: sysName is no OID that SNMP can name: it is not served\n", self.end()[1][1])
        self.write("1.3\tInteger\n")
        self.assertIn("device.txt:1: a line is OID, type, value and options", self.refused())

    def test_answers_on_ipv6(self):
        self.start("--listen", "[::1]:0")
        self.address = "udp6:" + self.address
        self.assertEqual(self.get(1), "1 = INTEGER: 1\n")


class Datagrams(Folder):
    def test_killed_at_any_moment_it_leaves_the_values_before_a_set_or_after(self):
        self.write(device(["1\tInteger\t0", "2\tInteger\t0", "3\tInteger\t0"]))
        done = 0
        chance = random.Random(7)
        for _ in range(5):
            self.start()
            asking = self.open()
            for _ in range(chance.randrange(1, 12)):
                done += 1
                asking.send(ber.set_request("change", done, [(f"{ROOT}.{i}", done) for i in (1, 2)]))
                self.assertEqual(ber.response(asking.recv(65535)), (done, 0, 0))
                asking.send(ber.set_request("change", done, [(f"{ROOT}.3", done)]))
                self.assertEqual(ber.response(asking.recv(65535)), (done, 0, 0))
            for more in range(1, 6):
                asking.send(ber.set_request("change", done + more, [(f"{ROOT}.{i}", done + more) for i in (1, 2, 3)]))
            self.end(signal.SIGKILL)
            self.start()
            now = [int(value) for value in re.findall(r"INTEGER: (\d+)", self.get(1, 2, 3))]
            self.assertEqual(len(set(now)), 1, now)
            self.assertIn(now[0], range(done, done + 6))
            self.assertEqual(self.end()[0], 0)
            done = now[0]


if __name__ == "__main__":
    KELTERM = pathlib.Path(sys.argv.pop(2)).resolve()
    Folder.built = pathlib.Path(sys.argv.pop(1)).resolve()
    agents.main()
