// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

/// `size` spaces.
template <std::size_t size>
constexpr std::array<char, size> spaces()
{
    std::array<char, size> text;
    text.fill(' ');
    return text;
}

/// One trace of a SEG-2 file: its descriptor block and its samples. Of the sample buffers the one
/// that belongs to the format code is written, and must hold as many samples as `sampleCount` says
/// (format code 3: as many bytes as `packedByteCount` says).
struct Seg2Trace
{
    std::uint16_t blockId = 0x4422;
    std::uint16_t descriptorSize = 0; ///< bytes; computed when the file is written
    std::uint32_t dataSize = 0;       ///< bytes; computed when the file is written
    std::uint32_t sampleCount = 0;
    std::uint8_t formatCode = 4;
    std::array<char, 19> reserved = spaces<19>();
    std::map<std::string, std::string> strings = {};
    // Samples are the recorder's counts: times DESCALING_FACTOR they are millivolts.
    std::vector<std::int16_t> int16Samples = {};  ///< format code 1
    std::vector<std::int32_t> int32Samples = {};  ///< format code 2
    std::vector<std::uint8_t> packedSamples = {}; ///< format code 3: 20 bits a sample
    std::uint32_t packedByteCount = 0;
    std::vector<float> floatSamples = {};   ///< format code 4
    std::vector<double> doubleSamples = {}; ///< format code 5
};

/// A SEG-2 file: the file descriptor block and the traces. `traceCount` and `tracePointers` go with
/// `traces`: addTrace keeps the three together.
struct Seg2File
{
    std::uint16_t blockId = 0x3A55;
    std::uint16_t revision = 0;
    std::uint16_t tracePointersSize = 0; ///< bytes; computed when the file is written
    std::uint16_t traceCount = 0;        ///< modulo 2^16
    std::uint8_t stringTerminatorSize = 1;
    std::array<std::uint8_t, 2> stringTerminator = {0x00, 0x20};
    std::uint8_t lineTerminatorSize = 1;
    std::array<std::uint8_t, 2> lineTerminator = {0x0A, 0x20};
    std::array<char, 18> reserved = spaces<18>();
    std::vector<std::uint32_t> tracePointers = {}; ///< file offsets; computed when it is written
    std::map<std::string, std::string> strings = {};
    std::vector<Seg2Trace> traces = {};
};

/// What a trace is built from, beside its samples. Positions are in metres; x is along the line.
struct Seg2TraceHeader
{
    std::uint8_t formatCode = 4; ///< not read: every trace is built with 32-bit floats
    std::uint32_t sampleCount = 0;
    double sampleInterval = 0.0; ///< seconds
    std::uint32_t stackCount = 0;
    double delay = 0.0;           ///< seconds
    double descalingFactor = 0.0; ///< sample times this is millivolts
    double receiverX = 0.0;
    double receiverY = 0.0;
    double receiverZ = 0.0;
    double sourceX = 0.0;
    double sourceY = 0.0;
    double sourceZ = 0.0;
};

/// Sets a string of the file descriptor block. A key that does not begin with one of the standard's
/// keywords is stored too, with a warning. The second form writes it to the standard error stream.
void setFileString(Seg2File &file, std::string key, std::string value, Report &report);
void setFileString(Seg2File &file, std::string key, std::string value);

/// A trace of `header.sampleCount` 32-bit floats, with the six strings that the header's values
/// make, printed with six significant digits. Fewer samples are an error when it is written; more
/// are left out.
Seg2Trace buildTrace(const Seg2TraceHeader &header, std::vector<float> samples);

/// Builds a trace and appends it to the file.
void addTrace(Seg2File &file, const Seg2TraceHeader &header, std::vector<float> samples);

/// Writes the file to `stream`, a seekable binary stream positioned at 0, and fills the sizes and
/// the trace pointers into the record. Fields of 16 bits keep their value modulo 2^16: the size
/// of the trace pointers from 16384 traces on, the number of traces from 65536 on. Room for the
/// pointers is left for the number as kept, so that 65536 pointers overwrite the strings and the
/// first traces. Sizes and pointers of 32 bits are kept modulo 2^32 likewise. The stream's state
/// tells whether all was written.
///
/// Throws std::out_of_range "invalid vector subscript" for a trace with fewer samples, or a file
/// with fewer trace pointers, than there must be.
std::ostream &write(Seg2File &file, std::ostream &stream);

/// The same for `traceCount` traces that are never in memory together: `addNext` adds one at a time
/// with addTrace() to the file, which begins and ends without traces.
std::ostream &writeOneByOne(Seg2File &file, std::size_t traceCount,
                            const std::function<void()> &addNext, std::ostream &stream);

// What these do, in steps, for traces that come from elsewhere.

/// Writes the file's descriptor block, for file.traceCount traces, to a stream positioned at 0.
void writeDescriptor(Seg2File &file, std::ostream &stream);

/// Appends a trace, its descriptor block and its samples, which begins at byte `start` of the file.
/// Throws as write() does.
void appendTrace(std::string &bytes, Seg2Trace &trace, const Seg2File &file, std::uint64_t start);

/// Writes file.tracePointers into the room that is left for them.
std::ostream &writePointers(const Seg2File &file, std::ostream &stream);

/// Says what in a file that was written is more than its fields can hold, if anything is: the
/// number of traces or the place of one.
std::string overflowOf(const Seg2File &file);
