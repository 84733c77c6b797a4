// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix.h"
#include "fuzz/field_records.h"
#include "fuzz/support.h"

void check(const std::string &input)
{
    const std::string path = folder().write("line.su", input);
    recogniseSeismicUnix(input.substr(0, 4096), path);
    checkRecordReader(readSeismicUnix, path);
}
