"""What fee_bench wrote into a folder: medians of its repetitions."""

import collections
import csv
import dataclasses
import json
import statistics

CENTER, FLOOR = "fee center", "floor"


# What Google Benchmark says of a run itself; all else are counters, one for each implementation.
_OWN = {
    "name", "run_name", "run_type", "family_index", "per_family_instance_index", "repetitions", "repetition_index", "threads",
    "iterations", "real_time", "cpu_time", "time_unit",
}  # fmt: skip


@dataclasses.dataclass(frozen=True)
class Case:
    """What was asked of an implementation. A lookup has a shape, "ACCOUNTSxENTRIES", and a number of threads."""

    mix: str
    shape: str = ""
    threads: int = 1

    @property
    def entries(self):
        accounts, each = map(int, self.shape.split("x"))
        return accounts * each


@dataclasses.dataclass
class Measured:
    lookups: dict  # by Case and implementation: nanoseconds between two answers, of all threads together
    parts: dict  # by name: {"ns": nanoseconds}
    bulks: dict  # by name and implementation: nanoseconds for an entry
    under_load: dict  # by implementation and share: nanoseconds
    memory: list  # rows of the program's own
    instructions: dict  # by mix and implementation
    compiler_context: dict  # what Google Benchmark says of the machine

    @property
    def implementations(self):
        return list(dict.fromkeys(name for by in self.lookups.values() for name in by))


def _medians(samples):
    return {key: {name: statistics.median(values) for name, values in by.items()} for key, by in samples.items()}


def _samples():
    return collections.defaultdict(lambda: collections.defaultdict(list))


def _rows(path):
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def read(folder):
    files = [json.loads(path.read_text(encoding="utf-8")) for path in sorted(folder.glob("benchmarks-*.json"))]
    lookups, parts, bulks, under_load = (_samples() for _ in range(4))
    for run in (run for file in files for run in file["benchmarks"]):
        kind, name, *rest = run["name"].split("/")
        if kind == "part":
            parts[name]["ns"].append(run["cpu_time" if run["threads"] == 1 else "real_time"])
            continue
        times = {who: float(ns) for who, ns in run.items() if who not in _OWN}
        for who, ns in times.items():
            (bulks[name] if kind == "bulk" else lookups[Case(name, rest[0], run["threads"])])[who].append(ns)
    for row in _rows(folder / "under_load.csv"):
        under_load[float(row["share"])][row["implementation"]].append(float(row["ns"]))
    return Measured(
        _medians(lookups),
        _medians(parts),
        _medians(bulks),
        _medians(under_load),
        _rows(folder / "memory.csv"),
        {row["mix"]: {name: int(row[name]) for name in (CENTER, FLOOR)} for row in _rows(folder / "instructions.csv")},
        files[0]["context"],
    )
