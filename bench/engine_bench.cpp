// Engine throughput: sparse multi writes and reads, a million-item componentList statement, and a
// million-vertex sphere.
#include <benchmark/benchmark.h>

#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>

#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"

namespace {

void startOnce() {
    static bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
}

MPlug weightsPlug() {
    MGlobal::executeCommand("createNode blendShape -n benchBlend");
    MSelectionList list;
    list.add("benchBlend.inputTarget[0].inputTargetGroup[0].targetWeights");
    MPlug plug;
    list.getPlug(0, plug);
    return plug;
}

void sparseMultiWriteRead(benchmark::State& state) {
    startOnce();
    const unsigned n = static_cast<unsigned>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        host::resetScene();
        MPlug plug = weightsPlug();
        state.ResumeTiming();
        for (unsigned v = 0; v < n; ++v) plug.elementByLogicalIndex(v).setDouble(v * 0.5);
        double sum = 0;
        for (unsigned v = 0; v < n; ++v) sum += plug.elementByLogicalIndex(v).asDouble();
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(sparseMultiWriteRead)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(3);

void componentListStatement(benchmark::State& state) {
    startOnce();
    const int n = static_cast<int>(state.range(0));
    std::string statement = "setAttr benchBlend.inputTarget[0].inputTargetGroup[0].inputTargetItem[6000]."
                            "inputComponentsTarget -type componentList " +
                            std::to_string(n);
    statement.reserve(static_cast<std::size_t>(n) * 14 + 200);
    for (int v = 0; v < n; ++v) statement += " vtx[" + std::to_string(v) + "]";
    statement += " ;";
    for (auto _ : state) {
        state.PauseTiming();
        host::resetScene();
        MGlobal::executeCommand("createNode blendShape -n benchBlend");
        state.ResumeTiming();
        MStatus status = MGlobal::executeCommand(MString(statement));
        if (!status) state.SkipWithError("setAttr failed");
    }
}
BENCHMARK(componentListStatement)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(3);

void millionVertexSphere(benchmark::State& state) {
    startOnce();
    for (auto _ : state) {
        state.PauseTiming();
        host::resetScene();
        state.ResumeTiming();
        MStatus status = MGlobal::executeCommand("polySphere -sx 1000 -sy 1001");
        if (!status) state.SkipWithError("polySphere failed");
    }
}
BENCHMARK(millionVertexSphere)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
