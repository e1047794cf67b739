"""A copy of the house in which changes are built and tested. The house itself is only read."""

import concurrent.futures
import hashlib
import json
import os
import shutil
import signal
import subprocess
import threading
from typing import NamedTuple

from . import floors
from .tokens import Lines

# Tests that take longer are left out: what only they notice counts as a survivor.
_LONG_S = 10
# A program may use this much more processor time than without a change, and wait this much longer.
_TIMES_WORK = 4
_MORE_WORK_S = 10
_TIMES_WAIT = 20
_MORE_WAIT_S = 60
_MOST_MEMORY = 4 << 30
_MOST_FILE = (4 << 30) + (1 << 20)  # a test makes one just too long to be read, most of it a hole
# A change that the compiler merely warns of is compiled all the same. Everything else is compiled as in any other build, so
# that the compiler's cache knows it.
_COMPILE = """#!/bin/sh
cache=$(command -v ccache)
$cache "$@" 2>/dev/null || exec $cache "$@" -w
"""
# Several programs are linked for each change.
_LINKER = "mold" if shutil.which("mold") else "gold"
_TEST_OPTIONS = ("--gtest_fail_fast", "--gtest_brief=1")


class Outcome(NamedTuple):
    passed: bool
    out_of_time: bool
    output: str


class Stopped(Exception):
    """The user wants no more."""


class Programs:
    """Runs programs within bounds, and ends them all when told to stop."""

    def __init__(self):
        self._running = set()
        self._lock = threading.Lock()
        self._stopped = False

    def stop(self):
        with self._lock:
            self._stopped = True
            for process in self._running:
                _kill_group(process)

    def check(self):
        if self._stopped:
            raise Stopped

    def run(self, command, cwd, environment, cpu_s=None, wall_s=None):
        bounds = ["prlimit", "--core=0"]
        if cpu_s is not None:
            bounds += [f"--cpu={int(cpu_s) + 1}", f"--as={_MOST_MEMORY}", f"--fsize={_MOST_FILE}"]
        # Whatever ends this program, the one started ends with it.
        command = bounds + ["--", "setpriv", "--pdeathsig", "KILL", "--", *map(str, command)]
        with self._lock:
            if self._stopped:
                raise Stopped
            process = subprocess.Popen(command, cwd=cwd, env=environment, start_new_session=True, text=True, errors="replace",
                                       stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            self._running.add(process)
        out_of_time = False
        try:
            output, _ = process.communicate(timeout=wall_s)
        except subprocess.TimeoutExpired:
            out_of_time = True
            _kill_group(process)
            output, _ = process.communicate()
        finally:
            _kill_group(process)  # what it started itself
            with self._lock:
                self._running.discard(process)
        if self._stopped:
            raise Stopped
        out_of_time = out_of_time or process.returncode in (-signal.SIGXCPU, -signal.SIGKILL)
        return Outcome(process.returncode == 0, out_of_time, output)


def _kill_group(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


class Workshop:
    """One copy and its build. Of several that work at once, each has a copy of its own."""

    def __init__(self, folder, programs, jobs=1):
        self.folder = folder
        self.copy = folder / "house"
        self._build = self.copy / "build/mutants"
        self._programs = programs
        self._jobs = jobs
        temporary = folder / "tmp"
        shutil.rmtree(temporary, ignore_errors=True)
        temporary.mkdir(parents=True)
        self._environment = {
            **os.environ, "TMPDIR": str(temporary), "XDG_STATE_HOME": str(temporary / "state"),
        }
        for name, value in (("DIR", floors.HOUSE / "build/ccache"), ("BASEDIR", folder), ("NOHASHDIR", 1),
                            ("SLOPPINESS", "pch_defines,time_macros")):
            self._environment.setdefault(f"CCACHE_{name}", str(value))
        self._sources = ""
        self._usual = {}  # program: seconds of processor time, None: too many

    def prepare(self, say):
        """Copies, builds and runs everything once without a change. An exception says what does not pass."""
        self._take_over_sources()
        say("building")
        if not self._build_all(self._environment).passed:
            # A run that was killed may have left anything behind, in the compiler's cache too.
            say("building anew")
            shutil.rmtree(self._build, ignore_errors=True)
            outcome = self._build_all({**self._environment, "CCACHE_RECACHE": "1"})
            if not outcome.passed:
                raise RuntimeError(f"the house does not build:\n{outcome.output[-4000:]}")
        kept = self.folder.parent / "usual.json"  # of all copies: they are the same
        known = json.loads(kept.read_text()) if kept.exists() else {}
        if known.get("sources") != self._sources:
            known = {"sources": self._sources, "programs": {}, "scripts": False}
        for program in self.test_programs():
            if program not in known["programs"]:
                say(f"running {program}")
                known["programs"][program] = self._measured(program)
                kept.write_text(json.dumps(known, indent=1))
        self._usual = known["programs"]
        if not known["scripts"]:
            say("playing the screen scripts")
            if failed := self.failing_script():
                raise RuntimeError(f"{failed} fails without a change")
            known["scripts"] = True
            kept.write_text(json.dumps(known, indent=1))

    def _measured(self, program):
        before = os.times()
        outcome = self._programs.run([self._build / program, *_TEST_OPTIONS], self._build, self._environment, cpu_s=_LONG_S)
        if outcome.out_of_time:
            return None
        if not outcome.passed:
            raise RuntimeError(f"{program} fails without a change:\n{outcome.output[-2000:]}")
        after = os.times()
        return after.children_user + after.children_system - before.children_user - before.children_system

    def _build_all(self, environment):
        if not (self._build / "build.ninja").exists():
            compiler = self.folder / "compile"
            compiler.write_text(_COMPILE)
            compiler.chmod(0o755)
            outcome = self._programs.run(
                ["cmake", "-S", self.copy, "-B", self._build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g1", f"-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld={_LINKER}", "-DKEL_PRECOMPILE=ON",
                 f"-DCMAKE_CXX_COMPILER_LAUNCHER={compiler}"], self.folder, environment)
            if not outcome.passed:
                return outcome
        return self._programs.run(["ninja", "-C", self._build, "-j", str(self._jobs), *self.test_programs(), "kelterm"],
                                  self.folder, environment)

    def _take_over_sources(self):
        """Makes the copy what the house is, leaving what is the same untouched."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=floors.HOUSE,
                                check=True, capture_output=True).stdout
        wanted = {name.decode() for name in listed.split(b"\0") if name and (floors.HOUSE / name.decode()).exists()}
        digest = hashlib.sha256()
        for name in sorted(wanted):
            source, target = floors.HOUSE / name, self.copy / name
            if not source.is_file():
                continue
            content = source.read_bytes()
            digest.update(f"{name} {len(content)}\n".encode() + content)
            if not (target.exists() and target.read_bytes() == content):
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)
        for target in [path for path in self.copy.rglob("*") if path.is_file()]:
            name = target.relative_to(self.copy).as_posix()
            if name not in wanted and not name.startswith("build/"):
                target.unlink()
        self._sources = digest.hexdigest()  # of others there may be more programs, and some take longer

    def test_programs(self):
        """Paths of the programs that test floors, in the build."""
        return floors.test_programs(self._build)

    def judge(self, mutant):
        """("caught" | "out of time" | "not built" | "survived", by what)."""
        target = self.copy / mutant.path
        original = target.read_bytes()
        if Lines(original.decode()).text(mutant.line).strip() != mutant.before:
            raise RuntimeError(f"{mutant.path} has changed since the run began")
        target.write_bytes(mutant.change.apply(original.decode()).encode())
        try:
            return self._judge(floors.floor_of(mutant.path))
        finally:
            target.write_bytes(original)

    def _judge(self, floor):
        for program in floors.tests_for(floor, self.test_programs()):
            usual = self._usual[program]
            if usual is None:
                continue
            if not self._builds(program):
                return "not built", program
            outcome = self._programs.run([self._build / program, *_TEST_OPTIONS], self._build, self._environment,
                                         usual * _TIMES_WORK + _MORE_WORK_S, usual * _TIMES_WAIT + _MORE_WAIT_S)
            if outcome.out_of_time:
                return "out of time", program
            if not outcome.passed:
                return "caught", f"{program.rsplit('/', 1)[-1]} {_failed_test(outcome.output)}"
        if not self._builds("kelterm"):
            return "not built", "kelterm"
        if failed := self.failing_script():
            return "caught", failed
        return "survived", ""

    def _builds(self, target):
        # What is compiled once only is not worth keeping.
        return self._programs.run(["ninja", "-C", self._build, "-j", str(self._jobs), target], self.folder,
                                  {**self._environment, "CCACHE_DISABLE": "1"}).passed

    def failing_script(self):
        """The name of a screen script that prints something else, or None."""
        check = self.copy / "tests/ui/check_script.sh"
        scripts = sorted((self.copy / "tests/ui").glob("*.script"))
        environment = {**self._environment, "KEL_LIMIT": "40"}
        failed = []

        def play(script):
            if not failed:
                outcome = self._programs.run([check, self._build / "simulator/kelterm", script], self.folder, environment,
                                             cpu_s=30, wall_s=120)
                if not outcome.passed:
                    failed.append(script.stem)

        with concurrent.futures.ThreadPoolExecutor(self._jobs) as pool:
            for _ in pool.map(play, scripts):
                pass
        return failed[0] if failed else None


def _failed_test(output):
    for line in output.splitlines():
        if line.startswith("[  FAILED  ]"):
            return line.split("]", 1)[1].split("(")[0].strip().rstrip(",")
    return "ended"
