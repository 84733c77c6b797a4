// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

// Numbers as bytes, least significant first, whatever the order of the machine is.

inline void storeLittle16(char *to, std::uint16_t value)
{
    to[0] = static_cast<char>(value);
    to[1] = static_cast<char>(value >> 8);
}

inline void storeLittle32(char *to, std::uint32_t value)
{
    storeLittle16(to, static_cast<std::uint16_t>(value));
    storeLittle16(to + 2, static_cast<std::uint16_t>(value >> 16));
}

inline void storeLittle64(char *to, std::uint64_t value)
{
    storeLittle32(to, static_cast<std::uint32_t>(value));
    storeLittle32(to + 4, static_cast<std::uint32_t>(value >> 32));
}

inline void appendLittle16(std::string &bytes, std::uint16_t value)
{
    bytes.resize(bytes.size() + sizeof value);
    storeLittle16(&bytes[bytes.size() - sizeof value], value);
}

inline void appendLittle32(std::string &bytes, std::uint32_t value)
{
    bytes.resize(bytes.size() + sizeof value);
    storeLittle32(&bytes[bytes.size() - sizeof value], value);
}

/// Appends `count` samples: integers in two's complement, floating point in IEEE format.
template <typename Sample>
void appendLittleSamples(std::string &bytes, const Sample *samples, std::size_t count)
{
    const std::size_t before = bytes.size();
    bytes.resize(before + count * sizeof(Sample));
    char *to = bytes.data() + before;
    for (std::size_t i = 0; i < count; ++i, to += sizeof(Sample)) {
        if constexpr (sizeof(Sample) == 1)
            *to = std::bit_cast<char>(samples[i]);
        else if constexpr (sizeof(Sample) == 2)
            storeLittle16(to, std::bit_cast<std::uint16_t>(samples[i]));
        else if constexpr (sizeof(Sample) == 4)
            storeLittle32(to, std::bit_cast<std::uint32_t>(samples[i]));
        else
            storeLittle64(to, std::bit_cast<std::uint64_t>(samples[i]));
    }
}
