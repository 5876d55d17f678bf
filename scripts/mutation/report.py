"""What a run prints."""

import sys
import threading
from collections import Counter, defaultdict

from mutation.mutant import Mutant
from mutation.results import Equivalent, Results, stale
from mutation.trial import INVALID, KILLED, SURVIVED, TIMEOUT, Outcome

COLUMNS = (KILLED, TIMEOUT, INVALID, "equivalent", SURVIVED, "not tried")
TITLES = ("killed", "timeout", "not valid", "equivalent", "survived", "not tried")


def describe(mutant: Mutant) -> str:
    place = f"{mutant.file}:{mutant.line}:{mutant.column}"
    return f"{mutant.id} {place} {mutant.kind}\n    - {mutant.line_before}\n    + {mutant.line_after}"


class Progress:
    """One line that is written over on a terminal; elsewhere a line for each fiftieth mutant."""

    def __init__(self, total: int):
        self._total = total
        self._lock = threading.Lock()
        self._counts: Counter[str] = Counter()

    def add(self, mutant: Mutant, outcome: Outcome) -> None:
        with self._lock:
            self._counts[outcome.outcome] += 1
            done = self._counts.total()
            counts = ", ".join(f"{self._counts[name]} {title}" for name, title in zip(COLUMNS, TITLES)
                               if self._counts[name])  # fmt: skip
            line = f"[{done}/{self._total}] {counts} | {mutant.file}:{mutant.line}"
            if sys.stdout.isatty():
                print(f"\r\033[K{line}", end="\n" if done == self._total else "", flush=True)
            elif done % 50 == 0 or done == self._total:
                print(line, flush=True)


def test_name(noticed: str) -> str:
    """ "Suite.Test" of a test in a program, whatever its instance: "Suite/Type.Test" or "Values/Suite.Test/Value"."""
    suite, _, test = noticed.partition(" ")[2].partition(".")
    name, is_of_values, _ = test.partition("/")
    return f"{suite.split('/')[-1 if is_of_values else 0]}.{name}"


def print_alone(mutants: list[Mutant], results: Results) -> None:
    """For each test the changes that no other test notices, one line each."""
    alone: dict[str, list[Mutant]] = defaultdict(list)
    tried = 0
    for mutant in mutants:
        outcome = results.of(mutant)
        tests = {test_name(one) for one in outcome.every} if outcome else set()
        tried += bool(tests)
        if len(tests) == 1:
            alone[tests.pop()].append(mutant)
    print(f"{sum(map(len, alone.values()))} of {tried} changes are noticed by one test alone:")
    for test, noticed in sorted(alone.items()):
        print(test)
        for mutant in noticed:
            print(f"    {mutant.id} {mutant.file}:{mutant.line} {mutant.kind}: {mutant.line_before} -> {mutant.line_after}")
    print()


def report(mutants: list[Mutant], results: Results, equivalents: list[Equivalent], is_all: bool) -> bool:
    """Prints the table, the survivors and what is stale; whether every mutant is accounted for."""
    counts: dict[str, Counter[str]] = {}
    unexplained = []
    for mutant in mutants:
        outcome = results.of(mutant)
        name = outcome.outcome if outcome else "not tried"
        if name == SURVIVED:
            if any(entry.matches(mutant) for entry in equivalents):
                name = "equivalent"
            else:
                unexplained.append(mutant)
        counts.setdefault(mutant.file, Counter())[name] += 1
    _print_table(counts)
    if unexplained:
        print(f"\n{len(unexplained)} changes that no test noticed:")
        for mutant in unexplained:
            print(describe(mutant))
    old = stale(equivalents, mutants, results) if is_all else []
    if old:
        print(f"\n{len(old)} entries of equivalent.toml match no surviving change:")
        for entry in old:
            print(f"{entry.file}\n    - {entry.before}\n    + {entry.after}")
    return not unexplained and not old and not any(count["not tried"] for count in counts.values())


def _print_table(counts: dict[str, Counter[str]]) -> None:
    width = max(map(len, counts), default=5)
    print(f"{'file':{width}} {'mutants':>9}" + "".join(f"{title:>12}" for title in TITLES))
    total = sum(counts.values(), Counter())
    for file, count in [*sorted(counts.items()), ("total", total)]:
        print(f"{file:{width}} {count.total():9}" + "".join(f"{count[column]:12}" for column in COLUMNS))
