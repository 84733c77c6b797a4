// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/exact_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

/// Appends a number: `exponent` is that of its first digit, which is not 0 unless it is the only
/// one, and nor is the last.
void layOut(std::string &text, std::string_view digits, int exponent)
{
    const int count = static_cast<int>(digits.size());
    if (exponent < -4 || exponent >= std::max(count, 6)) {
        text += digits[0];
        if (count > 1)
            text.append(".").append(digits.substr(1));
        text += exponent < 0 ? "e-" : "e+";
        const int size = std::abs(exponent);
        if (size < 10)
            text += '0';
        text += std::to_string(size);
    } else if (exponent < 0) {
        text.append("0.").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
    } else if (exponent >= count - 1) {
        text.append(digits).append(static_cast<std::size_t>(exponent + 1 - count), '0');
    } else {
        const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
        text.append(digits.substr(0, whole)).append(".").append(digits.substr(whole));
    }
}

/// Appends a positive number that at most fifteen digits, nine of them after the point, give
/// exactly, as nearly all are; false for others.
bool appendQuickly(std::string &text, double value, int power)
{
    if (value >= 1e6)
        return false;
    const std::int64_t billionths = std::llround(value * 1e9);
    if (billionths == 0 || static_cast<double>(billionths) / 1e9 != value)
        return false;
    std::array<char, 20> digits;
    const char *end = std::to_chars(digits.data(), digits.data() + digits.size(), billionths).ptr;
    const int exponent = static_cast<int>(end - digits.data()) - 10 + power;
    while (end[-1] == '0')
        --end;
    layOut(text, {digits.data(), static_cast<std::size_t>(end - digits.data())}, exponent);
    return true;
}

} // namespace

void appendExact(std::string &text, double value, int power)
{
    if (std::signbit(value))
        text += '-';
    const double magnitude = std::abs(value);
    if (magnitude == 0.0) {
        text += '0';
        return;
    }
    if (appendQuickly(text, magnitude, power))
        return;
    // d.ddde+xx, of the fewest digits.
    std::array<char, 32> printed;
    char *const end = std::to_chars(printed.data(), printed.data() + printed.size(), magnitude,
                                    std::chars_format::scientific)
                          .ptr;
    char *const mark = std::find(printed.data(), end, 'e');
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
    std::string digits(printed.data(), mark);
    std::erase(digits, '.');
    layOut(text, digits, exponent + power);
}

std::string exactNumber(double value, int power)
{
    std::string text;
    appendExact(text, value, power);
    return text;
}
