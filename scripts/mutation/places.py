"""The places of the sources that are changed, and the mutants found so far."""

from pathlib import Path

from clang.cindex import Cursor

from mutation.mutant import Mutant, make_mutant


class Places:
    """Each place counts once: a header that several sources include, and a template with several instances."""

    def __init__(self, root: Path, directory: str):
        self._root = f"{root}/"
        self._prefix = f"{root}/{directory}/"
        self._sources: dict[str, bytes] = {}
        self._mutants: dict[tuple[str, int, int, str], Mutant] = {}

    def mutants(self) -> list[Mutant]:
        return sorted(self._mutants.values(), key=lambda mutant: (mutant.file, mutant.start, mutant.end, mutant.after))

    def is_inside(self, cursor: Cursor) -> bool:
        file = cursor.extent.start.file
        return file is not None and file.name.startswith(self._prefix)

    def is_project(self, declaration: Cursor) -> bool:
        file = declaration.location.file
        return file is not None and file.name.startswith(self._root)

    def source(self, cursor: Cursor) -> bytes:
        name = cursor.extent.start.file.name
        if name not in self._sources:
            self._sources[name] = Path(name).read_bytes()
        return self._sources[name]

    def slice(self, cursor: Cursor, start: int, end: int) -> str:
        return self.source(cursor)[start:end].decode()

    def text(self, cursor: Cursor) -> str:
        """Empty for what the compiler adds on its own, such as a default argument."""
        if not self.is_inside(cursor):
            return ""
        return self.slice(cursor, cursor.extent.start.offset, cursor.extent.end.offset)

    def change(self, at: Cursor, kind: str, start: int, end: int, after: str) -> None:
        """Notes that [start, end) of the file that `at` is in can become `after`."""
        source = self.source(at)
        file = at.extent.start.file.name.removeprefix(self._root)
        if source[start:end].decode() != after:
            self._mutants.setdefault((file, start, end, after), make_mutant(file, source, kind, start, end, after))

    def replace(self, cursor: Cursor, kind: str, after: str) -> None:
        self.change(cursor, kind, cursor.extent.start.offset, cursor.extent.end.offset, after)
