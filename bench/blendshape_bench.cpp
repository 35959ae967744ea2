// Blend shape evaluation on a million-vertex plane with ten dense targets: the first evaluation
// (target data flattened) and evaluations after a weight change (flattened data reused).
#include <benchmark/benchmark.h>

#include "engine/Scene.h"
#include "eval/Evaluator.h"
#include "session/Session.h"

#include <maya/MGlobal.h>

namespace {

constexpr int kTargets = 10;

// A 1001 × 1001 vertex plane "plane" with blend shape "bs": ten targets moving every vertex.
bool buildScene() {
    static bool started = host::startSession(host::commandTable(), host::messageLog());
    host::resetScene();
    if (!started || !MGlobal::executeCommand("polyPlane -n plane -sx 1000 -sy 1000; blendShape -n bs plane"))
        return false;
    host::NodePtr bs = host::scene().findNode("bs");
    const std::size_t n = host::evaluatedMesh(host::scene().findNode("planeShape"))->points.size();
    auto all = std::make_shared<host::ComponentData>();
    all->complete = true;
    auto components = std::make_shared<host::ComponentListData>();
    components->components.push_back(all);
    for (int t = 0; t < kTargets; ++t) {
        auto points = std::make_shared<host::PointArrayData>();
        points->points.resize(n);
        for (std::size_t v = 0; v < n; ++v)
            points->points[v] = {0.001 * t, 0.0001 * static_cast<double>(v % 97), 1.0, 1.0};
        const std::string item = "it[0].itg[" + std::to_string(t) + "].iti[6000]";
        host::resolveAttrPath(bs, item + ".ipt", nullptr).setValue(host::DataPtr(points));
        host::resolveAttrPath(bs, item + ".ict", nullptr).setValue(host::DataPtr(components));
        host::resolveAttrPath(bs, "w[" + std::to_string(t) + "]", nullptr).setValue(0.1);
    }
    return true;
}

void evaluate(benchmark::State& state, const host::Plug& weight, double value) {
    weight.setValue(value);
    host::MeshPtr mesh = host::evaluatedMesh(host::scene().findNode("planeShape"));
    if (!mesh || mesh->points.size() != 1002001) state.SkipWithError("no deformed plane");
    benchmark::DoNotOptimize(mesh->points.data());
}

void blendShapeFirstEvaluation(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        if (!buildScene()) state.SkipWithError("scene not built");
        const host::Plug weight = host::scene().findPlug("bs.w[0]");
        state.ResumeTiming();
        evaluate(state, weight, 0.5);
    }
}
BENCHMARK(blendShapeFirstEvaluation)->Unit(benchmark::kMillisecond)->Iterations(3);

void blendShapeAfterWeightChange(benchmark::State& state) {
    if (!buildScene()) state.SkipWithError("scene not built");
    const host::Plug weight = host::scene().findPlug("bs.w[0]");
    evaluate(state, weight, 0.2);
    double value = 0.3;
    for (auto _ : state) evaluate(state, weight, value += 0.01);
}
BENCHMARK(blendShapeAfterWeightChange)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
