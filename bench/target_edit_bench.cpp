// The target editing commands on a million-vertex mesh with a dense target: extract, replace,
// remove the deltas of half the vertices, and move an in-between.
#include <benchmark/benchmark.h>

#include <maya/MDagPath.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <string>

namespace {

void startSession() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
}

void run(const std::string& command) {
    MGlobal::executeCommand(MString(command.c_str()), false, false);
}

// A fresh scene: a sphere of a million vertices, a copy "sculpt" with every vertex moved, and a
// blend shape node whose target 0 holds that dense difference at full weight and at 0.5.
void freshScene() {
    startSession();
    host::resetScene();
    run("polySphere -sx 1000 -sy 1001 -n benchSphere; duplicate -n sculpt benchSphere");
    run("createNode blendShape -n benchBlend");
    MSelectionList list;
    list.add("sculpt");
    MDagPath sculpt;
    list.getDagPath(0, sculpt);
    sculpt.extendToShape();
    run("rename " + std::string(sculpt.partialPathName().asChar()) + " sculptShape");
    MFnMesh mesh(sculpt);
    MFloatPointArray points;
    mesh.getPoints(points);
    for (unsigned int v = 0; v < points.length(); ++v)
        points[v] = MFloatPoint(points[v].x + 0.01f, points[v].y * 1.5f, points[v].z - 0.02f);
    mesh.setPoints(points);
    run("kv_blendShapeReplaceTarget -om benchSphereShape -m sculptShape benchBlend");
    run("kv_blendShapeReplaceTarget -ti 5500 -om benchSphereShape -m sculptShape benchBlend");
}

// One timed command per iteration; the scene is rebuilt untimed before each.
void timed(benchmark::State& state, const std::string& setup, const std::string& command) {
    for (auto _ : state) {
        state.PauseTiming();
        freshScene();
        if (!setup.empty()) run(setup);
        state.ResumeTiming();
        run(command);
    }
}

BENCHMARK_CAPTURE(timed, extract, "", "kv_blendShapeExtractTarget -om benchSphereShape benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(timed, replace, "",
                  "kv_blendShapeReplaceTarget -om benchSphereShape -m sculptShape benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(timed, removeDeltasOfHalf, "select benchSphere.vtx[0:499999]",
                  "kv_blendShapeRemoveDeltas benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(timed, moveInbetween, "", "kv_blendShapeSetInbetweenPosition -sp 5500 -tp 5200 benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

} // namespace
