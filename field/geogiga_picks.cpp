// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/geogiga_picks.h"

#include "field/text_input.h"
#include "traveltime/text.h"

#include <algorithm>
#include <utility>

namespace {

struct GeogigaFile
{
    TextInput input = {};
    TimeUnit unit = TimeUnit::seconds;
    double elevation = 0.0;
    std::size_t shotCount = 0;
    std::size_t countLine = 0;    ///< of TOTAL_NUMBER_OF_SHOTS
    std::size_t shots = 0;        ///< that were read
    std::size_t rowCountLine = 0; ///< of the last shot's NUMBER_OF_RECEIVERS
    std::size_t rowCount = 0;
    bool isPending = false; ///< the current line is still to be read
};

bool isKeyword(const char *keyword, const TextInput &input)
{
    const std::size_t colon = input.line.find(':');
    return colon != std::string_view::npos
           && sameWord(trimmed(input.line.substr(0, colon)), keyword);
}

/// Whether the current line is that of `keyword`, in lower case: then it becomes the value.
bool takeKeyword(const char *keyword, TextInput &input)
{
    if (!isKeyword(keyword, input))
        return false;
    input.line = trimmed(input.line.substr(input.line.find(':') + 1));
    return true;
}

/// The current line is not what it must be.
bool refuseLine(const std::string &expected, const GeogigaFile &file, Report &report)
{
    return fail(report, inQuotes(file.input.line) + " where " + expected + " is expected");
}

bool nextContent(const std::string &expected, GeogigaFile &file, Report &report)
{
    if (std::exchange(file.isPending, false) || nextContent(file.input, report))
        return true;
    const std::string progress =
        " after " + std::to_string(file.shots) + " of " + counted(file.shotCount, "shot");
    return fail(report, "the file ends" + (file.countLine != 0 ? progress : "") + ", where "
                            + expected + " is expected");
}

/// Goes to the line of a keyword, in lower case; `title` is as people know it.
bool nextKeyword(const char *keyword, const char *title, GeogigaFile &file, Report &report)
{
    if (!nextContent(title, file, report))
        return false;
    return takeKeyword(keyword, file.input) || refuseLine(title, file, report);
}

bool readHeader(GeogigaFile &file, Report &report)
{
    TextInput &input = file.input;
    if (!nextContent("TX_CURVE", file, report))
        return false;
    if (!sameWord(input.line, "tx_curve"))
        return refuseLine("TX_CURVE", file, report);
    do {
        if (!nextContent("ELEVATION", file, report))
            return false;
    } while (takeKeyword("version", input) || takeKeyword("info", input));
    if (!takeKeyword("elevation", input))
        return refuseLine("VERSION, INFO or ELEVATION", file, report);
    if (!readNumber(input.line, "the elevation", file.elevation, input, report)
        || !nextKeyword("total_number_of_shots", "TOTAL_NUMBER_OF_SHOTS", file, report)
        || !readCount(input.line, "the number of shots", file.shotCount, input, report))
        return false;
    file.countLine = report.place.line;
    if (file.shotCount == 0)
        remark(report, RemarkKind::noShots, "there are no shots in this file");
    return true;
}

bool isRow(const TextInput &input)
{
    return std::all_of(input.fields.begin(), input.fields.end(), [](std::string_view field) {
        return wholeNumber(field) || field == "*" || sameWord(field, "nan");
    });
}

/// Reads the row that is the current line.
bool readRow(std::vector<Pick> &receivers, GeogigaFile &file, Report &report)
{
    TextInput &input = file.input;
    double unused = 0.0;
    Pick &pick = receivers.emplace_back();
    pick.line = lineOf(report);
    pick.receiver.elevation = file.elevation;
    return requireFields(4, "a receiver's number, its x, its time and its channel", input, report)
           && readNumber(input.fields[0], "the receiver's number", unused, input, report)
           && readNumber(input.fields[1], "the receiver's x", pick.receiver.x, input, report)
           && readTime(input.fields[2], powerOf(file.unit), pick.time, input, report)
           && readNumber(input.fields[3], "the receiver's channel", unused, input, report);
}

/// Passes over the line of column headings. Where it is missing, the first row comes at once.
bool passHeadings(GeogigaFile &file, Report &report)
{
    if (file.rowCount == 0 && !nextContent(file.input, report))
        return true;
    if (file.rowCount > 0 && !nextContent("a line of column headings", file, report))
        return false;
    splitAtBlanks(file.input);
    file.isPending = isRow(file.input) || isKeyword("seismic_data_file_name", file.input);
    return true;
}

/// Reads the rows of a shot.
bool readRows(std::vector<Pick> &receivers, GeogigaFile &file, Report &report)
{
    if (!passHeadings(file, report))
        return false;
    while (receivers.size() < file.rowCount) {
        const std::string expected = "row " + std::to_string(receivers.size() + 1) + " of the "
                                     + counted(file.rowCount, "receiver") + " of line "
                                     + std::to_string(file.rowCountLine);
        if (!nextContent(expected, file, report))
            return false;
        if (isKeyword("seismic_data_file_name", file.input))
            return refuseLine(expected, file, report);
        splitAtBlanks(file.input);
        if (!readRow(receivers, file, report))
            return false;
    }
    return true;
}

/// Fails when the current line, which comes after the last row of a shot, is one more.
bool requireNoRow(GeogigaFile &file, Report &report)
{
    splitAtBlanks(file.input);
    return file.shots == 0 || file.input.fields.size() < 2 || !isRow(file.input)
           || fail(report, "line " + std::to_string(file.rowCountLine) + " says "
                               + counted(file.rowCount, "receiver")
                               + ", but this line looks like another one");
}

bool readShot(GeogigaFile &file, PickSurvey &picks, Report &report)
{
    TextInput &input = file.input;
    Shot shot{0.0, file.elevation, ""};
    constexpr char title[] = "SEISMIC_DATA_FILE_NAME";
    if (!nextContent(title, file, report) || !requireNoRow(file, report))
        return false;
    if (!takeKeyword("seismic_data_file_name", input))
        return refuseLine(title, file, report);
    shot.name = input.line;
    if (!nextKeyword("shot_location", "SHOT_LOCATION", file, report)
        || !readNumber(input.line, "the shot's x", shot.x, input, report))
        return false;
    const Place shotPlace = report.place;
    if (!nextKeyword("number_of_receivers", "NUMBER_OF_RECEIVERS", file, report)
        || !readCount(input.line, "the number of receivers", file.rowCount, input, report))
        return false;
    file.rowCountLine = report.place.line;
    std::vector<Pick> receivers;
    if (!readRows(receivers, file, report))
        return false;
    if (file.rowCount == 0)
        remark(report, RemarkKind::noReceivers,
               "shot " + std::to_string(file.shots + 1) + " has no receivers");
    addShot(picks, shot, shotPlace, receivers);
    ++file.shots;
    return true;
}

/// Nothing but empty lines and comments may follow the last shot.
bool readRest(GeogigaFile &file, Report &report)
{
    if (!file.isPending && !nextContent(file.input, report))
        return true;
    if (sameWord(file.input.line, "tx_curve"))
        return fail(report, "another survey begins here: put it into a file of its own");
    if (!requireNoRow(file, report))
        return false;
    return fail(report, "line " + std::to_string(file.countLine) + " says "
                            + counted(file.shotCount, "shot")
                            + ", but this line comes after the last one");
}

} // namespace

bool readGeogigaPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                      Report &report)
{
    GeogigaFile file;
    file.unit = options.timesIn.value_or(TimeUnit::seconds);
    if (!loadInput(path, options, file.input, report) || !readHeader(file, report))
        return false;
    while (file.shots < file.shotCount)
        if (!readShot(file, picks, report))
            return false;
    return readRest(file, report) && endNumbers(file.input, report);
}
