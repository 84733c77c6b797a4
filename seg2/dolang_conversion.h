// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <array>
#include <ostream>
#include <string>

/// One of the three kinds of records in a Dolang data set: what follows the base path in the names
/// of its files, and its listing's name.
struct DolangKind
{
    const char *headerExtension;
    const char *channelSuffix; ///< followed by the channel's number, of two digits at least
    const char *listingName;
    const char *seg2Ending;
};

inline constexpr std::array<DolangKind, 3> dolangKinds = {
    DolangKind{".ADT", ".A", "tmp_ADT", "_ADT_dolang.seg2"},
    DolangKind{".CDT", ".C", "tmp_CDT", "_CDT_dolang.seg2"},
    DolangKind{".RDT", ".R", "tmp_RDT", "_RDT_dolang.seg2"},
};

/// Converts a Dolang data set into a SEG2 file for each kind, in the order of `dolangKinds`; their
/// listings go to the working directory. A file of the set or a listing that cannot be opened, and
/// an exception, end it after a line on the standard error stream: the kinds before keep their
/// files.
///
/// A kind's header is a text file: leading lines in quotes, the number of channels, two lines that
/// are not used, the delay in seconds, the samples per channel and the samples per second. A
/// channel file holds a sample per line. Lines that are missing or hold no integer count as 0.
/// Throws std::length_error "vector too long", with nothing of the kind written, when the header
/// asks for ten million samples more than the channel files read so far have bytes. SEG2 samples
/// are 32-bit floats; positions are 0.
void convertDolangToSeg2(std::string basePath);

/// Converts one kind. The lines about the traces go to `progress`, if there is one. report.result
/// is 1 when the conversion of the data set ends there.
bool convertDolang(const std::string &basePath, const DolangKind &kind,
                   const std::string &listingPath, const std::string &seg2Path,
                   std::ostream *progress, Report &report);
