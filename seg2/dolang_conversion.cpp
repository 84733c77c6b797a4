// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/dolang_conversion.h"

#include "seg2/listing.h"
#include "seg2/progress.h"
#include "traveltime/fields.h"
#include "traveltime/text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

/// Integers modulo 2^32: -1 is 4294967295.
struct Header
{
    std::uint32_t channelCount = 0;
    std::uint32_t delay = 0;
    std::uint32_t samplesPerChannel = 0;
    Place samplesPlace = {};        ///< of their number
    std::uint32_t samplingRate = 0; ///< samples per second
};

/// Loads a file of the set. When it cannot be opened, the line that is printed names the header,
/// whichever file it is.
TextFile load(const std::string &path, const std::string &headerPath, Report &report)
{
    TextFile file = loadText(path, report);
    if (!file.isOpen) {
        failInSystem(report, path);
        print(report, "Error in reading file " + headerPath);
    }
    const std::size_t mark = markSize(file.text);
    if (mark == 2)
        fail(report, {path, 1}, "this text is in UTF-16: save it as UTF-8", Window::goesOn);
    else if (mark != 0)
        fail(report, {path, 1}, "this text begins with a byte order mark: save it without one",
             Window::goesOn);
    return file;
}

/// Reads the number that the header has next.
std::uint32_t readCount(TextFile &file, const std::string &name, Report &report)
{
    std::string line;
    const bool isThere = nextLine(file, line, report);
    const auto count = static_cast<std::uint32_t>(toInt(line));
    if (isThere)
        remarkUnlessWhole(line, count, report);
    else
        fail(report, "the header ends before its " + name, Window::goesOn);
    return count;
}

/// The same for a number that must not be 0.
std::uint32_t readPositiveCount(TextFile &file, const std::string &name, Report &report)
{
    const std::uint32_t count = readCount(file, name, report);
    if (count == 0)
        fail(report, "the " + name + " is 0", Window::goesOn);
    return count;
}

Header readHeader(TextFile &file, Report &report)
{
    Header header;
    std::string line;
    while (file.text.substr(file.position, 1) == "\"")
        nextLine(file, line, report);
    header.channelCount = readPositiveCount(file, "number of channels", report);
    nextLine(file, line, report);
    nextLine(file, line, report);
    header.delay = readCount(file, "delay", report);
    header.samplesPerChannel = readPositiveCount(file, "number of samples", report);
    header.samplesPlace = report.place;
    header.samplingRate = readPositiveCount(file, "sampling rate", report);
    return header;
}

std::int32_t readSample(const std::string &line, Report &report)
{
    std::int32_t sample = 0;
    const char *const last = line.data() + line.size() - (line.ends_with('\r') ? 1 : 0);
    const auto [end, error] = std::from_chars(line.data(), last, sample);
    return error == std::errc() && end == last ? sample : readInteger(line, report);
}

/// Appends `count` samples, a line each; those that the file lacks are 0.
void readChannel(TextFile &file, std::uint32_t count, std::vector<std::int32_t> &samples,
                 Report &report)
{
    std::string line;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (!nextLine(file, line, report)) {
            samples.resize(samples.size() + (count - i));
            remark(report, RemarkKind::samples,
                   "the file ends after " + std::to_string(i) + " of " + counted(count, "sample")
                       + ": the missing ones are 0");
            return;
        }
        samples.push_back(readSample(line, report));
    }
    const Rest rest =
        readRest([&](std::string &next) { return nextLine(file, next, report); }, " \t\r", report);
    if (rest.lineCount > 0)
        remark(report, RemarkKind::notRead, rest.first,
               counted(rest.lineCount, "line") + " after the last sample: not read");
}

/// Reads the samples of all channels, channel after channel; false when a file cannot be opened.
/// Throws when the header asks for far more samples than the files can hold.
bool readChannels(const std::string &basePath, const DolangKind &kind, const Header &header,
                  std::vector<std::int32_t> &samples, Report &report)
{
    std::size_t bytes = 0;
    for (std::uint64_t channel = 1; channel <= header.channelCount; ++channel) {
        const std::string path =
            basePath + kind.channelSuffix + (channel < 10 ? "0" : "") + std::to_string(channel);
        TextFile file = load(path, basePath + kind.headerExtension, report);
        if (!file.isOpen)
            return false;
        bytes += file.text.size();
        const Place place = std::exchange(report.place, header.samplesPlace);
        requireHoldable(samples.size() + std::uint64_t{header.samplesPerChannel}, bytes, report);
        report.place = place;
        readChannel(file, header.samplesPerChannel, samples, report);
    }
    return true;
}

RecordSamples samplesOf(const std::vector<std::int32_t> &samples)
{
    const auto available = [&samples](std::size_t index, std::uint32_t count) {
        const std::size_t first = std::min(index * count, samples.size());
        return static_cast<std::uint32_t>(std::min<std::size_t>(count, samples.size() - first));
    };
    const auto read = [&samples, available](std::size_t index, std::uint32_t count) {
        const std::int32_t *const first = samples.data() + std::min(index * count, samples.size());
        return std::vector<float>(first, first + available(index, count));
    };
    return {available, read};
}

} // namespace

void convertDolangToSeg2(std::string basePath)
{
    for (const DolangKind &kind : dolangKinds) {
        Report report = windowReport();
        convertDolang(basePath, kind, kind.listingName, basePath + kind.seg2Ending,
                      standardProgress(), report);
        if (finish(report) != 0)
            return;
    }
}

bool convertDolang(const std::string &basePath, const DolangKind &kind,
                   const std::string &listingPath, const std::string &seg2Path,
                   std::ostream *progress, Report &report)
{
    return attempt(report, [&] {
        const std::string headerPath = basePath + kind.headerExtension;
        TextFile file = load(headerPath, headerPath, report);
        if (!file.isOpen)
            return;
        const Header header = readHeader(file, report);
        std::vector<std::int32_t> samples;
        if (!readChannels(basePath, kind, header, samples, report))
            return;
        report.place = {headerPath};
        const ListingTrace line{header.samplesPerChannel, header.delay, 1.0 / header.samplingRate};
        if (writeListing(listingPath, std::vector(header.channelCount, line), report)
            && !convertListing(listingPath, seg2Path, 0.0, samplesOf(samples), progress, report))
            report.result = 1; // the kinds after this one are not converted
    });
}
