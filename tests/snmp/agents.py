"""What the tests of agents have in common: storages of their own, agents on them, and net-snmp's tools."""

import concurrent.futures
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import unittest

ROOT = "1.3.6.1.4.1.4242.10"
LOOK = ["-v2c", "-clook"]
CHANGE = ["-v2c", "-cchange"]
PROMPTLY = ["-t", "0.3", "-r", "0"]
CANARY = "hunter2"


def device(lines):
    return "".join(f"{ROOT}.{line}\n" for line in lines)


def v3(user, level, auth=None, priv=None):
    """The tools' options of a user; auth and priv are a protocol and a password."""
    signed = ["-a", auth[0], "-A", auth[1]] if auth else []
    return ["-v3", "-u", user, "-l", level, *signed, *(["-x", priv[0], "-X", priv[1]] if priv else [])]


def main(at_once=4):
    """Runs the module's tests, or those that the arguments name, several at once: most of their time they wait."""
    def tests_in(suite):
        return [test for part in suite for test in (tests_in(part) if isinstance(part, unittest.TestSuite) else [part])]

    module, names, loader = sys.modules["__main__"], sys.argv[1:], unittest.defaultTestLoader
    tests = tests_in(loader.loadTestsFromNames(names, module) if names else loader.loadTestsFromModule(module))
    classes = {type(test) for test in tests}
    for each in classes:
        each.setUpClass()
    try:
        with concurrent.futures.ThreadPoolExecutor(at_once) as pool:
            results = list(pool.map(lambda test: test.run(unittest.TestResult()), tests))
    finally:
        for each in classes:
            each.tearDownClass()
    failures = [failure for result in results for failure in result.failures + result.errors]
    for test, trace in failures:
        print(f"FAILED {test}\n{trace}")
    skipped = sum(len(result.skipped) for result in results)
    print(f"{len(tests)} tests, {len(failures)} failures, {skipped} skipped")
    sys.exit(bool(failures) or not tests)


class Folder(unittest.TestCase):
    """A storage of the test's own, and agents on it that run as nobody where the tests run as root."""

    built = None  # the program

    @classmethod
    def setUpClass(cls):
        cls.base = pathlib.Path(tempfile.mkdtemp(prefix="kel-agent-"))
        cls.base.chmod(0o755)
        cls.kelagent = cls.base / "kelagent"
        shutil.copy(cls.built, cls.kelagent)
        cls.user = {"user": 65534, "group": 65534, "extra_groups": []} if os.getuid() == 0 else {}

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.base)

    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(dir=self.base))
        self.home.chmod(0o755)
        (self.home / "tools" / "cert_indexes").mkdir(parents=True)
        self.state = self.home / "state"
        self.state.mkdir()
        self.state.chmod(0o777)
        self.environment = {
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "HOME": str(self.home),
            "XDG_STATE_HOME": str(self.state),
            # What the tools find on the machine says nothing here.
            "SNMPCONFPATH": str(self.home),
            "SNMP_PERSISTENT_DIR": str(self.home / "tools"),
            "MIBS": "",
        }
        self.root = pathlib.Path(tempfile.mkdtemp(dir=self.home))
        self.agent = None

    def tearDown(self):
        if self.agent:
            self.agent.kill()
            self.agent.communicate()

    def write(self, text):
        (self.root / "device.txt").write_text(text, encoding="utf-8")
        if self.user:
            for path in [self.root, *self.root.iterdir()]:
                os.chown(path, 65534, 65534)

    def allow(self, text):
        """A file of credentials that is its owner's alone."""
        words = self.home / "words"
        words.write_text(text)
        if self.user:
            os.chown(words, 65534, 65534)
        words.chmod(0o600)
        return words

    def read(self):
        return (self.root / "device.txt").read_text(encoding="utf-8")

    def command(self, *options, **variables):
        words = {"KEL_SNMP_COMMUNITY": "look", "KEL_SNMP_WRITE_COMMUNITY": "change"}
        environment = {**self.environment, **words, **variables}
        command = [self.kelagent, *([] if "--root" in options else ["--root", self.root]), *options]
        return {"args": list(map(str, command)), "env": environment, "encoding": "utf-8", **self.user}

    def refused(self, *options, **variables):
        """What an agent that does not start says."""
        ended = subprocess.run(**self.command(*options, **variables), capture_output=True, timeout=60)
        self.assertEqual((ended.returncode, ended.stdout), (2, ""))
        return ended.stderr

    def start(self, *options, **variables):
        command = self.command(*(options or ["--listen", "127.0.0.1:0"]), **variables)
        self.agent = subprocess.Popen(**command, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        line = self.agent.stdout.readline()
        self.address = line.rpartition(" at ")[2].strip()
        self.assertEqual(line, f"kelagent: {self.root} answers at {self.address}\n")

    def start_snmpd(self, lines):
        """Debian's own agent, as nobody special, on a port of its own."""
        snmpd = shutil.which("snmpd", path=os.environ["PATH"] + ":/usr/sbin:/sbin")
        if snmpd is None:
            self.skipTest("snmpd is missing")
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as probe:
            probe.bind(("127.0.0.1", 0))
            self.address = f"127.0.0.1:{probe.getsockname()[1]}"
        folder = pathlib.Path(tempfile.mkdtemp(dir=self.home))
        folder.chmod(0o777)
        configuration = folder / "snmpd.conf"
        configuration.write_text(lines)
        environment = {**self.environment, "SNMP_PERSISTENT_DIR": str(folder), "SNMPCONFPATH": str(folder)}
        self.agent = subprocess.Popen([snmpd, "-f", "-Lf", str(folder / "log"), "-C", "-c", str(configuration), "-p", str(folder / "pid"),
                                       f"udp:{self.address}"], env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                      encoding="utf-8", **self.user)
        for _ in range(200):
            if "Timeticks" in self.tool("snmpget", ["-v2c", "-clook", "-t", "0.2", "-r", "0"], "1.3.6.1.2.1.1.3.0"):
                break

    def end(self, number=signal.SIGTERM):
        self.agent.send_signal(number)
        output = self.agent.communicate(timeout=60)
        status, self.agent = self.agent.returncode, None
        return status, output

    def launch(self, tool, *arguments):
        return subprocess.Popen([tool, "-On", *arguments], env=self.environment, encoding="utf-8",
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def tool(self, tool, options, *arguments):
        """What the tool prints, without the root of the OIDs."""
        asked = self.launch(tool, *options, self.address, *arguments)
        printed = asked.communicate(timeout=60)[0]
        return printed.replace(f".{ROOT}.", "")

    def get(self, *oids, options=LOOK):
        return self.tool("snmpget", options, *(f"{ROOT}.{oid}" for oid in oids))

    def set(self, *changes, options=CHANGE):
        arguments = [part for oid, kind, value in changes for part in (f"{ROOT}.{oid}", kind, value)]
        return self.tool("snmpset", options, *arguments)

    def reason(self, printed):
        """Why the agent refused, and of which OID."""
        found = re.search(r"Reason: \(?(\w+).*\nFailed object: ([\d.]+)\n", printed)
        return found.groups() if found else printed

    def open(self):
        host, port = self.address.split(":")
        asking = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        asking.settimeout(20)
        asking.connect((host, int(port)))
        self.addCleanup(asking.close)
        return asking
