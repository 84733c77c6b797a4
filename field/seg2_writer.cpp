// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/numbers.h"
#include "field/record_time.h"
#include "field/samples.h"
#include "field/seg2.h"
#include "field/seg2_strings.h"
#include "seg2/seg2_file.h"

#include <cstdint>
#include <fstream>
#include <limits>
#include <memory>
#include <variant>
#include <vector>

namespace {

constexpr std::size_t mostTraces = 16383; // pointers to more take more bytes than 16 bits count

/// Writes what is collected when it is a megabyte or more: a small write begins inside a page of
/// the disk's cache, which the system then fills with zeros first.
struct Seg2Output
{
    std::string path = {};
    std::ofstream stream = {};
    std::string bytes = {};
    std::uint64_t written = 0;
    Seg2File file = {};
    Seg2Trace trace = {};
    Seg2Common common = {};
};

bool flush(Seg2Output &output, Report &report)
{
    output.stream.write(output.bytes.data(), static_cast<std::streamsize>(output.bytes.size()));
    output.written += output.bytes.size();
    output.bytes.clear();
    return output.stream.flush() || failInSystem(report, output.path);
}

void setSamples(Seg2Trace &trace, const std::vector<std::int16_t> &samples)
{
    trace.formatCode = 1;
    trace.int16Samples = samples;
}

void setSamples(Seg2Trace &trace, const std::vector<std::int32_t> &samples)
{
    trace.formatCode = 2;
    trace.int32Samples = samples;
}

void setSamples(Seg2Trace &trace, const std::vector<float> &samples)
{
    trace.formatCode = 4;
    trace.floatSamples = samples;
}

void setSamples(Seg2Trace &trace, const std::vector<double> &samples)
{
    trace.formatCode = 5;
    trace.doubleSamples = samples;
}

/// Puts a string for all traces, unless the file has one that was not understood.
void putCommon(Seg2Strings &strings, const std::string &key, const std::string &text,
               std::string &common, const std::string &value)
{
    if (!value.empty() && strings.try_emplace(key, text).second)
        common = value;
}

/// Writes what comes before the traces. Date and time are those of the first.
bool begin(Seg2Output &output, const RecordFile &file, const RecordTrace &first, Report &report)
{
    if (file.traceCount > mostTraces)
        return fail(report, "SEG2 has no room for " + grouped(file.traceCount)
                                + " traces: 16,383 would fit, and Seismic Unix has room for all");
    Seg2File &seg2 = output.file;
    seg2.revision = 1;
    seg2.traceCount = static_cast<std::uint16_t>(file.traceCount);
    seg2.stringTerminator = {'\0', '\0'};
    seg2.lineTerminator = {'\n', '\0'};
    seg2.reserved.fill('\0');
    seg2.strings = file.strings;
    seg2.strings.try_emplace("TRACE_SORT", "AS_ACQUIRED");
    seg2.strings.try_emplace("UNITS", "METERS");
    putCommon(seg2.strings, "ACQUISITION_DATE", seg2Date(first.date), output.common.date,
              first.date);
    putCommon(seg2.strings, "ACQUISITION_TIME", first.time, output.common.time, first.time);
    output.trace.reserved.fill('\0');

    writeDescriptor(seg2, output.stream);
    output.written = static_cast<std::uint64_t>(std::streamoff(output.stream.tellp()));
    return output.stream.good() || failInSystem(report, output.path);
}

/// What SEG2 has no room for in a trace that begins at `start`, and what would fit; empty when
/// there is none such.
std::string refusalOf(const RecordTrace &trace, const Seg2Strings &strings, std::uint64_t start)
{
    constexpr std::size_t mostBytes = 65498; // with the fields before them and an end of 5 bytes
    std::size_t size = 0;
    for (const auto &[key, value] : strings)
        size += 2 + key.size() + 1 + value.size() + 1;
    if (size > mostBytes)
        return "strings of " + grouped(size) + " bytes: 65,498 would fit";
    if (trace.hasAngles)
        return "positions that are angles: metres would fit";
    if (start > std::numeric_limits<std::uint32_t>::max())
        return "a trace after 4,294,967,295 bytes: Seismic Unix has room for all traces";
    return "";
}

bool put(Seg2Output &output, const RecordFile &file, const RecordTrace &trace, Report &report)
{
    std::vector<std::uint32_t> &pointers = output.file.tracePointers;
    if (pointers.empty() && !begin(output, file, trace, report))
        return false;
    const std::uint64_t start = output.written + output.bytes.size();
    output.trace.strings = stringsOf(trace, output.common);
    const std::string refusal = refusalOf(trace, output.trace.strings, start);
    if (!refusal.empty())
        return fail(report, "trace " + std::to_string(pointers.size() + 1)
                                + ": SEG2 has no room for " + refusal);
    output.trace.sampleCount = static_cast<std::uint32_t>(sampleCountOf(trace.samples));
    std::visit([&](const auto &samples) { setSamples(output.trace, samples); }, trace.samples);
    appendTrace(output.bytes, output.trace, output.file, start);
    pointers.push_back(static_cast<std::uint32_t>(start));
    return output.bytes.size() < std::size_t{1} << 20 || flush(output, report);
}

bool finish(Seg2Output &output, Report &report)
{
    if (flush(output, report) && !writePointers(output.file, output.stream).flush())
        failInSystem(report, output.path);
    return !report.failure;
}

} // namespace

RecordWriter seg2Writer(const std::string &path, Report &report)
{
    const auto output = std::make_shared<Seg2Output>();
    output->path = path;
    output->stream.open(path, std::ios::binary);
    if (!output->stream)
        failInSystem(report, path);
    else if (!output->stream.seekp(0))
        fail(report, {path}, "SEG2 cannot be written to a pipe: what comes first is known last");
    return {[output, &report](const RecordFile &file, const RecordTrace &trace) {
                return put(*output, file, trace, report);
            },
            [output, &report] { return finish(*output, report); }};
}
