// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/samples.h"
#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "tests/support/field_records.h"
#include "tests/support/seg2_parser.h"

#include <gtest/gtest.h>

TEST(FieldLargeRecords, Seg2HasRoomFor16383Traces)
{
    const std::string trace = suTrace(ByteOrder::bigEndian, {{116, 250}}, {1.0F});
    std::string record;
    for (int i = 0; i < 16383; ++i)
        record += trace;
    EXPECT_EQ(parseSeg2(convertBytes(readSeismicUnix, record, toSeg2).output, 1).traces.size(),
              16383U);
    EXPECT_EQ(failureOf(convertBytes(readSeismicUnix, record + trace, toSeg2).report),
              "SEG2 has no room for 16,384 traces: 16,383 would fit, and Seismic Unix has room for "
              "all");
}

TEST(FieldLargeRecords, Seg2HasRoomFor4GigabytesBeforeATrace)
{
    Report report;
    const RecordWriter writer = seg2Writer("/dev/null", report);
    RecordFile file;
    file.traceCount = 16383;
    RecordTrace trace;
    constexpr std::size_t sampleCount = std::size_t{1} << 24;
    std::size_t written = 0;
    do
        if (sampleCountOf(trace.samples) != sampleCount) // the writer gives others back
            trace.samples = std::vector<float>(sampleCount);
    while (writer.put(file, trace) && ++written < 100);
    // 64 of them take 2 to the 32nd bytes, and their headers more.
    EXPECT_EQ(written, 64U);
    EXPECT_EQ(failureOf(report),
              "trace 65: SEG2 has no room for a trace after 4,294,967,295 bytes: "
              "Seismic Unix has room for all traces");
}
