// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <limits>
#include <stdexcept>
#ifdef __APPLE__
#include <xlocale.h>
#endif

namespace {

constexpr std::array powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

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

/// As an output stream prints `value`. Returns the end of the text, of 13 characters at most.
char *printPlainly(char *to, double value)
{
    return std::to_chars(to, to + 32, value, std::chars_format::general, 6).ptr;
}

/// Writes six digits, the first not 0, as the number of this decimal exponent: without zeros at the
/// end, and from -4 to 5 without the exponent itself. Returns the end.
char *layOut(char *to, std::uint32_t digits, int exponent)
{
    // Always copies six characters; surplus ones are overwritten or lie past the returned end.
    std::array<char, 12> text = {};
    for (std::size_t i = 6; i-- > 0; digits /= 10)
        text[i] = static_cast<char>('0' + digits % 10);
    int count = 6;
    while (text[static_cast<std::size_t>(count - 1)] == '0')
        --count;

    const bool isFixed = exponent >= -4 && exponent < 6;
    if (isFixed && exponent < 0) {
        std::memcpy(to, "0.0000", 6);
        to += 1 - exponent;
        std::memcpy(to, text.data(), 6);
        return to + count;
    }
    const int whole = isFixed ? exponent + 1 : 1;
    std::memcpy(to, text.data(), 6);
    to[whole] = '.';
    std::memcpy(to + whole + 1, text.data() + whole, 6);
    to += count > whole ? count + 1 : whole;
    if (isFixed)
        return to;
    *to++ = 'e';
    *to++ = exponent < 0 ? '-' : '+';
    const int size = std::abs(exponent);
    *to++ = static_cast<char>('0' + size / 10);
    *to++ = static_cast<char>('0' + size % 10);
    return to;
}

/// The same for values of common size, and nullptr for all others: every sample of a record and
/// every pick goes through here. Scaling to six digits before the point takes one multiplication or
/// division by an exact power of ten, so it errs in the last bits alone; where these could decide
/// how the sixth digit is rounded, the value is left to printPlainly.
char *printQuickly(char *to, double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const double magnitude = std::abs(value);
    const int binaryExponent = static_cast<int>(bits >> 52 & 0x7ff) - 1023;
    // floor(log10 of 2^binaryExponent): of the magnitude it is this or one more.
    int exponent = binaryExponent * 1233 >> 12;
    if (exponent < -16 || exponent > 25)
        return nullptr;
    const auto scale = [magnitude](int power) {
        return power < 0 ? magnitude / powersOfTen[static_cast<std::size_t>(-power)]
                         : magnitude * powersOfTen[static_cast<std::size_t>(power)];
    };
    double scaled = scale(5 - exponent);
    if (scaled >= 1e6)
        scaled = scale(5 - ++exponent);
    auto digits = static_cast<std::uint32_t>(scaled);
    const double rest = scaled - digits;
    if (rest > 0.4999 && rest < 0.5001)
        return nullptr;
    digits += rest > 0.5 ? 1 : 0;
    if (digits == 1000000) {
        digits = 100000;
        ++exponent;
    }
    *to = '-';
    return layOut(to + (bits >> 63), digits, exponent);
}

} // namespace

void tokenize(const std::string &str, std::vector<std::string> &tokens,
              const std::string &delimiters)
{
    // A single delimiter, as every format has, is searched for many characters at a time.
    const bool one = delimiters.size() == 1;
    const auto findField = [&](std::size_t from) {
        return one ? str.find_first_not_of(delimiters.front(), from)
                   : str.find_first_not_of(delimiters, from);
    };
    const auto findDelimiter = [&](std::size_t from) {
        return one ? str.find(delimiters.front(), from) : str.find_first_of(delimiters, from);
    };

    tokens.clear();
    std::size_t start = findField(0);
    // Searched from 0, not from start: this is where the field in front comes from.
    std::size_t end = findDelimiter(0);
    while (start != std::string::npos || end != std::string::npos) {
        if (start == std::string::npos)
            throw std::out_of_range("invalid string position");
        tokens.emplace_back(str, start, end - start);
        start = findField(end);
        end = findDelimiter(start);
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
    // Plain decimal numbers, nearly all there are, read the same without the C library.
    const char *const last = text.data() + text.size();
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), last, value);
    const bool isHexadecimal = end != last && (*end == 'x' || *end == 'X');
    if (error == std::errc() && std::isfinite(value) && !isHexadecimal)
        return value;
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
    char *const end = printQuickly(digits.data(), value);
    if (end != nullptr)
        text.append(digits.data(), end);
    else
        text.append(digits.data(), printPlainly(digits.data(), value));
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

std::size_t markSize(const std::string &text)
{
    if (text.starts_with("\xEF\xBB\xBF"))
        return 3;
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") ? 2 : 0;
}

TextFile loadText(const std::string &path, Report &report)
{
    report.place = {path};
    TextFile file;
    std::ifstream stream = openText(path);
    file.isOpen = stream.good();
    // By what the buffer holds: a read that fails takes nothing with it that stood before.
    while (stream.peek() != std::char_traits<char>::eof()) {
        const std::size_t before = file.text.size();
        file.text.resize(before + static_cast<std::size_t>(stream.rdbuf()->in_avail()));
        stream.read(&file.text[before], static_cast<std::streamsize>(file.text.size() - before));
    }
    if (stream.bad()) {
        file.text.resize(file.text.rfind('\n') + 1);
        fail(report, "the file cannot be read to its end", Window::goesOn);
    } else if (file.isOpen && file.text.empty()) {
        fail(report, "the file is empty", Window::goesOn);
    }
    return file;
}

bool nextLine(TextFile &file, std::string &line, Report &report)
{
    line.clear();
    file.failed = file.failed || file.position == file.text.size();
    if (file.failed)
        return false;
    ++report.place.line;
    const std::size_t end = std::min(file.text.find('\n', file.position), file.text.size());
    line.assign(file.text, file.position, end - file.position);
    file.position = std::min(end + 1, file.text.size());
    return true;
}

void throwInvalidSubscript()
{
    throw std::out_of_range("invalid vector subscript");
}

void requireHoldable(std::uint64_t values, std::size_t bytes, Report &report)
{
    constexpr std::uint64_t mostMissing = 10'000'000;
    if (values <= bytes + mostMissing)
        return;
    fail(report, std::to_string(values) + " values asked for, of " + counted(bytes, "byte"));
    throw std::length_error("vector too long");
}

std::string counted(std::size_t count, const std::string &noun)
{
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}
