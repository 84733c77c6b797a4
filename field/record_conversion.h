// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <functional>
#include <string>

enum class RecordFormat {
    seg2,
    seismicUnix
};

/// What a record becomes.
struct RecordTarget
{
    RecordFormat format = RecordFormat::seg2;
    ByteOrder byteOrder = ByteOrder::littleEndian; ///< of Seismic Unix
    bool isInMillivolts = false; ///< samples become 32-bit floats, times their factor
};

/// Converts a record, a trace at a time, into a new file, with `read` of its format (formats.h).
/// Returns whether the report has no failure. `progress` takes the fraction that is read, if it is
/// there. Nothing that the record says is lost without a remark; what the target has no room for is
/// a failure. A file that was begun when the conversion fails is not whole.
bool convertRecord(ReadRecord *read, const std::string &path, const RecordTarget &target,
                   const std::string &outputPath,
                   const std::function<void(double fraction)> &progress, Report &report);
