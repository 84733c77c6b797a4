// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/dolang.h"
#include "fuzz/field_records.h"
#include "fuzz/support.h"

// A section is a file of the set, named without its "LINE.": "ADT", "a01".
void check(const std::string &input)
{
    for (const Section &section : sections(input))
        if (section.name.size() < 6 && section.name.find('/') == std::string::npos)
            folder().write("LINE." + section.name, section.bytes);
    for (const char *name : {"LINE.ADT", "LINE.cdt"}) {
        recogniseDolang("", folder().path(name));
        checkRecordReader(readDolang, folder().path(name));
    }
}
