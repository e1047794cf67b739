"""What became of mutants, kept from run to run, and the survivors that were looked at."""

import collections
import json
import os
import pathlib
import threading

from . import floors

ACCEPTED = floors.HOUSE / "scripts/trust/accepted.txt"
CAUGHT = ("caught", "out of time")


class Verdicts:
    """One line of JSON each in a file that only grows, so that being killed loses nothing but the mutant at work. The last
    verdict of a mutant counts."""

    def __init__(self, path):
        self._path = pathlib.Path(path)
        self._lock = threading.Lock()
        self._by_name = {}
        self._ends_midway = False
        if self._path.exists():
            text = self._path.read_text()
            self._ends_midway = text != "" and not text.endswith("\n")
            for line in text.splitlines():
                try:
                    kept = json.loads(line)
                except json.JSONDecodeError:  # the line that was being written when the run was killed
                    continue
                self._by_name[kept["mutant"]] = (kept["verdict"], kept["by"])

    def of(self, mutant):
        """(verdict, by what), or None when it was not judged."""
        return self._by_name.get(mutant.name)

    def add(self, mutant, verdict, by):
        with self._lock:
            self._by_name[mutant.name] = (verdict, by)
            self._path.parent.mkdir(parents=True, exist_ok=True)
            with self._path.open("a") as file:
                if self._ends_midway:
                    file.write("\n")
                    self._ends_midway = False
                file.write(json.dumps({"mutant": mutant.name, "line": mutant.line, "verdict": verdict, "by": by}) + "\n")
                file.flush()
                os.fsync(file.fileno())


def accepted(path=ACCEPTED):
    """{(path, line before, line after): why it cannot matter}, from paragraphs of four lines: path, "- before", "+ after"
    and the reason, which may go on in further lines."""
    found = {}
    text = pathlib.Path(path).read_text() if pathlib.Path(path).exists() else ""
    for paragraph in text.split("\n\n"):
        lines = [line for line in paragraph.splitlines() if not line.startswith("#")]
        if not lines:
            continue
        if len(lines) < 4 or not lines[1].startswith("- ") or not lines[2].startswith("+ "):
            raise ValueError(f"{path}: not a path, two lines and a reason:\n{paragraph}")
        found[lines[0], lines[1][2:], lines[2][2:]] = " ".join(line.strip() for line in lines[3:])
    return found


def report(mutants, verdicts, reasons, show):
    """Shows what survived, then the counts by floor. Answers the share of those that can matter that was caught, of 1."""
    counts = collections.defaultdict(collections.Counter)
    for mutant in mutants:
        verdict, by = verdicts.of(mutant)
        reason = reasons.get((mutant.path, mutant.before, mutant.after))
        if verdict == "survived" and reason:
            verdict = "cannot matter"
        counts[floors.floor_of(mutant.path)][verdict] += 1
        if verdict == "survived":
            show(f"{mutant.path}:{mutant.line}: a changed {mutant.change.kind} survived")
            show(f"- {mutant.before}")
            show(f"+ {mutant.after}\n")
    columns = CAUGHT + ("survived", "cannot matter")
    show("floor     " + "".join(f"{column:>15}" for column in columns))
    total = collections.Counter()
    for floor in floors.FLOORS:
        if floor in counts:
            show(f"{floor:10}" + "".join(f"{counts[floor][column]:15}" for column in columns))
            total += counts[floor]
    show("all       " + "".join(f"{total[column]:15}" for column in columns))
    caught = sum(total[column] for column in CAUGHT)
    share = caught / max(1, sum(total.values()))
    show(f"{caught} of {sum(total.values())} were caught: {100 * share:.1f} %")
    return share
