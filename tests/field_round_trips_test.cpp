// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/csv_picks.h"
#include "field/otte_picks.h"
#include "field/seisimager_picks.h"
#include "field/sgt_picks.h"
#include "readers/seisimager.h"
#include "tests/support/faults.h"
#include "tests/support/field_picks.h"
#include "traveltime/otte_writer.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <set>

// Surveys that are made at random are written and read back in every format.

namespace {

constexpr int surveyCount = isAddressSanitized ? 200 : 2000;
constexpr int fewSurveys = isAddressSanitized ? 50 : 500;

using Random = std::mt19937_64;

/// How the numbers of a survey look.
enum class Style {
    line,     ///< decimetres along a line, tenths of milliseconds
    map,      ///< centimetres in map coordinates, microseconds
    anything, ///< any doubles
};

double anyNumber(Random &random)
{
    for (;;) {
        const double value = std::bit_cast<double>(random());
        if (std::abs(value) < 1e12 && std::abs(value) > 1e-12)
            return value;
    }
}

double anyPosition(Style style, Random &random)
{
    if (style == Style::line)
        return (static_cast<double>(random() % 4000) - 1000.0) / 10.0;
    if (style == Style::map)
        return (static_cast<double>(random() % 100000) + 451234500.0) / 100.0;
    return anyNumber(random);
}

double anyTime(Style style, Random &random)
{
    if (style == Style::line)
        return static_cast<double>(random() % 3000) / 1e4;
    if (style == Style::map)
        return static_cast<double>(random() % 300000) / 1e6;
    return std::abs(anyNumber(random));
}

/// A survey of some shots on two layouts; no shot is where another is, no receiver twice in a shot.
PickSurvey anySurvey(Style style, bool hasElevations, Random &random)
{
    const auto elevation = [&] { return hasElevations ? anyPosition(style, random) : 0.0; };
    std::vector<Spread> layouts(2);
    for (Spread &layout : layouts) {
        std::set<double> xs;
        for (std::size_t i = 1 + random() % 8; i > 0; --i)
            if (const double x = anyPosition(style, random); xs.insert(x).second)
                layout.push_back({x, elevation()});
    }
    PickSurvey picks;
    std::set<double> shotXs;
    const std::size_t shots = 1 + random() % 6;
    for (std::size_t i = 0; i < shots; ++i) {
        const double x = anyPosition(style, random);
        if (!shotXs.insert(x).second)
            continue;
        std::vector<Pick> receivers;
        const bool hasErrors = random() % 4 == 0;
        for (const ReceiverPosition &receiver : layouts[random() % 2]) {
            Pick pick{receiver, anyTime(style, random), static_cast<std::uint32_t>(i)};
            if (hasErrors && random() % 4 != 0)
                pick.error = anyTime(style, random);
            receivers.push_back(pick);
        }
        addShot(picks, {x, elevation(), ""}, {"made", i}, receivers);
    }
    return picks;
}

Style styleOf(int i)
{
    return i % 3 == 0 ? Style::line : i % 3 == 1 ? Style::map : Style::anything;
}

/// All numbers of a survey, bit by bit, and its structure. Errors are left out if they are of no
/// concern, and an error that is unknown is no bit pattern.
std::string bitsOf(const PickSurvey &picks, bool withErrors)
{
    std::string bits;
    const auto add = [&bits](double value) {
        bits +=
            std::isnan(value) ? "nan " : std::to_string(std::bit_cast<std::uint64_t>(value)) + ' ';
    };
    const TraveltimeSurvey &survey = picks.survey;
    for (const Spread &spread : survey.spreads) {
        bits += "spread ";
        for (const ReceiverPosition &receiver : spread) {
            add(receiver.x);
            add(receiver.elevation);
        }
    }
    for (std::size_t i = 0; i < survey.shots.size(); ++i) {
        const ShotTraveltimes &record = survey.traveltimes[i];
        bits += "shot " + std::to_string(record.spreadIndex) + ' '
                + std::to_string(record.shotIndex) + ' ';
        add(survey.shots[i].x);
        add(survey.shots[i].elevation);
        add(record.shotX);
        add(record.shotElevation);
        for (const double time : record.times)
            add(time);
        for (const double error : picks.errors[i])
            if (withErrors)
                add(error);
    }
    return bits;
}

/// Writes and reads surveys back.
void expectRoundTrips(WritePicks *write, ReadPicks *read, bool hasElevations, bool hasErrors)
{
    Random random(1);
    const TemporaryFolder folder;
    const std::string path = folder.path("survey");
    for (int i = 0; i < surveyCount; ++i) {
        const PickSurvey picks = anySurvey(styleOf(i), hasElevations, random);
        Report report;
        PickSurvey back;
        ASSERT_TRUE(write(path, picks, report)) << i;
        const std::size_t remarks = report.remarks.size();
        ASSERT_TRUE(read(path, {}, back, report)) << i << ": " << report.failure->text;
        ASSERT_EQ(bitsOf(back, hasErrors), bitsOf(picks, hasErrors)) << i << '\n' << readFile(path);
        ASSERT_EQ(report.remarks.size(), remarks) << i << ": " << report.remarks.back().text;
    }
}

} // namespace

TEST(RoundTrips, Otte)
{
    expectRoundTrips(writeOttePicks, readOttePicks, true, false);
}

TEST(RoundTrips, Sgt)
{
    expectRoundTrips(writeSgtPicks, readSgtPicks, true, true);
}

TEST(RoundTrips, SeisImager)
{
    expectRoundTrips(writeSeisImagerPicks, readSeisImagerPicks, false, false);
}

TEST(RoundTrips, Csv)
{
    expectRoundTrips(writeCsvPicks, readCsvPicks, true, true);
}

TEST(RoundTrips, ThroughAllFormatsAndBack)
{
    const std::pair<WritePicks *, ReadPicks *> formats[] = {
        {writeCsvPicks, readCsvPicks},
        {writeSeisImagerPicks, readSeisImagerPicks},
        {writeSgtPicks, readSgtPicks},
        {writeOttePicks, readOttePicks},
    };
    Random random(2);
    const TemporaryFolder folder;
    const std::string path = folder.path("survey");
    for (int i = 0; i < fewSurveys; ++i) {
        const PickSurvey picks = anySurvey(styleOf(i), false, random);
        PickSurvey last = picks;
        for (const auto &[write, read] : formats) {
            Report report;
            ASSERT_TRUE(write(path, std::exchange(last, {}), report)) << i;
            ASSERT_TRUE(read(path, {}, last, report)) << i << ": " << report.failure->text;
        }
        ASSERT_EQ(bitsOf(last, false), bitsOf(picks, false)) << i;
    }
}

TEST(RoundTrips, OtteIsTheExactWritersWhereSixDigitsAreEnough)
{
    Random random(3);
    const TemporaryFolder folder;
    const std::string path = folder.path("survey");
    for (int i = 0; i < fewSurveys; ++i) {
        const PickSurvey picks = anySurvey(Style::line, true, random);
        Report report;
        ASSERT_TRUE(writeOtte(path, picks.survey, report)) << i;
        const std::string exact = readFile(path);
        ASSERT_TRUE(writeOttePicks(path, picks, report)) << i;
        ASSERT_EQ(readFile(path), exact) << i;
    }
}

TEST(RoundTrips, TheWindowReadsTheSameFromSeisImager)
{
    Random random(4);
    const TemporaryFolder folder;
    const std::string path = folder.path("survey");
    for (int i = 0; i < fewSurveys; ++i) {
        const PickSurvey picks = anySurvey(styleOf(i), false, random);
        Report report;
        ASSERT_TRUE(writeSeisImagerPicks(path, picks, report)) << i;
        PickSurvey exact;
        Report exactReport;
        ASSERT_TRUE(readSeisImager(path, exact.survey, exact.index, exactReport)) << i;
        exact.errors.resize(exact.survey.shots.size());
        // A time in milliseconds over 1000 may be a neighbour of the time.
        for (std::size_t j = 0; j < exact.survey.traveltimes.size(); ++j) {
            std::vector<double> &times = exact.survey.traveltimes[j].times;
            for (std::size_t k = 0; k < times.size(); ++k) {
                const double time = picks.survey.traveltimes[j].times[k];
                ASSERT_LE(std::abs(times[k] - time), 4e-16 * time) << i;
                times[k] = time;
            }
        }
        ASSERT_EQ(bitsOf(exact, false), bitsOf(picks, false)) << i << '\n' << readFile(path);
    }
}
