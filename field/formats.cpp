// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/formats.h"

#include "field/pick_content.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>

namespace {

const std::array allFormats = {
    Format{.name = "generic",
           .title = "generic text, a file for each shot",
           .units = "metres, seconds",
           .recognise = recogniseGeneric},
};

/// Which format a file's content fits, and how that is known.
std::vector<FoundFormat> candidatesFor(const std::string &start, const std::string &path)
{
    std::vector<FoundFormat> candidates;
    for (const Format &format : allFormats) {
        const std::string knownBy = format.recognise(start, path);
        if (knownBy.empty())
            continue;
        if (format.isCertain)
            return {{&format, knownBy}};
        candidates.push_back({&format, knownBy});
    }
    return candidates;
}

std::string startOf(const std::string &path)
{
    constexpr auto most = static_cast<std::streamsize>(startSize);
    std::string start(startSize, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(start.data(), most);
    start.resize(static_cast<std::size_t>(file.gcount()));
    return start;
}

std::string whatElseItIs(const std::string &start)
{
    constexpr std::size_t textSize = 3200;
    if (start.empty())
        return "the file is empty";
    if (start.size() > textSize + 400 && (start[0] == 'C' || start[0] == '\xC3'))
        return "this seems to be SEG-Y, which is not read";
    return "this is of no format that is known here; --from FORMAT reads it all the same";
}

} // namespace

std::span<const Format> formats()
{
    return allFormats;
}

const Format *formatNamed(const std::string &name)
{
    const auto *const format =
        std::find_if(allFormats.begin(), allFormats.end(),
                     [&](const Format &candidate) { return candidate.name == name; });
    return format == allFormats.end() ? nullptr : format;
}

const Format *formatWrittenTo(const std::string &path)
{
    const std::size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] != '.')
        return nullptr;
    std::string extension = path.substr(dot + 1);
    for (char &character : extension)
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    for (const Format &format : allFormats)
        if (std::find(format.extensions.begin(), format.extensions.end(), extension)
            != format.extensions.end())
            return &format;
    return nullptr;
}

FoundFormat findFormat(const std::string &path, const Format *from, Report &report)
{
    const std::string start = startOf(path);
    const std::vector<FoundFormat> candidates = candidatesFor(start, path);
    const auto fitting =
        std::find_if(candidates.begin(), candidates.end(),
                     [&](const FoundFormat &candidate) { return candidate.format == from; });
    if (fitting != candidates.end())
        return *fitting;
    if (candidates.size() == 1 && (from == nullptr || candidates.front().format->isCertain)) {
        if (from != nullptr)
            remark(report, RemarkKind::format, {path},
                   "read as " + candidates.front().format->name
                       + ", which its content says, not as " + from->name);
        return candidates.front();
    }
    if (from != nullptr) {
        if (!candidates.empty())
            remark(report, RemarkKind::format, {path},
                   "read as " + from->name + ", though its content fits "
                       + candidates.front().format->name);
        return {from, "--from"};
    }
    if (const Format *const named = formatWrittenTo(path); candidates.empty() && named != nullptr)
        return {named, "its name"}; // its reader says what is wrong with the content
    std::string names;
    for (const FoundFormat &candidate : candidates)
        names += (names.empty() ? "" : " or ") + candidate.format->name;
    fail(report, {path},
         candidates.empty() ? whatElseItIs(start)
                            : "this could be " + names + ": choose with --from");
    return {};
}
