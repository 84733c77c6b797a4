// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/convertible_files.h"
#include "tests/support/odd_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <sys/resource.h>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

const char suEcho[] = "TraceINDEX : 0\n1\n-2\n0\nTraceINDEX : 1\n0.5\n4\n0\n";

/// A folder with a record and its older outputs.
struct OlderRecord : BatchFolder
{
    explicit OlderRecord(const std::string &record = suFile)
    {
        write("line.su", record);
        write("line.seg2", "older record");
        write("line_tmp", "older listing");
    }
};

/// Expects that the record is refused with the line, and that its older outputs stay.
void expectRecordRefused(const OlderRecord &folder, const std::string &line,
                         const std::function<void()> &inChild = {})
{
    expectRefused(folder, {"su", "line.su"}, line, inChild);
}

/// Expects that the record converts with the line on the standard error stream, and that it is
/// refused with --strict, after the same line.
void expectRemark(const std::string &record, const std::string &line)
{
    SCOPED_TRACE(line);
    const OlderRecord folder(record);
    expectRefused(folder, {"su", "line.su", "--strict"},
                  line + "\nline.su: nothing is made: --strict takes no remarks");
    EXPECT_EQ(folder.run({"su", "line.su"}), (BatchRun{0, "", line + '\n'}));
    EXPECT_EQ(folder.names(), (Names{"line.seg2", "line.su", "line_tmp"}));
    EXPECT_NE(readFile(folder.path("line_tmp")), "older listing");
    EXPECT_TRUE(readFile(folder.path("line.seg2")).starts_with("\x55\x3a"));
}

constexpr std::size_t secondTrace = 252; // where it begins

/// The record with the bytes from `at` on replaced.
std::string with(std::size_t at, const std::string &bytes, std::string record = suFile)
{
    return record.replace(at, bytes.size(), bytes);
}

/// A record of one trace of this many samples, all 0.
std::string oneLongTrace(std::uint32_t samples)
{
    return with(114, inOrder(samples, 2), suFile.substr(0, 240)) + std::string(4 * samples, '\0');
}

/// Two traces of three samples in the other byte order.
std::string bigEndianFile()
{
    std::string trace(252, '\0');
    trace[29] = 1; // the trace's kind
    trace[115] = 3;
    trace[117] = 100;
    return trace + trace;
}

} // namespace

TEST(BatchSeismicUnix, RecordAndListing)
{
    const BatchFolder folder;
    folder.write("line.su", suFile);
    EXPECT_EQ(folder.run({"su", "line.su"}), BatchRun{});
    EXPECT_EQ(readFile(folder.path("line_tmp")), suListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), suSeg2);
    EXPECT_EQ(folder.names(), (Names{"line.seg2", "line.su", "line_tmp"}));
    EXPECT_EQ(folder.run({"su", "line.su", "--strict"}), BatchRun{});
}

TEST(BatchSeismicUnix, OutputsLieBesideTheInput)
{
    const BatchFolder folder;
    const BatchFolder elsewhere;
    fs::create_directory(folder.path("größte Linie.2"));
    folder.write("größte Linie.2/a.b.su", suFile);
    elsewhere.write("line", suFile);
    EXPECT_EQ(folder.run({"su", "größte Linie.2/a.b.su", elsewhere.path("line")}), BatchRun{});
    EXPECT_EQ(readFile(folder.path("größte Linie.2/a.b.seg2")), suSeg2);
    EXPECT_EQ(readFile(folder.path("größte Linie.2/a.b_tmp")), suListing);
    EXPECT_EQ(readFile(elsewhere.path("line.seg2")), suSeg2);
    EXPECT_EQ(readFile(elsewhere.path("line_tmp")), suListing);
    EXPECT_EQ(folder.names(), Names{"größte Linie.2"});
    EXPECT_EQ(elsewhere.names(), (Names{"line", "line.seg2", "line_tmp"}));
}

TEST(BatchSeismicUnix, EveryRecordIsTriedAfterOneFailed)
{
    const BatchFolder folder;
    folder.write("a.su", suFile);
    folder.write("empty.su", "");
    folder.write("d.su", suFile);
    EXPECT_EQ(folder.run({"su", "a.su", "b.su", "empty.su", "d.su"}),
              (BatchRun{1, "",
                        "b.su: no such file\n"
                        "empty.su: the file is empty\n"}));
    EXPECT_EQ(readFile(folder.path("a.seg2")), suSeg2);
    EXPECT_EQ(readFile(folder.path("d.seg2")), suSeg2);
    EXPECT_EQ(folder.names(),
              (Names{"a.seg2", "a.su", "a_tmp", "d.seg2", "d.su", "d_tmp", "empty.su"}));
}

TEST(BatchSeismicUnix, ProgressOfTheConversionOnlyWithEcho)
{
    const BatchFolder folder;
    folder.write("a.su", suFile);
    folder.write("b.su", suFile.substr(0, secondTrace));
    EXPECT_EQ(folder.run({"su", "a.su", "b.su"}), BatchRun{});
    EXPECT_EQ(folder.run({"su", "--echo", "a.su", "b.su"}),
              (BatchRun{0, std::string("opening su file a.su\n") + suEcho
                               + "opening su file b.su\nTraceINDEX : 0\n1\n-2\n0\n"}));
}

TEST(BatchSeismicUnix, FilesThatAreNoRecords)
{
    const std::string bigEndian =
        "the file is big-endian (2 traces of 252 bytes): swap the bytes of every number first, as "
        "docs/formats/seismic_unix.md shows";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "the file is empty"},
        {suFile.substr(0, 250), "no whole trace: the file has 250 bytes, a trace 252"},
        {std::string(7, 'x'), "no whole trace: the file has 7 bytes, a trace 240"},
        {with(114, inOrder(0, 2), suFile), "the header of trace 1 says 0 samples"},
        {bigEndianFile(), bigEndian},
        {bigEndianFile() + "damaged", bigEndian},
        {suSeg2, "this is a SEG2 file, no Seismic Unix file: it needs no conversion"},
        {"C" + std::string(3199, ' ') + std::string(25, '\0') + '\5' + std::string(400, '\0'),
         "this is a SEG-Y file: save it as Seismic Unix, little-endian"},
    };
    for (const auto &[text, reason] : cases)
        expectRecordRefused(OlderRecord(text), "line.su: " + reason);
}

TEST(BatchSeismicUnix, MoreTracesThanASeg2FileCanPointTo)
{
    const OlderRecord folder(repeated(suFile, 8192)); // 16,384 traces
    expectRecordRefused(folder, "line.su: 16384 traces, and a SEG2 file can point to 16383: split "
                                "the record");
    folder.write("line.su", repeated(suFile, 8192).substr(secondTrace));
    EXPECT_EQ(folder.run({"su", "line.su", "--strict"}), (BatchRun{0, "", ""}));
}

TEST(BatchSeismicUnix, PositionsAndTimesThatAreLost)
{
    expectRemark(with(secondTrace + 70, "\x9c\xff", with(70, "\x9c\xff")),
                 "line.su: trace 1 and 1 more: the coordinate scalar -100 makes the positions 0; "
                 "give them in whole metres, with the scalar 1");
    expectRemark(
        with(secondTrace + 72, inOrder(200, 4)),
        "line.su: trace 2: the source is at 2000, that of trace 1 at 1000, which is written "
        "for all; split the record");
    expectRemark(with(108, inOrder(20, 2)), "line.su: trace 1: the delay of 20 ms becomes 0");
    expectRemark(with(40, inOrder(7, 4)), "line.su: trace 1: the elevations become 0");
    expectRemark(with(secondTrace + 44, inOrder(7, 4)),
                 "line.su: trace 2: the elevations become 0");
    expectRemark(with(84, inOrder(7, 4)), "line.su: trace 1: the y coordinates become 0");
}

TEST(BatchSeismicUnix, TracesThatDifferAndSamplesThatAreNone)
{
    expectRemark(with(secondTrace + 114, inOrder(4, 2)),
                 "line.su: trace 2: 4 samples, but trace 1 has 3, and all are read like it");
    expectRemark(with(secondTrace + 116, inOrder(500, 2)),
                 "line.su: trace 2: an interval of 500 microseconds, but trace 1 has 250, which is "
                 "written for all");
    expectRemark(with(116, inOrder(0, 2), with(secondTrace + 116, inOrder(0, 2))),
                 "line.su: trace 1: the sample interval is 0");
    expectRemark(with(secondTrace + 244, inOrder(0x7f800000, 4)),
                 "line.su: trace 2: sample 2 is not a finite number");
    expectRemark(suFile + "12345", "line.su: 5 bytes after the last whole trace: not read");
}

TEST(BatchSeismicUnix, StrictRefusesARecordAndConvertsTheNext)
{
    const OlderRecord folder(suFile + "1");
    folder.write("next.su", suFile);
    EXPECT_EQ(folder.run({"su", "line.su", "next.su", "--strict"}),
              (BatchRun{1, "",
                        "line.su: 1 byte after the last whole trace: not read\n"
                        "line.su: nothing is made: --strict takes no remarks\n"}));
    EXPECT_EQ(readFile(folder.path("line.seg2")), "older record");
    EXPECT_EQ(readFile(folder.path("line_tmp")), "older listing");
    EXPECT_EQ(readFile(folder.path("next.seg2")), suSeg2);
    EXPECT_EQ(readFile(folder.path("next_tmp")), suListing);
}

TEST(BatchSeismicUnix, InputsThatCannotBeRead)
{
    const BatchFolder folder;
    fs::create_directory(folder.path("folder.su"));
    fs::create_directory(folder.path("L.ADT"));
    EXPECT_EQ(folder.run({"su", "folder.su", "missing/line.su"}),
              (BatchRun{1, "", "folder.su: this is a folder\nmissing/line.su: no such file\n"}));
    EXPECT_EQ(folder.run({"dolang", "L.ADT", "missing"}),
              (BatchRun{1, "", "L.ADT: this is a folder\nmissing.ADT: no such file\n"}));
    EXPECT_EQ(folder.names(), (Names{"L.ADT", "folder.su"}));
    fs::create_symlink("loop", folder.path("loop"));
    expectRefused(folder, {"su", "loop"}, "loop: " + systemText(ELOOP));
}

TEST(BatchSeismicUnix, WorkingFolderThatIsGone)
{
    const BatchFolder folder;
    folder.write("line.su", suFile);
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(folder.path("")));
    process.start("sh", {"-c", "mkdir gone && cd gone && rmdir ../gone && \"$0\" su a.su \"$1\"",
                         BATCH_COMMAND, QString::fromStdString(folder.path("line.su"))});
    EXPECT_EQ(finish(process), (BatchRun{1, "", "a.su: no such file\n"}));
    EXPECT_EQ(readFile(folder.path("line.seg2")), suSeg2);
}

TEST(BatchSeismicUnix, InputThatIsItsOwnOutputIsRefused)
{
    const BatchFolder folder;
    folder.write("x.seg2", suFile);
    folder.write("y_tmp", suFile);
    fs::create_symlink("x.seg2", folder.path("x.su"));
    fs::create_hard_link(folder.path("y_tmp"), folder.path("y.su"));
    for (const std::string input : {"x.seg2", "./x.seg2", "x.su", "y.su"})
        expectRefused(folder, {"su", input}, input + ": the output would replace this input");
}

TEST(BatchSeismicUnix, OutputsThatAreFolders)
{
    for (const std::string output : {"line.seg2", "line_tmp"}) {
        const BatchFolder folder;
        folder.write("line.su", suFile);
        fs::create_directory(folder.path(output));
        expectRefused(folder, {"su", "line.su"}, output + ": this is a folder");
    }
}

TEST(BatchSeismicUnix, RecordThatMayNotGrowKeepsTheOlderOne)
{
    expectRecordRefused(OlderRecord(oneLongTrace(10000)), "line.seg2: " + systemText(EFBIG), [] {
        const rlimit limit = {4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
    });
}

TEST(BatchSeismicUnix, InterruptWhileConverting)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        SCOPED_TRACE(signal);
        const OlderRecord folder(oneLongTrace(60000));
        const Names before = folder.names();
        QProcess process;
        folder.start(process, {"su", "--echo", "line.su"});
        // The samples are more than a pipe holds: the command waits until they are read.
        EXPECT_TRUE(waitUntil([&] {
            const Names names = folder.names();
            return std::count_if(names.begin(), names.end(), isPart) == 2;
        }));
        sendSignal(process, signal);
        EXPECT_EQ(finish(process).status, -signal);
        EXPECT_EQ(readFile(folder.path("line.seg2")), "older record");
        EXPECT_EQ(readFile(folder.path("line_tmp")), "older listing");
        EXPECT_EQ(folder.names(), before);
    }
}

TEST(BatchSeismicUnix, ReaderOfTheEchoThatGoesAway)
{
    const OlderRecord folder(oneLongTrace(60000));
    const Names before = folder.names();
    QProcess shell;
    shell.setWorkingDirectory(QString::fromStdString(folder.path("")));
    shell.start("sh", {"-c", "\"$0\" su --echo line.su | head -n 1", BATCH_COMMAND});
    EXPECT_EQ(finish(shell), (BatchRun{0, "opening su file line.su\n"}));
    EXPECT_EQ(folder.names(), before);
}

TEST(BatchSeismicUnix, OnATerminalEachRecordIsAnnounced)
{
    const BatchFolder folder;
    std::vector<std::string> arguments = {"su"};
    std::string expected;
    for (int i = 1; i <= 12; ++i) {
        const std::string name = "LINE" + std::to_string(i) + ".su";
        arguments.push_back(name);
        expected += std::to_string(i) + "/12 " + name + "\r\n";
        if (i != 3)
            folder.write(name, suFile);
        else
            expected += "LINE3.su: no such file\r\n";
    }
    const std::string shown = folder.runOnTerminal(arguments);
    if (shown == noTerminal)
        GTEST_SKIP() << shown;
    EXPECT_EQ(shown, expected);
}

TEST(BatchSeismicUnix, TwoRecordsWithOneOutputAreNotBothConverted)
{
    const BatchFolder folder;
    folder.write("line.su", suFile);
    folder.write("line.dat", suFile.substr(secondTrace));
    EXPECT_EQ(folder.run({"su", "line.su", "line.dat"}),
              (BatchRun{1, "", "line.dat: the output would replace that of an input before\n"}));
    EXPECT_EQ(readFile(folder.path("line.seg2")), suSeg2);
    EXPECT_EQ(readFile(folder.path("line_tmp")), suListing);
    EXPECT_EQ(folder.run({"su", "line.su", "./line.su"}),
              (BatchRun{1, "", "./line.su: the output would replace that of an input before\n"}));
}

TEST(BatchSeismicUnix, EchoThatCannotBeWrittenIsAFailure)
{
    const OlderRecord folder;
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    folder.start(process, {"su", "line.su", "--echo"});
    EXPECT_EQ(finish(process), (BatchRun{1, "", "standard output: cannot be written\n"}));
    EXPECT_EQ(readFile(folder.path("line.seg2")), "older record");
    EXPECT_EQ(readFile(folder.path("line_tmp")), "older listing");
}
