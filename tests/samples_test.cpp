// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/geogiga.h"
#include "readers/winsism.h"
#include "seg2/dolang_conversion.h"
#include "seg2/su_conversion.h"
#include "tests/support/reading.h"
#include "traveltime/drivers.h"
#include "traveltime/generic_text.h"
#include "traveltime/survey_checks.h"
#include "traveltime/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

std::string sample(const std::string &name)
{
    return SAMPLES_FOLDER "/" + name;
}

/// The generic samples, with the positions of their shots.
struct GenericSamples
{
    Texts files = {};
    Numbers shotXs = {};
    Numbers shotElevations = {};
};

GenericSamples genericSamples()
{
    GenericSamples samples;
    std::ifstream list = openText(sample("generic/shots.txt"));
    std::string line;
    Texts fields;
    while (std::getline(list, line)) {
        tokenize(line, fields, ";");
        EXPECT_EQ(fields.size(), 3U) << line;
        samples.files.push_back(sample("generic/") + fields.at(0));
        samples.shotXs.push_back(toDouble(fields.at(1)));
        samples.shotElevations.push_back(toDouble(fields.at(2)));
    }
    EXPECT_EQ(samples.files.size(), 5U);
    return samples;
}

/// The SeisImager samples of one shot each.
Texts seisImagerSamples()
{
    Texts files;
    for (const char *name : {"shot1.vs", "shot2.vs", "shot3.vs", "shot4.vs", "shot5.vs"})
        files.push_back(sample("seisimager/several/") + name);
    return files;
}

/// Expects that all is well with a survey whose times are read as `unit`.
template <typename Read>
void expectNothingSaid(const std::string &unit, Read read)
{
    SCOPED_TRACE(unit);
    TraveltimeSurvey survey;
    Report report;
    EXPECT_TRUE(read(survey, report));
    EXPECT_TRUE(checkSurvey(survey, unit, report));
    EXPECT_EQ(failureOf(report), "");
    EXPECT_EQ(remarksOf(report), Texts{});
    EXPECT_EQ(survey.shots.size(), 5U);
}

/// The same bytes; names the first that is not, for files that hold more than text.
void expectSameFile(const std::string &path, const std::string &expectedName)
{
    ASSERT_TRUE(exists(path)) << expectedName << " was not written";
    const std::string bytes = readFile(path);
    const std::string expected = readFile(dataFile(expectedName));
    ASSERT_FALSE(expected.empty()) << expectedName;
    const auto [at, unused] =
        std::mismatch(bytes.begin(), bytes.end(), expected.begin(), expected.end());
    EXPECT_TRUE(bytes == expected)
        << expectedName << ": " << bytes.size() << " bytes, " << expected.size()
        << " expected, they differ from byte " << at - bytes.begin();
}

/// Runs the tests of conversions that write beside their input or into the working directory.
class SampleRecords : public testing::Test
{
protected:
    TemporaryFolder folder;
    WorkingFolder working{folder.path("")};
};

} // namespace

TEST(Samples, StructuredTraveltimesBecomeTheExpectedOtte)
{
    struct Case
    {
        const char *name;
        std::int32_t (*convert)(std::string inputPath, std::string outputPath);
        const char *expected;
    };
    for (const auto &[name, convert, expected] : {
             Case{"seisimager/line.vs", convertSeisImager, "seisimager.otte"},
             Case{"geogiga/line.txt", convertGeogiga, "geogiga.otte"},
             Case{"winsism/line.xyz", convertWinsism, "winsism.otte"},
         }) {
        const TemporaryFolder folder;
        EXPECT_EQ(convert(sample(name), folder.path("line.otte")), 0) << name;
        expectSameFile(folder.path("line.otte"), expected);
    }
}

TEST(Samples, SeisImagerFilesOfOneShotGiveTheOtteOfTheWholeLine)
{
    const TemporaryFolder folder;
    EXPECT_EQ(convertSeisImagerFiles(seisImagerSamples(), folder.path("line.otte")), 0);
    expectSameFile(folder.path("line.otte"), "seisimager.otte");
}

TEST(Samples, GenericFilesWithTheListedPositionsBecomeTheExpectedOtte)
{
    const auto &[files, shotXs, shotElevations] = genericSamples();
    const TemporaryFolder folder;
    EXPECT_EQ(convertGenericText(files, folder.path("line.otte"), shotXs, shotElevations), 0);
    expectSameFile(folder.path("line.otte"), "generic.otte");
}

TEST(Samples, TraveltimesAreReadWithoutAWord)
{
    expectNothingSaid("milliseconds", [](TraveltimeSurvey &survey, Report &report) {
        return readSeisImagerFiles({sample("seisimager/line.vs")}, survey, report);
    });
    expectNothingSaid("milliseconds", [](TraveltimeSurvey &survey, Report &report) {
        return readSeisImagerFiles(seisImagerSamples(), survey, report);
    });
    expectNothingSaid("seconds", [](TraveltimeSurvey &survey, Report &report) {
        return readGeogiga(sample("geogiga/line.txt"), survey, report);
    });
    expectNothingSaid("milliseconds", [](TraveltimeSurvey &survey, Report &report) {
        return readWinsism(sample("winsism/line.xyz"), survey, report);
    });
    expectNothingSaid("seconds", [](TraveltimeSurvey &survey, Report &report) {
        const auto &[files, shotXs, shotElevations] = genericSamples();
        return readGenericFiles(files, shotXs, shotElevations, survey, report);
    });
}

TEST(Samples, TimesInTheOtherUnitAreQuestioned)
{
    TraveltimeSurvey survey;
    Report report;
    ASSERT_TRUE(readGeogiga(sample("geogiga/line.txt"), survey, report));
    for (ShotTraveltimes &record : survey.traveltimes)
        for (double &time : record.times)
            time *= 1000.0;
    EXPECT_TRUE(checkSurvey(survey, "seconds", report));
    ASSERT_EQ(report.remarks.size(), 1U);
    EXPECT_EQ(report.remarks[0].kind, RemarkKind::units);
    EXPECT_TRUE(report.remarks[0].text.ends_with(" m/s: are these milliseconds?"));
}

TEST(Samples, GeogigaRowsThatEndInABareLineFeedAreRefused)
{
    const TemporaryFolder folder;
    EXPECT_EQ(convertGeogiga(sample("geogiga/line_refused.txt"), folder.path("line.otte")), 1);
    EXPECT_FALSE(exists(folder.path("line.otte")));
}

TEST(Samples, WinsismTimeRowsThatHoldTimesAreRefused)
{
    const TemporaryFolder folder;
    CapturedStreams streams;
    EXPECT_EQ(convertWinsism(sample("winsism/line_refused.xyz"), folder.path("line.otte")), 1);
    streams.finish();
    EXPECT_EQ(streams.error, "Invalid times : FBP times\n");
    EXPECT_FALSE(exists(folder.path("line.otte")));
}

TEST_F(SampleRecords, SeismicUnixBecomesTheExpectedListingAndSeg2)
{
    std::filesystem::copy(sample("seismic_unix/line.su"), folder.path("line.su"));
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(folder.path("line.su")), 0);
    streams.finish();
    EXPECT_EQ(streams.error, "");
    expectSameFile(folder.path("line_tmp"), "line_tmp");
    expectSameFile(folder.path("line.seg2"), "line.seg2");
}

TEST_F(SampleRecords, DolangSetBecomesThreeExpectedListingsAndSeg2Files)
{
    std::filesystem::create_directory(folder.path("records"));
    std::filesystem::copy(sample("dolang"), folder.path("records"));
    CapturedStreams streams;
    convertDolangToSeg2(folder.path("records/LINE"));
    streams.finish();
    EXPECT_EQ(streams.error, "");
    for (const char *name : {"tmp_ADT", "tmp_CDT", "tmp_RDT"})
        expectSameFile(folder.path(name), name);
    for (const char *name :
         {"LINE_ADT_dolang.seg2", "LINE_CDT_dolang.seg2", "LINE_RDT_dolang.seg2"})
        expectSameFile(folder.path("records/") + name, name);
}
