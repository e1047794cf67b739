#!/usr/bin/env python3
"""Writes an XML configuration into a registry file, or checks that both hold the same.

    scripts/xml-to-reg.py [--check] OVU.XML REGISTRY.REG

The keys at and below the default configuration key are replaced; all other keys of the registry file stay. With
--check nothing is written, and the exit status is 1 when the two differ.
"""

import sys
from xml.dom import Node, minidom

CONFIG_KEY = r"HKEY_LOCAL_MACHINE\SOFTWARE\Valtorix\ZEP\CONFIGAPP"
HEADER = "Windows Registry Editor Version 5.00"


def value_text(element):
    """An element's text as the utility reads it: a CDATA section as it is, else everything, blanks included."""
    nodes = [n for n in element.childNodes if n.nodeType != Node.COMMENT_NODE]
    if any(n.nodeType == Node.ELEMENT_NODE for n in nodes):
        return ""
    sections = [n for n in nodes if n.nodeType == Node.CDATA_SECTION_NODE]
    return sections[0].data if sections else "".join(n.data for n in nodes)


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def key_lines(root):
    """The registry form of a GROUP and all below it, in document order."""
    lines = []
    todo = [(CONFIG_KEY, root)]
    while todo:
        path, group = todo.pop()
        elements = [n for n in group.childNodes if n.nodeType == Node.ELEMENT_NODE]
        lines += ["", f"[{path}]"]
        values = {e.tagName: value_text(e) for e in elements if e.tagName != "GROUP"}
        lines += [f"{quoted(name)}={quoted(text)}" for name, text in values.items()]
        groups = [e for e in elements if e.tagName == "GROUP"]
        todo += [(path + "\\" + e.getAttribute("name"), e) for e in reversed(groups)]
    return lines


def other_lines(text):
    """What a registry file holds beside the configuration."""
    lines, keep = [], True
    for line in text.splitlines()[1:]:
        if line.startswith("["):
            path = line.strip()[1:-1]
            keep = path != CONFIG_KEY and not path.startswith(CONFIG_KEY + "\\")
        if keep:
            lines.append(line)
    while lines and not lines[-1]:
        lines.pop()
    return lines


def main(arguments):
    check = "--check" in arguments
    files = [a for a in arguments if a != "--check"]
    if len(files) != 2:
        sys.exit(__doc__)
    root = minidom.parse(files[0]).documentElement
    try:
        with open(files[1], encoding="utf-8") as file:
            old = file.read()
    except FileNotFoundError:
        old = HEADER
    new = "\n".join([HEADER] + other_lines(old) + key_lines(root)) + "\n"
    if not check:
        with open(files[1], "w", encoding="utf-8") as file:
            file.write(new)
    elif new != old:
        sys.exit(f"{files[1]} does not hold the configuration of {files[0]}: run scripts/xml-to-reg.py")


if __name__ == "__main__":
    main(sys.argv[1:])
