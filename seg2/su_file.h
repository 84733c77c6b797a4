// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "seg2/su_findings.h"
#include "traveltime/report.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include <QFile>

/// A trace of a Seismic Unix file.
struct SuTrace
{
    std::vector<double> samples = {};
    double sourceX = 0.0;
    double sourceZ = 0.0;
    double receiverX = 0.0;
    double receiverZ = 0.0;
    double unused = 0.0;
    double sampleInterval = 0.0; ///< seconds
    double unusedLimit = std::numeric_limits<double>::max();
};

/// Finds the traces of a Seismic Unix file (little-endian; every trace a header of 240 bytes and as
/// many samples of 4 bytes as the first header says): how many there are and where they begin, in
/// bytes. Bytes after the last whole trace are left out. No traces, after a line on the standard
/// error stream, when the file cannot be opened.
void indexSuFile(std::string path, std::size_t &traceCount, std::vector<std::size_t> &traceOffsets);

/// Reads the traces of a Seismic Unix file; none when it cannot be opened. The last sample of a
/// trace is not read and stays 0. A negative coordinate scalar divides -1 as integers do: -1 leaves
/// the coordinates as they are, any other makes them 0.
void readSuFile(std::string path, std::vector<SuTrace> &traces);

// The same in steps, for a conversion.

/// Takes a trace; they come in their order.
using TakeSuTrace = std::function<void(SuTrace &&trace)>;

/// Opens the file, which becomes report.place, and announces it to `progress`, if there is one.
/// False when it cannot be opened, which prints a line and is a failure for commands alone.
bool openSuFile(const std::string &path, QFile &file, std::ostream *progress, Report &report);

/// Whether the file can be read at any place, and not only once from front to back.
bool isReadAnywhere(const QFile &file);

/// Finds the traces of such a file. They are taken without samples. It is
/// a failure for commands alone when the file has no traces or no samples, cannot be read to its
/// end or is of another format; of any other there may be remarks.
void indexSuFile(QFile &file, const TakeSuTrace &take, SuFindings &findings, Report &report);

/// The same for any file, which is read from front to back; the traces are taken with samples.
void readSuFile(QFile &file, const TakeSuTrace &take, SuFindings &findings, Report &report);

/// Reads the first `count` samples of a trace, which must have as many, of the file that was
/// indexed last. Traces are counted from 0. Fewer samples when the file cannot be read.
std::vector<float> readSuSamples(QFile &file, std::size_t trace, std::uint32_t count,
                                 SuFindings &findings);
