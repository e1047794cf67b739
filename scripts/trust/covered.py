"""What the tests reach: read from gcovr, kept for whoever changes covered lines."""

import collections
import difflib
import json
from typing import NamedTuple

from . import floors, tokens

KEPT = floors.HOUSE / "build/coverage/covered.json"

# What decides in the source. Branches on lines without any of it are the compiler's: guards of statics, ends of temporaries.
_DECISIONS = {"if", "while", "for", "switch", "case", "&&", "||", "?"}


class Line(NamedTuple):
    number: int
    count: int
    branches: int
    taken: int


def from_gcovr(report):
    """{path: [Line]} of the floors, from gcovr's JSON. Only branches that the source itself makes are counted."""
    found = {}
    for file in report["files"]:
        path = file["file"]
        if not floors.floor_of(path):
            continue
        decisions = decisions_by_line((floors.HOUSE / path).read_text(encoding="utf-8"))
        lines = []
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            number = line["line_number"]
            counts = own_branches(line["branches"], decisions.get(number, ()))
            lines.append(Line(number, line["count"], len(counts), sum(count > 0 for count in counts)))
        found[path] = lines
    return found


def decisions_by_line(source):
    lines = tokens.Lines(source)
    found = collections.defaultdict(list)
    for token in tokens.tokens_of(source):
        if token.text in _DECISIONS:
            found[lines.number(token.start)].append(token.text)
    return found


def own_branches(branches, decisions):
    """How often each branch of a line was taken that the line's decisions make. Two sorts of others are the compiler's: the
    ways on and away from a call that may throw, and, when there are more branches than the decisions can have, those by
    which temporaries are ended behind an exception: neither of their sides is ever taken."""
    if not decisions:
        return []
    counts = []
    for branch in branches:
        if not branch["throw"]:
            counts.append(branch)
        elif counts and counts[-1]["fallthrough"]:
            counts.pop()
    counts = [branch["count"] for branch in counts]
    # Both sides of each, and of the last operand of a chain that stands in no condition.
    most = 2 * len(decisions) + (2 if set(decisions) <= {"&&", "||"} else 0)
    for at in range(len(counts) - 2, -1, -2):
        if len(counts) > most and "switch" not in decisions and counts[at] == 0 and counts[at + 1] == 0:
            del counts[at : at + 2]
    return counts


def keep(by_path, kept=KEPT):
    """Keeps which lines are reached, with the sources that were built."""
    kept.write_text(json.dumps({
        path: {"source": (floors.HOUSE / path).read_text(encoding="utf-8"),
               "lines": [line.number for line in lines if line.count > 0]}
        for path, lines in by_path.items()
    }))


class Covered:
    def __init__(self, by_path):
        self._by_path = by_path

    def lines(self, path, source):
        """Numbers of the lines that are reached. In a file that has changed since they are those that have stayed."""
        if path not in self._by_path:
            return set()
        kept = self._by_path[path]
        if kept["source"] == source:
            return set(kept["lines"])
        matcher = difflib.SequenceMatcher(None, kept["source"].splitlines(), source.splitlines(), autojunk=False)
        now = {}
        for block in matcher.get_matching_blocks():
            now.update({block.a + i + 1: block.b + i + 1 for i in range(block.size)})
        return {now[number] for number in kept["lines"] if number in now}


def load(kept=KEPT):
    if not kept.exists():
        raise SystemExit("run scripts/coverage first: it finds the lines that tests reach")
    return Covered(json.loads(kept.read_text()))


def by_floor(by_path):
    """{floor: (lines, reached, branches, taken)}"""
    sums = {}
    for path, lines in by_path.items():
        floor = floors.floor_of(path)
        before = sums.get(floor, (0, 0, 0, 0))
        now = (len(lines), sum(line.count > 0 for line in lines), sum(line.branches for line in lines),
               sum(line.taken for line in lines))
        sums[floor] = tuple(a + b for a, b in zip(before, now))
    return sums
