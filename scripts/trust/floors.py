"""The floors of the house, and the sources and test programs that belong to each."""

import pathlib
import subprocess

HOUSE = pathlib.Path(__file__).resolve().parents[2]
FLOORS = ("base", "platform", "config", "values", "model", "rules", "ui", "app")

# Folders of tests that are not called after their floor. What stands in for the terminal is tested last, and runs all of it.
_TEST_FOLDERS = {"ui_unit": "ui", "simulator": "simulator"}
_NO_TEST = {"house"}  # reads the sources, runs nothing of them


def floor_of(path):
    """The floor a source stands on, by its path in the house; None beside the house, or on the other platform."""
    parts = pathlib.PurePath(path).parts
    if len(parts) < 2 or parts[0] not in FLOORS or "win32" in parts:
        return None
    return parts[0]


def floor_of_test(program):
    """The floor that tests/FOLDER/PROGRAM tests, "simulator" for those above all floors, None for what is no test of one."""
    parts = pathlib.PurePath(program).parts
    if len(parts) < 3 or parts[0] != "tests" or parts[1] in _NO_TEST or not parts[-1].endswith("_test"):
        return None
    floor = _TEST_FOLDERS.get(parts[1], parts[1])
    return floor if floor in FLOORS + ("simulator",) else None


def test_programs(build):
    """Paths in a build of the programs that test floors."""
    listed = subprocess.run(["ninja", "-C", str(build), "-t", "targets", "all"], check=True, capture_output=True,
                            text=True).stdout
    targets = [line.rsplit(": ", 1)[0] for line in listed.splitlines() if "_EXECUTABLE_LINKER" in line]
    return [target for target in targets if floor_of_test(target)]


def tests_for(floor, programs):
    """The test programs that can notice a change on a floor: its own first, then those of the floors above."""
    order = FLOORS + ("simulator",)
    at_or_above = [(order.index(floor_of_test(program)), program) for program in programs if floor_of_test(program)]
    return [program for height, program in sorted(at_or_above) if height >= order.index(floor)]


def sources(house=HOUSE):
    """Paths of the floors' sources that this platform compiles, in the house."""
    found = []
    for floor in FLOORS:
        for path in sorted((house / floor).rglob("*")):
            relative = path.relative_to(house).as_posix()
            if path.suffix in (".cpp", ".h", ".inc") and floor_of(relative) and path.name != "win_main.cpp":
                found.append(relative)
    return found
