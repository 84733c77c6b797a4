// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/dolang.h"

#include "plain/listing.h"
#include "plain/text.h"

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace plain {

namespace {

/// Thrown for a file of the set that cannot be opened.
struct Missing
{
};

std::ifstream openFile(const std::string &path)
{
    std::ifstream stream(path);
    if (!stream)
        throw Missing();
    return stream;
}

struct Header
{
    std::uint32_t channelCount = 0;
    std::uint32_t delay = 0;
    std::uint32_t sampleCount = 0;
    std::uint32_t samplingRate = 0;
};

std::uint32_t nextCount(std::istream &stream)
{
    return static_cast<std::uint32_t>(integer(nextLine(stream)));
}

Header readHeader(const std::string &path)
{
    std::ifstream stream = openFile(path);
    std::string line = nextLine(stream);
    while (!line.empty() && line[0] == '"')
        line = nextLine(stream);
    Header header;
    header.channelCount = static_cast<std::uint32_t>(integer(line));
    nextLine(stream);
    nextLine(stream);
    header.delay = nextCount(stream);
    header.sampleCount = nextCount(stream);
    header.samplingRate = nextCount(stream);
    return header;
}

/// The samples of all channels, one after the other.
std::vector<std::int32_t> readChannels(const std::string &base, const std::string &kind,
                                       const Header &header)
{
    std::vector<std::int32_t> samples;
    std::uint64_t bytesRead = 0;
    for (std::uint32_t channel = 1; channel <= header.channelCount; ++channel) {
        std::ostringstream path;
        path << base << "." << kind << std::setw(2) << std::setfill('0') << channel;
        std::ifstream stream = openFile(path.str());
        bytesRead += std::filesystem::file_size(path.str());
        requireHoldable(std::uint64_t{header.sampleCount} * channel, bytesRead);
        for (std::uint32_t i = 0; i < header.sampleCount; ++i)
            samples.push_back(integer(nextLine(stream)));
    }
    return samples;
}

/// False when the conversion ends there.
bool convertKind(const std::string &base, const std::string &kind)
{
    const Header header = readHeader(base + "." + kind + "DT");
    const std::vector<std::int32_t> samples = readChannels(base, kind, header);
    const ListingTrace line{header.sampleCount, header.delay, 1.0 / header.samplingRate, 0.0};
    const std::string listing = "tmp_" + kind + "DT";
    if (!writeListing(listing, std::vector<ListingTrace>(header.channelCount, line)))
        return false;
    return convertListing(listing, base + "_" + kind + "DT_dolang.seg2", 0.0,
                          [&samples, &header](std::size_t trace, std::size_t sample) {
                              return static_cast<float>(
                                  samples.at(trace * header.sampleCount + sample));
                          });
}

} // namespace

void convertDolang(const std::string &base)
{
    for (const char *kind : {"A", "C", "R"}) {
        try {
            if (!convertKind(base, kind))
                return;
        } catch (const Missing &) {
            std::cerr << "Error in reading file " << base << "." << kind << "DT" << std::endl;
            return;
        }
    }
}

} // namespace plain
