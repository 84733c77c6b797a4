// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// Sizes are numbers of shots, each on 48 receivers.

#include "bench/inputs.h"
#include "readers/geogiga.h"
#include "readers/seisimager.h"
#include "readers/winsism.h"
#include "tests/support/support.h"
#include "traveltime/generic_text.h"
#include "traveltime/otte_writer.h"
#include "traveltime/survey.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr int receiverCount = 48;

int shotCount(benchmark::State &state)
{
    state.SetComplexityN(state.range(0));
    return static_cast<int>(state.range(0));
}

/// Measures a reader, which returns 0 when it has filled the survey.
template <typename Reader>
void measure(benchmark::State &state, Reader read)
{
    for (auto _ : state) {
        TraveltimeSurvey survey;
        if (read(survey) != 0)
            state.SkipWithError("refused");
    }
}

void seisImagerReader(benchmark::State &state, Layouts layouts)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.vs");
    writeSeisImager(path, shotCount(state), receiverCount, layouts);
    measure(state, [&path](TraveltimeSurvey &survey) {
        return readSeisImagerTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
    });
}

void seisImagerReaderSharedLayout(benchmark::State &state)
{
    seisImagerReader(state, Layouts::Shared);
}
BENCHMARK(seisImagerReaderSharedLayout)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

void seisImagerReaderDifferentLayouts(benchmark::State &state)
{
    seisImagerReader(state, Layouts::DifferentInLastReceiver);
}
BENCHMARK(seisImagerReaderDifferentLayouts)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

void geogigaReader(benchmark::State &state)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.txt");
    writeGeogiga(path, shotCount(state), receiverCount);
    measure(state, [&path](TraveltimeSurvey &survey) {
        return readGeogigaTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
    });
}
BENCHMARK(geogigaReader)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

void winsismReader(benchmark::State &state)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.xyz");
    writeWinsism(path, shotCount(state), receiverCount);
    measure(state, [&path](TraveltimeSurvey &survey) {
        return readWinsismTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
    });
}
BENCHMARK(winsismReader)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

void genericReader(benchmark::State &state)
{
    const TemporaryFolder folder;
    const int shots = shotCount(state);
    writeGeneric(folder.path(""), shots, receiverCount);
    measure(state, [&](TraveltimeSurvey &survey) {
        for (int shot = 1; shot <= shots; ++shot) {
            const std::string path = folder.path("shot" + std::to_string(shot) + ".txt");
            if (readGenericTraveltimes(path, survey.traveltimes, survey.spreads, {}, 0) != 0)
                return 1;
        }
        return 0;
    });
}
BENCHMARK(genericReader)->RangeMultiplier(10)->Range(10, 1000)->Complexity();

void otteWriter(benchmark::State &state)
{
    const TemporaryFolder folder;
    TraveltimeSurvey survey;
    writeSeisImager(folder.path("line.vs"), shotCount(state), receiverCount, Layouts::Rolling);
    readSeisImagerTraveltimes(folder.path("line.vs"), survey.traveltimes, survey.spreads,
                              survey.shots);
    for (auto _ : state) {
        if (writeOtteFile(folder.path("line.otte"), survey.traveltimes, survey.spreads,
                          survey.shots)
            != 0)
            state.SkipWithError("not written");
    }
}
BENCHMARK(otteWriter)->RangeMultiplier(10)->Range(100, 10000)->Complexity();

} // namespace
