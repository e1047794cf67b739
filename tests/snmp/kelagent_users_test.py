#!/usr/bin/env python3
"""kelagent_users_test.py KELAGENT: the users of SNMPv3 against the agent, by net-snmp's own tools."""

import itertools
import pathlib
import signal
import sys

import agents
import ber
from agents import CANARY, CHANGE, LOOK, PROMPTLY, ROOT, Folder, device, v3

AUTH = ["MD5", "SHA", "SHA-224", "SHA-256", "SHA-384", "SHA-512"]
PRIV = ["DES", "AES", "AES-192", "AES-256"]
SIGN = "sign-and-seal"
SEAL = "seal-and-sign"


def section(name, **lines):
    return f"[user {name}]\n" + "".join(f"{line.replace('_', '-')} = {text}\n" for line, text in lines.items())


USERS = (
    section("open", level="noAuthNoPriv")
    + section("signer", auth_password=SIGN)
    + section("sealer", auth_password=SIGN, priv_password=SEAL)
    + section("writer", auth_password=SIGN, priv_password=SEAL, level="noAuthNoPriv", write="yes")
)
SHA, AES = ("SHA-256", SIGN), ("AES", SEAL)


class Users(Folder):
    def setUp(self):
        super().setUp()
        self.write(device(["1\tInteger\t1", f"2\tPassword\t{CANARY}", f"3\tHex\t{CANARY}", "4\tOctet String\ttext",
                           "5\tInteger\t5\tdelay=900", "6\tOctet String\t" + "y" * 70000]))

    def serve(self, users=USERS, **variables):
        self.start("--listen", "127.0.0.1:0", "--credentials", self.allow(users), **variables)

    def test_each_protocol_signs_and_seals(self):
        pairs = list(itertools.product(AUTH, [None, *PRIV]))
        self.serve("".join(
            section(f"{auth}/{priv}", auth_protocol=auth, auth_password=SIGN, write="yes",
                    **({"priv_protocol": priv, "priv_password": SEAL} if priv else {}))
            for auth, priv in pairs))
        for number, (auth, priv) in enumerate(pairs):
            level = "authPriv" if priv else "authNoPriv"
            options = v3(f"{auth}/{priv}", level, (auth, SIGN), (priv, SEAL) if priv else None)
            with self.subTest(auth=auth, priv=priv):
                self.assertEqual(self.set((1, "i", str(number)), options=options), f"1 = INTEGER: {number}\n")
                self.assertEqual(self.get(1, 4, options=options), f'1 = INTEGER: {number}\n4 = STRING: "text"\n')

    def test_answers_at_no_level_below_the_users(self):
        self.serve()
        levels = {"noAuthNoPriv": (None, None), "authNoPriv": (SHA, None), "authPriv": (SHA, AES)}
        least = {"open": 0, "signer": 1, "sealer": 2, "writer": 0}
        highest = {"open": 0, "signer": 1, "sealer": 2, "writer": 2}
        for user, (number, (level, keys)) in itertools.product(least, enumerate(levels.items())):
            with self.subTest(user=user, level=level):
                told = self.get(1, options=[*v3(user, level, *keys), *PROMPTLY])
                if number > highest[user]:
                    self.assertIn("Unsupported security level", told)
                elif number < least[user]:
                    self.assertIn("Reason: authorizationError (access denied to that object)", told)
                else:
                    self.assertEqual(told, "1 = INTEGER: 1\n")

    def test_tells_who_is_wrong(self):
        self.serve()
        for options, told in [
            (v3("nobody", "authPriv", SHA, AES), "Unknown user name"),
            (v3("sealer", "authPriv", ("SHA-256", "another-word"), AES), "Authentication failure"),
            (v3("sealer", "authPriv", ("SHA-512", SIGN), AES), "Authentication failure"),
        ]:
            self.assertIn(told, self.get(1, options=[*options, *PROMPTLY]))
        # The library reports what it cannot decrypt, but the tool does not believe a report that is not encrypted.
        for priv in (("AES", "another-word"), ("DES", SEAL)):
            printed = self.get(1, options=[*v3("sealer", "authPriv", SHA, priv), *PROMPTLY])
            self.assertNotIn("INTEGER", printed)
        self.assertEqual(self.get(1, options=v3("sealer", "authPriv", SHA, AES)), "1 = INTEGER: 1\n")

    def test_only_those_who_may_set(self):
        self.serve()
        self.assertEqual(self.reason(self.set((1, "i", "2"), options=v3("sealer", "authPriv", SHA, AES))), ("noAccess", "1"))
        self.assertEqual(self.set((1, "i", "2"), options=v3("writer", "authPriv", SHA, AES)), "1 = INTEGER: 2\n")
        self.assertEqual(self.set((1, "i", "3"), options=v3("writer", "noAuthNoPriv")), "1 = INTEGER: 3\n")

    def test_secrets_go_only_where_nobody_listens(self):
        self.write(device(["1\tOctet String\ttext", f"2\tPassword\t{CANARY}", f"3\tHex\t{CANARY}"]))
        self.serve()
        sealed = v3("writer", "authPriv", SHA, AES)
        self.assertEqual(self.get(2, 3, options=sealed), f'2 = STRING: "{CANARY}"\n3 = STRING: "{CANARY}"\n')
        self.assertEqual(self.tool("snmpwalk", sealed, f"{ROOT}.2"), f'2 = STRING: "{CANARY}"\n')
        self.assertEqual(self.set((2, "s", CANARY + "!"), options=sealed), f'2 = STRING: "{CANARY}!"\n')
        for options in (LOOK, CHANGE, v3("writer", "authNoPriv", SHA), v3("writer", "noAuthNoPriv")):
            told = self.tool("snmpbulkwalk", options, ".1") + self.get(2, 3, options=options)
            self.assertIn("text", told)
            self.assertIn("2 = No Such Instance", told)
            self.assertNotIn(CANARY, told)
            if options != LOOK:
                self.assertEqual(self.reason(self.set((2, "s", "new"), options=options)), ("noAccess", "2"))
        for said in self.end()[1]:
            for secret in (CANARY, SIGN, SEAL):
                self.assertNotIn(secret, said)

    def test_a_user_of_the_environment_needs_no_file(self):
        words = {"KEL_SNMP_COMMUNITY": "", "KEL_SNMP_WRITE_COMMUNITY": "", "KEL_SNMP_USER": "kim",
                 "KEL_SNMP_AUTH_PROTOCOL": "SHA-512", "KEL_SNMP_AUTH_PASSWORD": SIGN, "KEL_SNMP_PRIV_PROTOCOL": "AES-256",
                 "KEL_SNMP_PRIV_PASSWORD": SEAL}
        self.start(**words)
        self.assertEqual(self.get(1, options=v3("kim", "authPriv", ("SHA-512", SIGN), ("AES-256", SEAL))), "1 = INTEGER: 1\n")
        self.assertIn("Timeout", self.get(1, options=[*LOOK, *PROMPTLY]))
        arguments = pathlib.Path(f"/proc/{self.agent.pid}/cmdline").read_bytes()
        for secret in (SIGN, SEAL):
            self.assertNotIn(secret.encode(), arguments)
        self.end()
        refused = self.refused(**{**words, "KEL_SNMP_AUTH_PASSWORD": "short"})
        self.assertEqual(refused, "kelagent: KEL_SNMP_AUTH_PASSWORD has fewer than 8 characters\n")

    def test_a_wrong_file_is_refused_without_a_word_of_it(self):
        self.assertEqual(self.refused("--credentials", self.allow("[user kim]\nauth-password = hush\n")),
                         f"kelagent: {self.home}/words:2: auth-password has fewer than 8 characters\n")

    def test_a_long_text_and_a_device_that_takes_its_time(self):
        self.serve()
        sealed = v3("writer", "authPriv", SHA, AES)
        self.assertIn("Reason: (tooBig)", self.get(6, options=sealed))
        self.set((4, "s", "x" * 60000), options=sealed)
        self.assertEqual(self.get(4, options=sealed), '4 = STRING: "' + "x" * 60000 + '"\n')
        # Each time it asks again by another number, and it is the last that it wants answered.
        self.assertEqual(self.get(5, options=[*sealed, "-t", "0.4", "-r", "5"]), "5 = INTEGER: 5\n")

    def engine(self):
        """The engine id as the agent tells it to whoever asks, and the boots as they are kept for the next start."""
        with self.open() as asking:
            asking.send(ber.v3_request("", b"", 0, 1, []))
            engine = ber.engine_of(asking.recv(65535)).hex()
        kept = [path.read_text().split() for path in (self.state / "kelterm" / "engines").iterdir()]
        return engine, int(dict(kept)[engine])

    def test_is_the_same_to_its_managers_after_a_kill(self):
        self.serve()
        engine, boots = self.engine()
        for number in (signal.SIGKILL, signal.SIGTERM, signal.SIGKILL):
            self.end(number)
            self.serve()
            self.assertEqual(self.engine(), (engine, boots := boots + 1))
        # Who knows it from an earlier start is told what has changed, and goes on.
        known = [*v3("sealer", "authPriv", SHA, AES), "-e", engine]
        self.assertEqual(self.get(1, options=[*known, "-Z", f"{boots - 1},5"]), "1 = INTEGER: 1\n")
        self.assertEqual(self.get(1, options=[*known, "-Z", f"{boots},100000"]), "1 = INTEGER: 1\n")

    def test_answers_with_no_more_than_a_manager_takes(self):
        self.write(device(f"{number}\tOctet String\t{'x' * 40}" for number in range(1, 90)))
        self.serve()
        engine, boots = self.engine()
        sizes = {}
        with self.open() as asking:
            for number, most in enumerate([484, 700, 1000, 65507]):
                asking.send(ber.v3_request("open", bytes.fromhex(engine), boots, number, [ROOT], ber.BULK, most))
                answer = asking.recv(65535)
                self.assertLessEqual(len(answer), most)
                status, sizes[most] = ber.v3_response(answer)
                self.assertEqual(status, 0)
            asking.send(ber.v3_request("open", bytes.fromhex(engine), boots, 9,
                                       [f"{ROOT}.{number}" for number in range(1, 30)], max_size=700))
            self.assertEqual(ber.v3_response(asking.recv(65535)), (1, 0))
        self.assertLess(2, sizes[484])
        self.assertEqual(list(sizes.values()), sorted(set(sizes.values())))

    def test_other_storages_are_other_engines(self):
        self.serve()
        first = self.engine()[0]
        self.end()
        self.root = self.root / "other"
        self.root.mkdir()
        self.write(device(["1\tInteger\t1"]))
        self.serve()
        self.assertNotEqual(self.engine()[0], first)

    def test_without_a_place_for_its_engine_it_says_so(self):
        self.assertIn("there is no place for what users know this agent by",
                      self.refused("--credentials", self.allow(USERS), HOME="", XDG_STATE_HOME=""))
        self.start(HOME="", XDG_STATE_HOME="")
        self.assertEqual(self.get(1), "1 = INTEGER: 1\n")


if __name__ == "__main__":
    Folder.built = pathlib.Path(sys.argv.pop(1)).resolve()
    agents.main()
