// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <QFile>

/// A file of which any part can be read. Parts that follow one another are read in larger
/// pieces.
struct RecordInput
{
    QFile file = {};
    std::uint64_t size = 0;   ///< of the file, in bytes
    std::string buffer = {};  ///< begins with the part of the file that is held
    std::size_t heldSize = 0; ///< the part's
    std::uint64_t heldAt = 0; ///< where it begins in the file
    std::string error = {};   ///< why the system refused to read; empty if it did not
};

/// Opens a file, which becomes report.place; false, and a failure, when that cannot be done or it
/// is empty.
bool openRecord(RecordInput &input, const std::string &path, Report &report);

/// The `count` bytes from `position` on, which stay valid until the next call; fewer where the file
/// ends before, or cannot be read on.
std::string_view bytesAt(RecordInput &input, std::uint64_t position, std::size_t count);

/// The same for a few bytes, of which no neighbours are asked for next.
std::string_view fewBytesAt(RecordInput &input, std::uint64_t position, std::size_t count);

/// Fails for a file that is damaged from trace `number` on, counted from 1: "`text`: only the 17
/// whole traces before it can be read". If it was the system that refused to read on, its reason
/// comes instead of `text`.
bool failAtDamage(const RecordInput &input, std::size_t number, const std::string &text,
                  Report &report);
