// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/seg2_file.h"

#include "seg2/little_endian.h"
#include "traveltime/text.h"

#include <algorithm>
#include <utility>

#include <QtEndian>

namespace {

using Strings = std::map<std::string, std::string>;

constexpr std::array standardKeywords = {
    "ACQUISITION_DATE", "ACQUISITION_TIME", "CLIENT", "COMPANY",  "GENERAL_CONSTANT",
    "GENERAL_CONSTANT", "INSTRUMENT",       "JOB_ID", "OBSERVER", "PROCESSING_DATE",
    "PROCESSING_TIME",  "TRACE_SORT",       "UNITS",  "NOTE",
};

constexpr std::size_t descriptorFieldsSize = 32; // of the file's descriptor and of a trace's

std::string location(double x, double y, double z)
{
    std::string text;
    appendNumber(text, x);
    text += ' ';
    appendNumber(text, y);
    text += ' ';
    appendNumber(text, z);
    return text;
}

std::string number(double value)
{
    std::string text;
    appendNumber(text, value);
    return text;
}

/// A block's string list, filled up with spaces so that it ends at a multiple of 4 when it stands
/// at `position` in the file.
std::string stringList(const Strings &strings, const Seg2File &file, std::uint64_t position)
{
    const auto [first, second] = file.stringTerminator;
    const int terminator = file.stringTerminatorSize == 1 ? first : first + second;
    std::string bytes;
    const auto append = [&bytes, terminator](const std::string &key, const std::string &value) {
        const std::size_t size = 2 + key.size() + 1 + value.size() + 1; // counts itself
        appendLittle16(bytes, static_cast<std::uint16_t>(size));
        bytes += key;
        bytes += ' ';
        bytes += value;
        bytes += static_cast<char>(terminator);
    };
    for (const auto &[key, value] : strings) {
        if (key != "NOTE")
            append(key, value);
    }
    if (const auto note = strings.find("NOTE"); note != strings.end())
        append(note->first, note->second);
    appendLittle16(bytes, 0);
    while ((position + bytes.size()) % 4 != 0)
        bytes += ' ';
    return bytes;
}

template <typename Sample>
void appendData(std::string &bytes, const std::vector<Sample> &samples, std::size_t count)
{
    if (samples.size() < count)
        throwInvalidSubscript();
    appendLittleSamples(bytes, samples.data(), count);
}

void appendData(std::string &bytes, const Seg2Trace &trace)
{
    switch (trace.formatCode) {
    case 1:
        return appendData(bytes, trace.int16Samples, trace.sampleCount);
    case 2:
        return appendData(bytes, trace.int32Samples, trace.sampleCount);
    case 3:
        return appendData(bytes, trace.packedSamples, trace.packedByteCount);
    case 4:
        return appendData(bytes, trace.floatSamples, trace.sampleCount);
    case 5:
        return appendData(bytes, trace.doubleSamples, trace.sampleCount);
    default:
        return;
    }
}

std::string fileDescriptor(const Seg2File &file)
{
    std::string bytes;
    appendLittle16(bytes, file.blockId);
    appendLittle16(bytes, file.revision);
    appendLittle16(bytes, file.tracePointersSize);
    appendLittle16(bytes, file.traceCount);
    appendLittleSamples(bytes, &file.stringTerminatorSize, 1);
    appendLittleSamples(bytes, file.stringTerminator.data(), 2);
    appendLittleSamples(bytes, &file.lineTerminatorSize, 1);
    appendLittleSamples(bytes, file.lineTerminator.data(), 2);
    bytes.append(file.reserved.data(), file.reserved.size());
    bytes.append(std::size_t{4} * file.traceCount, '\0'); // the pointers, known later
    bytes += stringList(file.strings, file, bytes.size());
    return bytes;
}

using TraceAt = std::function<Seg2Trace &(std::size_t index)>;

/// Writes `count` traces after what the stream holds, a megabyte or more at once: a small write
/// begins inside a page of the disk's cache, which the system then fills with zeros first.
void writeTraces(Seg2File &file, std::size_t count, const TraceAt &traceAt, std::ostream &stream)
{
    stream.seekp(0, std::ios::end);
    // A stream that has failed, which has no position, takes nothing.
    auto written = static_cast<std::uint64_t>(std::streamoff(stream.tellp()));
    std::string bytes;
    std::size_t wholeTraces = 0; // bytes
    const auto flush = [&] {
        bytes.resize(wholeTraces);
        stream << bytes;
        written += wholeTraces;
        bytes.clear();
        wholeTraces = 0;
    };
    try {
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint64_t start = written + bytes.size();
            appendTrace(bytes, traceAt(i), file, start);
            wholeTraces = bytes.size();
            if (i >= file.tracePointers.size())
                throwInvalidSubscript();
            file.tracePointers[i] = static_cast<std::uint32_t>(start);
            if (bytes.size() >= std::size_t{1} << 20)
                flush();
        }
    } catch (...) {
        flush(); // the traces before stay
        throw;
    }
    flush();
}

} // namespace

void setFileString(Seg2File &file, std::string key, std::string value, Report &report)
{
    const auto beginsKey = [&key](const char *keyword) { return key.starts_with(keyword); };
    if (std::none_of(standardKeywords.begin(), standardKeywords.end(), beginsKey))
        print(report, "WARNING: Keyword " + key
                          + " is not a standard keyword for the file descriptor block.");
    file.strings[std::move(key)] = std::move(value);
}

void setFileString(Seg2File &file, std::string key, std::string value)
{
    Report report = windowReport();
    setFileString(file, std::move(key), std::move(value), report);
    finish(report);
}

Seg2Trace buildTrace(const Seg2TraceHeader &header, std::vector<float> samples)
{
    Seg2Trace trace;
    trace.sampleCount = header.sampleCount;
    trace.dataSize = header.sampleCount * 4;
    const auto set = [&trace](const char *key, std::string value) { // in the order of the keys
        trace.strings.emplace_hint(trace.strings.end(), key, std::move(value));
    };
    set("DELAY", number(header.delay));
    set("DESCALING_FACTOR", number(header.descalingFactor));
    set("RECEIVER_LOCATION", location(header.receiverX, header.receiverY, header.receiverZ));
    set("SAMPLE_INTERVAL", number(header.sampleInterval));
    set("SOURCE_LOCATION", location(header.sourceX, header.sourceY, header.sourceZ));
    set("STACK", std::to_string(header.stackCount));
    trace.floatSamples = std::move(samples);
    return trace;
}

void addTrace(Seg2File &file, const Seg2TraceHeader &header, std::vector<float> samples)
{
    file.traces.push_back(buildTrace(header, std::move(samples)));
    file.tracePointers.push_back(0);
    ++file.traceCount;
}

void appendTrace(std::string &bytes, Seg2Trace &trace, const Seg2File &file, std::uint64_t start)
{
    const std::string strings = stringList(trace.strings, file, start + descriptorFieldsSize);
    trace.descriptorSize = static_cast<std::uint16_t>(descriptorFieldsSize + strings.size());

    const std::size_t begin = bytes.size();
    appendLittle16(bytes, trace.blockId);
    appendLittle16(bytes, trace.descriptorSize);
    const std::size_t dataSizePosition = bytes.size();
    appendLittle32(bytes, trace.dataSize); // known later
    appendLittle32(bytes, trace.sampleCount);
    appendLittleSamples(bytes, &trace.formatCode, 1);
    bytes.append(trace.reserved.data(), trace.reserved.size());
    bytes += strings;
    appendData(bytes, trace);

    // Counted from where the kept descriptor size says that the data begin.
    trace.dataSize = static_cast<std::uint32_t>(bytes.size() - begin - trace.descriptorSize);
    qToLittleEndian(trace.dataSize, bytes.data() + dataSizePosition);
}

void writeDescriptor(Seg2File &file, std::ostream &stream)
{
    file.tracePointersSize = static_cast<std::uint16_t>(4 * file.traceCount);
    stream << fileDescriptor(file);
}

std::ostream &writePointers(const Seg2File &file, std::ostream &stream)
{
    std::string pointers;
    appendLittleSamples(pointers, file.tracePointers.data(), file.tracePointers.size());
    stream.seekp(descriptorFieldsSize);
    return stream << pointers;
}

std::ostream &write(Seg2File &file, std::ostream &stream)
{
    writeDescriptor(file, stream);
    writeTraces(
        file, file.traces.size(), [&file](std::size_t i) -> Seg2Trace & { return file.traces[i]; },
        stream);
    return writePointers(file, stream);
}

std::ostream &writeOneByOne(Seg2File &file, std::size_t traceCount,
                            const std::function<void()> &addNext, std::ostream &stream)
{
    file.traceCount = static_cast<std::uint16_t>(traceCount);
    writeDescriptor(file, stream);
    file.traceCount = 0; // addTrace() counts them again
    const auto next = [&](std::size_t) -> Seg2Trace & {
        file.traces.clear();
        addNext();
        return file.traces.back();
    };
    writeTraces(file, traceCount, next, stream);
    file.traces.clear();
    return writePointers(file, stream);
}

std::string overflowOf(const Seg2File &file)
{
    constexpr std::size_t mostTraces = 16383; // by the size of their pointers
    if (file.tracePointers.size() > mostTraces)
        return counted(file.tracePointers.size(), "trace") + ", and a SEG2 file can point to "
               + std::to_string(mostTraces) + ": split the record";
    if (!std::is_sorted(file.tracePointers.begin(), file.tracePointers.end()))
        return "traces lie beyond the 4 GiB that a SEG2 file can point into: split the record";
    return "";
}
