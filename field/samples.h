// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

std::size_t sampleCountOf(const Samples &samples);

/// A sample, and what it becomes as a 32-bit float.
struct SampleRounding
{
    std::string sample = {};
    float rounded = 0.0F;
};

/// Whether there are several samples, all of them equal, as in a trace without a signal.
bool hasEqualSamples(const Samples &samples);

/// The samples times `factor` as 32-bit floats. Returns the sample that becomes another most; of
/// products only one that is too large for a float, and becomes infinite.
std::optional<SampleRounding> toFloats(const Samples &samples, double factor,
                                       std::vector<float> &floats);
