// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/shot_list.h"

#include "field/text_input.h"

#include <filesystem>
#include <map>

bool readShotList(const std::string &path, std::vector<ShotPosition> &positions, Report &report)
{
    TextInput input;
    if (!loadInput(path, input, report))
        return false;
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::map<std::string, std::size_t> lines;
    while (nextContent(input, report)) {
        splitAt(';', input);
        if (input.fields.size() != 3 || input.fields[0].empty())
            return fail(report, inQuotes(input.line) + " where \"file;x;elevation\" is expected");
        ShotPosition position{(folder / input.fields[0]).lexically_normal().string()};
        if (!readNumber(input.fields[1], "the shot's x", position.x, input, report)
            || !readNumber(input.fields[2], "the shot's elevation", position.elevation, input,
                           report))
            return false;
        const auto [line, isNew] = lines.try_emplace(position.file, report.place.line);
        if (!isNew)
            return fail(report, inQuotes(input.fields[0]) + " is listed in line "
                                    + std::to_string(line->second) + " already");
        positions.push_back(position);
    }
    if (lines.empty())
        return fail(report, "no shot is listed");
    return endNumbers(input, report);
}
