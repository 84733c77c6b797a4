// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// Without the lines that the conversions print about every sample: for these see printedSamples.

#include "bench/inputs.h"
#include "seg2/dolang_conversion.h"
#include "seg2/seg2_file.h"
#include "seg2/su_conversion.h"
#include "tests/support/support.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int samplesPerTrace = 1000;

int size(benchmark::State &state)
{
    state.SetComplexityN(state.range(0));
    return static_cast<int>(state.range(0));
}

/// By the number of traces.
void seg2Writer(benchmark::State &state)
{
    const TemporaryFolder folder;
    Seg2File file;
    setFileString(file, "TRACE_SORT", "AS_ACQUIRED");
    setFileString(file, "UNITS", "METERS");
    Seg2TraceHeader header;
    header.sampleCount = samplesPerTrace;
    header.sampleInterval = 0.00025;
    for (int trace = size(state); trace > 0; --trace) {
        header.receiverX = 2.5 * trace;
        addTrace(file, header, std::vector<float>(samplesPerTrace, 0.25F));
    }
    for (auto _ : state) {
        std::ofstream stream(folder.path("line.seg2"), std::ios::binary);
        if (!write(file, stream).flush())
            state.SkipWithError("not written");
    }
}
BENCHMARK(seg2Writer)->RangeMultiplier(10)->Range(10, 1000)->Complexity();

/// By the number of traces.
void seismicUnixConversion(benchmark::State &state)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.su");
    writeSeismicUnix(path, size(state), samplesPerTrace);
    for (auto _ : state) {
        Report report;
        if (!convertSu(path, suListingPath(path), suSeg2Path(path), nullptr, report))
            state.SkipWithError("not converted");
    }
}
BENCHMARK(seismicUnixConversion)->RangeMultiplier(10)->Range(10, 1000)->Complexity();

/// By the number of samples of each of the 24 channels.
void dolangConversion(benchmark::State &state)
{
    const TemporaryFolder folder;
    const std::string base = folder.path("LINE");
    writeDolang(base, 24, size(state));
    for (auto _ : state) {
        for (const DolangKind &kind : dolangKinds) {
            Report report;
            if (!convertDolang(base, kind, folder.path(kind.listingName), base + kind.seg2Ending,
                               nullptr, report))
                state.SkipWithError("not converted");
        }
    }
}
BENCHMARK(dolangConversion)->RangeMultiplier(10)->Range(1000, 100000)->Complexity();

} // namespace
