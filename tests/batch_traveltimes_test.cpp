// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

namespace {

/// What the command makes of the arguments in `folder`, written to line.otte.
std::string converted(const BatchFolder &folder, std::vector<std::string> arguments)
{
    arguments.insert(arguments.end(), {"-o", "line.otte"});
    EXPECT_EQ(folder.run(arguments), BatchRun{}) << testing::PrintToString(arguments);
    return exists(folder.path("line.otte")) ? readFile(folder.path("line.otte")) : "";
}

} // namespace

TEST(BatchTraveltimes, Geogiga)
{
    const BatchFolder folder;
    folder.write("line.txt", fileOf(geogigaLines));
    EXPECT_EQ(converted(folder, {"geogiga", "line.txt"}), "otte\n"
                                                          "1.0\n"
                                                          "2\n"
                                                          "1\n"
                                                          "0;5;10;\n"
                                                          "100.5;100.5;100.5;\n"
                                                          "-2.5;12.5;\n"
                                                          "100.5;100.5;\n"
                                                          "0\n"
                                                          "0\n"
                                                          "2.1;10.5;18.7;\n"
                                                          "0\n"
                                                          "1\n"
                                                          "15.2;8.1;2.4;\n");
}

TEST(BatchTraveltimes, Winsism)
{
    const BatchFolder folder;
    folder.write("line.xyz", fileOf(winsismLines));
    EXPECT_EQ(converted(folder, {"winsism", "line.xyz"}), "otte\n"
                                                          "1.0\n"
                                                          "2\n"
                                                          "1\n"
                                                          "0;5;10;\n"
                                                          "100;100.5;101;\n"
                                                          "-2.5;12.5;\n"
                                                          "100;101;\n"
                                                          "0\n"
                                                          "0\n"
                                                          "\n"
                                                          "0\n"
                                                          "1\n"
                                                          "\n");
}

TEST(BatchTraveltimes, OneSeisImagerFile)
{
    const BatchFolder folder;
    folder.write("a.vs", fileOf(seisImagerLines));
    EXPECT_EQ(converted(folder, {"seisimager", "a.vs"}), "otte\n"
                                                         "1.0\n"
                                                         "2\n"
                                                         "1\n"
                                                         "0;5;10;\n"
                                                         "0;0;0;\n"
                                                         "-2.5;\n"
                                                         "0;\n"
                                                         "0\n"
                                                         "0\n"
                                                         "2.1;10.5;18.7;\n");
}

TEST(BatchTraveltimes, SeveralSeisImagerFilesAreNumberedThroughAndShareTheirSpread)
{
    const BatchFolder folder;
    folder.write("a.vs", fileOf(seisImagerLines));
    folder.write("b.vs", "0 0 0\n0 1\n12.5 3\n0 15.2\n5 8.1\n10 2.4\n");
    folder.write("c.vs", "0 0 0\n0 1\n3 1\n0 7\n");
    EXPECT_EQ(converted(folder, {"seisimager", "b.vs", "a.vs", "c.vs"}), "otte\n"
                                                                         "1.0\n"
                                                                         "2\n"
                                                                         "2\n"
                                                                         "0;5;10;\n"
                                                                         "0;0;0;\n"
                                                                         "0;\n"
                                                                         "0;\n"
                                                                         "12.5;-2.5;3;\n"
                                                                         "0;0;0;\n"
                                                                         "0\n"
                                                                         "0\n"
                                                                         "15.2;8.1;2.4;\n"
                                                                         "0\n"
                                                                         "1\n"
                                                                         "2.1;10.5;18.7;\n"
                                                                         "1\n"
                                                                         "2\n"
                                                                         "7;\n");
}

TEST(BatchTraveltimes, OneGenericFile)
{
    const GenericSurvey folder;
    EXPECT_EQ(converted(folder, {"generic", "s1.txt", "--shot", "-1,100"}), genericOtte);
}

TEST(BatchTraveltimes, SeveralGenericFilesTakeTheirShotsInOrder)
{
    const GenericSurvey folder;
    folder.write("s2.txt", "0;100;0.0125\n5;100;0.002\n");
    folder.write("s3.txt", "0;100;0.02\n5;100.5;0.003\n");
    EXPECT_EQ(converted(folder, {"generic", "--shot", "-1,-100", "s1.txt", "s2.txt", "s3.txt",
                                 "--shot=60.5,99.8", "--shot", "-1.5e1,+7"}),
              "otte\n"
              "1.0\n"
              "2\n"
              "2\n"
              "0;5;\n"
              "100;100;\n"
              "0;5;\n"
              "100;100.5;\n"
              "-1;60.5;-15;\n"
              "-100;99.8;7;\n"
              "0\n"
              "0\n"
              "1;4;\n"
              "0\n"
              "1\n"
              "12.5;2;\n"
              "1\n"
              "2\n"
              "20;3;\n");
}

TEST(BatchTraveltimes, FileNamesWithBlanksAndLettersOutsideOfAscii)
{
    const BatchFolder folder;
    folder.write("profil 1 größer.txt", fileOf(genericLines));
    EXPECT_EQ(folder.run(
                  {"generic", "profil 1 größer.txt", "--shot", "-1,100", "-o", "Straße 測線.otte"}),
              BatchRun{});
    EXPECT_EQ(readFile(folder.path("Straße 測線.otte")), genericOtte);
}

TEST(BatchTraveltimes, ListedNamesCountFromTheFolderOfTheList)
{
    const BatchFolder folder;
    const TemporaryFolder elsewhere;
    std::filesystem::create_directories(folder.path("profil 1/schüsse"));
    folder.write("profil 1/erster Schuß.txt", fileOf(genericLines));
    folder.write("profil 1/schüsse/2.txt", "0;100;0.0125\n5;100;0.002\n");
    elsewhere.write("s3.txt", "0;100;0.02\n5;100;0.003\n");
    folder.write("profil 1/liste é.txt", "erster Schuß.txt;-1;100\n"
                                         "schüsse/2.txt;60.5;-3\n"
                                             + elsewhere.path("s3.txt") + ";1e1;99.8");
    EXPECT_EQ(converted(folder, {"generic", "--shots", "profil 1/liste é.txt"}), "otte\n"
                                                                                 "1.0\n"
                                                                                 "2\n"
                                                                                 "1\n"
                                                                                 "0;5;\n"
                                                                                 "100;100;\n"
                                                                                 "-1;60.5;10;\n"
                                                                                 "100;-3;99.8;\n"
                                                                                 "0\n"
                                                                                 "0\n"
                                                                                 "1;4;\n"
                                                                                 "0\n"
                                                                                 "1\n"
                                                                                 "12.5;2;\n"
                                                                                 "0\n"
                                                                                 "2\n"
                                                                                 "20;3;\n");
}

TEST(BatchTraveltimes, ListWithLinesThatEndInCrLf)
{
    const GenericSurvey folder;
    folder.write("shots.txt", "s1.txt;-1;100\r\n");
    EXPECT_EQ(converted(folder, {"generic", "--shots", "shots.txt"}), genericOtte);
}

TEST(BatchTraveltimes, ListThatBeginsWithAByteOrderMark)
{
    const GenericSurvey folder;
    folder.write("shots.txt", "\xEF\xBB\xBFs1.txt;-1;100\n");
    EXPECT_EQ(converted(folder, {"generic", "--shots", "shots.txt"}), genericOtte);
}
