"""What is known of each mutant from this run and from earlier ones."""

import json
import threading
import tomllib
from dataclasses import asdict, dataclass
from pathlib import Path

from mutation.mutant import Mutant, file_hash, squeezed
from mutation.trial import SURVIVED, Outcome


class Results:
    """A file with one line of JSON per trial. A trial counts as long as the mutant's file stays as it was; of several
    the latest counts."""

    def __init__(self, path: Path, sources: Path):
        self._path = path
        self._sources = sources
        self._hashes: dict[str, str] = {}
        self._lock = threading.Lock()
        self._known: dict[str, Outcome] = {}
        if path.exists():
            self._read()

    def of(self, mutant: Mutant) -> Outcome | None:
        return self._known.get(mutant.id)

    def add(self, mutant: Mutant, outcome: Outcome) -> None:
        line = {"id": mutant.id, "file": mutant.file, "line": mutant.line, "kind": mutant.kind,
                "before": mutant.before, "after": mutant.after, **asdict(outcome),
                "hash": self._hash(mutant.file)}  # fmt: skip
        with self._lock:
            self._known[mutant.id] = outcome
            with self._path.open("a") as file:
                file.write(json.dumps(line, ensure_ascii=False) + "\n")

    def _hash(self, file: str) -> str:
        if file not in self._hashes:
            path = self._sources / file
            self._hashes[file] = file_hash(path) if path.exists() else ""
        return self._hashes[file]

    def _read(self) -> None:
        valid = {}
        for line in self._path.read_text().splitlines():
            try:
                trial = json.loads(line)
            except json.JSONDecodeError:
                continue  # the run was ended while it wrote
            if trial["hash"] == self._hash(trial["file"]):
                valid[trial["id"]] = trial
        self._known = {key: Outcome(one["outcome"], one["by"], one["seconds"], tuple(one.get("every", ()))) for key, one in valid.items()}
        # Only what counts is kept.
        self._path.write_text("".join(json.dumps(one, ensure_ascii=False) + "\n" for one in valid.values()))


@dataclass(frozen=True)
class Equivalent:
    """Changes of one line that no test can notice, and why."""

    file: str
    before: str
    after: str
    why: str
    above: str = ""  # the line above, where the line itself does not tell the place

    def matches(self, mutant: Mutant) -> bool:
        place = (mutant.file, mutant.line_before, mutant.line_after)
        return place == (self.file, self.before, self.after) and self.above in ("", mutant.line_above)


def read_equivalents(path: Path) -> list[Equivalent]:
    entries = []
    for entry in tomllib.loads(path.read_text()).get("equivalent", []):
        if not {"file", "before", "after", "why"} <= set(entry) <= {"file", "before", "after", "why", "above"}:
            raise ValueError(f"{path.name}: an entry has file, before, after, why and perhaps above: {entry}")
        afters = entry["after"] if isinstance(entry["after"], list) else [entry["after"]]
        for after in afters:
            texts = {name: squeezed(text) for name, text in entry.items() if name != "after"}
            entries.append(Equivalent(**texts, after=squeezed(after)))
    return entries


def stale(entries: list[Equivalent], mutants: list[Mutant], results: Results) -> list[Equivalent]:
    """Entries that no mutant matches but such as a test noticed."""

    def is_true(entry: Equivalent) -> bool:
        outcomes = [results.of(mutant) for mutant in mutants if entry.matches(mutant)]
        return any(outcome is None or outcome.outcome == SURVIVED for outcome in outcomes)

    return [entry for entry in entries if not is_true(entry)]
