// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/faults.h"
#include "tests/support/small_file_system.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

TEST(BatchOutput, NewOutputIsAFileAsAnyOther)
{
    const GenericSurvey survey;
    EXPECT_EQ(survey.run(convert("s1.txt", "new.otte"), [] { umask(027); }), BatchRun{});
    EXPECT_EQ(readFile(survey.path("new.otte")), genericOtte);
    EXPECT_EQ(fs::status(survey.path("new.otte")).permissions(), fs::perms(0640));
    EXPECT_EQ(survey.names(), (std::vector<std::string>{"line.otte", "new.otte", "s1.txt"}));
}

TEST(BatchOutput, OlderOutputIsReplacedAndKeepsItsPermissions)
{
    for (const auto permissions : {fs::perms(0604), fs::perms(0660), fs::perms(0755)}) {
        const GenericSurvey survey;
        fs::permissions(survey.path("line.otte"), permissions);
        EXPECT_EQ(survey.run(convert("s1.txt", "line.otte")), BatchRun{});
        EXPECT_EQ(readFile(survey.path("line.otte")), genericOtte);
        EXPECT_EQ(fs::status(survey.path("line.otte")).permissions(), permissions);
        EXPECT_EQ(survey.names(), (std::vector<std::string>{"line.otte", "s1.txt"}));
    }
}

TEST(BatchOutput, ThroughALinkItsTargetIsReplaced)
{
    const GenericSurvey survey;
    const BatchFolder elsewhere;
    elsewhere.write("target.otte", "older");
    fs::create_symlink(elsewhere.path("target.otte"), survey.path("second link"));
    fs::create_symlink("second link", survey.path("first link"));
    const std::vector<std::string> before = survey.names();

    EXPECT_EQ(survey.run(convert("s1.txt", "first link")), BatchRun{});
    EXPECT_EQ(readFile(elsewhere.path("target.otte")), genericOtte);
    EXPECT_EQ(elsewhere.names(), std::vector<std::string>{"target.otte"});
    EXPECT_EQ(fs::read_symlink(survey.path("first link")), "second link");
    EXPECT_EQ(fs::read_symlink(survey.path("second link")), elsewhere.path("target.otte"));
    EXPECT_EQ(survey.names(), before);
}

TEST(BatchOutput, LinkToAFileThatIsNotThereYet)
{
    const GenericSurvey survey;
    fs::create_symlink("target.otte", survey.path("link"));
    EXPECT_EQ(survey.run(convert("s1.txt", "link")), BatchRun{});
    EXPECT_TRUE(fs::is_symlink(survey.path("link")));
    EXPECT_EQ(readFile(survey.path("link")), genericOtte);
    EXPECT_EQ(survey.names(),
              (std::vector<std::string>{"line.otte", "link", "s1.txt", "target.otte"}));
}

TEST(BatchOutput, InputIsNotReplaced)
{
    const GenericSurvey survey;
    survey.write("other.txt", fileOf(genericLines));
    survey.write("line.vs", fileOf(seisImagerLines));
    survey.write("shots.txt", "other.txt;-1;100\ns1.txt;9;100\n");
    fs::create_symlink("s1.txt", survey.path("link"));
    fs::create_hard_link(survey.path("s1.txt"), survey.path("hard link"));
    const std::vector<std::pair<Arguments, std::string>> cases = {
        {convert("s1.txt", "s1.txt"), "s1.txt"},
        {convert("s1.txt", "./s1.txt"), "s1.txt"},
        {convert("s1.txt", survey.path("s1.txt")), "s1.txt"},
        {convert("s1.txt", "link"), "s1.txt"},
        {convert("link", "s1.txt"), "link"},
        {convert("hard link", "s1.txt"), "hard link"},
        {{"geogiga", "s1.txt", "-o", "s1.txt"}, "s1.txt"},
        {{"winsism", "s1.txt", "-o", "s1.txt"}, "s1.txt"},
        {{"seisimager", "line.vs", "-o", "line.vs"}, "line.vs"},
        {{"seisimager", "line.vs", "s1.txt", "-o", "s1.txt"}, "s1.txt"},
        {{"generic", "--shots", "shots.txt", "-o", "s1.txt"}, "s1.txt"},
        {{"generic", "--shots", "shots.txt", "-o", "shots.txt"}, "shots.txt"},
    };
    for (const auto &[arguments, input] : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        expectRefused(survey, arguments, input + ": the output would replace this input");
    }
}

TEST(BatchOutput, PlacesWhereNothingCanBeWritten)
{
    const GenericSurvey survey;
    fs::create_directory(survey.path("folder"));
    fs::create_symlink("gone/line.otte", survey.path("link"));
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"nowhere/line.otte", "the folder nowhere does not exist"},
        {"folder/deeper/line.otte", "the folder folder/deeper does not exist"},
        {"link", "the folder gone does not exist"},
        {"s1.txt/line.otte", "s1.txt is not a folder"},
        {"folder", "this is a folder"},
        {".", "this is a folder"},
    };
    for (const auto &[output, problem] : cases)
        expectRefused(survey, convert("s1.txt", output), output + ": " + problem);
}

TEST(BatchOutput, FullDeviceStaysADevice)
{
    const GenericSurvey survey;
    const std::string device = memoryDevice(survey, 7, "/dev/full");
    expectRefused(survey, convert("s1.txt", device), device + ": " + systemText(ENOSPC));
    EXPECT_TRUE(fs::is_character_file(device));
    fs::create_symlink(device, survey.path("link"));
    expectRefused(survey, convert("s1.txt", "link"), "link: " + systemText(ENOSPC));
    EXPECT_TRUE(fs::is_character_file(device));
}

TEST(BatchOutput, DevicesAndPipesAreWrittenDirectly)
{
    const GenericSurvey survey;
    const std::string device = memoryDevice(survey, 3, "/dev/null");
    EXPECT_EQ(survey.run(convert("s1.txt", device)), BatchRun{});
    EXPECT_TRUE(fs::is_character_file(device));
    EXPECT_EQ(survey.run(convert("s1.txt", "/dev/stdout")), (BatchRun{0, genericOtte}));
}

TEST(BatchOutput, FileThatMayNotBeWritten)
{
    const GenericSurvey survey;
    fs::permissions(survey.path("line.otte"), fs::perms(0444));
    if (!areHeldBack("-w", survey.path("line.otte")))
        GTEST_SKIP() << "Permissions hold nobody back here.";
    expectRefused(survey, convert("s1.txt", "line.otte"),
                  "line.otte: no permission to write this file", asOrdinaryUser);
}

TEST(BatchOutput, FolderThatMayNotBeWritten)
{
    const GenericSurvey survey;
    fs::permissions(survey.path(""), fs::perms(0500));
    if (!areHeldBack("-w", survey.path("")))
        GTEST_SKIP() << "Permissions hold nobody back here.";
    for (const std::string output : {"new.otte", "line.otte"})
        expectRefused(survey, convert("s1.txt", output), output + ": " + systemText(EACCES),
                      asOrdinaryUser);
    fs::permissions(survey.path(""), fs::perms(0700));
}

TEST(BatchOutput, InputThatMayNotBeRead)
{
    const GenericSurvey survey;
    survey.write("shots.txt", "s1.txt;-1;100\n");
    fs::permissions(survey.path("s1.txt"), fs::perms(0200));
    if (!areHeldBack("-r", survey.path("s1.txt")))
        GTEST_SKIP() << "Permissions hold nobody back here.";
    const std::string problem = ": no permission to read this file";
    for (const Arguments &arguments :
         {convert("s1.txt", "line.otte"),
          Arguments{"generic", "--shots", "shots.txt", "-o", "line.otte"},
          Arguments{"geogiga", "s1.txt", "-o", "line.otte"},
          Arguments{"winsism", "s1.txt", "-o", "line.otte"},
          Arguments{"seisimager", "s1.txt", "-o", "line.otte"}, Arguments{"su", "s1.txt"}})
        expectRefused(survey, arguments, "s1.txt" + problem, asOrdinaryUser);
    fs::permissions(survey.path("shots.txt"), fs::perms(0200));
    expectRefused(survey, {"generic", "--shots", "shots.txt", "-o", "line.otte"},
                  "shots.txt" + problem, asOrdinaryUser);
}

TEST(BatchOutput, DiskThatFillsUp)
{
    const GenericSurvey survey;
    survey.write("long.txt", manyReceivers(10000));
    const SmallFileSystem disk(survey.path("disk"), 16);
    if (!disk.isMounted)
        GTEST_SKIP() << "No file system can be mounted here: " << systemText(errno);
    survey.write("disk/line.otte", "older on the disk");
    expectRefused(survey, convert("long.txt", "disk/line.otte"),
                  "disk/line.otte: " + systemText(ENOSPC));
    EXPECT_EQ(fs::space(survey.path("disk")).free, 12U * 1024);

    expectRefused(survey, convert("long.txt", "disk/new.otte"),
                  "disk/new.otte: " + systemText(ENOSPC));
    EXPECT_EQ(survey.run(convert("s1.txt", "disk/line.otte")), BatchRun{});
    EXPECT_EQ(readFile(survey.path("disk/line.otte")), genericOtte);
}

TEST(BatchOutput, FileThatMayNotGrow)
{
    const GenericSurvey survey;
    survey.write("long.txt", manyReceivers(10000));
    expectRefused(survey, convert("long.txt", "line.otte"), "line.otte: " + systemText(EFBIG), [] {
        const rlimit limit = {4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
    });
}

TEST(BatchOutput, LongestNameThatTheSystemTakes)
{
    const GenericSurvey survey;
    const std::string name = std::string(250, 'x') + ".otte";
    EXPECT_EQ(survey.run(convert("s1.txt", name)), BatchRun{});
    EXPECT_EQ(readFile(survey.path(name)), genericOtte);
}

TEST(BatchOutput, MissingInputIsShownBeforeAMissingFolder)
{
    const GenericSurvey survey;
    expectRefused(survey, convert("missing.txt", "nowhere/line.otte"), "missing.txt: no such file");
}

TEST(BatchOutput, FileThatIsTheStandardOutputIsNotReplaced)
{
    const GenericSurvey survey;
    survey.write("log.txt", "header\n");
    QProcess process;
    process.setStandardOutputFile(QString::fromStdString(survey.path("log.txt")),
                                  QIODevice::Append);
    survey.start(process, convert("s1.txt", "/dev/stdout"));
    EXPECT_EQ(finish(process), (BatchRun{1, "",
                                         "/dev/stdout: leads into a file here, which would not be "
                                         "replaced whole: name that file as the output\n"}));
    EXPECT_EQ(readFile(survey.path("log.txt")), "header\n");
}

TEST(BatchOutput, LinksAreFollowedToTheirEnd)
{
    const GenericSurvey survey;
    fs::create_symlink("second", survey.path("first"));
    fs::create_symlink("new.otte", survey.path("second"));
    EXPECT_EQ(survey.run(convert("s1.txt", "first")), BatchRun{});
    EXPECT_TRUE(fs::is_symlink(survey.path("first")));
    EXPECT_TRUE(fs::is_symlink(survey.path("second")));
    EXPECT_EQ(readFile(survey.path("new.otte")), genericOtte);

    fs::create_symlink("loop", survey.path("loop"));
    expectRefused(survey, convert("s1.txt", "loop"), "loop: " + systemText(ELOOP));
}
