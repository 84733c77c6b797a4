// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/field_command.h"
#include "tests/support/field_seg2.h"

#include <gtest/gtest.h>

#include <bit>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>

namespace {

using Arguments = std::vector<std::string>;

constexpr ByteOrder machineOrder =
    std::endian::native == std::endian::big ? ByteOrder::bigEndian : ByteOrder::littleEndian;

/// Two traces of shot 7, all of whose fields both formats have.
std::string record(ByteOrder byteOrder, float first = 1.5F)
{
    std::map<std::size_t, std::int32_t> fields = {
        {0, 1},   {4, 1},  {8, 7},     {12, 1},     {28, 1},   {68, -10}, {70, -10}, {72, -25},
        {80, 50}, {88, 1}, {116, 250}, {156, 2022}, {158, 81}, {160, 13}, {162, 58}, {164, 30}};
    const std::string trace = suTrace(byteOrder, fields, {first, -2.5F});
    for (const std::size_t offset : {0U, 4U, 12U})
        fields[offset] = 2;
    fields[80] = 100;
    return trace + suTrace(byteOrder, fields, {0.25F, 3.0F});
}

/// A folder with a record in two files, picks and an older output.
struct Records : FieldFolder
{
    Records()
    {
        write("a.su", record(ByteOrder::bigEndian));
        write("b.su", record(ByteOrder::littleEndian, 9.0F));
        std::filesystem::create_directory(path("out"));
        write("out/a.seg2", "older");
    }
};

/// The samples of all traces of a little-endian SEG2 file of 32-bit floats.
std::vector<float> samplesOf(const std::string &path)
{
    const std::string file = readFile(path);
    const auto number = [&](std::size_t offset, std::size_t size) {
        std::size_t value = 0;
        for (std::size_t i = size; i-- > 0;)
            value = value << 8 | static_cast<unsigned char>(file.at(offset + i));
        return value;
    };
    std::vector<float> samples;
    for (std::size_t trace = 0; trace < number(6, 2); ++trace) {
        const std::size_t start = number(32 + 4 * trace, 4);
        EXPECT_EQ(number(start + 12, 1), 4u) << "format code";
        for (std::size_t i = 0; i < number(start + 8, 4); ++i)
            samples.push_back(std::bit_cast<float>(
                static_cast<std::uint32_t>(number(start + number(start + 2, 2) + 4 * i, 4))));
    }
    return samples;
}

} // namespace

TEST(FieldConvertRecords, OneRecordIntoAFile)
{
    const Records records;
    for (const std::string name : {"a.su", "b.su"}) {
        EXPECT_EQ(records.run({"convert", name, "-o", "line.seg2"}), FieldRun{});
        EXPECT_EQ(samplesOf(records.path("line.seg2")),
                  (std::vector<float>{name == "a.su" ? 1.5F : 9.0F, -2.5F, 0.25F, 3.0F}));
    }
    for (const std::string name : {"line.sg2", "LINE.DAT"}) {
        EXPECT_EQ(records.run({"convert", "b.su", "-o", name}), FieldRun{});
        EXPECT_EQ(readFile(records.path(name)), readFile(records.path("line.seg2")));
    }
    EXPECT_EQ(records.run({"convert", "b.su", "--to", "seg2", "-o", "line"}), FieldRun{});
    EXPECT_EQ(readFile(records.path("line")), readFile(records.path("line.seg2")));
}

TEST(FieldConvertRecords, ByteOrderOfSeismicUnix)
{
    const Records records;
    ASSERT_EQ(records.run({"convert", "a.su", "-o", "line.seg2"}), FieldRun{});
    const std::vector<std::pair<Arguments, ByteOrder>> cases = {
        {{}, machineOrder},
        {{"--byte-order", "little"}, ByteOrder::littleEndian},
        {{"--byte-order", "big"}, ByteOrder::bigEndian},
    };
    for (const auto &[options, byteOrder] : cases) {
        for (const std::string input : {"a.su", "line.seg2"}) {
            Arguments arguments = {"convert", input, "-o", "line.su"};
            arguments.insert(arguments.end(), options.begin(), options.end());
            EXPECT_EQ(records.run(arguments), FieldRun{}) << testing::PrintToString(arguments);
            EXPECT_EQ(readFile(records.path("line.su")), record(byteOrder))
                << testing::PrintToString(arguments);
        }
    }
}

TEST(FieldConvertRecords, Millivolts)
{
    const Records records;
    const std::vector<std::int16_t> samples = {4, -8};
    records.write("a.dat", seg2File({}, {},
                                    {{{"SAMPLE_INTERVAL 0.001", "DESCALING_FACTOR 0.25"},
                                      1,
                                      2,
                                      sampleBytes(samples, ByteOrder::littleEndian)}}));
    const std::map<std::size_t, std::int32_t> fields = {{0, 1},  {4, 1},  {28, 1}, {30, 1},
                                                        {68, 1}, {70, 1}, {88, 1}, {116, 1000}};
    EXPECT_EQ(records.run({"convert", "a.dat", "-o", "line.su", "--byte-order", "big"}),
              (FieldRun{0, "",
                        "a.dat: trace 1: DESCALING_FACTOR 0.25 is left out: with --millivolts the "
                        "samples are multiplied by it\n"}));
    EXPECT_EQ(readFile(records.path("line.su")),
              suTrace(ByteOrder::bigEndian, fields, {4.0F, -8.0F}));
    EXPECT_EQ(
        records.run({"convert", "a.dat", "-o", "line.su", "--byte-order", "big", "--millivolts"}),
        FieldRun{});
    EXPECT_EQ(readFile(records.path("line.su")),
              suTrace(ByteOrder::bigEndian, fields, {1.0F, -2.0F}));
}

TEST(FieldConvertRecords, SeveralIntoAFolder)
{
    const Records records;
    EXPECT_EQ(records.run({"convert", "a.su", "b.su", "--to", "seg2", "-o", "out"}), FieldRun{});
    EXPECT_EQ(samplesOf(records.path("out/a.seg2")),
              (std::vector<float>{1.5F, -2.5F, 0.25F, 3.0F}));
    EXPECT_EQ(samplesOf(records.path("out/b.seg2")),
              (std::vector<float>{9.0F, -2.5F, 0.25F, 3.0F}));
    EXPECT_EQ(records.run({"convert", "a.su", "--to", "su", "-o", "out/"}), FieldRun{});
    EXPECT_EQ(readFile(records.path("out/a.su")), record(machineOrder));
}

TEST(FieldConvertRecords, SeveralNeedAFolder)
{
    const Records records;
    expectRefused(records, {"convert", "a.su", "b.su", "-o", "line.seg2"},
                  "line.seg2: no folder: several records need one");
    expectRefused(records, {"convert", "a.su", "b.su", "--to", "seg2", "-o", "none"},
                  "none: no folder: several records need one");
    const FieldRun run = records.run({"convert", "a.su", "-o", "out"});
    EXPECT_EQ(run, (FieldRun{2, "",
                             "convert2velarix-field: the name out does not say the format to "
                             "write: add --to FORMAT; see --help\n"}));
}

TEST(FieldConvertRecords, TheOthersAreMadeWhenOneFails)
{
    const Records records;
    records.write("a.su", record(ByteOrder::bigEndian).substr(0, 300));
    EXPECT_EQ(records.run({"convert", "a.su", "b.su", "--to", "seg2", "-o", "out"}),
              (FieldRun{1, "",
                        "a.su: the file ends within trace 2: only the 1 whole trace before it can "
                        "be read\n"}));
    EXPECT_EQ(readFile(records.path("out/a.seg2")), "older");
    EXPECT_EQ(samplesOf(records.path("out/b.seg2")),
              (std::vector<float>{9.0F, -2.5F, 0.25F, 3.0F}));
}

TEST(FieldConvertRecords, OutputsOfOneName)
{
    const Records records;
    records.write("out/b.su", record(ByteOrder::bigEndian));
    EXPECT_EQ(records.run({"convert", "b.su", "out/b.su", "--to", "seg2", "-o", "out"}),
              (FieldRun{1, "", "out/b.su: the output would replace that of an input before\n"}));
    EXPECT_EQ(samplesOf(records.path("out/b.seg2")),
              (std::vector<float>{9.0F, -2.5F, 0.25F, 3.0F}));
}

TEST(FieldConvertRecords, AnOutputThatWouldReplaceAnInput)
{
    const Records records;
    records.write("out/b.su", record(ByteOrder::bigEndian));
    for (const Arguments &arguments :
         {Arguments{"convert", "a.su", "-o", "a.su"}, {"convert", "a.su", "-o", "./out/../a.su"}})
        expectRefused(records, arguments, "a.su: the output would replace this input");
    // Also one that is read later.
    expectRefused(records, {"convert", "b.su", "out/b.su", "--to", "su", "-o", "out"},
                  "out/b.su: the output would replace this input\n"
                  "out/b.su: the output would replace that of an input before");
}

TEST(FieldConvertRecords, DolangSet)
{
    const Records records;
    for (const std::string kind : {"A", "C", "R"}) {
        records.write("LINE." + kind + "DT", "1\n\"vertical\"\n\"gain\"\n0\n2\n4000\n");
        records.write("LINE." + kind + "01", kind == "C" ? "5\n-6\n" : "1\n2\n");
    }
    const FieldRun run =
        records.run({"convert", "LINE.ADT", "LINE.CDT", "--to", "seg2", "-o", "out"});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_EQ(samplesOf(records.path("out/LINE_ADT.seg2")), (std::vector<float>{1, 2}));
    EXPECT_EQ(samplesOf(records.path("out/LINE_CDT.seg2")), (std::vector<float>{5, -6}));
}

TEST(FieldConvertRecords, StrictTakesNoRemarks)
{
    const Records records;
    std::string dead = record(ByteOrder::bigEndian);
    dead[29] = 2;
    records.write("a.su", dead);
    const FieldRun run = records.run({"convert", "a.su", "b.su", "--to", "seg2", "-o", "out"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.error.starts_with("a.su: ")) << run.error;
    EXPECT_NE(readFile(records.path("out/a.seg2")), "older");

    records.write("out/a.seg2", "older");
    EXPECT_EQ(
        records.run({"convert", "a.su", "b.su", "--to", "seg2", "-o", "out", "--strict"}),
        (FieldRun{1, "", run.error + "out/a.seg2: nothing is made: --strict takes no remarks\n"}));
    EXPECT_EQ(readFile(records.path("out/a.seg2")), "older");
    EXPECT_TRUE(exists(records.path("out/b.seg2")));
}

TEST(FieldConvertRecords, RecordsAndPicksDoNotMix)
{
    const Records records;
    records.write("a.vs", "First breaks, ms\n1 1\n0 2\n5 4\n10 7\n");
    expectRefused(records, {"convert", "a.su", "a.vs", "--to", "seg2", "-o", "out"},
                  "a.vs: picks (seisimager, known by counts of shots and receivers that fit its "
                  "lines) cannot become seg2");
    expectRefused(records, {"convert", "a.su", "-o", "line.sgt"},
                  "a.su: a record (su, known by the header that repeats at byte 248, big-endian) "
                  "cannot become sgt");
}

TEST(FieldConvertRecords, AnOutputThatCannotBeWritten)
{
    const Records records;
    expectRefused(records, {"convert", "a.su", "-o", "none/line.seg2"},
                  "none/line.seg2: the folder none does not exist");
    for (const std::string format : {"seg2", "su"})
        EXPECT_EQ(records.run({"convert", "a.su", "--to", format, "-o", "/dev/full"}),
                  (FieldRun{1, "", "/dev/full: " + systemText(ENOSPC) + '\n'}))
            << format;
}

TEST(FieldConvertRecords, ABarShowsWhatLastsLong)
{
    const Records records;
    std::string large;
    std::vector<float> samples(5000, 1.0F);
    samples[1] = 2.0F;
    for (int i = 0; i < 100; ++i)
        large += suTrace(ByteOrder::bigEndian, {{116, 250}}, samples);
    records.write("large.su", large);
    ASSERT_EQ(mkfifo(records.path("pipe").c_str(), 0600), 0);
    // Whoever reads the pipe lets the command wait.
    const auto errorsOf = [&](std::chrono::milliseconds wait) {
        std::thread reader([&] {
            const int pipe = open(records.path("pipe").c_str(), O_RDONLY);
            std::this_thread::sleep_for(wait);
            char buffer[65536];
            while (read(pipe, buffer, sizeof buffer) > 0) { }
            close(pipe);
        });
        const std::string errors =
            records.runOnTerminal({"convert", "large.su", "--to", "su", "-o", "pipe"});
        reader.join();
        return errors;
    };
    const std::string errors = errorsOf(std::chrono::milliseconds(1300));
    if (errors == noTerminal)
        GTEST_SKIP() << noTerminal;
    EXPECT_TRUE(errors.starts_with("\rlarge.su [")) << errors;
    EXPECT_NE(errors.find(" %\x1b[K"), std::string::npos) << errors;
    EXPECT_TRUE(errors.ends_with("\r\x1b[K")) << errors;
    EXPECT_EQ(errorsOf(std::chrono::milliseconds(0)), "");
}
