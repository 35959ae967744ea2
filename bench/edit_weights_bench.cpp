// kv_blendShapeEditWeights on a million-vertex mesh: every edit mode on a dense map, mirroring by
// position and by vertex order map, and files of a million pairs.
#include <benchmark/benchmark.h>

#include "plugin/mirrorMatching.h"
#include "plugin/vertexOrderMap.h"

#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MSelectionList.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace {

const char* const kPlainFile = "/tmp/talven_bench_weights.txt";
const char* const kJsonFile = "/tmp/talven_bench_weights.json";

void startSessionOnce() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
}

void run(const std::string& command) {
    MGlobal::executeCommand(MString(command.c_str()), false, false);
}

MDagPath meshPath() {
    MSelectionList list;
    list.add("benchSphereShape");
    MDagPath path;
    list.getDagPath(0, path);
    return path;
}

// A fresh scene: a sphere of about a million vertices, symmetric in x, and a blend shape node
// whose target 0 has a weight below 1.0 on every vertex on the +X side (about half the mesh).
void freshScene() {
    startSessionOnce();
    host::resetScene();
    run("polySphere -sx 1000 -sy 1001 -n benchSphere");
    run("createNode blendShape -n benchBlend");
    const int vertices = MFnMesh(meshPath()).numVertices();
    std::ofstream file(kPlainFile);
    MFloatPointArray points;
    MFnMesh(meshPath()).getPoints(points);
    for (int v = 0; v < vertices; ++v)
        file << v << ' ' << (points[static_cast<unsigned int>(v)].x > 0.f ? 0.25 : 1.0) << '\n';
    file.close();
    run(std::string("kv_blendShapeEditWeights -im -fn \"") + kPlainFile + "\" benchBlend");
}

// One timed command per iteration; the scene is rebuilt untimed before each.
void editMode(benchmark::State& state, const std::string& command) {
    for (auto _ : state) {
        state.PauseTiming();
        freshScene();
        state.ResumeTiming();
        run(command);
    }
}

void getWeights(benchmark::State& state) {
    freshScene();
    MDoubleArray weights;
    for (auto _ : state) MGlobal::executeCommand("kv_blendShapeEditWeights -gw benchBlend", weights);
    state.counters["elements"] = weights.length();
}
BENCHMARK(getWeights)->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_CAPTURE(editMode, importPlain,
                  std::string("kv_blendShapeEditWeights -im -fn \"") + kPlainFile + "\" benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, invert, "kv_blendShapeEditWeights -iv -om benchSphere benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, trim, "kv_blendShapeEditWeights -t -om benchSphere benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, flushObject,
                  "select benchSphere; kv_blendShapeEditWeights -fl 0.5 -om benchSphere benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, add,
                  std::string("kv_blendShapeEditWeights -aw -fn \"") + kPlainFile +
                      "\" -om benchSphere benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, subtract,
                  std::string("kv_blendShapeEditWeights -sub -fn \"") + kPlainFile +
                      "\" -om benchSphere benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, exportPlain,
                  std::string("kv_blendShapeEditWeights -ex -fn \"") + kPlainFile + "x\" benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, exportJson,
                  std::string("kv_blendShapeEditWeights -ex -fn \"") + kJsonFile + "\" benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(editMode, mirrorByPosition, "kv_blendShapeEditWeights -m -om benchSphere benchBlend")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// A million -wi/-w pairs in one command (parsing included).
void setWeights(benchmark::State& state) {
    freshScene();
    const int vertices = MFnMesh(meshPath()).numVertices();
    std::string command = "kv_blendShapeEditWeights -sw";
    command.reserve(static_cast<std::size_t>(vertices) * 24);
    for (int v = 0; v < vertices; ++v) command += " -wi " + std::to_string(v) + " -w 0.5";
    command += " benchBlend";
    for (auto _ : state) run(command);
}
BENCHMARK(setWeights)->Unit(benchmark::kMillisecond)->Iterations(3);

void mirrorByOrderMap(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        freshScene();
        const MDagPath mesh = meshPath();
        MIntArray all;
        for (int v = 0; v < MFnMesh(mesh).numVertices(); ++v) all.append(v);
        const MIntArray partners = common::getMirroredMeshIndices("x", mesh, all, 0.001f);
        MIntArray map(all.length(), -1);
        if (partners.length() == all.length())
            for (unsigned int v = 0; v < all.length(); ++v) map[v] = partners[v];
        MPlug plug;
        common::createVertexOrderMap(mesh, plug);
        common::writeVertexOrderMap(plug, map);
        state.ResumeTiming();
        run("kv_blendShapeEditWeights -m -ob benchSphere -om benchSphere benchBlend");
    }
}
BENCHMARK(mirrorByOrderMap)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
