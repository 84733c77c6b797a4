// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix.h"

#include "field/numbers.h"
#include "field/samples.h"
#include "field/seg2.h"
#include "field/seismic_unix_layout.h"
#include "field/seismic_unix_trace.h"
#include "traveltime/text.h"

#include <cmath>
#include <cstdint>
#include <fstream>
#include <limits>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

#include <QtEndian>

namespace {

constexpr std::size_t headerSize = std::tuple_size_v<SuHeaderBytes>;

/// Whether the bytes of a header are not all of a text: fields that are 0 have zeros.
bool hasZeros(const std::string &start)
{
    return start.substr(0, headerSize).find('\0') != std::string::npos;
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

/// Copies samples, which are as many as `samples` has room for, into this machine's byte order.
void copySamples(std::string_view bytes, ByteOrder byteOrder, std::vector<float> &samples)
{
    static_assert(sizeof(float) == sizeof(quint32) && std::numeric_limits<float>::is_iec559);
    const auto count = static_cast<qsizetype>(samples.size());
    if (byteOrder == ByteOrder::bigEndian)
        qFromBigEndian<quint32>(bytes.data(), count, samples.data());
    else
        qFromLittleEndian<quint32>(bytes.data(), count, samples.data());
}

void appendSamples(std::string &bytes, ByteOrder byteOrder, const std::vector<float> &samples)
{
    const auto count = static_cast<qsizetype>(samples.size());
    const std::size_t before = bytes.size();
    bytes.append(reinterpret_cast<const char *>(samples.data()), samples.size() * sizeof(float));
    char *const appended = bytes.data() + before;
    if (byteOrder == ByteOrder::bigEndian)
        qToBigEndian<quint32>(appended, count, appended);
    else
        qToLittleEndian<quint32>(appended, count, appended);
}

/// Gives the whole traces to `take`.
bool readTraces(RecordInput &input, const SuLayout &layout, const TakeTrace &take,
                SuReadings &readings, Report &report)
{
    RecordFile file;
    file.format = "su";
    file.byteOrder = layout.byteOrder;
    file.knownBy = layout.knownBy;
    file.traceCount = layout.traceCount;
    std::vector<float> samples;
    std::uint64_t position = 0;
    for (std::size_t number = 1; number <= layout.traceCount; ++number) {
        const auto header = headerAt(input, position, layout.byteOrder);
        samples.resize(header ? numberAt<std::uint16_t>(*header, su::sampleCount) : 0);
        const std::size_t size = samples.size() * sizeof(float);
        const std::string_view bytes = bytesAt(input, position + headerSize, size);
        if (!header || bytes.size() < size)
            return failAtDamage(input, number, "the file changed while it was read", report);
        copySamples(bytes, layout.byteOrder, samples);
        position += headerSize + size;
        file.fractionRead = static_cast<double>(position) / static_cast<double>(input.size);

        RecordTrace trace = traceOf(*header, number, readings);
        trace.samples = std::move(samples);
        if (!take(file, trace))
            return false;
        samples = std::get<std::vector<float>>(std::move(trace.samples));
    }
    return true;
}

/// Fails when anything follows the whole traces.
bool endsWell(RecordInput &input, const SuLayout &layout, Report &report)
{
    if (layout.end == input.size)
        return true;
    const auto header = headerAt(input, layout.end, layout.byteOrder);
    const bool isEmpty = header && numberAt<std::uint16_t>(*header, su::sampleCount) == 0;
    const std::size_t number = layout.traceCount + 1;
    const std::string name = "trace " + grouped(number);
    return failAtDamage(input, number,
                        isEmpty ? "the header of " + name + " says that it has no samples"
                                : "the file ends within " + name,
                        report);
}

/// Writes what is collected when it is a megabyte or more: a small write begins inside a page of
/// the disk's cache, which the system then fills with zeros first.
struct SuOutput
{
    std::string path = {};
    ByteOrder byteOrder = ByteOrder::littleEndian;
    std::ofstream stream = {};
    std::string bytes = {};
    std::vector<float> floats = {};
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
const std::vector<float> &floatsOf(const RecordTrace &trace, SuOutput &output, std::string &refusal)
{
    if (const auto *floats = std::get_if<std::vector<float>>(&trace.samples))
        return *floats;
    const auto rounding = toFloats(trace.samples, 1.0, output.floats);
    if (rounding && std::isinf(rounding->rounded))
        refusal = "a sample of " + rounding->sample + ": 3.4028235e+38 is the largest that fits";
    else if (rounding)
        countTrace(output.samples, output.traceCount, [&] {
            return "samples become 32-bit floats: " + rounding->sample + " becomes "
                   + shortest(rounding->rounded);
        });
    return output.floats;
}

bool flush(SuOutput &output, Report &report)
{
    output.stream.write(output.bytes.data(), static_cast<std::streamsize>(output.bytes.size()));
    output.bytes.clear();
    return output.stream.flush() || failInSystem(report, output.path);
}

bool put(SuOutput &output, const RecordTrace &trace, Report &report)
{
    const std::size_t number = ++output.traceCount;
    const std::size_t sampleCount = sampleCountOf(trace.samples);
    SuHeaderBytes header;
    std::string refusal = makeHeader(trace, number, header, output.roundings);
    if (refusal.empty())
        refusal = refusalOf(sampleCount);
    const std::vector<float> &floats = floatsOf(trace, output, refusal);
    if (!refusal.empty())
        return fail(report, "trace " + std::to_string(number) + ": Seismic Unix has no room for "
                                + refusal);
    putNumber(header, su::sampleCount, static_cast<std::uint16_t>(sampleCount));
    if (output.byteOrder != machineByteOrder())
        swapFields(header);
    output.bytes.append(header.data(), header.size());
    appendSamples(output.bytes, output.byteOrder, floats);
    return output.bytes.size() < std::size_t{1} << 20 || flush(output, report);
}

bool finish(SuOutput &output, Report &report)
{
    remarkOn(output.roundings.position, RemarkKind::roundedPosition, report);
    remarkOn(output.roundings.interval, RemarkKind::roundedTime, report);
    remarkOn(output.roundings.delay, RemarkKind::roundedTime, report);
    remarkOn(output.roundings.time, RemarkKind::roundedTime, report);
    remarkOn(output.samples, RemarkKind::samples, report);
    return flush(output, report) && !report.failure;
}

} // namespace

std::string recogniseSeismicUnix(const std::string &start, const std::string &path)
{
    // A header has fields that are 0, a text has none but in UTF-16.
    const bool isText =
        start.substr(0, headerSize).find('\0') == std::string::npos || markSize(start) > 0;
    if (isText || !otherFormatOf(start).empty())
        return "";
    RecordInput input;
    Report report;
    if (!openRecord(input, path, report))
        return "";
    const auto layout = findSuLayout(input);
    return layout && layout->isCertain ? layout->knownBy : "";
}

bool readSeismicUnix(const std::string &path, const TakeTrace &take, Report &report)
{
    RecordInput input;
    if (!openRecord(input, path, report))
        return false;
    const std::string other = otherFormatOf(std::string(bytesAt(input, 0, 4096)));
    if (!other.empty())
        return fail(report, "this is " + other + ", not Seismic Unix");
    if (input.size < headerSize)
        return fail(report, "the file ends within its first header: " + std::to_string(input.size)
                                + " of 240 bytes");
    const auto layout = findSuLayout(input);
    if (!layout)
        return fail(report, "this is no Seismic Unix: the first header says that there are no "
                            "samples");
    SuReadings readings;
    const bool isRead = readTraces(input, *layout, take, readings, report);
    remarkOn(readings.interval, RemarkKind::samples, report);
    remarkOn(readings.time, RemarkKind::notANumber, report);
    return isRead && endsWell(input, *layout, report);
}

RecordWriter seismicUnixWriter(const std::string &path, ByteOrder byteOrder, Report &report)
{
    const auto output = std::make_shared<SuOutput>();
    output->path = path;
    output->byteOrder = byteOrder;
    output->stream.open(path, std::ios::binary);
    if (!output->stream)
        failInSystem(report, path);
    return {[output, &report](const RecordFile &, const RecordTrace &trace) {
                return put(*output, trace, report);
            },
            [output, &report] { return finish(*output, report); }};
}
