// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_time.h"

#include "field/numbers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <vector>

namespace {

constexpr std::array<std::string_view, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string twoDigits(int number)
{
    const std::string digits = std::to_string(number);
    return number < 10 ? '0' + digits : digits;
}

std::string text(const std::chrono::year_month_day &date)
{
    const int year = static_cast<int>(date.year());
    if (!date.ok() || year < 1000 || year > 9999)
        return "";
    return std::to_string(year) + '-' + twoDigits(static_cast<int>(unsigned(date.month()))) + '-'
           + twoDigits(static_cast<int>(unsigned(date.day())));
}

std::vector<std::string_view> split(std::string_view text, char delimiter)
{
    std::vector<std::string_view> parts;
    for (std::size_t end = 0; (end = text.find(delimiter)) != std::string_view::npos;) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

/// A number of digits alone; -1 when it is none, or has more than `mostDigits`.
int digits(std::string_view text, std::size_t mostDigits)
{
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    if (text.empty() || text.size() > mostDigits || !std::ranges::all_of(text, isDigit))
        return -1;
    return *plainNumber<int>(text);
}

/// By its number or its name, of which the first three letters count; -1 when it is none.
int monthOf(std::string_view text)
{
    const auto sameLetter = [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a))
               == std::tolower(static_cast<unsigned char>(b));
    };
    for (std::size_t i = 0; i < months.size(); ++i)
        if (std::ranges::equal(text.substr(0, 3), months[i], sameLetter))
            return static_cast<int>(i) + 1;
    return digits(text, 2);
}

} // namespace

int fullYear(int year)
{
    if (year < 0 || year > 99)
        return year;
    return year + (year < 70 ? 2000 : 1900);
}

std::string dateOf(int year, int month, int day)
{
    if (month < 1 || day < 1)
        return "";
    return text(std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month))
                / std::chrono::day(static_cast<unsigned>(day)));
}

std::string dateOf(int year, int dayOfYear)
{
    const std::chrono::year_month_day date =
        std::chrono::sys_days(std::chrono::year(year) / 1 / 1) + std::chrono::days(dayOfYear - 1);
    return static_cast<int>(date.year()) == year ? text(date) : "";
}

YearDay yearDayOf(const std::string &date)
{
    const int year = *plainNumber<int>(std::string_view(date).substr(0, 4));
    const auto month = *plainNumber<int>(std::string_view(date).substr(5, 2));
    const auto day = *plainNumber<int>(std::string_view(date).substr(8, 2));
    const auto first = std::chrono::sys_days(std::chrono::year(year) / 1 / 1);
    const auto days = std::chrono::sys_days(std::chrono::year(year) / month / day) - first;
    return {year, static_cast<int>(days.count()) + 1};
}

std::string timeOf(int hour, int minute, int second)
{
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 60)
        return "";
    return twoDigits(hour) + ':' + twoDigits(minute) + ':' + twoDigits(second);
}

std::optional<std::string> readSeg2Date(std::string_view text)
{
    const std::vector<std::string_view> parts = split(text, '/');
    if (parts.size() != 3)
        return std::nullopt;
    const int year = digits(parts[2], 4);
    const std::string date =
        year < 0 ? "" : dateOf(fullYear(year), monthOf(parts[1]), digits(parts[0], 2));
    return date.empty() ? std::nullopt : std::optional(date);
}

std::optional<std::string> readSeg2Time(std::string_view text)
{
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view fraction = text.substr(point);
    const std::vector<std::string_view> parts = split(text.substr(0, point), ':');
    if (parts.size() < 2 || parts.size() > 3
        || (!fraction.empty() && (parts.size() < 3 || digits(fraction.substr(1), 9) < 0)))
        return std::nullopt;
    const int second = parts.size() == 3 ? digits(parts[2], 2) : 0;
    const std::string time = timeOf(digits(parts[0], 2), digits(parts[1], 2), second);
    return time.empty() ? std::nullopt : std::optional(time + std::string(fraction));
}

std::string seg2Date(const std::string &date)
{
    if (date.empty())
        return "";
    const auto month =
        static_cast<std::size_t>(*plainNumber<int>(std::string_view(date).substr(5, 2)));
    return date.substr(8, 2) + '/' + std::string(months.at(month - 1)) + '/' + date.substr(0, 4);
}
