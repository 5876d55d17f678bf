"""Changes of statements: removed, emptied, moved; conditions turned round."""

import re

from clang.cindex import Cursor, CursorKind

from mutation import steps
from mutation.expressions import binary_operator
from mutation.places import Places
from mutation.replacements import COMPARISONS

LABELS = (CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT)
LOOPS = (CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT, CursorKind.WHILE_STMT)
FUNCTIONS = (
    CursorKind.FUNCTION_DECL, CursorKind.FUNCTION_TEMPLATE, CursorKind.CXX_METHOD, CursorKind.LAMBDA_EXPR,
)  # fmt: skip


def change_block(places: Places, block: Cursor, parent: Cursor) -> None:
    inside = [_unlabelled(statement) for statement in block.get_children()]
    for index, statement in enumerate(inside):
        # A function that runs past its last return crashes, whatever the tests ask.
        is_last_return = statement.kind == CursorKind.RETURN_STMT and statement == inside[-1]
        if _is_removable(statement) and not (is_last_return and parent.kind in FUNCTIONS):
            places.replace(statement, "statement removed", "")
        if steps.is_lock(statement):
            if index > 0:
                steps.exchange(places, inside[index - 1], statement, "lock taken earlier")
            steps.change_hold(places, statement, inside[index + 1 :])
            places.replace(statement, "lock removed", "")
        else:
            steps.keep_local(places, statement)
        if statement.kind == CursorKind.COMPOUND_STMT:
            places.replace(statement, "scope opened", places.text(statement)[1:-1])
    if parent.kind in FUNCTIONS:
        steps.change_order(places, inside)
        steps.leave_early(places, inside, parent)


def change_if(places: Places, cursor: Cursor) -> None:
    children = list(cursor.get_children())
    between = places.slice(cursor, children[-2].extent.end.offset, children[-1].extent.start.offset)
    has_else = re.search(r"\belse\b", between) is not None
    body = children[-2 if has_else else -1]
    condition = children[-3 if has_else else -2]
    if has_else:
        places.change(cursor, "else removed", body.extent.end.offset, children[-1].extent.end.offset, "")
    empty_body(places, body, "if body emptied")
    if children[0].kind != CursorKind.VAR_DECL:
        places.replace(condition, "condition", "true")
        negate(places, condition)


def negate(places: Places, condition: Cursor) -> None:
    """What a changed operator does not turn round already."""
    while condition.kind == CursorKind.UNEXPOSED_EXPR and len(list(condition.get_children())) == 1:
        condition = next(condition.get_children())
    binary = binary_operator(places, condition)
    text = places.text(condition)
    if not text.startswith("!") and (binary is None or binary[0] not in COMPARISONS):
        places.replace(condition, "condition", f"!({text})")


def empty_body(places: Places, body: Cursor, kind: str) -> None:
    inside = list(body.get_children()) if body.kind == CursorKind.COMPOUND_STMT else [body]
    # Of a single statement the removal is a change of its own.
    if len(inside) > 1 or not all(_is_removable(statement) for statement in inside):
        places.replace(body, kind, "{}")


def drop_initializers(places: Places, constructor: Cursor) -> None:
    """A member that a constructor initializes starts empty: a lock as one that is not taken."""
    children = list(constructor.get_children())
    for member, value in zip(children, children[1:]):
        if member.kind == CursorKind.MEMBER_REF:
            start, end = member.extent.start.offset, value.extent.end.offset
            end += places.slice(constructor, end, end + 1) == ")"
            places.change(constructor, "initializer dropped", start, end, f"{member.spelling}()")


def _unlabelled(statement: Cursor) -> Cursor:
    while statement.kind in LABELS:
        statement = list(statement.get_children())[-1]
    return statement


def _is_removable(statement: Cursor) -> bool:
    return statement.kind.is_expression() or statement.kind in steps.JUMPS

