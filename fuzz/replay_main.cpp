// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

// Runs a fuzz target, without a fuzzer, on each file of the folder given. The file named last is
// the one that ended it.
int main(int argc, char *argv[])
{
    std::set<std::filesystem::path> paths;
    if (argc == 2)
        for (const auto &entry : std::filesystem::directory_iterator(argv[1]))
            paths.insert(entry.path());
    for (const std::filesystem::path &path : paths) {
        std::cerr << path.string() << std::endl;
        std::ifstream stream(path, std::ios::binary);
        const std::string input(std::istreambuf_iterator<char>(stream), {});
        if (!stream)
            return 1;
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
    }
    if (paths.empty())
        std::cerr << "no folder with inputs is given" << std::endl;
    return paths.empty() ? 1 : 0;
}
