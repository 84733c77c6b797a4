// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/batch_command.h"
#include "tests/support/traveltime_files.h"

#include <string>
#include <vector>

/// A folder with one generic file, which converts into genericOtte, and an older output.
struct GenericSurvey : BatchFolder
{
    GenericSurvey()
    {
        write("s1.txt", fileOf(genericLines));
        write("line.otte", "older");
    }
};

using Arguments = std::vector<std::string>;

/// The command line that converts the survey's `input`.
inline Arguments convert(const std::string &input, const std::string &output)
{
    return {"generic", input, "--shot", "-1,100", "-o", output};
}

/// A generic file of `count` receivers.
inline std::string manyReceivers(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "5;100;0.004\n";
    return text;
}
