// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_content.h"

#include "field/rows.h"
#include "field/text_input.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using Fields = std::vector<std::string_view>;

/// The lines of the start that are neither empty nor comments, split at blanks.
struct Content
{
    TextInput input = {};
    std::string_view firstLine = {}; ///< of all lines
    std::vector<std::string_view> lines = {};
    std::vector<Fields> rows = {};
};

TextInput inputOf(const std::string &start)
{
    TextInput input;
    input.text = decodeText(start);
    return input;
}

/// Fills `content`, whose lines are views of its text.
void readContent(const std::string &start, Content &content)
{
    content.input = inputOf(start);
    Report unused;
    nextLine(content.input, unused);
    content.firstLine = content.input.line;
    content.input.position = 0;
    while (nextContent(content.input, unused)) {
        content.lines.push_back(content.input.line);
        splitAtBlanks(content.input);
        content.rows.push_back(content.input.fields);
    }
}

/// The first line with content, in lower case and without blanks.
std::string firstWords(const std::string &start)
{
    TextInput input = inputOf(start);
    Report unused;
    std::string words;
    if (nextContent(input, unused))
        for (const char character : input.line)
            if (character != ' ' && character != '\t')
                words += character >= 'A' && character <= 'Z'
                             ? static_cast<char>(character - 'A' + 'a')
                             : character;
    return words;
}

/// The number that the field is; its decimal point may be a comma.
std::optional<double> numberIn(std::string_view field)
{
    std::string text(field);
    std::replace(text.begin(), text.end(), ',', '.');
    return wholeNumber(text);
}

/// The number that the field is, if it can count something.
std::optional<std::size_t> countIn(std::string_view field)
{
    const double number = numberIn(field).value_or(-1.0);
    const auto count = static_cast<std::size_t>(std::clamp(number, 0.0, 1e9));
    return static_cast<double>(count) == number ? std::optional(count) : std::nullopt;
}

/// The second field of a row, if it can count something.
std::optional<std::size_t> secondCount(const Fields &row)
{
    return row.size() > 1 ? countIn(row[1]) : std::nullopt;
}

/// What speaks for SeisImager.
struct SeisImagerSigns
{
    bool hasCounts = false;     ///< of shots and of the first shot's receivers
    bool hasFirstLine = false;  ///< as pickers write it
    bool hasTwoFields = false;  ///< rows that are too short for other formats
    bool hasFlags = true;       ///< no third field of a receiver can be a time
    bool areCountsTrue = false; ///< as far as the rows go
    bool hasNoShotTimes = true; ///< a third field of a shot is 0, as pickers write it
};

/// Looks whether all counts fit the rows, of which that at `at` has the number of shots; `isWhole`:
/// no rows come after these.
void followCounts(const std::vector<Fields> &rows, std::size_t at, bool isWhole,
                  SeisImagerSigns &signs)
{
    std::size_t shots = secondCount(rows[at++]).value_or(0);
    for (; shots > 0 && at < rows.size(); --shots) {
        const std::optional<std::size_t> receivers = secondCount(rows[at]);
        if (!receivers)
            return;
        signs.hasNoShotTimes &= rows[at].size() < 3 || numberIn(rows[at][2]) == 0.0;
        at += 1 + *receivers;
    }
    signs.areCountsTrue = (at <= rows.size() && shots == 0) || !isWhole;
}

/// Where the number of shots is: after the first line, or after comments and empty lines.
std::size_t countRow(const Content &content)
{
    const bool isText = !content.firstLine.empty() && content.firstLine.front() != '#';
    return isText || secondCount(content.rows[0]).value_or(0) == 0 ? 1 : 0;
}

SeisImagerSigns seisImagerSigns(const std::string &start)
{
    Content content;
    readContent(start, content);
    const std::vector<Fields> &rows = content.rows;
    SeisImagerSigns signs;
    if (rows.size() < 2)
        return signs;
    const std::size_t counts = countRow(content);
    if (counts + 1 >= rows.size() || secondCount(rows[counts]).value_or(0) == 0
        || !secondCount(rows[counts + 1]))
        return signs;
    signs.hasCounts = true;
    signs.hasFirstLine = content.firstLine.starts_with("1996 0 3");
    for (std::size_t i = counts + 2; i < rows.size(); ++i) {
        signs.hasTwoFields |= rows[i].size() == 2 && i + 1 < rows.size();
        signs.hasFlags &= rows[i].size() < 3 || numberIn(rows[i][2]) == 0.0
                          || countIn(rows[i][2]).value_or(10) < 10;
    }
    followCounts(rows, counts, start.size() < startSize, signs);
    return signs;
}

/// Whether the row has a position, an elevation and a time, which may be missing.
bool isGenericRow(const Fields &row)
{
    return row.size() > 2 && numberIn(row[0]) && numberIn(row[1]);
}

} // namespace

std::string recogniseGeogiga(const std::string &start, const std::string & /*path*/)
{
    return firstWords(start).starts_with("tx_curve") ? "TX_CURVE in its first line" : "";
}

std::string recogniseWinsism(const std::string &start, const std::string & /*path*/)
{
    return firstWords(start) == "shotnumber,shotelevation"
               ? "\"Shot number, Shot elevation\" in its first line"
               : "";
}

std::string recogniseOtte(const std::string &start, const std::string & /*path*/)
{
    return firstWords(start) == "otte" ? "otte in its first line" : "";
}

std::string recogniseCsv(const std::string &start, const std::string & /*path*/)
{
    std::string heading = firstWords(start);
    std::erase(heading, '"');
    for (char &character : heading)
        character = character == ';' ? ',' : character;
    for (const char *column : {"shot_x", "receiver_x"})
        if ((',' + heading + ',').find(std::string(",") + column + ',') != std::string::npos)
            return std::string(column) + " in its heading";
    return "";
}

std::string recogniseSgt(const std::string &start, const std::string & /*path*/)
{
    Content content;
    readContent(start, content);
    if (content.rows.size() < 2)
        return "";
    const std::string_view first = content.lines[0];
    const std::optional<std::size_t> count = countIn(trimmed(first.substr(0, first.find('#'))));
    const Fields &position = content.rows[1];
    if (!count || position.size() < 2 || position.size() > 3
        || !std::all_of(position.begin(), position.end(), numberIn))
        return "";
    const auto isCount = [](std::string_view line) {
        return countIn(trimmed(line.substr(0, line.find('#')))).has_value();
    };
    const bool fits = *count + 1 < content.lines.size() && isCount(content.lines[*count + 1]);
    const std::string &text = content.input.text;
    const auto secondRow = static_cast<std::size_t>(position[0].data() - text.data());
    const bool isCommented = text.find('#') < secondRow;
    return fits || isCommented ? "the count of positions in its first line" : "";
}

std::string recogniseSeisImager(const std::string &start, const std::string &path)
{
    const SeisImagerSigns signs = seisImagerSigns(start);
    if (!signs.hasCounts || !recogniseSgt(start, path).empty())
        return "";
    if (signs.areCountsTrue)
        return "counts of shots and receivers that fit its lines";
    if (signs.hasFirstLine || signs.hasTwoFields || signs.hasFlags)
        return "counts of shots and receivers in its first lines";
    return "";
}

std::string recogniseGeneric(const std::string &start, const std::string &path)
{
    const SeisImagerSigns signs = seisImagerSigns(start);
    const bool fitsSeisImager =
        signs.areCountsTrue && signs.hasNoShotTimes && (signs.hasTwoFields || signs.hasFlags);
    const bool isSeisImager = signs.hasCounts && (signs.hasFirstLine || fitsSeisImager);
    if (isSeisImager || !recogniseSgt(start, path).empty())
        return "";
    TextInput input = inputOf(start);
    const RowStyle style = findStyle(input);
    Report unused;
    std::size_t rows = 0;
    std::size_t fitting = 0;
    while (nextRow(style, rows == 0, input, unused)) {
        ++rows;
        fitting += isGenericRow(input.fields) ? 1 : 0;
    }
    return fitting > 0 && 2 * fitting >= rows ? "rows of a position, an elevation and a time" : "";
}
