// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/huge_pages.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
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

/// Takes 80 MB as that many traces, for which the heap grows twice, by 64 MB or more.
void takeMemory(std::size_t traceCount)
{
    std::vector<std::vector<double>> traces;
    for (std::size_t i = 0; i < traceCount; ++i) {
        useHugePages();
        traces.emplace_back(10'000'000 / traceCount);
    }
    EXPECT_GE(hugeHeap(), 120U * 1024) << traceCount << " traces";
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
