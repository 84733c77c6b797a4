// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/text_input.h"

#include "field/numbers.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Appends a character, by its number in Unicode, as UTF-8.
void appendCharacter(std::string &text, std::uint32_t character)
{
    const auto append = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | character >> 12);
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | character >> 18);
        append(0x80 | (character >> 12 & 0x3F));
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

/// The text of UTF-16 after its mark. What is no character becomes U+FFFD.
std::string fromUtf16(std::string_view bytes, bool isBigEndian)
{
    const auto unit = [&](std::size_t i) {
        if (i + 1 >= bytes.size())
            return std::uint32_t(0xFFFD);
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        return isBigEndian ? std::uint32_t(first) << 8 | second
                           : std::uint32_t(second) << 8 | first;
    };
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        std::uint32_t character = unit(i);
        const std::uint32_t next = i + 2 < bytes.size() ? unit(i + 2) : 0;
        if (character >= 0xD800 && character < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            character = 0x10000 + ((character - 0xD800) << 10) + (next - 0xDC00);
            i += 2;
        } else if (character >= 0xD800 && character < 0xE000) {
            character = 0xFFFD;
        }
        appendCharacter(text, character);
    }
    return text;
}

/// Fails at the line of a byte that no text has.
bool requireText(const std::string &text, Report &report)
{
    const std::size_t zero = text.find('\0');
    if (zero == std::string::npos)
        return true;
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(zero);
    report.place.line = 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
    return fail(report, "this is no text: it has a byte of 0 (UTF-16 needs a byte order mark)");
}

/// Whether the comma in the number could also part thousands: one to three digits, of which the
/// first is not 0, before it and three after it.
bool couldPartThousands(std::string_view number)
{
    number.remove_prefix(number[0] == '-' || number[0] == '+' ? 1 : 0);
    const std::size_t comma = number.find(',');
    return comma >= 1 && comma <= 3 && number[0] != '0' && number.size() == comma + 4
           && std::all_of(number.begin() + static_cast<std::ptrdiff_t>(comma) + 1, number.end(),
                          isDigit);
}

/// Reads a number with a decimal comma; nothing when the field is none.
std::optional<double> numberWithComma(std::string_view field, int power, DecimalMarks &marks,
                                      const Report &report)
{
    if (std::count(field.begin(), field.end(), ',') != 1
        || field.find('.') != std::string_view::npos)
        return {};
    std::string withPoint(field);
    const std::size_t comma = field.find(',');
    withPoint[comma] = '.';
    if (comma + 1 == field.size() || !isDigit(field[comma + 1]))
        return {};
    const std::optional<double> value = wholeNumber(withPoint, power);
    if (!value)
        return {};
    if (++marks.commas == 1) {
        marks.firstComma = report.place;
        marks.withComma = field;
    }
    marks.isComma = marks.isComma || !couldPartThousands(field);
    return value;
}

} // namespace

std::string decodeText(std::string bytes)
{
    const std::size_t mark = markSize(bytes);
    if (mark == 2)
        return fromUtf16(std::string_view(bytes).substr(2), bytes[0] == '\xFE');
    bytes.erase(0, mark);
    return bytes;
}

bool loadInput(const std::string &path, TextInput &input, Report &report)
{
    TextFile file = loadText(path, report);
    if (!file.isOpen)
        return failInSystem(report, path);
    if (report.failure)
        return false;
    input = {};
    input.text = decodeText(std::move(file.text));
    input.hasCommas = input.text.find(',') != std::string::npos;
    return requireText(input.text, report);
}

bool loadInput(const std::string &path, const PickOptions &options, TextInput &input,
               Report &report)
{
    const bool isLoaded = loadInput(path, input, report);
    input.progress = options.progress;
    return isLoaded;
}

bool nextLine(TextInput &input, Report &report)
{
    const std::string &text = input.text;
    const std::size_t begin = input.position;
    input.line = input.wholeLine = {};
    if (begin >= text.size())
        return false;
    constexpr std::size_t linesBetween = 4096;
    if (++report.place.line % linesBetween == 0 && input.progress)
        input.progress(static_cast<double>(begin) / static_cast<double>(text.size()));
    if (begin == 0 || input.lineFeed < begin)
        input.lineFeed = std::min(text.find('\n', begin), text.size());
    // The line's own end: its line feed, or a carriage return before that.
    std::size_t end = input.lineFeed;
    const void *const found = std::memchr(&text[begin], '\r', end - begin);
    if (found != nullptr)
        end = static_cast<std::size_t>(static_cast<const char *>(found) - text.data());
    input.position =
        end + (end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n' ? 2 : 1);
    input.wholeLine = std::string_view(text).substr(begin, end - begin);
    input.line = trimmed(input.wholeLine);
    return true;
}

bool nextContent(TextInput &input, Report &report)
{
    while (nextLine(input, report))
        if (!input.line.empty() && input.line.front() != '#')
            return true;
    return false;
}

void splitAtBlanks(TextInput &input)
{
    input.fields.clear();
    const char *at = input.line.data();
    const char *const end = at + input.line.size();
    while (at != end) {
        const char *const begin = at;
        while (at != end && !isBlank(*at))
            ++at;
        input.fields.emplace_back(begin, static_cast<std::size_t>(at - begin));
        while (at != end && isBlank(*at))
            ++at;
    }
}

void splitAt(char delimiter, TextInput &input)
{
    input.fields.clear();
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(input.line.find(delimiter, begin), input.line.size());
        input.fields.push_back(trimmed(input.line.substr(begin, end - begin)));
        if (end == input.line.size())
            return;
        begin = end + 1;
    }
}

bool requireFields(std::size_t count, const char *names, const TextInput &input, Report &report)
{
    if (input.fields.size() >= count)
        return true;
    return fail(report, counted(input.fields.size(), "field") + ": " + names + " expected");
}

bool readNumber(std::string_view field, const char *name, double &value, TextInput &input,
                Report &report, int power)
{
    std::optional<double> number = wholeNumber(field, power);
    if (input.hasCommas) {
        if (!number) {
            number = numberWithComma(field, power, input.marks, report);
        } else if (input.marks.pointLine == 0 && field.find('.') != std::string_view::npos) {
            input.marks.withPoint = field;
            input.marks.pointLine = report.place.line;
        }
    }
    if (!number)
        return fail(report, field.empty()
                                ? std::string(name) + " is missing"
                                : inQuotes(field) + " is no number: " + name + " expected");
    value = *number;
    return true;
}

bool readCount(std::string_view field, const char *name, std::size_t &count, TextInput &input,
               Report &report)
{
    double value = -1.0;
    if (!readNumber(field, name, value, input, report))
        return false;
    constexpr double most = std::numeric_limits<std::uint32_t>::max();
    if (value < 0.0 || value > most || value != std::floor(value))
        return fail(report,
                    inQuotes(field) + " is no whole number from 0 on: " + name + " expected");
    count = static_cast<std::size_t>(value);
    return true;
}

bool readTime(std::string_view field, int power, double &seconds, TextInput &input, Report &report)
{
    const bool isMark = field.empty() || field == "*" || sameWord(field, "nan");
    if (isMark)
        seconds = std::numeric_limits<double>::quiet_NaN();
    else if (!readNumber(field, "a time", seconds, input, report, power))
        return false;
    if (isMark || seconds < 0.0)
        remark(report, RemarkKind::negativeTime,
               (field.empty() ? "no time" : "a time of " + inQuotes(field))
                   + ": not picked, so the receiver is left out of this shot");
    return true;
}

bool endNumbers(const TextInput &input, Report &report)
{
    const DecimalMarks &marks = input.marks;
    if (marks.commas == 0)
        return true;
    const std::string comma = inQuotes(marks.withComma);
    if (marks.pointLine != 0)
        return fail(report, marks.firstComma,
                    comma + " has a comma and " + inQuotes(marks.withPoint) + " in line "
                        + std::to_string(marks.pointLine)
                        + " a point: write a decimal point in every number");
    if (!marks.isComma)
        return fail(report, marks.firstComma,
                    comma + " has a comma that may part thousands: write a decimal point");
    remark(report, RemarkKind::notANumber, marks.firstComma,
           counted(marks.commas, "number") + " with a decimal comma, of which the first is "
               + comma);
    return true;
}

std::optional<double> wholeNumber(std::string_view field, int power)
{
    if (power == 0)
        return plainNumber(field);
    // The power goes into the number's text, so that it is rounded once.
    const std::size_t mark = std::min(field.find_first_of("eE"), field.size());
    const std::string_view digits = field.substr(0, mark);
    const std::optional<int> exponent =
        mark == field.size() ? 0 : plainNumber<int>(field.substr(mark + 1));
    if (!plainNumber(digits) || !exponent || std::abs(*exponent) > 10000)
        return {};
    return plainNumber(std::string(digits) + 'e' + std::to_string(*exponent + power));
}

std::string inQuotes(std::string_view text)
{
    constexpr std::size_t longest = 40;
    std::string quotation = '"' + std::string(text.substr(0, longest));
    if (text.size() > longest)
        quotation += "...";
    return quotation + '"';
}

std::uint32_t lineOf(const Report &report)
{
    return static_cast<std::uint32_t>(report.place.line);
}

bool sameWord(std::string_view a, std::string_view b)
{
    const auto lowered = [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                    : character;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char left, char right) { return lowered(left) == right; });
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}
