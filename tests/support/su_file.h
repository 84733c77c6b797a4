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
    std::int32_t receiverElevation = 0;
    std::int32_t sourceElevation = 0;
    std::int32_t sourceY = 0;
    std::int32_t receiverY = 0;
    std::int16_t delay = 0;      ///< milliseconds
    std::uint16_t traceCode = 1; ///< 1: seismic data
    char filling = '\0';         ///< of the other bytes, which must not matter
};

/// A trace: a header and the samples, as many as are given.
inline std::string suTrace(const SuFields &fields, const std::vector<float> &samples,
                           std::endian order = std::endian::little)
{
    std::string trace(240, fields.filling);
    const auto put = [&](std::size_t at, auto number) {
        trace.replace(at, sizeof number,
                      inOrder(static_cast<std::uint32_t>(number), sizeof number, order));
    };
    put(28, fields.traceCode);
    put(40, fields.receiverElevation);
    put(44, fields.sourceElevation);
    put(70, fields.scalar);
    put(72, fields.sourceX);
    put(76, fields.sourceY);
    put(80, fields.receiverX);
    put(84, fields.receiverY);
    put(108, fields.delay);
    put(114, fields.sampleCount);
    put(116, fields.interval);
    for (const float sample : samples)
        trace += inOrder(std::bit_cast<std::uint32_t>(sample), 4, order);
    return trace;
}

/// Samples of these bits.
inline std::vector<float> fromBits(const std::vector<std::uint32_t> &bits)
{
    std::vector<float> samples;
    for (const std::uint32_t sample : bits)
        samples.push_back(std::bit_cast<float>(sample));
    return samples;
}
