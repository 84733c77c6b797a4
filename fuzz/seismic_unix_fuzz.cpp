// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/records.h"
#include "plain/seismic_unix.h"
#include "seg2/su_conversion.h"

void check(const std::string &input)
{
    const std::string path = folder().write("line.su", input);
    checkRecord({
        [&] { return convertSuToSeg2(path); },
        [&](std::ostream *progress, Report &report) {
            return convertSu(path, folder().path("line_tmp"), folder().path("line.seg2"), progress,
                             report);
        },
        [&] { return plain::convertSeismicUnix(path); },
    });
}
