// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/formats.h"

#include "field/csv_picks.h"
#include "field/dolang.h"
#include "field/generic_picks.h"
#include "field/geogiga_picks.h"
#include "field/otte_picks.h"
#include "field/pick_content.h"
#include "field/seg2.h"
#include "field/seisimager_picks.h"
#include "field/seismic_unix.h"
#include "field/sgt_picks.h"
#include "field/winsism_picks.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>

namespace {

const std::array allFormats = {
    Format{.name = "generic",
           .title = "text, a file for each shot",
           .units = "metres, seconds unless --times-in says ms",
           .recognise = recogniseGeneric,
           .hasNoTimeUnit = true,
           .readPicks = readGenericPicks},
    Format{.name = "geogiga",
           .title = "TX_CURVE text",
           .units = "metres, seconds unless --times-in says ms",
           .isCertain = true,
           .recognise = recogniseGeogiga,
           .hasNoTimeUnit = true,
           .readPicks = readGeogigaPicks},
    Format{.name = "seisimager",
           .title = "SeisImager traveltimes",
           .units = "metres, milliseconds",
           .extensions = {"vs"},
           .recognise = recogniseSeisImager,
           .readPicks = readSeisImagerPicks,
           .writePicks = writeSeisImagerPicks},
    Format{.name = "winsism",
           .title = "Geo2X Winsism XYZ",
           .units = "metres, milliseconds",
           .isCertain = true,
           .recognise = recogniseWinsism,
           .readPicks = readWinsismPicks},
    Format{.name = "otte",
           .title = "OTTE traveltimes",
           .units = "metres, milliseconds",
           .extensions = {"otte"},
           .isCertain = true,
           .recognise = recogniseOtte,
           .readPicks = readOttePicks,
           .writePicks = writeOttePicks},
    Format{.name = "sgt",
           .title = "unified data format",
           .units = "as its columns say, otherwise metres, seconds",
           .extensions = {"sgt"},
           .recognise = recogniseSgt,
           .readPicks = readSgtPicks,
           .writePicks = writeSgtPicks},
    Format{.name = "csv",
           .title = "table with a heading",
           .units = "metres, seconds",
           .extensions = {"csv"},
           .isCertain = true,
           .recognise = recogniseCsv,
           .readPicks = readCsvPicks,
           .writePicks = writeCsvPicks},
    Format{.name = "su",
           .title = "Seismic Unix",
           .units = "as its headers say, otherwise metres, microseconds",
           .extensions = {"su"},
           .isCertain = true,
           .recognise = recogniseSeismicUnix,
           .readRecord = readSeismicUnix,
           .writesRecords = true},
    Format{.name = "seg2",
           .title = "SEG2",
           .units = "metres, seconds, millivolts by DESCALING_FACTOR",
           .extensions = {"seg2", "sg2", "dat"},
           .isCertain = true,
           .recognise = recogniseSeg2,
           .readRecord = readSeg2,
           .writesRecords = true},
    Format{.name = "dolang",
           .title = "Dolang, a set of files",
           .units = "seconds, samples per second",
           .recognise = recogniseDolang,
           .readRecord = readDolang},
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

/// The names of the candidates but one: "generic or seisimager".
std::string namesOf(const std::vector<FoundFormat> &candidates, const Format *but)
{
    std::string names;
    for (const FoundFormat &candidate : candidates)
        if (candidate.format != but)
            names += (names.empty() ? "" : " or ") + candidate.format->name;
    return names;
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
    std::string extension = std::filesystem::path(path).extension().string();
    for (char &character : extension)
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    for (const Format &format : allFormats)
        for (const std::string &written : format.extensions)
            if (extension == '.' + written)
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
    if (fitting != candidates.end() && candidates.size() > 1)
        return {from,
                fitting->knownBy + ", and --from: it could also be " + namesOf(candidates, from)};
    const std::string names = namesOf(candidates, nullptr);
    if (candidates.size() == 1) {
        if (from != nullptr && from != candidates.front().format)
            remark(report, RemarkKind::format, {path},
                   "read as " + names + ", which its content says, not as " + from->name);
        return candidates.front();
    }
    if (from != nullptr) {
        if (!candidates.empty())
            remark(report, RemarkKind::format, {path},
                   "read as " + from->name + ", though its content fits " + names);
        return {from, "--from"};
    }
    if (const Format *const named = formatWrittenTo(path); candidates.empty() && named != nullptr)
        return {named, "its name"}; // its reader says what is wrong with the content
    fail(report, {path},
         candidates.empty() ? whatElseItIs(start)
                            : "this could be " + names + ": choose with --from");
    return {};
}
