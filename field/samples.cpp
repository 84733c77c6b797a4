// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/samples.h"

#include "field/numbers.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <type_traits>

namespace {

template <typename Sample>
std::optional<SampleRounding> convert(const std::vector<Sample> &samples, double factor,
                                      std::vector<float> &floats)
{
    // Not through doubles: they would change some of the samples that are no numbers.
    if constexpr (std::is_same_v<Sample, float>)
        if (factor == 1.0) {
            floats = samples;
            return std::nullopt;
        }
    floats.resize(samples.size());
    std::size_t worst = 0;
    double largestError = 0.0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double value = samples[i] * factor;
        floats[i] = static_cast<float>(value);
        const double error = std::abs(floats[i] - value);
        if (error > largestError && (factor == 1.0 || std::isinf(error))) {
            largestError = error;
            worst = i;
        }
    }
    if (largestError == 0.0)
        return std::nullopt;
    return SampleRounding{shortest(samples[worst]), floats[worst]};
}

} // namespace

std::size_t sampleCountOf(const Samples &samples)
{
    return std::visit([](const auto &values) { return values.size(); }, samples);
}

bool hasEqualSamples(const Samples &samples)
{
    const auto areEqual = [](const auto &values) {
        return values.size() > 1
               && std::adjacent_find(values.begin(), values.end(), std::not_equal_to<>())
                      == values.end();
    };
    return std::visit(areEqual, samples);
}

std::optional<SampleRounding> toFloats(const Samples &samples, double factor,
                                       std::vector<float> &floats)
{
    return std::visit([&](const auto &values) { return convert(values, factor, floats); }, samples);
}
