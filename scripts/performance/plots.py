"""The plots of docs/performance.md, drawn by gnuplot."""

import subprocess

_HEAD = """
set terminal svg size {width},480 font "sans-serif,12" background "white" noenhanced
set rmargin 8
set output "{output}"
set title "{title}"
set ylabel "{ylabel}"
set key top left
set grid ytics lc rgb "#dddddd"
"""


def _quoted(value):
    """A label in quotes; a number as it is."""
    return '"' + value.replace('"', "'") + '"' if isinstance(value, str) else f"{value:.8g}"


def _block(columns, rows):
    """A table for gnuplot: the first column is a label or a number."""
    lines = [" ".join(map(_quoted, ["x", *columns]))]
    lines += [" ".join([_quoted(row[0]), *(f"{value:.6g}" if value is not None else "?" for value in row[1:])]) for row in rows]
    return "$data << EOD\n" + "\n".join(lines) + "\nEOD\n"


def _draw(output, title, ylabel, columns, rows, commands, width=900):
    head = _HEAD.format(output=output, title=title, ylabel=ylabel, width=width)
    subprocess.run(["gnuplot"], input=head + _block(columns, rows) + commands, text=True, check=True)


def bars(output, title, ylabel, columns, rows):
    """A group of bars for each row."""
    plot = ", ".join(f"$data using {n + 2}:xtic(1) title columnheader({n + 2})" for n in range(len(columns)))
    style = "set style data histogram\nset style fill solid 0.9\nset xtics rotate by -40\nset yrange [0:]\nset datafile missing '?'\n"
    _draw(output, title, ylabel, columns, rows, style + "plot " + plot + "\n", width=1200)


def lines(output, title, xlabel, ylabel, columns, rows, axes=""):
    """A line for each column over the first of the row."""
    plot = ", ".join(f"$data using 1:{n + 2} with linespoints lw 2 title columnheader({n + 2})" for n in range(len(columns)))
    style = f"set style data linespoints\nset datafile missing '?'\nset xlabel \"{xlabel}\"\n{axes}\n"
    _draw(output, title, ylabel, columns, rows, style + "plot " + plot + "\n")
