// Plug-in spine throughput: flattening a million selection strings, building the componentList
// command for a million vertices, and writing and reading a million-vertex target component list
// through the host.
#include <benchmark/benchmark.h>

#include "core/common/ComponentList.h"
#include "plugin/common.h"

#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <string>
#include <vector>

namespace {

constexpr int kVertices = 1000000;

void startSessionOnce() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
}

std::vector<std::string> singleVertexStrings() {
    std::vector<std::string> entries;
    entries.reserve(kVertices);
    for (int v = 0; v < kVertices; ++v) entries.push_back("bodyShape.vtx[" + std::to_string(v) + "]");
    return entries;
}

MIntArray allVertices() {
    MIntArray indices;
    for (int v = 0; v < kVertices; ++v) indices.append(v);
    return indices;
}

// A fresh scene with one blend shape node, returned as an object.
MObject freshBlendShape() {
    host::resetScene();
    MGlobal::executeCommand("createNode blendShape -n benchBlend");
    MSelectionList list;
    list.add("benchBlend");
    MObject node;
    list.getDependNode(0, node);
    return node;
}

void flattenSelectionStrings(benchmark::State& state) {
    const std::vector<std::string> entries = singleVertexStrings();
    for (auto _ : state) benchmark::DoNotOptimize(core::flattenComponentList(entries));
}
BENCHMARK(flattenSelectionStrings)->Unit(benchmark::kMillisecond);

void flattenMayaStringArray(benchmark::State& state) {
    MStringArray entries;
    for (const std::string& entry : singleVertexStrings()) entries.append(entry.c_str());
    for (auto _ : state) benchmark::DoNotOptimize(common::flattenComponentList(entries));
}
BENCHMARK(flattenMayaStringArray)->Unit(benchmark::kMillisecond);

void buildComponentListCommand(benchmark::State& state) {
    std::vector<int> indices(kVertices);
    for (int v = 0; v < kVertices; ++v) indices[static_cast<std::size_t>(v)] = v;
    for (auto _ : state)
        benchmark::DoNotOptimize(core::componentListCommand(
            "benchBlend.inputTarget[0].inputTargetGroup[0].inputTargetItem[6000].inputComponentsTarget",
            indices));
}
BENCHMARK(buildComponentListCommand)->Unit(benchmark::kMillisecond);

void setTargetComponents(benchmark::State& state) {
    startSessionOnce();
    const MIntArray indices = allVertices();
    for (auto _ : state) {
        state.PauseTiming();
        const MObject node = freshBlendShape();
        state.ResumeTiming();
        benchmark::DoNotOptimize(common::setTargetComponents(node, 0, 6000, indices));
    }
}
BENCHMARK(setTargetComponents)->Unit(benchmark::kMillisecond)->Iterations(3);

void getTargetComponents(benchmark::State& state) {
    startSessionOnce();
    const MObject node = freshBlendShape();
    common::setTargetComponents(node, 0, 6000, allVertices());
    for (auto _ : state) benchmark::DoNotOptimize(common::getTargetComponents(node, 0, 6000));
}
BENCHMARK(getTargetComponents)->Unit(benchmark::kMillisecond);

} // namespace
