"""What scripts/mutate does, as its command line asks."""

import argparse
import fcntl
import fnmatch
import queue
import signal
import sys
import tempfile
import threading
import time
from pathlib import Path

from mutation import report
from mutation.mutant import Mutant
from mutation.results import Results, read_equivalents
from mutation.tree import find_mutants
from mutation.trial import KILLED, PROGRAMS, SURVIVED, Killers, Limits, run_program, try_every_test, try_mutant
from mutation.workbench import DIRECTORY, Base, BuildError, Worker


def select(mutants: list[Mutant], options: argparse.Namespace) -> list[Mutant]:
    selected = mutants
    if options.file:
        selected = [one for one in selected if fnmatch.fnmatch(Path(one.file).name, options.file)]
        if not selected:
            raise LookupError(f"--file {options.file}: no file of {DIRECTORY}/ with a change in it matches")
    if options.kind:
        selected = [one for one in selected if fnmatch.fnmatch(one.kind, options.kind)]
        if not selected:
            raise LookupError(f"--kind {options.kind}: no such change; --list prints them")
    if options.only:
        unknown = set(options.only) - {one.id for one in selected}
        if unknown:
            raise LookupError(f"--only {' '.join(sorted(unknown))}: no such change; --list prints them")
        selected = [one for one in selected if one.id in options.only]
    return selected


def pending(mutants: list[Mutant], results: Results, options: argparse.Namespace) -> list[Mutant]:
    def is_pending(mutant: Mutant) -> bool:
        known = results.of(mutant)
        if options.survivors:
            return known is not None and known.outcome == SURVIVED
        return known is None or bool(options.only) or (options.alone and known.outcome == KILLED and not known.every)

    return [mutant for mutant in mutants if is_pending(mutant)]


def check_unchanged(worker: Worker, timeout: float) -> Limits:
    """What the tests say of a mutant counts only where they pass without one, however the library is compiled. Answers
    how long each program may take with one."""
    limits: Limits = {}
    for whole in (False, True):
        if not worker.build(None, whole):
            raise BuildError("the unchanged library does not build")
        for program in PROGRAMS:
            begin = time.monotonic()
            result = run_program(worker, program, program.tests, 10 * timeout)
            if result.outcome != SURVIVED:
                raise BuildError(f"{result.outcome} without any change: {result.by}")
            limits[program] = max(timeout, 5 * (time.monotonic() - begin))
    return limits


def try_all(mutants: list[Mutant], base: Base, results: Results, options: argparse.Namespace) -> None:
    waiting: queue.SimpleQueue[Mutant] = queue.SimpleQueue()
    for mutant in mutants:
        waiting.put(mutant)
    progress, killers, stop = report.Progress(len(mutants)), Killers(), threading.Event()
    failures: list[Exception] = []

    def work(worker: Worker) -> None:
        while not stop.is_set():
            try:
                mutant = waiting.get_nowait()
            except queue.Empty:
                return
            try:
                if options.alone:
                    outcome = try_every_test(worker, mutant, limits)
                else:
                    outcome = try_mutant(worker, mutant, killers, limits)
            except Exception as failure:  # shown by the main thread
                failures.append(failure)
                stop.set()
                return
            results.add(mutant, outcome)
            progress.add(mutant, outcome)

    workers = [Worker(base, number) for number in range(1, min(options.jobs, len(mutants)) + 1)]
    limits = check_unchanged(workers[0], options.timeout)
    threads = [threading.Thread(target=work, args=(worker,)) for worker in workers]
    for thread in threads:
        thread.start()
    try:
        for thread in threads:
            thread.join()
    finally:
        stop.set()
    if failures:
        raise failures[0]


def main(project: Path, options: argparse.Namespace) -> int:
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        return run(project, options)
    except KeyboardInterrupt:
        print("\nscripts/mutate: interrupted; the next run goes on from here", file=sys.stderr)
        return 1
    except (BuildError, LookupError, RuntimeError, ValueError) as error:
        print(f"scripts/mutate: {error}", file=sys.stderr)
        return 2


def run(project: Path, options: argparse.Namespace) -> int:
    if options.list:
        # A run that is at work counts on the copy of the sources in its own place.
        with tempfile.TemporaryDirectory(prefix="mutate-") as place:
            return list_changes(project, Path(place), options)
    place = project / "build/mutate"
    place.mkdir(parents=True, exist_ok=True)
    with (place / "lock").open("w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            raise BuildError(f"another run is at work in {place}") from None
        return run_alone(project, place, options)


def find_all(project: Path, place: Path) -> tuple[Base, list[Mutant]]:
    base = Base(project, place, [program.name for program in PROGRAMS])
    return base, find_mutants(base.sources, DIRECTORY, base.unit, base.flags)


def list_changes(project: Path, place: Path, options: argparse.Namespace) -> int:
    selected = select(find_all(project, place)[1], options)
    for mutant in selected:
        print(report.describe(mutant))
    print(f"{len(selected)} changes")
    return 0


def run_alone(project: Path, place: Path, options: argparse.Namespace) -> int:
    equivalents = read_equivalents(project / "scripts/mutation/equivalent.toml")
    base, mutants = find_all(project, place)
    selected = select(mutants, options)
    results = Results(base.place / "results.jsonl", base.sources)
    wanted = pending(selected, results, options)
    if wanted:
        print(f"{len(wanted)} changes to try of {len(selected)}; building the tests", flush=True)
        base.make()
        try_all(wanted, base, results, options)
    if options.alone:
        report.print_alone(selected, results)
    accounted = report.report(selected, results, equivalents, len(selected) == len(mutants))
    return 0 if accounted else 1
