// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_conversion.h"

#include "seg2/huge_pages.h"
#include "seg2/listing.h"
#include "traveltime/text.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <utility>

#include <QByteArray>
#include <QFile>
#include <QScopeGuard>
#include <QString>
#include <QSysInfo>
#include <QtEndian>

namespace {

// Byte offsets in a trace, which is its header and then its samples.
constexpr std::size_t coordinateScalarOffset = 70;
constexpr std::size_t sourceXOffset = 72;
constexpr std::size_t receiverXOffset = 80;
constexpr std::size_t sampleCountOffset = 114;
constexpr std::size_t sampleIntervalOffset = 116; // microseconds
constexpr std::size_t headerSize = 240;

/// What the reader keeps between its two passes over a file. The format stays at floats once a
/// trace was read, and the byte order is never changed.
struct ReaderState
{
    std::uint32_t sampleCount = 0;
    double intervalMilliseconds = 0.0;
    std::uint16_t sampleFormat = 0; // 3: 16-bit integers, 5: 32-bit floats
    QSysInfo::Endian byteOrder = QSysInfo::LittleEndian;
};

ReaderState reader;

template <typename Number>
Number numberFrom(const char *bytes, QSysInfo::Endian byteOrder = reader.byteOrder)
{
    return byteOrder == QSysInfo::LittleEndian ? qFromLittleEndian<Number>(bytes)
                                               : qFromBigEndian<Number>(bytes);
}

/// The number at an offset; 0 when the file ends before it does.
template <typename Number>
Number numberAt(const QByteArray &bytes, std::size_t offset,
                QSysInfo::Endian byteOrder = reader.byteOrder)
{
    if (offset + sizeof(Number) > static_cast<std::size_t>(bytes.size()))
        return 0;
    return numberFrom<Number>(bytes.constData() + offset, byteOrder);
}

std::size_t traceSize(std::uint32_t sampleCount)
{
    return headerSize + std::size_t{4} * sampleCount;
}

/// Opens the file; false, after a line on the standard error stream, when it cannot be opened.
bool open(QFile &file, const std::string &path, Problem &problem)
{
    std::cout << "opening su file " + path + '\n';
    file.setFileName(QString::fromStdString(path));
    // Of an empty name Qt would tell the standard error stream too.
    if (!path.empty() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return true;
    std::cerr << "Error while loading " + path + '\n';
    tell(problem, file.errorString().toStdString());
    return false;
}

/// Puts what comes next in the file behind what `bytes` holds, up to `size` bytes in all. Gives the
/// number of bytes read.
std::size_t readOn(QFile &file, QByteArray &bytes, std::size_t size)
{
    const qsizetype before = bytes.size();
    qsizetype end = before;
    bytes.resize(static_cast<qsizetype>(size));
    for (qint64 count = 0; (count = file.read(bytes.data() + end, bytes.size() - end)) > 0;)
        end += count; // a pipe gives little at once
    bytes.resize(end);
    return static_cast<std::size_t>(end - before);
}

struct SizesFound
{
    std::size_t bytes = 0;        ///< of the file
    std::size_t swappedTrace = 0; ///< bytes of a trace, if the file is big-endian
};

/// Calls `take` with the bytes of every whole trace in turn; the file is never held as a whole. All
/// traces have the first one's number of samples and interval.
template <typename Take>
SizesFound readThrough(QFile &file, Take take)
{
    QByteArray trace;
    SizesFound size;
    size.bytes = readOn(file, trace, headerSize);
    size.swappedTrace = traceSize(numberAt<quint16>(trace, sampleCountOffset, QSysInfo::BigEndian));
    reader.intervalMilliseconds = numberAt<quint16>(trace, sampleIntervalOffset) / 1000.0;
    reader.sampleCount = numberAt<quint16>(trace, sampleCountOffset);
    // Not read on: behind a read that failed the next may succeed.
    if (size.bytes < headerSize)
        return size;

    const std::size_t whole = traceSize(reader.sampleCount);
    size.bytes += readOn(file, trace, whole);
    while (static_cast<std::size_t>(trace.size()) == whole) {
        take(trace);
        trace.resize(0);
        size.bytes += readOn(file, trace, whole);
    }
    return size;
}

/// The trace that `bytes`, its header and all of its samples, hold.
SuTrace readTrace(const QByteArray &bytes)
{
    reader.sampleFormat = 5;
    SuTrace trace;
    trace.sampleInterval = reader.intervalMilliseconds / 1000.0;

    const int scalar = numberAt<qint16>(bytes, coordinateScalarOffset);
    float factor = 1.0F;
    if (scalar != 0)
        factor = static_cast<float>(scalar > 0 ? scalar : -1 / scalar);
    const auto coordinate = [&bytes, factor](std::size_t offset) {
        return static_cast<float>(numberAt<qint32>(bytes, offset)) * factor;
    };
    trace.sourceX = coordinate(sourceXOffset);
    trace.receiverX = coordinate(receiverXOffset);

    trace.samples.resize(reader.sampleCount);
    const char *const samples = bytes.constData() + headerSize;
    for (std::size_t i = 0; i + 1 < trace.samples.size(); ++i)
        trace.samples[i] = numberFrom<float>(samples + 4 * i);
    return trace;
}

/// Tells what the size of the file says against the number of traces found in it.
void tellSize(const SizesFound &size, std::size_t traceCount, Problem &problem)
{
    const std::size_t expected = traceSize(reader.sampleCount);
    if (size.bytes == 0)
        tell(problem, "no trace found: the file is empty");
    if (size.bytes % expected == 0)
        return;

    std::string mismatch = std::to_string(size.bytes) + " bytes are no whole number of traces of "
                           + std::to_string(expected) + " bytes";
    const bool bigEndian = size.bytes % size.swappedTrace == 0;
    if (bigEndian)
        mismatch += "; the file is big-endian: " + counted(size.bytes / size.swappedTrace, "trace")
                    + " of " + std::to_string(size.swappedTrace) + " bytes";
    if (traceCount == 0)
        tell(problem, "no trace found: " + mismatch);
    else if (bigEndian)
        tell(problem, mismatch);
    else
        problem.remark =
            mismatch + ": the last " + std::to_string(size.bytes % expected) + " are left out";
}

} // namespace

void indexSuFile(std::string path, std::size_t &traceCount, std::vector<std::size_t> &traceOffsets)
{
    Problem untold;
    QFile file;
    traceOffsets.clear();
    if (open(file, path, untold)) {
        readThrough(file, [&traceOffsets](const QByteArray &) {
            const std::size_t sampleSize = reader.sampleFormat == 3 ? 2 : 4;
            traceOffsets.push_back(traceOffsets.size()
                                   * (sampleSize * reader.sampleCount + headerSize));
        });
    }
    traceCount = traceOffsets.size();
}

void readSuFile(std::string path, std::vector<SuTrace> &traces)
{
    Problem untold;
    readSuFile(path, traces, untold);
}

void readSuFile(const std::string &path, std::vector<SuTrace> &traces, Problem &problem)
{
    traces.clear();
    QFile file;
    if (!open(file, path, problem))
        return;
    const SizesFound size = readThrough(file, [&traces](const QByteArray &bytes) {
        useHugePages();
        traces.push_back(readTrace(bytes));
    });
    if (file.error() != QFile::NoError)
        tell(problem, file.errorString().toStdString());
    tellSize(size, traces.size(), problem);
}

std::string beforeLastDot(const std::string &path)
{
    return path.substr(0, path.rfind('.'));
}

std::int32_t convertSuToSeg2(std::string path)
{
    const std::string base = beforeLastDot(path);
    Problem untold;
    return convertSuToSeg2(path, base + "_tmp", base + ".seg2", untold);
}

std::int32_t convertSuToSeg2(const std::string &path, const std::string &listingPath,
                             const std::string &seg2Path, Problem &problem)
{
    problem = {path};
    const auto whenTracesAreGone = qScopeGuard(giveMemoryBack);
    std::vector<SuTrace> traces;
    readSuFile(path, traces, problem);

    std::vector<ListingTrace> lines;
    lines.reserve(traces.size());
    for (const SuTrace &trace : traces)
        lines.push_back({static_cast<std::uint32_t>(trace.samples.size()), 0, trace.sampleInterval,
                         trace.receiverX, 0.0, trace.receiverZ});
    if (!writeListing(listingPath, lines, problem))
        return 1;

    const auto samples = [&traces](std::size_t index, std::uint32_t count) {
        if (index >= traces.size())
            return std::vector<float>();
        // Asked for once: the memory serves the floats of the next trace.
        const std::vector<double> held = std::move(traces[index].samples);
        return std::vector<float>(held.data(),
                                  held.data() + std::min<std::size_t>(count, held.size()));
    };
    std::optional<double> sourceX;
    if (!traces.empty())
        sourceX = traces.front().sourceX;
    convertListing(listingPath, seg2Path, sourceX, samples, problem);
    return 0;
}
