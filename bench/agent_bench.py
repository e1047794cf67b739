#!/usr/bin/env python3
"""agent_bench.py KELAGENT [ROUNDS]: kelagent's speed, beside snmpd's over as many values, in alternating rounds.

Both are asked by net-snmp's own tools, at 127.0.0.1, by version 2c. snmpd has its values in memory, in a table of its own.
"""

import os
import pathlib
import socket
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "snmp"))
import ber  # noqa: E402

COUNT = 14000
SETS = 500
ROOT = "1.3.6.1.4.1.4242"
TABLE = f"{ROOT}.10.1.2"
# snmpd's table wants a module that says what it is.
MODULE = """BENCH-MIB DEFINITIONS ::= BEGIN
org OBJECT IDENTIFIER ::= { iso 3 }
dod OBJECT IDENTIFIER ::= { org 6 }
internet OBJECT IDENTIFIER ::= { dod 1 }
private OBJECT IDENTIFIER ::= { internet 4 }
enterprises OBJECT IDENTIFIER ::= { private 1 }
bench OBJECT IDENTIFIER ::= { enterprises 4242 }
benchTable OBJECT-TYPE SYNTAX SEQUENCE OF BenchEntry MAX-ACCESS not-accessible STATUS current DESCRIPTION ""
  ::= { bench 10 }
benchEntry OBJECT-TYPE SYNTAX BenchEntry MAX-ACCESS not-accessible STATUS current DESCRIPTION "" INDEX { benchIndex }
  ::= { benchTable 1 }
BenchEntry ::= SEQUENCE { benchIndex INTEGER, benchValue OCTET STRING }
benchIndex OBJECT-TYPE SYNTAX INTEGER MAX-ACCESS not-accessible STATUS current DESCRIPTION "" ::= { benchEntry 1 }
benchValue OBJECT-TYPE SYNTAX OCTET STRING MAX-ACCESS read-create STATUS current DESCRIPTION "" ::= { benchEntry 2 }
END
"""


class Agents:
    """kelagent and snmpd with the same values, in a folder that goes with them."""

    def __init__(self, kelagent, home):
        self.home, self.kelagent, self.running = home, kelagent, []
        self.environment = {"PATH": os.environ["PATH"] + ":/usr/sbin", "HOME": str(home), "MIBS": "",
                            "SNMPCONFPATH": str(home), "SNMP_PERSISTENT_DIR": str(home / "tools")}

    def start_kelagent(self, *options, count=COUNT):
        """The seconds until it says where it answers."""
        root = self.home / f"root-{count}"
        if not root.exists():
            root.mkdir()
            (root / "device.txt").write_text("".join(
                f"{TABLE}.{i}\tOctet String\tvalue {i}\n" for i in range(1, count + 1)))
        words = {"KEL_SNMP_COMMUNITY": "look", "KEL_SNMP_WRITE_COMMUNITY": "change"}
        begin = time.perf_counter()
        agent = subprocess.Popen([self.kelagent, "--root", root, "--listen", "127.0.0.1:0", *options],
                                 env={**self.environment, **words}, stdout=subprocess.PIPE, encoding="utf-8")
        line = agent.stdout.readline()
        took = time.perf_counter() - begin
        self.running.append(agent)
        return took, line.rpartition(" at ")[2].strip()

    def start_snmpd(self):
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as free:
            free.bind(("127.0.0.1", 0))
            address = "127.0.0.1:%d" % free.getsockname()[1]
        (self.home / "BENCH-MIB.txt").write_text(MODULE)
        (self.home / "bench.conf").write_text("rocommunity look\ntable BENCH-MIB::benchTable\n" + "".join(
            f'add_row BENCH-MIB::benchTable {i} "value {i}"\n' for i in range(1, COUNT + 1)))
        known = {**self.environment, "MIBDIRS": str(self.home), "MIBS": "BENCH-MIB"}
        self.running.append(subprocess.Popen(
            ["snmpd", "-f", "-Ln", "-C", "-c", self.home / "bench.conf", "-I", "-smux", "udp:" + address], env=known,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        while "value" not in self.ask("snmpget", address, f"{TABLE}.{COUNT}"):
            time.sleep(0.1)
        return address

    def ask(self, tool, address, *arguments):
        return subprocess.run([tool, "-On", "-v2c", "-clook", "-t1", *arguments[1:], address, arguments[0]],
                              env=self.environment, capture_output=True, encoding="utf-8").stdout

    def seconds(self, tool, address, *options, count=COUNT):
        begin = time.perf_counter()
        walked = self.ask(tool, address, TABLE, *options)
        took = time.perf_counter() - begin
        if walked.count("STRING") != count:
            sys.exit(f"{tool} has met {walked.count('STRING')} of {count} values")
        return took

    def end(self):
        for agent in self.running:
            agent.terminate()
            agent.wait()


def set_milliseconds(address):
    """Of each of many durable Sets, one after the other."""
    host, port = address.split(":")
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as asking:
        asking.settimeout(20)
        asking.connect((host, int(port)))
        for i in range(SETS):
            request = ber.set_request("change", i, [(f"{TABLE}.{1 + i * 17 % COUNT}", f"new {i}")])
            begin = time.perf_counter()
            asking.send(request)
            answer = ber.response(asking.recv(65535))
            yield (time.perf_counter() - begin) * 1000
            if answer != (i, 0, 0):
                sys.exit(f"a Set was answered by {answer}")


def measure(agents, rounds):
    address, snmpd = agents.start_kelagent()[1], agents.start_snmpd()
    walks = [("snmpwalk",), ("snmpbulkwalk", "-Cr10"), ("snmpbulkwalk", "-Cr50")]
    for walk in walks:
        ours, theirs = [], []
        for _ in range(rounds):
            ours.append(agents.seconds(walk[0], address, *walk[1:]))
            theirs.append(agents.seconds(walk[0], snmpd, *walk[1:]))
        mine, other = statistics.median(ours), statistics.median(theirs)
        print(f"{' '.join(walk):20} {COUNT / mine:9,.0f} values/s, snmpd {COUNT / other:9,.0f}: {other / mine:.2f} times as fast")
    times = sorted(set_milliseconds(address))
    print(f"{'durable Set':20} {statistics.median(times):9.2f} ms median, {times[len(times) * 99 // 100]:.2f} ms in 99 of 100")
    agents.end()
    starts = []
    for _ in range(rounds):
        starts.append(agents.start_kelagent()[0])
        agents.running[-1].terminate()
        agents.running[-1].wait()
    print(f"{'start':20} {statistics.median(starts):9.3f} s median with {COUNT} values")


def main():
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    with tempfile.TemporaryDirectory(prefix="kel-bench-") as home:
        folder = pathlib.Path(home)
        (folder / "tools" / "cert_indexes").mkdir(parents=True)
        agents = Agents(pathlib.Path(sys.argv[1]).resolve(), folder)
        try:
            measure(agents, rounds)
        finally:
            agents.end()


if __name__ == "__main__":
    main()
