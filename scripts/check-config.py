#!/usr/bin/env python3
"""Looks through a terminal folder (Windows/ovu.xml, device.txt, tables.txt, registry.reg) for slips of its author.

    scripts/check-config.py [FOLDER]        default: examples/terminal

One line for each finding. Exit status 1 when there is an error; a note is worth a second look and no more.
"""

import importlib.util
import pathlib
import re
import sys
from xml.dom import Node, minidom

sys.dont_write_bytecode = True

PLAIN = """DisplayName OID CmdOID Type Ordinal DefVal ChoiceFmt CmdString Descendent Unavailable PropEditor Security TextFmt
    Range MaxChars SubType FillOID PassWordChar WEP CustPage PageDependency ShortDesc SNMPEvent Symbology _OnEnter
    _OnError Function AppName Event""".split()
NUMBERED = ("Dependency", "_OnExit")
TYPES = """None,Integer,Bool,Octet String,IP Address,ReaderCmd,Password,Hex,Hex32,Counter,Gauge,Time Ticks,Opaque""".split(",")
FUNCTIONS = "RestoreDefaults Summary ApplyNetworkSettings ImportCertificates StoreConfig WEP_Properties".split()
MENU_EXITS = "FlagChanges VerifyNetUI CheckWEPKey".split()
EDIT_EXITS = "FlagChanges VerifyNetUI SetKeyIndex Refresh PromptWarmBoot".split()
FLAGS = "display nodisplay blank checkmark noedit refresh".split()
ACTIONS = FLAGS + ["uncheckmark"]


class Entry:
    def __init__(self, path, values, parent):
        self.path, self.values, self.parent, self.children = path, values, parent, []

    def get(self, name):
        return self.values.get(name, "")

    @property
    def key(self):
        return self.get("OID") or self.get("CmdOID")


class Checker:
    def __init__(self, folder):
        self.folder, self.errors, self.noted = folder, 0, set()
        self.device = {c[0]: c for c in self.columns("device.txt")}
        self.tables = {(c[0], c[1]): c[2] for c in self.columns("tables.txt")}
        self.registry = self.read_registry()
        self.symbols = self.registry.get(r"HKEY_LOCAL_MACHINE\SOFTWARE\Valtorix\ZEP\SYMBOLTABLE", {})
        self.text_of = self.load_value_text()
        root = minidom.parse(str(folder / "Windows/ovu.xml")).documentElement
        self.root = self.read_group(root, None)
        self.ordered = []  # as the menus are built
        self.walk(self.root)
        self.by_name, self.by_key = {}, {}
        for entry in self.ordered:
            if entry.key:
                self.by_name.setdefault(entry.get("DisplayName"), []).append(entry)
                self.by_key.setdefault(entry.key, []).append(entry)

    def columns(self, name):
        file = self.folder / name
        lines = file.read_text(encoding="utf-8").splitlines() if file.exists() else []
        return [(l + "\t\t\t").split("\t") for l in lines if l.strip() and not l.startswith("#")]

    def read_registry(self):
        file = self.folder / "registry.reg"
        keys, key = {}, {}
        for line in file.read_text(encoding="utf-8").splitlines() if file.exists() else []:
            if line.startswith("["):
                key = keys.setdefault(line.strip()[1:-1], {})
            elif match := re.fullmatch(r'"((?:[^"\\]|\\.)*)"="((?:[^"\\]|\\.)*)"', line):
                name, text = (re.sub(r"\\(.)", r"\1", part) for part in match.groups())
                key[name] = text
        return keys

    @staticmethod
    def load_value_text():
        file = pathlib.Path(__file__).with_name("xml-to-reg.py")
        spec = importlib.util.spec_from_file_location("xml_to_reg", file)
        module = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(module)
        return module.value_text

    def read_group(self, element, parent):
        elements = [n for n in element.childNodes if n.nodeType == Node.ELEMENT_NODE]
        values = {e.tagName: self.text_of(e) for e in elements if e.tagName != "GROUP"}
        name = element.getAttribute("name")
        entry = Entry(f"{parent.path}\\{name}" if parent else name, values, parent)
        entry.children = [self.read_group(e, entry) for e in elements if e.tagName == "GROUP"]
        return entry

    def walk(self, entry):
        for child in sorted(entry.children, key=lambda c: int(c.get("Ordinal") or 10**9)):
            self.ordered.append(child)
            self.walk(child)

    def error(self, entry, text):
        self.errors += 1
        print(f"{entry.path}: {text}")

    def note(self, entry, text):
        if (entry, text) not in self.noted:
            self.noted.add((entry, text))
            print(f"{entry.path}: note: {text}")

    def resolved(self, entry, name):
        """An attribute's text, the property server's tables and the symbols looked up."""
        text = entry.get(name)
        if text.startswith("Table,"):
            table, key = (text.split(",", 2)[1:] + [""])[:2]
            if (table, key) not in self.tables:
                self.note(entry, f"{name}: there is no table {table} with {key}")
            text = self.tables.get((table, key), "Error")
        return self.symbols.get(text, text)

    def run(self):
        if "\\" in self.root.path:
            self.error(self.root, "a root name with backslashes is not found")
        for entry in [self.root] + self.ordered:
            self.check_names(entry)
            self.check_ordinals(entry)
            self.check_commands(entry)
            for rule in self.numbered(entry, "Dependency"):
                self.check_rule(entry, rule)
            if entry.key:
                self.check_property(entry)
        return self.errors

    def numbered(self, entry, name):
        found, number = [], 0
        while text := entry.get(name + (str(number) if number else "")):
            found.append(text)
            number += 1
        return found

    def check_names(self, entry):
        for name in entry.values:
            stem = name.rstrip("0123456789")
            if name not in PLAIN and stem not in NUMBERED:
                self.error(entry, f"unknown attribute {name}")
        for stem in NUMBERED:
            there = [n for n in entry.values if n.rstrip("0123456789") == stem]
            if len(there) != len(self.numbered(entry, stem)):
                self.error(entry, f"{stem} is not numbered consecutively")
        if not entry.get("DisplayName"):
            self.error(entry, "no DisplayName")

    def check_ordinals(self, entry):
        given = [c.get("Ordinal") for c in entry.children]
        if not any(given):
            return  # they stay in the order of the file
        if sorted(given) != sorted(str(i + 1) for i in range(len(given))):
            self.error(entry, f"the Ordinals of its {len(given)} entries are not 1 to {len(given)}")

    def check_commands(self, entry):
        if entry.get("Function") and entry.get("Function") not in FUNCTIONS:
            self.error(entry, f"unknown Function {entry.get('Function')}")
        if entry.get("_OnEnter") and entry.get("_OnEnter").lower() != "verifynetui":
            self.error(entry, f"unknown _OnEnter {entry.get('_OnEnter')}")
        known = MENU_EXITS if entry.children else EDIT_EXITS
        for command in self.numbered(entry, "_OnExit"):
            word, _, rest = command.partition(":")
            if entry.children and word in ("Rebind", "IfChanges") and rest:
                if rest != "ApplyNetworkSettings" and (rest.count("|") < 2 or rest.split("|")[0] not in self.device):
                    self.error(entry, f"_OnExit {command}: no complete set triple of an OID of the device")
            elif command not in known:
                self.error(entry, f"unknown _OnExit {command}")
        if (message := entry.get("_OnError")).startswith("HKEY"):
            key, _, name = message.rpartition("\\")
            if name not in self.registry.get(key, {}):
                self.error(entry, f"_OnError: the registry has no {message}")

    # ------------------------------------------------------------------ rules
    @staticmethod
    def tokens(text):
        while text := text.strip():
            bracket, text = (text[0], text[1:]) if text[0] in "()" else ("", text)
            quote = text.startswith('"')
            end = re.search(r'[")]' if quote else r"[ )]", text[1:] if quote else text)
            start = 1 if quote else 0
            stop = start + end.start() if end else len(text)
            yield bracket + text[start:stop]
            text = text[stop:] if text[stop : stop + 1] == ")" else text[stop + 1 :]

    def check_rule(self, entry, rule):
        words = list(self.tokens(rule))
        if words[0] == "IF":
            return self.check_condition(entry, rule, words[1:])
        fields = rule.split("|")
        if entry.get("Type") == "ReaderCmd" and len(fields) == 3:
            return None  # the source of its default
        if len(fields) != 4 or fields[3].lower() not in FLAGS:
            return self.error(entry, f"rule {rule}: not OID|type|value|flag")
        oid = fields[0]
        if oid.lower() not in ("this", "empty") and oid not in self.by_key and oid.split(":")[0] not in self.device:
            self.error(entry, f"rule {rule}: unknown OID")
        return None

    def check_condition(self, entry, rule, words):
        def fail(text):
            self.error(entry, f"rule {rule}: {text}")

        depth = 0
        first = True
        while True:
            if words and words[0].startswith("("):
                if not first:
                    return fail("a group must stand first")
                depth, words[0] = 1, words[0][1:]
            if len(words) < 4:
                return fail("ends too early")
            name, test, _, then = words[:4]
            words = words[4:]
            if test not in ("EQ", "NEQ"):
                return fail(f"{test} is neither EQ nor NEQ")
            if len(self.by_name.get(name, [])) != 1:
                return fail(f"{len(self.by_name.get(name, []))} properties are called {name}")
            if then == ")":
                if not depth or not words:
                    return fail("a bracket too many")
                depth, then, words = 0, words[0], words[1:]
            if then == "THEN":
                break
            if then not in ("AND", "OR"):
                return fail(f"{then} joins nothing")
            first = False
        if depth or len(words) not in (1, 3) or (len(words) == 3 and words[1].lower() != "else"):
            return fail("THEN action [ELSE action] is expected")
        for action in words[::2]:
            if action.lower().startswith("choicefmt="):
                formats, _, fallback = action.partition("=")[2].strip('"').partition(":")
                keys = [e.split("#")[0] for e in self.symbols.get(formats, formats).split("|")]
                if fallback and fallback not in keys:
                    fail(f"{fallback} is none of the choices")
                if fallback and len(self.by_name.get(entry.get("DisplayName"), [])) != 1:
                    fail("a fallback needs a DisplayName of its own")
            elif action.lower() not in ACTIONS:
                fail(f"unknown action {action}")
        return None

    # ------------------------------------------------------------- properties
    def check_property(self, entry):
        kind = entry.get("Type")
        if kind not in TYPES:
            self.error(entry, f"unknown Type {kind}")
        if len(self.by_key[entry.key]) > 1:
            self.error(entry, f"{entry.key} occurs more than once")
        if entry.get("OID"):
            line = self.device_line(entry)
            locked = kind in ("None", "Counter", "Gauge", "Time Ticks", "Opaque") or entry.get("Function")
            locked = locked or entry.get("Security") or entry.get("PropEditor") == "None"
            refuses = line and ("readonly" in line[3] or "set=" in line[3])
            menu = entry.key.startswith("_") and (entry.children or entry.key == "_GetIPAddress")
            if not (entry.get("DefVal") or locked or refuses or menu):
                self.error(entry, "no DefVal")
            if entry.get("CmdString"):
                self.check_command_layout(entry, line)
            elif line:
                self.check_value(entry, line[2], "the device's value")
            if entry.get("DefVal") and not entry.get("CmdString"):
                self.check_value(entry, entry.get("DefVal"), "DefVal")
        else:
            self.check_field(entry)

    def device_line(self, entry):
        oid = entry.get("OID")
        if oid.startswith("_"):
            return None
        if "*" in oid:
            if entry.get("FillOID") != "Profile":
                self.error(entry, "an OID with a star needs FillOID")
            oid = oid.replace("*", self.device.get("cfg|80211PM|ActiveProfile", ["", "", ""])[2])
        if oid not in self.device:
            self.error(entry, f"the device has no {oid}")
        elif self.device[oid][1] != entry.get("Type"):
            self.error(entry, f"{oid} is a {self.device[oid][1]} in device.txt")
        return self.device.get(oid)

    def check_value(self, entry, value, what):
        choices = self.resolved(entry, "ChoiceFmt")
        if choices and value not in [e.split("#")[0] for e in choices.split("|")]:
            self.error(entry, f"{what} {value} is none of the choices")
        limits = self.resolved(entry, "Range")
        if limits and limits != "Error" and not self.in_range(int(value), limits.split(",")):
            self.error(entry, f"{what} {value} is out of range {limits}")
        most = entry.get("MaxChars")
        if most and len(value) > int(most):
            self.error(entry, f"{what} {value} is longer than MaxChars")

    @staticmethod
    def in_range(value, parts):
        if len(parts) == 2 and "-" not in parts[0] + parts[1]:
            return int(parts[0]) <= value <= int(parts[1])
        return any(int(p.rpartition("-")[0] or p) <= value <= int(p.rpartition("-")[2]) for p in parts)

    def widths(self, command):
        numbers = [int(n) for n in self.resolved(command, "CmdString").split(",")]
        if numbers[0] != len(numbers) - 1:
            self.error(command, f"CmdString counts {numbers[0]} fields and gives {len(numbers) - 1} widths")
        return numbers[1:]

    def check_command_layout(self, entry, line):
        length = sum(self.widths(entry))
        texts = {"DefVal": entry.get("DefVal"), "the device's value": line[2] if line else ""}
        if entry.get("Dependency").count("|") == 2:
            texts["Dependency's third part"] = entry.get("Dependency").split("|")[2]
        for what, text in texts.items():
            if text and len(text) != length:
                self.error(entry, f"{what} has {len(text)} characters and the layout {length}")

    def check_field(self, entry):
        oid, _, number = entry.get("CmdOID").partition(":")
        command = self.by_key.get(oid, [None])[0]
        if not command or not command.get("CmdString"):
            return self.error(entry, f"{oid} is no command")
        if self.ordered.index(command) > self.ordered.index(entry):
            self.error(entry, "its command comes later in the order")
        if not entry.get("Ordinal"):
            self.error(entry, "a field without Ordinal is never read")
        widths = self.widths(command)
        if not number.isdigit() or not 1 <= int(number) <= len(widths):
            return self.error(entry, f"the command has no field {number}")
        start, end = sum(widths[: int(number) - 1]), sum(widths[: int(number)])
        for what, text in (("the device's value", self.device_line(command)[2]), ("DefVal", command.get("DefVal"))):
            value = text[start:end]
            self.check_value(entry, str(int(value)) if entry.get("Type") == "Integer" else value, what)
        return None


def main():
    default = pathlib.Path(__file__).resolve().parent.parent / "examples/terminal"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    sys.exit(1 if Checker(folder).run() else 0)


main()
