#!/usr/bin/env python3
"""play_over_agent.py KELAGENT KELTERM: every screen script shows the same screens on a device over the network."""

import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

PASSWORD = "a-long-password"
CREDENTIALS = f"""[user admin]
auth-protocol = SHA-512
auth-password = {PASSWORD}-1
priv-protocol = AES-256
priv-password = {PASSWORD}-2
write = yes
"""
HOME = pathlib.Path(__file__).resolve().parents[2]

# Terminals of tests have OIDs that no message can name: the first number is 2 at most. They get others, on both sides.
UNNAMEABLE = re.compile(r"(?<![\d.])([3-9])\.(\d)(?![\d.])")


def make_nameable(folder):
    for file in [*folder.rglob("*.xml"), *folder.glob("*.txt"), *folder.glob("*.reg")]:
        text = file.read_text(encoding="utf-8")
        file.write_text(UNNAMEABLE.sub(r"2.\1.\2", text), encoding="utf-8")


def comment(script, name):
    """What one of the script's comments says."""
    found = re.search(rf"^# {name}: *(.*)$", script.read_text(encoding="utf-8"), re.MULTILINE)
    return found.group(1) if found else ""


# A Get that succeeds, but not with 0: the network knows one success.
NOT_OVER_THE_NETWORK = {"unreadable_values"}


def screens(printed):
    """Without the lines about what left the program: failures have fewer codes on the network."""
    return [line for line in printed.splitlines() if re.match(r"^(window|  |focus)", line)]


def play(kelterm, kelagent, script, folder):
    """The screens that a script prints over an agent."""
    original = HOME / (comment(script, "root") or "examples/terminal")
    for name in ("device", "terminal"):
        shutil.copytree(original, folder / name)
        make_nameable(folder / name)
    (folder / "terminal" / "device.txt").unlink(missing_ok=True)
    words = folder / "words"
    words.write_text(CREDENTIALS)
    words.chmod(0o600)
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "XDG_STATE_HOME": str(folder)}
    for name in list(environment):
        if name.startswith("KEL_SNMP_"):
            del environment[name]
    agent = subprocess.Popen([kelagent, "--root", folder / "device", "--listen", "127.0.0.1:0", "--credentials", words],
                             env=environment, encoding="utf-8", stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    try:
        address = agent.stdout.readline().rpartition(" at ")[2].strip()
        played = subprocess.run([kelterm, "--root", folder / "terminal", "--device", f"snmp://admin@{address}",
                                 "--credentials", words, "--script", script, *comment(script, "options").split()],
                                env=environment, encoding="utf-8", capture_output=True, timeout=120)
    finally:
        agent.kill()
        agent.communicate()
    return played


class Scripts(unittest.TestCase):
    def test_show_the_same_screens_over_the_network(self):
        scripts = [script for script in sorted((HOME / "tests/ui").glob("*.script")) if script.stem not in NOT_OVER_THE_NETWORK]
        self.assertGreater(len(scripts), 100)
        with tempfile.TemporaryDirectory() as home, concurrent.futures.ThreadPoolExecutor(2) as plays:

            def one(script):
                folder = pathlib.Path(home) / script.stem
                folder.mkdir()
                return play(KELTERM, KELAGENT, script, folder)

            for script, played in zip(scripts, plays.map(one, scripts)):
                with self.subTest(script.stem):
                    expected = script.with_suffix(".expected").read_text(encoding="utf-8")
                    self.assertEqual(screens(played.stdout), screens(expected))
                    self.assertEqual(played.returncode, int(comment(script, "status") or 0), played.stderr)


if __name__ == "__main__":
    KELTERM = pathlib.Path(sys.argv.pop(2)).resolve()
    KELAGENT = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
