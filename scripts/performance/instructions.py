#!/usr/bin/env python3
"""Instructions per call, as callgrind counted them in the parts that `fee_bench --instructions` makes; scripts/bench asks.

    scripts/performance/instructions.py FOLDER                  prints them as CSV: mix, fee center, floor
    scripts/performance/instructions.py --compare OLD NEW       compares two such files

--compare names each figure that is more than 3 % away and ends with 1 when there is one.
"""

import argparse
import csv
import pathlib
import re
import sys

TOLERANCE = 0.03
IMPLEMENTATIONS = ("fee center", "floor")

_PART = re.compile(rb"^desc: Trigger: Client Request: ([^/\n]+)/([^/\n]+)/(\d+)$", re.M)
_TOTAL = re.compile(rb"^(?:summary|totals): (\d+)", re.M)


def counted(folder):
    """Instructions per call by mix and implementation, in the order in which they were counted."""
    counts = {}
    for path in sorted(folder.glob("out.*"), key=lambda path: int(path.suffix[1:])):
        part, total = (pattern.search(path.read_bytes()) for pattern in (_PART, _TOTAL))
        if part and total:
            mix, implementation, calls = (text.decode() for text in part.groups())
            counts.setdefault(mix, {})[implementation] = round(int(total[1]) / int(calls))
    if not counts:
        sys.exit(f"{folder} has no parts that callgrind counted")
    return counts


def write(counts, file):
    writer = csv.writer(file, lineterminator="\n")
    writer.writerow(("mix", *IMPLEMENTATIONS))
    writer.writerows((mix, *(by[name] for name in IMPLEMENTATIONS)) for mix, by in counts.items())


def read(path):
    with open(path, encoding="utf-8", newline="") as file:
        return {row["mix"]: {name: int(row[name]) for name in IMPLEMENTATIONS} for row in csv.DictReader(file)}


def differences(old, new):
    """A sentence for each figure that went too far away, or is in one file only."""
    for mix in {**old, **new}:
        if mix not in old or mix not in new:
            yield f"{mix}: only in the {'new' if mix in new else 'committed'} figures"
            continue
        for name in IMPLEMENTATIONS:
            before, after = old[mix][name], new[mix][name]
            if abs(after - before) > TOLERANCE * before:
                yield f"{mix}, {name}: {before} instructions a call are committed, {after} were counted ({after / before - 1:+.1%})"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--compare", nargs=2, type=pathlib.Path, metavar=("OLD", "NEW"))
    parser.add_argument("folder", nargs="?", type=pathlib.Path)
    arguments = parser.parse_args()
    if arguments.compare:
        old, new = map(read, arguments.compare)
        found = list(differences(old, new))
        print("\n".join(found) or f"{len(new)} mixes take as many instructions as is committed, to {TOLERANCE:.0%}")
        return 1 if found else 0
    if not arguments.folder:
        parser.error("a folder was expected")
    write(counted(arguments.folder), sys.stdout)
    return 0


if __name__ == "__main__":
    sys.exit(main())
