// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/rows.h"

#include <algorithm>

namespace {

/// Whether the line has words and no number, whatever is between them.
bool isHeading(std::string_view line)
{
    bool hasLetter = false;
    while (!line.empty()) {
        const std::string_view word = line.substr(0, line.find_first_of("; \t,"));
        if (wholeNumber(word))
            return false;
        hasLetter = hasLetter || std::any_of(word.begin(), word.end(), [](char character) {
                        const int lowered = character | 0x20;
                        return lowered >= 'a' && lowered <= 'z';
                    });
        line.remove_prefix(std::min(word.size() + 1, line.size()));
    }
    return hasLetter;
}

/// Whether blanks or tabs stand between two characters of the line that are no commas.
bool hasBlankBetween(std::string_view line)
{
    for (std::size_t blank = line.find_first_of(" \t"); blank != std::string_view::npos;) {
        const std::size_t next = line.find_first_not_of(" \t", blank);
        if (line[blank - 1] != ',' && line[next] != ',')
            return true;
        blank = line.find_first_of(" \t", next);
    }
    return false;
}

/// Whether the field looks like a number, with a point or a comma.
bool isNumber(std::string_view field)
{
    return field.find_first_not_of("0123456789.,+-eE") == std::string_view::npos;
}

/// Splits the current line.
void splitRow(const RowStyle &style, TextInput &input)
{
    if (style.delimiter == ' ') {
        splitAtBlanks(input);
        if (!style.endsRows && input.wholeLine.ends_with('\t'))
            input.fields.emplace_back();
        return;
    }
    if (style.endsRows)
        input.line.remove_suffix(1);
    splitAt(style.delimiter, input);
}

} // namespace

RowStyle findStyle(const TextInput &file)
{
    TextInput input = file;
    input.progress = {};
    Report unused;
    bool hasBlank = false;
    bool hasComma = false;
    bool hasSemicolon = false;
    std::string ends;
    RowStyle style;
    while (nextContent(input, unused)) {
        if (isHeading(input.line))
            continue;
        hasSemicolon = hasSemicolon || input.line.find(';') != std::string_view::npos;
        hasBlank = hasBlank || hasBlankBetween(input.line);
        hasComma = hasComma || input.line.find(',') != std::string_view::npos;
        splitAtBlanks(input);
        const auto numbers = std::count_if(input.fields.begin(), input.fields.end(), isNumber);
        style.mostNumbers = std::max(style.mostNumbers, static_cast<std::size_t>(numbers));
        ends += input.wholeLine.ends_with('\t') ? ' ' : input.line.back();
    }
    style.delimiter = hasSemicolon ? ';' : !hasBlank && hasComma ? ',' : ' ';
    style.endsRows = ends.find_first_not_of(style.delimiter) == std::string::npos;
    return style;
}

bool nextRow(const RowStyle &style, bool isFirst, TextInput &input, Report &report)
{
    while (nextContent(input, report)) {
        if (!isFirst || !isHeading(input.line)) {
            splitRow(style, input);
            return true;
        }
        remark(report, RemarkKind::notRead, "a heading, " + inQuotes(input.line) + ": not read");
    }
    return false;
}
