// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record_input.h"
#include "field/seismic_unix_header.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// The byte order in which a Seismic Unix file makes sense.
struct SuOrder
{
    ByteOrder byteOrder = ByteOrder::littleEndian;
    bool isCertain = false;   ///< its headers repeat, or the traces fill the file
    std::string knownBy = {}; ///< "its size, that of 12 traces, big-endian"
};

/// Finds the byte order in which the second header repeats the number of samples and the interval
/// of the first, or else the one in which the traces fill the file, or else the likelier one. None
/// when the first header says that there are no samples, or is not whole.
std::optional<SuOrder> findSuOrder(RecordInput &input);

/// The whole traces from the beginning on, each as long as its own header says.
struct SuTraces
{
    std::size_t count = 0;
    std::uint64_t end = 0; ///< of the last, in bytes
};

SuTraces countTraces(RecordInput &input, ByteOrder byteOrder);

/// The header at `position`; none when the file ends before it does.
std::optional<SuHeaderBytes> headerAt(RecordInput &input, std::uint64_t position,
                                      ByteOrder byteOrder);

/// "big-endian".
const char *nameOf(ByteOrder byteOrder);
