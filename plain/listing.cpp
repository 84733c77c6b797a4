// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/listing.h"

#include "plain/seg2.h"

#include <fstream>
#include <iostream>
#include <stdexcept>

namespace plain {

namespace {

void readHeading(std::istream &listing, Seg2File &file)
{
    for (int i = 0; i < 2; ++i) {
        std::string keyword;
        std::string value;
        listing >> keyword >> value;
        setFileString(file, keyword, value);
    }
    std::string word;
    while (word != "Z" && listing >> word) { }
}

} // namespace

bool writeListing(const std::string &path, const std::vector<ListingTrace> &traces)
{
    std::ofstream stream(path);
    if (!stream) {
        std::cerr << "Error in opening file " << path << std::endl;
        return false;
    }
    stream << "TRACE_SORT   AS_ACQUIRED" << std::endl;
    stream << "UNITS\t\tMETERS" << std::endl;
    stream << std::endl;
    stream << "                  Time    Sample" << std::endl;
    stream << "Trace   No. of    Delay   Interval       Receiver Location" << std::endl;
    stream << "No.     Samples   (s)     (s)        X           Y         Z" << std::endl;
    for (std::size_t i = 0; i < traces.size(); ++i)
        stream << i + 1 << "    " << traces[i].sampleCount << "      " << traces[i].delay << "     "
               << traces[i].interval << "     " << traces[i].receiverX << "      " << 0 << "      "
               << 0 << std::endl;
    return true;
}

bool convertListing(const std::string &listingPath, const std::string &seg2Path,
                    std::optional<double> sourceX,
                    const std::function<float(std::size_t trace, std::size_t sample)> &sampleAt)
{
    std::ifstream listing(listingPath);
    std::ofstream stream(seg2Path, std::ios::binary);
    try {
        Seg2File file;
        readHeading(listing, file);
        if (!sourceX)
            throw std::out_of_range("invalid vector subscript");
        int traceNumber = 0;
        while (listing >> traceNumber) {
            Seg2TraceHeader header;
            listing >> header.sampleCount >> header.delay >> header.sampleInterval
                >> header.receiverX >> header.receiverY >> header.receiverZ;
            header.sourceX = *sourceX;
            const std::size_t index = file.traces.size();
            std::cout << "TraceINDEX : " << index << std::endl;
            std::vector<float> samples;
            for (std::uint32_t i = 0; i < header.sampleCount; ++i) {
                const float sample = sampleAt(index, i);
                std::cout << sample << std::endl;
                samples.push_back(sample);
            }
            addTrace(file, header, samples);
        }
        writeSeg2(stream, file);
    } catch (const std::exception &) {
        std::cerr << "EXCEPTION!" << std::endl;
        return false;
    }
    return true;
}

} // namespace plain
