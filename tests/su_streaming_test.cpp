// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// How the traces of a Seismic Unix file are read while they are converted.

#include "seg2/su_conversion.h"
#include "seg2/su_file.h"

#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/su_conversions.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>
#include <streambuf>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr off_t never = std::numeric_limits<off_t>::max();

/// A file that cannot be read from a byte on, as on a damaged disk.
struct DamagedFile
{
    ino_t inode = 0;
    off_t from = never;
    int readsBefore = 0; ///< that succeed even there
    bool recovers = false;
};

DamagedFile damaged;

} // namespace

/// Stands before the C library's, for Qt too.
extern "C" ssize_t read(int file, void *to, std::size_t size)
{
    struct stat status = {};
    if (damaged.from == never || fstat(file, &status) != 0 || status.st_ino != damaged.inode)
        return syscall(SYS_read, file, to, size);
    const off_t position = lseek(file, 0, SEEK_CUR);
    if (position >= damaged.from && damaged.readsBefore-- <= 0) {
        if (damaged.recovers)
            damaged.from = never;
        errno = EIO;
        return -1;
    }
    if (position < damaged.from)
        size = std::min(size, static_cast<std::size_t>(damaged.from - position));
    return syscall(SYS_read, file, to, size);
}

namespace {

void damage(const std::string &path, off_t from)
{
    struct stat status = {};
    stat(path.c_str(), &status);
    damaged = {status.st_ino, from};
}

/// What the inner form made of "line.su" in the folder.
struct Made
{
    Report report = {};
    std::string progress = {};
    std::string listing = {};
    std::string seg2 = {};
};

Made convertIn(const TemporaryFolder &folder, bool isPrinted)
{
    const std::string path = folder.path("line.su");
    Made made;
    std::ostringstream progress;
    convertSu(path, folder.path("line_tmp"), folder.path("line.seg2"),
              isPrinted ? &progress : nullptr, made.report);
    damaged = {};
    made.listing = readFile(folder.path("line_tmp"));
    made.seg2 = readFile(folder.path("line.seg2"));
    made.progress = progress.str();
    const std::string opening = "opening su file " + path + '\n';
    if (isPrinted) {
        EXPECT_EQ(made.progress.substr(0, opening.size()), opening);
        made.progress.erase(0, opening.size());
    }
    return made;
}

/// Takes everything and keeps nothing.
class NullBuffer : public std::streambuf
{
    int overflow(int character) override
    {
        return character == traits_type::eof() ? 0 : character;
    }
    std::streamsize xsputn(const char *, std::streamsize size) override
    {
        return size;
    }
};

/// Converts a record of traces of 10,000 samples; returns the megabytes that it took.
long megabytesFor(int traces, std::ostream *progress)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.su");
    const std::string trace =
        suTrace({1, 5, 10, 10000, 250}, std::vector<float>(10000, 0.25F)); // 40 KB
    {
        std::ofstream record(path, std::ios::binary);
        for (int i = 0; i < traces; ++i)
            record << trace;
    }
    const long before = megabytesHeld();
    Report report;
    EXPECT_TRUE(
        convertSu(path, folder.path("line_tmp"), folder.path("line.seg2"), progress, report));
    EXPECT_EQ(std::filesystem::file_size(folder.path("line.seg2")),
              84 + static_cast<std::size_t>(traces - 2) * 4
                  + static_cast<std::size_t>(traces) * 40152);
    return megabytesHeld() - before;
}

} // namespace

// Stands first: what is measured is the most that the process ever held.
TEST(SuStreaming, MemoryDoesNotGrowWithTheSamples)
{
    if (isAddressSanitized)
        GTEST_SKIP() << "under a sanitizer";
    EXPECT_LT(megabytesFor(2000, nullptr), 8); // 80 MB
    NullBuffer nobody;
    std::ostream progress(&nobody);
    EXPECT_LT(megabytesFor(500, &progress), 8); // 20 MB
}

TEST(SuStreaming, InputThatIsItsOwnOutput)
{
    const struct
    {
        const char *input;
        const char *output; ///< that is the input
        bool isHardLink;
    } cases[] = {
        {"line.seg2", "", false},       {"line.su", "line.seg2", false},
        {"line.su", "line.seg2", true}, {"line.su", "line_tmp", false},
        {"line.su", "line_tmp", true},
    };
    for (const auto &[input, output, isHardLink] : cases) {
        SCOPED_TRACE(std::string(input) + ' ' + output);
        const TemporaryFolder folder;
        const std::string path = folder.write(input, twoTraces);
        if (isHardLink)
            std::filesystem::create_hard_link(path, folder.path(output));
        else if (*output != '\0')
            std::filesystem::create_symlink(path, folder.path(output));
        CapturedStreams streams;
        EXPECT_EQ(convertSuToSeg2(path), 0);
        streams.finish();
        EXPECT_EQ(streams.output, "opening su file " + path + '\n' + twoTracesProgress);
        EXPECT_EQ(streams.error, "");
        EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
        EXPECT_EQ(readFile(folder.path("line.seg2")), twoTracesSeg2);
    }
}

TEST(SuStreaming, PipeAsInput)
{
    for (const bool isPrinted : {true, false}) {
        const TemporaryFolder folder;
        const FedPipe pipe(folder.path("line.su"), twoTraces + "rest");
        const Made made = convertIn(folder, isPrinted);
        EXPECT_EQ(made.report.failure, std::nullopt);
        ASSERT_EQ(made.report.remarks.size(), 1U);
        EXPECT_EQ(made.report.remarks[0].text, "4 bytes after the last whole trace: not read");
        EXPECT_EQ(made.progress, isPrinted ? twoTracesProgress : "");
        EXPECT_EQ(made.listing, twoTracesListing);
        EXPECT_EQ(made.seg2, twoTracesSeg2);
    }
}

TEST(SuStreaming, PipeOfABigEndianFile)
{
    // Large enough for its second header to lie behind the first trace as it would be read.
    const std::string trace =
        suTrace({0, 5, 10, 256, 250}, std::vector<float>(256, 1.0F), std::endian::big);
    const TemporaryFolder folder;
    const FedPipe pipe(folder.path("line.su"), repeated(trace, 3) + "damaged");
    const Made made = convertIn(folder, false);
    ASSERT_NE(made.report.failure, std::nullopt);
    EXPECT_EQ(made.report.failure->text,
              "the file is big-endian (3 traces of 1264 bytes): swap the bytes of every number "
              "first, as docs/formats/seismic_unix.md shows");
}

TEST(SuStreaming, RecordEndsWhereItCannotBeRead)
{
    // Three traces of 60,000 samples: 240,240 bytes each. No trace is made of what comes after.
    const std::string trace = suTrace({0, 5, 10, 60000, 250}, std::vector<float>(60000, 1.0F));
    const std::string lines = "1    60000      0     0.00025     10      0      0\n"
                              "2    60000      0     0.00025     10      0      0\n"
                              "3    60000      0     0.00025     10      0      0\n";
    const std::string printed = "TraceINDEX : 0\n" + repeated("1\n", 59999) + "0\n";
    const std::pair<off_t, std::size_t> cases[] = {
        {0, 0},      {1, 0},      {239, 0},    {240, 0},    {240236, 0}, {240239, 0}, {240240, 1},
        {240241, 1}, {262491, 1}, {300000, 1}, {480479, 1}, {480480, 2}, {480720, 2}, {720719, 2},
    };
    for (const auto &[from, traces] : cases) {
        for (const bool isPrinted : {true, false}) {
            SCOPED_TRACE(std::to_string(from) + (isPrinted ? " printed" : ""));
            const TemporaryFolder folder;
            damage(folder.write("line.su", repeated(trace, 3)), from);
            const Made made = convertIn(folder, isPrinted);
            ASSERT_NE(made.report.failure, std::nullopt);
            EXPECT_TRUE(made.report.failure->text.ends_with(systemText(EIO)))
                << made.report.failure->text;
            EXPECT_EQ(made.report.result, 0);
            EXPECT_EQ(made.report.printed, traces == 0 ? "EXCEPTION!\n" : "");
            EXPECT_EQ(made.listing, listingHeading + lines.substr(0, traces * lines.size() / 3));
            ASSERT_EQ(made.seg2.empty(), traces == 0);
            if (traces != 0) {
                EXPECT_EQ(parseSeg2(made.seg2).traces.size(), traces);
            }
            EXPECT_EQ(made.progress.size() / printed.size(), isPrinted ? traces : 0);
            EXPECT_TRUE(made.progress.starts_with(traces > 0 && isPrinted ? printed : ""));
        }
    }
}

TEST(SuStreaming, AReadThatFailsOnceEndsTheTraces)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    // Before the first header, within the first trace, and before the second one.
    const std::size_t expected[] = {0, 0, 1};
    for (int before = 0; before < 3; ++before) {
        SCOPED_TRACE(before);
        damage(path, 0);
        damaged.readsBefore = before;
        damaged.recovers = true;
        std::vector<SuTrace> traces;
        CapturedStreams streams;
        readSuFile(path, traces);
        streams.finish();
        EXPECT_EQ(damaged.from, never); // it did fail
        EXPECT_EQ(traces.size(), expected[before]);
        EXPECT_EQ(streams.error, "");
    }
}

TEST(SuStreaming, ReadErrorOfARecordThatIsHeld)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    std::filesystem::create_symlink("line.su", folder.path("line.seg2"));
    damage(path, 300);
    const Made made = convertIn(folder, false);
    EXPECT_EQ(made.report.failure, (Failure{{path}, systemText(EIO)}));
    EXPECT_EQ(made.listing, listingHeading + "1    3      0     0.00025     10      0      0\n");
    EXPECT_EQ(parseSeg2(made.seg2).traces.size(), 1U);
}

TEST(SuStreaming, RecordThatBecomesShorterMeanwhile)
{
    /// Cuts a file when the first trace is printed.
    struct Cutter : std::stringbuf
    {
        std::string path;
        int sync() override
        {
            std::filesystem::resize_file(path, 400);
            return 0;
        }
    };
    const TemporaryFolder folder;
    Cutter cutter;
    cutter.path = folder.write("line.su", twoTraces);
    std::ostream progress(&cutter);
    Report report;
    EXPECT_FALSE(convertSu(cutter.path, folder.path("line_tmp"), folder.path("line.seg2"),
                           &progress, report));
    EXPECT_EQ(report.failure,
              (Failure{{cutter.path}, "trace 2 cannot be read: the file has become shorter"}));
    EXPECT_EQ(report.result, 0);
    EXPECT_EQ(report.printed, "");
    EXPECT_EQ(cutter.str(), "opening su file " + cutter.path + "\nTraceINDEX : 0\n1.5\n-2\n0\n");
    EXPECT_EQ(readFile(folder.path("line_tmp")),
              listingHeading + "1    3      0     0.00025     10      0      0\n");
    EXPECT_EQ(parseSeg2(readFile(folder.path("line.seg2"))).traces.size(), 1U);
}

TEST(SuStreaming, DevicesAsOutputs)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    Report report;
    EXPECT_TRUE(convertSu(path, folder.path("line_tmp"), "/dev/null", nullptr, report));
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
    // Nothing is read back: neither strings nor traces.
    EXPECT_FALSE(convertSu(path, "/dev/null", folder.path("line.seg2"), nullptr, report));
    EXPECT_EQ(report.failure, (Failure{{path}, "no trace can be read back from the listing"}));
    EXPECT_EQ(report.result, 0);
    EXPECT_EQ(readFile(folder.path("line.seg2")),
              bytes("55 3A 00 00 00 00 00 00 01 00 20 01 0A 20 '                  '"
                    "04 00 ' ' 00 00 00 '  '"));
}
