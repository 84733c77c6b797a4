// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/field_records.h"

#include "field/numbers.h"
#include "field/record_checks.h"
#include "field/record_conversion.h"
#include "field/samples.h"
#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "fuzz/support.h"
#include "tests/support/seg2_parser.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

/// What was read of a record.
struct Reading
{
    bool isRead = false;
    Report report = {};
    RecordFile file = {};
    std::vector<RecordTrace> traces = {};
};

Reading readAll(ReadRecord *read, const std::string &path)
{
    Reading reading;
    const auto take = [&reading](const RecordFile &file, const RecordTrace &trace) {
        reading.file = file;
        reading.traces.push_back(trace);
        return true;
    };
    reading.isRead = read(path, take, reading.report);
    return reading;
}

void checkTraces(const Reading &reading)
{
    require(reading.isRead == !reading.report.failure, "the result tells of the failure");
    require(!reading.isRead || reading.traces.size() == reading.file.traceCount,
            "as many traces as the file says");
    require(reading.report.remarks.size() < 10, "remarks are one for all traces");
    for (const RecordTrace &trace : reading.traces) {
        require(std::isfinite(trace.sampleInterval) && trace.sampleInterval >= 0.0
                    && std::isfinite(trace.delay) && std::isfinite(trace.descalingFactor),
                "times and factors are numbers");
        for (const auto &location : {trace.source, trace.receiver})
            for (const double coordinate : location.value_or(Location{}))
                require(std::isfinite(coordinate), "positions are numbers");
        require(trace.date.empty() || trace.date.size() == 10, "dates are whole");
        require(trace.time.empty() || trace.time.size() >= 8, "times are whole");
    }
}

/// Samples bit by bit, after their type.
std::string bitsOf(const Samples &samples)
{
    std::string bits = std::to_string(samples.index()) + ' ';
    std::visit(
        [&bits](const auto &values) {
            const auto *const bytes = reinterpret_cast<const char *>(values.data());
            bits.append(bytes, values.size() * sizeof values[0]);
        },
        samples);
    return bits;
}

std::string bitsAsFloats(const RecordTrace &trace)
{
    std::vector<float> floats;
    toFloats(trace.samples, 1.0, floats);
    return bitsOf(floats);
}

std::string textOf(const std::optional<Location> &location)
{
    std::string text;
    for (const double coordinate : location.value_or(Location{}))
        text += shortest(coordinate + 0.0) + ' ';
    return text;
}

/// What a trace means, samples aside.
std::string meaningOf(const RecordTrace &trace)
{
    std::string text = "interval " + shortest(trace.sampleInterval) + ", delay "
                       + shortest(trace.delay + 0.0) + ", source " + textOf(trace.source)
                       + ", receiver " + textOf(trace.receiver) + ", shot "
                       + std::to_string(trace.shotNumber.value_or(0)) + ", channel "
                       + std::to_string(trace.channelNumber.value_or(0)) + ", stack "
                       + std::to_string(trace.stackCount) + (trace.isDead ? ", dead, " : ", ")
                       + trace.date + ' ' + trace.time;
    for (const auto &[key, value] : trace.strings)
        text += '\n' + key + ": " + value;
    return text;
}

/// Everything that was read and said.
std::string allOf(const Reading &reading)
{
    std::string text = reading.report.failure ? reading.report.failure->text : "";
    for (const Remark &remark : reading.report.remarks)
        text += '\n' + remark.text;
    for (const RecordTrace &trace : reading.traces)
        text += '\n' + meaningOf(trace) + bitsOf(trace.samples);
    return text;
}

/// Looks for findings in what was read.
void inspect(const Reading &reading, const std::string &path)
{
    RecordChecks checks;
    for (const RecordTrace &trace : reading.traces)
        checkTrace(checks, reading.file, trace);
    for (const Finding &finding : finishChecks(checks, path))
        require(!finding.text.empty() && finding.trace <= reading.traces.size(),
                "a finding tells of a trace that is there");
}

/// Converts a record; false when the target has no room for it.
bool convert(ReadRecord *read, const std::string &path, const RecordTarget &target,
             const std::string &outputPath)
{
    Report report;
    const bool isConverted = convertRecord(read, path, target, outputPath, {}, report);
    require(isConverted == !report.failure, "the result tells of the failure");
    return isConverted;
}

/// Checks the SEG2 file that a record became.
void checkSeg2(const Reading &reading, const std::string &path)
{
    try {
        parseSeg2(readFile(path), 1);
    } catch (const std::runtime_error &flaw) {
        require(false, std::string("a SEG2 file is without a flaw: ") + flaw.what());
    }
    const Reading back = readAll(readSeg2, path);
    require(back.isRead && back.traces.size() == reading.traces.size(), "all traces come back");
    for (std::size_t i = 0; i < back.traces.size(); ++i) {
        requireSame(bitsOf(back.traces[i].samples), bitsOf(reading.traces[i].samples),
                    "SEG2 gives samples back");
        requireSame(meaningOf(back.traces[i]), meaningOf(reading.traces[i]),
                    "SEG2 gives the meaning back");
    }
}

/// Checks the Seismic Unix file that a record became. Of a few traces it can be read in the other
/// byte order too; then nothing can be said.
void checkSu(const Reading &reading, const std::string &path, ByteOrder byteOrder)
{
    const Reading back = readAll(readSeismicUnix, path);
    if (back.file.byteOrder != byteOrder)
        return;
    require(back.isRead && back.traces.size() == reading.traces.size(), "all traces come back");
    for (std::size_t i = 0; i < back.traces.size(); ++i)
        requireSame(bitsOf(back.traces[i].samples), bitsAsFloats(reading.traces[i]),
                    "Seismic Unix gives samples back");
    const std::string again = folder().path("again.su");
    require(convert(readSeismicUnix, path, {RecordFormat::seismicUnix, byteOrder}, again),
            "what was written is converted");
    if (back.report.remarks.empty())
        requireSame(readFile(again), readFile(path), "Seismic Unix gives itself");
}

} // namespace

void checkRecordReader(ReadRecord *read, const std::string &path)
{
    const Reading reading = readAll(read, path);
    checkTraces(reading);
    requireSame(allOf(readAll(read, path)), allOf(reading), "the same file gives the same twice");
    inspect(reading, path);

    const std::string seg2 = folder().path("out.seg2");
    const bool hasSeg2 = convert(read, path, {RecordFormat::seg2}, seg2);
    require(!hasSeg2 || reading.isRead, "nothing is made of what is refused");
    if (hasSeg2)
        checkSeg2(reading, seg2);
    for (const ByteOrder byteOrder : {ByteOrder::littleEndian, ByteOrder::bigEndian}) {
        const RecordTarget target = {RecordFormat::seismicUnix, byteOrder};
        const std::string direct = folder().path("direct.su");
        const std::string detour = folder().path("detour.su");
        if (!convert(read, path, target, direct))
            continue;
        checkSu(reading, direct, byteOrder);
        if (!hasSeg2)
            continue;
        require(convert(readSeg2, seg2, target, detour), "SEG2 holds nothing that is refused");
        requireSame(readFile(detour), readFile(direct), "nothing is lost by way of SEG2");
    }
}
