"""Finds the mutants of a directory on clang's syntax tree."""

import subprocess
from pathlib import Path

from clang.cindex import Cursor, CursorKind, Index, TranslationUnit

from mutation import expressions, replacements, statements, steps
from mutation.mutant import Mutant
from mutation.places import Places
from mutation.siblings import Siblings

LITERALS = {
    CursorKind.INTEGER_LITERAL: replacements.integers,
    CursorKind.FLOATING_LITERAL: replacements.floats,
    CursorKind.CHARACTER_LITERAL: replacements.characters,
    CursorKind.STRING_LITERAL: replacements.strings,
    CursorKind.CXX_BOOL_LITERAL_EXPR: replacements.booleans,
}
REFERENCES = (CursorKind.MEMBER_REF_EXPR, CursorKind.DECL_REF_EXPR)


def parse(unit: Path, arguments: list[str]) -> TranslationUnit:
    resources = subprocess.run(["clang++", "-print-resource-dir"], capture_output=True, text=True, check=True)
    tree = Index.create().parse(str(unit), args=[*arguments, "-resource-dir", resources.stdout.strip()])
    errors = [str(diagnostic) for diagnostic in tree.diagnostics if diagnostic.severity >= 3]
    if errors:
        raise RuntimeError("the sources do not compile:\n" + "\n".join(errors))
    return tree


def find_mutants(root: Path, directory: str, unit: Path, arguments: list[str]) -> list[Mutant]:
    """All mutants of root/directory; `unit` includes each of its source files."""
    tree = parse(unit, arguments)
    places = Places(root, directory)
    siblings = Siblings(tree.cursor, f"{root}/")
    for cursor in tree.cursor.get_children():
        if places.is_inside(cursor):
            _visit(places, siblings, cursor, tree.cursor)
    return places.mutants()


def _visit(places: Places, siblings: Siblings, cursor: Cursor, parent: Cursor) -> None:
    if places.is_inside(cursor):
        _change(places, siblings, cursor, parent)
    for child in cursor.get_children():
        _visit(places, siblings, child, cursor)


def _change(places: Places, siblings: Siblings, cursor: Cursor, parent: Cursor) -> None:
    kind = cursor.kind
    if kind in LITERALS:
        for after in LITERALS[kind](places.text(cursor)):
            places.replace(cursor, "constant", after)
    elif kind in REFERENCES:
        expressions.exchange_name(places, siblings, cursor)
    elif kind == CursorKind.TEMPLATE_REF and cursor.spelling in replacements.LOCKS:
        places.replace(cursor, "lock kind", replacements.LOCKS[cursor.spelling])
    elif kind == CursorKind.INIT_LIST_EXPR:
        expressions.remove_elements(places, cursor)
    elif kind == CursorKind.CONDITIONAL_OPERATOR:
        expressions.choose_branch(places, cursor)
    elif kind == CursorKind.CONSTRUCTOR:
        statements.drop_initializers(places, cursor)
    elif kind == CursorKind.COMPOUND_STMT:
        statements.change_block(places, cursor, parent)
    elif kind == CursorKind.IF_STMT:
        statements.change_if(places, cursor)
    elif kind in statements.LOOPS:
        statements.empty_body(places, list(cursor.get_children())[-1], "loop body emptied")
    else:
        expressions.change_operator(places, cursor)
        if kind == CursorKind.CALL_EXPR:
            expressions.swap_arguments(places, cursor)
            steps.keep_answer(places, cursor)
