// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix_layout.h"

#include "field/numbers.h"
#include "traveltime/text.h"

#include <cstring>

#include <QtEndian>

namespace {

std::uint64_t traceSize(std::uint16_t sampleCount)
{
    return su::headerSize + std::uint64_t{4} * sampleCount;
}

std::uint16_t toNumber(std::string_view bytes, ByteOrder byteOrder)
{
    return byteOrder == ByteOrder::bigEndian ? qFromBigEndian<quint16>(bytes.data())
                                             : qFromLittleEndian<quint16>(bytes.data());
}

/// The number of samples that the header at `position` gives; 0 when the file ends in it.
std::uint16_t sampleCountAt(RecordInput &input, std::uint64_t position, ByteOrder byteOrder)
{
    if (position + su::headerSize > input.size)
        return 0;
    const std::string_view bytes = fewBytesAt(input, position + su::sampleCount, 2);
    return bytes.size() == 2 ? toNumber(bytes, byteOrder) : std::uint16_t{0};
}

/// Where the second header begins if it repeats the first one's counts, or else 0.
std::uint64_t repeatAt(RecordInput &input, ByteOrder byteOrder)
{
    const std::string counts(fewBytesAt(input, su::sampleCount, 4));
    const std::uint16_t sampleCount = sampleCountAt(input, 0, byteOrder);
    const std::uint64_t second = traceSize(sampleCount);
    const bool repeats = sampleCount > 0 && second + su::headerSize <= input.size
                         && fewBytesAt(input, second + su::sampleCount, 4) == counts;
    return repeats ? second : 0;
}

/// Whether the traces fill the file in this byte order; otherwise whether there are any. What
/// counts last is that the numbers of the first header are small.
auto fitOf(RecordInput &input, ByteOrder byteOrder)
{
    const SuTraces traces = countTraces(input, byteOrder);
    const auto header = headerAt(input, 0, byteOrder);
    return std::tuple(traces.end == input.size, traces.count > 0, header ? -bitsTaken(*header) : 0);
}

} // namespace

std::optional<SuOrder> findSuOrder(RecordInput &input)
{
    if (sampleCountAt(input, 0, ByteOrder::littleEndian) == 0)
        return std::nullopt; // then it is 0 in the other order too
    const std::uint64_t littleRepeat = repeatAt(input, ByteOrder::littleEndian);
    const std::uint64_t bigRepeat = repeatAt(input, ByteOrder::bigEndian);
    const bool isLittle =
        (littleRepeat > 0) != (bigRepeat > 0)
            ? littleRepeat > 0
            : fitOf(input, ByteOrder::littleEndian) >= fitOf(input, ByteOrder::bigEndian);
    SuOrder order = {isLittle ? ByteOrder::littleEndian : ByteOrder::bigEndian};
    const std::uint64_t repeat = isLittle ? littleRepeat : bigRepeat;
    if (repeat > 0) {
        order.isCertain = true;
        order.knownBy = "the header that repeats at byte " + grouped(repeat);
    } else {
        const SuTraces traces = countTraces(input, order.byteOrder);
        order.isCertain = traces.end == input.size;
        order.knownBy = order.isCertain ? "its size, that of " + counted(traces.count, "trace")
                                        : "its first header";
    }
    order.knownBy += std::string(", ") + nameOf(order.byteOrder);
    return order;
}

SuTraces countTraces(RecordInput &input, ByteOrder byteOrder)
{
    SuTraces traces;
    while (const std::uint16_t sampleCount = sampleCountAt(input, traces.end, byteOrder)) {
        if (traces.end + traceSize(sampleCount) > input.size)
            break;
        traces.end += traceSize(sampleCount);
        ++traces.count;
    }
    return traces;
}

std::optional<SuHeaderBytes> headerAt(RecordInput &input, std::uint64_t position,
                                      ByteOrder byteOrder)
{
    const std::string_view bytes = fewBytesAt(input, position, su::headerSize);
    if (bytes.size() < su::headerSize)
        return std::nullopt;
    SuHeaderBytes header;
    std::memcpy(header.data(), bytes.data(), su::headerSize);
    if (byteOrder != machineByteOrder())
        swapFields(header);
    return header;
}

const char *nameOf(ByteOrder byteOrder)
{
    return byteOrder == ByteOrder::littleEndian ? "little-endian" : "big-endian";
}
