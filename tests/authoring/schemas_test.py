#!/usr/bin/env python3
"""schemas_test.py KELCONF [KELSET]: what they print as JSON fits the schemas in docs, and nothing else does."""

import copy
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from jsonschema import validators

HOUSE = pathlib.Path(__file__).resolve().parents[2]
DEMONSTRATION = HOUSE / "examples" / "terminal"
SMALL = HOUSE / "examples" / "small"

FAULTY = """<GROUP name="R"><DisplayName>R</DisplayName>
<GROUP name="A"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Integr</Type></GROUP>
<GROUP name="B"><DisplayName>B</DisplayName></GROUP></GROUP>
"""

WANTED = """Network: {Name: TRUCK-08}
Wireless:
  Authentication: WPA-PSK
  Encryption: TKIP
  Radio: {Channel: 7}
"""


def run(*arguments, program=None):
    return subprocess.run([program or KELCONF, *map(str, arguments)], capture_output=True, encoding="utf-8", check=False)


def answer(*arguments, program=None):
    result = run(*arguments, "--format", "json", program=program)
    assert result.returncode in (0, 1), result.stderr
    return json.loads(result.stdout)


def validator(command, program="kelconf"):
    schema = json.loads((HOUSE / "docs" / f"{program}-{command}.schema.json").read_text())
    kind = validators.validator_for(schema)
    kind.check_schema(schema)
    return kind(schema)


def objects(value):
    """All objects inside a value, each where it stands."""
    if isinstance(value, dict):
        yield value
    for inside in value.values() if isinstance(value, dict) else value if isinstance(value, list) else ():
        yield from objects(inside)


class Schemas(unittest.TestCase):
    def hold(self, command, documents, program="kelconf"):
        checks = validator(command, program)
        for document in documents:
            self.assertEqual([error.message for error in checks.iter_errors(document)], [])
        # A schema that lets through what is never printed says nothing.
        changed = copy.deepcopy(documents)
        seen = 0
        for document in changed:
            for place in objects(document):
                seen += 1
                place["unheard of"] = 1
                self.assertFalse(checks.is_valid(document), place)
                del place["unheard of"]
                for name, value in list(place.items()):
                    place[name] = {"unheard of": value}
                    self.assertFalse(checks.is_valid(document), (name, value))
                    place[name] = value
        self.assertGreater(seen, 0)

    def test_every_command_that_answers_in_json_has_one(self):
        for name, program in {"kelconf": KELCONF, "kelset": KELSET}.items():
            if program is None:
                continue
            commands = re.findall(r"^  ([a-z]+)  ", run("--help", program=program).stdout, re.MULTILINE)
            self.assertGreater(len(commands), 2)
            with_json = {command for command in commands if "json" in run(command, "--help", program=program).stdout}
            schemas = {path.name[len(name) + 1 : -len(".schema.json")] for path in (HOUSE / "docs").glob(f"{name}-*.schema.json")}
            self.assertEqual(with_json, schemas)

    def test_check(self):
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "Windows").mkdir()
            (pathlib.Path(folder) / "Windows" / "ovu.xml").write_text(FAULTY)
            found = answer("check", folder)
        self.assertEqual([finding["id"] for finding in found["findings"]][:1], ["type-unknown"])
        self.hold("check", [found, answer("check", SMALL)])

    def test_why(self):
        # Lines that are hidden by rules, narrowed and hidden by the wireless rules, plain; a menu; one with neighbours.
        entries = ["Channel", "Key Value", "Wireless\\Authentication", "Light Time", "Wireless", "1"]
        answers = [answer("why", DEMONSTRATION if entry != "Light Time" else SMALL, entry, "--menu") for entry in entries]
        self.assertTrue(any(one["hiddenLines"] for one in answers))
        self.assertTrue(any(one["hiddenBeside"] for one in answers))
        self.assertTrue(any(one["wireless"] for one in answers))
        self.assertTrue(any(rule["comparisons"] for one in answers for rule in one["rules"]))
        self.assertTrue(any(wish["ways"] for one in answers for wish in one["wishes"]))
        self.hold("why", answers)

    def test_explore(self):
        few_keys = answer("explore", SMALL, "--keys", "3")
        self.assertTrue(few_keys["unreached"])
        self.hold("explore", [few_keys, answer("explore", SMALL)])

    def test_find(self):
        found = answer("find", DEMONSTRATION, "key")
        self.assertTrue(any(hit["keys"] is None for hit in found) and any(hit["keys"] for hit in found))
        self.hold("find", [found[:12], answer("find", DEMONSTRATION / "registry.reg", "key")[:3]])

    def test_tree(self):
        self.hold("tree", [answer("tree", SMALL)])
        self.assertEqual([], list(validator("tree").iter_errors(answer("tree", DEMONSTRATION))))

    def test_diff(self):
        changes = answer("diff", SMALL, DEMONSTRATION)
        self.assertGreater(len({change["kind"] for change in changes}), 2)
        self.hold("diff", [changes])
        self.assertEqual([], list(validator("diff").iter_errors(answer("diff", DEMONSTRATION, SMALL))))

    def test_kelset(self):
        if KELSET is None:
            self.skipTest("it is not built here")
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "s.yaml"
            file.write_text(WANTED)
            plan = answer("plan", DEMONSTRATION, file, program=KELSET)
            self.assertTrue(plan["refused"][0]["because"] and plan["events"] and plan["remarks"])
            self.assertEqual({one["origin"] for one in plan["sets"]}, {"asked", "follows", "command"})
            self.hold("plan", [plan], "kelset")
            self.hold("verify", [answer("verify", DEMONSTRATION, file, program=KELSET)], "kelset")
            terminal = pathlib.Path(folder) / "terminal"
            shutil.copytree(DEMONSTRATION, terminal)
            journal = pathlib.Path(folder) / "journal"
            applied = answer("apply", terminal, file, "--journal", journal, program=KELSET)
            self.assertEqual({one["result"] for one in applied["sets"]}, {"set"})
            self.hold("apply", [applied, answer("apply", terminal, file, program=KELSET)], "kelset")


if __name__ == "__main__":
    KELSET = sys.argv.pop(2) if len(sys.argv) > 2 else None
    KELCONF = sys.argv.pop(1)
    unittest.main()
