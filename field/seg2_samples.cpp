// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2_samples.h"

#include <QtEndian>

namespace {

constexpr std::size_t groupSamples = 4; // of format code 3
constexpr std::size_t groupWords = 5;

/// Reads samples by their bits, so that each stays as it is.
template <typename Sample, typename Bits>
std::vector<Sample> readSamples(std::string_view bytes, std::size_t count, ByteOrder byteOrder)
{
    static_assert(sizeof(Sample) == sizeof(Bits));
    std::vector<Sample> samples(count);
    if (count == 0)
        return samples; // which has no place to copy to
    if (byteOrder == ByteOrder::bigEndian)
        qFromBigEndian<Bits>(bytes.data(), static_cast<qsizetype>(count), samples.data());
    else
        qFromLittleEndian<Bits>(bytes.data(), static_cast<qsizetype>(count), samples.data());
    return samples;
}

/// 20 bits each: four samples in five words, of which the first holds the exponents, 4 bits each
/// from the lowest on, and the others mantissas in one's complement.
std::vector<std::int32_t> readPackedSamples(std::string_view bytes, std::size_t count,
                                            ByteOrder byteOrder)
{
    const std::size_t groups = (count + groupSamples - 1) / groupSamples;
    const auto words = readSamples<std::int16_t, quint16>(bytes, groups * groupWords, byteOrder);
    std::vector<std::int32_t> samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t group = i / groupSamples * groupWords;
        const std::size_t inGroup = i % groupSamples;
        const int exponent = static_cast<std::uint16_t>(words[group]) >> 4 * inGroup & 0xF;
        const int word = words[group + 1 + inGroup];
        samples[i] = (word < 0 ? word + 1 : word) * (1 << exponent);
    }
    return samples;
}

} // namespace

std::optional<std::uint64_t> seg2DataSize(std::uint8_t formatCode, std::uint32_t sampleCount)
{
    const std::uint64_t count = sampleCount;
    switch (formatCode) {
    case 1:
        return count * sizeof(std::int16_t);
    case 2:
        return count * sizeof(std::int32_t);
    case 3:
        return (count + groupSamples - 1) / groupSamples * groupWords * sizeof(std::int16_t);
    case 4:
        return count * sizeof(float);
    case 5:
        return count * sizeof(double);
    default:
        return std::nullopt;
    }
}

Samples readSeg2Samples(std::string_view bytes, std::uint8_t formatCode, std::uint32_t sampleCount,
                        ByteOrder byteOrder)
{
    switch (formatCode) {
    case 1:
        return readSamples<std::int16_t, quint16>(bytes, sampleCount, byteOrder);
    case 2:
        return readSamples<std::int32_t, quint32>(bytes, sampleCount, byteOrder);
    case 3:
        return readPackedSamples(bytes, sampleCount, byteOrder);
    case 4:
        return readSamples<float, quint32>(bytes, sampleCount, byteOrder);
    default:
        return readSamples<double, quint64>(bytes, sampleCount, byteOrder);
    }
}
