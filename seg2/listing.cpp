// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/listing.h"

#include "seg2/seg2_file.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <utility>
#ifdef _WIN32
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr char heading[] = "TRACE_SORT   AS_ACQUIRED\n"
                           "UNITS\t\tMETERS\n"
                           "\n"
                           "                  Time    Sample\n"
                           "Trace   No. of    Delay   Interval       Receiver Location\n"
                           "No.     Samples   (s)     (s)        X           Y         Z\n";

/// False when the process has no standard output or it is the null device.
bool outputIsRead()
{
    if (!std::cout)
        return false;
#ifdef _WIN32
    return _fileno(stdout) >= 0;
#else
    struct stat output;
    struct stat nullDevice;
    if (fstat(STDOUT_FILENO, &output) != 0)
        return false;
    return !S_ISCHR(output.st_mode) || stat("/dev/null", &nullDevice) != 0
           || output.st_rdev != nullDevice.st_rdev;
#endif
}

void printTrace(std::size_t index, const std::vector<float> &samples)
{
    std::string text = "TraceINDEX : " + std::to_string(index) + '\n';
    for (const float sample : samples) {
        appendNumber(text, sample);
        text += '\n';
    }
    std::cout << text << std::flush;
}

void readHeading(std::istream &listing, Seg2File &file)
{
    for (int pair = 0; pair < 2; ++pair) {
        std::string keyword;
        std::string value;
        listing >> keyword >> value;
        setFileString(file, keyword, value);
    }
    std::string word;
    while (word != "Z" && listing >> word) { }
}

void readTraces(std::istream &listing, double sourceX, const TraceSamples &samples, bool isPrinted,
                Seg2File &file)
{
    std::int32_t number = 0;
    while (listing >> number) {
        // From a value on that is no number for a stream, as "inf" is, the values are 0, and the
        // loop ends after this trace.
        Seg2TraceHeader header;
        listing >> header.sampleCount >> header.delay >> header.sampleInterval >> header.receiverX
            >> header.receiverY >> header.receiverZ;
        header.stackCount = 1;
        header.descalingFactor = 1.0;
        header.sourceX = sourceX;
        const std::size_t index = file.traces.size();
        std::vector<float> values = samples(index, header.sampleCount);
        if (isPrinted)
            printTrace(index, values);
        if (values.size() < header.sampleCount)
            throw std::out_of_range("invalid vector subscript");
        addTrace(file, header, std::move(values));
    }
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

/// Remarks on a file whose own fields have wrapped around.
void remarkLimits(const Seg2File &file, Problem &problem)
{
    if (file.traces.size() > 16383)
        problem.remark = counted(file.traces.size(), "trace")
                         + ", and a SEG2 file has room for the pointers of 16383";
    else if (!std::is_sorted(file.tracePointers.begin(), file.tracePointers.end()))
        problem.remark = "traces lie beyond the 4 GiB that a SEG2 file can point into";
}

} // namespace

bool writeListing(const std::string &path, const std::vector<ListingTrace> &traces,
                  Problem &problem)
{
    std::ofstream stream(path);
    if (!stream) {
        tellSystemError(problem, path);
        std::cerr << "Error in opening file " + path + '\n';
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
    }
    stream << text;
    stream.close();
    if (!stream)
        tellSystemError(problem, path);
    return true;
}

bool convertListing(const std::string &listingPath, const std::string &seg2Path,
                    std::optional<double> sourceX, const TraceSamples &samples, Problem &problem)
{
    // Asked first: without a standard output, files opened later would pass for it.
    const bool isPrinted = outputIsRead();
    std::ifstream listing = openListing(listingPath);
    std::ofstream stream(seg2Path, std::ios::binary);
    if (!stream)
        tellSystemError(problem, seg2Path);
    try {
        Seg2File file;
        readHeading(listing, file);
        if (!sourceX)
            throw std::out_of_range("invalid vector subscript");
        readTraces(listing, *sourceX, samples, isPrinted, file);
        write(file, stream);
        stream.close();
        if (stream)
            remarkLimits(file, problem);
        else
            tellSystemError(problem, seg2Path);
    } catch (const std::exception &error) {
        std::cerr << "EXCEPTION!\n";
        if (problem.detail.empty())
            problem = {seg2Path, 0, error.what(), problem.remark};
        return false;
    }
    return true;
}
