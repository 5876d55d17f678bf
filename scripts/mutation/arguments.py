"""The command line of scripts/mutate. It is read before anything is installed, so it needs Python alone."""

import argparse
import sys
from typing import NoReturn

DESCRIPTION = """Changes one operator, constant, field or statement of feecenter/ at a time, how long a lock is held, what
is kept for the next call, or which step comes first; builds the library, runs the fast tests, and lists the changes that
no test noticed."""

EPILOG = """A run that is interrupted goes on where it was. Results are kept in build/mutate/results.jsonl; those of a
file are dropped when the file changes. Changes that no test can notice are listed, with why, in
scripts/mutation/equivalent.toml. The exit status is 0 when every other change was noticed, 1 when one was not or was
not tried, 2 when nothing could be run."""


class Parser(argparse.ArgumentParser):
    def error(self, message: str) -> NoReturn:
        print(f"{self.prog}: {message}", file=sys.stderr)
        self.print_usage(sys.stderr)
        sys.exit(2)


def parse(given: list[str]) -> argparse.Namespace:
    parser = Parser(prog="scripts/mutate", description=DESCRIPTION, epilog=EPILOG, allow_abbrev=False)
    parser.add_argument("--list", action="store_true", help="print the changes and try none; works during a run")
    parser.add_argument("--file", metavar="PATTERN", help="only files whose name matches, such as 'future_*'")
    parser.add_argument("--kind", metavar="PATTERN", help="only changes of this kind, such as 'lock *' or static")
    parser.add_argument("--only", metavar="ID", action="append", help="only this change, tried anew; may be repeated")
    parser.add_argument("--alone", action="store_true",
                        help="run every test on each change, also behind the first that notices it, and print the "
                             "changes that one test alone notices, by test")  # fmt: skip
    parser.add_argument("--survivors", action="store_true", help="try the survivors anew: for changed tests")
    parser.add_argument("--jobs", metavar="N", type=int, default=2, help="changes tried at the same time (default: 2)")
    parser.add_argument("--timeout", metavar="SECONDS", type=float, default=20.0,
                        help="a test program that runs for longer, and five times longer than without a change, counts "
                             "as having noticed (default: 20)")  # fmt: skip
    options = parser.parse_args(given)
    if options.jobs < 1:
        parser.error("--jobs takes a number of 1 or more")
    if options.timeout <= 0:
        parser.error("--timeout takes a number of seconds above 0")
    return options
