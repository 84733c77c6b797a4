// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/sgt_blocks.h"

#include "traveltime/text.h"

#include <algorithm>
#include <utility>

namespace {

/// Splits the current line, less the comment at its end.
void splitRow(TextInput &input)
{
    input.line = trimmed(input.line.substr(0, input.line.find('#')));
    splitAtBlanks(input);
}

bool isOneOf(const std::vector<const char *> &names, const std::string &name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Cuts a column's name and unit apart; false for a unit that is not known.
bool parseColumn(std::string_view word, Column &column)
{
    struct Unit
    {
        const char *name;
        int power;
    };
    static constexpr Unit units[] = {{"m", 0}, {"km", 3},  {"dm", -1}, {"cm", -2}, {"mm", -3},
                                     {"s", 0}, {"ms", -3}, {"us", -6}, {"ns", -9}};
    const std::size_t slash = std::min(word.find('/'), word.size());
    for (const char character : word.substr(0, slash))
        column.name += character >= 'A' && character <= 'Z'
                           ? static_cast<char>(character - 'A' + 'a')
                           : character;
    if (slash == word.size())
        return true;
    const std::string_view unit = word.substr(slash + 1);
    column.isPercent = unit == "%" && column.name == "err";
    const bool isLength = column.name == "x" || column.name == "y" || column.name == "z";
    for (const Unit &known : units) {
        if (unit != known.name || std::string_view(known.name).ends_with('m') != isLength)
            continue;
        column.power = known.power;
        return true;
    }
    return column.isPercent;
}

/// Takes the columns from the comment that is the current line, if it names them.
bool parseColumns(const BlockKind &kind, Block &block, TextInput &input, Report &report)
{
    input.line = trimmed(input.line.substr(1));
    splitAtBlanks(input);
    std::vector<Column> columns;
    std::string unknown;
    bool hasOthers = false;
    for (const std::string_view word : input.fields) {
        const bool isParsed = parseColumn(word, columns.emplace_back());
        const bool isKnown = isOneOf(kind.known, columns.back().name);
        hasOthers = hasOthers || !isKnown;
        if (isKnown && !isParsed)
            unknown = inQuotes(word);
    }
    const bool hasAll = std::all_of(kind.needed.begin(), kind.needed.end(),
                                    [&](const char *name) { return has(name, columns); });
    if (!hasAll || (hasOthers && !kind.takesOthers))
        return true;
    if (!unknown.empty())
        return fail(report, "the unit of " + unknown
                                + " is not known: m, km, dm, cm, mm, s, ms, us, ns and err/% are");
    block.columns = columns;
    block.names = input.line;
    return true;
}

} // namespace

std::size_t find(const char *name, const std::vector<Column> &columns)
{
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column &column) { return column.name == name; });
    return static_cast<std::size_t>(found - columns.begin());
}

bool has(const char *name, const std::vector<Column> &columns)
{
    return find(name, columns) < columns.size();
}

bool nextRow(SgtInput &file, Report &report)
{
    if (!std::exchange(file.isPending, false) && !nextContent(file.input, report))
        return false;
    splitRow(file.input);
    return true;
}

bool readBlock(const BlockKind &kind, Block &block, SgtInput &file, Report &report)
{
    const std::string expected = std::string("the number of ") + kind.noun + 's';
    block.noun = kind.noun;
    TextInput &input = file.input;
    if (!nextRow(file, report))
        return fail(report, "the file ends where " + expected + " is expected");
    if (input.fields.size() != 1)
        return fail(report, inQuotes(input.line) + " where " + expected + " is expected");
    if (!readCount(input.line, expected.c_str(), block.count, input, report))
        return false;
    block.countLine = report.place.line;
    while (!file.isPending && nextLine(input, report)) {
        if (input.line.starts_with('#')) {
            if (!parseColumns(kind, block, input, report))
                return false;
        } else {
            file.isPending = !input.line.empty();
        }
    }
    return true;
}

bool requireColumns(const BlockKind &kind, const Block &block, Report &report)
{
    const Place place{report.place.file, block.countLine};
    if (block.columns.empty())
        return fail(report, place,
                    std::string("no comment after this count names the columns: \"") + kind.example
                        + "\", for example");
    for (const Column &column : block.columns)
        if (!isOneOf(kind.known, column.name))
            remark(report, RemarkKind::notRead, place,
                   "the column " + inQuotes(column.name) + " is not read");
    return true;
}

bool nextRow(std::size_t row, const Block &block, SgtInput &file, Report &report)
{
    if (!nextRow(file, report))
        return fail(report, "the file ends after " + std::to_string(row) + " of "
                                + counted(block.count, block.noun));
    if (file.input.fields.size() == block.columns.size())
        return true;
    return fail(report, counted(file.input.fields.size(), "field") + ": " + block.names + " of "
                            + block.noun + ' ' + std::to_string(row + 1) + " of "
                            + std::to_string(block.count) + " expected");
}

bool readCell(std::size_t column, const char *name, double &value, const Block &block,
              SgtInput &file, Report &report)
{
    return readNumber(file.input.fields[column], name, value, file.input, report,
                      block.columns[column].power);
}
