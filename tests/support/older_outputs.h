// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/batch_command.h"
#include "tests/support/small_surveys.h"

#include <string>

inline const std::string genericFile = fileOf(genericLines);

/// The command line that converts "line" into "line.otte".
inline Arguments traveltimes(const std::string &format)
{
    Arguments arguments = {format, "line", "-o", "line.otte"};
    if (format == "generic")
        arguments.insert(arguments.end(), {"--shot", "-1,100"});
    return arguments;
}

/// A folder with older outputs of everything.
struct OlderOutputs : BatchFolder
{
    OlderOutputs()
    {
        for (const char *name :
             {"line.otte", "line_tmp", "line.seg2", "tmp_ADT", "tmp_CDT", "tmp_RDT",
              "L_ADT_dolang.seg2", "L_CDT_dolang.seg2", "L_RDT_dolang.seg2"})
            write(name, "older");
    }
};

/// A Dolang set with one channel of each kind.
inline void writeDolangSet(const BatchFolder &folder)
{
    for (const std::string kind : {"A", "C", "R"}) {
        folder.write("L." + kind + "DT", "1\n-\n-\n0\n2\n1000\n");
        folder.write("L." + kind + "01", "7\n-3\n");
    }
}
