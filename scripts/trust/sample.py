"""The changes of the house's sources in an order that a seed decides."""

import collections
import hashlib
from typing import NamedTuple

from . import floors
from .operators import Change, changes_in, table_lines
from .tokens import Lines

KINDS = ("comparison", "constant", "condition", "call", "statement", "text")


class Mutant(NamedTuple):
    path: str
    line: int
    change: Change
    before: str  # the line, without the blanks at its ends
    after: str
    number: int  # of those in the file that turn such a line into such a line, from 0 on

    @property
    def name(self):
        """What the mutant is, as long as its line stands: it does not change when the rest of the file does."""
        return f"{self.path} | {self.before} | {self.after} | {self.number}"


def mutants_of(path, source, is_covered):
    """All mutants of a source in lines that the tests reach, or in tables of constants."""
    lines = Lines(source)
    tables = table_lines(source)
    is_table = path.endswith(".inc")
    seen = collections.Counter()
    found = []
    for change in changes_in(source):
        number = lines.number(change.start)
        before = lines.text(number).strip()
        after = Lines(change.apply(source)).text(number).strip()
        # What spans lines is told apart by its last one.
        if lines.number(change.end) != number:
            after += " ... " + lines.text(lines.number(change.end)).strip()
        if not (is_table or number in tables or is_covered(number)) or before.startswith("static_assert"):
            continue
        found.append(Mutant(path, number, change, before, after, seen[before, after]))
        seen[before, after] += 1
    return found


def in_order(mutants, seed):
    """In the seed's order; floors take turns, and in each floor the kinds of changes, so that long tables do not count more
    than the rest. A mutant keeps its place among its like when other files change."""
    groups = collections.defaultdict(list)
    for mutant in sorted(mutants, key=lambda mutant: hashlib.sha256(f"{seed}:{mutant.name}".encode()).digest()):
        groups[floors.floor_of(mutant.path), mutant.change.kind].append(mutant)
    ordered = []
    by_floor = [_take_turns([groups[floor, kind] for kind in KINDS]) for floor in floors.FLOORS]
    ordered += _take_turns(by_floor)
    return ordered


def _take_turns(lists):
    taken = []
    for turn in range(max(map(len, lists), default=0)):
        taken += [one[turn] for one in lists if turn < len(one)]
    return taken
