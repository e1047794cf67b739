#!/usr/bin/env python3
"""manager_bench.py BUILD [ROUNDS]: the speed of the manager, beside snmpbulkwalk's over the same values, in alternating rounds.

BUILD is a build folder with kelagent, kelterm and manager_bench. Both ask the same kelagent by version 2c, at once or by way
of a relay that lets each datagram take 5 ms; both are timed from their start to their end, and print all that they read.
"""

import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

from agent_bench import COUNT, TABLE, Agents

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "snmp"))
from relay import Relay  # noqa: E402


# So many that the programs' own start hardly counts.
MANY = 10 * COUNT
# With that each datagram has about 50 values, as snmpbulkwalk's have.
OCTETS_FOR_50 = "6"


class Managers:
    def __init__(self, build, home):
        self.build, self.home = build, home
        self.agents = Agents(build / "tools/kelagent", home)
        self.address = self.agents.start_kelagent()[1]
        self.full = self.agents.start_kelagent(count=MANY)[1]
        self.environment = {**self.agents.environment, "KEL_SNMP_COMMUNITY": "look", "LC_ALL": "C.UTF-8"}

    def ours(self, address, count, *octets):
        command = [self.build / "bench/manager_bench", address, TABLE, str(count), *octets]
        begin = time.perf_counter()
        read = subprocess.run(command, env=self.environment, capture_output=True, encoding="utf-8", check=True).stdout
        took = time.perf_counter() - begin
        if read.count("STRING") != count:
            sys.exit(f"the manager has read {read.count('STRING')} of {count} values")
        return took

    def theirs(self, address, count):
        return self.agents.seconds("snmpbulkwalk", address, "-Cr50", count=count)

    def menu(self, address):
        """From the start of the utility until a menu of all values is on the screen, and the utility has ended."""
        command = [self.build / "simulator/kelterm", "--root", self.home / "terminal", "--script", "-", "--device", f"snmp://{address}"]
        begin = time.perf_counter()
        played = subprocess.run(command, env=self.environment, input="wait\ndump\n", capture_output=True, encoding="utf-8", check=True)
        took = time.perf_counter() - begin
        if "N1  <value 1>" not in played.stdout or "Unavailable" in played.stdout:
            sys.exit(f"the menu is\n{played.stdout}")
        return took

    def configure(self):
        folder = self.home / "terminal" / "Windows"
        folder.mkdir(parents=True)
        groups = "".join(f'<GROUP name="e{i}"><DisplayName>N{i}</DisplayName><OID>{TABLE}.{i}</OID><Type>Octet String</Type></GROUP>\n'
                         for i in range(1, COUNT + 1))
        (folder / "ovu.xml").write_text(f'<GROUP name="CONFIGAPP"><DisplayName>Main</DisplayName>\n{groups}</GROUP>\n')


def report(name, count, ours, theirs):
    mine, other = statistics.median(ours), statistics.median(theirs)
    print(f"{name:24} {mine:6.2f} s ({count / mine:9,.0f} values/s), snmpbulkwalk {other:6.2f} s ({count / other:9,.0f}): "
          f"{mine / other:.2f} times its time", flush=True)


def at_once(managers, rounds):
    ours, theirs = [], []
    for _ in range(rounds):
        ours.append(managers.ours(managers.full, MANY, OCTETS_FOR_50))
        theirs.append(managers.theirs(managers.full, MANY))
    report("loopback, 50 at a time", MANY, ours, theirs)


def far_away(name, managers, rounds, **faults):
    ours, theirs = [], []
    for seed in range(rounds):
        for times, ask in ((ours, managers.ours), (theirs, managers.theirs)):
            relay = Relay(managers.address, seed=seed, **faults)
            times.append(ask(f"127.0.0.1:{relay.port}", COUNT))
            relay.close()
    report(name, COUNT, ours, theirs)


def main():
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    with tempfile.TemporaryDirectory(prefix="kel-bench-") as home:
        (pathlib.Path(home) / "tools" / "cert_indexes").mkdir(parents=True)
        managers = Managers(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(home))
        try:
            managers.configure()
            at_once(managers, rounds)
            far_away("10 ms", managers, rounds, delay=0.005)
            far_away("10 ms, 1 % loss", managers, rounds, delay=0.005, loss=0.01)
            relay = Relay(managers.address, delay=0.005)
            times = [managers.menu(f"127.0.0.1:{relay.port}") for _ in range(rounds)]
            relay.close()
            print(f"{f'menu of {COUNT}, 10 ms':24} {statistics.median(times):6.2f} s")
        finally:
            managers.agents.end()


if __name__ == "__main__":
    main()
