// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_conversion.h"

#include "field/numbers.h"
#include "field/samples.h"
#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "field/seismic_unix_header.h"
#include "field/trace_tally.h"
#include "traveltime/text.h"

#include <cmath>
#include <optional>
#include <set>
#include <utility>

namespace {

/// What there is to say about the traces, whatever they become.
struct RecordRemarks
{
    std::size_t traceCount = 0;
    std::size_t firstSampleCount = 0;
    double firstInterval = 0.0;
    TraceTally sampleCounts = {};
    TraceTally intervals = {};
    TraceTally noInterval = {};
    TraceTally dead = {};
    TraceTally factors = {};
    std::set<std::string> strings = {}; ///< keywords that have no place in the target
};

void takeTrace(RecordRemarks &remarks, const RecordTrace &trace)
{
    const std::size_t number = ++remarks.traceCount;
    const std::size_t sampleCount = sampleCountOf(trace.samples);
    if (number == 1) {
        remarks.firstSampleCount = sampleCount;
        remarks.firstInterval = trace.sampleInterval;
    }
    if (sampleCount != remarks.firstSampleCount)
        countTrace(remarks.sampleCounts, number, [&] {
            return counted(sampleCount, "sample") + ", but trace 1 has "
                   + std::to_string(remarks.firstSampleCount);
        });
    if (trace.sampleInterval != remarks.firstInterval)
        countTrace(remarks.intervals, number, [&] {
            return "an interval of " + shortest(trace.sampleInterval) + " s, but trace 1 has "
                   + shortest(remarks.firstInterval) + " s";
        });
    if (trace.sampleInterval == 0.0)
        countTrace(remarks.noInterval, number, [] { return "the sample interval is 0"; });
    if (trace.isDead || hasEqualSamples(trace.samples))
        countTrace(remarks.dead, number, [&] {
            return trace.isDead ? "marked as dead" : "dead, as all samples are equal";
        });
}

/// Whether a string holds fields of a Seismic Unix header.
bool isHeaderText(const std::string &key, const std::string &value)
{
    SuHeaderBytes header = {};
    return key == "SEISMIC_UNIX" && putFields(header, value);
}

/// What Seismic Unix has no place for.
void takeLosses(RecordRemarks &remarks, const RecordFile &file, const RecordTrace &trace)
{
    if (trace.descalingFactor != 1.0)
        countTrace(remarks.factors, remarks.traceCount, [&] {
            return "DESCALING_FACTOR " + shortest(trace.descalingFactor)
                   + " is left out: with --millivolts the samples are multiplied by it";
        });
    for (const auto *strings : {&file.strings, &trace.strings})
        for (const auto &[key, value] : *strings)
            if (!isHeaderText(key, value) && value != "AS_ACQUIRED")
                remarks.strings.insert(key);
}

void remarkOnStrings(const std::set<std::string> &strings, Report &report)
{
    constexpr std::size_t most = 8;
    if (strings.empty())
        return;
    std::string text = "strings without a place in Seismic Unix are left out: ";
    std::size_t count = 0;
    for (const std::string &key : strings)
        if (++count <= most)
            text += (count == 1 ? "" : ", ") + key;
    if (count > most)
        text += " and " + std::to_string(count - most) + " more";
    remark(report, RemarkKind::notRead, text);
}

void remarkOnRecord(const RecordRemarks &remarks, Report &report)
{
    remarkOn(remarks.sampleCounts, RemarkKind::samples, report);
    remarkOn(remarks.intervals, RemarkKind::samples, report);
    remarkOn(remarks.noInterval, RemarkKind::samples, report);
    remarkOn(remarks.dead, RemarkKind::samples, report);
    remarkOn(remarks.factors, RemarkKind::samples, report);
    remarkOnStrings(remarks.strings, report);
}

/// The trace with its samples times their factor; fails for products that no float holds.
bool toMillivolts(RecordTrace &trace, std::size_t number, Report &report)
{
    std::vector<float> floats;
    const auto rounding = toFloats(trace.samples, trace.descalingFactor, floats);
    trace.samples = std::move(floats);
    trace.descalingFactor = 1.0;
    return !rounding
           || fail(report, "trace " + std::to_string(number) + ": a sample of " + rounding->sample
                               + " in millivolts is larger than a 32-bit float");
}

} // namespace

bool convertRecord(ReadRecord *read, const std::string &path, const RecordTarget &target,
                   const std::string &outputPath,
                   const std::function<void(double fraction)> &progress, Report &report)
{
    const RecordWriter writer = target.format == RecordFormat::seg2
                                    ? seg2Writer(outputPath, report)
                                    : seismicUnixWriter(outputPath, target.byteOrder, report);
    if (report.failure)
        return false;
    RecordRemarks remarks;
    const auto put = [&](const RecordFile &file, RecordTrace &trace) {
        if (progress)
            progress(file.fractionRead);
        takeTrace(remarks, trace);
        if (target.isInMillivolts && !toMillivolts(trace, remarks.traceCount, report))
            return false;
        if (target.format == RecordFormat::seismicUnix)
            takeLosses(remarks, file, trace);
        return writer.put(file, trace);
    };
    read(path, put, report);
    remarkOnRecord(remarks, report);
    return !report.failure && writer.finish();
}
