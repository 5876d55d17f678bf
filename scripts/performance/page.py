"""The tables of docs/performance.md: what stands between <!-- NAME --> and <!-- end NAME --> is made, the rest is kept."""

import re

from measured import CENTER, FLOOR


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|---|" + "---:|" * (len(head) - 1)]
    return "\n".join(lines + ["| " + " | ".join(map(str, row)) + " |" for row in rows])


def ratio(by):
    return by[CENTER] / by[FLOOR]


def beside(name, by, others=()):
    """A row: the fee center, the floor, their ratio, and the others, in nanoseconds."""
    return [name, f"{by[CENTER]:.0f}", f"{by[FLOOR]:.0f}", f"{ratio(by):.2f}", *(f"{by[other]:.0f}" for other in others)]


def replaced(text, blocks):
    for name, content in blocks.items():
        pattern = re.compile(rf"(<!-- {name} -->\n).*?(<!-- end {name} -->)", re.S)
        text, count = pattern.subn(lambda match: match[1] + content + "\n" + match[2], text)
        if count != 1:
            raise SystemExit(f"the page has {count} places for \"{name}\", and not one")
    return text
