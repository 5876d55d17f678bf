"""Runs the fast tests against one mutant."""

import os
import re
import signal
import subprocess
import threading
import time
from collections import defaultdict
from dataclasses import dataclass
from pathlib import Path

from mutation.mutant import Mutant
from mutation.workbench import Worker

KILLED, TIMEOUT, SURVIVED, INVALID = "killed", "timeout", "survived", "invalid"

# A mutant that eats memory must not take the machine with it.
LIMITS = ["prlimit", f"--as={4 << 30}", "--core=0"]


@dataclass(frozen=True)
class Program:
    name: str
    takes_objects: bool = False  # linked with the library's objects, not with the shared library
    tests: str = "*"  # without those that take long


# What is quick and notices most comes first.
PROGRAMS = (
    Program("feecenter_test"),
    Program("posting_test", takes_objects=True),
    Program("lock_scopes_test"),
    Program("lock_matrix_test", tests="*LockMatrix*"),
    Program("memory_test"),
    Program("bad_host_test", tests="-*EveryCallThatFailed*"),
    Program("histories_test", tests="*RandomHistories*"),
)

Limits = dict[Program, float]  # seconds that each may take


@dataclass(frozen=True)
class Outcome:
    outcome: str
    by: str = ""  # the test that noticed, or that ran when the time was over
    seconds: float = 0.0
    every: tuple[str, ...] = ()  # all tests that noticed, where all were run


class Killers:
    """The tests that noticed the latest mutants of each file: they are asked first about the next one."""

    def __init__(self) -> None:
        self._lock = threading.Lock()
        self._tests: dict[str, list[str]] = defaultdict(list)

    def add(self, file: str, test: str) -> None:
        program, _, name = test.partition(" ")
        if program == PROGRAMS[0].name and name:
            with self._lock:
                tests = self._tests[file]
                if name in tests:
                    tests.remove(name)
                self._tests[file] = [name, *tests][:12]

    def filter(self, file: str) -> str:
        with self._lock:
            return ":".join(self._tests[file])


@dataclass(frozen=True)
class Run:
    """What a test program came to."""

    outcome: str
    started: list[str]
    failed: list[str]
    whole: bool  # it came to its end, so that each test had its turn

    @property
    def last(self) -> str:
        return (self.failed or self.started or ["before any test"])[-1]


def run_tests(program: Path, libraries: Path, tests: str, timeout: float, options: list[str]) -> Run:
    command = [*LIMITS, str(program), *options, "--gtest_color=no", f"--gtest_filter={tests}"]
    environment = dict(os.environ, LD_LIBRARY_PATH=str(libraries))
    process = subprocess.Popen(command, env=environment, start_new_session=True, cwd=libraries,
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, errors="replace")  # fmt: skip
    try:
        output, _ = process.communicate(timeout=timeout)
        outcome = SURVIVED if process.returncode == 0 else KILLED
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        output, _ = process.communicate()
        outcome = TIMEOUT
    started = re.findall(r"^\[ RUN      \] (\S+)", output, re.M)
    if outcome == SURVIVED and not started:
        raise RuntimeError(f"{program.name} ran no test: {tests}")
    failed = re.findall(r"^\[  FAILED  \] ([^\s,]+\.[^\s,]+)", output, re.M)
    return Run(outcome, started, failed, bool(re.search(r"^\[==========\] .* ran\.", output, re.M)))


def try_mutant(worker: Worker, mutant: Mutant, killers: Killers, limits: Limits) -> Outcome:
    begin = time.monotonic()
    outcome = _first_notice(worker, mutant, killers, limits)
    if outcome.outcome in (KILLED, TIMEOUT):
        killers.add(mutant.file, outcome.by)
    return Outcome(outcome.outcome, outcome.by, round(time.monotonic() - begin, 2))


def _first_notice(worker: Worker, mutant: Mutant, killers: Killers, limits: Limits) -> Outcome:
    if not worker.build(mutant):
        return Outcome(INVALID)
    likely = killers.filter(mutant.file)
    if likely:
        result = run_program(worker, PROGRAMS[0], likely, limits[PROGRAMS[0]])
        if result.outcome != SURVIVED:
            return result
    for program in PROGRAMS:
        result = run_program(worker, program, program.tests, limits[program])
        if result.outcome != SURVIVED:
            return result
    return Outcome(SURVIVED)


# A test that ends the program, or never ends, takes its turn from those behind it: the program runs anew without it.
MOST_RUNS = 6


def try_every_test(worker: Worker, mutant: Mutant, limits: Limits) -> Outcome:
    """As try_mutant, but with every test that noticed."""
    begin = time.monotonic()
    if not worker.build(mutant):
        return Outcome(INVALID)
    noticed: dict[str, None] = {}
    for program in PROGRAMS:
        file = worker.program(program.name, program.takes_objects)
        if file is None:
            return Outcome(INVALID)
        for test in _noticing(file, worker.libraries, program.tests, limits[program]):
            noticed[f"{program.name} {test}"] = None
    every = tuple(noticed)
    outcome, by = (KILLED, every[0]) if every else (SURVIVED, "")
    return Outcome(outcome, by, round(time.monotonic() - begin, 2), every)


def _noticing(program: Path, libraries: Path, tests: str, timeout: float) -> list[str]:
    noticed: list[str] = []
    left_out: list[str] = []
    for _ in range(MOST_RUNS):
        separator = "" if not left_out else ":" if "-" in tests else "-"
        run = run_tests(program, libraries, tests + separator + ":".join(left_out), timeout, [])
        noticed += run.failed
        if run.whole or not run.started:
            break
        noticed.append(run.started[-1])
        left_out.append(run.started[-1])
    return noticed


def run_program(worker: Worker, program: Program, tests: str, timeout: float) -> Outcome:
    file = worker.program(program.name, program.takes_objects)
    if file is None:
        return Outcome(INVALID)
    run = run_tests(file, worker.libraries, tests, timeout, ["--gtest_fail_fast"])
    return Outcome(run.outcome, f"{program.name} {run.last}")
