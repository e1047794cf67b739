#!/usr/bin/env python3
"""kelagent_datagrams_test.py KELAGENT: whatever is sent to the agent, it goes on, and has nothing to complain about."""

import pathlib
import random
import select
import socket
import subprocess
import sys
import unittest

import ber
from agents import CANARY, CHANGE, ROOT, Folder, device, v3
from relay import broken

EACH = 300
WORD = "sign-and-seal"
USERS = f"""
[user open]
level = noAuthNoPriv
write = yes
[user sealer]
auth-password = {WORD}
priv-password = {WORD}
level = noAuthNoPriv
write = yes
"""


class Datagrams(Folder):
    def setUp(self):
        super().setUp()
        self.write(device(["1\tInteger\t1", "2\tInteger\t2", "3\tOctet String\ttext", f"4\tPassword\t{CANARY}",
                           "5\tIP Address\t10.0.0.1\treadonly", "6\tGauge\t6\treadonly", "7\tInteger\t7\tget=0x80004005"]))
        self.start("--listen", "127.0.0.1:0", "--credentials", self.allow(USERS))

    def overheard(self, tool, options, *arguments):
        """The datagrams that the tool sends for one question, as they pass on their way."""
        between = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        between.bind(("127.0.0.1", 0))
        beyond, heard, sender = self.open(), [], None
        address = "127.0.0.1:%d" % between.getsockname()[1]
        asked = subprocess.Popen([tool, "-On", *options, address, *arguments], env=self.environment,
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        with between:
            while asked.poll() is None:
                for ready in select.select([between, beyond], [], [], 0.05)[0]:
                    if ready is beyond:
                        between.sendto(beyond.recv(65535), sender)
                    else:
                        datagram, sender = between.recvfrom(65535)
                        heard.append(datagram)
                        beyond.send(datagram)
        self.assertTrue(heard)
        return heard

    def assert_goes_on(self):
        self.assertEqual(self.get(5, 6, options=CHANGE), "5 = IpAddress: 10.0.0.1\n6 = Gauge32: 6\n")
        self.assertEqual(self.end(), (0, ("", "")))

    def test_that_are_broken_do_not_end_it(self):
        sealed = v3("sealer", "authPriv", ("SHA-256", WORD), ("AES", WORD))
        oids = [f"{ROOT}.{number}" for number in (1, 3, 4)]
        engine = ber.engine_of(self.overheard("snmpget", sealed, oids[0])[-1])
        wholes = [
            ber.set_request("change", 1, [(f"{ROOT}.1", 5), (f"{ROOT}.2", 5)]),
            ber.v3_request("", b"", 0, 1, []),
            ber.v3_request("open", engine, 1, 1, oids),
            *self.overheard("snmpbulkget", CHANGE, "-Cn1", "-Cr9", *oids),
            *self.overheard("snmpget", sealed, *oids),
            *self.overheard("snmpset", v3("open", "noAuthNoPriv"), oids[0], "i", "5", oids[1], "s", "new"),
            *self.overheard("snmpbulkget", v3("sealer", "authNoPriv", ("SHA-256", WORD)), "-Cr9", *oids),
        ]
        chance = random.Random(3)
        asking = self.open()
        for whole in wholes:
            for size in range(0, len(whole), 1 + len(whole) // EACH):
                asking.send(whole[:size])
            for number in range(EACH):
                asking.send(broken(chance, whole))
                if number % 30 == 0:
                    self.catch_up(asking)
        self.assert_goes_on()

    def catch_up(self, asking):
        """Waits until it has read all that was sent: none is lost for want of room."""
        asking.settimeout(1)
        for _ in range(60):
            asking.send(ber.set_request("change", 77, [(f"{ROOT}.2", 2)]))
            try:
                while not self.is_answer(asking.recv(65535)):
                    pass
                return
            except TimeoutError:
                self.assertIsNone(self.agent.poll())
        self.fail("it answers no more")

    def is_answer(self, datagram):
        try:
            return ber.response(datagram) == (77, 0, 0)
        except (IndexError, StopIteration, RuntimeError):
            return False

    def test_that_come_twice_set_once(self):
        asking = self.open()
        engine = ber.engine_of(self.overheard("snmpget", v3("open", "noAuthNoPriv"), f"{ROOT}.1")[-1])
        for make in (lambda number, value: ber.set_request("change", number, [(f"{ROOT}.1", value)]),
                     lambda number, value: ber.v3_request("open", engine, 1, number, [(f"{ROOT}.1", value)], ber.SET)):
            first, later = make(7, 5), make(8, 6)
            answers = []
            for datagram in (first, later, first):
                asking.send(datagram)
                answers.append(asking.recv(65535))
            self.assertEqual(answers[0], answers[2])
            self.assertEqual(self.get(1), "1 = INTEGER: 6\n")
            asking.send(make(9, 5))
            asking.recv(65535)
            self.assertEqual(self.get(1), "1 = INTEGER: 5\n")
        # The number is not enough.
        asking.send(ber.set_request("change", 8, [(f"{ROOT}.1", 7)]))
        asking.recv(65535)
        self.assertEqual(self.get(1), "1 = INTEGER: 7\n")
        self.assertEqual(self.end(), (0, ("", "")))

    def test_of_any_octets_and_lengths_do_not_end_it(self):
        chance = random.Random(5)
        asking = self.open()
        for size in [0, 1, 2, 3, 127, 128, 255, 256, 1400, 9000, 65000, 65507]:
            for _ in range(10):
                asking.send(chance.randbytes(size))
                asking.send((b"\x30\x82" + chance.randbytes(size))[:65507])
            self.catch_up(asking)
        self.assert_goes_on()


if __name__ == "__main__":
    Folder.built = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
