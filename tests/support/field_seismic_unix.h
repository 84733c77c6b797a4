// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

/// Bytes of a number, in either order.
template <typename Number>
std::string numberBytes(Number number, ByteOrder byteOrder)
{
    const auto bits = static_cast<std::uint64_t>(number);
    std::string bytes;
    for (std::size_t i = 0; i < sizeof number; ++i)
        bytes += static_cast<char>(bits >> 8 * i & 0xFF);
    if (byteOrder == ByteOrder::bigEndian)
        std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

/// A Seismic Unix trace with these fields, two bytes (those from 28 to 35, 68 to 71 and 88 to 179)
/// or four bytes long, by their offset; the number of samples is added.
inline std::string suTrace(ByteOrder byteOrder, const std::map<std::size_t, std::int32_t> &fields,
                           const std::vector<float> &samples)
{
    std::string trace(240, '\0');
    const auto put = [&](std::size_t offset, std::int32_t value) {
        const bool isShort = (offset >= 28 && offset < 36) || (offset >= 68 && offset < 72)
                             || (offset >= 88 && offset < 180);
        const std::string bytes = isShort ? numberBytes(static_cast<std::int16_t>(value), byteOrder)
                                          : numberBytes(value, byteOrder);
        trace.replace(offset, bytes.size(), bytes);
    };
    for (const auto &[offset, value] : fields)
        put(offset, value);
    put(114, static_cast<std::int32_t>(samples.size()));
    for (const float sample : samples) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &sample, sizeof bits);
        trace += numberBytes(bits, byteOrder);
    }
    return trace;
}
