// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <stdexcept>
#ifdef __APPLE__
#include <xlocale.h>
#endif

namespace {

double parseDouble(const char *text, char **end)
{
#ifdef _WIN32
    static const _locale_t classic = _create_locale(LC_ALL, "C");
    return _strtod_l(text, end, classic);
#else
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text, end, classic);
#endif
}

} // namespace

void tokenize(const std::string &str, std::vector<std::string> &tokens,
              const std::string &delimiters)
{
    tokens.clear();
    std::size_t start = str.find_first_not_of(delimiters);
    // Searched from 0, not from start: this is where the field in front comes from.
    std::size_t end = str.find_first_of(delimiters);
    while (start != std::string::npos || end != std::string::npos) {
        if (start == std::string::npos)
            throw std::out_of_range("invalid string position");
        tokens.push_back(str.substr(start, end - start));
        start = str.find_first_not_of(delimiters, end);
        end = str.find_first_of(delimiters, start);
    }
}

void readLine(std::istream &stream, std::string &line)
{
    line.clear();
    std::getline(stream, line);
    if (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
        line.pop_back();
    trimLeadingSpaces(line);
}

void trimLeadingSpaces(std::string &line)
{
    line.erase(0, line.find_first_not_of(' '));
}

double toDouble(const std::string &text)
{
    return parseDouble(text.c_str(), nullptr);
}

double toDoubleOrThrow(const std::string &text)
{
    char *end = nullptr;
    errno = 0;
    const double value = parseDouble(text.c_str(), &end);
    if (end == text.c_str())
        throw std::invalid_argument("invalid stod argument");
    if (errno == ERANGE)
        throw std::out_of_range("stod argument out of range");
    return value;
}

std::int32_t toInt(const std::string &text)
{
    return static_cast<std::int32_t>(std::strtoll(text.c_str(), nullptr, 10));
}

void appendNumber(std::string &text, double value)
{
    std::array<char, 32> digits;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::general, 6);
    text.append(digits.data(), end);
}

std::string fixedNumber(double value)
{
    // A sign, the 309 digits of the largest double, the point and six digits.
    std::array<char, 2 + std::numeric_limits<double>::max_exponent10 + 1 + 6> digits;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::fixed, 6);
    return {digits.data(), end};
}

std::ifstream openText(const std::string &path)
{
    std::ifstream stream;
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        stream.setstate(std::ios::failbit);
        errno = EISDIR;
    } else {
        stream.open(path);
    }
    return stream;
}

void nextLine(std::istream &stream, std::string &line, Problem &problem)
{
    // A stream that failed before reads nothing more: the line of that failure is the one to name.
    problem.line += stream.fail() ? 0 : 1;
    line.clear();
    std::getline(stream, line);
}

void splitLine(const std::string &line, std::vector<std::string> &fields,
               const std::string &delimiters, Problem &problem)
{
    if (!line.empty() && line.find_first_not_of(delimiters) == std::string::npos)
        tell(problem, "nothing but delimiters");
    tokenize(line, fields, delimiters);
}

void requireFields(const std::vector<std::string> &fields, std::size_t expected, Problem &problem)
{
    if (fields.size() >= expected)
        return;
    tell(problem, counted(fields.size(), "field") + ", " + std::to_string(expected) + " expected");
    throw std::out_of_range("invalid vector subscript");
}

std::string counted(std::size_t count, const std::string &noun)
{
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}
