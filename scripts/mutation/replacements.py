"""What an operator, a literal or a name is changed to."""

import re

OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
    "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",),
    "&": ("|",), "|": ("&",), "^": ("&",), "<<": (">>",), ">>": ("<<",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "&=": ("|=",), "|=": ("&=",),
}  # fmt: skip

COMPARISONS = {"<", "<=", ">", ">=", "==", "!="}

# Names of the standard library and of Boost that can stand for each other.
STANDARD_NAMES = {
    "min": "max", "max": "min", "front": "back", "back": "front", "first": "second", "second": "first",
    "end": "begin", "begin": "end", "floor": "ceil", "ceil": "floor",
    "post": "dispatch",
}  # fmt: skip

LOCKS = {"unique_lock": "shared_lock", "shared_lock": "unique_lock"}


def integers(text: str) -> list[str]:
    """One more, one less, none, the other sign."""
    digits = re.match(r"(?:0[xX][0-9a-fA-F']+|[0-9']+)", text)
    if digits is None:
        return []
    value = int(digits[0].replace("'", ""), 0)
    suffix = text[digits.end() :]
    values = [value + 1, value - 1, 0] + ([-value] if value else [])
    return [f"{changed}{suffix}" for changed in dict.fromkeys(values) if changed != value]


def floats(text: str) -> list[str]:
    """None, the other sign, and a value so close that only a test of the value itself notices."""
    number = text.rstrip("fFlL")
    value = float(number.replace("'", ""))
    if value == 0.0:
        return ["1.0"]
    return ["0.0", f"-{text}", f"({text} * 1.0001)"]


def characters(text: str) -> list[str]:
    """The neighbours in the character set, for a plain character of letters and digits."""
    match = re.fullmatch(r"'([0-9A-Za-z])'", text)
    return [f"'{chr(ord(match[1]) + step)}'" for step in (1, -1)] if match else []


def strings(text: str) -> list[str]:
    return [text[:-1] + '?"'] + (['""'] if text != '""' else [])


def booleans(text: str) -> list[str]:
    return ["false" if text == "true" else "true"]
