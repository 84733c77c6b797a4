# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT
"""Runs the batch command and the plain program on the same inputs: first that their outputs are the
same, byte by byte, then how long they take and how much memory. Called by bench/compare."""

import datetime
import json
import os
import re
import shlex
import shutil
import signal
import subprocess
import sys
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


class Conversion:
    """The command lines of one conversion, run in WORK/ours and WORK/plain; what they read, and
    what they write there."""

    def __init__(self, arguments, plain_arguments, inputs, outputs):
        self.words = {"ours": [OURS, *arguments], "plain": [PLAIN, *plain_arguments]}
        self.inputs = inputs
        self.outputs = outputs

    def command(self, program, echo=False):
        option = ["--echo"] if echo and program == "ours" else []
        return shlex.join(map(str, self.words[program] + option))

    def check(self):
        """Ends this program unless both write the same files and the same standard output."""
        echo = self.outputs != OTTE
        runs = [subprocess.Popen(shlex.split(self.command(program, echo)), cwd=WORK / program,
                                 stdout=subprocess.PIPE) for program in self.words]
        pipes = [run.stdout.fileno() for run in runs]
        same = [subprocess.run(["cmp", *(f"/dev/fd/{pipe}" for pipe in pipes)], pass_fds=pipes)]
        for run in runs:
            run.stdout.close()
            if run.wait() not in (0, -signal.SIGPIPE):
                sys.exit(f"{shlex.join(run.args)}: status {run.returncode}")
        same += [subprocess.run(["cmp", WORK / "ours" / name, WORK / "plain" / name])
                 for name in self.outputs]
        if any(comparison.returncode != 0 for comparison in same):
            sys.exit(f"{self.command('ours')}: the plain program writes something else")

    def time(self, program, piped=False):
        command = self.command(program, echo=piped) + (" | cat >/dev/null" if piped else "")
        return median(command, WORK / program, self.outputs)

    def peak(self, program, piped=False):
        return peak(self.command(program, echo=piped) + (" | cat" if piped else ""),
                    WORK / program)

    def input_size(self):
        return sum(path.stat().st_size for path in self.inputs)

    def copy_time(self):
        return median(shlex.join(["cp", *map(str, self.inputs), "."]), WORK / "copy",
                      [path.name for path in self.inputs])


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


def median(command, folder, outputs=(), under=()):
    """Seconds; the outputs of the run before are removed first. Pipes are slow: fewer runs."""
    say(command if len(command) < 200 else command[:200] + "...")
    result = WORK / "hyperfine.json"
    how = (["--min-runs", "3"] if "|" in command
           else ["--min-runs", "5", "--warmup", "1", "--shell", "none"])
    subprocess.run([*under, "hyperfine", "--style", "none", *how, "--prepare",
                    "rm -f " + " ".join(outputs), "--export-json", result, command],
                   cwd=folder, check=True, stdout=subprocess.DEVNULL)
    return json.loads(result.read_text())["results"][0]["median"]


def peak(command, folder):
    """Bytes of memory that the first program of the command holds at most."""
    run = subprocess.run(f"/usr/bin/time -v {command} >/dev/null", shell=True, cwd=folder,
                         stderr=subprocess.PIPE, text=True, check=True)
    return 1024 * int(re.search(r"Maximum resident set size \(kbytes\): (\d+)", run.stderr)[1])


def seconds(value):
    return f"{value:.2f} s" if value >= 1 else f"{1000 * value:.3g} ms"


def megabytes(value):
    return f"{value / 1e6:.0f} MB"


def row(what, target, reached, ours="", plain="", beside=""):
    bound = float(target.split()[-1])
    met = reached <= bound if target.startswith("at most") else reached >= bound
    print(f"| {what} | {target} | {reached:.3g}{'' if met else ' **missed**'} | {ours} | {plain} "
          f"| {beside} |", flush=True)


def speed_row(what, target, conversion, piped=False):
    ours, plain = (conversion.time(program, piped) for program in ("ours", "plain"))
    peaks = [megabytes(conversion.peak(program, piped)) for program in ("ours", "plain")]
    row(f"{what}: speed over the plain program", target, plain / ours,
        f"{seconds(ours)}, {peaks[0]}", f"{seconds(plain)}, {peaks[1]}",
        f"copy {seconds(conversion.copy_time())}")


def seismic_unix_rows(su):
    ours = su.time("ours")
    copy = su.copy_time()
    size = su.input_size()
    peak, plain_peak = su.peak("ours"), su.peak("plain")
    row("Seismic Unix, progress lines discarded: time over a plain copy", "at most 4", ours / copy,
        seconds(ours), seconds(su.time("plain")), f"copy {seconds(copy)}")
    speed_row("Seismic Unix, progress lines into a pipe that is read", "at least 6", su, piped=True)
    row("Peak memory, Seismic Unix: over the input's size", "at most 3.2", peak / size,
        megabytes(peak), megabytes(plain_peak), f"input {megabytes(size)}")


def field_row(what, target, arguments, output, beside, beside_text):
    command = shlex.join(map(str, [FIELD, "convert", *arguments, "-o", output]))
    ours = median(command, WORK, [output])
    row(f"Field command, {what}", target, ours / beside, seconds(ours), "",
        f"{beside_text} {seconds(beside)}")
    return command


def field_rows(seisimager, su):
    field_row("SeisImager to OTTE: time over the batch command's", "at most 2",
              [INPUTS / "line.vs"], "line.otte", seisimager.time("ours"), "batch")
    copy = su.copy_time()
    for order in ("little", "big"):
        record = WORK / f"{order}.su"
        subprocess.run([FIELD, "convert", INPUTS / "line.su", "--byte-order", order, "-o", record],
                       check=True)
        what = f"{order}-endian Seismic Unix to SEG2"
        command = field_row(f"{what}: time over a plain copy", "at most 2", [record], "line.seg2",
                            copy, "copy")
        held = peak(command, WORK)
        row(f"Field command, {what}: megabytes of memory", "at most 32", held / 1e6,
            megabytes(held))


def growth_row(layouts, few, many, start):
    shots = [100, 2000] if QUICK else [1000, 20000]
    each = [(conversion.time("ours") - start) / count
            for conversion, count in zip((few, many), shots)]
    row(f"Time per shot at {shots[1]:,} shots, {layouts}: over that at {shots[0]:,}", "at most 1.3",
        each[1] / each[0], f"{1e6 * each[1]:.3g} µs", "", f"{1e6 * each[0]:.3g} µs")


def window_rows(platform, *under):
    os.environ["QT_QPA_PLATFORM"] = platform
    ours, bare, label = (median(f"{BUILD}/bench/{program}", WORK, under=under)
                         for program in ("window_start", "bare_dialog", "bare_dialog Text"))
    what = f"Time from start to the window shown ({platform}): over a bare Qt dialog of the same size"
    row(what, "at most 1.2", ours / bare, seconds(ours), "", f"bare dialog {seconds(bare)}")
    row(f"{what}, with one label", "at most 1.2", ours / label, seconds(ours), "",
        f"bare dialog {seconds(label)}")


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
        say("same outputs? " + conversion.command("ours"))
        conversion.check()

    print("Both programs write the same bytes.\n\n| | target | reached | ours | plain program "
          "| beside |\n|---|---|---|---|---|---|")
    seismic_unix_rows(su)
    speed_row("Dolang, progress lines discarded", "at least 5", dolang)
    speed_row("SeisImager to OTTE", "at least 3", seisimager)
    speed_row("Generic text to OTTE", "at least 3", generic)
    speed_row("Geogiga to OTTE", "at least 3", geogiga)
    field_rows(seisimager, su)
    start = median(f"{OURS} --version", WORK)
    for layouts, (few, many) in growth.items():
        growth_row(layouts, few, many, start)
    window_rows("xcb", "xvfb-run", "-a")
    window_rows("offscreen")
    shutil.rmtree(WORK)


main()
