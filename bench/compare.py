# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT
"""Runs the batch command and the plain program on the same inputs: first that their outputs are the
same, byte by byte, then how long they take and how much memory. What is compared runs by turns, so
that whatever else the machine does strikes both; a row gives the median of the turns' ratios.
Called by bench/compare."""

import datetime
import os
import re
import shlex
import shutil
import signal
import statistics
import subprocess
import sys
import time
from pathlib import Path

QUICK = sys.argv[1:] == ["--quick"]
if sys.argv[1:] and not QUICK:
    sys.exit("bench/compare [--quick]")

BUILD = Path("build-bench").resolve()
OURS = BUILD / "convert2velarix-batch"
FIELD = BUILD / "convert2velarix-field"
PLAIN = BUILD / "bench" / "plain_convert"
INPUTS = BUILD / ("inputs-quick" if QUICK else "inputs")
WORK = BUILD / "compare"  # a folder for each program's outputs
MAKER = BUILD / "bench" / "make_inputs"
OTTE = ["line.otte"]


def say(text):
    print(text, file=sys.stderr, flush=True)


def make_inputs():
    made = INPUTS / "made"
    if made.exists() and made.stat().st_mtime > MAKER.stat().st_mtime:
        return
    say(f"making {INPUTS}")
    subprocess.run([MAKER, INPUTS, "10" if QUICK else "1"], check=True)
    made.touch()


class Program:
    """A command line, the folder that it runs in and the files that it writes there."""

    def __init__(self, words, folder, outputs=(), piped=False):
        self.words = [str(word) for word in words]
        self.folder = folder
        self.outputs = outputs
        self.piped = piped

    def seconds(self):
        """Runs it, without the outputs of the run before."""
        for name in self.outputs:
            (self.folder / name).unlink(missing_ok=True)
        start = time.perf_counter()
        if self.piped:
            reader = subprocess.Popen(["cat"], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
            subprocess.run(self.words, cwd=self.folder, stdout=reader.stdin, check=True)
            reader.communicate()
        else:
            subprocess.run(self.words, cwd=self.folder, stdout=subprocess.DEVNULL, check=True)
        return time.perf_counter() - start

    def peak(self):
        """Bytes of memory held at most."""
        command = f"/usr/bin/time -v {shlex.join(self.words)}" + (" | cat" if self.piped else "")
        run = subprocess.run(command + " >/dev/null", shell=True, cwd=self.folder,
                             stderr=subprocess.PIPE, text=True, check=True)
        return 1024 * int(re.search(r"Maximum resident set size \(kbytes\): (\d+)", run.stderr)[1])


class Turns:
    """The seconds of programs that run by turns, for half a minute or until there are enough."""

    def __init__(self, *programs):
        say("by turns: " + "; ".join(shlex.join(program.words)[:60] for program in programs))
        start = time.monotonic()
        self.turns = []
        warm = [program.seconds() for program in programs]  # what is on the disk is in memory now
        if sum(warm) > 10:
            self.turns.append(warm)
        while len(self.turns) < 3 or (len(self.turns) < 25 and time.monotonic() - start < 30):
            self.turns.append([program.seconds() for program in programs])

    def median(self, index):
        return statistics.median(turn[index] for turn in self.turns)

    def ratio(self, over, under):
        return self.median_of(lambda turn: turn[over] / turn[under])

    def median_of(self, value):
        return statistics.median(map(value, self.turns))


class Conversion:
    """One conversion as the batch command and the plain program do it, in WORK/ours and WORK/plain;
    what they read, and what they write there."""

    def __init__(self, arguments, plain_arguments, inputs, outputs):
        self.words = {"ours": [OURS, *arguments], "plain": [PLAIN, *plain_arguments]}
        self.inputs = inputs
        self.outputs = outputs

    def program(self, name, piped=False):
        """The command prints a record's progress only when it is asked to."""
        option = ["--echo"] if piped and name == "ours" and self.outputs != OTTE else []
        return Program(self.words[name] + option, WORK / name, self.outputs, piped)

    def copy(self):
        return Program(["cp", *self.inputs, "."], WORK / "copy",
                       [path.name for path in self.inputs])

    def check(self):
        """Ends this program unless both write the same files and the same standard output."""
        programs = [self.program(name, piped=True) for name in self.words]
        runs = [subprocess.Popen(program.words, cwd=program.folder, stdout=subprocess.PIPE)
                for program in programs]
        pipes = [run.stdout.fileno() for run in runs]
        same = [subprocess.run(["cmp", *(f"/dev/fd/{pipe}" for pipe in pipes)], pass_fds=pipes)]
        for run in runs:
            run.stdout.close()
            if run.wait() not in (0, -signal.SIGPIPE):
                sys.exit(f"{shlex.join(run.args)}: status {run.returncode}")
        same += [subprocess.run(["cmp", WORK / "ours" / name, WORK / "plain" / name])
                 for name in self.outputs]
        if any(comparison.returncode != 0 for comparison in same):
            sys.exit(f"{shlex.join(programs[0].words)}: the plain program writes something else")


def to_otte(format, path, *option, inputs=None):
    path = INPUTS / path
    return Conversion([format, *option, path, "-o", "line.otte"], [format, path, "line.otte"],
                      inputs or [path], OTTE)


def seismic(format, name, plain_name, inputs, outputs):
    """Outputs stand beside their input, so the inputs are linked to."""
    for folder in ("ours", "plain"):
        for path in inputs:
            (WORK / folder / path.name).symlink_to(path)
    return Conversion([format, name], [format, plain_name], inputs, outputs)


def seconds(value):
    return f"{value:.2f} s" if value >= 1 else f"{1000 * value:.3g} ms"


def megabytes(value):
    return f"{value / 1e6:.0f} MB"


def row(what, target, reached, ours="", beside=""):
    bound = float(target.split()[2])
    met = reached <= bound if target.startswith("at most") else reached >= bound
    print(f"| {what} | {target} | {reached:.3g}{'' if met else ' **missed**'} | {ours} "
          f"| {beside} |", flush=True)


def speed_row(what, target, conversion, piped=False):
    programs = [conversion.program(name, piped) for name in ("ours", "plain")]
    turns = Turns(*programs)
    texts = [f"{seconds(turns.median(i))}, {megabytes(program.peak())}"
             for i, program in enumerate(programs)]
    row(f"{what}: speed over the plain program", target, turns.ratio(1, 0), *texts)


def seismic_unix_rows(su):
    ours = su.program("ours")
    source = su.inputs[0]
    streaming = Program([BUILD / "bench" / "streaming_copy", source, "samples"], WORK / "copy",
                        ["samples"])
    turns = Turns(ours, su.copy(), streaming)
    what = "Seismic Unix, progress lines discarded: time over "
    for i, (other, target) in enumerate([("cp", "at most 2"),
                                         ("a streaming copy of the samples", "at most 1.5")], 1):
        row(what + other, target, turns.ratio(0, i), seconds(turns.median(0)),
            seconds(turns.median(i)))
    speed_row("Seismic Unix, progress lines into a pipe that is read", "at least 6", su, piped=True)
    peaks = [su.program("ours", piped).peak() for piped in (False, True)]
    row("Seismic Unix, discarded or into a pipe: peak memory", "at most 32 MB", max(peaks) / 1e6,
        " and ".join(map(megabytes, peaks)), f"input {megabytes(source.stat().st_size)}")


def field_program(path, output):
    return Program([FIELD, "convert", path, "-o", output], WORK, [output])


def field_rows(seisimager, su):
    turns = Turns(field_program(INPUTS / "line.vs", "line.otte"), seisimager.program("ours"))
    row("Field command, SeisImager to OTTE: time over the batch command's", "at most 2",
        turns.ratio(0, 1), *(seconds(turns.median(i)) for i in (0, 1)))
    for order in ("little", "big"):
        record = WORK / f"{order}.su"
        subprocess.run([FIELD, "convert", INPUTS / "line.su", "--byte-order", order, "-o", record],
                       check=True)
        ours = field_program(record, "line.seg2")
        turns = Turns(ours, su.copy())
        what = f"Field command, {order}-endian Seismic Unix to SEG2: "
        row(what + "time over cp", "at most 2", turns.ratio(0, 1),
            *(seconds(turns.median(i)) for i in (0, 1)))
        row(what + "peak memory", "at most 32 MB", ours.peak() / 1e6, megabytes(ours.peak()),
            f"input {megabytes(record.stat().st_size)}")
        record.unlink()


def growth_row(layouts, few, many):
    """The time in which the command starts is taken off."""
    shots = [100, 2000] if QUICK else [1000, 20000]
    turns = Turns(Program([OURS, "--version"], WORK), few.program("ours"), many.program("ours"))

    def each(turn, index):
        return (turn[index] - turn[0]) / shots[index - 1]

    texts = [f"{1e6 * turns.median_of(lambda turn, i=i: each(turn, i)):.3g} µs" for i in (2, 1)]
    row(f"Time per shot at {shots[1]:,} shots, {layouts}: over that at {shots[0]:,}", "at most 1.3",
        turns.median_of(lambda turn: each(turn, 2) / each(turn, 1)), *texts)


def window_row(platform):
    os.environ.update(QT_QPA_PLATFORM=platform, QT_LOGGING_RULES="default.warning=false")
    turns = Turns(*(Program([BUILD / "bench" / program], WORK)
                    for program in ("window_start", "bare_dialog")))
    row(f"Time from start to the window shown ({platform}): over a dialog of the same size with "
        "one label", "at most 1.2", turns.ratio(0, 1), *(seconds(turns.median(i)) for i in (0, 1)))


def machine():
    text = Path("/proc/cpuinfo").read_text()
    model = re.search(r"model name\s*: (.*)", text)
    return (f"{datetime.date.today()}, {os.cpu_count()} cores of {model[1] if model else '?'}, "
            f"{Path('/proc/loadavg').read_text().split()[0]} load before")


def main():
    print(machine() + "\n")
    make_inputs()
    shutil.rmtree(WORK, ignore_errors=True)
    for folder in ("ours", "plain", "copy"):
        (WORK / folder).mkdir(parents=True)

    su = seismic("su", "line.su", "line.su", [INPUTS / "line.su"], ["line_tmp", "line.seg2"])
    dolang = seismic("dolang", "LINE.ADT", "LINE", sorted(INPUTS.glob("dolang/*")),
                     [name for kind in "ACR"
                      for name in (f"tmp_{kind}DT", f"LINE_{kind}DT_dolang.seg2")])
    seisimager = to_otte("seisimager", "line.vs")
    generic = to_otte("generic", "generic/shots.txt", "--shots",
                      inputs=sorted(INPUTS.glob("generic/*")))
    geogiga = to_otte("geogiga", "line.txt")
    winsism = to_otte("winsism", "line.xyz")
    growth = {layouts: [to_otte("seisimager", f"{name}_{size}.vs") for size in ("few", "many")]
              for layouts, name in (("one shared layout", "shared"),
                                    ("all layouts different in the last receiver", "different"))}

    for conversion in (su, dolang, seisimager, generic, geogiga, winsism,
                       *sum(growth.values(), [])):
        say("same outputs? " + shlex.join(map(str, conversion.words["ours"])))
        conversion.check()

    print("Both programs write the same bytes.\n\n| | target | reached | ours | beside |\n"
          "|---|---|---|---|---|")
    seismic_unix_rows(su)
    speed_row("Dolang, progress lines discarded", "at least 5", dolang)
    speed_row("SeisImager to OTTE", "at least 3", seisimager)
    speed_row("Generic text to OTTE", "at least 3", generic)
    speed_row("Geogiga to OTTE", "at least 3", geogiga)
    field_rows(seisimager, su)
    for layouts, (few, many) in growth.items():
        growth_row(layouts, few, many)
    for platform in ("xcb", "offscreen"):
        window_row(platform)
    shutil.rmtree(WORK)


main()
