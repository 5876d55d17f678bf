"""Changes of expressions: operators, names, arguments, elements of lists."""

import re

from clang.cindex import Cursor, CursorKind, TypeKind

from mutation.places import Places
from mutation.replacements import OPERATORS, STANDARD_NAMES
from mutation.siblings import Siblings


def binary_operator(places: Places, cursor: Cursor) -> tuple[str, int, Cursor, Cursor] | None:
    """The operator, its place, and both operands, of a binary expression; an overloaded operator's too."""
    operands = sorted(cursor.get_children(), key=lambda child: child.extent.start.offset)
    if cursor.kind == CursorKind.CALL_EXPR and cursor.spelling.startswith("operator") and len(operands) == 3:
        del operands[1]
    elif cursor.kind not in (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR):
        return None
    left, right = operands
    between = places.slice(cursor, left.extent.end.offset, right.extent.start.offset)
    token = between.strip()
    return (token, left.extent.end.offset + between.index(token), left, right) if token in OPERATORS else None


def change_operator(places: Places, cursor: Cursor) -> None:
    binary = binary_operator(places, cursor)
    if binary is not None:
        token, start, left, right = binary
        for after in OPERATORS[token]:
            places.change(cursor, "operator", start, start + len(token), after)
        if token in ("&&", "||"):
            places.replace(cursor, "operand removed", places.text(left))
            places.replace(cursor, "operand removed", places.text(right))
    elif cursor.kind == CursorKind.UNARY_OPERATOR or cursor.spelling == "operator!":
        change_sign(places, cursor)


def change_sign(places: Places, cursor: Cursor) -> None:
    text = places.text(cursor)
    for sign, after in (("++", "--"), ("--", "++"), ("!", ""), ("-", ""), ("~", "")):
        if text.startswith(sign):
            places.replace(cursor, "operator", after + text[len(sign) :])
            return
        if text.endswith(sign) and after:
            places.replace(cursor, "operator", text[: -len(sign)] + after)
            return


def choose_branch(places: Places, conditional: Cursor) -> None:
    _, chosen, other = conditional.get_children()
    places.replace(conditional, "condition", places.text(chosen))
    places.replace(conditional, "condition", places.text(other))


def exchange_name(places: Places, siblings: Siblings, cursor: Cursor) -> None:
    """A field or operation becomes its sibling, or the standard library's opposite."""
    declaration = cursor.referenced
    source, start = places.source(cursor), cursor.location.offset
    name = re.match(rb"\w+", source[start:])
    if declaration is None or name is None or name[0].decode() != declaration.spelling:
        # What depends on a template's argument is said to stand where the whole expression begins.
        declaration = None
        name = re.search(rb"(?<=[.>:])\w+$", source[: cursor.extent.end.offset])
        if name is None:
            return
        start = name.start()
    text = name[0].decode()
    is_foreign = declaration is None or not places.is_project(declaration)
    after = (STANDARD_NAMES.get(text) if is_foreign else None) or siblings.of(declaration, text)
    if after is not None:
        places.change(cursor, "name", start, start + len(text), after)


def swap_arguments(places: Places, call: Cursor) -> None:
    """Neighbouring arguments of one type change places."""
    if call.spelling.startswith("operator"):
        return
    arguments = list(call.get_arguments()) or list(call.get_children())[1:]
    arguments = [argument for argument in arguments if argument is not None and places.text(argument)]
    for first, second in zip(arguments, arguments[1:]):
        start, end = first.extent.start.offset, second.extent.end.offset
        middle = places.slice(call, first.extent.end.offset, second.extent.start.offset)
        if _plain_type(first) == _plain_type(second) != "<dependent type>" and middle.strip() == ",":
            places.change(call, "arguments swapped", start, end, places.text(second) + middle + places.text(first))


def _plain_type(expression: Cursor) -> str:
    return expression.type.get_canonical().spelling.replace("const ", "")


def remove_elements(places: Places, initializer: Cursor) -> None:
    by_start = {child.extent.start.offset: child for child in initializer.get_children() if places.text(child)}
    elements = [by_start[start] for start in sorted(by_start)]
    # The last fields of a record are zero whether that is written or not.
    is_record = initializer.type.get_canonical().kind == TypeKind.RECORD
    meant = len(elements)
    while is_record and meant and places.text(elements[meant - 1]) in ("0", "0.0"):
        meant -= 1
    for index in range(meant if len(elements) > 1 else 0):
        start, end = elements[index].extent.start.offset, elements[index].extent.end.offset
        if index + 1 < len(elements):
            end = elements[index + 1].extent.start.offset
        else:
            start = elements[index - 1].extent.end.offset
        places.change(initializer, "element removed", start, end, "")
