// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Numbers as text, under every locale the same.

/// The fewest digits that read back as `value`.
template <typename Number>
std::string shortest(Number value)
{
    std::array<char, 32> digits;
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

/// The finite decimal number that the whole of `text` is; "+" may precede it.
template <typename Number = double>
std::optional<Number> plainNumber(std::string_view text)
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    Number value = {};
    const char *const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    if (error != std::errc() || end != last || !std::isfinite(static_cast<double>(value)))
        return std::nullopt;
    return value;
}

/// "1,234,567": for messages.
inline std::string grouped(std::size_t count)
{
    const std::string digits = std::to_string(count);
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            text += ',';
        text += digits[i];
    }
    return text;
}
