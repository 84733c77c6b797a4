// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The bytes that `text` stands for: pairs of hexadecimal digits, and what is in single quotes as
/// it is. Blanks outside of quotes mean nothing: "0A 00 'DELAY 0' 00".
std::string bytes(const std::string &text);

/// A trace of a SEG2 file that was read.
struct ParsedTrace
{
    std::size_t position = 0; ///< of its descriptor block in the file
    std::uint32_t sampleCount = 0;
    std::uint8_t formatCode = 0;
    std::vector<std::string> strings = {}; ///< "KEY value", in the order of the file
    std::string data = {};                 ///< the data block as it stands
    std::vector<double> samples = {};      ///< of the format codes 1, 2, 4 and 5
};

/// A SEG2 file that was read.
struct ParsedSeg2
{
    std::vector<std::string> strings = {}; ///< "KEY value", in the order of the file
    std::vector<ParsedTrace> traces = {};
};

/// Reads a SEG2 file that must be without a flaw: every block where the pointers say and right
/// behind the one before, every size the true one, strings in order with NOTE last, blanks up to a
/// multiple of 4 bytes behind them, nothing behind the last trace. Throws std::runtime_error, which
/// tells the flaw and its place, for any other. Files whose 16-bit fields are too small for what
/// they count (65536 traces, a descriptor block of 65536 bytes) cannot be read. In a file of
/// `revision` 1 what is reserved must be zeros, in one of revision 0 blanks.
ParsedSeg2 parseSeg2(const std::string &file, unsigned revision = 0);
