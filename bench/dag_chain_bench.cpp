// Deep DAG chains: n chained `joint -p` (each new joint under the one before) and n chained
// `parent` calls, each of which reads the world matrices of the levels above it.
#include <benchmark/benchmark.h>

#include <maya/MGlobal.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <string>

namespace {

void startOnce() {
    static bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
}

void chainedJoints(benchmark::State& state) {
    startOnce();
    const int n = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        host::resetScene();
        MGlobal::executeCommand("select -cl");
        state.ResumeTiming();
        for (int i = 0; i < n; ++i)
            MGlobal::executeCommand(MString(("joint -p 0 " + std::to_string(i) + " 0").c_str()));
    }
    state.SetComplexityN(n);
}
BENCHMARK(chainedJoints)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond)->Iterations(1);

void chainedParents(benchmark::State& state) {
    startOnce();
    const int n = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        host::resetScene();
        for (int i = 0; i < n; ++i)
            MGlobal::executeCommand(MString(("createNode transform -n t" + std::to_string(i) + "; setAttr t" +
                                             std::to_string(i) + ".ty " + std::to_string(i))
                                                .c_str()));
        state.ResumeTiming();
        for (int i = 1; i < n; ++i)
            MGlobal::executeCommand(
                MString(("parent t" + std::to_string(i) + " t" + std::to_string(i - 1)).c_str()));
    }
    state.SetComplexityN(n);
}
BENCHMARK(chainedParents)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
