// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/dolang_conversion.h"

#include "seg2/listing.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <utility>
#include <vector>

namespace {

struct Header
{
    std::uint32_t channelCount = 0;
    std::uint32_t delay = 0;
    std::uint32_t samplesPerChannel = 0;
    std::uint32_t samplingRate = 0; ///< samples per second
};

/// Opens a file of the set. When it cannot be opened the line on the standard error stream names
/// the set's header, whichever file it is.
std::ifstream open(const std::string &path, const std::string &headerPath, Problem &problem)
{
    std::ifstream stream = openText(path);
    if (!stream) {
        tellSystemError(problem, path);
        std::cerr << "Error in reading file " + headerPath + '\n';
    }
    return stream;
}

std::uint32_t nextNumber(std::istream &stream, Problem &problem)
{
    std::string line;
    nextLine(stream, line, problem);
    return static_cast<std::uint32_t>(toInt(line));
}

Header readHeader(std::istream &stream, Problem &problem)
{
    Header header;
    std::string line;
    do
        nextLine(stream, line, problem);
    while (line.starts_with('"'));
    header.channelCount = static_cast<std::uint32_t>(toInt(line));
    nextLine(stream, line, problem);
    nextLine(stream, line, problem);
    header.delay = nextNumber(stream, problem);
    header.samplesPerChannel = nextNumber(stream, problem);
    header.samplingRate = nextNumber(stream, problem);
    return header;
}

/// Appends `count` samples, a line each; false when the file has fewer lines.
bool readChannel(std::istream &stream, std::uint32_t count, std::vector<std::int32_t> &samples)
{
    std::string line;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (!std::getline(stream, line)) {
            samples.resize(samples.size() + (count - i));
            return false;
        }
        samples.push_back(toInt(line));
    }
    return true;
}

/// Reads the samples of all channels, channel after channel; false when a file cannot be opened.
bool readChannels(const std::string &basePath, const DolangKind &kind, const Header &header,
                  std::vector<std::int32_t> &samples, Problem &problem)
{
    for (std::uint64_t channel = 1; channel <= header.channelCount; ++channel) {
        const std::string path =
            basePath + kind.channelSuffix + (channel < 10 ? "0" : "") + std::to_string(channel);
        std::ifstream stream = open(path, basePath + kind.headerExtension, problem);
        if (!stream)
            return false;
        if (!readChannel(stream, header.samplesPerChannel, samples))
            problem.remark = path + " holds fewer than "
                             + counted(header.samplesPerChannel, "sample")
                             + ": the missing ones are 0";
    }
    return true;
}

} // namespace

void convertDolangToSeg2(std::string basePath)
{
    Problem untold;
    for (const DolangKind &kind : dolangKinds) {
        if (!convertDolangKind(basePath, kind, kind.listingName, basePath + kind.seg2Ending,
                               untold))
            return;
    }
}

bool convertDolangKind(const std::string &basePath, const DolangKind &kind,
                       const std::string &listingPath, const std::string &seg2Path,
                       Problem &problem)
{
    const std::string headerPath = basePath + kind.headerExtension;
    problem = {headerPath};
    std::ifstream stream = open(headerPath, headerPath, problem);
    if (!stream)
        return false;
    const Header header = readHeader(stream, problem);
    stream.close();
    const std::size_t rateLine = std::exchange(problem.line, 0);
    if (header.channelCount == 0)
        problem.remark = "no channels";

    std::vector<std::int32_t> samples;
    if (!readChannels(basePath, kind, header, samples, problem))
        return false;

    const ListingTrace line{header.samplesPerChannel, header.delay, 1.0 / header.samplingRate};
    if (!writeListing(listingPath, std::vector(header.channelCount, line), problem))
        return false;

    const auto channelSamples = [&samples](std::size_t index, std::uint32_t count) {
        const std::size_t first = std::min(index * count, samples.size());
        const std::size_t last = std::min(first + count, samples.size());
        return std::vector<float>(samples.data() + first, samples.data() + last);
    };
    if (!convertListing(listingPath, seg2Path, 0.0, channelSamples, problem))
        return false;

    // Its interval, infinite in the listing, cannot be read back.
    if (header.samplingRate == 0 && header.channelCount > 0 && problem.detail.empty())
        problem = {headerPath, rateLine, "sampling rate 0", problem.remark};
    return true;
}
