#!/usr/bin/env python3
"""Prints a table of each folder, and each line and branch that no test took; scripts/coverage runs it.

    scripts/lib/coverage_gaps.py BRANCHES LINES

Reads what llvm-cov exports as JSON and as lcov. The counts of all instantiations of a template are added. Fails when
feecenter/ is not taken whole.
"""

import collections
import json
import pathlib
import sys

WHOLE = "feecenter"  # every line and branch of it is to be taken

_ROOT = pathlib.Path(__file__).resolve().parents[2]
_ROW = "{:<42} {:>5} {:>5} {:>6}   {:>5} {:>5} {:>6}"


class Source:
    def __init__(self):
        self.lines = {}
        self.ways = collections.Counter()  # {(line, ..., which of the two ways): how often}

    def figures(self):
        taken = sum(count > 0 for count in self.ways.values())
        return len(self.lines), sum(count > 0 for count in self.lines.values()), len(self.ways), taken

    def gaps(self):
        """(line, what of it was not taken)"""
        missed = collections.Counter(way[0] for way, count in self.ways.items() if not count)
        for line, count in sorted(self.lines.items()):
            if not count:
                yield line, "not run"
            elif missed[line]:
                yield line, f"{missed[line]} of {sum(way[0] == line for way in self.ways)} ways not taken"


def text_of(name):
    """The file's lines, the first one at 1."""
    return ["", *(line.strip() for line in (_ROOT / name).read_text().splitlines())]


def read(branches, lines):
    """{path from the project's folder: Source}"""
    sources = collections.defaultdict(Source)
    for file in json.loads(branches.read_text())["data"][0]["files"]:
        name = str(pathlib.Path(file["filename"]).relative_to(_ROOT))
        text = text_of(name)
        for *place, taken, not_taken, _file, _expanded, _kind in file["branches"]:
            if "if constexpr" not in text[place[0]]:  # the compiler chose, and counted neither
                sources[name].ways[(*place, True)] += taken
                sources[name].ways[(*place, False)] += not_taken
    for row in lines.read_text().splitlines():
        key, _, value = row.partition(":")
        if key == "SF":
            source = sources[str(pathlib.Path(value).relative_to(_ROOT))]
        elif key == "DA":
            line, count = value.split(",")[:2]
            source.lines[int(line)] = int(count)
    return dict(sorted(sources.items()))


def share(taken, there):
    return f"{100 * taken // there}%" if there else "-"


def print_row(name, lines, ran, ways, taken):
    print(_ROW.format(name, lines, ran, share(ran, lines), ways, taken, share(taken, ways)))


def print_table(folder, sources):
    print(f"\n{folder}/")
    print(_ROW.format("file", "lines", "run", "", "ways", "taken", ""))
    for name, source in sources.items():
        print_row(name[len(folder) + 1:], *source.figures())
    print_row("together", *map(sum, zip(*(source.figures() for source in sources.values()))))


def main():
    sources = read(*map(pathlib.Path, sys.argv[1:]))
    for folder in sorted({name.split("/")[0] for name in sources}):
        print_table(folder, {name: source for name, source in sources.items() if name.startswith(folder + "/")})
    print()
    whole = any(name.startswith(WHOLE + "/") for name in sources)
    for name, source in sources.items():
        text = text_of(name)
        for line, what in source.gaps():
            print(f"{name}:{line}: {what}: {text[line]}")
            whole = whole and not name.startswith(WHOLE + "/")
    if not whole:
        print(f"{WHOLE}/ has lines or branches that no test takes", file=sys.stderr)
    return 0 if whole else 1


sys.exit(main())
