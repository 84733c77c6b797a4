// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record_input.h"
#include "field/seismic_unix_header.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// How the traces of a Seismic Unix file follow one another.
struct SuLayout
{
    ByteOrder byteOrder = ByteOrder::littleEndian;
    std::size_t traceCount = 0; ///< whole ones
    std::uint64_t end = 0;      ///< of the last whole one, in bytes
    bool isCertain = false;     ///< its headers repeat, or the traces fill the file
    std::string knownBy = {};   ///< "its size, that of 12 traces, big-endian"
};

/// Finds the byte order in which the file makes sense: the one in which the second header repeats
/// the number of samples and the interval of the first, or else the one in which the traces fill
/// the file. None when the first header gives no samples in either, or is not whole.
std::optional<SuLayout> findSuLayout(RecordInput &input);

/// The header at `position`; none when the file ends before it does.
std::optional<SuHeaderBytes> headerAt(RecordInput &input, std::uint64_t position,
                                      ByteOrder byteOrder);

/// "big-endian".
const char *nameOf(ByteOrder byteOrder);
