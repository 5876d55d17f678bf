#!/usr/bin/env python3
"""Follows every link and picture of a built site, and names those that lead nowhere; scripts/site has it called.

    site_links.py FOLDER

Links to other sites are not followed, and doxygen's own sign is not read.
"""

import html.parser
import pathlib
import re
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """What a page links, and the places in it that can be linked."""

    def __init__(self, path):
        super().__init__()
        self.links = []
        self.places = set()
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "xlink:href", "src", "data") and value:
                self.links.append(value)
            elif name in ("id", "name") and value:
                self.places.add(value)


def leads_nowhere(pages, path, link):
    parts = urllib.parse.urlsplit(link)
    if parts.scheme or parts.netloc:
        return False
    target = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
    if not target.is_file():
        return True
    fragment = urllib.parse.unquote(parts.fragment)
    return bool(fragment) and target in pages and fragment not in pages[target].places


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    pages = {path: Page(path) for path in sorted(folder.rglob("*")) if re.search(r"\.(html|svg)$", path.name) and path.name != "doxygen.svg"}
    lost = [
        f"{path.relative_to(folder)}: the link to {link} leads nowhere"
        for path, page in pages.items()
        for link in dict.fromkeys(page.links)
        if leads_nowhere(pages, path, link)
    ]
    print("\n".join(lost))
    sys.exit(bool(lost))


main()
