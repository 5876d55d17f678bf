"""One change of one place in a source file."""

import hashlib
from dataclasses import dataclass, field
from pathlib import Path


def squeezed(text: str) -> str:
    return " ".join(text.split())


@dataclass(frozen=True)
class Mutant:
    """Replaces the bytes [start, end) of a file by `after`. The id stays the same as long as the place does."""

    file: str
    line: int
    column: int
    kind: str
    start: int
    end: int
    before: str
    after: str
    # The whole lines that the change touches, with and without it, blanks squeezed.
    line_before: str
    line_after: str
    line_above: str
    id: str = field(init=False)

    def __post_init__(self) -> None:
        place = "\0".join((self.file, str(self.line), str(self.column), self.kind, self.before, self.after))
        object.__setattr__(self, "id", hashlib.sha1(place.encode()).hexdigest()[:8])

    def applied_to(self, source: bytes) -> bytes:
        return source[: self.start] + self.after.encode() + source[self.end :]


def make_mutant(file: str, source: bytes, kind: str, start: int, end: int, after: str) -> Mutant:
    line_start = source.rfind(b"\n", 0, start) + 1
    line_end = source.find(b"\n", end)
    before = source[start:end].decode()
    head, tail = source[line_start:start].decode(), source[end:line_end].decode()
    return Mutant(
        file=file,
        line=source.count(b"\n", 0, start) + 1,
        column=start - line_start + 1,
        kind=kind,
        start=start,
        end=end,
        before=before,
        after=after,
        line_before=squeezed(head + before + tail),
        line_after=squeezed(head + after + tail),
        line_above=squeezed(source[:line_start].decode().rstrip("\n").rpartition("\n")[2]),
    )


def file_hash(path: Path) -> str:
    return hashlib.sha1(path.read_bytes()).hexdigest()
