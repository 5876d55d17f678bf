#!/usr/bin/env python3
"""Whether the copyright file of the market's package repeats the terms of every source for every file with facts of it.

    check_terms.py MARKET COPYRIGHT

Which file has facts of which source is the table of MARKET/SOURCES.md. It must name each file of the folder once, and each
source that the rest of SOURCES.md names. COPYRIGHT must name each file once and in full, in a paragraph that names the
file's sources; the project's own terms are given to files without a source alone.
"""

import pathlib
import re
import sys

INSTALLED = "usr/share/feecenter/market/"
OWN = "none-chosen"


def table_of(sources):
    """File by file the sources of its facts; a file that is named twice is there twice."""
    rows = re.findall(r"^\| (`[^|]*`) \| ([^|]*) \|$", sources.split("| files | sources |")[1].split("\n\n")[0], flags=re.M)
    return [(file, [] if names == "none" else names.split(", ")) for files, names in rows for file in re.findall(r"`([^`]+)`", files)]


def repositories(text):
    """What is called OWNER/NAME outside of code and addresses."""
    return set(re.findall(r"(?<![\w./-])[A-Za-z][\w-]*/[\w-]+(?![\w./]*/)", re.sub(r"`[^`]*`|https?://\S+", "", text)))


def paragraphs_of(copyright_text):
    """Installed file by file the paragraph that speaks of it."""
    found = []
    for paragraph in copyright_text.split("\n\n"):
        files = re.match(r"Files:((?: \S+\n?)+)", paragraph)
        found += [(file, paragraph) for file in (files.group(1).split() if files else []) if file != "*"]
    return found


def complaints(market, copyright_text):
    sources = (market / "SOURCES.md").read_text(encoding="utf-8")
    files = sorted(path.relative_to(market).as_posix() for path in market.rglob("*") if path.is_file())
    table = table_of(sources)
    if sorted(file for file, _ in table) != files:
        named = [file for file, _ in table]
        odd = sorted(set(named) ^ set(files)) or sorted(file for file in files if named.count(file) > 1)
        yield f"SOURCES.md: its table has to name each file of the folder once, and does not so with {odd}"
    named = {name for _, names in table for name in names}
    for missing in sorted(repositories(sources) - named):
        yield f"SOURCES.md: names {missing}, and its table has no file with facts of it"

    paragraphs = paragraphs_of(copyright_text)
    if sorted(file for file, _ in paragraphs) != sorted(INSTALLED + file for file in files):
        odd = sorted({file for file, _ in paragraphs} ^ {INSTALLED + file for file in files})
        yield f"the copyright file has to name each file of the market once, and does not so with {odd}"
    terms = dict(paragraphs)
    for file, names in table:
        paragraph = terms.get(INSTALLED + file, "")
        for name in names:
            if name not in " ".join(paragraph.split()):
                yield f"{file} has facts of {name}, of which its paragraph in the copyright file says nothing"
        if (OWN in paragraph) == bool(names):
            yield f"{file} is the project's own in one of SOURCES.md and the copyright file, and not in the other"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).read_text(encoding="utf-8")))
    print("\n".join(found))
    sys.exit(bool(found))


main()
