// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

// Dates ("2022-03-22") and times of the day ("13:58:30") of records.

/// A year as files give it: of one or two digits it is one of 1970 to 2069.
int fullYear(int year);

/// A date that exists; empty when there is none such.
std::string dateOf(int year, int month, int day);

/// The same by the day of the year, from 1.
std::string dateOf(int year, int dayOfYear);

struct YearDay
{
    int year = 0;
    int dayOfYear = 0; ///< from 1
};

YearDay yearDayOf(const std::string &date);

/// A time that exists, 60 seconds included; empty when there is none such.
std::string timeOf(int hour, int minute, int second);

/// A date as SEG2 files have it: "22/Mar/2022", "7/MAR/2018", "17/10/2021"; none in another form.
std::optional<std::string> readSeg2Date(std::string_view text);

/// A time as SEG2 files have it: "13:58:30", "9:05", "13:58:30.25".
std::optional<std::string> readSeg2Time(std::string_view text);

/// "22/Mar/2022"; empty for an empty date.
std::string seg2Date(const std::string &date);
