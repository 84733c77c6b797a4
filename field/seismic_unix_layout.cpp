// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix_layout.h"

#include "field/numbers.h"
#include "traveltime/text.h"

#include <algorithm>
#include <tuple>

#include <QtEndian>

namespace {

constexpr std::size_t headerSize = std::tuple_size_v<SuHeaderBytes>;

std::uint64_t traceSize(std::uint16_t sampleCount)
{
    return headerSize + std::uint64_t{4} * sampleCount;
}

std::uint16_t toNumber(std::string_view bytes, ByteOrder byteOrder)
{
    return byteOrder == ByteOrder::bigEndian ? qFromBigEndian<quint16>(bytes.data())
                                             : qFromLittleEndian<quint16>(bytes.data());
}

/// The number of samples that the header at `position` gives; 0 when the file ends in it.
std::uint16_t sampleCountAt(RecordInput &input, std::uint64_t position, ByteOrder byteOrder)
{
    if (position + headerSize > input.size)
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
    const bool repeats = sampleCount > 0 && second + headerSize <= input.size
                         && fewBytesAt(input, second + su::sampleCount, 4) == counts;
    return repeats ? second : 0;
}

/// Goes from header to header, as far as there are samples and whole traces.
SuLayout layoutIn(RecordInput &input, ByteOrder byteOrder)
{
    SuLayout layout;
    layout.byteOrder = byteOrder;
    while (const std::uint16_t sampleCount = sampleCountAt(input, layout.end, byteOrder)) {
        if (layout.end + traceSize(sampleCount) > input.size)
            break;
        layout.end += traceSize(sampleCount);
        ++layout.traceCount;
    }
    return layout;
}

SuLayout moreLikely(RecordInput &input)
{
    SuLayout little = layoutIn(input, ByteOrder::littleEndian);
    SuLayout big = layoutIn(input, ByteOrder::bigEndian);
    // Where both fill the file, or neither does, the order in which the header's numbers are small.
    const auto fit = [&input](const SuLayout &layout) {
        const auto header = headerAt(input, 0, layout.byteOrder);
        return std::tuple(layout.end == input.size, layout.traceCount > 0,
                          header ? -bitsTaken(*header) : 0);
    };
    return fit(little) >= fit(big) ? little : big;
}

} // namespace

std::optional<SuLayout> findSuLayout(RecordInput &input)
{
    if (sampleCountAt(input, 0, ByteOrder::littleEndian) == 0)
        return std::nullopt; // then it is 0 in the other order too
    const std::uint64_t littleRepeat = repeatAt(input, ByteOrder::littleEndian);
    const std::uint64_t bigRepeat = repeatAt(input, ByteOrder::bigEndian);
    SuLayout layout;
    if ((littleRepeat > 0) == (bigRepeat > 0))
        layout = moreLikely(input);
    else
        layout = layoutIn(input, littleRepeat > 0 ? ByteOrder::littleEndian : ByteOrder::bigEndian);

    const std::uint64_t repeat =
        layout.byteOrder == ByteOrder::littleEndian ? littleRepeat : bigRepeat;
    layout.isCertain = repeat > 0 || layout.end == input.size;
    if (repeat > 0)
        layout.knownBy = "the header that repeats at byte " + grouped(repeat);
    else if (layout.isCertain)
        layout.knownBy = "its size, that of " + counted(layout.traceCount, "trace");
    else
        layout.knownBy = "its first header";
    layout.knownBy += std::string(", ") + nameOf(layout.byteOrder);
    return layout;
}

std::optional<SuHeaderBytes> headerAt(RecordInput &input, std::uint64_t position,
                                      ByteOrder byteOrder)
{
    const std::string_view bytes = fewBytesAt(input, position, headerSize);
    if (bytes.size() < headerSize)
        return std::nullopt;
    SuHeaderBytes header;
    std::ranges::copy(bytes, header.begin());
    if (byteOrder != machineByteOrder())
        swapFields(header);
    return header;
}

const char *nameOf(ByteOrder byteOrder)
{
    return byteOrder == ByteOrder::littleEndian ? "little-endian" : "big-endian";
}
