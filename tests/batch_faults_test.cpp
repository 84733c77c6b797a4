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
        for (const char *name : outputs)
            write(name, "older");
    }

    void expectOlder() const
    {
        for (const char *name : outputs) {
            if (fs::is_regular_file(path(name))) {
                EXPECT_EQ(readFile(path(name)), "older") << name;
            }
        }
    }

    static constexpr std::array outputs = {
        "line.otte", "line_tmp",          "line.seg2",         "tmp_ADT",          "tmp_CDT",
        "tmp_RDT",   "L_ADT_dolang.seg2", "L_CDT_dolang.seg2", "L_RDT_dolang.seg2"};
};

/// Expects that the command fails with the one line and leaves every output as it was.
void expectRefused(const OlderOutputs &folder, const Arguments &arguments, const std::string &line,
                   const std::function<void()> &inChild = {})
{
    const std::vector<std::string> before = folder.names();
    EXPECT_EQ(folder.run(arguments, inChild), (BatchRun{1, "", line + '\n'}));
    EXPECT_EQ(folder.names(), before);
    folder.expectOlder();
}

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
void expectConverted(const std::string &format, const ManyShots &shots)
{
    const OlderOutputs folder;
    folder.write("line", shots.input);
    EXPECT_EQ(folder.run(traveltimes(format), limitMemory), BatchRun{});
    EXPECT_TRUE(readFile(folder.path("line.otte")) == shots.otte);
}

} // namespace

TEST(BatchFaults, TraveltimesThatAreNot)
{
    const std::string noKeyword = "line:1: \"TX_CURVE\" expected";
    const std::string noHeading = "line:1: Invalid header : "; // of the 1000 characters of a line
    const std::string marked = "line: this text begins with a byte order mark: save it without one";
    const std::string utf16 = "line: this text is in UTF-16: save it as UTF-8";
    const std::string noFields = "invalid vector subscript: 0 fields, 2 expected";
    const std::string oneField = "line:1: invalid vector subscript: 1 field, 3 expected";
    const std::string bigEndianMark = "\xFE\xFF";
    const std::vector<std::tuple<std::string, std::function<std::string()>, std::string>> cases = {
        {"seisimager", [] { return ""; }, "line:1: " + noFields},
        {"geogiga", endlessLine, noKeyword},
        {"winsism", endlessLine, noHeading + std::string(975, 'x') + "..."},
        {"seisimager", endlessLine, "line:2: " + noFields},
        {"generic", endlessLine, oneField},
        {"geogiga", nulBytes, noKeyword},
        {"winsism", nulBytes, noHeading + std::string(975, '?') + "..."},
        {"seisimager", nulBytes, "line:2: " + noFields},
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
    const struct
    {
        std::string format;
        std::string text;
        std::string otte;
        std::string remark;
    } cases[] = {
        {"seisimager", byteOrderMark + seisImagerFile, seisImagerOtte, ""},
        {"generic", "", "otte\n1.0\n2\n1\n\n\n-1;\n100;\n0\n0\n\n",
         "line:1: there are no receivers in this file\n"},
        {"generic", "5;7;0.001;" + endlessLine(), "otte\n1.0\n2\n1\n5;\n7;\n-1;\n100;\n0\n0\n1;\n",
         ""},
    };
    for (const auto &[format, text, otte, remark] : cases) {
        SCOPED_TRACE(format + ": " + text.substr(0, 20));
        const OlderOutputs folder;
        folder.write("line", text);
        EXPECT_EQ(folder.run(traveltimes(format), limitMemory), (BatchRun{0, "", remark}));
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
    expectConverted("seisimager", manySeisImagerShots());
}

TEST(BatchFaults, ListOfAMillionShotsWithABadOne)
{
    const OlderOutputs folder;
    folder.write("s1.txt", genericFile);
    folder.write("list", repeated("s1.txt;-1;100\n", million - 1) + "s1.txt;-1\n");
    expectRefused(folder, {"generic", "--shots", "list", "-o", "line.otte"},
                  "list:1000000: \"file;x;elevation\" expected", limitMemory);
}

TEST(BatchFaults, SeismicUnixFileOfNulBytes)
{
    const OlderOutputs folder;
    folder.write("line.su", nulBytes());
    EXPECT_EQ(folder.run({"su", "line.su"}, limitMemory),
              (BatchRun{0, "",
                        "line.su: 1000000 bytes are no whole number of traces of 240 bytes: the "
                        "last 160 are left out\n"}));
    const ParsedSeg2 seg2 = parseSeg2(readFile(folder.path("line.seg2")));
    EXPECT_EQ(seg2.traces.size(), 4166U);
    for (const ParsedTrace &trace : seg2.traces)
        EXPECT_TRUE(trace.sampleCount == 0 && trace.strings.at(3) == "SAMPLE_INTERVAL 0");
}

TEST(BatchFaults, SeismicUnixFileOfOneEndlessLine)
{
    const OlderOutputs folder;
    folder.write("line.su", endlessLine());
    // "xx" is 30840: that many samples of 4 bytes behind 240.
    EXPECT_EQ(folder.run({"su", "line.su"}, limitMemory),
              (BatchRun{0, "",
                        "line.su: 100000000 bytes are no whole number of traces of 123600 bytes: "
                        "the last 7600 are left out\n"}));
    // 3312 bytes in front of 809 traces, each a descriptor of 172 and 123360 of samples.
    EXPECT_EQ(fs::file_size(folder.path("line.seg2")), 3312U + 809U * (172U + 123360U));
}

TEST(BatchFaults, DolangFilesThatAreNot)
{
    const std::string header = "1\n-\n-\n0\n2\n1000\n";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {inUtf16(header), "L.ADT: this text is in UTF-16: save it as UTF-8"},
        {byteOrderMark + header,
         "L.ADT: this text begins with a byte order mark: save it without one"},
    };
    for (const auto &[text, line] : cases) {
        const OlderOutputs folder;
        writeDolangSet(folder);
        folder.write("L.ADT", text);
        expectRefused(folder, {"dolang", "L"}, line);
    }
    const OlderOutputs folder;
    writeDolangSet(folder);
    for (const std::string &channel : {byteOrderMark + "5\n", inUtf16("5\n"),
                                       std::string("\xFE\xFF\0"
                                                   "5",
                                                   4)}) {
        folder.write("L.A01", channel);
        expectRefused(folder, {"dolang", "L"}, "L.A01:1: this text begins with a byte order mark");
    }
    fs::remove(folder.path("L.A01"));
    fs::create_directory(folder.path("L.A01"));
    expectRefused(folder, {"dolang", "L"}, "L.A01: " + systemText(EISDIR));
}

TEST(BatchFaults, OddDolangFilesThatConvert)
{
    for (const auto text : {nulBytes, endlessLine}) {
        const OlderOutputs folder;
        writeDolangSet(folder);
        folder.write("L.ADT", text());
        EXPECT_EQ(folder.run({"dolang", "L"}, limitMemory),
                  (BatchRun{0, "", "L.ADT: no channels\n"}));
        EXPECT_EQ(readFile(folder.path("L_ADT_dolang.seg2")), emptySeg2);
        EXPECT_EQ(readFile(folder.path("L_CDT_dolang.seg2")), dolangSeg2);
    }
    const OlderOutputs folder;
    writeDolangSet(folder);
    folder.write("L.A01", "7" + endlessLine());
    EXPECT_EQ(
        folder.run({"dolang", "L"}, limitMemory),
        (BatchRun{0, "", "L.ADT: L.A01 holds fewer than 2 samples: the missing ones are 0\n"}));
    EXPECT_EQ(parseSeg2(readFile(folder.path("L_ADT_dolang.seg2"))).traces.at(0).samples,
              (std::vector<double>{7.0, 0.0}));
}

TEST(BatchFaults, CountsThatNoFileCanKeep)
{
    const std::string noFields = "line:5: invalid vector subscript: 0 fields, 2 expected";
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"geogiga", geogigaWithReceivers("2147483647"),
         "line:7: vector too long: 2147483647 values asked for, of 151 bytes"},
        {"geogiga", geogigaWithReceivers("99999999999"),
         "line:7: vector too long: 1215752191 values asked for, of 152 bytes"},
        {"geogiga", geogigaWithReceivers("-1"), "line:7: vector too long: number of receivers -1"},
        {"seisimager", seisImagerWithCounts("1", "2147483647"), noFields},
        {"seisimager", seisImagerWithCounts("1", "-1"), noFields},
        {"seisimager", seisImagerWithCounts("2147483647", "1"), noFields},
    };
    for (const auto &[format, text, line] : cases) {
        SCOPED_TRACE(format + '\n' + text);
        const OlderOutputs folder;
        folder.write("line", text);
        expectRefused(folder, traveltimes(format), line, limitMemory);
    }
    const OlderOutputs folder;
    folder.write("line", seisImagerWithCounts("-1", "1"));
    EXPECT_EQ(folder.run(traveltimes("seisimager"), limitMemory),
              (BatchRun{0, "", "line:2: there are no shots in this file\n"}));
    EXPECT_EQ(readFile(folder.path("line.otte")), emptyOtte);
}

TEST(BatchFaults, DolangCountsThatNoSetCanKeep)
{
    for (const std::string count : {"-1", "4294967295", "2147483647"}) {
        SCOPED_TRACE(count);
        const OlderOutputs folder;
        writeDolangSet(folder);
        folder.write("L.ADT", "1\n-\n-\n0\n" + count + "\n1000\n");
        const std::string asked = count == "-1" ? "4294967295" : count;
        expectRefused(folder, {"dolang", "L"},
                      "L.ADT: vector too long: " + asked + " values asked for, of 5 bytes",
                      limitMemory);
    }
    const OlderOutputs folder;
    writeDolangSet(folder);
    folder.write("L.ADT", "-1\n-\n-\n0\n2\n1000\n");
    expectRefused(folder, {"dolang", "L"}, "L.A02: " + systemText(ENOENT), limitMemory);
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
        expectRefused(folder, arguments, output + ": " + systemText(EISDIR));

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
        expectRefused(folder, arguments, output + ": " + systemText(EACCES), asOrdinaryUser);
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
    EXPECT_EQ(working.run({"dolang", folder.path("L")}, asOrdinaryUser),
              (BatchRun{1, "", "tmp_ADT: " + systemText(EACCES) + '\n'}));
    folder.expectOlder();
    fs::permissions(working.path(""), fs::perms(0700));
}

TEST(BatchFaults, MemoryThatAllOfTheseTook)
{
    EXPECT_LT(megabytesHeld(), 1024);
}
