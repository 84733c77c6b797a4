// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/older_outputs.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <memory>

namespace {

namespace fs = std::filesystem;

/// The first outputs of records, with the command lines that write them.
const std::vector<std::pair<std::string, Arguments>> recordOutputs = {
    {"line_tmp", {"su", "line.su"}},
    {"line.seg2", {"su", "line.su"}},
    {"tmp_ADT", {"dolang", "L"}},
    {"L_ADT_dolang.seg2", {"dolang", "L"}},
};

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
    const std::size_t quoted = 1000 - noHeading.size(); // of the 1000 characters of a line
    const std::vector<std::tuple<std::string, std::function<std::string()>, std::string>> cases = {
        {"geogiga", nulBytes, noKeyword},
        {"winsism", nulBytes, noHeading + std::string(quoted, '?') + "..."},
        {"seisimager", nulBytes, ending},
        {"generic", nulBytes, oneField},
        {"geogiga", [] { return inUtf16(geogigaFile); }, utf16},
        {"winsism", [] { return inUtf16(winsismFile); }, utf16},
        {"seisimager", [] { return inUtf16(seisImagerFile); }, utf16},
        {"generic", [] { return inUtf16(genericFile); }, utf16},
        {"generic", [] { return inUtf16(genericFile, true); }, utf16},
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

TEST(BatchFaults, MarkOfASeisImagerFile)
{
    const OlderOutputs folder;
    folder.write("line", byteOrderMark + seisImagerFile);
    EXPECT_EQ(folder.run(traveltimes("seisimager"), limitMemory), BatchRun{});
    EXPECT_EQ(readFile(folder.path("line.otte")), seisImagerOtte);
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

TEST(BatchFaults, SeismicUnixFilesThatAreNot)
{
    const OlderOutputs folder;
    folder.write("line.su", nulBytes());
    expectRefused(folder, {"su", "line.su"}, "line.su: the header of trace 1 says 0 samples",
                  limitMemory);
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
