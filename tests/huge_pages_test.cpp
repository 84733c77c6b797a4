// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/huge_pages.h"
#include "seg2/su_conversion.h"

#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

/// Kilobytes of the heap that are asked for as huge pages.
std::size_t hugeHeap()
{
    std::ifstream smaps("/proc/self/smaps");
    std::string line;
    bool isHeap = false;
    std::size_t size = 0;
    std::size_t total = 0;
    while (std::getline(smaps, line)) {
        if (line.find('-') < line.find(' ')) // a range of addresses
            isHeap = line.ends_with("[heap]");
        else if (line.starts_with("Size:"))
            size = std::stoul(line.substr(5));
        else if (isHeap && line.starts_with("VmFlags:") && line.find(" hg") != std::string::npos)
            total += size;
    }
    return total;
}

/// Takes 80 MB as that many traces, for which the heap grows five times, by 16 MB or more.
void takeMemory(std::size_t traceCount)
{
    std::vector<std::vector<double>> traces;
    for (std::size_t i = 0; i < traceCount; ++i) {
        useHugePages();
        traces.emplace_back(10'000'000 / traceCount);
    }
    EXPECT_GE(hugeHeap(), 80U * 1024) << traceCount << " traces";
}

/// Kilobytes of memory that the process holds.
long residentSize()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != "VmRSS:") { }
    long size = 0;
    status >> size;
    return size;
}

class HugePages : public testing::Test
{
    void SetUp() override
    {
#if !defined(__GLIBC__) || defined(__SANITIZE_ADDRESS__)
        GTEST_SKIP() << "the heap is not the C library's";
#endif
        if (!std::filesystem::exists("/sys/kernel/mm/transparent_hugepage"))
            GTEST_SKIP() << "the system has none";
    }
};

} // namespace

TEST_F(HugePages, HoldTheTracesOfALargeFile)
{
    takeMemory(2000);
}

TEST_F(HugePages, HoldLongTraces)
{
    takeMemory(100);
}

TEST_F(HugePages, AreGivenBackWhenTheTracesAreGone)
{
    const long before = residentSize();
    takeMemory(2000);
    giveMemoryBack();
    EXPECT_LT(residentSize() - before, 8 * 1024);
    takeMemory(100); // the next file's
}

TEST_F(HugePages, HeapIsTheDefaultOneAfterwards)
{
    useHugePages();
    giveMemoryBack();
    const void *const end = sbrk(0);
    const std::vector<char> large(1 << 20); // taken apart from the heap
    EXPECT_EQ(sbrk(0), end);
}

TEST_F(HugePages, AreGivenBackAfterAConversion)
{
    std::string trace(240 + 4 * 5000, '\0');
    trace[114] = '\x88'; // 5000 samples
    trace[115] = '\x13';
    const TemporaryFolder folder;
    std::string file;
    for (int i = 0; i < 400; ++i)
        file += trace;
    folder.write("line.su", file);
    const long before = residentSize();
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(folder.path("line.su")), 0);
    const long after = residentSize();
    streams.finish();
    EXPECT_LT(after - before, 8 * 1024);
}
