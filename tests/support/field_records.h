// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record_conversion.h"
#include "tests/support/field_seismic_unix.h"
#include "tests/support/support.h"

#include <string>
#include <vector>

inline constexpr ByteOrder bothOrders[] = {ByteOrder::littleEndian, ByteOrder::bigEndian};

/// What a reader made of a file.
struct RecordReading
{
    bool isRead = false;
    Report report = {};
    RecordFile file = {};
    std::vector<RecordTrace> traces = {};
};

/// Reads a file of these bytes.
inline RecordReading readRecord(ReadRecord *read, const std::string &bytes)
{
    const TemporaryFolder folder;
    RecordReading reading;
    const auto take = [&](const RecordFile &file, const RecordTrace &trace) {
        reading.file = file;
        reading.traces.push_back(trace);
        return true;
    };
    reading.isRead = read(folder.write("record", bytes), take, reading.report);
    return reading;
}

/// The text of the failure; empty when there is none.
inline std::string failureOf(const Report &report)
{
    return report.failure ? report.failure->text : "";
}

inline std::vector<std::string> remarksOf(const Report &report)
{
    std::vector<std::string> texts;
    for (const Remark &remark : report.remarks)
        texts.push_back(remark.text);
    return texts;
}

/// What a conversion made of a file.
struct RecordConversion
{
    bool isConverted = false;
    Report report = {};
    std::string output = {};
};

inline RecordConversion convertBytes(ReadRecord *read, const std::string &bytes,
                                     const RecordTarget &target)
{
    const TemporaryFolder folder;
    RecordConversion conversion;
    const std::string path = folder.path("output");
    conversion.isConverted =
        convertRecord(read, folder.write("record", bytes), target, path, {}, conversion.report);
    conversion.output = readFile(path);
    return conversion;
}

inline const RecordTarget toSeg2 = {RecordFormat::seg2};
inline const RecordTarget toLittleSu = {RecordFormat::seismicUnix, ByteOrder::littleEndian};
inline const RecordTarget toBigSu = {RecordFormat::seismicUnix, ByteOrder::bigEndian};
