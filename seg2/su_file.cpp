// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_file.h"

#include "seg2/progress.h"
#include "traveltime/text.h"

#include <algorithm>
#include <bit>
#include <iostream>
#include <utility>

#include <QByteArray>
#include <QString>
#include <QSysInfo>
#include <QtEndian>

namespace {

/// What the reader keeps between its passes over a file. The format stays at floats once a trace
/// was read, and the byte order is never changed.
struct ReaderState
{
    std::uint32_t sampleCount = 0;
    double intervalMilliseconds = 0.0;
    std::uint16_t sampleFormat = 0; // 3: 16-bit integers, 5: 32-bit floats
    QSysInfo::Endian byteOrder = QSysInfo::LittleEndian;
};

ReaderState reader;

/// Reads what comes next in the file, up to `size` bytes; returns how many there were.
std::size_t readFully(QFile &file, char *to, std::size_t size)
{
    std::size_t done = 0;
    // A pipe gives little at once.
    for (qint64 count = 1; count > 0 && done < size; done += static_cast<std::size_t>(count))
        count = std::max<qint64>(file.read(to + done, static_cast<qint64>(size - done)), 0);
    return done;
}

/// Puts what comes next in the file after what `bytes` holds, up to `size` bytes in all.
void readOn(QFile &file, QByteArray &bytes, std::size_t size)
{
    const qsizetype before = bytes.size();
    bytes.resize(static_cast<qsizetype>(size));
    const std::size_t count =
        readFully(file, bytes.data() + before, size - static_cast<std::size_t>(before));
    bytes.resize(before + static_cast<qsizetype>(count));
}

/// Where a trace begins in the file.
qint64 placeOf(std::size_t trace, std::size_t traceSize)
{
    return static_cast<qint64>(trace) * static_cast<qint64>(traceSize);
}

/// Keeps what the first header says of all traces.
void keepCounts(const QByteArray &beginning)
{
    SuHeader first;
    if (static_cast<std::size_t>(beginning.size()) >= suHeaderSize)
        first = readSuHeader(beginning.constData(), reader.byteOrder);
    reader.sampleCount = first.sampleCount;
    reader.intervalMilliseconds = first.sampleInterval / 1000.0;
}

/// The trace of a header, without samples.
SuTrace traceOf(const SuHeader &header)
{
    const int scalar = header.coordinateScalar;
    float factor = 1.0F;
    if (scalar != 0)
        factor = static_cast<float>(scalar > 0 ? scalar : -1 / scalar);
    SuTrace trace;
    trace.sourceX = static_cast<float>(header.sourceX) * factor;
    trace.receiverX = static_cast<float>(header.receiverX) * factor;
    trace.sampleInterval = reader.intervalMilliseconds / 1000.0;
    return trace;
}

std::vector<double> samplesOf(const QByteArray &trace)
{
    reader.sampleFormat = 5;
    std::vector<double> samples(reader.sampleCount);
    const char *const bytes = trace.constData() + suHeaderSize;
    for (std::size_t i = 0; i + 1 < samples.size(); ++i)
        samples[i] = numberFrom<float>(bytes + 4 * i, reader.byteOrder);
    return samples;
}

/// Makes numbers of the bytes of a file.
void decode(std::vector<float> &samples)
{
    const auto count = static_cast<qsizetype>(samples.size());
    if (reader.byteOrder == QSysInfo::LittleEndian)
        qFromLittleEndian<float>(samples.data(), count, samples.data());
    else
        qFromBigEndian<float>(samples.data(), count, samples.data());
}

/// Makes a signalling NaN a quiet one, as it becomes when it is converted to a double.
void makeQuiet(std::vector<float> &samples)
{
    for (float &sample : samples) {
        const auto bits = std::bit_cast<std::uint32_t>(sample);
        const bool isNan = (bits & 0x7fffffff) > 0x7f800000;
        sample = std::bit_cast<float>(isNan ? bits | 0x00400000 : bits);
    }
}

/// What a file turned out to be.
struct FileRead
{
    QByteArray beginning = {}; ///< for anotherFormat
    std::size_t size = 0;      ///< bytes
    std::size_t traceCount = 0;
    std::string error = {}; ///< of the system, which ended the reading
};

/// Keeps the error of a read, if there was one, which a seek would clear.
void keepError(FileRead &read, const QFile &file)
{
    if (file.error() != QFile::NoError)
        read.error = file.errorString().toStdString();
}

void reportOn(const FileRead &read, const SuFindings &findings, Report &report)
{
    const std::size_t traceSize = suTraceSize(reader.sampleCount);
    const std::string another = anotherFormat(read.beginning, read.size);
    if (!read.error.empty())
        fail(report, read.error, Window::goesOn);
    else if (read.size == 0)
        fail(report, "the file is empty", Window::goesOn);
    else if (!another.empty())
        fail(report, another, Window::goesOn);
    else if (read.traceCount == 0)
        fail(report,
             "no whole trace: the file has " + counted(read.size, "byte") + ", a trace "
                 + std::to_string(traceSize),
             Window::goesOn);
    else if (reader.sampleCount == 0)
        fail(report, "the header of trace 1 says 0 samples", Window::goesOn);
    else
        remarkOnHeaders(findings, read.size % traceSize, report);
}

} // namespace

void indexSuFile(std::string path, std::size_t &traceCount, std::vector<std::size_t> &traceOffsets)
{
    Report report = windowReport();
    QFile file;
    SuFindings findings;
    const auto take = [&traceOffsets](const SuTrace &) {
        const std::size_t sampleSize = reader.sampleFormat == 3 ? 2 : 4;
        traceOffsets.push_back(traceOffsets.size()
                               * (sampleSize * reader.sampleCount + suHeaderSize));
    };
    traceOffsets.clear();
    if (openSuFile(path, file, &std::cout, report)) {
        if (isReadAnywhere(file))
            indexSuFile(file, take, findings, report);
        else
            readSuFile(file, take, findings, report);
    }
    traceCount = traceOffsets.size();
    finish(report);
}

void readSuFile(std::string path, std::vector<SuTrace> &traces)
{
    Report report = windowReport();
    QFile file;
    SuFindings findings;
    const auto take = [&traces](SuTrace &&trace) { traces.push_back(std::move(trace)); };
    traces.clear();
    if (openSuFile(path, file, &std::cout, report))
        readSuFile(file, take, findings, report);
    finish(report);
}

bool openSuFile(const std::string &path, QFile &file, std::ostream *progress, Report &report)
{
    report.place = {path};
    if (progress != nullptr)
        *progress << "opening su file " + path + '\n';
    file.setFileName(QString::fromStdString(path));
    // Of an empty name Qt would write to the standard error stream too.
    if (!path.empty() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return true;
    print(report, "Error while loading " + path);
    return fail(report, file.errorString().toStdString(), Window::goesOn);
}

bool isReadAnywhere(const QFile &file)
{
    return !file.isSequential() && file.size() > 0;
}

void indexSuFile(QFile &file, const TakeSuTrace &take, SuFindings &findings, Report &report)
{
    FileRead read;
    read.size = static_cast<std::size_t>(file.size());
    const std::size_t beginningSize = std::min(read.size, suBeginningSize);
    readOn(file, read.beginning, beginningSize);
    keepError(read, file);
    keepCounts(read.beginning);
    const std::size_t traceSize = suTraceSize(reader.sampleCount);
    // Stop: after a failed read a later one may succeed and return misplaced bytes.
    if (static_cast<std::size_t>(read.beginning.size()) < beginningSize)
        read.size = static_cast<std::size_t>(read.beginning.size());
    QByteArray header;
    for (; (read.traceCount + 1) * traceSize <= read.size; ++read.traceCount) {
        header.resize(0);
        file.seek(placeOf(read.traceCount, traceSize));
        readOn(file, header, suHeaderSize);
        keepError(read, file);
        if (static_cast<std::size_t>(header.size()) < suHeaderSize)
            break;
        const SuHeader values = readSuHeader(header.constData(), reader.byteOrder);
        takeHeader(findings, read.traceCount, values);
        take(traceOf(values));
    }
    reportOn(read, findings, report);
}

void readSuFile(QFile &file, const TakeSuTrace &take, SuFindings &findings, Report &report)
{
    FileRead read;
    QByteArray bytes; // of a trace
    const auto readTo = [&](std::size_t end) {
        const qsizetype before = bytes.size();
        readOn(file, bytes, end);
        read.size += static_cast<std::size_t>(bytes.size() - before);
        if (static_cast<std::size_t>(read.beginning.size()) < suBeginningSize)
            read.beginning += bytes.sliced(before);
        return static_cast<std::size_t>(bytes.size()) == end;
    };
    bool isWhole = readTo(suHeaderSize);
    keepCounts(bytes);
    const std::size_t traceSize = suTraceSize(reader.sampleCount);
    isWhole = isWhole && readTo(traceSize); // after a failed read a later one may succeed
    for (; isWhole; ++read.traceCount) {
        const SuHeader values = readSuHeader(bytes.constData(), reader.byteOrder);
        takeHeader(findings, read.traceCount, values);
        SuTrace trace = traceOf(values);
        trace.samples = samplesOf(bytes);
        take(std::move(trace));
        bytes.resize(0);
        isWhole = readTo(traceSize);
    }
    keepError(read, file);
    reportOn(read, findings, report);
}

std::vector<float> readSuSamples(QFile &file, std::size_t trace, std::uint32_t count,
                                 SuFindings &findings)
{
    reader.sampleFormat = 5;
    // The next header is read with them, so that the samples after it need no seek.
    std::vector<float> samples(count + suHeaderSize / sizeof(float));
    const qint64 start = placeOf(trace, suTraceSize(reader.sampleCount)) + qint64{suHeaderSize};
    if (file.pos() != start)
        file.seek(start);
    const std::size_t size =
        readFully(file, reinterpret_cast<char *>(samples.data()), 4 * samples.size());
    samples.resize(std::min<std::size_t>(count, size / 4));
    if (!samples.empty() && samples.size() == reader.sampleCount)
        samples.back() = 0.0F; // the last one of a trace does not count
    decode(samples);
    if (!areFinite(samples)) {
        takeOddSamples(findings, trace, samples);
        makeQuiet(samples);
    }
    return samples;
}
