// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/listing.h"

#include "seg2/seg2_file.h"
#include "traveltime/text.h"

#include <deque>
#include <exception>
#include <filesystem>
#include <fstream>

namespace {

constexpr char heading[] = "TRACE_SORT   AS_ACQUIRED\n"
                           "UNITS\t\tMETERS\n"
                           "\n"
                           "                  Time    Sample\n"
                           "Trace   No. of    Delay   Interval       Receiver Location\n"
                           "No.     Samples   (s)     (s)        X           Y         Z\n";

void printTrace(std::size_t index, const std::vector<float> &samples, std::ostream &progress)
{
    std::string text = "TraceINDEX : " + std::to_string(index) + '\n';
    for (const float sample : samples) {
        appendNumber(text, sample);
        text += '\n';
    }
    progress << text << std::flush;
}

void readHeading(std::istream &listing, Seg2File &file, Report &report)
{
    for (int pair = 0; pair < 2; ++pair) {
        std::string keyword;
        std::string value;
        listing >> keyword >> value;
        setFileString(file, keyword, value, report);
    }
    std::string word;
    while (word != "Z" && listing >> word) { }
}

/// Reads the lines of the traces and prints the traces. Throws at one with too few samples.
std::deque<Seg2TraceHeader> readTraces(std::istream &listing, double sourceX,
                                       const RecordSamples &samples, std::ostream *progress,
                                       Report &report)
{
    std::deque<Seg2TraceHeader> headers;
    std::int32_t number = 0;
    while (listing >> number) {
        // From the first value that is not a number to a stream, such as "inf", the values are 0,
        // and this trace is the last.
        Seg2TraceHeader header;
        listing >> header.sampleCount >> header.delay >> header.sampleInterval >> header.receiverX
            >> header.receiverY >> header.receiverZ;
        header.stackCount = 1;
        header.descalingFactor = 1.0;
        header.sourceX = sourceX;
        const std::size_t index = headers.size();
        if (progress != nullptr)
            printTrace(index, samples.read(index, header.sampleCount), *progress);
        const std::uint32_t available = samples.available(index, header.sampleCount);
        if (available < header.sampleCount) {
            fail(report,
                 "the listing says " + counted(header.sampleCount, "sample") + " for trace "
                     + std::to_string(index + 1) + ", which has " + std::to_string(available),
                 Window::goesOn);
            throwInvalidSubscript();
        }
        headers.push_back(header);
    }
    return headers;
}

/// A device has nothing to read back, or no end.
std::ifstream openListing(const std::string &path)
{
    std::ifstream stream;
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored))
        stream.open(path);
    else
        stream.setstate(std::ios::failbit);
    return stream;
}

void convertOpened(std::istream &listing, std::ofstream &stream, const std::string &seg2Path,
                   std::optional<double> sourceX, const RecordSamples &samples,
                   std::ostream *progress, Report &report)
{
    Seg2File file;
    readHeading(listing, file, report);
    if (!sourceX)
        throwInvalidSubscript();
    const auto headers = readTraces(listing, *sourceX, samples, progress, report);
    auto header = headers.begin();
    const auto addNext = [&] {
        const auto index = static_cast<std::size_t>(header - headers.begin());
        addTrace(file, *header, samples.read(index, header->sampleCount));
        ++header;
    };
    writeOneByOne(file, headers.size(), addNext, stream);
    stream.close();
    if (!stream)
        failInSystem(report, seg2Path, Window::goesOn);
    if (headers.empty())
        fail(report, "no trace can be read back from the listing", Window::goesOn);
    if (const std::string text = overflowOf(file); !text.empty())
        fail(report, text, Window::goesOn);
}

} // namespace

bool writeListing(const std::string &path, const std::vector<ListingTrace> &traces, Report &report)
{
    std::ofstream stream(path);
    if (!stream) {
        failInSystem(report, path);
        print(report, "Error in opening file " + path);
        return false;
    }
    std::string text = heading;
    std::size_t number = 0;
    for (const ListingTrace &trace : traces) {
        text += std::to_string(++number) + "    " + std::to_string(trace.sampleCount) + "      "
                + std::to_string(trace.delay) + "     ";
        appendNumber(text, trace.interval);
        text += "     ";
        appendNumber(text, trace.receiverX);
        text += "      ";
        appendNumber(text, trace.receiverY);
        text += "      ";
        appendNumber(text, trace.receiverZ);
        text += '\n';
        if (text.size() >= std::size_t{1} << 16) {
            stream << text;
            text.clear();
        }
    }
    stream << text;
    stream.close();
    if (!stream)
        failInSystem(report, path, Window::goesOn);
    return true;
}

bool convertListing(const std::string &listingPath, const std::string &seg2Path,
                    std::optional<double> sourceX, const RecordSamples &samples,
                    std::ostream *progress, Report &report)
{
    std::ifstream listing = openListing(listingPath);
    std::ofstream stream(seg2Path, std::ios::binary);
    if (!stream)
        failInSystem(report, seg2Path, Window::goesOn);
    try {
        convertOpened(listing, stream, seg2Path, sourceX, samples, progress, report);
    } catch (const std::exception &error) {
        print(report, "EXCEPTION!");
        return fail(report, {seg2Path}, error.what(), Window::goesOn);
    }
    return true;
}
