"""What the fee center is to keep to, and whether it did."""

from measured import CENTER, Case
from page import ratio, table

_USUAL = "1x5000"


def _largest(cases):
    """The largest value and whose it is, of pairs of name and value."""
    name, value = max(cases, key=lambda case: case[1])
    return value, name


def _hits(results, threads):
    return [
        (case.mix, ratio(by))
        for case, by in results.lookups.items()
        if case.shape == _USUAL and case.threads == threads and "hit" in case.mix
    ]


def _bulks(results, work):
    return [(name, ratio(by)) for name, by in results.bulks.items() if name.endswith(work)]


def _growth(results):
    """How much longer a stock hit takes in 1 million entries than in 5 thousand."""
    large, usual = (results.lookups[Case("stock hit", shape)][CENTER] for shape in ("100x10000", _USUAL))
    return large / usual, ""


def _bytes(results):
    return float(next(row for row in results.memory if row["entries"] == "1000000")["bytes per entry"]), ""


def _peak(results):
    return float(next(row for row in results.memory if row["entries"] == "10000000")["peak"]), ""


# What is looked at, the most that it may be, and how it is found: its value, and what has it.
_GOALS = [
    ("Instructions of a hit, of the floor's", 1.08, lambda r: _largest([(m, ratio(by)) for m, by in r.instructions.items() if "hit" in m])),
    ("Time of a hit, 1 thread, of the floor's", 1.05, lambda r: _largest(_hits(r, 1))),
    ("The same, 2 threads", 1.05, lambda r: _largest(_hits(r, 2))),
    ("The same, 4 threads", 1.05, lambda r: _largest(_hits(r, 4))),
    ("Load for each record, of the floor's", 1.05, lambda r: _largest(_bulks(r, "load"))),
    ("List for each entry, of the floor's", 1.05, lambda r: _largest(_bulks(r, "list"))),
    ("Custom fee for each instrument, of the floor's", 1.05, lambda r: _largest(_bulks(r, "update"))),
    ("A stock hit in 1 million entries, times that in 5,000", 3, _growth),
    ("Bytes for each of 1 million entries in 100 accounts", 56, _bytes),
    ("MiB of the process with 10 million entries in 1,000 accounts", 1024, _peak),
    ("99th percentile while a load runs, of the floor's", 1.1, lambda r: (ratio(r.under_load[0.99]), "")),
    ("99.9th percentile while a load runs, of the floor's", 1.1, lambda r: (ratio(r.under_load[0.999]), "")),
]


def goals_table(results):
    rows = []
    for what, most, find in _GOALS:
        value, whose = find(results)
        measured = (f"{value:,.0f}" if value >= 100 else f"{value:.1f}" if value >= 10 else f"{value:.3f}") + (f" ({whose})" if whose else "")
        rows.append([what, most, measured, "yes" if value <= most else "**no**"])
    return table(["goal", "at most", "measured (the largest)", "met"], rows)
