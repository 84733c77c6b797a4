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

/// Integers modulo 2^32: -1 is 4294967295.
struct Header
{
    std::uint32_t channelCount = 0;
    std::uint32_t delay = 0;
    std::uint32_t samplesPerChannel = 0;
    std::uint32_t samplingRate = 0; ///< samples per second
};

/// Loads a file of the set. When it cannot be opened the line on the standard error stream names
/// the set's header, whichever file it is.
TextFile load(const std::string &path, const std::string &headerPath, Problem &problem)
{
    TextFile file = loadText(path, problem);
    if (!file.isOpen) {
        tellSystemError(problem, path);
        std::cerr << "Error in reading file " + headerPath + '\n';
    }
    return file;
}

std::uint32_t nextNumber(TextFile &file, Problem &problem)
{
    std::string line;
    nextLine(file, line, problem);
    return static_cast<std::uint32_t>(toInt(line));
}

Header readHeader(TextFile &file, Problem &problem)
{
    Header header;
    std::string line;
    do
        nextLine(file, line, problem);
    while (line.starts_with('"'));
    header.channelCount = static_cast<std::uint32_t>(toInt(line));
    nextLine(file, line, problem);
    nextLine(file, line, problem);
    header.delay = nextNumber(file, problem);
    header.samplesPerChannel = nextNumber(file, problem);
    header.samplingRate = nextNumber(file, problem);
    return header;
}

/// Appends `count` samples, a line each; false when the file has fewer lines.
bool readChannel(TextFile &file, std::uint32_t count, std::vector<std::int32_t> &samples)
{
    Problem untold;
    std::string line;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (!nextLine(file, line, untold)) {
            samples.resize(samples.size() + (count - i));
            return false;
        }
        samples.push_back(toInt(line));
    }
    return true;
}

/// Reads the samples of all channels, channel after channel; false when a file cannot be opened.
/// Throws when the header asks for far more samples than the files can hold.
bool readChannels(const std::string &basePath, const DolangKind &kind, const Header &header,
                  std::vector<std::int32_t> &samples, Problem &problem)
{
    std::size_t bytes = 0;
    for (std::uint64_t channel = 1; channel <= header.channelCount; ++channel) {
        const std::string path =
            basePath + kind.channelSuffix + (channel < 10 ? "0" : "") + std::to_string(channel);
        TextFile file = load(path, basePath + kind.headerExtension, problem);
        if (!file.isOpen)
            return false;
        if (markSize(file.text) != 0)
            problem = {path, 1, "this text begins with a byte order mark", problem.remark};
        bytes += file.text.size();
        requireHoldable(samples.size() + std::uint64_t{header.samplesPerChannel}, bytes, problem);
        if (!readChannel(file, header.samplesPerChannel, samples) && problem.remark.empty())
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
    TextFile file = load(headerPath, headerPath, problem);
    if (!file.isOpen)
        return false;
    const Header header = readHeader(file, problem);
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
