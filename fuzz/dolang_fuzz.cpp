// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/records.h"
#include "plain/dolang.h"
#include "seg2/dolang_conversion.h"

namespace {

/// The names of a set's files: "ADT", "A01", "R100".
bool isOfSet(const std::string &name)
{
    if (name.size() < 3 || name.size() > 9 || std::string("ACR").find(name[0]) == std::string::npos)
        return false;
    return name.substr(1) == "DT" || name.find_first_not_of("0123456789", 1) == std::string::npos;
}

bool convertKinds(std::ostream *progress, Report &report)
{
    for (const DolangKind &kind : dolangKinds) {
        convertDolang("LINE", kind, kind.listingName, std::string("LINE") + kind.seg2Ending,
                      progress, report);
        if (report.result != 0 || report.error)
            break;
    }
    return !report.failure;
}

} // namespace

// A section is a file of the set, named without its "LINE.".
void check(const std::string &input)
{
    for (const Section &section : sections(input))
        if (isOfSet(section.name))
            folder().write("LINE." + section.name, section.bytes);
    const WorkingFolder working(folder().path("")); // where the listings go
    checkRecord({
        [] {
            convertDolangToSeg2("LINE");
            return 0;
        },
        [](std::ostream *progress, Report &report) {
            const bool result = convertKinds(progress, report);
            report.result = 0; // the entry point returns nothing
            return result;
        },
        [] {
            plain::convertDolang("LINE");
            return 0;
        },
    });
}
