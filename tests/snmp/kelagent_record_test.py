#!/usr/bin/env python3
"""kelagent_record_test.py KELAGENT: a device on the network and its twin have the same values, and nothing else is told."""

import pathlib
import resource
import shutil
import socket
import subprocess
import sys
import tempfile
import unittest

import agents
from agents import CANARY, Folder, device, v3
from relay import Relay

HOME = pathlib.Path(__file__).resolve().parents[2]
WORD = "sign-and-seal"
ADMIN = f"[user admin]\nauth-password = {WORD}\npriv-password = {WORD}\n"
AS_ADMIN = v3("admin", "authPriv", ("SHA-256", WORD), ("AES", WORD))


class Recording(Folder):
    def setUp(self):
        super().setUp()
        self.twin = pathlib.Path(tempfile.mkdtemp(dir=self.home))
        self.file = self.twin / "device.txt"
        self.words = self.home / "own-words"
        self.own(ADMIN)

    def own(self, text):
        self.words.write_text(text)
        self.words.chmod(0o600)

    def serve(self):
        none = {"KEL_SNMP_COMMUNITY": "", "KEL_SNMP_WRITE_COMMUNITY": ""}
        self.start("--listen", "127.0.0.1:0", "--credentials", self.allow("community = look\n" + ADMIN), **none)

    def configure(self, *properties):
        """Each is an OID and a type."""
        groups = "".join(f'<GROUP name="e{number}"><OID>{oid}</OID><Type>{kind}</Type></GROUP>'
                         for number, (oid, kind) in enumerate(properties))
        config = self.home / "config.xml"
        config.write_text(f'<GROUP name="CONFIGAPP"><DisplayName>Main</DisplayName>{groups}</GROUP>')
        return config

    def begin(self, *options, user="admin@", address=None, **settings):
        command = [self.built, "--record", f"snmp://{user}{address or self.address}", "--credentials", self.words, *options,
                   *([] if "-o" in options else ["-o", self.file])]
        return subprocess.Popen(list(map(str, command)), env=self.environment, encoding="utf-8", stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True, **settings)

    def record(self, *options, **settings):
        """The status, what is printed and what is said."""
        recording = self.begin(*options, **settings)
        printed, said = recording.communicate(timeout=60)
        return recording.returncode, printed, said

    def refused(self, *options, **settings):
        status, printed, said = self.record(*options, **settings)
        self.assertEqual((status, printed), (2, ""))
        return said.removeprefix("kelagent: ")

    def values(self):
        return [line for line in self.file.read_text(encoding="utf-8").splitlines() if not line.startswith("#")]

    def left(self):
        return sorted(path.name for path in self.twin.iterdir())


class Twin(Recording):
    def test_has_the_values_of_the_demonstration_terminal(self):
        shutil.copy(HOME / "examples/terminal/device.txt", self.root)
        self.write(self.read() + f"{agents.ROOT}.99\tOctet String\tunnamed\n")
        self.serve()
        walk = [*AS_ADMIN, "-Cr50"]
        walked = self.tool("snmpbulkwalk", walk, ".1")
        terminal = HOME / "examples/terminal"
        status, printed, said = self.record("--config", terminal, "--walk", ".1.3", "--secrets")
        count = len(self.values())
        self.assertEqual((status, printed), (1, f"kelagent: {self.file} has {count} values of the device; 2 could not be read\n"))
        self.assertEqual(said, f"kelagent: {agents.ROOT}.8.7.0: the device cannot read it\n"
                               f"kelagent: {agents.ROOT}.8.8.0: the device has none\n")
        self.assertEqual(self.file.stat().st_mode & 0o777, 0o600)
        original = {line for line in self.read().splitlines() if line and not line.startswith("#")}
        self.assertEqual(count, len(original) - 2)
        named = {"\t".join(line.split("\t")[:3]) for line in original}
        # Of what the menus do not name the device cannot tell a flag from a number.
        self.assertLess(len(set(self.values()) - named), 20)
        self.end()
        (self.root / "device.txt").unlink()
        self.write(self.file.read_text(encoding="utf-8"))
        self.serve()
        self.assertEqual(self.tool("snmpbulkwalk", walk, ".1"), walked)

    def test_of_a_foreign_agent_answers_alike(self):
        self.start_snmpd(f"rocommunity look\nsysName {CANARY}\nsysServices 72\n")
        root = "1.3.6.1.2.1.1"
        config = self.configure((f"{root}.5.0", "Octet String"), (f"{root}.7.0", "Octet String"), (f"{root}.99.0", "Integer"))
        walked = self.tool("snmpbulkwalk", agents.LOOK, root)
        self.own("community = look\n")
        status, printed, said = self.record("--config", config, "--walk", root, user="")
        self.assertEqual(status, 1)
        self.assertEqual(self.values()[:2], [f"{root}.5.0\tOctet String\t{CANARY}", f"{root}.7.0\tOctet String\t72"])
        self.assertIn(f"kelagent: {root}.7.0: the type is Octet String in the configuration, and INTEGER on the device\n", said)
        self.assertTrue(said.endswith(f"kelagent: {root}.99.0: the device has none\n"), said)
        count = len(self.values())
        self.assertEqual(printed, f"kelagent: {self.file} has {count} values of the device; 1 could not be read\n")
        self.assertEqual(count, walked.count("\n"))
        self.end()
        self.write(self.file.read_text(encoding="utf-8"))
        self.start()
        text = [line for line in walked.splitlines() if "STRING: " in line and line.startswith(f".{root}.")]
        twins = self.tool("snmpbulkwalk", agents.LOOK, root).splitlines()
        self.assertGreater(len(text), 3)
        self.assertEqual([line for line in text if line not in twins], [])


class Secrets(Recording):
    def test_are_told_to_nobody_unless_asked_for(self):
        self.write(device([f"1\tPassword\t{CANARY}", f"2\tHex\t{CANARY}", "3\tInteger\t5"]) + f"a|b\tHex32\t{CANARY}\n")
        self.serve()
        config = self.configure((f"{agents.ROOT}.1", "Password"), (f"{agents.ROOT}.2", "Hex"), (f"{agents.ROOT}.3", "Integer"), ("a|b", "Hex32"))
        status, printed, said = self.record("--config", config, "--walk", "1.3")
        self.assertEqual((status, said), (0, "kelagent: 3 secrets were left out; --secrets records them\n"))
        for told in (printed, said, self.file.read_text(encoding="utf-8")):
            self.assertNotIn(CANARY, told)
        self.assertEqual(self.values(), [f"{agents.ROOT}.3\tInteger\t5"])
        self.assertIn("\n#a|b\tHex32\t\n", self.file.read_text(encoding="utf-8"))
        # Not even to their owner where others could listen.
        self.own("community = look\n")
        status, printed, said = self.record("--config", config, "--secrets", "--force", user="")
        self.assertEqual((status, said.count("the device has none\n"), self.file.read_text(encoding="utf-8").count(CANARY)), (1, 3, 0))
        self.own(ADMIN)
        status, printed, said = self.record("--config", config, "--secrets", "--force")
        self.assertEqual((status, self.file.read_text(encoding="utf-8").count(CANARY)), (0, 3))
        self.assertNotIn(CANARY, printed + said)
        self.assertEqual(self.file.stat().st_mode & 0o777, 0o600)


class File(Recording):
    def setUp(self):
        super().setUp()
        self.write(device(f"{number}\tOctet String\t" + "x" * 100 for number in range(1, 400)))
        self.serve()

    def test_is_replaced_only_when_that_is_asked_for(self):
        walk = ["--walk", agents.ROOT]
        self.file.write_text("mine\n")
        self.file.chmod(0o644)
        self.assertEqual(self.refused(*walk), f"{self.file}: is there already; --force replaces it\n")
        self.assertEqual(self.refused(*walk, "-o", self.twin), f"{self.file}: is there already; --force replaces it\n")
        self.assertEqual(self.refused(*walk, "-o", self.twin / "none" / "x"), f"{self.twin / 'none'}: there is no such folder\n")
        self.assertEqual(self.file.read_text(), "mine\n")
        self.assertEqual(self.record(*walk, "--force")[0], 0)
        self.assertEqual((len(self.values()), self.file.stat().st_mode & 0o777, self.left()), (399, 0o600, ["device.txt"]))

    def test_is_whole_or_not_at_all(self):
        dead = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.addCleanup(dead.close)
        dead.bind(("127.0.0.1", 0))
        self.own("community = look\n" + ADMIN)
        unheard = self.begin("--walk", "1.3", "-o", self.twin / "other", user="", address="127.0.0.1:%d" % dead.getsockname()[1])
        small = {"preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (9000, 9000)), "restore_signals": False}
        self.assertEqual(self.refused("--walk", agents.ROOT, **small), f"{self.file}: cannot be written\n")
        self.assertEqual(self.left(), [])
        self.file.write_text("mine\n")
        self.assertEqual(self.refused("--walk", agents.ROOT, "--force", **small), f"{self.file}: cannot be written\n")
        # Killed on the way, and a device that falls silent on the way.
        relay = Relay(self.address)
        self.addCleanup(relay.close)
        relay.most = 6
        silent = f"127.0.0.1:{relay.port}"
        recording = self.begin("--walk", agents.ROOT, "--force", user="", address=silent)
        while relay.lost == 0:
            self.assertIsNone(recording.poll())
        recording.kill()
        recording.communicate()
        relay.lost = relay.passed = 0
        self.assertEqual(self.refused("--walk", agents.ROOT, "--force", user="", address=silent),
                         f"no answer from snmp://{silent} any more: nothing was recorded\n")
        self.assertGreater(relay.passed, 3)
        _, said = unheard.communicate(timeout=60)
        self.assertEqual(unheard.returncode, 2)
        self.assertRegex(said, r"^kelagent: no answer from snmp://127\.0\.0\.1:\d+ \(127\.0\.0\.1\), asked several times in [\d.]+ s by SNMP version 2c; ")
        self.assertEqual((self.file.read_text(), self.left()), ("mine\n", ["device.txt"]))

    def test_can_be_had_whatever_the_network_makes_of_the_answers(self):
        self.own("community = look\n")
        config = self.configure(*((f"{agents.ROOT}.{number}", "Octet String") for number in range(1, 400)))
        relays = [Relay(self.address, spoilt=0.3, seed=seed) for seed in range(4)]
        recordings = [self.begin("--config", config, "--walk", f"{agents.ROOT}.39", "-o", self.twin / str(relay.port), user="",
                                 address=f"127.0.0.1:{relay.port}") for relay in relays]
        for relay, recording in zip(relays, recordings):
            _, said = recording.communicate(timeout=60)
            relay.close()
            self.assertIn(recording.returncode, (0, 1, 2), said)
            self.assertNotIn("Sanitizer", said)
            self.assertEqual((self.twin / str(relay.port)).exists(), recording.returncode < 2)


class Arguments(Recording):
    def test_that_are_nonsense_are_refused(self):
        self.address = "127.0.0.1:1"
        broken = self.home / "broken.xml"
        broken.write_text("<GROUP name='R'><X></GROUP>")
        for options, problem in [
            (["--walk", "x"], "--walk takes an OID\n"),
            ([], "--record takes a configuration by --config, or --walk\n"),
            (["--config", self.home / "none.xml"], f"{self.home}/none.xml: there is no such file or folder\n"),
            (["--config", broken], f"{broken}:1: "),
            (["--walk", "1.3", "--root", self.root], "--root excludes --record\n"),
        ]:
            self.assertIn(problem, self.refused(*options))
        nowhere = subprocess.run([self.built, "--record", "", "-o", self.file], env=self.environment, encoding="utf-8",
                                 capture_output=True, check=False)
        self.assertEqual((nowhere.returncode, nowhere.stdout), (2, ""))
        alone = subprocess.run([self.built, "--secrets"], env=self.environment, encoding="utf-8", capture_output=True, check=False)
        self.assertEqual((alone.returncode, alone.stderr.splitlines()[0]), (2, "kelagent: --secrets requires --record"))


if __name__ == "__main__":
    Folder.built = pathlib.Path(sys.argv.pop(1)).resolve()
    agents.main()
