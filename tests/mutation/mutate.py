#!/usr/bin/env python3
"""Changes the library in one place at a time and asks whether the tests notice.

    tests/mutation/mutate.py [--count 300] [--seed 1] [--jobs N] [--work build/mutation] [FOLDER...]

A mutant is one change in the code of a source file of MLCore/FOLDER (datetime, values, predicates, streams, net): a
comparison or an operator turned, a number moved by one, a condition negated, a statement left out. The sample is drawn by
the seed. Each mutant is compiled in a copy of the library and loaded by the test programs of build/linux, which are there
from ./test; the library tells what goes beyond a container, and memory is filled before and after its use. One that does not
compile, or makes the same code, is replaced by another. It is killed when a test program fails or takes ten times as long as it
should. Survivors are listed as FILE:LINE with the line before and after.
"""
import argparse
import concurrent.futures
import hashlib
import os
import pathlib
import queue
import random
import re
import resource
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
# The programs that try a folder, the most likely first, and a time zone.
PROGRAMS = {
    "datetime": ["datetime_tests", "zone_tests Europe/Paris", "zone_tests America/New_York", "golden_tests", "values_tests",
                 "streams_tests"],
    "values": ["values_tests", "predicates_tests", "streams_tests", "golden_tests"],
    "predicates": ["predicates_tests", "keys_tests", "golden_tests"],
    "streams": ["streams_tests", "keys_tests", "predicates_tests", "golden_tests", "SeamTest"],
    "net": ["net_tests"],
}
FOR_ALL = "AllocationTest"
MEMORY = 6 << 30  # bytes for a test program: some mutants ask for more and more
# What is looked for, and what takes its place.
SWAPS = [
    (r"(?<![<>=!\-])<(?![<=])(?= )", "<="), (r"<=(?!>)", "<"), (r"(?<![->])>(?![>=])(?= )", ">="), (r"(?<![<])>=", ">"),
    (r"==", "!="), (r"!=", "=="), (r"&&", "||"), (r"\|\|", "&&"),
    (r"(?<= )\+(?= )", "-"), (r"(?<= )-(?= )", "+"), (r"(?<= )\*(?= )", "/"), (r"(?<= )/(?= )", "*"), (r"(?<= )%(?= )", "*"),
    (r"\+\+", "--"), (r"(?<!-)--(?!-)", "++"), (r"\+=", "-="), (r"-=", "+="),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
]
NUMBER = re.compile(r"(?<![\w.'\"])(\d+)(?![\w.'\"xX])")
CONDITION = re.compile(r"\b(if|while) \((?!const |auto )(.*)\) \{$")
STATEMENT = re.compile(r"^\s+(?!return|throw|break|continue|case|using|const|static|auto|else|if|for|while|do|delete)"
                       r"[\w:>.\-\[\]*]+(\(.*\)| = .*|\+\+|--);$")


def places(line):
    """All changes of one line of code."""
    if re.match(r"\s*(#|//|\*|static_assert|template|using |class |struct |namespace |friend |MLCORE_)", line) \
            or "operator" in line or ".reserve(" in line:
        return
    code = re.sub(r'//.*$', lambda match: " " * len(match.group()), line)
    code = re.sub(r'"(\\.|[^"\\])*"|\'(\\.|[^\'\\])\'', lambda match: "\x01" * len(match.group()), code)
    for pattern, other in SWAPS:
        for match in re.finditer(pattern, code):
            if other in ("<=", ">=") and re.search(r"(_cast|vector|array|map|PTR|template|span|optional)$",
                                                    code[:match.start()].rstrip()):
                continue
            yield line[:match.start()] + other + line[match.end():]
    for match in NUMBER.finditer(code):
        if re.match(r"\](\[|;| =)", code[match.end():]):  # a longer array is as good
            continue
        yield line[:match.start()] + str(int(match.group()) + 1) + line[match.end():]
    match = CONDITION.search(code)
    if match:
        yield line[:match.start(2)] + "!(" + line[match.start(2):match.end(2)] + ")" + line[match.end(2):]
    if STATEMENT.match(code):
        yield re.match(r"\s*", line).group() + ";"


def all_mutants(folders):
    for folder in folders:
        for path in sorted((ROOT / "MLCore" / folder).rglob("*.cpp")):
            for number, line in enumerate(path.read_text(encoding="utf-8").split("\n")):
                for changed in places(line):
                    yield folder, path.relative_to(ROOT), number, line, changed


class Tree:
    """A copy of the library, built once; the tests are those of build/linux."""

    def __init__(self, path):
        self.path = path
        shutil.rmtree(path, ignore_errors=True)
        path.mkdir(parents=True)
        for part in ("MLCore", "cmake", "debug", "docs"):
            shutil.copytree(ROOT / part, path / part)
        for part in ("CMakeLists.txt", "README.md", "LICENSE", "CHANGELOG.md"):
            shutil.copy2(ROOT / part, path / part)
        self.run("cmake", "-G", "Ninja", "-S", ".", "-B", "build", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -D_GLIBCXX_ASSERTIONS", "-DMLCORE_TESTS=OFF", "-DMLCORE_EXAMPLES=OFF",
                 "-DMLCORE_INSTALL=OFF", check=True)
        self.run("cmake", "--build", "build", check=True)
        self.unchanged = self.digest()
        self.seconds = {}
        for program in {FOR_ALL, *(program for names in PROGRAMS.values() for program in names)}:
            before = os.times().elapsed
            self.test(program, check=True)
            self.seconds[program] = os.times().elapsed - before

    def run(self, *command, **options):
        return subprocess.run(command, cwd=self.path, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              **options).returncode

    def test(self, program, **options):
        name, _, zone = program.partition(" ")
        environment = dict(os.environ, LD_LIBRARY_PATH=self.path / "build/lib", TZ=zone, MALLOC_PERTURB_="165")
        return self.run(ROOT / "build/linux/bin" / name, env=environment,
                        preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY)), **options)

    def digest(self):
        """Of the code that was built."""
        return hashlib.sha256((self.path / "build/lib/libMLCore.so").read_bytes()).digest()

    def is_killed(self, folder):
        for program in [*PROGRAMS[folder], FOR_ALL]:
            try:
                if self.test(program, timeout=10 + 10 * self.seconds[program]) != 0:
                    return True
            except subprocess.TimeoutExpired:
                return True
        return False

    def judge(self, mutant):
        """"killed", "survived", or None for what is no mutant."""
        folder, path, number, line, changed = mutant
        file = self.path / path
        original = file.read_text(encoding="utf-8")
        lines = original.split("\n")
        try:
            lines[number] = changed
            file.write_text("\n".join(lines), encoding="utf-8")
            if self.run("cmake", "--build", "build", "--target", "MLCore") != 0 or self.digest() == self.unchanged:
                return None
            return "killed" if self.is_killed(folder) else "survived"
        finally:
            file.write_text(original, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--work", type=pathlib.Path, default=ROOT / "build/mutation")
    parser.add_argument("folders", nargs="*", default=list(PROGRAMS))
    options = parser.parse_args()

    mutants = list(all_mutants(options.folders))
    random.Random(options.seed).shuffle(mutants)
    trees = queue.Queue()
    for index in range(options.jobs):
        trees.put(Tree(options.work.resolve() / str(index)))
    results = {"killed": [], "survived": []}

    def judge(mutant):
        if sum(map(len, results.values())) >= options.count:
            return
        tree = trees.get()
        try:
            verdict = tree.judge(mutant)
        finally:
            trees.put(tree)
        if verdict is None:
            return
        results[verdict].append(mutant)
        print(f"{len(results['killed'])} killed, {len(results['survived'])} survived", end="\r", file=sys.stderr)
        if verdict == "survived":
            _, path, number, line, changed = mutant
            print(f"{path}:{number + 1}: survived\n  - {line.strip()}\n  + {changed.strip()}", flush=True)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        list(pool.map(judge, mutants))
    killed, all_of_them = len(results["killed"]), sum(map(len, results.values()))
    print(f"{killed} of {all_of_them} killed, of {len(mutants)} that could be made")
    return 0 if all_of_them and killed >= 0.9 * all_of_them else 1


if __name__ == "__main__":
    sys.exit(main())
