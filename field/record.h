// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

enum class ByteOrder {
    littleEndian,
    bigEndian
};

/// x, y and elevation in metres.
using Location = std::array<double, 3>;

/// Samples as the file has them; packed ones (20 bits) as the integers that they mean.
using Samples = std::variant<std::vector<std::int16_t>, std::vector<std::int32_t>,
                             std::vector<float>, std::vector<double>>;

/// A trace of a record, with what its file says of it.
struct RecordTrace
{
    Samples samples = {};
    double sampleInterval = 0.0; ///< seconds; 0 where the file does not say
    double delay = 0.0;          ///< seconds: the time of the first sample after the shot
    std::optional<Location> source = {};
    std::optional<Location> receiver = {};
    std::optional<std::int32_t> shotNumber = {};
    std::optional<std::int32_t> channelNumber = {};
    std::int32_t stackCount = 1;
    double descalingFactor = 1.0; ///< sample times this is millivolts
    bool isDead = false;          ///< marked so
    bool hasAngles = false;       ///< x and y are angles, no metres
    std::string date = {};        ///< 2022-03-22; empty where the file does not say
    std::string time = {};        ///< 13:58:30
    /// A SEG2 trace's other strings. "SEISMIC_UNIX" holds the fields of a Seismic Unix header that
    /// nothing else here says.
    std::map<std::string, std::string> strings = {};
};

/// What a record's file says of itself.
struct RecordFile
{
    std::string format = {};                 ///< its name on the command line: "seg2"
    std::optional<ByteOrder> byteOrder = {}; ///< none of a text
    std::string knownBy = {};                ///< how the format and the byte order were known
    std::size_t traceCount = 0;              ///< as the file says, or as follows from its size
    double fractionRead = 0.0;               ///< of the file, from 0 to 1
    std::map<std::string, std::string> strings = {}; ///< a SEG2 file's other strings, a Dolang text
};

/// Takes the traces of a record one at a time, and may change them; false ends the reading.
using TakeTrace = std::function<bool(const RecordFile &file, RecordTrace &trace)>;

// A reader of records gives each trace of a file to `take` and returns whether the report has no
// failure; memory does not grow with the record.
using ReadRecord = bool(const std::string &path, const TakeTrace &take, Report &report);
