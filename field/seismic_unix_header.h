// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/// A Seismic Unix trace header, its numbers in this machine's byte order.
using SuHeaderBytes = std::array<char, 240>;

/// Where its fields begin.
namespace su {
inline constexpr std::size_t shotNumber = 8;
inline constexpr std::size_t channelNumber = 12;
inline constexpr std::size_t traceKind = 28;
inline constexpr std::size_t stackCount = 30;
inline constexpr std::size_t offset = 36;
inline constexpr std::size_t receiverElevation = 40;
inline constexpr std::size_t sourceElevation = 44;
inline constexpr std::size_t elevationScalar = 68;
inline constexpr std::size_t coordinateScalar = 70;
inline constexpr std::size_t sourceX = 72;
inline constexpr std::size_t sourceY = 76;
inline constexpr std::size_t receiverX = 80;
inline constexpr std::size_t receiverY = 84;
inline constexpr std::size_t coordinateUnit = 88;
inline constexpr std::size_t delay = 108; // milliseconds
inline constexpr std::size_t sampleCount = 114;
inline constexpr std::size_t sampleInterval = 116; // microseconds
inline constexpr std::size_t year = 156;
inline constexpr std::size_t dayOfYear = 158;
inline constexpr std::size_t hour = 160;
inline constexpr std::size_t minute = 162;
inline constexpr std::size_t second = 164;
inline constexpr std::size_t exactInterval = 180; // seconds, a float

/// Where the samples begin.
inline constexpr std::size_t headerSize = std::tuple_size_v<SuHeaderBytes>;
} // namespace su

template <typename Number>
Number numberAt(const SuHeaderBytes &header, std::size_t offset)
{
    Number number = {};
    std::memcpy(&number, header.data() + offset, sizeof number);
    return number;
}

template <typename Number>
void putNumber(SuHeaderBytes &header, std::size_t offset, Number number)
{
    std::memcpy(header.data() + offset, &number, sizeof number);
}

/// The byte order of this machine.
ByteOrder machineByteOrder();

/// Reverses the bytes of every field.
void swapFields(SuHeaderBytes &header);

/// How many bits the whole numbers of a header take: few when it is read in its own byte order.
int bitsTaken(const SuHeaderBytes &header);

/// The fields that `header` and `expected` have not in common, with the values of `header`:
/// "tracl 7 cdp 3".
std::string fieldsAsText(const SuHeaderBytes &header, const SuHeaderBytes &expected);

/// Puts fields that fieldsAsText gave; false, with nothing put, when the text is another.
bool putFields(SuHeaderBytes &header, std::string_view text);
