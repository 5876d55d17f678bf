#!/usr/bin/env python3
"""What doxygen reads in the place of a file; scripts/site has it called.

    site_filter.py FILE

A page: headings get the names that its links use, with the page's own name before them, for doxygen knows one list of
names for all pages; links to headings follow. A header: copying, assigning and default constructors that the compiler
makes are left out, for there is nothing to say of them.
"""

import pathlib
import re
import sys


def page_name(path):
    return re.sub(r"[^a-z0-9]+", "-", path.lower().removesuffix(".md")).strip("-")


def anchor(heading):
    """As the sites that show Markdown make it."""
    plain = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).replace("`", "").strip().lower()
    return re.sub(r"[^\w\- ]", "", plain).replace(" ", "-")


def code(match):
    """Doxygen reads `a'b` as a quotation, no code over the end of a line, and looks for the end of a quote in it."""
    inside = match.group(1).replace("\n", " ")
    if inside.count('"') % 2:
        return "<code>" + inside.replace('"', "&quot;") + "</code>"
    return f"``{inside}``" if "'" in inside else f"`{inside}`"


def page(path, text):
    here = page_name(path.as_posix())

    def link(match):
        target, heading = match.group(1), match.group(2)
        name = page_name((path.parent / target).resolve().relative_to(pathlib.Path.cwd()).as_posix()) if target else here
        return f"](@ref {name}-{heading})"

    lines = []
    fenced = False
    blocks = re.split(r"(^```.*?^```$)", text, flags=re.M | re.S)
    blocks[::2] = [re.sub(r"(?<!`)`((?:[^`\n]|\n(?!\n))+)`(?!`)", code, block) for block in blocks[::2]]
    for line in "".join(blocks).splitlines():
        if line.startswith("```"):
            fenced = not fenced
            # The name of a sample is the tests' own, and a diff or console is plain text.
            line = "```cpp" if line.startswith("```cpp") else line[:3]
        elif not fenced:
            line = re.sub(r"\]\(([\w./-]*)#([^)]+)\)", link, line)
            # What the site does not have is named and not linked.
            line = re.sub(r"\[([^\]]*)\]\((?:\.\./)*(examples|tests|fuzz|market)\b[\w./-]*\)", r"\1", line)
            heading = re.match(r"(#+) (.*)", line)
            if heading:
                title = heading.group(2)
                name = here if heading.group(1) == "#" else f"{here}-{anchor(title)}"
                line = f"{heading.group(1)} {title} {{#{name}}}"
        lines.append(line)
    return "\n".join(lines) + "\n"


def header(text):
    # The lines stay, so that doxygen's numbers are those of the file.
    text = re.sub(r"^private:\n.*?(?=^(?:public|protected):|^};)", lambda found: "\n" * found.group().count("\n"), text, flags=re.M | re.S)
    return re.sub(r"^ *(?:virtual )?~?[\w&:,<> ]*(?:operator=)?\([^()]*\)(?: override)? = (?:default|delete);$", "", text, flags=re.M)


def main():
    path = pathlib.Path(sys.argv[1])
    path = path.resolve().relative_to(pathlib.Path.cwd())
    text = path.read_text(encoding="utf-8")
    sys.stdout.write(page(path, text) if path.suffix == ".md" else header(text))


main()
