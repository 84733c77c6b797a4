// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/seg2_parser.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <memory>

namespace {

namespace fs = std::filesystem;

const std::string genericFile = fileOf(genericLines);

/// The command line that converts "line" into "line.otte".
Arguments traveltimes(const std::string &format)
{
    Arguments arguments = {format, "line", "-o", "line.otte"};
    if (format == "generic")
        arguments.insert(arguments.end(), {"--shot", "-1,100"});
    return arguments;
}

/// A folder with older outputs of everything.
struct OlderOutputs : BatchFolder
{
    OlderOutputs()
    {
        for (const char *name :
             {"line.otte", "line_tmp", "line.seg2", "tmp_ADT", "tmp_CDT", "tmp_RDT",
              "L_ADT_dolang.seg2", "L_CDT_dolang.seg2", "L_RDT_dolang.seg2"})
            write(name, "older");
    }
};

/// A Dolang set with one channel of each kind.
void writeDolangSet(const BatchFolder &folder)
{
    for (const std::string kind : {"A", "C", "R"}) {
        folder.write("L." + kind + "DT", "1\n-\n-\n0\n2\n1000\n");
        folder.write("L." + kind + "01", "7\n-3\n");
    }
}

/// The first outputs of records, with the command lines that write them.
const std::vector<std::pair<std::string, Arguments>> recordOutputs = {
    {"line_tmp", {"su", "line.su"}},
    {"line.seg2", {"su", "line.su"}},
    {"tmp_ADT", {"dolang", "L"}},
    {"L_ADT_dolang.seg2", {"dolang", "L"}},
};

/// A million shots of a format, converted with no more than a gigabyte of memory.
void expectConverted(const std::string &format, const ManyShots &shots,
                     const std::string &remark = "")
{
    const OlderOutputs folder;
    folder.write("line", shots.input);
    EXPECT_EQ(folder.run(traveltimes(format), limitMemory), (BatchRun{0, "", remark}));
    EXPECT_TRUE(readFile(folder.path("line.otte")) == shots.otte);
}

} // namespace

TEST(BatchFaults, TraveltimesThatAreNot)
{
    const std::string noKeyword = "line:1: \"TX_CURVE\" expected";
    const std::string noHeading =
        "line:1: \"Shot number, Shot elevation\" is expected: Invalid header : ";
    const std::string marked = "line: this text begins with a byte order mark: save it without one";
    const std::string utf16 = "line: this text is in UTF-16: save it as UTF-8";
    const std::string ending =
        "line:1: the file ends before its number of shots: invalid vector subscript";
    const std::string oneField = "line:1: 1 field, 3 expected: invalid vector subscript";
    const std::string bigEndianMark = "\xFE\xFF";
    const std::size_t quoted = 1000 - noHeading.size(); // of the 1000 characters of a line
    const std::vector<std::tuple<std::string, std::function<std::string()>, std::string>> cases = {
        {"geogiga", endlessLine, noKeyword},
        {"winsism", endlessLine, noHeading + std::string(quoted, 'x') + "..."},
        {"seisimager", endlessLine, ending},
        {"generic", endlessLine, oneField},
        {"geogiga", nulBytes, noKeyword},
        {"winsism", nulBytes, noHeading + std::string(quoted, '?') + "..."},
        {"seisimager", nulBytes, ending},
        {"generic", nulBytes, oneField},
        {"geogiga", [] { return inUtf16(geogigaFile); }, utf16},
        {"winsism", [] { return inUtf16(winsismFile); }, utf16},
        {"seisimager", [] { return inUtf16(seisImagerFile); }, utf16},
        {"generic", [] { return inUtf16(genericFile); }, utf16},
        {"generic", [&] { return bigEndianMark + inUtf16(genericFile).substr(2); }, utf16},
        {"geogiga", [] { return byteOrderMark + geogigaFile; }, marked},
        {"winsism", [] { return byteOrderMark + winsismFile; }, marked},
        {"generic", [] { return byteOrderMark + genericFile; }, marked},
    };
    for (const auto &[format, text, line] : cases) {
        SCOPED_TRACE(format + ": " + line.substr(0, 100));
        const OlderOutputs folder;
        folder.write("line", text());
        expectRefused(folder, traveltimes(format), line, limitMemory);
    }
}

TEST(BatchFaults, OddTraveltimesThatConvert)
{
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"seisimager", byteOrderMark + seisImagerFile, seisImagerOtte},
        {"generic", "5;7;0.001;" + endlessLine(), "otte\n1.0\n2\n1\n5;\n7;\n-1;\n100;\n0\n0\n1;\n"},
    };
    for (const auto &[format, text, otte] : cases) {
        SCOPED_TRACE(format);
        const OlderOutputs folder;
        folder.write("line", text);
        EXPECT_EQ(folder.run(traveltimes(format), limitMemory), BatchRun{});
        EXPECT_EQ(readFile(folder.path("line.otte")), otte);
    }
}

TEST(BatchFaults, MarksOfAList)
{
    const OlderOutputs folder;
    folder.write("line", inUtf16("s1.txt;-1;100\n"));
    expectRefused(folder, {"generic", "--shots", "line", "-o", "line.otte"},
                  "line: this text is in UTF-16: save it as UTF-8");
}

TEST(BatchFaults, FedPipes)
{
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"geogiga", geogigaFile, geogigaOtte},
        {"winsism", winsismFile, winsismOtte},
        {"seisimager", seisImagerFile, seisImagerOtte},
        {"generic", genericFile, genericOtte},
    };
    for (const auto &[format, text, otte] : cases) {
        SCOPED_TRACE(format);
        const OlderOutputs folder;
        const FedPipe pipe(folder.path("line"), text);
        EXPECT_EQ(folder.run(traveltimes(format)), BatchRun{});
        EXPECT_EQ(readFile(folder.path("line.otte")), otte);
    }
    const OlderOutputs folder;
    folder.write("s1.txt", genericFile);
    const FedPipe list(folder.path("list"), "s1.txt;-1;100\n");
    EXPECT_EQ(folder.run({"generic", "--shots", "list", "-o", "line.otte"}), BatchRun{});
    EXPECT_EQ(readFile(folder.path("line.otte")), genericOtte);

    const FedPipe record(folder.path("line.su"), suFile);
    EXPECT_EQ(folder.run({"su", "line.su"}), BatchRun{});
    EXPECT_EQ(readFile(folder.path("line_tmp")), suListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), suSeg2);

    writeDolangSet(folder);
    const FedPipe header(folder.path("L.ADT"), "1\n-\n-\n0\n2\n1000\n");
    const FedPipe channel(folder.path("L.C01"), "7\n-3\n");
    EXPECT_EQ(folder.run({"dolang", "L"}), BatchRun{});
    for (const std::string kind : {"ADT", "CDT", "RDT"})
        EXPECT_EQ(readFile(folder.path("L_" + kind + "_dolang.seg2")), dolangSeg2) << kind;
}

TEST(BatchFaults, PipesThatGiveNothing)
{
    for (const std::string format : {"geogiga", "seisimager", "generic"}) {
        const OlderOutputs folder;
        const FedPipe pipe(folder.path("line"), "");
        const BatchRun run = folder.run(traveltimes(format));
        EXPECT_EQ(run.status, 1) << format;
        EXPECT_NE(run.error.find("line: the file is empty"), std::string::npos) << run.error;
        EXPECT_EQ(readFile(folder.path("line.otte")), "older") << format;
    }
}

TEST(BatchFaults, MillionGeogigaShots)
{
    expectConverted("geogiga", manyGeogigaShots());
}

TEST(BatchFaults, MillionWinsismShots)
{
    expectConverted("winsism", manyWinsismShots());
}

TEST(BatchFaults, MillionSeisImagerShots)
{
    // The one at x 1 has no offset; of the 999,999 others the half-millionth stands 499,999 m from
    // its shot, with 2.5 ms.
    expectConverted("seisimager", manySeisImagerShots(),
                    "line: the times are read as milliseconds, which makes the median of offset "
                    "over time 2e+08 m/s: are these seconds?\n");
}

TEST(BatchFaults, ListOfAMillionShotsWithABadOne)
{
    const OlderOutputs folder;
    folder.write("s1.txt", genericFile);
    folder.write("list", repeated("s1.txt;-1;100\n", million - 1) + "s1.txt;-1\n");
    expectRefused(folder, {"generic", "--shots", "list", "-o", "line.otte"},
                  "list:1000000: \"file;x;elevation\" expected", limitMemory);
}

TEST(BatchFaults, SeismicUnixFilesThatAreNot)
{
    const OlderOutputs folder;
    folder.write("line.su", nulBytes());
    expectRefused(folder, {"su", "line.su"}, "line.su: the header of trace 1 says 0 samples",
                  limitMemory);
}

TEST(BatchFaults, SeismicUnixFileOfOneEndlessLine)
{
    const OlderOutputs folder;
    folder.write("line.su", endlessLine());
    // "xx" is 30840: that many samples of 4 bytes after 240. "xxxx" is 2021161080,
    // which a float holds as 2021161088, and 30840 times that as 62332608708608.
    EXPECT_EQ(folder.run({"su", "line.su"}, limitMemory),
              (BatchRun{0, "",
                        "line.su: trace 1 and 808 more: the delay of 30840 ms becomes 0\n"
                        "line.su: trace 1 and 808 more: the elevations become 0\n"
                        "line.su: trace 1 and 808 more: the y coordinates become 0\n"
                        "line.su: 7600 bytes after the last whole trace: not read\n"
                        "line.su: trace 1: a position of 6.23326087086e+13 m becomes 6.23326e+13 "
                        "m, as the output has six digits (the worst of 810)\n"}));
    // 3312 bytes in front of 809 traces, each a descriptor of 172 and 123360 of samples.
    EXPECT_EQ(fs::file_size(folder.path("line.seg2")), 3312U + 809U * (172U + 123360U));
}

TEST(BatchFaults, DolangFilesThatAreNot)
{
    const std::string header = "1\n-\n-\n0\n2\n1000\n";
    const std::string utf16 = "this text is in UTF-16: save it as UTF-8";
    const std::string marked = "this text begins with a byte order mark: save it without one";
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"L.ADT", inUtf16(header), "L.ADT: " + utf16},
        {"L.ADT", byteOrderMark + header, "L.ADT: " + marked},
        {"L.A01", byteOrderMark + "5\n6\n", "L.A01:1: " + marked},
        {"L.ADT", nulBytes(), "L.ADT:1: the number of channels is 0"},
        {"L.ADT", endlessLine(), "L.ADT:1: the number of channels is 0"},
    };
    for (const auto &[file, text, line] : cases) {
        const OlderOutputs folder;
        writeDolangSet(folder);
        folder.write(file, text);
        const BatchRun run = folder.run({"dolang", "L"}, limitMemory);
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(run.error.ends_with(line + '\n')) << run.error.substr(0, 2000);
        EXPECT_EQ(readFile(folder.path("tmp_ADT")), "older");
        EXPECT_EQ(readFile(folder.path("L_ADT_dolang.seg2")), "older");
    }
    const OlderOutputs folder;
    writeDolangSet(folder);
    fs::remove(folder.path("L.A01"));
    fs::create_directory(folder.path("L.A01"));
    expectRefused(folder, {"dolang", "L"}, "L.A01: " + systemText(EISDIR));
}

TEST(BatchFaults, DolangChannelOfOneEndlessLine)
{
    const OlderOutputs folder;
    writeDolangSet(folder);
    folder.write("L.A01", "7" + endlessLine());
    EXPECT_EQ(folder.run({"dolang", "L"}, limitMemory),
              (BatchRun{0, "",
                        "L.A01:1: \"7" + std::string(59, 'x')
                            + "...\" is read as 7: it is no plain number\n"
                              "L.A01:1: the file ends after 1 of 2 samples: the missing ones are "
                              "0\n"}));
    EXPECT_EQ(parseSeg2(readFile(folder.path("L_ADT_dolang.seg2"))).traces.at(0).samples,
              (std::vector<double>{7.0, 0.0}));
}

TEST(BatchFaults, CountsThatNoFileCanKeep)
{
    const std::string subscript = ": invalid vector subscript";
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"geogiga", geogigaWithReceivers("2147483647"),
         "line:7: 2147483647 values asked for, of 151 bytes: vector too long"},
        {"geogiga", geogigaWithReceivers("99999999999"),
         "line:7: \"99999999999\" is read as 1215752191: it is out of range\n"
         "line:7: 1215752191 values asked for, of 152 bytes: vector too long"},
        {"geogiga", geogigaWithReceivers("-1"), "line:7: number of receivers -1: vector too long"},
        {"seisimager", seisImagerWithCounts("1", "2147483647"),
         "line:4: the file ends after 0 of 1 shots and 1 of 2147483647 receivers" + subscript},
        {"seisimager", seisImagerWithCounts("1", "-1"),
         "line:4: the file ends after 0 of 1 shots and 1 of -1 receivers" + subscript},
        {"seisimager", seisImagerWithCounts("2147483647", "1"),
         "line:4: the file ends after 1 of 2147483647 shots" + subscript},
        {"seisimager", seisImagerWithCounts("-1", "1"),
         "line:2: there are no shots in this file\n"
         "line:3: 2 lines after the last shot: not read\n"
         "line: there are no shots to convert"},
    };
    for (const auto &[format, text, line] : cases) {
        SCOPED_TRACE(format + '\n' + text);
        const OlderOutputs folder;
        folder.write("line", text);
        expectRefused(folder, traveltimes(format), line, limitMemory);
    }
}

TEST(BatchFaults, DolangCountsThatNoSetCanKeep)
{
    for (const std::string count : {"-1", "4294967295", "2147483647"}) {
        SCOPED_TRACE(count);
        const OlderOutputs folder;
        writeDolangSet(folder);
        folder.write("L.ADT", "1\n-\n-\n0\n" + count + "\n1000\n");
        const std::string asked = count == "-1" ? "4294967295" : count;
        const std::string remark =
            count == "-1" ? "L.ADT:5: \"-1\" is read as 4294967295: it is out of range\n" : "";
        expectRefused(folder, {"dolang", "L"},
                      remark + "L.ADT:5: " + asked
                          + " values asked for, of 5 bytes: vector too "
                            "long",
                      limitMemory);
    }
    const OlderOutputs folder;
    writeDolangSet(folder);
    folder.write("L.ADT", "-1\n-\n-\n0\n2\n1000\n");
    expectRefused(folder, {"dolang", "L"},
                  "L.ADT:1: \"-1\" is read as 4294967295: it is out of range\nL.A02: "
                      + systemText(ENOENT),
                  limitMemory);
}

TEST(BatchFaults, RecordsWithAnOutputThatCannotBeWritten)
{
    for (const auto &[output, arguments] : recordOutputs) {
        SCOPED_TRACE(output);
        const OlderOutputs folder;
        folder.write("line.su", suFile);
        writeDolangSet(folder);
        fs::remove(folder.path(output));
        fs::create_directory(folder.path(output));
        expectRefused(folder, arguments, output + ": this is a folder");

        fs::remove(folder.path(output));
        const std::string device = memoryDevice(folder, 7, "/dev/full");
        fs::create_symlink(device, folder.path(output));
        expectRefused(folder, arguments, output + ": " + systemText(ENOSPC));
        EXPECT_TRUE(fs::is_character_file(device));
    }
}

TEST(BatchFaults, RecordsWithAnOutputThatMayNotBeWritten)
{
    for (const auto &[output, arguments] : recordOutputs) {
        SCOPED_TRACE(output);
        const OlderOutputs folder;
        folder.write("line.su", suFile);
        writeDolangSet(folder);
        fs::permissions(folder.path(output), fs::perms(0444));
        if (!areHeldBack("-w", folder.path(output)))
            GTEST_SKIP() << "Permissions hold nobody back here.";
        expectRefused(folder, arguments, output + ": no permission to write this file",
                      asOrdinaryUser);
    }
}

TEST(BatchFaults, FoldersOfRecordsThatMayNotBeWritten)
{
    const OlderOutputs folder;
    folder.write("line.su", suFile);
    writeDolangSet(folder);
    fs::permissions(folder.path(""), fs::perms(0500));
    if (!areHeldBack("-w", folder.path("")))
        GTEST_SKIP() << "Permissions hold nobody back here.";
    expectRefused(folder, {"su", "line.su"}, "line_tmp: " + systemText(EACCES), asOrdinaryUser);
    expectRefused(folder, {"dolang", "L"}, "tmp_ADT: " + systemText(EACCES), asOrdinaryUser);
    fs::permissions(folder.path(""), fs::perms(0700));

    // Only the working folder.
    const BatchFolder working;
    fs::permissions(working.path(""), fs::perms(0500));
    const std::map<std::string, std::string> before = folder.contents();
    expectRefused(working, {"dolang", folder.path("L")}, "tmp_ADT: " + systemText(EACCES),
                  asOrdinaryUser);
    EXPECT_EQ(folder.contents(), before);
    fs::permissions(working.path(""), fs::perms(0700));
}

TEST(BatchFaults, MemoryThatAllOfTheseTook)
{
    EXPECT_LT(megabytesHeld(), 1024);
}
