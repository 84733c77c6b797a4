// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// A record's listing and its SEG2 file: both new, or both as before.

#include "tests/support/batch_command.h"
#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/small_file_system.h"

#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// What happens at one of the command's renames; see tests/support/interposed_renames.cpp.
struct RenameFault
{
    int call = 0;
    int signal = 0;
    int error = 0;
    bool fromThereOn = false;
    bool canExchange = true;
};

/// Runs the command in the folder with the fault.
BatchRun runWith(const RenameFault &fault, const BatchFolder &folder,
                 const std::vector<std::string> &arguments = {"su", "line.su"})
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const auto set = [&environment](const QString &name, int value) {
        environment.insert(name, QString::number(value));
    };
    set("RENAME_CALL", fault.call);
    set("RENAME_SIGNAL", fault.signal);
    set("RENAME_ERROR", fault.error);
    set("RENAME_ALL", fault.fromThereOn ? 1 : 0);
    set("RENAME_NO_EXCHANGE", fault.canExchange ? 0 : 1);
    environment.insert("LD_PRELOAD", INTERPOSED_RENAMES);
    // An address sanitizer otherwise insists on being loaded first.
    environment.insert("ASAN_OPTIONS",
                       environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    QProcess process;
    process.setProcessEnvironment(environment);
    folder.start(process, arguments);
    return finish(process);
}

/// A folder with a record and those of its outputs that are older.
struct Record : BatchFolder
{
    explicit Record(const std::vector<std::string> &older = {"line_tmp", "line.seg2"})
        : olderOutputs(older)
    {
        write("line.su", suFile);
        for (const std::string &name : older)
            write(name, "older");
    }

    /// Both outputs are new, and nothing else is there.
    void expectNew() const
    {
        EXPECT_EQ(readFile(path("line_tmp")), suListing);
        EXPECT_EQ(readFile(path("line.seg2")), suSeg2);
        EXPECT_EQ(names(), (std::vector<std::string>{"line.seg2", "line.su", "line_tmp"}));
    }

    /// All is as it was made.
    void expectOlder() const
    {
        std::vector<std::string> expected = olderOutputs;
        expected.push_back("line.su");
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(names(), expected);
        for (const std::string &name : olderOutputs)
            EXPECT_EQ(readFile(path(name)), "older") << name;
    }

private:
    std::vector<std::string> olderOutputs;
};

const std::vector<std::vector<std::string>> whatIsOlder = {
    {"line_tmp", "line.seg2"}, {"line_tmp"}, {"line.seg2"}, {}};

/// Makes the file that of somebody else; skipped where that cannot be done.
bool giveAway(const std::string &path)
{
    constexpr uid_t somebody = 65533;
    return chown(path.c_str(), somebody, static_cast<gid_t>(-1)) == 0;
}

/// A program started after this can neither pass by permissions nor act as the owner of all files.
void asOneOfManyUsers()
{
    asOrdinaryUser();
    prctl(PR_CAPBSET_DROP, CAP_FOWNER);
}

} // namespace

TEST(BatchPairs, SignalRightAfterARenameFindsBothNew)
{
    for (const bool canExchange : {true, false}) {
        for (const auto &older : whatIsOlder) {
            // An older listing that cannot be exchanged takes four calls, else it takes one.
            const int calls = !canExchange && !older.empty() && older[0] == "line_tmp" ? 5 : 2;
            for (int call = 1; call <= calls; ++call) {
                const int signal = std::array{SIGINT, SIGTERM, SIGHUP}.at(std::size_t(call) % 3);
                SCOPED_TRACE(testing::PrintToString(older) + ' ' + std::to_string(call)
                             + (canExchange ? "" : ", no exchange"));
                const Record record(older);
                RenameFault fault{call, signal};
                fault.canExchange = canExchange;
                const bool isRefusedExchange = calls == 5 && call == 1; // which sends no signal
                EXPECT_EQ(runWith(fault, record), BatchRun{isRefusedExchange ? 0 : -signal});
                record.expectNew();
            }
        }
    }
}

TEST(BatchPairs, RenameThatFailsLeavesBothAsBefore)
{
    const struct
    {
        bool canExchange;
        std::vector<std::string> older;
        int call;
        std::string problem; // empty where there is another way
    } cases[] = {
        {true, {"line_tmp", "line.seg2"}, 1, ""},
        {true, {"line_tmp", "line.seg2"}, 2, "line.seg2: cannot be replaced: "},
        {true, {"line_tmp"}, 1, ""},
        {true, {"line_tmp"}, 2, "line.seg2: cannot be made: "},
        {true, {"line.seg2"}, 1, "line_tmp: cannot be made: "},
        {true, {"line.seg2"}, 2, "line.seg2: cannot be replaced: "},
        {true, {}, 1, "line_tmp: cannot be made: "},
        {true, {}, 2, "line.seg2: cannot be made: "},
        // Not exchanged: the older listing aside, the new one into place, the older one kept.
        {false, {"line_tmp", "line.seg2"}, 2, "line_tmp: cannot be replaced: "},
        {false, {"line_tmp", "line.seg2"}, 3, "line_tmp: cannot be replaced: "},
        {false, {"line_tmp", "line.seg2"}, 4, "line_tmp: cannot be replaced: "},
        {false, {"line_tmp", "line.seg2"}, 5, "line.seg2: cannot be replaced: "},
        {false, {"line_tmp"}, 5, "line.seg2: cannot be made: "},
        {false, {"line.seg2"}, 2, "line.seg2: cannot be replaced: "},
    };
    for (const auto &[canExchange, older, call, problem] : cases) {
        SCOPED_TRACE(testing::PrintToString(older) + ' ' + std::to_string(call)
                     + (canExchange ? "" : ", no exchange"));
        const Record record(older);
        RenameFault fault{call, 0, EIO};
        fault.canExchange = canExchange;
        const BatchRun run = runWith(fault, record);
        if (problem.empty()) {
            EXPECT_EQ(run, BatchRun{});
            record.expectNew();
        } else {
            EXPECT_EQ(run, (BatchRun{1, "", problem + systemText(EIO) + '\n'}));
            record.expectOlder();
        }
    }
}

TEST(BatchPairs, OlderListingThatCannotBePutBackIsKeptUnderAnotherName)
{
    const Record record;
    const BatchRun run = runWith({2, 0, EIO, true}, record);
    const std::string text =
        "line.seg2: cannot be replaced: " + systemText(EIO) + "; the older line_tmp is kept as ";
    EXPECT_EQ(run.status, 1);
    ASSERT_TRUE(run.error.starts_with(text)) << run.error;
    const std::string kept = run.error.substr(text.size(), run.error.size() - text.size() - 1);
    EXPECT_EQ(readFile(record.path(kept)), "older");
    EXPECT_EQ(readFile(record.path("line_tmp")), suListing);
    EXPECT_EQ(readFile(record.path("line.seg2")), "older");
}

TEST(BatchPairs, PermissionsOfTheOlderOnes)
{
    for (const bool canExchange : {true, false}) {
        const Record record;
        fs::permissions(record.path("line_tmp"), fs::perms(0604));
        fs::permissions(record.path("line.seg2"), fs::perms(0660));
        RenameFault none;
        none.canExchange = canExchange;
        EXPECT_EQ(runWith(none, record), BatchRun{});
        record.expectNew();
        EXPECT_EQ(fs::status(record.path("line_tmp")).permissions(), fs::perms(0604));
        EXPECT_EQ(fs::status(record.path("line.seg2")).permissions(), fs::perms(0660));
    }
}

TEST(BatchPairs, OutputThatMayBeWrittenButNotReplaced)
{
    // In a folder for all, such as /tmp, a file is replaced by its owner alone.
    for (const std::string output : {"line_tmp", "line.seg2"}) {
        SCOPED_TRACE(output);
        const Record record;
        fs::permissions(record.path(""), fs::perms(01777));
        fs::permissions(record.path(output), fs::perms(0666));
        if (!giveAway(record.path("")) || !giveAway(record.path(output)))
            GTEST_SKIP() << "Files cannot be given to another user here.";
        expectRefused(record, {"su", "line.su"},
                      output + ": cannot be replaced: " + systemText(EPERM), asOneOfManyUsers);
        EXPECT_EQ(record.run({"su", "line.su"}), BatchRun{}); // as root
        record.expectNew();
    }
}

TEST(BatchPairs, DiskThatFillsUp)
{
    const BatchFolder folder;
    const SmallFileSystem disk(folder.path("disk"), 64);
    if (!disk.isMounted)
        GTEST_SKIP() << "No file system can be mounted here: " << systemText(errno);
    // The listing fits, the SEG2 file, as large as the record, does not.
    std::string header = suFile.substr(0, 240);
    header.replace(114, 2, inOrder(10000, 2));
    folder.write("disk/line.su", header + std::string(40000, '\0'));
    folder.write("disk/line_tmp", "older");
    folder.write("disk/line.seg2", "older");
    const std::uintmax_t free = fs::space(folder.path("disk")).free;
    expectRefused(folder, {"su", "disk/line.su"}, "disk/line.seg2: " + systemText(ENOSPC));
    EXPECT_EQ(fs::space(folder.path("disk")).free, free);
}

TEST(BatchPairs, DolangKindWhoseListingCannotBeReplaced)
{
    const BatchFolder folder;
    for (const std::string kind : {"A", "C", "R"}) {
        folder.write("L." + kind + "DT", "1\n-\n-\n0\n2\n1000\n");
        folder.write("L." + kind + "01", "7\n-3\n");
    }
    folder.write("tmp_CDT", "older");
    folder.write("L_CDT_dolang.seg2", "older");
    // The first kind takes two calls.
    EXPECT_EQ(
        runWith({4, 0, EIO}, folder, {"dolang", "L"}),
        (BatchRun{1, "", "L_CDT_dolang.seg2: cannot be replaced: " + systemText(EIO) + '\n'}));
    EXPECT_EQ(readFile(folder.path("L_ADT_dolang.seg2")), dolangSeg2);
    EXPECT_EQ(readFile(folder.path("tmp_CDT")), "older");
    EXPECT_EQ(readFile(folder.path("L_CDT_dolang.seg2")), "older");
    EXPECT_FALSE(exists(folder.path("tmp_RDT")));
}
