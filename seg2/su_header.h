// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

#include <QSysInfo>
#include <QtEndian>

// A trace of a Seismic Unix file is a header of 240 bytes and its samples, of 4 bytes each.

inline constexpr std::size_t suHeaderSize = 240;

/// The bytes of a trace.
constexpr std::size_t suTraceSize(std::uint32_t sampleCount)
{
    return suHeaderSize + std::size_t{4} * sampleCount;
}

/// Where a header has the number of samples and, after it, their interval.
inline constexpr std::size_t suSampleCountOffset = 114;

/// What is read of a trace's header. Positions are to be multiplied by the scalar or, if it is
/// negative, to be divided by its absolute value; 0 counts as 1.
struct SuHeader
{
    std::int32_t receiverElevation = 0;
    std::int32_t sourceElevation = 0;
    std::int16_t coordinateScalar = 0;
    std::int32_t sourceX = 0;
    std::int32_t sourceY = 0;
    std::int32_t receiverX = 0;
    std::int32_t receiverY = 0;
    std::int16_t delay = 0; ///< milliseconds
    std::uint16_t sampleCount = 0;
    std::uint16_t sampleInterval = 0; ///< microseconds
};

template <typename Number>
Number numberFrom(const char *bytes, QSysInfo::Endian byteOrder)
{
    return byteOrder == QSysInfo::LittleEndian ? qFromLittleEndian<Number>(bytes)
                                               : qFromBigEndian<Number>(bytes);
}

/// Reads the header that begins at `bytes`.
inline SuHeader readSuHeader(const char *bytes, QSysInfo::Endian byteOrder)
{
    SuHeader header;
    header.receiverElevation = numberFrom<qint32>(bytes + 40, byteOrder);
    header.sourceElevation = numberFrom<qint32>(bytes + 44, byteOrder);
    header.coordinateScalar = numberFrom<qint16>(bytes + 70, byteOrder);
    header.sourceX = numberFrom<qint32>(bytes + 72, byteOrder);
    header.sourceY = numberFrom<qint32>(bytes + 76, byteOrder);
    header.receiverX = numberFrom<qint32>(bytes + 80, byteOrder);
    header.receiverY = numberFrom<qint32>(bytes + 84, byteOrder);
    header.delay = numberFrom<qint16>(bytes + 108, byteOrder);
    header.sampleCount = numberFrom<quint16>(bytes + suSampleCountOffset, byteOrder);
    header.sampleInterval = numberFrom<quint16>(bytes + 116, byteOrder);
    return header;
}
