// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The bytes of a number, least significant first or last.
inline std::string inOrder(std::uint32_t number, std::size_t size,
                           std::endian order = std::endian::little)
{
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
        const char byte = static_cast<char>(number >> (8 * i) & 0xFF);
        bytes.insert(order == std::endian::big ? 0 : bytes.size(), 1, byte);
    }
    return bytes;
}

/// What is read of the header of a trace of a Seismic Unix file.
struct SuFields
{
    std::int16_t scalar = 0;
    std::int32_t sourceX = 0;
    std::int32_t receiverX = 0;
    std::uint16_t sampleCount = 0;
    std::uint16_t interval = 0; ///< microseconds
};

/// A trace: a header, whose other bytes must not matter, and the samples, as many as are given.
inline std::string suTrace(const SuFields &fields, const std::vector<float> &samples,
                           std::endian order = std::endian::little)
{
    std::string trace(240, '\0');
    trace.replace(70, 2, inOrder(static_cast<std::uint16_t>(fields.scalar), 2, order));
    trace.replace(72, 4, inOrder(static_cast<std::uint32_t>(fields.sourceX), 4, order));
    trace.replace(80, 4, inOrder(static_cast<std::uint32_t>(fields.receiverX), 4, order));
    trace.replace(114, 2, inOrder(fields.sampleCount, 2, order));
    trace.replace(116, 2, inOrder(fields.interval, 2, order));
    for (const float sample : samples)
        trace += inOrder(std::bit_cast<std::uint32_t>(sample), 4, order);
    return trace;
}
