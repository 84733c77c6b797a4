#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

"""Runs the commands of pages as a reader would and compares what they print with the page.

    pages_test.py PROGRAMS_FOLDER PAGE...

Each page gets a fresh folder, with a copy of samples/, an empty home, and build/, which is the
programs' folder, and one bash for all of its commands; then another, where the locale has a decimal
comma. In a page stand:

    ```console     a command after "$ ", its further lines after "> ", then what it prints on either
                   stream; a line of "..." is for any number of lines. A command ends with status 0,
                   or as REFUSED says, and then prints something, so that the reader sees it.
    ```sh          commands that are not run here: RUN_ELSEWHERE names each, and who runs it
    ```text        no commands
    <!-- prepare   commands that make the files that a reader would bring, up to "-->"
    <!-- needs PROGRAM... -->    without these nothing of the page is run

Code that is fenced or indented otherwise would escape, and is refused. On the page, and on those
that its links lead to, links must lead to a file and to a heading, and source files that are named
must be there. A block whose commands need an optional program that is not there is skipped; then all
that is well ends with 77.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(__file__).resolve().parent.parent
LOCALES = ("C.UTF-8", "de_DE.UTF-8")
OPTIONAL = ("convert2velarix-view", "jq")
END_OF_COMMAND = "\x1e"

RUN_ELSEWHERE = {
    "./package": ".ci/run",
    "sudo apt install ./build/packages/convert2velarix_*.deb": "./package --check",
    "cmake --preset release && cmake --build build": "./package and ./run do the same",
    "sudo apt remove convert2velarix": "./package --check",
    "parallel --sshloginfile machines --workdir . --joblog jobs -n 100 convert2velarix-field convert"
    " --to seg2 {} -o seg2 :::: records": "by hand, as it needs other machines",
    "sbatch --array=0-$((($(wc -l < records) - 1) / 1000)) convert_array.sbatch records seg2":
        "by hand; the script itself is run",
    "sbatch --array=0-$((($(wc -l < missing) - 1) / 1000)) convert_array.sbatch missing seg2":
        "by hand",
    "squeue --me": "by hand",
    "convert2velarix-view doubtful.vs": "by hand; it opens a window",
}

REFUSED = {
    "convert2velarix-batch geogiga samples/geogiga/line_refused.txt -o line.otte": 1,
    "convert2velarix-batch geogiga samples/geogiga/line_refused.txt -o line_refused.otte": 1,
    "convert2velarix-batch geogiga windows.txt -o windows.otte": 1,
    "convert2velarix-batch winsism samples/winsism/line_refused.xyz -o winsism.otte": 1,
    "convert2velarix-batch su big.su": 1,
    "convert2velarix-batch seisimager wide.vs -o wide.otte": 1,
    "convert2velarix-batch seisimager tabs.vs -o tabs.otte": 1,
    "convert2velarix-field info samples/generic/shot1.txt": 1,
    "convert2velarix-field convert samples/seisimager/line.vs -o line.dta": 2,
    "convert2velarix-field convert samples/seisimager/line.vs -o new/line.otte": 1,
    "parallel --joblog again -n 2 convert2velarix-field convert --to seg2 {} -o seg2 :::: records": 1,
}


def blocks(page):
    """The blocks of a page in their order: the line, the kind, and the lines inside."""
    kind, inside, begun = None, [], 0
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        if kind is None and (opened := re.fullmatch(r"```(\w*)|<!-- (prepare)", line)):
            kind, inside, begun = opened[1] or opened[2] or "nothing", [], number
        elif kind is not None and line == ("-->" if kind == "prepare" else "```"):
            yield begun, kind, inside
            kind = None
        elif kind is not None:
            inside.append(line)
        elif needed := re.fullmatch(r"<!-- needs (.*) -->", line):
            yield number, "needs", needed[1].split()
        elif re.match(r"    |\s*(```|~~~)", line):
            yield number, "otherwise", [line]
    if kind is not None:
        yield begun, "unclosed", inside


def commands(number, lines):
    """The commands of a console block: the line, the command, and what it prints."""
    found = []
    for number, line in enumerate(lines, number + 1):
        if line.startswith("$ "):
            found.append((number, [line[2:]], []))
        elif line.startswith(">") and found and not found[-1][2]:
            found[-1][1].append(line[2:])
        elif found:
            found[-1][2].append(line)
        else:
            raise SystemExit(f"line {number}: a console block begins with a command")
    return found


class Reader:
    """A bash in a fresh folder that is given one command after the other."""

    def __init__(self, folder, programs, locale):
        home = folder / "home"
        home.mkdir()
        shutil.copytree(SOURCE / "samples", folder / "samples")
        (folder / "build").symlink_to(programs)
        environment = {"HOME": str(home), "PATH": f"{programs}:{os.environ['PATH']}",
                       "LC_ALL": locale, "LANGUAGE": "en", "QT_QPA_PLATFORM": "offscreen"}
        self.bash = subprocess.Popen(["bash", "--norc"], cwd=folder, env=environment, text=True,
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     stderr=subprocess.STDOUT, encoding="utf-8")

    def run(self, command):
        """What the command prints, and its status."""
        self.bash.stdin.write(f"{command}\nprintf '{END_OF_COMMAND}%d\\n' $?\n")
        self.bash.stdin.flush()
        printed = ""
        while END_OF_COMMAND not in printed:
            line = self.bash.stdout.readline()
            if not line:
                return printed, "none: bash has ended"
            printed += line
        printed, status = printed.split(END_OF_COMMAND)
        return printed, int(status)


def as_pattern(expected):
    """The expression that what is printed must match wholly."""
    return "".join(r"(.*\n)*?" if line == "..." else re.escape(line + "\n") for line in expected)


def missing_programs(commands):
    """The optional programs that the commands need and that are not there."""
    return [program for program in OPTIONAL if not shutil.which(program)
            and re.search(rf"(^|[\s;|&(]){program}\s", commands)]


def complaints_of(page, programs, locale, skipped):
    """The complaints about the commands of a page, run in a fresh folder."""
    with tempfile.TemporaryDirectory(prefix="a page ") as folder:
        reader = Reader(pathlib.Path(folder), programs, locale)
        found = [f"{page.name}:{complaint} ({locale})"
                 for complaint in complaints_of_reader(reader, page, skipped)]
        reader.bash.stdin.close()
        reader.bash.wait()
    return found


def complaints_of_reader(reader, page, skipped):
    """Yields what is wrong with the commands of a page."""
    ran, skipped_before = 0, len(skipped)
    for number, kind, lines in blocks(page):
        if kind == "text":
            continue
        if kind == "needs":
            if missing := [program for program in lines if not shutil.which(program)]:
                skipped.append(f"{page.name}: {', '.join(missing)} not installed")
                break
        elif kind == "sh":
            for line in lines:
                if line.split("#")[0].strip() not in RUN_ELSEWHERE:
                    yield f"{number}: nobody runs {line!r}"
        elif kind == "prepare":
            printed, status = reader.run("\n".join(lines))
            if printed or status:
                yield f"{number}: preparing printed {printed!r}, status {status}"
        elif kind == "console":
            if missing := missing_programs("\n".join(lines)):
                skipped.append(f"{page.name}:{number}: {', '.join(missing)} not installed")
                continue
            for at, command, expected in commands(number, lines):
                ran += 1
                command = "\n".join(command)
                printed, status = reader.run(command)
                if not re.fullmatch(as_pattern(expected), printed):
                    yield f"{at}: $ {command}\n" + "\n".join(expected) + f"\n--- but:\n{printed}"
                elif status != REFUSED.get(command, 0):
                    yield f"{at}: $ {command}\nends with status {status}"
                elif status and not printed:
                    yield f"{at}: $ {command}\nfails without a word: {status}"
        else:
            yield f"{number}: {kind}: a block must be console, sh, text or prepare"
    if not ran and len(skipped) == skipped_before:
        yield "1: no command was run"


def prose(page):
    """The lines of a page with their numbers, without its blocks of code."""
    text = re.sub(r"^```.*?^```$", lambda block: "\n" * block[0].count("\n"),
                  page.read_text(encoding="utf-8"), flags=re.MULTILINE | re.DOTALL)
    return enumerate(text.splitlines(), 1)


def anchors(page):
    """What a link to a heading of the page may have after its "#"."""
    headings = [re.sub(r"^#+ ", "", line) for _, line in prose(page) if re.match("#+ ", line)]
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def dead_links(first):
    """Yields the links, pictures included, that lead nowhere: of the page, and of all pages that are
    reached from it. Source files that are named, and their functions, count as links."""
    pages = [first.resolve()]
    for page in pages:
        for number, line in prose(page):
            where = f"{page.relative_to(SOURCE)}:{number}"
            for link, anchor in re.findall(r"\]\(([^)#:]*)(?:#([^)]*))?\)", line):
                linked = (page.parent / link).resolve() if link else page
                if not linked.exists():
                    yield f"{where}: {link} is not there"
                elif anchor and anchor not in anchors(linked):
                    yield f"{where}: {link} has no heading #{anchor}"
                elif linked.suffix == ".md" and linked not in pages:
                    pages.append(linked)
            for name in re.findall(r"`((?:[\w.-]+/)+[a-z0-9_]+\.(?:cpp|h|py|sh|md|\d))`", line):
                if not (SOURCE / name).exists() and not (page.parent / name).exists():
                    yield f"{where}: {name} is not there"
            if described := re.match(r"    (\w+/\w+\.cpp) (.*)", line):
                code = (SOURCE / described[1]).read_text(encoding="utf-8")
                for name in re.findall(r"\b[a-z]+[A-Z]\w+", described[2]):
                    if f"{name}(" not in code:
                        yield f"{where}: {described[1]} has no {name}"


def main():
    programs = pathlib.Path(sys.argv[1]).resolve()
    os.environ["PATH"] = f"{programs}:{os.environ['PATH']}"
    there = subprocess.run(["locale", "-a"], capture_output=True, text=True, check=True).stdout
    skipped = [f"{locale} is not there" for locale in LOCALES
               if locale.replace("UTF-8", "utf8") not in there.split()]
    complaints = []
    for page in map(pathlib.Path, sys.argv[2:]):
        for locale in LOCALES:
            if f"{locale} is not there" not in skipped:
                complaints += complaints_of(page, programs, locale, skipped)
        complaints += dead_links(page)
    print(*complaints, sep="\n", end="\n" if complaints else "")
    for line in dict.fromkeys(skipped):
        print(f"skipped: {line}")
    return 1 if complaints else 77 if skipped else 0


if __name__ == "__main__":
    sys.exit(main())
