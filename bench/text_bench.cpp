// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/text.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

/// `count` numbers as they stand in survey files: up to a thousand, with up to five decimals.
std::vector<std::string> numberTexts(std::int64_t count)
{
    std::mt19937 engine(20260301);
    std::vector<std::string> texts;
    for (std::int64_t i = 0; i < count; ++i) {
        const std::string decimals = std::to_string(100000 + engine() % 100000).substr(1);
        texts.push_back(std::to_string(engine() % 1000) + '.'
                        + decimals.substr(0, 1 + engine() % 5));
    }
    return texts;
}

/// Floats of either sign between 2^-20 and 2^20, as samples are, with all digits.
std::vector<double> samples(std::int64_t count)
{
    std::mt19937 engine(20260301);
    std::vector<double> values;
    for (std::int64_t i = 0; i < count; ++i) {
        const double digits =
            static_cast<std::uint32_t>(engine()) * (engine() % 2 == 0 ? 1.0 : -1.0);
        values.push_back(
            static_cast<float>(std::ldexp(digits, -12 - static_cast<int>(engine() % 40))));
    }
    return values;
}

void setSize(benchmark::State &state)
{
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void tokenizer(benchmark::State &state)
{
    std::string line;
    for (const std::string &text : numberTexts(state.range(0)))
        line += text + ' ';
    std::vector<std::string> fields;
    for (auto _ : state) {
        tokenize(line, fields, " ");
        benchmark::DoNotOptimize(fields.data());
    }
    setSize(state);
}
BENCHMARK(tokenizer)->RangeMultiplier(10)->Range(10, 1000)->Complexity();

void parsedDoubles(benchmark::State &state)
{
    const std::vector<std::string> texts = numberTexts(state.range(0));
    for (auto _ : state) {
        for (const std::string &text : texts)
            benchmark::DoNotOptimize(toDouble(text));
    }
    setSize(state);
}
BENCHMARK(parsedDoubles)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

void parsedIntegers(benchmark::State &state)
{
    const std::vector<std::string> texts = numberTexts(state.range(0));
    for (auto _ : state) {
        for (const std::string &text : texts)
            benchmark::DoNotOptimize(toInt(text));
    }
    setSize(state);
}
BENCHMARK(parsedIntegers)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

void printNumbers(benchmark::State &state, const std::vector<double> &values)
{
    std::string text;
    for (auto _ : state) {
        text.clear();
        for (const double value : values)
            appendNumber(text, value);
        benchmark::DoNotOptimize(text.data());
    }
    setSize(state);
}

void printedSamples(benchmark::State &state)
{
    printNumbers(state, samples(state.range(0)));
}
BENCHMARK(printedSamples)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

void printedSurveyNumbers(benchmark::State &state)
{
    std::vector<double> values;
    for (const std::string &text : numberTexts(state.range(0)))
        values.push_back(toDouble(text));
    printNumbers(state, values);
}
BENCHMARK(printedSurveyNumbers)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

} // namespace
