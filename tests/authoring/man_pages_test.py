#!/usr/bin/env python3
"""man_pages_test.py PROGRAMS...: the manual pages of these programs are well written and say what --help says."""

import os
import pathlib
import re
import subprocess
import sys
import unittest

WITH_COMMANDS = ("kelconf", "kelset")
MAN = pathlib.Path(__file__).resolve().parents[2] / "man"


def run(*command):
    # Where the pages find each other.
    return subprocess.run(list(map(str, command)), capture_output=True, encoding="utf-8", check=False, cwd=MAN,
                          env={**os.environ, "LC_ALL": "C.UTF-8"})


def helps():
    """The program that each page is about, with what its --help says."""
    helps = {}
    for program in PROGRAMS:
        helps[program.name] = run(program, "--help").stdout
        if program.name in WITH_COMMANDS:
            for command in re.findall(r"^  ([a-z]+)  ", helps[program.name], re.MULTILINE):
                helps[f"{program.name}-{command}"] = run(program, command, "--help").stdout
    return helps


def options_of_help(text):
    listed = re.findall(r"^ +((?:-\w, ?)?--[a-z-]+|-\w,--[a-z-]+)", text, re.MULTILINE)
    return {option for line in listed for option in re.findall(r"(?<!\w)--?[a-z-]+", line)}


def options_of_page(text, macros):
    options = set()
    for line in text.splitlines():
        if line.startswith(macros):
            options.update("--" + name for name in re.findall(r"Fl Fl ([a-z-]+)", line))
            options.update("-" + name for name in re.findall(r"(?<!Fl )Fl ([a-z])\b", line))
    return options


class ManPages(unittest.TestCase):
    def setUp(self):
        self.helps = helps()
        self.pages = {path.stem: path.read_text(encoding="utf-8") for path in MAN.glob("*.1")}
        if "kelagent" not in self.helps:  # it is not built everywhere
            self.pages.pop("kelagent")

    def test_every_program_and_command_has_a_page(self):
        self.assertEqual(set(self.helps), set(self.pages))
        self.assertGreater(len(self.pages), 8)

    def test_formatters_have_nothing_to_say(self):
        for path in sorted(MAN.glob("*.1")):
            self.assertEqual(run("mandoc", "-Tlint", "-W", "style", path).stdout, "", path.name)
            self.assertEqual(run("man", "--warnings", "-l", path).stderr, "", path.name)

    def test_every_option_stands_on_the_page_and_no_other(self):
        for name, text in self.helps.items():
            options = options_of_help(text)
            self.assertIn("--help", options, name)
            self.assertEqual(options, options_of_page(self.pages[name], ".It Fl"), name)
            # One of two forms is enough there.
            twins = {"-h", "--help", "-o", "--output"}
            used = options_of_page(self.pages[name], (".Op Fl", ".Fl"))
            self.assertEqual(options - twins, used - twins, name)

    def test_each_help_has_an_example_and_the_page_the_same(self):
        for name, text in self.helps.items():
            examples = re.findall(r"^Example: (.*)$", text, re.MULTILINE)
            if "\nExamples:\n" in text:
                examples += re.findall(r"^  (.*)$", text[text.index("\nExamples:\n") :], re.MULTILINE)
            self.assertTrue(examples, name)
            page = run("mandoc", "-Tutf8", "-O", "width=200", MAN / f"{name}.1").stdout
            page = re.sub(r".\x08", "", page).replace("−", "-")
            for example in examples:
                self.assertIn(example, page.replace("‐", "-"), name)

    def test_each_help_has_the_exit_statuses_of_its_page(self):
        for name, text in self.helps.items():
            said = text[text.index("Exit status:") :].split("\n\n")[0].split("\nExample")[0]
            statuses = set(re.findall(r"(?:^|[ ,:])(\d+) ", said, re.MULTILINE))
            section = re.search(r"^\.Sh EXIT STATUS\n(.*?)^\.Sh", self.pages[name], re.MULTILINE | re.DOTALL).group(1)
            self.assertEqual(statuses, set(re.findall(r"^\.It (\d+)$", section, re.MULTILINE)), name)


if __name__ == "__main__":
    PROGRAMS = [pathlib.Path(path).resolve() for path in sys.argv[1:]]
    del sys.argv[1:]
    unittest.main()
