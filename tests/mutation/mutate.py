# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT
"""Changes one operator, constant, bound or text at a time in the rooms of the converter, builds a
private copy and runs its tests. Prints every change that no test notices, and the counts at the
end. Called by tests/mutation/run. The same seed takes the same places.

Changes that make no difference are listed in equivalent.txt, each with its reason, and not tried. The
list holds the code alone, with just enough around it that it is in one place, so that it survives
what does not change that code; a test tells when it is gone.
"""

import argparse
import collections
import concurrent.futures
import difflib
import json
import os
import queue
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
PROJECT = HERE.parents[1]
ROOMS = ["traveltime", "readers", "seg2", "app"]
FEW = 3  # mutants of every file, however short it is
SHORTEST_LIMIT = 20  # seconds
BOUNDED = 'ulimit -c 0; ulimit -v 4194304; ulimit -f 4194304; exec "$@"'  # 4 GB of memory
OTHER_LOCALE = "_decimal_comma"
# Left out, for the time that they take: what ends the batch command is none of the rooms' business,
# and disks fail alike in every locale.
LEFT_OUT = re.compile(r"batch_interrupts|large_files|faults_decimal_comma")
NOT_COMPILED, SURVIVED, EQUIVALENT = "did not compile", "SURVIVED", "equivalent"

# ------------------------------------------------------------------------------ what is changed

TOKEN = re.compile(r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#[^\n]*)
  | (?P<text>"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+')
  | (?P<number>\d(?:[eE][+-]|'(?=\w)|[\w.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><<|>>|[-+*/%^&|<>=!]=|\+\+|--|->|&&|\|\||::|[^\s\w])
""", re.VERBOSE | re.DOTALL | re.MULTILINE)

OPERATORS = {
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
    "==": ["!="], "!=": ["=="],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "++": ["--"], "--": ["++"],
    "&&": ["||"], "||": ["&&"], "!": [""],
    "&": ["|"], "|": ["&"], "^": ["&"], "^=": ["&="], "&=": ["|="], "|=": ["&="],
    "<<": [">>"], ">>": ["<<"],
}
COMPARISONS = ("<", "<=", ">", ">=", "==", "!=")
WORDS = {"true": "false", "false": "true", "break": "", "continue": "", "min": "max", "max": "min"}



class Failed(Exception):
    """The check itself cannot be made."""


Token = collections.namedtuple("Token", "kind text begin end")
Mutant = collections.namedtuple("Mutant", "file edits")  # edits: (begin, end, replacement)


def tokens_of(source):
    """Without comments, directives, static assertions and what other systems alone compile."""
    branches = []  # of the conditionals around: whether this system compiles the branch
    in_assertion = False
    for match in TOKEN.finditer(source):
        kind, text = match.lastgroup, match.group()
        if kind == "directive":
            words = re.findall(r"\w+", text)
            if words[0].startswith("if"):
                branches.append(words[:2] != ["ifdef", "_WIN32"])
            elif words[0].startswith("el"):
                branches[-1] = not branches[-1]
            elif words[0] == "endif":
                branches.pop()
        elif kind != "comment" and all(branches):
            in_assertion = text == "static_assert" or (in_assertion and text != ";")
            if not in_assertion:
                yield Token(kind, text, match.start(), match.end())


def changed_character(unit):
    """Another one for a character of a text, or for an escape."""
    following = chr(ord(unit[0]) + 1)
    return following if len(unit) == 1 and unit.isalnum() and following.isalnum() else "x"


def changed_texts(text):
    quote, units = text[0], re.findall(r"\\.|.", text[1:-1], re.DOTALL)
    if not units:
        return [quote + "x" + quote]
    places = sorted({0, len(units) - 1})
    return [quote + "".join(units[:i] + [changed_character(units[i])] + units[i + 1:]) + quote
            for i in places]


def changed_numbers(text):
    """One more and one less: of an integer, or in the last place of a floating number."""
    text = text.replace("'", "")
    if match := re.fullmatch(r"(0x[0-9a-fA-F]+|\d+)([uUlL]*)", text):
        digits, suffix = match.groups()
        value = int(digits, 0)
        show = hex if digits.startswith("0x") else str
        return [show(value + step) + suffix for step in (1, -1) if value + step >= 0]
    head, digit, tail = re.fullmatch(r"([\d.]*)(\d)(\.?(?:[eE][-+]?\d+)?[fFlL]?)", text).groups()
    return [head + str((int(digit) + step) % 10) + tail for step in (1, -1)]


def is_binary(source, token):
    """Between operands: the format puts blanks there, and none around a sign, a pointer's star or
    the brackets of a template."""
    return source[token.begin - 1].isspace() and source[token.end].isspace()


def replacements(source, tokens, i):
    token = tokens[i]
    before = tokens[i - 1] if i > 0 else token
    after = tokens[i + 1] if i + 1 < len(tokens) else token
    if token.kind == "text":
        return changed_texts(token.text)
    if token.kind == "number":
        return changed_numbers(token.text)
    if token.text in ("min", "max"):
        return [WORDS[token.text]] if before.text == "::" and tokens[i - 2].text == "std" else []
    if token.text == "return":
        return [""] if after.text == ";" else []
    if token.text in WORDS:
        return [WORDS[token.text]]
    if token.text not in OPERATORS:
        return []
    if token.text in ("<<", ">>") and after.kind != "number":  # a stream
        return []
    if token.text in ("+", "+=") and '"' in before.text[:1] + after.text[:1]:  # joins texts
        return []
    if token.text in ("!", "++", "--") or is_binary(source, token):
        return OPERATORS[token.text]
    return []


def negations(source, tokens, i):
    """The edits that negate the condition of the `if` at i, unless another mutant says the same."""
    begin = i + 2 if tokens[i + 1].text == "(" else i + 3  # if constexpr
    depth, end = 1, begin
    while depth > 0:
        depth += {"(": 1, ")": -1}.get(tokens[end].text, 0)
        if tokens[end].text == ";" and depth == 1:  # what stands before it is an initialization
            begin = end + 1
        end += 1
    condition = tokens[begin:end - 1]
    joined = any(token.text in ("&&", "||") for token in condition)
    compared = any(token.text in COMPARISONS and is_binary(source, token) for token in condition)
    if joined or not compared and condition[0].text != "!":
        first, last = condition[0].begin, condition[-1].end
        yield (first, first, "!("), (last, last, ")")


def mutants_of(name, source):
    tokens = list(tokens_of(source))
    for i, token in enumerate(tokens):
        for replacement in replacements(source, tokens, i):
            yield Mutant(name, ((token.begin, token.end, replacement),))
        if token.text == "if":
            for edits in negations(source, tokens, i):
                yield Mutant(name, edits)


def mutated(source, mutant):
    for begin, end, replacement in reversed(mutant.edits):
        source = source[:begin] + replacement + source[end:]
    return source


def changed_lines(source, mutant):
    """The number of the first line that differs, and the lines that do, before and after."""
    pairs = zip(source.splitlines(), mutated(source, mutant).splitlines())
    changed = [(number, *pair) for number, pair in enumerate(pairs, 1) if pair[0] != pair[1]]
    return changed[0][0], [old for _, old, _ in changed], [new for _, _, new in changed]


def sampled(sources, seed):
    """Every mutant, in the order in which they are taken: a few of every file, then as many as the
    file has lines in proportion."""
    order = []
    for name, source in sources.items():
        mutants = list(mutants_of(name, source))
        random.Random(f"{seed} {name}").shuffle(mutants)
        order += [(max(0, rank + 1 - FEW) / source.count("\n"), name, rank, mutant)
                  for rank, mutant in enumerate(mutants)]
    return [mutant for *_, mutant in sorted(order)]


def texts_of(source):
    return [token.text for token in tokens_of(source)]


def places_of(part, whole):
    return [i for i in range(len(whole) - len(part) + 1) if whole[i:i + len(part)] == part]


def read_equivalent():
    """The changes of equivalent.txt, as pairs of tokens before and after."""
    text = re.sub(r"^#.*\n", "", (HERE / "equivalent.txt").read_text(), flags=re.MULTILINE)
    for block in filter(None, re.split(r"\n\s*\n", text.strip())):
        old, *new = [texts_of(line[1:]) for line in block.splitlines() if line[0] in "-+"]
        yield old, new, block


def known_changes(sources):
    """The changes of equivalent.txt; fails at one whose code is not in one place of the sources."""
    files = {name: texts_of(source) for name, source in sources.items()}
    known = []
    for old, new, block in read_equivalent():
        count = sum(len(places_of(old, tokens)) for tokens in files.values())
        if count != 1:
            raise Failed(f"equivalent.txt: this code is in {count} places:\n{block}")
        known += [(old, change) for change in new]
    return known


def is_known(source, mutant, known):
    before, after = texts_of(source), texts_of(mutated(source, mutant))
    return any(before[:place] + new + before[place + len(old):] == after
               for old, new in known for place in places_of(old, before))


# --------------------------------------------------------------------------- how it is tested


class Programs:
    """The programs that run now, so that they end with this one."""

    def __init__(self):
        self.running = set()
        self.lock = threading.Lock()
        self.ended = False

    def run(self, command, limit=None, **options):
        """The exit status; None after `limit` seconds."""
        with self.lock:
            if self.ended:
                raise Failed("interrupted")
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, start_new_session=True,
                                       **options)
            self.running.add(process)
        try:
            return process.wait(limit)
        except subprocess.TimeoutExpired:
            return None
        finally:
            self.kill(process)  # with what it has left behind
            process.wait()
            with self.lock:
                self.running.discard(process)
                if self.ended:
                    raise Failed("interrupted")

    @staticmethod
    def kill(process):
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass

    def end(self):
        with self.lock:
            self.ended = True
            for process in self.running:
                self.kill(process)


Test = collections.namedtuple("Test", "name command program folder environment")


class Workplace:
    """A copy of the project with its build folder, in which one mutant after another stands."""

    def __init__(self, folder, programs, processors):
        self.folder, self.programs, self.processors = folder, programs, processors
        self.project, self.build = folder / "project", folder / "build"
        self.output, self.temporary = folder / "output", folder / "tmp"
        self.changed, self.original = None, None
        self.tests, self.seconds = [], {}

    def prepare(self, project):
        shutil.copytree(project, self.project)
        linker = "gold" if shutil.which("ld.gold") else "bfd"
        # The checks of the library end a program that reads past the end of a vector.
        self.must("the project cannot be configured", self.call(
            ["cmake", "-S", self.project, "-B", self.build, "-G", "Ninja", "-DBUILD_TESTING=ON",
             "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O1 -w -D_GLIBCXX_ASSERTIONS",
             f"-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld={linker}"]))
        self.must("it does not compile", self.compile("all"))
        self.must("its tests are not listed", self.call(["ctest", "--show-only=json-v1"],
                                                        cwd=self.build))
        self.tests = list(self.listed_tests(json.loads(self.output.read_text())["tests"]))
        for test in self.tests:
            start = time.monotonic()
            self.must(f"the test {test.name} fails", self.run(test, 900))
            self.seconds[test.name] = time.monotonic() - start

    def listed_tests(self, entries):
        """Those that run a program of the build folder."""
        for entry in entries:
            built = [word for word in entry["command"] if word.startswith(f"{self.build}/")
                     and os.path.isfile(word) and os.access(word, os.X_OK)]
            if not built or LEFT_OUT.search(entry["name"]):
                continue
            properties = {item["name"]: item["value"] for item in entry.get("properties", [])}
            environment = dict(os.environ, TMPDIR=str(self.temporary), HOME=str(self.temporary),
                               QTEST_DISABLE_STACK_DUMP="1")  # takes a debugger and its time
            environment.update(line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
            yield Test(entry["name"], entry["command"], Path(built[0]),
                       properties.get("WORKING_DIRECTORY", self.build), environment)

    def call(self, command, limit=None, **options):
        with open(self.output, "wb") as output:
            return self.programs.run(command, limit, stdout=output, stderr=output, **options)

    def must(self, complaint, status):
        if status != 0:
            text = self.output.read_text(errors="replace")
            raise Failed(f"Unchanged, {complaint}:\n{text[-4000:]}")

    def compile(self, target):
        return self.call(["ninja", "-C", self.build, "-j", str(self.processors), target])

    def run(self, test, limit):
        shutil.rmtree(self.temporary, ignore_errors=True)
        self.temporary.mkdir(exist_ok=True)
        return self.call(["sh", "-c", BOUNDED, "sh", *test.command], limit,
                         cwd=test.folder, env=test.environment)

    def put(self, source, mutant):
        if self.changed not in (None, mutant.file):
            (self.project / self.changed).write_text(self.original)
        self.changed, self.original = mutant.file, source
        (self.project / mutant.file).write_text(mutated(source, mutant))

    def outcome(self, source, mutant):
        """NOT_COMPILED, SURVIVED, or the name of the test that kills the mutant."""
        self.put(source, mutant)
        stem = Path(mutant.file).stem

        def order(test):  # those named as the file is first, then the quick ones
            alike = len(os.path.commonprefix([test.name, stem]))
            return test.name.endswith(OTHER_LOCALE), -alike, self.seconds[test.name]

        affected = set()
        for test in sorted(self.tests, key=order):
            before = test.program.stat().st_mtime_ns if test.program.exists() else 0
            if self.compile(test.program.relative_to(self.build)) != 0:
                return NOT_COMPILED
            if test.program.stat().st_mtime_ns != before:
                affected.add(test.program)
            limit = max(SHORTEST_LIMIT, 10 * self.seconds[test.name])
            if test.program in affected and self.run(test, limit) != 0:
                return test.name
        return SURVIVED


# ------------------------------------------------------------------------------- all of it


def wanted_files(only):
    names = sorted(str(path.relative_to(PROJECT)) for room in ROOMS
                   for path in (PROJECT / room).iterdir() if path.suffix in (".cpp", ".h"))
    places = [os.path.relpath(place, PROJECT) for place in only]
    chosen = [name for name in names
              if not only or any(f"{name}/".startswith(f"{place}/") for place in places)]
    if not chosen:
        raise Failed(f"Nothing to change in {' '.join(only)}: the rooms are {' '.join(ROOMS)}")
    return chosen


def read_files(names, project=PROJECT):
    return {name: (project / name).read_text() for name in names}


def processor_seconds():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def print_totals(outcomes, seconds):
    def line(title, found):
        apart = [found[kind] for kind in (SURVIVED, EQUIVALENT, NOT_COMPILED)]
        killed = sum(found.values()) - sum(apart)
        print("%-11s %4d of %4d killed, %3d equivalent; %3d did not compile"
              % (title, killed, killed + apart[0], *apart[1:]))

    for room in ROOMS:
        if any(outcomes[room].values()):
            line(room, outcomes[room])
    total = sum(outcomes.values(), collections.Counter())
    line("all", total)
    tried = sum(total.values()) - total[EQUIVALENT]
    print("%.1f seconds of one processor for each that was tried" % (seconds / max(1, tried)))


def check(arguments, folder, programs):
    original = folder / "project"
    shutil.copytree(PROJECT, original, ignore=shutil.ignore_patterns(".git", "build*"))
    known = known_changes(read_files(wanted_files([]), original))
    sources = read_files(wanted_files(arguments.only), original)
    order = sampled(sources, arguments.seed)
    workplaces = queue.SimpleQueue()

    def prepared(number):
        place = folder / str(number)
        place.mkdir()
        workplace = Workplace(place, programs, max(1, os.cpu_count() // arguments.jobs))
        workplace.prepare(original)
        workplaces.put(workplace)

    def outcome(mutant):
        source = sources[mutant.file]
        if is_known(source, mutant, known):
            return EQUIVALENT
        workplace = workplaces.get()
        try:
            return workplace.outcome(source, mutant)
        finally:
            workplaces.put(workplace)

    outcomes = collections.defaultdict(collections.Counter)
    compiled = 0
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        try:
            list(pool.map(prepared, range(arguments.jobs)))
            start = processor_seconds()
            while compiled < arguments.count and order:
                # Those of one file one after another: what else was compiled stays as it is.
                mutants = sorted(order[:arguments.count - compiled])
                del order[:len(mutants)]
                for mutant, found in zip(mutants, pool.map(outcome, mutants)):
                    compiled += found != NOT_COMPILED
                    outcomes[mutant.file.split("/")[0]][found] += 1
                    line, old, new = changed_lines(sources[mutant.file], mutant)
                    print(f"{mutant.file}:{line}: {found}", file=sys.stderr)
                    if found == SURVIVED:
                        print(f"{mutant.file}:{line}",
                              *("-" + text for text in old), *("+" + text for text in new),
                              "", sep="\n", flush=True)
        except BaseException:
            programs.end()
            pool.shutdown(cancel_futures=True)
            raise
    print_totals(outcomes, processor_seconds() - start)


def main():
    parser = argparse.ArgumentParser(prog="tests/mutation/run", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=240, help="of mutants that compile")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", nargs="+", default=[], metavar="FILE-OR-FOLDER")
    parser.add_argument("--jobs", type=int, default=1, help="workplaces, one mutant in each")
    parser.add_argument("--check-list", action="store_true",
                        help="only look whether the code of equivalent.txt is there")
    arguments = parser.parse_args()
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        if arguments.check_list:
            known_changes(read_files(wanted_files([])))
            return
        with tempfile.TemporaryDirectory(prefix="mutants-") as folder:
            check(arguments, Path(folder), Programs())
    except Failed as failure:
        sys.exit(str(failure))
    except KeyboardInterrupt:
        sys.exit(130)


if __name__ == "__main__":
    main()
