// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/numbers.h"
#include "field/record_output.h"
#include "field/record_time.h"
#include "field/samples.h"
#include "field/seg2.h"
#include "field/seg2_strings.h"
#include "seg2/seg2_file.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <sstream>
#include <utility>
#include <variant>
#include <vector>

namespace {

constexpr std::size_t mostTraces = 16383; // pointers to more take more bytes than 16 bits count

struct Seg2Writing
{
    RecordOutput output = {};
    Seg2File file = {};
    Seg2Trace trace = {};
    Seg2Common common = {};
};

/// Swaps the buffers, so that no samples are copied.
void takeSamples(Seg2Trace &trace, std::vector<std::int16_t> &samples)
{
    trace.formatCode = 1;
    trace.int16Samples.swap(samples);
}

void takeSamples(Seg2Trace &trace, std::vector<std::int32_t> &samples)
{
    trace.formatCode = 2;
    trace.int32Samples.swap(samples);
}

void takeSamples(Seg2Trace &trace, std::vector<float> &samples)
{
    trace.formatCode = 4;
    trace.floatSamples.swap(samples);
}

void takeSamples(Seg2Trace &trace, std::vector<double> &samples)
{
    trace.formatCode = 5;
    trace.doubleSamples.swap(samples);
}

/// Puts a string for all traces, unless the file has one that was not understood.
void putCommon(Seg2Strings &strings, const std::string &key, const std::string &text,
               std::string &common, const std::string &value)
{
    if (!value.empty() && strings.try_emplace(key, text).second)
        common = value;
}

/// The bytes that a string takes, its length and its end included.
std::size_t sizeOf(const std::pair<const std::string, std::string> &string)
{
    return 2 + string.first.size() + 1 + string.second.size() + 1;
}

/// Writes what comes before the traces. Date and time are those of the first.
bool begin(Seg2Writing &writing, const RecordFile &record, const RecordTrace &first, Report &report)
{
    if (record.traceCount > mostTraces)
        return fail(report, "SEG2 has no room for " + grouped(record.traceCount)
                                + " traces: 16,383 would fit, and Seismic Unix has room for all");
    for (const auto &string : record.strings)
        if (sizeOf(string) > std::numeric_limits<std::uint16_t>::max())
            return fail(report, "SEG2 has no room for the string " + string.first + " of "
                                    + grouped(sizeOf(string)) + " bytes: 65,535 would fit");
    Seg2File &file = writing.file;
    file.revision = 1;
    file.traceCount = static_cast<std::uint16_t>(record.traceCount);
    file.stringTerminator = {'\0', '\0'};
    file.lineTerminator = {'\n', '\0'};
    file.reserved.fill('\0');
    file.strings = record.strings;
    file.strings.try_emplace("TRACE_SORT", "AS_ACQUIRED");
    file.strings.try_emplace("UNITS", "METERS");
    putCommon(file.strings, "ACQUISITION_DATE", seg2Date(first.date), writing.common.date,
              first.date);
    putCommon(file.strings, "ACQUISITION_TIME", first.time, writing.common.time, first.time);
    writing.trace.reserved.fill('\0');

    std::ostringstream descriptor;
    writeDescriptor(file, descriptor);
    writing.output.bytes = descriptor.str();
    return true;
}

/// What SEG2 has no room for in a trace that begins at `start`, and what would fit; empty when
/// there is none such.
std::string refusalOf(const RecordTrace &trace, const Seg2Strings &strings, std::uint64_t start)
{
    constexpr std::size_t mostBytes = 65498; // with the fields before them and an end of 5 bytes
    std::size_t size = 0;
    for (const auto &string : strings)
        size += sizeOf(string);
    if (size > mostBytes)
        return "strings of " + grouped(size) + " bytes: 65,498 would fit";
    if (trace.hasAngles)
        return "positions that are angles: metres would fit";
    if (start > std::numeric_limits<std::uint32_t>::max())
        return "a trace after 4,294,967,295 bytes: Seismic Unix has room for all traces";
    return "";
}

bool put(Seg2Writing &writing, const RecordFile &record, RecordTrace &trace, Report &report)
{
    std::vector<std::uint32_t> &pointers = writing.file.tracePointers;
    if (pointers.empty() && !begin(writing, record, trace, report))
        return false;
    RecordOutput &output = writing.output;
    const std::uint64_t start = output.start + output.bytes.size();
    writing.trace.strings = stringsOf(trace, writing.common);
    const std::string refusal = refusalOf(trace, writing.trace.strings, start);
    if (!refusal.empty())
        return fail(report, "trace " + std::to_string(pointers.size() + 1)
                                + ": SEG2 has no room for " + refusal);
    writing.trace.sampleCount = static_cast<std::uint32_t>(sampleCountOf(trace.samples));
    std::visit([&](auto &samples) { takeSamples(writing.trace, samples); }, trace.samples);
    appendTrace(output.bytes, writing.trace, writing.file, start);
    pointers.push_back(static_cast<std::uint32_t>(start));
    return writeLargePiece(output, report);
}

bool finish(Seg2Writing &writing, Report &report)
{
    RecordOutput &output = writing.output;
    if (!writeRest(output, report))
        return false;
    return writePointers(writing.file, output.stream).flush() || failInSystem(report, output.path);
}

} // namespace

RecordWriter seg2Writer(const std::string &path, Report &report)
{
    const auto writing = std::make_shared<Seg2Writing>();
    if (createOutput(writing->output, path, report) && !writing->output.stream.seekp(0))
        fail(report, {path}, "SEG2 cannot be written to a pipe: what comes first is known last");
    return {[writing, &report](const RecordFile &record, RecordTrace &trace) {
                return put(*writing, record, trace, report);
            },
            [writing, &report] { return finish(*writing, report); }};
}
