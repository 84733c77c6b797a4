// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/fields.h"

#include "traveltime/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace {

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// The decimal number that is the whole of `field`, white space around it aside.
std::optional<double> plainNumber(const std::string &field)
{
    std::string_view text = trimmed(field);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    const char *const last = text.data() + text.size();
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), last, number);
    if (error != std::errc() || end != last || !std::isfinite(number))
        return std::nullopt;
    return number;
}

/// As messages show a number: more digits than the output has, fewer than computing leaves.
std::string shown(double value)
{
    std::array<char, 32> digits;
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                         std::chars_format::general, 12)
                               .ptr};
}

/// Why `field` is not what was read of it.
std::string reason(const std::string &field)
{
    const std::optional<double> number = plainNumber(field);
    if (number)
        return *number >= 0.0 && *number < 2147483648.0 ? "write a whole number in digits"
                                                        : "it is out of range";
    const std::size_t comma = field.find(',');
    const bool isDecimalComma = comma != std::string::npos && comma + 1 < field.size()
                                && field[comma + 1] >= '0' && field[comma + 1] <= '9';
    return isDecimalComma ? "write a decimal point, no comma" : "it is no plain number";
}

/// How closely the output's six digits must hold a value; all below `exactBelow` are.
struct Precision
{
    RemarkKind kind;
    const char *noun;
    const char *unit;
    double exactBelow;
    double tolerance;
};

constexpr Precision centimetre = {RemarkKind::roundedPosition, "position", "m", 10000.0, 0.005};
constexpr Precision microsecond = {RemarkKind::roundedTime, "time", "ms", 1000.0, 0.0005};

void remarkOnRounding(double value, const Precision &wanted, std::size_t trace, Report &report)
{
    if (std::abs(value) < wanted.exactBelow || !std::isfinite(value))
        return;
    std::string printed;
    appendNumber(printed, value);
    const double error = std::abs(toDouble(printed) - value);
    if (error <= wanted.tolerance * 1.000001)
        return;
    remarkWorst(report, wanted.kind, error, [&] {
        return (trace != 0 ? "trace " + std::to_string(trace) + ": " : "") + "a " + wanted.noun
               + " of " + shown(value) + ' ' + wanted.unit + " becomes " + printed + ' '
               + wanted.unit + ", as the output has six digits";
    });
}

} // namespace

void splitLine(const std::string &line, std::vector<std::string> &fields,
               const std::string &delimiters, Report &report)
{
    if (!line.empty() && line.find_first_not_of(delimiters) == std::string::npos)
        fail(report, "nothing but delimiters");
    tokenize(line, fields, delimiters);
}

void splitNumbers(const std::string &line, std::vector<std::string> &fields,
                  const std::string &delimiters, Report &report)
{
    splitLine(line, fields, delimiters, report);
    if (line.empty() || delimiters.find(line.front()) == std::string::npos)
        return;
    std::string &front = fields[0];
    const auto number = std::find_if_not(front.begin(), front.end(), isWhiteSpace);
    const auto begin = static_cast<std::size_t>(number - front.begin());
    front.resize(std::min(front.size(), front.find_first_of(delimiters, begin)));
    remark(report, RemarkKind::shiftedLine,
           "the line begins with a delimiter: its first field, \"" + quotable(fields[1])
               + "\", is read twice, so that all others shift");
}

void requireFields(const std::vector<std::string> &fields, std::size_t expected, Report &report)
{
    if (fields.size() >= expected)
        return;
    fail(report, counted(fields.size(), "field") + ", " + std::to_string(expected) + " expected");
    throwInvalidSubscript();
}

double readNumber(const std::string &field, Report &report)
{
    if (const std::optional<double> number = plainNumber(field))
        return *number;
    const double number = toDouble(field);
    remarkUnlessWhole(field, number, report);
    return number;
}

std::int32_t readInteger(const std::string &field, Report &report)
{
    const std::int32_t number = toInt(field);
    remarkUnlessWhole(field, number, report);
    return number;
}

double readPosition(const std::string &field, Report &report)
{
    const double position = readNumber(field, report);
    remarkOnPosition(position, report);
    return position;
}

double readTime(const std::string &field, double perSecond, Report &report)
{
    const double time = readNumber(field, report) / perSecond;
    remarkOnTime(time, report);
    return time;
}

void remarkUnlessWhole(const std::string &field, double value, Report &report)
{
    if (plainNumber(field) != value)
        remark(report, RemarkKind::notANumber,
               '"' + quotable(field) + "\" is read as " + shown(value) + ": " + reason(field));
}

void remarkOnPosition(double metres, Report &report, std::size_t trace)
{
    remarkOnRounding(metres, centimetre, trace, report);
}

void remarkOnTime(double seconds, Report &report)
{
    const double milliseconds = seconds * 1000.0;
    if (milliseconds < 0.0) {
        std::string text = "a time of ";
        appendNumber(text, milliseconds);
        remark(report, RemarkKind::negativeTime,
               text
                   + " ms goes into the output like any other, also where it means \"not picked\"");
    }
    remarkOnRounding(milliseconds, microsecond, 0, report);
}

Rest readRest(const std::function<bool(std::string &line)> &next, const std::string &meaningless,
              const Report &report)
{
    Rest rest;
    std::string line;
    while (next(line)) {
        if (line.find_first_not_of(meaningless) == std::string::npos)
            continue;
        if (++rest.lineCount == 1) {
            rest.first = report.place;
            rest.firstLine = line;
        }
    }
    return rest;
}

void remarkOnRest(const Rest &rest, bool isSurvey, Report &report)
{
    if (rest.lineCount == 0)
        return;
    remark(report, RemarkKind::notRead, rest.first,
           isSurvey ? "another survey begins here: only the first is read"
                    : counted(rest.lineCount, "line") + " after the last shot: not read");
}

std::string quotable(const std::string &text)
{
    constexpr std::size_t longest = 60;
    const std::string_view whole = trimmed(text);
    return std::string(whole.substr(0, longest)) + (whole.size() > longest ? "..." : "");
}
