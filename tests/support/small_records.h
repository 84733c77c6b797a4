// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

inline const std::string listingHeading =
    "TRACE_SORT   AS_ACQUIRED\n"
    "UNITS\t\tMETERS\n"
    "\n"
    "                  Time    Sample\n"
    "Trace   No. of    Delay   Interval       Receiver Location\n"
    "No.     Samples   (s)     (s)        X           Y         Z\n";

/// Parts of SEG2 files, for bytes().
inline const std::string blanks18 = "'                  ' ";
inline const std::string blanks19 = "'                   ' ";
inline const std::string fileStrings =
    "19 00 'TRACE_SORT AS_ACQUIRED' 00  0F 00 'UNITS METERS' 00  00 00 ";
