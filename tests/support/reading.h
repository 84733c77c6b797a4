// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/support.h"
#include "traveltime/problem.h"
#include "traveltime/survey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using Numbers = std::vector<double>;
using Positions = std::vector<std::pair<double, double>>;
using Sizes = std::vector<std::size_t>;

/// Lines of a file, counted from 1.
using Lines = std::vector<std::string>;
using ChangedLines = std::map<std::size_t, std::string>;

/// The lines, some of them replaced.
inline Lines withLines(Lines lines, const ChangedLines &changedLines)
{
    for (const auto &[number, line] : changedLines)
        lines.at(number - 1) = line;
    return lines;
}

/// The lines in front of all others.
inline Lines firstLines(const Lines &lines, std::size_t count)
{
    return {lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// The text of a file of these lines.
inline std::string joined(const Lines &lines, const std::string &lineEnd = "\n")
{
    std::string text;
    for (const std::string &line : lines)
        text += line + lineEnd;
    return text;
}

/// A result, or the class and the text of the error raised.
template <typename Call>
std::string outcomeOf(Call call)
{
    try {
        return std::to_string(call());
    } catch (const std::out_of_range &error) {
        return std::string("out of range: ") + error.what();
    } catch (const std::invalid_argument &error) {
        return std::string("invalid argument: ") + error.what();
    } catch (const std::length_error &) {
        return "length error";
    } catch (const std::exception &error) {
        return std::string("another error: ") + error.what();
    }
}

/// The same with the class named as in the source: "out_of_range: ...".
template <typename Call>
std::string classOutcomeOf(Call call)
{
    std::string outcome = outcomeOf(call);
    std::replace(outcome.begin(), std::find(outcome.begin(), outcome.end(), ':'), ' ', '_');
    return outcome;
}

/// Expects that both forms of a driver fail in this way, and leave the output alone.
template <typename Convert, typename ConvertAndTell>
void expectConversionFails(Convert convert, ConvertAndTell convertAndTell,
                           const std::string &outcome, const Problem &expected)
{
    const TemporaryFolder folder;
    const std::string outputPath = folder.path("line.otte");
    EXPECT_EQ(outcomeOf([&] { return convert(outputPath); }), outcome);
    EXPECT_FALSE(exists(outputPath));
    folder.write("line.otte", "older");
    Problem problem;
    EXPECT_EQ(outcomeOf([&] { return convertAndTell(outputPath, problem); }), outcome);
    EXPECT_EQ(readFile(outputPath), "older");
    EXPECT_EQ(problem.file, expected.file);
    EXPECT_EQ(problem.line, expected.line);
    EXPECT_EQ(problem.detail, expected.detail);
}

/// The numbers of records, spreads and shots.
inline Sizes sizesOf(const TraveltimeSurvey &survey)
{
    return {survey.traveltimes.size(), survey.spreads.size(), survey.shots.size()};
}

/// Where the receivers of a spread, or shots, stand.
template <typename Points>
Positions positionsOf(const Points &points)
{
    Positions positions;
    for (const auto &point : points)
        positions.emplace_back(point.x, point.elevation);
    return positions;
}

/// Whether these are equal, or both no number.
inline bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// What may stand for a number in a line, and what is read of it.
struct NumberText
{
    const char *text;
    double value;
};

inline const NumberText numberTexts[] = {
    {"1e5", 100000},
    {"+1.5", 1.5},
    {".5", 0.5},
    {"5.", 5},
    {"0x1p3", 8},
    {"inf", std::numeric_limits<double>::infinity()},
    {"nan", std::numeric_limits<double>::quiet_NaN()},
    {"1,5", 1},
    {"12abc", 12},
    {"abc", 0},
    {"\t7", 7},
    {"-2.5", -2.5},
    {"1e999", std::numeric_limits<double>::infinity()},
    {"-1e999", -std::numeric_limits<double>::infinity()},
    {"7\t8", 7},
};
