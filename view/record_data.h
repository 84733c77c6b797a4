// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"
#include "traveltime/survey.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A trace as it is drawn.
struct DrawnTrace
{
    /// In millivolts where the file says what that takes; NaN where a sample is not finite.
    std::vector<float> samples = {};
    float largest = 0.0F;        ///< of their absolute values
    double sampleInterval = 0.0; ///< seconds; 0 where the file does not say
    double delay = 0.0;          ///< seconds: the time of the first sample after the shot
    std::optional<ReceiverPosition> receiver = {}; ///< x is the position along the line
    std::optional<std::int32_t> channelNumber = {};
    bool isDead = false; ///< marked so, or without a signal
};

/// The traces of one shot, which follow one another in the record.
struct RecordShot
{
    std::size_t firstTrace = 0;
    std::size_t traceCount = 0;
    std::optional<std::int32_t> number = {};
    std::optional<ReceiverPosition> position = {}; ///< x is the position along the line
};

/// A record in memory.
///
/// Its positions along the line are the x of its file. Where y differs by more than a centimetre,
/// they are distances along the straight line from the first receiver to the one farthest from it.
/// Angles are left out, and so are positions if all of the record, of shots and receivers, are one:
/// so a file looks that does not say them.
struct RecordData
{
    std::string path = {};
    std::string format = {}; ///< its name on the command line: "seg2"
    std::vector<DrawnTrace> traces = {};
    std::vector<RecordShot> shots = {}; ///< of all traces, in their order
};

/// Takes the fraction of a file that is read, from 0 to 1; false gives the reading up.
using GoesOn = std::function<bool(double fraction)>;

/// Reads a record to be drawn and returns whether all of it was read. After a failure, and when it
/// was given up, the record has the traces that were read before.
bool readRecordData(const std::function<ReadRecord> &read, const std::string &path,
                    RecordData &record, const GoesOn &goesOn, Report &report);
