// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/seg2.h"

#include <iostream>
#include <sstream>
#include <utility>

namespace plain {

namespace {

std::string text(double value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

std::string text(double x, double y, double z)
{
    std::ostringstream stream;
    stream << x << " " << y << " " << z;
    return stream.str();
}

template <typename Number>
void put(std::ostream &stream, Number value)
{
    stream.write(reinterpret_cast<const char *>(&value), sizeof value);
}

void putString(std::ostream &stream, const std::string &keyword, const std::string &value)
{
    const std::string entry = keyword + " " + value + '\0';
    put(stream, static_cast<std::uint16_t>(entry.size() + 2));
    stream << entry;
}

void putStrings(std::ostream &stream, const std::map<std::string, std::string> &strings)
{
    for (const auto &[keyword, value] : strings) {
        if (keyword != "NOTE")
            putString(stream, keyword, value);
    }
    if (strings.count("NOTE") > 0)
        putString(stream, "NOTE", strings.at("NOTE"));
    put(stream, std::uint16_t{0});
    while (stream.tellp() % 4 != 0)
        stream << ' ';
}

std::uint32_t putTrace(std::ostream &stream, const Seg2Trace &trace)
{
    stream.seekp(0, std::ios::end);
    const std::streamoff start = stream.tellp();
    put(stream, std::uint16_t{0x4422});
    put(stream, std::uint16_t{0});
    put(stream, static_cast<std::uint32_t>(4 * trace.sampleCount));
    put(stream, trace.sampleCount);
    put(stream, std::uint8_t{4});
    stream << std::string(19, ' ');
    putStrings(stream, trace.strings);

    const std::streamoff dataStart = stream.tellp();
    const auto descriptorSize = static_cast<std::uint16_t>(dataStart - start);
    stream.seekp(start + 2);
    put(stream, descriptorSize);
    stream.seekp(dataStart);
    stream.write(reinterpret_cast<const char *>(trace.samples.data()),
                 static_cast<std::streamsize>(trace.samples.size() * sizeof(float)));
    stream.flush();

    const std::streamoff end = stream.tellp();
    stream.seekp(start + 4);
    put(stream, static_cast<std::uint32_t>(end - descriptorSize - start));
    stream.seekp(end);
    return static_cast<std::uint32_t>(start);
}

bool isStandard(const std::string &keyword)
{
    for (const char *standard :
         {"ACQUISITION_DATE", "ACQUISITION_TIME", "CLIENT", "COMPANY", "GENERAL_CONSTANT",
          "INSTRUMENT", "JOB_ID", "OBSERVER", "PROCESSING_DATE", "PROCESSING_TIME", "TRACE_SORT",
          "UNITS", "NOTE"}) {
        if (keyword.rfind(standard, 0) == 0)
            return true;
    }
    return false;
}

} // namespace

void setFileString(Seg2File &file, const std::string &keyword, const std::string &value)
{
    if (!isStandard(keyword))
        std::cerr << "WARNING: Keyword " << keyword
                  << " is not a standard keyword for the file descriptor block." << std::endl;
    file.strings[keyword] = value;
}

void addTrace(Seg2File &file, const Seg2TraceHeader &header, const std::vector<float> &samples)
{
    Seg2Trace trace;
    trace.sampleCount = header.sampleCount;
    trace.strings["DELAY"] = text(header.delay);
    trace.strings["DESCALING_FACTOR"] = text(1.0);
    trace.strings["RECEIVER_LOCATION"] = text(header.receiverX, header.receiverY, header.receiverZ);
    trace.strings["SAMPLE_INTERVAL"] = text(header.sampleInterval);
    trace.strings["STACK"] = text(1.0);
    trace.strings["SOURCE_LOCATION"] = text(header.sourceX, 0.0, 0.0);
    trace.samples = samples;
    file.traces.push_back(std::move(trace));
    file.tracePointers.push_back(0);
    ++file.traceCount;
}

void writeSeg2(std::ostream &stream, Seg2File &file)
{
    put(stream, std::uint16_t{0x3A55});
    put(stream, std::uint16_t{0});
    put(stream, std::uint16_t{0});
    put(stream, file.traceCount);
    stream << '\1' << '\0' << ' ' << '\1' << '\n' << ' ' << std::string(18, ' ');
    for (std::uint16_t i = 0; i < file.traceCount; ++i)
        put(stream, std::uint32_t{0});
    stream.flush();
    const std::streamoff pointersEnd = stream.tellp();
    stream.seekp(4);
    put(stream, static_cast<std::uint16_t>(pointersEnd - 32));
    stream.seekp(pointersEnd);
    putStrings(stream, file.strings);
    for (std::size_t i = 0; i < file.traces.size(); ++i)
        file.tracePointers.at(i) = putTrace(stream, file.traces[i]);
    stream.seekp(32);
    for (const std::uint32_t pointer : file.tracePointers)
        put(stream, pointer);
}

} // namespace plain
