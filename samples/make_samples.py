#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT
"""Writes the samples beside this script and, into tests/data, what each must convert to.

The expected files are worked out here from the rules of the formats, without the converter:
'%g' prints as an output stream does, struct packs little-endian bytes.

    make_samples.py            writes the files
    make_samples.py --check    writes nothing; ends with 1 at the first file that it would change
"""

import math
import random
import struct
import sys
from pathlib import Path

SAMPLES = Path(__file__).resolve().parent
EXPECTED = SAMPLES.parent / "tests" / "data"

files = {}  # path -> bytes


def put(path, lines, end="\n"):
    files[path] = "".join(line + end for line in lines).encode()


# The ground: two layers, the lower one faster; the interface runs parallel to the surface.
V1, V2, THICKNESS = 500.0, 1800.0, 6.0  # m/s, m/s, m
SURFACE = [(-10, 212.0), (30, 213.2), (70, 216.0), (130, 214.2)]  # x and elevation, m

GEOPHONES = [5.0 * number for number in range(24)]
SHOTS = [-5.0, 27.5, 57.5, 87.5, 120.0]


def elevation(x):
    for (x0, z0), (x1, z1) in zip(SURFACE, SURFACE[1:]):
        if x <= x1:
            return "%.2f" % (z0 + (z1 - z0) * (x - x0) / (x1 - x0))
    raise ValueError(x)


def direct_wave(offset):
    return offset / V1


def head_wave(offset):
    return offset / V2 + 2 * THICKNESS * math.sqrt(V2 * V2 - V1 * V1) / (V1 * V2)


def first_break(shot, geophone):
    """In tenths of a millisecond, as fine as it can be picked."""
    offset = abs(geophone - shot)
    return round(1e4 * min(direct_wave(offset), head_wave(offset)))


# The values as the files write them, texts all: the expected values follow from these texts.
POSITIONS = ["%g" % x for x in GEOPHONES]
ELEVATIONS = [elevation(x) for x in GEOPHONES]
SHOT_POSITIONS = ["%g" % x for x in SHOTS]
SHOT_ELEVATIONS = [elevation(x) for x in SHOTS]
SECONDS = [["%.4f" % (first_break(s, x) / 1e4) for x in GEOPHONES] for s in SHOTS]
MILLISECONDS = [["%.1f" % (first_break(s, x) / 10) for x in GEOPHONES] for s in SHOTS]


def put_otte(name, elevations, shot_elevations, times):
    """A survey of one spread; `times` in seconds."""
    def row(values):
        return "".join("%g;" % float(value) for value in values)
    lines = ["otte", "1.0", "2", "1", row(POSITIONS), row(elevations),
             row(SHOT_POSITIONS), row(shot_elevations)]
    for index, record in enumerate(times):
        lines += ["0", str(index), row(float(time) * 1000.0 for time in record)]
    put(EXPECTED / name, lines)


def generic():
    folder = SAMPLES / "generic"
    for number, times in enumerate(SECONDS, 1):
        put(folder / f"shot{number}.txt", map(";".join, zip(POSITIONS, ELEVATIONS, times)))
    shots = zip(range(1, 6), SHOT_POSITIONS, SHOT_ELEVATIONS)
    put(folder / "shots.txt", (f"shot{number}.txt;{x};{z}" for number, x, z in shots))
    put_otte("generic.otte", ELEVATIONS, SHOT_ELEVATIONS, SECONDS)


def seisimager():
    def lines(shots):
        yield "First breaks, ms"
        yield f"1 {len(shots)}"
        for x, times in shots:
            yield f"{x} {len(times)}"
            yield from map(" ".join, zip(POSITIONS, times))
    shots = list(zip(SHOT_POSITIONS, MILLISECONDS))
    put(SAMPLES / "seisimager" / "line.vs", lines(shots))
    for number, shot in enumerate(shots, 1):
        put(SAMPLES / "seisimager" / "several" / f"shot{number}.vs", lines([shot]))
    # The format has no elevations. Both shapes of the survey give the same OTTE file.
    put_otte("seisimager.otte", ["0"] * 24, ["0"] * 5,
             [[float(time) / 1000.0 for time in times] for times in MILLISECONDS])


def geogiga():
    def text(row_end):
        yield "TX_CURVE\nVERSION: 1.0\nINFO: 24 geophones, 5 shots\nINFO: position m, time s\n"
        yield f"ELEVATION: 214\nTOTAL_NUMBER_OF_SHOTS: {len(SHOTS)}\n"
        for number, (x, times) in enumerate(zip(SHOT_POSITIONS, SECONDS), 1):
            yield f"SEISMIC_DATA_FILE_NAME: shot{number}.su\nSHOT_LOCATION: {x}\n"
            yield f"NUMBER_OF_RECEIVERS: {len(times)}\nNo Position Time Channel\n"
            for channel, (position, time) in enumerate(zip(POSITIONS, times), 1):
                yield f"{channel} {position} {time} {channel}{row_end}"
    put(SAMPLES / "geogiga" / "line.txt", text("\r\n"), end="")
    put(SAMPLES / "geogiga" / "line_refused.txt", text("\n"), end="")
    # One elevation for everything; times are taken as they stand in the file.
    put_otte("geogiga.otte", ["214"] * 24, ["214"] * 5, SECONDS)


def winsism():
    def lines(time_rows):
        for heading, values in [("Shot number, Shot elevation", SHOT_ELEVATIONS),
                                ("Shot number, Shot distance", SHOT_POSITIONS),
                                ("Receiver number, receiver distance", POSITIONS),
                                ("Receiver number, receiver elevation", ELEVATIONS)]:
            yield heading
            yield " ".join(str(number) for number in range(1, len(values) + 1))
            yield " ".join(values)
        yield "FBP times"
        yield from time_rows
    put(SAMPLES / "winsism" / "line.xyz", lines([""] * len(SHOTS)))
    for name in ("line_refused.xyz", "line_with_times.xyz"):  # by the window, of the field command
        put(SAMPLES / "winsism" / name, lines(map(" ".join, MILLISECONDS)))
    put_otte("winsism.otte", ELEVATIONS, SHOT_ELEVATIONS, [[]] * len(SHOTS))


def sgt():
    # Positions in ascending x, each once; no shot is at a geophone.
    places = sorted({*zip(GEOPHONES, ELEVATIONS), *zip(SHOTS, SHOT_ELEVATIONS)})
    xs = [x for x, _ in places]
    lines = [f"{len(places)} # shot/geophone points", "#x y"]
    lines += [f"{x:g} {float(z):g}" for x, z in places]
    lines += [f"{len(SHOTS) * len(GEOPHONES)} # measurements", "#s g t"]
    for shot, times in zip(SHOTS, SECONDS):
        for geophone, time in zip(GEOPHONES, times):
            lines.append(f"{xs.index(shot) + 1} {xs.index(geophone) + 1} {float(time):g}")
    put(SAMPLES / "sgt" / "line.sgt", lines)


def topography():
    put(SAMPLES / "topography" / "topography.txt", (f"{x};{z:.1f}" for x, z in SURFACE))


noise = random.Random(1)


def seismogram(shot, geophone, count, interval, start=0.0):
    """Both waves as 80 Hz Ricker wavelets that begin at their arrival, with a little noise."""
    frequency = 80.0
    offset = abs(geophone - shot)
    samples = []
    for i in range(count):
        value = 8 * noise.random() - 4
        for arrival, strength in [(direct_wave(offset), 20000), (head_wave(offset), 8000)]:
            a = (math.pi * (frequency * (start + i * interval - arrival) - 1)) ** 2
            value += strength / offset * (1 - 2 * a) * math.exp(-a)
        samples.append(round(value, 3))  # the same on machines whose exp differs in the last digit
    return samples


def listing(count, interval, positions):
    yield "TRACE_SORT   AS_ACQUIRED"
    yield "UNITS\t\tMETERS"
    yield ""
    yield "                  Time    Sample"
    yield "Trace   No. of    Delay   Interval       Receiver Location"
    yield "No.     Samples   (s)     (s)        X           Y         Z"
    for number, x in enumerate(positions, 1):
        yield f"{number}    {count}      0     {interval:g}     {x:g}      0      0"


def seg2(revision, file_texts, traces):
    """A SEG2 file of (texts, samples) pairs. Reserved bytes are blanks, in revision 1 zeros."""
    reserved = b"\0" if revision else b" "

    def padded(block):
        return block + b" " * (-len(block) % 4)

    def strings(texts):
        # The length counts itself and the 0 that ends the text.
        entries = (struct.pack("<H", len(text) + 3) + text.encode() + b"\0" for text in texts)
        return padded(b"".join(entries) + b"\0\0")

    head = struct.pack("<4H", 0x3A55, revision, 4 * len(traces), len(traces))
    head += b"\1\0" + reserved + b"\1\n" + reserved + 18 * reserved
    file_strings = strings(file_texts)
    position = len(head) + 4 * len(traces) + len(file_strings)
    pointers, blocks = b"", b""
    for texts, samples in traces:
        trace_strings = strings(texts)
        data = struct.pack(f"<{len(samples)}f", *samples)
        pointers += struct.pack("<I", position + len(blocks))
        blocks += struct.pack("<HHIIB", 0x4422, 32 + len(trace_strings), len(data), len(samples), 4)
        blocks += 19 * reserved + trace_strings + data
    return head + pointers + file_strings + blocks


def window_seg2(interval, source, traces):
    """What the window makes of (receiver position, samples) pairs."""
    return seg2(0, ["TRACE_SORT AS_ACQUIRED", "UNITS METERS"], [
        (["DELAY 0", "DESCALING_FACTOR 1", f"RECEIVER_LOCATION {x:g} 0 0",
          f"SAMPLE_INTERVAL {interval:g}", f"SOURCE_LOCATION {source:g} 0 0", "STACK 1"], samples)
        for x, samples in traces])


def seismic_unix():
    count, interval, shot = 500, 250, SHOTS[0]  # interval in microseconds
    record, traces = b"", []
    for number, x in enumerate(GEOPHONES[:12], 1):
        samples = seismogram(shot, x, count, interval / 1e6)
        header = bytearray(240)
        struct.pack_into("<i", header, 0, number)
        struct.pack_into("<h", header, 28, 1)  # seismic data
        struct.pack_into("<i", header, 36, int(x - shot))
        struct.pack_into("<hi", header, 70, 1, int(shot))  # scalco, sx: whole metres
        struct.pack_into("<i", header, 80, int(x))
        struct.pack_into("<HH", header, 114, count, interval)
        record += header + struct.pack(f"<{count}f", *samples)
        traces.append((x, samples[:-1] + [0.0]))  # the last sample of a trace is not read
    files[SAMPLES / "seismic_unix" / "line.su"] = record
    put(EXPECTED / "line_tmp", listing(count, interval / 1e6, GEOPHONES[:12]))
    files[EXPECTED / "line.seg2"] = window_seg2(interval / 1e6, shot, traces)


def dolang():
    # A rate of 3000 per second shows an interval that the listing cuts to six digits.
    count, geophones = 300, GEOPHONES[::4]
    for kind, shot, rate in [("A", SHOTS[0], 4000), ("C", SHOTS[2], 4000), ("R", SHOTS[4], 3000)]:
        folder = SAMPLES / "dolang"
        put(folder / f"LINE.{kind}DT",
            [f'"Record {kind}, shot at {shot:g} m"', '"Geophones every 20 m from 0 m"',
             str(len(geophones)), '"vertical"', '"gain 24 dB"', "0", str(count), str(rate)])
        traces = []
        for channel, x in enumerate(geophones, 1):
            samples = [round(value) for value in seismogram(shot, x, count, 1 / rate)]
            put(folder / f"LINE.{kind}{channel:02}", map(str, samples))
            traces.append((0.0, samples))  # the files hold no positions
        put(EXPECTED / f"tmp_{kind}DT", listing(count, 1 / rate, [0.0] * len(geophones)))
        files[EXPECTED / f"LINE_{kind}DT_dolang.seg2"] = window_seg2(1 / rate, 0.0, traces)


def big_endian():
    """Shot 2 with all that a header says, big-endian; and the field command's SEG2 file of it."""
    count, interval, shot = 200, 250, SHOTS[1]  # interval in microseconds
    record, traces = b"", []
    for number, (x, z) in enumerate(zip(GEOPHONES[:12], ELEVATIONS), 1):
        samples = seismogram(shot, x, count, interval / 1e6, -0.01)
        offset = int(math.copysign(abs(x - shot) + 0.5, x - shot))  # to the nearest metre
        header = bytearray(240)
        struct.pack_into(">7i", header, 0, number, number, 2, number, 0, 20 + number, 0)
        struct.pack_into(">2h", header, 28, 1, 1)  # seismic data, not stacked
        struct.pack_into(">3i", header, 36, offset,
                         round(100 * float(z)), round(100 * float(SHOT_ELEVATIONS[1])))
        struct.pack_into(">2h4ih", header, 68, -100, -10, int(10 * shot), 0, int(10 * x), 0, 1)
        struct.pack_into(">h", header, 108, -10)  # milliseconds: the first sample is before the shot
        struct.pack_into(">HH", header, 114, count, interval)
        struct.pack_into(">5h", header, 156, 2022, 81, 13, 58, 30)
        record += header + struct.pack(f">{count}f", *samples)
        traces.append(([
            f"CHANNEL_NUMBER {number}", "DELAY -0.01", "DESCALING_FACTOR 1",
            f"RECEIVER_LOCATION {x:g} 0 {float(z):g}", "SAMPLE_INTERVAL 0.00025",
            f"SEISMIC_UNIX cdp {20 + number}", "SHOT_SEQUENCE_NUMBER 2",
            f"SOURCE_LOCATION {shot:g} 0 {float(SHOT_ELEVATIONS[1]):g}", "STACK 1"], samples))
    files[SAMPLES / "seismic_unix" / "line_big_endian.su"] = record
    files[EXPECTED / "line_big_endian.seg2"] = seg2(
        1, ["ACQUISITION_DATE 22/Mar/2022", "ACQUISITION_TIME 13:58:30", "TRACE_SORT AS_ACQUIRED",
            "UNITS METERS"], traces)


if sys.argv[1:] not in ([], ["--check"]):
    sys.exit(__doc__)
for make in (generic, seisimager, geogiga, winsism, sgt, topography, seismic_unix, dolang,
             big_endian):
    make()
for path, content in files.items():
    if not sys.argv[1:]:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    elif not path.is_file() or path.read_bytes() != content:
        sys.exit(f"{path.relative_to(SAMPLES.parent)} is not as {Path(__file__).name} makes it")
