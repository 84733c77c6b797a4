// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// How many bytes samples of a SEG2 format code take; none for an unknown code.
std::optional<std::uint64_t> seg2DataSize(std::uint8_t formatCode, std::uint32_t sampleCount);

/// Reads samples of a known format code from the bytes that they take.
Samples readSeg2Samples(std::string_view bytes, std::uint8_t formatCode, std::uint32_t sampleCount,
                        ByteOrder byteOrder);
