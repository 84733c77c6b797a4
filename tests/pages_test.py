#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

"""Runs the commands of pages as a reader would and compares what they print with the page.

    pages_test.py PROGRAMS_FOLDER PAGE...

Each page gets a fresh folder, with a copy of samples/, an empty home, and build/, which is the
programs' folder, and one bash for all of its commands. In a page stand:

    ```console     a command after "$ ", its further lines after "> ", then what it prints on either
                   stream; a line of "..." is for any number of lines. A command that fails must
                   print something, so that the reader sees it.
    ```sh          commands that are not run here: RUN_ELSEWHERE names each, and who runs it
    ```text        no commands
    <!-- prepare   commands that make the files that a reader would bring, up to "-->"
    <!-- needs PROGRAM... -->    without these nothing of the page is run

Code that is indented instead would escape, and is refused. Links into the project must lead
somewhere. A block whose commands need an optional program that is not there is skipped; then all that
is well ends with 77.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(__file__).resolve().parent.parent
OPTIONAL = ("convert2velarix-view", "jq")
END_OF_COMMAND = "\x1e"

RUN_ELSEWHERE = {
    "./package": ".ci/run",
    "sudo apt install ./build/packages/convert2velarix_*.deb": "./package --check",
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
        elif line.startswith("    "):
            yield number, "indented", [line]
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

    def __init__(self, folder, programs):
        home = folder / "home"
        home.mkdir()
        shutil.copytree(SOURCE / "samples", folder / "samples")
        (folder / "build").symlink_to(programs)
        environment = {"HOME": str(home), "PATH": f"{programs}:{os.environ['PATH']}",
                       "LC_ALL": os.environ.get("LC_ALL", "C.UTF-8"), "LANGUAGE": "en",
                       "QT_QPA_PLATFORM": "offscreen"}
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


def complaints_of(page, folder, programs, skipped):
    """Yields what is wrong with the commands of a page."""
    reader = Reader(folder, programs)
    ran = 0
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
                elif status and not printed:
                    yield f"{at}: $ {command}\nfails without a word: {status}"
        else:
            yield f"{number}: {kind}: a block must be console, sh, text or prepare"
    reader.bash.stdin.close()
    reader.bash.wait()
    if not ran and not skipped:
        yield "1: no command was run"


def dead_links(page):
    """Yields the links of a page, pictures included, that lead to no file."""
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        for link in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", line):
            if not (page.parent / link).exists():
                yield f"{number}: {link} is not there"


def main():
    programs = pathlib.Path(sys.argv[1]).resolve()
    os.environ["PATH"] = f"{programs}:{os.environ['PATH']}"
    failures, skipped = 0, []
    for page in map(pathlib.Path, sys.argv[2:]):
        with tempfile.TemporaryDirectory(prefix="a page ") as folder:
            folder = pathlib.Path(folder)
            for complaint in [*complaints_of(page, folder, programs, skipped), *dead_links(page)]:
                print(f"{page.name}:{complaint}")
                failures += 1
    for line in skipped:
        print(f"skipped: {line}")
    return 1 if failures else 77 if skipped else 0


if __name__ == "__main__":
    sys.exit(main())
