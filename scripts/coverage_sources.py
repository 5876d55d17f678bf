"""What the tests took of each source file, from the graphs of all object files of a build.

Counted are the lines and the branches of the source, which leaves out what is the compiler's:
- the arcs that an exception takes, and the blocks that only an exception reaches: they undo what a half-run expression
  has built. The handlers that the source writes, `catch`, are kept; which of them an exception chooses is its arc;
- functions that stand nowhere in the source, such as an implicit copy constructor;
- the statement of a static local: its guard asks whether another thread is initialising it at this moment. A lambda
  inside it is counted.
An inline function is in many object files, of which the linker keeps one: the counts of all are added. So are those of
the instantiations of one template, decision by decision: a branch counts as taken where some instantiation takes it.
"""

import collections
import concurrent.futures
import os
import re

import coverage_graph


class Decision:
    """A place with more than one way on: its line, and how often each way was taken."""

    def __init__(self, line, taken):
        self.line = line
        self.taken = taken


class Part:
    """Lines and decisions of a function, of one instantiation or of all."""

    def __init__(self):
        self.lines = collections.Counter()
        self.decisions = {}  # {shape: [Decision]}; instantiations whose decisions differ in number stand side by side

    def add(self, lines, decisions):
        for line, count in lines.items():
            self.lines[line] += count
        shape = tuple((decision.line, len(decision.taken)) for decision in decisions)
        known = self.decisions.setdefault(shape, [Decision(line, [0] * ways) for line, ways in shape])
        for sums, decision in zip(known, decisions):
            sums.taken = [a + b for a, b in zip(sums.taken, decision.taken)]

    def all_decisions(self):
        return [decision for decisions in self.decisions.values() for decision in decisions]


class Source:
    def __init__(self, name, path):
        text = path.read_text()
        self.name = name
        self.text = [""] + text.splitlines()
        self._path = str(path)
        self._handlers = _handler_lines(text)
        self._statics = _static_statements(text)
        self.instances = collections.defaultdict(Part)    # {function with its template arguments: Part}
        self._definitions = collections.defaultdict(Part)  # {LINE:COLUMN: Part}

    def add(self, function):
        lines = collections.Counter()
        decisions = []
        for block in range(function.blocks):
            here = [line for file, line in function.lines[block] if file == self._path]
            if function.only_exceptions_reach(block):
                here = [line for line in here if line in self._handlers]
            for line in here:
                lines[line] = max(lines[line], function.runs(block))
            ways = [arc.count for arc in function.leaving(block) if not arc.fake and not arc.thrown]
            if here and len(ways) > 1 and not self._guards_static_local(here[-1], function):
                decisions.append(Decision(here[-1], ways))
        for part in (self.instances[function.name], self._definitions[function.start]):
            part.add(lines, decisions)

    def _guards_static_local(self, line, function):
        start = int(function.start.split(":")[0])
        return any(first <= line <= last and not first <= start <= last for first, last in self._statics)

    def take_out(self, text):
        """Forgets the branches that were not taken of each line with this text; how many they were."""
        for parts in (self.instances, self._definitions):
            taken_out = 0
            for decision in [decision for part in parts.values() for decision in part.all_decisions()]:
                if self.text[decision.line].strip() == text:
                    taken_out += decision.taken.count(0)
                    decision.taken = [count for count in decision.taken if count]
        return taken_out

    def whole(self):
        """All functions of the file together."""
        lines = collections.Counter()
        decisions = []
        for part in self._definitions.values():
            for line, count in part.lines.items():
                lines[line] += count
            decisions += part.all_decisions()
        return lines, sorted(decisions, key=lambda decision: decision.line)


def _line_at(text, position):
    return text.count("\n", 0, position) + 1


def _end_of(text, begin, last):
    """Where what begins here ends: the first `last` outside the braces that it opens."""
    depth = 0
    for end in range(begin, len(text)):
        depth += {"{": 1, "}": -1}.get(text[end], 0)
        if depth == 0 and text[end] == last:
            return end
    return len(text)


def _handler_lines(text):
    """The lines of the blocks after `catch`."""
    numbers = set()
    for found in re.finditer(r"\bcatch \(", text):
        begin = text.index("{", found.end())
        numbers.update(range(_line_at(text, begin) + 1, _line_at(text, _end_of(text, begin, "}"))))
    return numbers


def _static_statements(text):
    """First and last line of each statement, or definition of a function, that begins with `static`."""
    return [(_line_at(text, found.start(1)), _line_at(text, _end_of(text, found.start(1), ";")))
            for found in re.finditer(r"^ *(static)\b", text, re.MULTILINE)]


def read_build(root, build, folders):
    """The Sources below `folders` by name, from all object files of the build. The tests' are read as well: the linker may
    have kept their copy of an inline function. One that never ran is read where it is of the folders itself."""
    notes = [path for path in sorted(build.rglob("*.gcno"))
             if path.with_suffix(".gcda").exists() or path.relative_to(build).parts[0] in folders]
    sources = {}
    with concurrent.futures.ProcessPoolExecutor(os.cpu_count()) as workers:
        for functions in workers.map(_read_object, notes, [[str(root / folder) + "/" for folder in folders]] * len(notes)):
            for function in functions:
                name = os.path.relpath(function.file, root)
                if name not in sources:
                    sources[name] = Source(name, root / name)
                sources[name].add(function)
    return dict(sorted(sources.items()))


def _read_object(notes, folders):
    return [function for function in coverage_graph.read_functions(notes)
            if not function.implicit and function.file.startswith(tuple(folders))]
