// Scene file throughput: saving and opening a Maya ASCII scene that holds a million-vertex mesh
// (polySphere -sx 1000 -sy 1001), reported in bytes per second of file text.
#include <benchmark/benchmark.h>

#include <maya/MGlobal.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

void startOnce() {
    static bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
}

std::string scenePath() {
    return (std::filesystem::temp_directory_path() / ("talven_bench_" + std::to_string(getpid()) + ".ma"))
        .string();
}

bool runCommand(const std::string& text) {
    return MGlobal::executeCommand(MString(text.c_str()));
}

// A fresh scene with the sphere, named for saving.
bool makeSphereScene(const std::string& path) {
    host::resetScene();
    return runCommand("polySphere -sx 1000 -sy 1001") && runCommand("file -rn \"" + path + "\"");
}

void saveMillionVertexScene(benchmark::State& state) {
    startOnce();
    const std::string path = scenePath();
    if (!makeSphereScene(path)) state.SkipWithError("could not make the sphere");
    for (auto _ : state)
        if (!runCommand("file -s")) state.SkipWithError("file -s failed");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(std::filesystem::file_size(path)));
    std::remove(path.c_str());
}
BENCHMARK(saveMillionVertexScene)->Unit(benchmark::kMillisecond)->Iterations(3);

void openMillionVertexScene(benchmark::State& state) {
    startOnce();
    const std::string path = scenePath();
    if (!makeSphereScene(path) || !runCommand("file -s")) state.SkipWithError("could not save the sphere");
    for (auto _ : state)
        if (!runCommand("file -o \"" + path + "\"")) state.SkipWithError("file -o failed");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(std::filesystem::file_size(path)));
    std::remove(path.c_str());
}
BENCHMARK(openMillionVertexScene)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
