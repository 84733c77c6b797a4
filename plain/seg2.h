// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace plain {

struct Seg2Trace
{
    std::uint32_t sampleCount = 0;
    std::map<std::string, std::string> strings = {};
    std::vector<float> samples = {};
};

struct Seg2File
{
    std::uint16_t traceCount = 0;
    std::vector<std::uint32_t> tracePointers;
    std::map<std::string, std::string> strings;
    std::vector<Seg2Trace> traces;
};

struct Seg2TraceHeader
{
    std::uint32_t sampleCount = 0;
    double delay = 0.0;
    double sampleInterval = 0.0;
    double receiverX = 0.0;
    double receiverY = 0.0;
    double receiverZ = 0.0;
    double sourceX = 0.0;
};

/// Warns, on the standard error stream, of a keyword that is not one of the standard's.
void setFileString(Seg2File &file, const std::string &keyword, const std::string &value);

void addTrace(Seg2File &file, const Seg2TraceHeader &header, const std::vector<float> &samples);

/// The stream must be one that seeks. Numbers are written as they lie in the memory of a
/// little-endian machine.
void writeSeg2(std::ostream &stream, Seg2File &file);

} // namespace plain
