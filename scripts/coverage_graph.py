"""Reads what a build with --coverage has counted: the blocks of each function, and how often each arc between them was
taken.

g++ writes the graph into NAME.gcno and the counts into NAME.gcda; gcov-dump, which comes with it, prints both. gcov
itself does not tell enough: which branches are inside blocks that only an exception reaches.
"""

import collections
import re
import subprocess

_FUNCTION = re.compile(r":FUNCTION ident=(\d+), [^`]*`(.+)' (/.+):(\d+:\d+)-\d+:\d+(, artificial)?$")
_BLOCKS = re.compile(r":BLOCKS (\d+) blocks$")
_ARCS = re.compile(r": +block (\d+):((?: \d+:[0-9a-f]{4}(?:\([a-z,]+\))?)+)$")
_ARC = re.compile(r" (\d+):([0-9a-f]{4})")
_LINES = re.compile(r": +block (\d+):(`.*)$")
_LINES_OF_FILE = re.compile(r"`([^']+)':([\d, ]+)")
_COUNTED = re.compile(r":FUNCTION ident=(\d+),")
_COUNTS = re.compile(r": +\d+:((?: \d+)+) ?$")

_STAMP = re.compile(r":stamp (\d+)$")

_ON_TREE, _FAKE, _FALL_THROUGH = 1, 2, 4
_ENTRY, _EXIT = 0, 1


class Arc:
    """`thrown` says that an exception takes it, `fake` that a call does not come back."""

    def __init__(self, source, target, flags):
        self.source = source
        self.target = target
        self.on_tree = bool(flags & _ON_TREE)
        self.fake = bool(flags & _FAKE)
        self.falls_through = bool(flags & _FALL_THROUGH)
        self.thrown = False
        self.count = None


class Function:
    """The graph of one function of one object file. `file` and `start`, as LINE:COLUMN, are where its definition begins;
    `implicit` says that it stands nowhere in the source, such as a copy constructor that the compiler makes."""

    def __init__(self, name, file, start, implicit):
        self.name = name
        self.file = file
        self.start = start
        self.implicit = implicit
        self.blocks = 0
        self.arcs = []
        self.lines = collections.defaultdict(list)  # {block: [(file, line)]}

    def leaving(self, block):
        return self._leaving[block]

    def runs(self, block):
        """How often the block ran."""
        return sum(arc.count for arc in (self._entering if block == _EXIT else self._leaving)[block])

    def finish(self, counts):
        """Joins the arcs to the graph and sets their counts. Only the arcs beside a spanning tree are counted while the
        program runs; what comes into a block leaves it, and that gives the others."""
        self._leaving = [[] for _ in range(self.blocks)]
        self._entering = [[] for _ in range(self.blocks)]
        for arc in self.arcs:
            self._leaving[arc.source].append(arc)
            self._entering[arc.target].append(arc)
        for leaving in self._leaving:
            if any(arc.fake for arc in leaving):
                # The block ends in a call that may not come back: its other ways out lead to what an exception runs.
                for arc in leaving:
                    arc.thrown = not arc.fake and not arc.falls_through
        counted = [arc for arc in self.arcs if not arc.on_tree]
        if counts is not None and len(counts) != len(counted):
            raise ValueError(f"{self.name}: {len(counted)} arcs, but {len(counts)} counts")
        for position, arc in enumerate(counted):
            arc.count = counts[position] if counts else 0
        self._solve()
        self._reached = self._reach()

    def only_exceptions_reach(self, block):
        return block not in self._reached

    def _solve(self):
        pending = set(range(self.blocks))
        while pending:
            solved = {block for block in pending if self._solve_block(block)}
            if not solved:
                raise ValueError(f"{self.name}: the counts do not determine all arcs")
            pending -= solved

    def _solve_block(self, block):
        """Fills in the one arc whose count follows from the others'; whether all arcs of the block are known."""
        ways = [self._entering[block], self._leaving[block]]
        unknown = [arc for side in ways for arc in side if arc.count is None]
        if len(unknown) == 1 and block not in (_ENTRY, _EXIT):
            sums = [sum(arc.count or 0 for arc in side) for side in ways]
            unknown[0].count = abs(sums[0] - sums[1])
            unknown = []
        return not unknown

    def _reach(self):
        reached = {_ENTRY}
        waiting = [_ENTRY]
        while waiting:
            for arc in self._leaving[waiting.pop()]:
                if not arc.fake and not arc.thrown and arc.target not in reached:
                    reached.add(arc.target)
                    waiting.append(arc.target)
        return reached


def _dump(path):
    return subprocess.run(["gcov-dump", "--long", path.name], check=True, stdout=subprocess.PIPE, text=True,
                          cwd=path.parent).stdout.splitlines()


def _stamp(rows):
    return next(found[1] for row in rows if (found := _STAMP.search(row)))


def _read_counts(path, stamp):
    """{function's number: [counts]}; nothing when the object file never ran. The stamp tells one build from another."""
    counts = {}
    if not path.exists():
        return counts
    rows = _dump(path)
    if _stamp(rows) != stamp:
        raise ValueError(f"{path} was counted by another build of the object file; build and run all again")
    for row in rows:
        if found := _COUNTED.search(row):
            current = counts.setdefault(int(found[1]), [])
        elif found := _COUNTS.search(row):
            current.extend(int(count) for count in found[1].split())
    return counts


def read_functions(notes):
    """The functions of one object file, from its .gcno and the .gcda beside it."""
    functions = {}
    rows = _dump(notes)
    for row in rows:
        if found := _FUNCTION.search(row):
            function = functions[int(found[1])] = Function(found[2], found[3], found[4], bool(found[5]))
        elif found := _BLOCKS.search(row):
            function.blocks = int(found[1])
        elif found := _LINES.search(row):
            for file, numbers in _LINES_OF_FILE.findall(found[2]):
                function.lines[int(found[1])] += [(file, int(number)) for number in numbers.split(",") if number.strip()]
        elif found := _ARCS.search(row):
            function.arcs += [Arc(int(found[1]), int(target), int(flags, 16)) for target, flags in _ARC.findall(found[2])]
    counts = _read_counts(notes.with_suffix(".gcda"), _stamp(rows))
    for number, function in functions.items():
        function.finish(counts.get(number) or None)
    return list(functions.values())
