// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <csignal>
#include <sys/resource.h>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

/// The low `size` bytes of a number, in the file's order.
std::string inOrder(std::uint32_t number, std::size_t size, std::endian order)
{
    std::string text;
    for (std::size_t i = 0; i < size; ++i)
        text += static_cast<char>(number >> (8 * i));
    if (order == std::endian::big)
        std::reverse(text.begin(), text.end());
    return text;
}

/// A trace of a Seismic Unix file: the source at 5 m, an interval of 1 ms.
std::string suTrace(std::uint32_t receiverX, const std::vector<float> &samples,
                    std::endian order = std::endian::little)
{
    std::string trace(240, '\0');
    trace.replace(72, 4, inOrder(5, 4, order));
    trace.replace(80, 4, inOrder(receiverX, 4, order));
    trace.replace(114, 2, inOrder(static_cast<std::uint32_t>(samples.size()), 2, order));
    trace.replace(116, 2, inOrder(1000, 2, order));
    for (const float sample : samples)
        trace += inOrder(std::bit_cast<std::uint32_t>(sample), 4, order);
    return trace;
}

/// Two traces of three samples.
const std::string suFile = suTrace(10, {1.5F, -2.0F, 7.0F}) + suTrace(20, {0.25F, 100.0F, 9.0F});

const std::string suListing = listingHeading
                              + "1    3      0     0.001     10      0      0\n"
                                "2    3      0     0.001     20      0      0\n";

const char suEcho[] = "TraceINDEX : 0\n1.5\n-2\n0\nTraceINDEX : 1\n0.25\n100\n0\n";

const std::string suSeg2 = bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 " + blanks18 // 0
                                 + "54 00 00 00 F8 00 00 00 "                            // 32
                                 + fileStrings
                                 + "'  ' " // 40
                                 // 84
                                 + "22 44 98 00 0C 00 00 00 03 00 00 00 04 " + blanks19
                                 + "0A 00 'DELAY 0' 00 "
                                   "15 00 'DESCALING_FACTOR 1' 00 "
                                   "1B 00 'RECEIVER_LOCATION 10 0 0' 00 "
                                   "18 00 'SAMPLE_INTERVAL 0.001' 00 "
                                   "18 00 'SOURCE_LOCATION 5 0 0' 00 "
                                   "0A 00 'STACK 1' 00 "
                                   "00 00 '  ' "
                                   "00 00 C0 3F  00 00 00 C0  00 00 00 00 "
                                 // 248
                                 + "22 44 98 00 0C 00 00 00 03 00 00 00 04 " + blanks19
                                 + "0A 00 'DELAY 0' 00 "
                                   "15 00 'DESCALING_FACTOR 1' 00 "
                                   "1B 00 'RECEIVER_LOCATION 20 0 0' 00 "
                                   "18 00 'SAMPLE_INTERVAL 0.001' 00 "
                                   "18 00 'SOURCE_LOCATION 5 0 0' 00 "
                                   "0A 00 'STACK 1' 00 "
                                   "00 00 '  ' "
                                   "00 00 80 3E  00 00 C8 42  00 00 00 00");

/// A folder with a record and its older outputs.
struct OlderRecord : BatchFolder
{
    explicit OlderRecord(const std::string &su = suFile)
    {
        write("line.su", su);
        write("line.seg2", "older record");
        write("line_tmp", "older listing");
    }
};

/// Expects that the record does not convert, for the reason told in one line, and that its older
/// outputs stay.
void expectRefused(const BatchFolder &folder, const std::string &reason,
                   const std::function<void()> &inChild = {})
{
    const Names before = folder.names();
    EXPECT_EQ(folder.run({"su", "line.su"}, inChild), (BatchRun{1, "", reason + '\n'}));
    EXPECT_EQ(readFile(folder.path("line.seg2")), "older record") << reason;
    EXPECT_EQ(readFile(folder.path("line_tmp")), "older listing") << reason;
    EXPECT_EQ(folder.names(), before);
}

bool isUnfinished(const std::string &name)
{
    return name.find(".part-") != std::string::npos;
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

TEST(BatchSeismicUnix, OlderRecordIsReplacedAndKeepsItsPermissions)
{
    const OlderRecord folder;
    fs::permissions(folder.path("line.seg2"), fs::perms(0604));
    EXPECT_EQ(folder.run({"su", "line.su"}), BatchRun{});
    EXPECT_EQ(readFile(folder.path("line_tmp")), suListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), suSeg2);
    EXPECT_EQ(fs::status(folder.path("line.seg2")).permissions(), fs::perms(0604));
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
                        "empty.su: no trace found: the file is empty\n"}));
    EXPECT_EQ(readFile(folder.path("a.seg2")), suSeg2);
    EXPECT_EQ(readFile(folder.path("d.seg2")), suSeg2);
    EXPECT_EQ(folder.names(),
              (Names{"a.seg2", "a.su", "a_tmp", "d.seg2", "d.su", "d_tmp", "empty.su"}));
}

TEST(BatchSeismicUnix, ProgressOfTheConversionOnlyWithEcho)
{
    const BatchFolder folder;
    folder.write("a.su", suFile);
    folder.write("b.su", suTrace(0, {3.0F, 1.0F}));
    EXPECT_EQ(folder.run({"su", "a.su", "b.su"}), BatchRun{});
    EXPECT_EQ(folder.run({"su", "--echo", "a.su", "b.su"}),
              (BatchRun{0, std::string("opening su file a.su\n") + suEcho
                               + "opening su file b.su\nTraceINDEX : 0\n3\n0\n"}));
}

TEST(BatchSeismicUnix, FilesThatHoldNoTrace)
{
    const std::vector<float> samples = {1.0F, 2.0F, 3.0F, 4.0F};
    const std::string bigEndian = suTrace(10, samples, std::endian::big);
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "no trace found: the file is empty"},
        {suFile.substr(0, 250), "no trace found: 250 bytes are no whole number of traces of 252 "
                                "bytes"},
        {std::string(7, 'x'), "no trace found: 7 bytes are no whole number of traces of 240 bytes"},
        {bigEndian + bigEndian,
         "no trace found: 512 bytes are no whole number of traces of 4336 bytes; the file is "
         "big-endian: 2 traces of 256 bytes"},
        // Large enough for a trace as it would be read.
        {[&] {
             std::string text;
             for (int i = 0; i < 17; ++i)
                 text += bigEndian;
             return text;
         }(),
         "4352 bytes are no whole number of traces of 4336 bytes; the file is big-endian: 17 "
         "traces of 256 bytes"},
    };
    for (const auto &[text, reason] : cases)
        expectRefused(OlderRecord(text), "line.su: " + reason);
}

TEST(BatchSeismicUnix, BytesBehindTheLastTraceAreRemarkedOn)
{
    const BatchFolder folder;
    folder.write("line.su", suFile + "12345");
    EXPECT_EQ(folder.run({"su", "line.su"}),
              (BatchRun{0, "",
                        "line.su: 509 bytes are no whole number of traces of 252 bytes: the last 5 "
                        "are left out\n"}));
    EXPECT_EQ(readFile(folder.path("line.seg2")), suSeg2);
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
}

TEST(BatchSeismicUnix, InputThatIsItsOwnOutputIsRefused)
{
    const BatchFolder folder;
    folder.write("x.seg2", suFile);
    folder.write("y_tmp", suFile);
    fs::create_symlink("x.seg2", folder.path("x.su"));
    fs::create_hard_link(folder.path("y_tmp"), folder.path("y.su"));
    const Names before = folder.names();
    for (const std::string input : {"x.seg2", "./x.seg2", "x.su", "y.su"}) {
        EXPECT_EQ(folder.run({"su", input}),
                  (BatchRun{1, "", input + ": the output would replace this input\n"}));
        EXPECT_EQ(readFile(folder.path(input)), suFile);
        EXPECT_EQ(folder.names(), before) << input;
    }
}

TEST(BatchSeismicUnix, OutputsThatCannotBeWritten)
{
    const std::string folderText = ": " + systemText(EISDIR) + '\n';
    for (const std::string output : {"line.seg2", "line_tmp"}) {
        const BatchFolder folder;
        folder.write("line.su", suFile);
        fs::create_directory(folder.path(output));
        EXPECT_EQ(folder.run({"su", "line.su"}), (BatchRun{1, "", output + folderText}));
        EXPECT_EQ(folder.names().size(), 2U) << output;
    }
}

TEST(BatchSeismicUnix, RecordThatMayNotGrowKeepsTheOlderOne)
{
    const OlderRecord folder(suTrace(10, std::vector<float>(10000, 1.0F)));
    expectRefused(folder, "line.seg2: " + systemText(EFBIG), [] {
        const rlimit limit = {4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        signal(SIGXFSZ, SIG_IGN);
    });
}

TEST(BatchSeismicUnix, InterruptWhileConverting)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        SCOPED_TRACE(signal);
        const OlderRecord folder(suTrace(10, std::vector<float>(60000, 1.0F)));
        const Names before = folder.names();
        QProcess process;
        folder.start(process, {"su", "--echo", "line.su"});
        // The samples are more than a pipe holds: the command waits until they are read.
        EXPECT_TRUE(waitUntil([&] {
            const Names names = folder.names();
            return std::count_if(names.begin(), names.end(), isUnfinished) == 2;
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
    const OlderRecord folder(suTrace(10, std::vector<float>(60000, 1.0F)));
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
    folder.write("line.dat", suTrace(30, {1.0F, 2.0F}));
    EXPECT_EQ(folder.run({"su", "line.su", "line.dat"}),
              (BatchRun{1, "", "line.dat: the output would replace that of an input before\n"}));
    EXPECT_EQ(readFile(folder.path("line.seg2")), suSeg2);
    EXPECT_EQ(readFile(folder.path("line_tmp")), suListing);
    EXPECT_EQ(folder.run({"su", "line.su", "./line.su"}),
              (BatchRun{1, "", "./line.su: the output would replace that of an input before\n"}));
}

TEST(BatchSeismicUnix, EchoThatCannotBeWrittenIsAFailure)
{
    const BatchFolder folder;
    folder.write("line.su", suFile);
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    folder.start(process, {"su", "line.su", "--echo"});
    EXPECT_EQ(finish(process), (BatchRun{1, "", "standard output: cannot be written\n"}));
}
