// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_input.h"

#include "field/seismic_unix.h"
#include "tests/support/field_records.h"

#include <gtest/gtest.h>

#include <cerrno>

TEST(FieldRecordInput, AnyPartOfAFile)
{
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 700000; ++i)
        bytes += static_cast<char>(i % 251);
    RecordInput input;
    Report report;
    ASSERT_TRUE(openRecord(input, folder.write("file", bytes), report));
    EXPECT_EQ(input.size, bytes.size());
    const std::pair<std::uint64_t, std::size_t> parts[] = {
        {0, 32},       {10, 5},      {262140, 10}, {262144, 300000}, {0, 1},
        {699990, 10},  {699990, 11}, {700000, 1},  {800000, 1},      {5, 0},
        {650000, 100}, {649990, 20}, {0, 700000}};
    for (const auto &[position, count] : parts) {
        const std::string expected = position < bytes.size() ? bytes.substr(position, count) : "";
        EXPECT_EQ(bytesAt(input, position, count), expected) << position;
        EXPECT_EQ(fewBytesAt(input, position, count), expected) << position;
    }
    EXPECT_EQ(input.error, "");
}

TEST(FieldRecordInput, FilesThatCannotBeOpened)
{
    const TemporaryFolder folder;
    const std::pair<std::string, std::string> cases[] = {
        {"", "no file"},
        {folder.path("none"), "No such file or directory"},
        {folder.write("empty", ""), "the file is empty"},
    };
    for (const auto &[path, failure] : cases) {
        RecordInput input;
        Report report;
        EXPECT_FALSE(openRecord(input, path, report));
        EXPECT_EQ(failureOf(report), failure);
        EXPECT_EQ(report.failure->place, Place{path});
    }
}

TEST(FieldRecordInput, AtADamageTheSystemsReasonCounts)
{
    const TemporaryFolder folder;
    RecordInput input;
    Report report;
    ASSERT_TRUE(openRecord(input, folder.write("file", "bytes"), report));
    EXPECT_FALSE(failAtDamage(input, 1, "the file ends", report));
    EXPECT_EQ(failureOf(report), "the file ends: no whole trace can be read");

    // The system refuses a file that is closed.
    input.file.close();
    EXPECT_EQ(bytesAt(input, 0, 5), "");
    Report refused;
    EXPECT_FALSE(failAtDamage(input, 18, "the file ends", refused));
    EXPECT_EQ(failureOf(refused),
              systemText(EBADF) + ": only the 17 whole traces before it can be read");
}

TEST(FieldRecordInput, AFileThatBecomesShorterWhileItIsRead)
{
    const TemporaryFolder folder;
    const std::string trace =
        suTrace(ByteOrder::bigEndian, {{116, 250}}, std::vector<float>(60000, 1.0F));
    const std::string path = folder.write("line.su", trace + trace + trace);
    Report report;
    std::size_t traces = 0;
    const auto take = [&](const RecordFile &, const RecordTrace &) {
        std::filesystem::resize_file(path, 400000);
        return ++traces > 0;
    };
    EXPECT_FALSE(readSeismicUnix(path, take, report));
    EXPECT_EQ(traces, 1U);
    EXPECT_EQ(failureOf(report),
              "the file changed while it was read: only the 1 whole trace before "
              "it can be read");
}
