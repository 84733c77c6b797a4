// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <QtEndian>

// Numbers as bytes, least significant first, whatever the order of the machine is.

/// Appends `count` samples: integers in two's complement, floating point in IEEE format.
template <typename Sample>
void appendLittleSamples(std::string &bytes, const Sample *samples, std::size_t count)
{
    const std::size_t before = bytes.size();
    bytes.append(reinterpret_cast<const char *>(samples), count * sizeof(Sample));
    char *const appended = bytes.data() + before;
    qToLittleEndian<Sample>(appended, static_cast<qsizetype>(count), appended);
}

inline void appendLittle16(std::string &bytes, std::uint16_t value)
{
    appendLittleSamples(bytes, &value, 1);
}

inline void appendLittle32(std::string &bytes, std::uint32_t value)
{
    appendLittleSamples(bytes, &value, 1);
}
