// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/numbers.h"
#include "field/record_input.h"
#include "field/seg2.h"
#include "field/seg2_samples.h"
#include "field/seg2_strings.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <QtEndian>

namespace {

constexpr std::size_t descriptorFieldsSize = 32; // of the file's descriptor and of a trace's

/// Numbers and ends of lines as a file writes them.
struct Seg2Style
{
    ByteOrder byteOrder = ByteOrder::littleEndian;
    Seg2Ends ends = {};
};

template <typename Integer>
Integer integerAt(std::string_view bytes, std::size_t offset, ByteOrder byteOrder)
{
    return byteOrder == ByteOrder::bigEndian ? qFromBigEndian<Integer>(bytes.data() + offset)
                                             : qFromLittleEndian<Integer>(bytes.data() + offset);
}

/// The fields that a file begins with.
struct Seg2Beginning
{
    Seg2Style style = {};
    std::uint16_t revision = 0;
    std::uint16_t pointersSize = 0; ///< bytes
    std::uint16_t traceCount = 0;
};

/// One end, of the string or of the line, at `offset` of the file.
std::string endAt(std::string_view bytes, std::size_t offset)
{
    const auto size = static_cast<unsigned char>(bytes[offset]);
    return std::string(bytes.substr(offset + 1, size <= 2 ? size : 0));
}

/// None when the bytes do not begin with the id of SEG2, or are too few.
std::optional<Seg2Beginning> readBeginning(std::string_view bytes)
{
    const bool isLittle = bytes.starts_with("\x55\x3A");
    if (bytes.size() < descriptorFieldsSize || (!isLittle && !bytes.starts_with("\x3A\x55")))
        return std::nullopt;
    const ByteOrder byteOrder = isLittle ? ByteOrder::littleEndian : ByteOrder::bigEndian;
    return Seg2Beginning{{byteOrder, {endAt(bytes, 8), endAt(bytes, 11)}},
                         integerAt<quint16>(bytes, 2, byteOrder),
                         integerAt<quint16>(bytes, 4, byteOrder),
                         integerAt<quint16>(bytes, 6, byteOrder)};
}

/// Fails for a file whose first fields cannot be.
bool isSound(const Seg2Beginning &beginning, Report &report)
{
    if (beginning.revision > 1)
        return fail(report, "this is SEG2 of revision " + std::to_string(beginning.revision)
                                + ": only 0 and 1 are known");
    if (beginning.traceCount == 0)
        return fail(report, "the file says that it has no traces");
    const std::size_t needed = std::size_t{4} * beginning.traceCount;
    return needed <= beginning.pointersSize
           || fail(report, "the pointers to " + counted(beginning.traceCount, "trace") + " take "
                               + std::to_string(needed) + " bytes, but the file gives them "
                               + std::to_string(beginning.pointersSize));
}

std::vector<std::uint32_t> readPointers(RecordInput &input, const Seg2Beginning &beginning)
{
    const std::string_view bytes =
        bytesAt(input, descriptorFieldsSize, std::size_t{4} * beginning.traceCount);
    std::vector<std::uint32_t> pointers;
    for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4)
        pointers.push_back(integerAt<quint32>(bytes, at, beginning.style.byteOrder));
    return pointers;
}

/// The strings between the pointers and the first trace.
bool readStringsOfFile(RecordInput &input, const Seg2Beginning &beginning,
                       const std::vector<std::uint32_t> &pointers, Seg2Strings &strings,
                       Report &report)
{
    const std::uint64_t begin = descriptorFieldsSize + beginning.pointersSize;
    std::uint64_t end = input.size;
    for (const std::uint32_t pointer : pointers)
        end = pointer >= begin ? std::min<std::uint64_t>(end, pointer) : end;
    constexpr std::uint64_t mostBytes = 1 << 20;
    const std::uint64_t size = end > begin ? std::min(end - begin, mostBytes) : 0;
    const auto read = readSeg2Strings(bytesAt(input, begin, static_cast<std::size_t>(size)),
                                      beginning.style.byteOrder, beginning.style.ends);
    if (!read)
        return fail(report, "the strings of the file reach beyond their block");
    strings = *read;
    return true;
}

/// The fields that a trace's descriptor begins with.
struct Seg2TraceFields
{
    std::uint16_t id = 0;
    std::uint16_t descriptorSize = 0; ///< bytes
    std::uint32_t dataSize = 0;       ///< bytes
    std::uint32_t sampleCount = 0;
    std::uint8_t formatCode = 0;
};

Seg2TraceFields readFields(std::string_view bytes, ByteOrder byteOrder)
{
    return {integerAt<quint16>(bytes, 0, byteOrder), integerAt<quint16>(bytes, 2, byteOrder),
            integerAt<quint32>(bytes, 4, byteOrder), integerAt<quint32>(bytes, 8, byteOrder),
            static_cast<std::uint8_t>(bytes[12])};
}

/// What is wrong with a trace that begins with these fields; empty when nothing is.
std::string refusalOf(const Seg2TraceFields &fields)
{
    if (fields.descriptorSize < descriptorFieldsSize)
        return "its descriptor of " + counted(fields.descriptorSize, "byte") + " is too short";
    const auto size = seg2DataSize(fields.formatCode, fields.sampleCount);
    if (!size)
        return "sample format code " + std::to_string(fields.formatCode)
               + ": only 1 to 5 are known";
    if (*size > fields.dataSize)
        return grouped(fields.sampleCount) + " samples take " + grouped(*size)
               + " bytes, but its data have " + grouped(fields.dataSize);
    return "";
}

/// What readers of a file keep from trace to trace.
struct Seg2Reading
{
    RecordInput input = {};
    Seg2Style style = {};
    Seg2Common common = {};
    RecordFile file = {};
    Seg2Readings readings = {};
};

/// Reads the trace at `position`.
bool readTrace(Seg2Reading &reading, std::uint64_t position, std::size_t number, RecordTrace &trace,
               Report &report)
{
    constexpr std::uint16_t traceId = 0x4422;
    RecordInput &input = reading.input;
    const ByteOrder byteOrder = reading.style.byteOrder;
    const std::string name = "trace " + grouped(number);
    const std::string_view start = bytesAt(input, position, descriptorFieldsSize);
    if (start.size() < descriptorFieldsSize)
        return failAtDamage(input, number, "the file ends before " + name, report);
    const Seg2TraceFields fields = readFields(start, byteOrder);
    if (fields.id != traceId)
        return failAtDamage(input, number,
                            "at byte " + grouped(position) + ", where " + name
                                + " should begin, is no trace",
                            report);
    std::string refusal = refusalOf(fields);
    if (!refusal.empty())
        return fail(report, name + ": " + refusal);

    const std::uint64_t dataSize = *seg2DataSize(fields.formatCode, fields.sampleCount);
    const std::uint64_t size = fields.descriptorSize + dataSize;
    if (position + size > input.size)
        return failAtDamage(input, number, "the file ends within " + name, report);
    const std::string_view bytes = bytesAt(input, position, static_cast<std::size_t>(size));
    if (bytes.size() < size)
        return failAtDamage(input, number, "the file ends within " + name, report);
    auto strings =
        readSeg2Strings(bytes.substr(0, fields.descriptorSize).substr(descriptorFieldsSize),
                        byteOrder, reading.style.ends);
    if (!strings)
        return fail(report, name + ": its strings reach beyond its descriptor");
    trace = {};
    trace.strings = std::move(*strings);
    trace.samples = readSeg2Samples(bytes.substr(fields.descriptorSize), fields.formatCode,
                                    fields.sampleCount, byteOrder);
    refusal = readTraceStrings(trace, reading.common, number, reading.readings);
    reading.file.fractionRead =
        static_cast<double>(position + size) / static_cast<double>(input.size);
    return refusal.empty() || fail(report, name + ": " + refusal);
}

} // namespace

std::string recogniseSeg2(const std::string &start, const std::string &)
{
    Report report;
    const auto beginning = readBeginning(start);
    if (!beginning || !isSound(*beginning, report))
        return "";
    return beginning->style.byteOrder == ByteOrder::littleEndian
               ? "its first bytes, 55 3A, little-endian"
               : "its first bytes, 3A 55, big-endian";
}

bool readSeg2(const std::string &path, const TakeTrace &take, Report &report)
{
    Seg2Reading reading;
    if (!openRecord(reading.input, path, report))
        return false;
    const std::string start(bytesAt(reading.input, 0, descriptorFieldsSize));
    const auto beginning = readBeginning(start);
    if (!beginning)
        return fail(report, start.size() < descriptorFieldsSize
                                ? "the file ends within its first 32 bytes"
                                : "this is no SEG2: it does not begin with 55 3A or 3A 55");
    if (!isSound(*beginning, report))
        return false;
    const std::vector<std::uint32_t> pointers = readPointers(reading.input, *beginning);
    RecordFile &file = reading.file;
    file.format = "seg2";
    file.byteOrder = beginning->style.byteOrder;
    file.knownBy = recogniseSeg2(start, path);
    file.traceCount = beginning->traceCount;
    reading.style = beginning->style;
    if (!readStringsOfFile(reading.input, *beginning, pointers, file.strings, report))
        return false;
    readFileStrings(file.strings, reading.common, report);

    RecordTrace trace;
    bool goesOn = pointers.size() == file.traceCount
                  || fail(report, "the file ends within its pointers to traces");
    for (std::size_t i = 0; goesOn && i < pointers.size(); ++i)
        goesOn = readTrace(reading, pointers[i], i + 1, trace, report) && take(file, trace);
    remarkOn(reading.readings.time, RemarkKind::notANumber, report);
    return !report.failure;
}
