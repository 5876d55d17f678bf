#!/usr/bin/env python3
"""Tells which lines and branches the tests took in a build with --coverage; scripts/coverage runs it.

    scripts/coverage_report.py BUILD TRACE [--each]

Prints a table of each folder, and each line and branch that nothing took. `--each` also lists what single instantiations
of feecenter/'s templates did not take. Writes the same figures to TRACE, which gcovr reads. Fails when feecenter/ is not
taken whole, or when an entry of coverage_exceptions.txt is out of date.
"""

import argparse
import collections
import json
import pathlib
import subprocess
import sys

import coverage_sources

FOLDERS = ("feecenter", "standalone")
WHOLE = "feecenter"  # every line and branch of it is to be taken

_EXCEPTIONS = pathlib.Path(__file__).with_name("coverage_exceptions.txt")
_LONGEST_NAME = 160
_ROW = "{:<42} {:>5} {:>5} {:>6}   {:>5} {:>5} {:>6}"


def share(taken, there):
    return f"{100 * taken // there}%" if there else "-"


def figures(source):
    """Lines, lines that ran, branches, branches taken."""
    lines, decisions = source.whole()
    taken = [count for decision in decisions for count in decision.taken]
    return len(lines), sum(count > 0 for count in lines.values()), len(taken), sum(count > 0 for count in taken)


def print_row(name, numbers):
    lines, ran, branches, taken = numbers
    print(_ROW.format(name, lines, ran, share(ran, lines), branches, taken, share(taken, branches)))


def print_table(folder, sources):
    """Prints the table and says whether the folder is taken whole."""
    print(f"\n{folder}/")
    print(_ROW.format("file", "lines", "run", "", "ways", "taken", ""))
    total = [0, 0, 0, 0]
    for source in sources:
        numbers = figures(source)
        total = [a + b for a, b in zip(total, numbers)]
        print_row(source.name[len(folder) + 1:], numbers)
    print_row("together", total)
    return total[0] > 0 and total[0] == total[1] and total[2] == total[3]


def gaps(source, lines, decisions):
    """{line: what of it was not taken}"""
    found = {}
    ways = collections.Counter()
    missed = collections.Counter()
    for decision in decisions:
        ways[decision.line] += len(decision.taken)
        missed[decision.line] += decision.taken.count(0)
    for line, count in lines.items():
        if not count:
            found[line] = "not run"
        elif missed[line]:
            found[line] = f"{missed[line]} of {ways[line]} ways not taken"
    return found


def print_gaps(source):
    for line, what in sorted(gaps(source, *source.whole()).items()):
        print(f"{source.name}:{line}: {what}: {source.text[line].strip()}")


def print_gaps_of_instances(source):
    whole = gaps(source, *source.whole())
    for name, part in source.instances.items():
        found = {line: what for line, what in gaps(source, part.lines, part.all_decisions()).items()
                 if line not in whole}
        if found:
            demangled = subprocess.run(["c++filt", name], check=True, stdout=subprocess.PIPE, text=True).stdout.strip()
            print(f"{source.name}: {demangled.replace('qmservice::', '')[:_LONGEST_NAME]}")
            for line, what in sorted(found.items()):
                print(f"  {line}: {what}: {source.text[line].strip()}")


def apply_exceptions(sources):
    """Takes the listed branches out of the sources. The entries that fit no line with as many branches not taken."""
    stale = []
    for entry in _EXCEPTIONS.read_text().splitlines():
        if not entry or entry.startswith("#"):
            continue
        name, text, ways, _ = entry.split(" | ")
        taken_out = sources[name].take_out(text) if name in sources else 0
        if taken_out != int(ways):
            stale.append(f"{_EXCEPTIONS.name}: {taken_out} ways are not taken, not {ways}: {name}: {text}")
    return stale


def trace(sources):
    """The figures as gcovr's own interchange format."""
    files = []
    for source in sources.values():
        lines, decisions = source.whole()
        rows = {line: {"line_number": line, "count": count, "branches": [], "gcovr/excluded": False,
                       "gcovr/noncode": False}
                for line, count in sorted(lines.items())}
        for decision in decisions:
            rows[decision.line]["branches"] += [{"count": count, "fallthrough": False, "throw": False}
                                                for count in decision.taken]
        files.append({"file": source.name, "lines": list(rows.values()), "functions": []})
    return {"gcovr/format_version": "0.3", "files": files}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("trace", type=pathlib.Path)
    parser.add_argument("--each", action="store_true")
    asked = parser.parse_args()
    root = pathlib.Path(__file__).resolve().parent.parent
    sources = coverage_sources.read_build(root, asked.build.resolve(), FOLDERS)
    stale = apply_exceptions(sources)
    asked.trace.write_text(json.dumps(trace(sources)))

    whole = {}
    for folder in FOLDERS:
        inside = [source for name, source in sources.items() if name.startswith(folder + "/")]
        whole[folder] = print_table(folder, inside)
    print()
    for source in sources.values():
        print_gaps(source)
    if asked.each:
        print("\nNot taken in single instantiations, but in others:")
        for name, source in sources.items():
            if name.startswith(WHOLE + "/"):
                print_gaps_of_instances(source)
    for entry in stale:
        print(entry, file=sys.stderr)
    if not whole[WHOLE]:
        print(f"{WHOLE}/ has lines or branches that no test takes", file=sys.stderr)
    return 0 if whole[WHOLE] and not stale else 1


if __name__ == "__main__":
    sys.exit(main())
