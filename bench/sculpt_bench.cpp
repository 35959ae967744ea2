// kv_sculptExtractDeltaMesh on a 500,000-vertex skinned mesh: one extraction including its three
// probes of the skin deformation, and the per-vertex matrix arithmetic alone.
#include <benchmark/benchmark.h>

#include "core/sculpt/CorrectiveMath.h"

#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <string>
#include <vector>

namespace {

void run(const std::string& command) {
    MGlobal::executeCommand(MString(command.c_str()), false, false);
}

MObject nodeNamed(const char* name) {
    MSelectionList list;
    MObject node;
    if (list.add(name)) list.getDependNode(0, node);
    return node;
}

// A 1000 x 500 vertex plane bound to a chain of three joints, bent at both inner joints, and a
// sculpted duplicate with every vertex moved.
void skinnedScene() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    host::resetScene();
    run("polyPlane -n sheet -w 10 -h 5 -sx 999 -sy 499");
    run("select -cl; joint -n j0 -p -5 0 0; joint -n j1 -p 0 0 0; joint -n j2 -p 3 0 0");
    run("skinCluster -n skin j0 sheet; setAttr j1.rz 30; setAttr j2.ry 20");
    run("duplicate -n sculpt sheet");
    MFnMesh sculpt(nodeNamed("sculpt"));
    MPointArray points;
    sculpt.getPoints(points);
    for (unsigned int i = 0; i < points.length(); ++i) points[i].y += 0.01 * (i % 7);
    sculpt.setPoints(points);
}

void BM_ExtractCorrective500k(benchmark::State& state) {
    skinnedScene();
    for (auto _ : state) {
        run("kv_sculptExtractDeltaMesh -m sheet -om sheetShapeOrig sculpt");
        state.PauseTiming();
        run("delete sculpt_corrective");
        state.ResumeTiming();
    }
    state.counters["vertices"] = MFnMesh(nodeNamed("sheet")).numVertices();
}
BENCHMARK(BM_ExtractCorrective500k)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_CorrectiveMath500k(benchmark::State& state) {
    const std::size_t n = 500000;
    std::vector<core::Point4> base(n), deformed(n), sculpt(n);
    for (std::size_t i = 0; i < n; ++i) {
        base[i] = {double(i % 1000), double(i / 1000), 0.0, 1.0};
        deformed[i] = {base[i][0] * 0.8, base[i][1] + 0.3 * base[i][0], 0.1, 1.0};
        sculpt[i] = {deformed[i][0], deformed[i][1] + 0.05, deformed[i][2], 1.0};
    }
    const auto px = core::offsetPoints(deformed, 0, 0.8), py = core::offsetPoints(deformed, 1, 1.0),
               pz = core::offsetPoints(deformed, 2, 1.0);
    for (auto _ : state)
        benchmark::DoNotOptimize(core::correctivePoints({sculpt, deformed, base, px, py, pz}));
}
BENCHMARK(BM_CorrectiveMath500k)->Unit(benchmark::kMillisecond);

} // namespace
