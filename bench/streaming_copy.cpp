// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// streaming_copy INPUT OUTPUT: reads a little-endian Seismic Unix file trace by trace and writes
// the samples of all traces to one file. The least that a conversion of the record can do.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <vector>

namespace {

constexpr std::size_t headerSize = 240;
constexpr std::size_t sampleCountOffset = 114;

bool copySamples(std::istream &input, std::ostream &output)
{
    std::vector<char> header(headerSize);
    std::vector<char> samples;
    while (input.read(header.data(), headerSize)) {
        if (samples.empty()) {
            std::uint16_t sampleCount = 0;
            std::memcpy(&sampleCount, header.data() + sampleCountOffset, sizeof sampleCount);
            samples.resize(std::size_t{4} * sampleCount);
        }
        const auto size = static_cast<std::streamsize>(samples.size());
        if (!input.read(samples.data(), size) || !output.write(samples.data(), size))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::cerr << "streaming_copy INPUT OUTPUT\n";
        return 2;
    }
    std::ifstream input(argv[1], std::ios::binary);
    std::ofstream output(argv[2], std::ios::binary);
    return input && output && copySamples(input, output) && output.flush() ? EXIT_SUCCESS
                                                                           : EXIT_FAILURE;
}
