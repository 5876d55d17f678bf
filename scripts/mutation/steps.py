"""Changes of when and how often something happens: how long a lock is held, what is kept for the next call, which step
comes first."""

import re
from collections.abc import Iterator
from itertools import pairwise

from clang.cindex import Cursor, CursorKind

from mutation.places import Places

JUMPS = (CursorKind.RETURN_STMT, CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT)


def is_lock(statement: Cursor) -> bool:
    """A variable that holds a lock: one named so, or a handle of guarded tables."""
    variable = _variable(statement)
    if variable is None:
        return False
    return variable.spelling.lower().endswith("lock") or "Held<" in variable.type.get_canonical().spelling


def change_hold(places: Places, lock: Cursor, following: list[Cursor]) -> None:
    """The lock is taken behind each of the statements that follow it, given back behind each, or both."""
    text = places.text(lock)
    start = lock.extent.start.offset
    for index, statement in enumerate(following):
        if statement.kind not in JUMPS and (index == 0 or index + 1 < len(following)):
            end = _end(places, statement)
            between = places.slice(lock, lock.extent.end.offset, end)
            places.change(lock, "lock taken later", start, end, f"{between.lstrip()} {text}")
    name = _declared(lock)
    held = re.sub(r"^const ", "", text)  # so that it can be given back
    again = re.sub(rf"\b{name}\b", f"{name}Again", text, count=1)
    for statement in _inner_ends(following):
        end = _end(places, statement)
        given = f"{held}{places.slice(lock, lock.extent.end.offset, end)} {{ const auto given = std::move({name}); }}"
        places.change(lock, "lock given back earlier", start, end, given)
        places.change(lock, "lock held twice", start, end, f"{given} {again}")


def keep_local(places: Places, statement: Cursor) -> None:
    """A local variable becomes a static one."""
    text = places.text(statement)
    if _declared(statement) and not re.match(r"static |constexpr ", text):
        places.replace(statement, "static", f"static {text}")


def keep_answer(places: Places, call: Cursor) -> None:
    """What the host says is asked for once and kept."""
    asked = call.referenced
    if asked is None or not places.is_project(asked) or places.is_inside(asked) or call.spelling.startswith("operator"):
        return
    if asked.kind != CursorKind.CONSTRUCTOR and not list(call.get_arguments()):
        text = places.text(call)
        places.replace(call, "static", f"[&] {{ static const auto kept = {text}; return kept; }}()")


def change_order(places: Places, inside: list[Cursor]) -> None:
    """Of two steps of a function that ask somebody else, or leave, the second comes first."""
    for first, second in pairwise(inside):
        uses = re.search(rf"\b{_declared(first) or '$'}\b", places.text(second))
        if uses is None and _is_step(places, first) and _is_step(places, second) and second.kind not in JUMPS:
            exchange(places, first, second, "order")


def leave_early(places: Places, inside: list[Cursor], function: Cursor) -> None:
    """That a list is empty is noticed before the first step."""
    lists = [one.spelling for one in function.get_children() if one.kind == CursorKind.PARM_DECL]
    for loop in inside[1:]:
        walked = re.match(r"for \([^;]*: (\w+)\)", places.text(loop))
        if walked is not None and walked[1] in lists:
            start = inside[0].extent.start.offset
            places.change(inside[0], "order", start, start, f"if ({walked[1]}.empty()) {{ return; }} ")


def exchange(places: Places, first: Cursor, second: Cursor, kind: str) -> None:
    start, end = first.extent.start.offset, _end(places, second)
    text, other = (places.slice(one, one.extent.start.offset, _end(places, one)) for one in (first, second))
    middle = places.slice(first, _end(places, first), second.extent.start.offset)
    places.change(first, kind, start, end, other + middle + text)


def _variable(statement: Cursor) -> Cursor | None:
    """The variable that the statement declares."""
    declared = next(statement.get_children(), None) if statement.kind == CursorKind.DECL_STMT else None
    return declared if declared is not None and declared.kind == CursorKind.VAR_DECL else None


def _declared(statement: Cursor) -> str:
    """Its name."""
    variable = _variable(statement)
    return "" if variable is None else variable.spelling


def _inner_ends(statements: list[Cursor]) -> Iterator[Cursor]:
    """The statements behind which others follow, those of inner blocks too."""
    for index, statement in enumerate(statements):
        for inner in statement.walk_preorder():
            if inner.kind == CursorKind.COMPOUND_STMT:
                yield from list(inner.get_children())[:-1]
        if index + 1 < len(statements) and statement.kind not in JUMPS:
            yield statement


def _is_step(places: Places, statement: Cursor) -> bool:
    if is_lock(statement) or statement.kind == CursorKind.BINARY_OPERATOR or statement.spelling == "operator=":
        return False
    inner = list(statement.walk_preorder())
    return any(one.kind == CursorKind.RETURN_STMT or _asks(places, one) for one in inner)


def _asks(places: Places, cursor: Cursor) -> bool:
    called = cursor.referenced if cursor.kind == CursorKind.CALL_EXPR else None
    return called is not None and called.kind != CursorKind.CONSTRUCTOR and places.is_project(called)


def _end(places: Places, statement: Cursor) -> int:
    """Behind the semicolon, which is no part of an expression."""
    end = statement.extent.end.offset
    return end + 1 if places.slice(statement, end, end + 1) == ";" else end
