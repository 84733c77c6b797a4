// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/field_seismic_unix.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

// SEG2 files of every kind, for readers.

/// How a file is laid out.
struct Seg2Layout
{
    ByteOrder byteOrder = ByteOrder::littleEndian;
    std::uint16_t revision = 1;
    std::uint16_t pointersSize = 0; ///< bytes; as many as the traces need if these are more
    std::string stringEnd = std::string(1, '\0');
    std::string lineEnd = "\n";
};

struct Seg2TraceBytes
{
    std::vector<std::string> strings = {}; ///< "KEYWORD value"
    std::uint8_t formatCode = 4;
    std::uint32_t sampleCount = 0;
    std::string data = {};
};

/// The bytes of samples: integers, or floats by their bits.
template <typename Sample>
std::string sampleBytes(const std::vector<Sample> &samples, ByteOrder byteOrder)
{
    std::string bytes;
    for (const Sample sample : samples) {
        if constexpr (std::is_same_v<Sample, float>)
            bytes += numberBytes(std::bit_cast<std::uint32_t>(sample), byteOrder);
        else if constexpr (std::is_same_v<Sample, double>)
            bytes += numberBytes(std::bit_cast<std::uint64_t>(sample), byteOrder);
        else
            bytes += numberBytes(sample, byteOrder);
    }
    return bytes;
}

/// A list of strings, with the distance of 0 after them.
inline std::string seg2Strings(const std::vector<std::string> &strings, const Seg2Layout &layout)
{
    std::string list;
    for (const std::string &string : strings) {
        const std::string text = string + layout.stringEnd;
        list += numberBytes(static_cast<std::uint16_t>(2 + text.size()), layout.byteOrder) + text;
    }
    return list + std::string(2, '\0');
}

inline std::string seg2Trace(const Seg2TraceBytes &trace, const Seg2Layout &layout)
{
    const ByteOrder order = layout.byteOrder;
    const std::string strings = seg2Strings(trace.strings, layout);
    return numberBytes(std::uint16_t{0x4422}, order)
           + numberBytes(static_cast<std::uint16_t>(32 + strings.size()), order)
           + numberBytes(static_cast<std::uint32_t>(trace.data.size()), order)
           + numberBytes(trace.sampleCount, order) + static_cast<char>(trace.formatCode)
           + std::string(19, '\0') + strings + trace.data;
}

/// What a file says of how its strings or lines end.
inline std::string seg2End(const std::string &end)
{
    std::string bytes = static_cast<char>(end.size()) + end;
    bytes.resize(3, '\0');
    return bytes;
}

inline std::string seg2File(const Seg2Layout &layout, const std::vector<std::string> &strings,
                            const std::vector<Seg2TraceBytes> &traces)
{
    const ByteOrder order = layout.byteOrder;
    const auto pointersSize =
        std::max(layout.pointersSize, static_cast<std::uint16_t>(4 * traces.size()));
    std::string rest = seg2Strings(strings, layout);
    std::string pointers;
    for (const Seg2TraceBytes &trace : traces) {
        const std::size_t start = 32U + pointersSize + rest.size();
        pointers += numberBytes(static_cast<std::uint32_t>(start), order);
        rest += seg2Trace(trace, layout);
    }
    pointers.resize(pointersSize, '\0');
    return numberBytes(std::uint16_t{0x3A55}, order) + numberBytes(layout.revision, order)
           + numberBytes(pointersSize, order)
           + numberBytes(static_cast<std::uint16_t>(traces.size()), order)
           + seg2End(layout.stringEnd) + seg2End(layout.lineEnd) + std::string(18, '\0') + pointers
           + rest;
}

/// A trace of floats.
inline Seg2TraceBytes floatTrace(const std::vector<std::string> &strings,
                                 const std::vector<float> &samples,
                                 ByteOrder byteOrder = ByteOrder::littleEndian)
{
    return {strings, 4, static_cast<std::uint32_t>(samples.size()),
            sampleBytes(samples, byteOrder)};
}
