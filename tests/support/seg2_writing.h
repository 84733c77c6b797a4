// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "seg2/seg2_file.h"
#include "tests/support/seg2_parser.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <utility>

/// The 32 bytes that begin a file without traces.
inline const std::string emptyStart = bytes("55 3A 00 00 00 00 00 00 01 00 20 01 0A 20"
                                            "'                  '");
/// A file of one trace up to the trace's descriptor block, which begins at byte 40.
inline const std::string oneTraceStart = bytes("55 3A 00 00 04 00 01 00 01 00 20 01 0A 20"
                                               "'                  ' 28 00 00 00 00 00 20 20");
inline const std::string reserved19 = bytes("'                   '");

inline std::string written(Seg2File &file)
{
    std::stringstream stream(std::ios::in | std::ios::out | std::ios::binary);
    write(file, stream);
    EXPECT_TRUE(stream.good());
    return stream.str();
}

/// What stands behind the first 32 bytes of a file without traces.
inline std::string writtenStrings(const std::map<std::string, std::string> &strings)
{
    Seg2File file;
    file.strings = strings;
    return written(file).substr(32);
}

/// Appends a trace as it is, as a caller without addTrace does.
inline void append(Seg2File &file, Seg2Trace trace)
{
    file.traces.push_back(std::move(trace));
    file.tracePointers.push_back(0);
    ++file.traceCount;
}

/// The file that one trace without file strings makes, from the trace's descriptor block on.
inline std::string writtenTrace(const Seg2Trace &trace)
{
    Seg2File file;
    append(file, trace);
    const std::string result = written(file);
    EXPECT_EQ(result.substr(0, 40), oneTraceStart);
    return result.substr(40);
}

/// A trace with something in every sample buffer, so that only the right one gives the right bytes.
inline Seg2Trace traceOfEveryFormat(std::uint8_t formatCode, std::uint32_t sampleCount)
{
    Seg2Trace trace;
    trace.formatCode = formatCode;
    trace.sampleCount = sampleCount;
    trace.int16Samples = {1, -2, 32767};
    trace.int32Samples = {1, -2, 2147483647};
    trace.packedSamples = {0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC};
    trace.packedByteCount = 5;
    trace.floatSamples = {1.5F, -0.0F, 3.0F};
    trace.doubleSamples = {1.5, -2.0, 4.0};
    return trace;
}
