// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2.h"
#include "fuzz/field_records.h"
#include "fuzz/support.h"

void check(const std::string &input)
{
    const std::string path = folder().write("line.dat", input);
    recogniseSeg2(input.substr(0, 4096), path);
    checkRecordReader(readSeg2, path);
}
