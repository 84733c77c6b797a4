// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix.h"

#include "field/numbers.h"
#include "field/record_output.h"
#include "field/samples.h"
#include "field/seg2.h"
#include "field/seismic_unix_layout.h"
#include "field/seismic_unix_trace.h"
#include "traveltime/text.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include <QtEndian>

namespace {

/// Whether the bytes of a header are not all of a text: fields that are 0 have zeros.
bool hasZeros(const std::string &start)
{
    return start.substr(0, su::headerSize).find('\0') != std::string::npos;
}

/// What else the file is; empty when it could be Seismic Unix.
std::string otherFormatOf(const std::string &start)
{
    if (!recogniseSeg2(start, "").empty())
        return "SEG2";
    constexpr std::size_t sampleFormat = 3224;
    if (start.size() < sampleFormat + 2 || (start[0] != 'C' && start[0] != '\xC3')
        || hasZeros(start))
        return "";
    const auto format = qFromBigEndian<quint16>(start.data() + sampleFormat);
    return format >= 1 && format <= 16 ? "SEG-Y" : "";
}

/// Reverses the bytes of `count` numbers of 4 bytes. Halves of 2 bytes at a time become vector
/// instructions that every processor has: twice as fast.
void swapNumbers(const char *from, std::size_t count, char *to)
{
    const auto swapped = [](const char *bytes) {
        std::uint16_t half = 0;
        std::memcpy(&half, bytes, sizeof half);
        return static_cast<std::uint16_t>(half << 8 | half >> 8);
    };
    for (std::size_t i = 0; i < 4 * count; i += 4) {
        const std::uint16_t first = swapped(from + i);
        const std::uint16_t second = swapped(from + i + 2);
        std::memcpy(to + i, &second, sizeof second);
        std::memcpy(to + i + 2, &first, sizeof first);
    }
}

void copyFloats(std::string_view bytes, ByteOrder byteOrder, std::vector<float> &samples)
{
    static_assert(sizeof(float) == 4 && std::numeric_limits<float>::is_iec559);
    char *const to = reinterpret_cast<char *>(samples.data());
    if (byteOrder == machineByteOrder())
        std::memcpy(to, bytes.data(), bytes.size());
    else
        swapNumbers(bytes.data(), samples.size(), to);
}

void appendFloats(std::string &bytes, ByteOrder byteOrder, const std::vector<float> &samples)
{
    const char *const from = reinterpret_cast<const char *>(samples.data());
    const std::size_t before = bytes.size();
    bytes.append(from, samples.size() * sizeof(float));
    if (byteOrder != machineByteOrder())
        swapNumbers(from, samples.size(), bytes.data() + before);
}

/// Gives the whole traces to `take`.
bool readTraces(RecordInput &input, const SuOrder &order, std::size_t traceCount,
                const TakeTrace &take, SuReadings &readings, Report &report)
{
    RecordFile file;
    file.format = "su";
    file.byteOrder = order.byteOrder;
    file.knownBy = order.knownBy;
    file.traceCount = traceCount;
    std::vector<float> samples;
    std::uint64_t position = 0;
    for (std::size_t number = 1; number <= traceCount; ++number) {
        const auto header = headerAt(input, position, order.byteOrder);
        samples.resize(header ? numberAt<std::uint16_t>(*header, su::sampleCount) : 0);
        const std::size_t size = samples.size() * sizeof(float);
        const std::string_view bytes = bytesAt(input, position + su::headerSize, size);
        if (!header || bytes.size() < size)
            return failAtDamage(input, number, "the file changed while it was read", report);
        copyFloats(bytes, order.byteOrder, samples);
        position += su::headerSize + size;
        file.fractionRead = static_cast<double>(position) / static_cast<double>(input.size);

        RecordTrace trace = traceOf(*header, number, readings);
        trace.samples = std::move(samples);
        if (!take(file, trace))
            return false;
        samples = std::get<std::vector<float>>(std::move(trace.samples)); // for the next
    }
    return true;
}

/// Fails when anything follows the whole traces.
bool endsWell(RecordInput &input, ByteOrder byteOrder, const SuTraces &traces, Report &report)
{
    if (traces.end == input.size)
        return true;
    const auto header = headerAt(input, traces.end, byteOrder);
    const bool isEmpty = header && numberAt<std::uint16_t>(*header, su::sampleCount) == 0;
    const std::size_t number = traces.count + 1;
    const std::string name = "trace " + grouped(number);
    return failAtDamage(input, number,
                        isEmpty ? "the header of " + name + " says that it has no samples"
                                : "the file ends within " + name,
                        report);
}

struct SuWriting
{
    RecordOutput output = {};
    ByteOrder byteOrder = ByteOrder::littleEndian;
    std::vector<float> floats = {}; ///< of a trace that has others
    std::size_t traceCount = 0;
    SuRoundings roundings = {};
    TraceTally samples = {};
};

std::string refusalOf(std::size_t sampleCount)
{
    if (sampleCount == 0)
        return "no samples: 1 to 65,535 would fit";
    if (sampleCount > std::numeric_limits<std::uint16_t>::max())
        return grouped(sampleCount) + " samples: 65,535 would fit, and SEG2 has room for all";
    return "";
}

/// The samples as floats; fills in why not, if that is so.
const std::vector<float> &floatsOf(const RecordTrace &trace, SuWriting &writing,
                                   std::string &refusal)
{
    if (const auto *floats = std::get_if<std::vector<float>>(&trace.samples))
        return *floats;
    const auto rounding = toFloats(trace.samples, 1.0, writing.floats);
    if (rounding && std::isinf(rounding->rounded))
        refusal = "a sample of " + rounding->sample + ": 3.4028235e+38 is the largest that fits";
    else if (rounding)
        countTrace(writing.samples, writing.traceCount, [&] {
            return "samples become 32-bit floats: " + rounding->sample + " becomes "
                   + shortest(rounding->rounded);
        });
    return writing.floats;
}

bool put(SuWriting &writing, const RecordTrace &trace, Report &report)
{
    const std::size_t number = ++writing.traceCount;
    const std::size_t sampleCount = sampleCountOf(trace.samples);
    SuHeaderBytes header;
    std::string refusal = makeHeader(trace, number, header, writing.roundings);
    if (refusal.empty())
        refusal = refusalOf(sampleCount);
    const std::vector<float> &floats = floatsOf(trace, writing, refusal);
    if (!refusal.empty())
        return fail(report, "trace " + std::to_string(number) + ": Seismic Unix has no room for "
                                + refusal);
    putNumber(header, su::sampleCount, static_cast<std::uint16_t>(sampleCount));
    if (writing.byteOrder != machineByteOrder())
        swapFields(header);
    writing.output.bytes.append(header.data(), header.size());
    appendFloats(writing.output.bytes, writing.byteOrder, floats);
    return writeLargePiece(writing.output, report);
}

bool finish(SuWriting &writing, Report &report)
{
    remarkOn(writing.roundings.position, RemarkKind::roundedPosition, report);
    remarkOn(writing.roundings.interval, RemarkKind::roundedTime, report);
    remarkOn(writing.roundings.delay, RemarkKind::roundedTime, report);
    remarkOn(writing.roundings.time, RemarkKind::roundedTime, report);
    remarkOn(writing.samples, RemarkKind::samples, report);
    return writeRest(writing.output, report);
}

} // namespace

std::string recogniseSeismicUnix(const std::string &start, const std::string &path)
{
    // A header has fields that are 0, a text has none but in UTF-16.
    const bool isText = !hasZeros(start) || markSize(start) > 0;
    if (isText || !otherFormatOf(start).empty())
        return "";
    RecordInput input;
    Report report;
    if (!openRecord(input, path, report))
        return "";
    const auto order = findSuOrder(input);
    return order && order->isCertain ? order->knownBy : "";
}

bool readSeismicUnix(const std::string &path, const TakeTrace &take, Report &report)
{
    RecordInput input;
    if (!openRecord(input, path, report))
        return false;
    const std::string other = otherFormatOf(std::string(bytesAt(input, 0, 4096)));
    if (!other.empty())
        return fail(report, "this is " + other + ", not Seismic Unix");
    if (input.size < su::headerSize)
        return fail(report, "the file ends within its first header: " + std::to_string(input.size)
                                + " of 240 bytes");
    const auto order = findSuOrder(input);
    if (!order)
        return fail(report, "this is no Seismic Unix: the first header says that there are no "
                            "samples");
    SuReadings readings;
    const SuTraces traces = countTraces(input, order->byteOrder);
    const bool isRead = readTraces(input, *order, traces.count, take, readings, report);
    remarkOn(readings.interval, RemarkKind::samples, report);
    remarkOn(readings.time, RemarkKind::notANumber, report);
    return isRead && endsWell(input, order->byteOrder, traces, report);
}

RecordWriter seismicUnixWriter(const std::string &path, ByteOrder byteOrder, Report &report)
{
    const auto writing = std::make_shared<SuWriting>();
    writing->byteOrder = byteOrder;
    createOutput(writing->output, path, report);
    return {[writing, &report](const RecordFile &, const RecordTrace &trace) {
                return put(*writing, trace, report);
            },
            [writing, &report] { return finish(*writing, report); }};
}
