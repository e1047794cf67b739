#!/usr/bin/env python3
"""kelagent_pysnmp_test.py KELAGENT: a manager that shares no code with the agent, and keeps its sessions."""

import pathlib
import signal
import sys
import unittest

from pysnmp import hlapi
from pysnmp.proto.rfc1905 import EndOfMibView

from agents import CANARY, ROOT, Folder, device

SIGN, SEAL = "sign-and-seal", "seal-and-sign"
AUTH = {
    "MD5": hlapi.usmHMACMD5AuthProtocol,
    "SHA": hlapi.usmHMACSHAAuthProtocol,
    "SHA-224": hlapi.usmHMAC128SHA224AuthProtocol,
    "SHA-256": hlapi.usmHMAC192SHA256AuthProtocol,
    "SHA-384": hlapi.usmHMAC256SHA384AuthProtocol,
    "SHA-512": hlapi.usmHMAC384SHA512AuthProtocol,
}
PRIV = {
    "DES": hlapi.usmDESPrivProtocol,
    "AES": hlapi.usmAesCfb128Protocol,
    "AES-192": hlapi.usmAesBlumenthalCfb192Protocol,
    "AES-256": hlapi.usmAesBlumenthalCfb256Protocol,
}


class Pysnmp(Folder):
    def setUp(self):
        super().setUp()
        self.engine = hlapi.SnmpEngine()
        self.addCleanup(lambda: self.engine.transportDispatcher and self.engine.transportDispatcher.closeDispatcher())
        self.write(device(["1\tInteger\t-1", "2\tOctet String\ttext", f"3\tPassword\t{CANARY}", "4\tIP Address\t10.0.0.1",
                           "5\tGauge\t7", "6\tTime Ticks\t100", "7\tInteger\t7\tget=0x80004005", "8\tInteger\t8\treadonly"]))

    def serve(self, users=""):
        self.start("--listen", "127.0.0.1:0", "--credentials", self.allow(users))

    def again(self, users=""):
        """The same agent at the same place, after a kill."""
        self.end(signal.SIGKILL)
        self.start("--listen", self.address, "--credentials", self.allow(users))

    def ask(self, command, who, *variables, **options):
        host, port = self.address.split(":")
        target = hlapi.UdpTransportTarget((host, int(port)), timeout=5, retries=5)
        error, status, index, answers = next(command(self.engine, who, target, hlapi.ContextData(), *variables,
                                                     lookupMib=False, **options))
        if error or status:
            return str(error or status.prettyPrint()), int(index or 0)
        return [(str(oid).replace(ROOT + ".", ""), value.prettyPrint()) for oid, value in answers]

    def get(self, who, *oids):
        return self.ask(hlapi.getCmd, who, *((f"{ROOT}.{oid}", hlapi.Null("")) for oid in oids))

    def set(self, who, *changes):
        return self.ask(hlapi.setCmd, who, *((f"{ROOT}.{oid}", value) for oid, value in changes))

    def walk(self, who, command, *counts):
        host, port = self.address.split(":")
        target = hlapi.UdpTransportTarget((host, int(port)), timeout=5, retries=5)
        return [str(answers[0][1]) for error, status, _, answers in command(
            self.engine, who, target, hlapi.ContextData(), *counts, (ROOT, hlapi.Null("")), lookupMib=False,
            lexicographicMode=False) if not error and not status and not isinstance(answers[0][1], EndOfMibView)]

    def test_version_2c(self):
        self.serve()
        look, change = hlapi.CommunityData("look"), hlapi.CommunityData("change")
        self.assertEqual(self.get(look, 1, 2, 4, 5, 6), [("1", "-1"), ("2", "text"), ("4", "10.0.0.1"), ("5", "7"), ("6", "100")])
        self.assertEqual(self.set(change, (1, hlapi.Integer32(5)), (2, hlapi.OctetString("new"))), [("1", "5"), ("2", "new")])
        self.assertEqual(self.get(look, 1, 2), [("1", "5"), ("2", "new")])
        self.assertEqual(self.get(look, 1, 7), ("genErr", 2))
        self.assertEqual(self.set(change, (1, hlapi.Integer32(6)), (8, hlapi.Integer32(6))), ("notWritable", 2))
        self.assertEqual(self.set(look, (1, hlapi.Integer32(6))), ("noAccess", 1))
        walked = self.walk(look, hlapi.nextCmd)
        self.assertEqual(len(walked), 6)
        for count in (1, 3, 50):
            self.assertEqual(self.walk(look, hlapi.bulkCmd, 0, count), walked)
        self.assertNotIn(CANARY, walked)

    def test_each_protocol_of_version_3(self):
        pairs = [(auth, priv) for auth in AUTH for priv in [None, *PRIV]]
        self.serve("".join(
            f"[user {auth}/{priv}]\nauth-protocol = {auth}\nauth-password = {SIGN}\nwrite = yes\n"
            + (f"priv-protocol = {priv}\npriv-password = {SEAL}\n" if priv else "")
            for auth, priv in pairs))
        for number, (auth, priv) in enumerate(pairs):
            sealed = {"privKey": SEAL, "privProtocol": PRIV[priv]} if priv else {}
            who = hlapi.UsmUserData(f"{auth}/{priv}", SIGN, authProtocol=AUTH[auth], **sealed)
            with self.subTest(auth=auth, priv=priv):
                self.assertEqual(self.set(who, (1, hlapi.Integer32(number))), [("1", str(number))])
                secret = CANARY if priv else "No Such Instance currently exists at this OID"
                self.assertEqual(self.get(who, 1, 3), [("1", str(number)), ("3", secret)])

    def test_a_session_goes_on_after_a_kill(self):
        users = f"[user kim]\nauth-password = {SIGN}\npriv-password = {SEAL}\nwrite = yes\n"
        self.serve(users)
        kim = hlapi.UsmUserData("kim", SIGN, SEAL, authProtocol=AUTH["SHA-256"], privProtocol=PRIV["AES"])
        self.assertEqual(self.set(kim, (1, hlapi.Integer32(5))), [("1", "5")])
        for number in range(3):
            self.again(users)
            self.assertEqual(self.get(kim, 1, 3), [("1", str(5 + number)), ("3", CANARY)])
            self.assertEqual(self.set(kim, (1, hlapi.Integer32(6 + number))), [("1", str(6 + number))])

    def test_tells_who_is_wrong(self):
        self.serve(f"[user kim]\nauth-password = {SIGN}\n[user open]\nlevel = noAuthNoPriv\n")
        for who, told in [
            (hlapi.UsmUserData("nobody", SIGN, authProtocol=AUTH["SHA-256"]), "Unknown USM user"),
            (hlapi.UsmUserData("kim", "another-word", authProtocol=AUTH["SHA-256"]), "Wrong SNMP PDU digest"),
            (hlapi.UsmUserData("open"), None),
        ]:
            answer = self.get(who, 1)
            self.assertEqual(answer if told is None else answer[0], [("1", "-1")] if told is None else told)


if __name__ == "__main__":
    Folder.built = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
