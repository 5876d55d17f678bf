"""Builds the library with one change in it. The work tree is copied first and never written."""

import json
import re
import shlex
import shutil
import subprocess
from collections.abc import Iterator
from dataclasses import dataclass
from pathlib import Path

from mutation.mutant import Mutant

DIRECTORY = "feecenter"
# Halves the time that a mutant takes to compile.
PRECOMPILED_TEMPLATES = "-fpch-instantiate-templates"
# What C++ leaves undefined and the processor happens to do right counts as noticed.
CHECKS = ["-D_GLIBCXX_ASSERTIONS", "-fsanitize=float-cast-overflow", "-fsanitize-trap=float-cast-overflow"]
OBJECT = re.compile(r"\S*feecenter_objects\.dir/(\w+\.cpp)\.o")
SKIPPED = {"build", ".git"}


class BuildError(RuntimeError):
    pass


def run(command: list[str], directory: Path) -> str:
    done = subprocess.run(command, cwd=directory, capture_output=True, text=True, check=False)
    if done.returncode:
        raise BuildError(f"{shlex.join(command)[:300]}\n{done.stdout[-4000:]}{done.stderr[-4000:]}")
    return done.stdout


def copy_changed(source: Path, target: Path) -> None:
    """Makes target a copy of source. Files that are the same keep their time, so that little is built again."""
    names = {entry.name for entry in source.iterdir()} - SKIPPED
    target.mkdir(parents=True, exist_ok=True)
    for old in target.iterdir():
        if old.name not in names:
            shutil.rmtree(old) if old.is_dir() else old.unlink()
    for name in names:
        new, old = source / name, target / name
        if new.is_dir():
            copy_changed(new, old)
        elif not old.exists() or old.read_bytes() != new.read_bytes():
            shutil.copyfile(new, old)
            old.chmod(new.stat().st_mode)


@dataclass(frozen=True)
class TestUnit:
    """A source of a test program that includes headers of the library by itself, and is compiled anew with them."""

    object: str  # where the program's link command finds it
    command: list[str]
    directory: Path
    headers: set[str]

    def compile_command(self, include: Path, target: Path) -> list[str]:
        compiler, *words = self.command
        return [compiler, f"-I{include}", *(str(target) if word == self.object else word for word in words)]


class Base:
    """A copy of the sources, built once: the test programs, and each object of the library as it is."""

    def __init__(self, project: Path, place: Path, programs: list[str]):
        self.place = place
        self._links: dict[Path, str] = {}
        self.sources = place / "sources"
        self.build = place / "base"
        self.programs = programs
        self.unit = place / "unit.cpp"
        self._header = place / "precompiled.h"
        copy_changed(project, self.sources)
        self._configure()

    def _configure(self) -> None:
        # No debug information, no optimisation: a mutant is compiled in half a second. A program finds the library by
        # LD_LIBRARY_PATH before the path that is written in it.
        options = {
            "CMAKE_BUILD_TYPE": "Debug", "CMAKE_CXX_COMPILER": "clang++",
            "CMAKE_CXX_FLAGS_DEBUG": "-O0 -DHISTORIES_ANSWERS=20000",  # of the random histories, a short run
            "CMAKE_EXE_LINKER_FLAGS": "-fuse-ld=lld -Wl,--enable-new-dtags",
            "CMAKE_SHARED_LINKER_FLAGS": "-fuse-ld=lld", "FEECENTER_WERROR": "OFF",
        }  # fmt: skip
        settings = [f"-D{name}={value}" for name, value in options.items()]
        run(["cmake", "-S", str(self.sources), "-B", str(self.build), "-G", "Ninja", *settings], self.place)
        commands = json.loads((self.build / "compile_commands.json").read_text())
        entry = next(command for command in commands if command["file"].endswith(f"/{DIRECTORY}/entry.cpp"))
        words = shlex.split(entry["command"])
        flags = words[1 : words.index("-o")] if "-o" in words else words[1:]
        self.flags = [flag for flag in flags if not flag.startswith("-W") and not flag.endswith("clang++")]
        self.flags += CHECKS
        self.test_units = list(self._find_test_units(commands))

        files = sorted((self.sources / DIRECTORY).glob("*.cpp"))
        self.unit.write_text("".join(f'#include "{DIRECTORY}/{file.name}"\n' for file in files))

    def _find_test_units(self, commands: list[dict[str, str]]) -> Iterator[TestUnit]:
        for entry in commands:
            words = shlex.split(entry["command"])
            target = words[words.index("-o") + 1]
            if any(f"/{program}.dir/" in target for program in self.programs):
                headers = set(re.findall(rf'^#include "({DIRECTORY}/\S+)"', Path(entry["file"]).read_text(), re.M))
                if headers:
                    yield TestUnit(target, words, Path(entry["directory"]), headers)

    def make(self) -> None:
        run(["ninja", "-C", str(self.build), "feecenter", *self.programs], self.place)
        includes: set[str] = set()
        for file in (self.sources / DIRECTORY).iterdir():
            includes.update(re.findall(r"^#include .+$", file.read_text(), re.M))
        outside = sorted(line for line in includes if f'"{DIRECTORY}/' not in line)
        self._header.write_text("\n".join(outside) + "\n")
        header = [PRECOMPILED_TEMPLATES, "-x", "c++-header", str(self._header), "-o", f"{self._header}.pch"]
        run(["clang++", *self.flags, *header], self.place)

    def compile_command(self, include: Path, source: Path, target: Path) -> list[str]:
        """Headers of the library are taken from `include`."""
        precompiled = [PRECOMPILED_TEMPLATES, "-include-pch", f"{self._header}.pch"]
        return ["clang++", f"-I{include}", *self.flags, "-w", *precompiled, "-c", str(source), "-o", str(target)]

    def link_command(self, output: Path) -> str:
        """Without what follows the linking, such as asking a test program for its tests."""
        if output not in self._links:
            query = ["ninja", "-C", str(self.build), "-t", "commands", "-s", str(output.relative_to(self.build))]
            self._links[output] = run(query, self.place).partition("&& cd ")[0].removesuffix("&& :\n") + " && :"
        return self._links[output]

    def program(self, name: str) -> Path:
        return next(file for file in self.build.glob(f"tests/**/{name}") if file.is_file())

    def library(self) -> Path:
        return next(self.build.glob(f"{DIRECTORY}/libfeecenter.so.*.*"))

    def library_name(self) -> str:
        """The one that a program asks for: its link is beside the library."""
        return next(link.name for link in self.library().parent.glob("libfeecenter.so.*") if link.is_symlink())


class Worker:
    """One place where one mutant at a time is built, next to the base."""

    def __init__(self, base: Base, number: int):
        self._base = base
        self._place = base.place / f"worker-{number}"
        self.libraries = self._place / "lib"
        self._object = self._place / "mutant.o"
        self._mutated: str | None = None
        self._test_objects: dict[str, Path] = {}  # those of the base that stand aside, and what takes their places
        copy_changed(base.sources / DIRECTORY, self._place / DIRECTORY)
        self.libraries.mkdir(exist_ok=True)

    def build(self, mutant: Mutant | None, whole: bool = False) -> bool:
        """The library with the change in it; False when it does not compile. A changed header is compiled together with
        all sources in one go, as is everything where `whole` is set, and with it what tests include of it."""
        file = mutant.file if mutant else f"{DIRECTORY}/entry.cpp"
        original = (self._base.sources / file).read_bytes()
        self._mutated = None if whole or file.endswith(".h") else Path(file).name
        (self._place / file).write_bytes(mutant.applied_to(original) if mutant else original)
        compiled = self._compile_library(file) and self._compile_test_units(file, whole)
        (self._place / file).write_bytes(original)
        return compiled and self._link(self._base.library(), self.libraries / self._base.library_name())

    def _compile_library(self, file: str) -> bool:
        source = self._place / file if self._mutated else self._base.unit
        command = self._base.compile_command(self._place, source, self._object)
        return subprocess.run(command, capture_output=True, check=False).returncode == 0

    def _compile_test_units(self, file: str, whole: bool) -> bool:
        self._test_objects = {}
        for unit in self._base.test_units:
            if whole or file in unit.headers:
                target = self._place / Path(unit.object).name
                command = unit.compile_command(self._place, target)
                if subprocess.run(command, cwd=unit.directory, capture_output=True, check=False).returncode:
                    return False
                self._test_objects[unit.object] = target
        return True

    def program(self, name: str, takes_objects: bool) -> Path | None:
        """The test program; None where it does not link. One that takes the library's objects is linked anew, and so is
        one with a unit that was compiled anew."""
        built = self._base.program(name)
        if not takes_objects and not any(f"/{name}.dir/" in one for one in self._test_objects):
            return built
        target = self._place / name
        return target if self._link(built, target) else None

    def _link(self, built: Path, result: Path) -> bool:
        """As `built` was linked, with the mutant in place of the object of its source, or of all objects, and with the
        test units that were compiled anew."""
        command = self._base.link_command(built)
        objects = list(OBJECT.finditer(command))
        if self._mutated is None and objects:
            command = f"{command[: objects[0].start()]}{self._object}{command[objects[-1].end() :]}"
        else:
            command = OBJECT.sub(lambda one: str(self._object) if one[1] == self._mutated else one[0], command)
        for old, new in self._test_objects.items():
            command = command.replace(f" {old} ", f" {new} ", 1)
        command = command.replace(f"-o {built.relative_to(self._base.build)} ", f"-o {result} ", 1)
        return subprocess.run(command, shell=True, cwd=self._base.build, capture_output=True).returncode == 0
