// kv_blendShapeMirrorTarget and kv_blendShapeSplitTarget on a million-vertex mesh whose target has
// a delta on every vertex: mirror and flip by position and by vertex order map, and splits.
#include <benchmark/benchmark.h>

#include "plugin/common.h"
#include "plugin/mirrorMatching.h"
#include "plugin/vertexOrderMap.h"

#include <maya/MDagPath.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

#include "engine/Scene.h"
#include "mesh/ClosestPointCache.h"
#include "session/Session.h"

#include <string>

namespace {

void run(const std::string& command) {
    MGlobal::executeCommand(MString(command.c_str()), false, false);
}

MDagPath meshPath() {
    MSelectionList list;
    list.add("mirrorSphereShape");
    MDagPath path;
    list.getDagPath(0, path);
    return path;
}

MObject blendShapeNode() {
    MSelectionList list;
    list.add("mirrorBlend");
    MObject node;
    list.getDependNode(0, node);
    return node;
}

// A sphere of about a million vertices, symmetric in x, with a vertex order map from its position
// pairs and a blend shape node; made again only when another benchmark reset the scene.
void ensureScene() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    if (meshPath().isValid()) return;
    host::resetScene();
    run("polySphere -sx 1000 -sy 1001 -n mirrorSphere; createNode blendShape -n mirrorBlend");
    const MDagPath mesh = meshPath();
    const unsigned int count = static_cast<unsigned int>(MFnMesh(mesh).numVertices());
    MIntArray all(count);
    for (unsigned int v = 0; v < count; ++v) all[v] = static_cast<int>(v);
    MIntArray map = common::getMirroredMeshIndices("x", mesh, all, 0.001f);
    if (map.length() != count) map = MIntArray(count, -1);
    MPlug plug;
    common::createVertexOrderMap(mesh, plug);
    common::writeVertexOrderMap(plug, map);
}

// Target 0 gets a delta on every vertex, pointing away from the plane on both sides.
void denseTarget() {
    MFloatPointArray points;
    MFnMesh(meshPath()).getPoints(points);
    MIntArray components(points.length());
    MPointArray deltas(points.length());
    for (unsigned int v = 0; v < points.length(); ++v) {
        components[v] = static_cast<int>(v);
        deltas[v] = MPoint(0.1 * points[v].x, 0.05, 0.01 * v / points.length());
    }
    common::setTargetComponents(blendShapeNode(), 0, 6000, components);
    common::setTargetPoints(blendShapeNode(), 0, 6000, deltas);
}

// Each run starts without a closest-point index of the mesh, as the first command of a batch does.
void command(benchmark::State& state, const std::string& text) {
    ensureScene();
    for (auto _ : state) {
        state.PauseTiming();
        denseTarget();
        host::clearClosestPointIndices();
        state.ResumeTiming();
        run(text);
    }
}

BENCHMARK_CAPTURE(command, mirrorByPosition, "kv_blendShapeMirrorTarget -om mirrorSphere mirrorBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(command, flipByPosition, "kv_blendShapeMirrorTarget -f 1 -om mirrorSphere mirrorBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(command, mirrorByOrderMap,
                  "kv_blendShapeMirrorTarget -om mirrorSphere -ob mirrorSphere mirrorBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(command, flipByOrderMap,
                  "kv_blendShapeMirrorTarget -f 1 -om mirrorSphere -ob mirrorSphere mirrorBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(command, splitRamp,
                  "kv_blendShapeSplitTarget -om mirrorSphereShape -iv 1 -b 0.1 mirrorBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(command, splitHardBaseWeights,
                  "kv_blendShapeSplitTarget -om mirrorSphereShape -iv 1 -i -1 mirrorBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

} // namespace
