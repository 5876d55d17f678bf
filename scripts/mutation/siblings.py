"""Which field or operation of the project can stand in for another: the next one of the same type in the same class
or file."""

from clang.cindex import Cursor, CursorKind

CLASSES = (CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.CLASS_TEMPLATE)
OPERATIONS = (CursorKind.CXX_METHOD, CursorKind.FUNCTION_DECL, CursorKind.FUNCTION_TEMPLATE)


class Siblings:
    def __init__(self, top: Cursor, root: str):
        self._root = root
        self._next: dict[tuple[str, str], str] = {}  # (USR of the record, or file; name) -> name of the sibling
        self._fields: dict[str, list[str]] = {}  # field name -> sibling in each record that has such a field
        self._groups: dict[tuple[str, str, bool], list[str]] = {}
        self._collect(top)
        self._link()

    def of(self, declaration: Cursor | None, name: str) -> str | None:
        """`declaration` is None where a template's argument decides what the name refers to; then any record with such
        a field tells."""
        if declaration is None:
            return next(iter(self._fields.get(name, ())), None)
        return self._next.get((self._owner(declaration), name))

    def _owner(self, cursor: Cursor) -> str:
        parent = cursor.semantic_parent
        if parent is not None and parent.kind in CLASSES:
            return parent.get_usr()
        return cursor.location.file.name if cursor.location.file else ""

    def _collect(self, cursor: Cursor) -> None:
        for child in cursor.get_children():
            file = child.location.file
            if file is None or not file.name.startswith(self._root):
                continue
            is_field = child.kind == CursorKind.FIELD_DECL
            if is_field or child.kind in OPERATIONS:
                key = (self._owner(child), child.type.get_canonical().spelling, is_field)
                names = self._groups.setdefault(key, [])
                if child.spelling not in names and not child.spelling.startswith("operator"):
                    names.append(child.spelling)
            if child.kind in CLASSES or child.kind == CursorKind.NAMESPACE:
                self._collect(child)

    def _link(self) -> None:
        for (owner, _, is_field), names in self._groups.items():
            if len(names) < 2:
                continue
            for name, sibling in zip(names, names[1:] + names[:1]):
                self._next[(owner, name)] = sibling
                if is_field:
                    self._fields.setdefault(name, []).append(sibling)
