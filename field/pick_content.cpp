// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/pick_content.h"

#include "traveltime/text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using Fields = std::vector<std::string>;

/// The characters of ASCII in a text of any encoding; others do not matter here.
std::string plainText(const std::string &start)
{
    const std::size_t mark = markSize(start);
    if (mark != 2)
        return start.substr(mark);
    std::string text;
    for (std::size_t i = start[0] == '\xFF' ? 2 : 3; i < start.size(); i += 2)
        text += start[i];
    return text;
}

std::string trimmed(const std::string &text)
{
    const std::size_t begin = text.find_first_not_of(" \t");
    return begin == std::string::npos
               ? ""
               : text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

/// The lines of the text that are not empty, comments included.
std::vector<std::string> linesOf(const std::string &start)
{
    const std::string text = plainText(start);
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
        if (std::string line = trimmed(text.substr(begin, end - begin)); !line.empty())
            lines.push_back(std::move(line));
        begin = end + 1;
    }
    return lines;
}

/// The lines less the comments.
std::vector<std::string> rowsOf(const std::string &start)
{
    std::vector<std::string> rows;
    for (const std::string &line : linesOf(start))
        if (std::string row = trimmed(line.substr(0, line.find('#'))); !row.empty())
            rows.push_back(std::move(row));
    return rows;
}

std::string lowerCase(std::string text)
{
    for (char &character : text)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return text;
}

/// The text in lower case and without blanks.
std::string squeezed(const std::string &text)
{
    std::string rest = lowerCase(text);
    std::erase_if(rest, [](char character) { return character == ' ' || character == '\t'; });
    return rest;
}

std::string firstRow(const std::string &start)
{
    const std::vector<std::string> rows = rowsOf(start);
    return rows.empty() ? "" : rows.front();
}

/// Splits at any of the delimiters, and also gives the empty fields when these are no blanks.
Fields split(const std::string &row, std::string_view delimiters)
{
    Fields fields;
    const bool isAtBlanks = delimiters.front() == ' ';
    for (std::size_t begin = 0; begin <= row.size();) {
        const std::size_t end = std::min(row.find_first_of(delimiters, begin), row.size());
        if (end > begin || !isAtBlanks)
            fields.push_back(trimmed(row.substr(begin, end - begin)));
        begin = end + 1;
    }
    return fields;
}

/// The number that is all of the field; its decimal point may be a comma.
std::optional<double> numberIn(const std::string &field)
{
    std::string text = field.starts_with('+') ? field.substr(1) : field;
    std::replace(text.begin(), text.end(), ',', '.');
    double value = 0.0;
    const char *const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && last == end ? std::optional(value) : std::nullopt;
}

/// The whole number that is all of the field.
std::optional<std::size_t> countIn(const std::string &field)
{
    std::size_t value = 0;
    const char *const end = field.data() + field.size();
    const auto [last, error] = std::from_chars(field.data(), end, value);
    return error == std::errc() && last == end ? std::optional(value) : std::nullopt;
}

bool areNumbers(const Fields &fields)
{
    return std::all_of(fields.begin(), fields.end(),
                       [](const std::string &field) { return numberIn(field).has_value(); });
}

/// Whether the row has a position, an elevation and a time, which may be missing.
bool isGenericRow(const std::string &row)
{
    for (const char *delimiters : {";", " \t", ","}) {
        const Fields fields = split(row, delimiters);
        if (fields.size() >= 3 && numberIn(fields[0]) && numberIn(fields[1]))
            return true;
    }
    return false;
}

/// What speaks for SeisImager in rows of numbers.
struct SeisImagerSigns
{
    bool hasCounts = false;     ///< of shots and of the first shot's receivers
    bool hasFirstLine = false;  ///< as pickers write it
    bool hasTwoFields = false;  ///< rows that are too short for other formats
    bool hasFlags = true;       ///< no third field of a receiver can be a time
    bool areCountsTrue = false; ///< as far as the rows go
};

/// Whether all counts fit the rows, the first of which has the number of shots; `isWhole`: no rows
/// come after these.
bool countsFit(const std::vector<std::string> &rows, std::size_t at, bool isWhole)
{
    std::size_t shots = countIn(split(rows[at++], " \t")[1]).value();
    for (; shots > 0 && at < rows.size(); --shots) {
        const Fields fields = split(rows[at], " \t");
        if (fields.size() < 2 || !countIn(fields[1]))
            return false;
        at += 1 + std::min(*countIn(fields[1]), rows.size());
    }
    return at > rows.size() || shots > 0 ? !isWhole : true;
}

SeisImagerSigns seisImagerSigns(const std::string &start)
{
    SeisImagerSigns signs;
    std::vector<std::string> rows = rowsOf(start);
    if (const std::vector<std::string> lines = linesOf(start);
        !lines.empty() && lines.front().starts_with('#'))
        rows.insert(rows.begin(), lines.front()); // the first line may hold anything
    if (rows.size() < 3)
        return signs;
    for (const std::size_t i : {1, 2}) {
        const Fields fields = split(rows[i], " \t");
        if (fields.size() < 2 || !areNumbers(fields) || countIn(fields[1]).value_or(0) == 0)
            return signs;
    }
    signs.hasCounts = true;
    signs.hasFirstLine = rows.front().starts_with("1996 0 3");
    for (std::size_t i = 3; i < rows.size(); ++i) {
        const Fields fields = split(rows[i], " \t");
        signs.hasTwoFields |= fields.size() == 2 && i + 1 < rows.size();
        signs.hasFlags &=
            fields.size() < 3 || numberIn(fields[2]) == 0.0 || countIn(fields[2]).value_or(10) < 10;
    }
    signs.areCountsTrue = countsFit(rows, 1, start.size() < startSize);
    return signs;
}

} // namespace

std::string recogniseGeogiga(const std::string &start, const std::string & /*path*/)
{
    return lowerCase(firstRow(start)).starts_with("tx_curve") ? "TX_CURVE in its first line" : "";
}

std::string recogniseWinsism(const std::string &start, const std::string & /*path*/)
{
    return squeezed(firstRow(start)) == "shotnumber,shotelevation"
               ? "\"Shot number, Shot elevation\" in its first line"
               : "";
}

std::string recogniseOtte(const std::string &start, const std::string & /*path*/)
{
    return lowerCase(firstRow(start)) == "otte" ? "otte in its first line" : "";
}

std::string recogniseCsv(const std::string &start, const std::string & /*path*/)
{
    std::string heading = squeezed(firstRow(start));
    std::erase(heading, '"');
    const Fields columns = split(heading, ",");
    for (const char *column : {"shot_x", "receiver_x", "time"})
        if (std::find(columns.begin(), columns.end(), column) == columns.end())
            return "";
    return "shot_x, receiver_x and time in its heading";
}

std::string recogniseSgt(const std::string &start, const std::string & /*path*/)
{
    const std::vector<std::string> rows = rowsOf(start);
    if (rows.size() < 2)
        return "";
    const std::optional<std::size_t> count = countIn(rows[0]);
    const Fields position = split(rows[1], " \t");
    if (!count || position.size() < 2 || position.size() > 3 || !areNumbers(position))
        return "";
    const bool fits = *count + 1 < rows.size() && countIn(rows[*count + 1]);
    const std::vector<std::string> lines = linesOf(start);
    const bool isCommented = lines[0].find('#') != std::string::npos || lines[1].starts_with('#');
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
        return "counts of shots and receivers in lines 2 and 3";
    return "";
}

std::string recogniseGeneric(const std::string &start, const std::string &path)
{
    const std::vector<std::string> rows = rowsOf(start);
    const SeisImagerSigns signs = seisImagerSigns(start);
    const bool isSeisImager =
        signs.hasCounts
        && (signs.hasFirstLine || signs.hasTwoFields || (signs.areCountsTrue && signs.hasFlags));
    const auto fitting =
        static_cast<std::size_t>(std::count_if(rows.begin(), rows.end(), isGenericRow));
    return 2 * fitting < rows.size() || fitting == 0 || isSeisImager
                   || !recogniseSgt(start, path).empty()
               ? ""
               : "rows of a position, an elevation and a time";
}
