#!/usr/bin/env python3
"""Makes the page and the plots of what scripts/bench measured, and prints the ratios.

    scripts/performance/report.py RESULTS [PAGE PLOTS]
"""

import argparse
import pathlib
import platform
import re
import subprocess

import measured
import page
import plots
from goals import goals_table
from measured import CENTER, FLOOR

USUAL = "1x5000"
SHARES = {0.5: "50th", 0.99: "99th", 0.999: "99.9th"}


def usual_cases(results, threads):
    return {case.mix: by for case, by in results.lookups.items() if case.shape == USUAL and case.threads == threads}


def lookups_table(results):
    others = [name for name in results.implementations if name not in (CENTER, FLOOR)]
    rows = [page.beside(mix, by, others) for mix, by in usual_cases(results, 1).items()]
    return page.table(["ns for a lookup", CENTER, FLOOR, "ratio", *others], rows)


def threads_table(results):
    one, two, four = (usual_cases(results, threads) for threads in (1, 2, 4))
    sides = (one, two, four)
    rows = [[mix, *(f"{page.ratio(by[mix]):.2f}" for by in sides), *(f"{1e3 / by[mix][CENTER]:.2f}" for by in sides)] for mix in four]
    head = [f"{threads} thread{'s' if threads > 1 else ''}" for threads in (1, 2, 4)]
    return page.table(["hits", *(f"{text}, ratio to the floor" for text in head), *(f"{text}, million a second" for text in head)], rows)


def shape_title(case):
    accounts, each = map(int, case.shape.split("x"))
    return f"{case.entries:,} entries, {accounts:,} account{'s' if accounts > 1 else ''} of {each:,}"


def sized(results):
    cases = [case for case in results.lookups if case.mix == "stock hit" and case.threads == 1]
    return sorted(cases, key=lambda case: case.entries)


def sizes_table(results):
    others = [name for name in results.implementations if name not in (CENTER, FLOOR)]
    usual = results.lookups[measured.Case("stock hit", USUAL)][CENTER]
    rows = []
    for case in sized(results):
        by = results.lookups[case]
        rows.append([*page.beside(shape_title(case), by, others), f"{by[CENTER] / usual:.2f}"])
    return page.table(["ns for a stock hit", CENTER, FLOOR, "ratio", *others, "times that of 5,000"], rows)


def parts_table(results):
    return page.table(["part of a lookup", "ns"], [[name, f"{by['ns']:.0f}"] for name, by in results.parts.items()])


def bulks_table(results):
    rows = [page.beside(name, by) for name, by in results.bulks.items()]
    return page.table(["ns for an entry", CENTER, FLOOR, "ratio"], rows)


def under_load_table(results):
    names = list(results.under_load[0.5])
    rows = []
    for share, title in SHARES.items():
        by = results.under_load[share]
        rows.append([title, *(f"{by[name]:.0f}" for name in names), f"{page.ratio(by):.2f}"])
    return page.table(["percentile, ns", *names, "ratio to the floor"], rows)


def instructions_table(results):
    rows = [[mix, f"{by[CENTER]:,}", f"{by[FLOOR]:,}", f"{page.ratio(by):.3f}"] for mix, by in results.instructions.items()]
    return page.table(["instructions a call, or an entry", CENTER, FLOOR, "ratio"], rows)


def memory_table(results):
    forms = {"entries": ",.0f", "accounts": ",.0f", "bytes per entry": ".1f", "seconds": ".2f", "peak": ",.0f"}
    rows = [[format(float(row[name]), form) for name, form in forms.items()] for row in results.memory]
    return page.table(["entries", "accounts", "bytes for an entry", "seconds to load", "MiB of the process at most"], rows)


def machine(results):
    """What the figures depend on."""

    def first_line(*command):
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()[0]

    info = pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8")
    model = re.search(r"^model name\s*: (.*)$", info, re.M)
    context = results.compiler_context
    boost = context["boost"].replace("_", ".")
    return (
        f"Measured on {context['date'][:10]}: {model[1] if model else platform.machine()}, {context['num_cpus']} processors that "
        f"other work shared, Linux {platform.release().split('-')[0]}, {first_line('g++', '--version')}, `-O3`, Boost {boost}."
    )


def draw(results, folder):
    names = results.implementations
    usual = usual_cases(results, 1)
    plots.bars(folder / "mixes.svg", "A lookup, by mix", "ns", names, [[mix, *(by[name] for name in names)] for mix, by in usual.items()])

    by_threads = {case.threads: by for case, by in results.lookups.items() if case.mix == "stock hit" and case.shape == USUAL}
    rows = [[threads, *(1e3 / by_threads[threads][name] for name in names)] for threads in sorted(by_threads)]
    plots.lines(folder / "threads.svg", "Stock hits of all threads together", "threads", "million a second", names, rows, "set xtics 1\nset yrange [0:]")

    largest = [case for case in sized(results) if case.shape in (USUAL, "1x50000", "100x10000")]
    rows = [[case.entries, *(results.lookups[case][name] for name in names)] for case in largest]
    plots.lines(folder / "sizes.svg", "A stock hit, by entries of the tables", "entries", "ns", names, rows, "set logscale x\nset yrange [0:]")

    loaded = list(results.under_load[0.5])
    rows = [[1 / (1 - share), *(by[name] for name in loaded)] for share, by in sorted(results.under_load.items())]
    plots.lines(
        folder / "under_load.svg", "A stock hit while 50,000 records are loaded", "slowest of so many", "ns", loaded, rows, "set logscale xy"
    )


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("results", type=pathlib.Path)
    for name in ("page", "plots"):
        parser.add_argument(name, type=pathlib.Path, nargs="?")
    arguments = parser.parse_args()
    results = measured.read(arguments.results)
    blocks = {
        "machine": machine(results),
        "goals": goals_table(results),
        "instructions": instructions_table(results),
        "lookups": lookups_table(results),
        "threads": threads_table(results),
        "parts": parts_table(results),
        "sizes": sizes_table(results),
        "entries": bulks_table(results),
        "under load": under_load_table(results),
        "memory": memory_table(results),
    }
    if arguments.plots:
        text = page.replaced(arguments.page.read_text(encoding="utf-8"), blocks)
        arguments.plots.mkdir(parents=True, exist_ok=True)
        draw(results, arguments.plots)
        arguments.page.write_text(text, encoding="utf-8")
    print("\n\n".join(blocks.values()))


if __name__ == "__main__":
    main()
