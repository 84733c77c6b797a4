// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/generic_picks.h"
#include "field/otte_picks.h"
#include "field/seg2.h"
#include "field/seisimager_picks.h"
#include "field/seismic_unix.h"
#include "field/sgt_picks.h"
#include "field/shot_list.h"
#include "field/topography.h"
#include "field/winsism_picks.h"
#include "tests/support/field_picks.h"
#include "tests/support/field_records.h"

#include <gtest/gtest.h>

namespace {

std::string sample(const std::string &name)
{
    return SAMPLES_FOLDER "/" + name;
}

PickSurvey surveyIn(ReadPicks *read, const std::string &name)
{
    PickSurvey picks;
    Report report;
    EXPECT_TRUE(read(sample(name), {}, picks, report)) << name;
    EXPECT_TRUE(report.remarks.empty()) << name;
    return picks;
}

/// The five generic files with the positions in the list.
PickSurvey genericSurvey()
{
    PickSurvey picks;
    Report report;
    PickOptions options;
    EXPECT_TRUE(readShotList(sample("generic/shots.txt"), options.shotPositions, report));
    EXPECT_EQ(options.shotPositions.size(), 5U);
    for (const ShotPosition &position : options.shotPositions)
        EXPECT_TRUE(readGenericPicks(position.file, options, picks, report)) << position.file;
    EXPECT_TRUE(report.remarks.empty());
    return picks;
}

} // namespace

TEST(FieldSamples, HoldOneSurvey)
{
    const std::string expected = described(genericSurvey());
    EXPECT_EQ(expected.substr(0, 60),
              "-5,212.15: 0,212.3=0.01 5,212.45=0.02 10,212.6=0.03 15,212.7");
    EXPECT_EQ(described(surveyIn(readWinsismPicks, "winsism/line_with_times.xyz")), expected);
    EXPECT_EQ(described(surveyIn(readSgtPicks, "sgt/line.sgt")), expected);
}

TEST(FieldSamples, TopographyGivesElevationsWhereThereAreNone)
{
    PickSurvey picks = surveyIn(readSeisImagerPicks, "seisimager/line.vs");
    Report report;
    EXPECT_TRUE(applyTopography(sample("topography/topography.txt"), picks, report));
    EXPECT_TRUE(report.remarks.empty());
    // Between two stations the ground is halfway: 213.125 at 27.5, which the generic list rounds.
    std::string otte = readFile(dataFile("generic.otte"));
    const std::string rounded = "\n212.15;213.12;215.12;215.47;214.5;\n";
    ASSERT_NE(otte.find(rounded), std::string::npos);
    otte.replace(otte.find(rounded), rounded.size(), "\n212.15;213.125;215.125;215.475;214.5;\n");
    EXPECT_EQ(written(writeOttePicks, picks), otte);
}

TEST(FieldSamples, AreWrittenAsTheyAre)
{
    EXPECT_EQ(written(writeSgtPicks, genericSurvey()), readFile(sample("sgt/line.sgt")));
    EXPECT_EQ(written(writeOttePicks, genericSurvey()), readFile(dataFile("generic.otte")));
    EXPECT_EQ(written(writeOttePicks, surveyIn(readSeisImagerPicks, "seisimager/line.vs")),
              readFile(dataFile("seisimager.otte")));
}

TEST(FieldSamples, ABigEndianRecordBecomesTheExpectedSeg2AndItselfAgain)
{
    const std::string record = readFile(sample("seismic_unix/line_big_endian.su"));
    const RecordConversion seg2 = convertBytes(readSeismicUnix, record, toSeg2);
    EXPECT_TRUE(seg2.report.remarks.empty());
    EXPECT_TRUE(seg2.output == readFile(dataFile("line_big_endian.seg2")));
    const RecordConversion back = convertBytes(readSeg2, seg2.output, toBigSu);
    EXPECT_TRUE(back.report.remarks.empty());
    EXPECT_TRUE(back.output == record);
}
