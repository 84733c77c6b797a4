// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/support.h"
#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

using Numbers = std::vector<double>;
using Positions = std::vector<std::pair<double, double>>;
using Sizes = std::vector<std::size_t>;
using Texts = std::vector<std::string>;

/// The result of a call, "no error" where it has none, or the class and the text of the error that
/// it raises.
template <typename Call>
std::string outcomeOf(Call call)
{
    try {
        if constexpr (std::is_void_v<decltype(call())>) {
            call();
            return "no error";
        } else {
            return std::to_string(call());
        }
    } catch (const std::exception &error) {
        const std::type_info &type = typeid(error);
        const std::string name = type == typeid(std::out_of_range)       ? "out of range"
                                 : type == typeid(std::invalid_argument) ? "invalid argument"
                                 : type == typeid(std::length_error)     ? "length error"
                                                                         : "another error";
        return name + ": " + error.what();
    }
}

// The errors that the readers raise.
inline const char invalidSubscript[] = "out of range: invalid vector subscript";
inline const char invalidPosition[] = "out of range: invalid string position";
inline const char invalidStod[] = "invalid argument: invalid stod argument";
inline const char stodOutOfRange[] = "out of range: stod argument out of range";
inline const char tooLong[] = "length error: vector too long";

/// "17: text", or the text alone where no line is named.
inline std::string lineAndText(const Place &place, const std::string &text)
{
    return (place.line != 0 ? std::to_string(place.line) + ": " : "") + text;
}

/// The report's failure; empty when there is none.
inline std::string failureOf(const Report &report)
{
    return report.failure ? lineAndText(report.failure->place, report.failure->text) : "";
}

inline std::string nameOf(RemarkKind kind)
{
    switch (kind) {
    case RemarkKind::notANumber:
        return "not a number";
    case RemarkKind::shiftedLine:
        return "shifted line";
    case RemarkKind::notRead:
        return "not read";
    case RemarkKind::noShots:
        return "no shots";
    case RemarkKind::noReceivers:
        return "no receivers";
    case RemarkKind::numbering:
        return "numbering";
    case RemarkKind::layout:
        return "layout";
    case RemarkKind::negativeTime:
        return "negative time";
    case RemarkKind::units:
        return "units";
    case RemarkKind::roundedPosition:
        return "rounded position";
    case RemarkKind::roundedTime:
        return "rounded time";
    case RemarkKind::geometry:
        return "geometry";
    case RemarkKind::samples:
        return "samples";
    case RemarkKind::leftOut:
        return "left out";
    case RemarkKind::format:
        return "format";
    }
    return "a kind without a name";
}

/// The report's remarks in their order, each as "kind, 17: text".
inline Texts remarksOf(const Report &report)
{
    Texts texts;
    for (const Remark &remark : report.remarks)
        texts.push_back(nameOf(remark.kind) + ", " + lineAndText(remark.place, remark.text));
    return texts;
}

/// Whether these are equal, or both no number.
inline bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

inline bool sameSurvey(const TraveltimeSurvey &a, const TraveltimeSurvey &b)
{
    const auto sameReceiver = [](const ReceiverPosition &left, const ReceiverPosition &right) {
        return same(left.x, right.x) && same(left.elevation, right.elevation);
    };
    const auto sameReceivers = [&](const Spread &left, const Spread &right) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end(), sameReceiver);
    };
    const auto sameRecord = [](const ShotTraveltimes &left, const ShotTraveltimes &right) {
        return left.spreadIndex == right.spreadIndex && left.shotIndex == right.shotIndex
               && same(left.shotX, right.shotX) && same(left.shotElevation, right.shotElevation)
               && std::equal(left.times.begin(), left.times.end(), right.times.begin(),
                             right.times.end(), same);
    };
    const auto sameShot = [](const Shot &left, const Shot &right) {
        return same(left.x, right.x) && same(left.elevation, right.elevation)
               && left.name == right.name;
    };
    return std::equal(a.traveltimes.begin(), a.traveltimes.end(), b.traveltimes.begin(),
                      b.traveltimes.end(), sameRecord)
           && std::equal(a.spreads.begin(), a.spreads.end(), b.spreads.begin(), b.spreads.end(),
                         sameReceivers)
           && std::equal(a.shots.begin(), a.shots.end(), b.shots.begin(), b.shots.end(), sameShot);
}

/// What both forms of a reader make of one file.
struct Reading
{
    std::string outcome = {};     ///< of the form that the window calls: see outcomeOf()
    std::string error = {};       ///< what that form writes to the standard error stream
    TraveltimeSurvey survey = {}; ///< as both leave it
    Report report = {};           ///< of the other form
};

/// Reads the file at `path` with both forms, which must do the same: `entry` takes the survey, as
/// the window calls the reader; `inner` takes it and a report, and writes nothing.
template <typename Entry, typename Inner>
Reading readBoth(const std::string &path, const TraveltimeSurvey &before, Entry entry, Inner inner)
{
    Reading reading;
    reading.survey = before;
    CapturedStreams entryStreams;
    reading.outcome = outcomeOf([&] { return entry(reading.survey); });
    entryStreams.finish();
    reading.error = entryStreams.error;
    EXPECT_EQ(entryStreams.output, "") << path;

    TraveltimeSurvey survey = before;
    CapturedStreams innerStreams;
    const bool wentWell = inner(survey, reading.report);
    const std::string outcome = outcomeOf([&] { return finish(reading.report); });
    innerStreams.finish();
    EXPECT_EQ(outcome, reading.outcome) << path;
    EXPECT_TRUE(sameSurvey(survey, reading.survey)) << path;
    EXPECT_EQ(reading.report.printed, reading.error) << path;
    EXPECT_EQ(innerStreams.output, "") << path;
    EXPECT_EQ(innerStreams.error, "") << path;
    EXPECT_EQ(wentWell, !reading.report.failure) << path;
    if (reading.report.failure) {
        EXPECT_EQ(reading.report.failure->place.file, path);
        EXPECT_NE(reading.report.failure->text, "");
    }
    for (const Remark &remark : reading.report.remarks)
        EXPECT_EQ(remark.place.file, path) << remark.text;
    return reading;
}

/// Expects that a conversion fails in this way and leaves the output alone: `convert` is what the
/// window calls, `read` its reading alone.
template <typename Convert, typename Read>
void expectConversionFails(Convert convert, Read read, const std::string &outcome,
                           const Failure &expected)
{
    const TemporaryFolder folder;
    const std::string outputPath = folder.path("line.otte");
    EXPECT_EQ(outcomeOf([&] { return convert(outputPath); }), outcome);
    EXPECT_FALSE(exists(outputPath));
    folder.write("line.otte", "older");
    EXPECT_EQ(outcomeOf([&] { return convert(outputPath); }), outcome);
    EXPECT_EQ(readFile(outputPath), "older");

    TraveltimeSurvey survey;
    Report report;
    EXPECT_FALSE(read(survey, report));
    EXPECT_EQ(outcomeOf([&] { return finish(report); }), outcome);
    ASSERT_TRUE(report.failure);
    EXPECT_EQ(report.failure->place.file, expected.place.file);
    EXPECT_EQ(report.failure->place.line, expected.place.line);
    EXPECT_EQ(report.failure->text, expected.text);
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

/// What may stand for a number in a line, and what is read of it.
struct NumberText
{
    const char *text;
    double value;
    const char *remark; ///< empty when it is wholly a number
};

inline const NumberText numberTexts[] = {
    {"1e5", 100000, ""},
    {"+1.5", 1.5, ""},
    {".5", 0.5, ""},
    {"5.", 5, ""},
    {"\t7", 7, ""},
    {"-2.5", -2.5, ""},
    {"0x1p3", 8, "\"0x1p3\" is read as 8: it is no plain number"},
    {"inf", std::numeric_limits<double>::infinity(),
     "\"inf\" is read as inf: it is no plain number"},
    {"nan", std::numeric_limits<double>::quiet_NaN(),
     "\"nan\" is read as nan: it is no plain number"},
    {"1,5", 1, "\"1,5\" is read as 1: write a decimal point, no comma"},
    {"12abc", 12, "\"12abc\" is read as 12: it is no plain number"},
    {"abc", 0, "\"abc\" is read as 0: it is no plain number"},
    {"1e999", std::numeric_limits<double>::infinity(),
     "\"1e999\" is read as inf: it is no plain number"},
    {"-1e999", -std::numeric_limits<double>::infinity(),
     "\"-1e999\" is read as -inf: it is no plain number"},
    {"7\t8", 7, "\"7\t8\" is read as 7: it is no plain number"},
};
