// kv_editRegionMap on a map of a million vertices: every operation once per iteration on a fresh
// scene, and the region file layouts in bytes per second.
#include <benchmark/benchmark.h>

#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnDoubleArrayData.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <filesystem>
#include <string>

namespace {

const char* const kPlainFile = "/tmp/talven_bench_regions.txt";
const char* const kJsonFile = "/tmp/talven_bench_regions.json";

void run(const std::string& command) {
    MGlobal::executeCommand(MString(command.c_str()), false, false);
}

MPlug plug(const std::string& name) {
    MSelectionList list;
    MPlug result;
    list.add(name.c_str());
    list.getPlug(0, result);
    return result;
}

// A fresh scene: a plane of 1000 x 1000 vertices ("benchPlaneShape", with a colour set), a blend
// shape node and the region node "benchRegion" connected to it. Vertex v belongs to region v % 6;
// every third vertex is assigned at 0.5 only, and every seventh is split over two regions.
void freshScene() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    host::resetScene();
    run("polyPlane -w 1 -h 1 -sx 999 -sy 999 -n benchPlane; createNode blendShape -n benchBlend");
    run("createNode TALVENRegion -n benchRegion; connectAttr benchBlend.message benchRegion.TALVENRegion");
    run("setAttr benchRegion.regions -type \"string\" \"bench settings\"");
    MSelectionList list;
    list.add("benchPlaneShape");
    MDagPath shape;
    list.getDagPath(0, shape);
    MFnMesh(shape).createColorSetWithName("regions");
    const unsigned int count = static_cast<unsigned int>(MFnMesh(shape).numVertices());
    for (int k = 0; k < 6; ++k) {
        MDoubleArray weights(count, 0.0);
        for (unsigned int v = 0; v < count; ++v) {
            if (static_cast<int>(v % 6) == k) weights[v] = v % 3 == 0 ? 0.5 : v % 7 == 0 ? 0.6 : 1.0;
            if (static_cast<int>((v + 1) % 6) == k && v % 7 == 0) weights[v] = 0.4;
        }
        MFnDoubleArrayData data;
        plug("benchRegion.regionWeights" + std::to_string(k)).setValue(data.create(weights));
    }
}

// The setup commands run untimed after the fresh scene; the command is timed.
void operation(benchmark::State& state, const std::string& setup, const std::string& command) {
    for (auto _ : state) {
        state.PauseTiming();
        freshScene();
        if (!setup.empty()) run(setup);
        state.ResumeTiming();
        run(command);
    }
}

BENCHMARK_CAPTURE(operation, edit, "", "kv_editRegionMap -e -i 2 benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(operation, addToMap, "kv_editRegionMap -e -i 2 benchRegion",
                  "kv_editRegionMap -atm -i 2 benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
// The mesh's edge topology is built by a first fill of one vertex, untimed.
BENCHMARK_CAPTURE(operation, appendFromNeighbours,
                  "select -r benchPlane.vtx[0]; kv_editRegionMap -ap -i -1 -m benchPlaneShape benchRegion; "
                  "select -r benchPlane.vtx[0:999999]",
                  "kv_editRegionMap -ap -i -1 -m benchPlaneShape benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(operation, appendToRegion, "select -r benchPlane.vtx[0:999999]",
                  "kv_editRegionMap -ap -i 4 -m benchPlaneShape benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(operation, clear, "", "kv_editRegionMap -cl -i 1 -m benchPlaneShape benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(operation, store, "", "kv_editRegionMap -res 0 benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(operation, restore, "kv_editRegionMap -res 0 benchRegion",
                  "kv_editRegionMap -res 1 benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(operation, colored, "", "kv_editRegionMap -col 1 -m benchPlaneShape benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(operation, colorRamp, "", "kv_editRegionMap -col 2 -m benchPlaneShape benchRegion")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// Export and import of the whole map; bytes per second are those of the file.
void exportMap(benchmark::State& state, const char* path) {
    freshScene();
    for (auto _ : state) run(std::string("kv_editRegionMap -ex -fn \"") + path + "\" benchRegion");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * std::filesystem::file_size(path)));
}
BENCHMARK_CAPTURE(exportMap, plain, kPlainFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(exportMap, json, kJsonFile)->Unit(benchmark::kMillisecond)->Iterations(3);

void importMap(benchmark::State& state, const char* path) {
    freshScene();
    run(std::string("kv_editRegionMap -ex -fn \"") + path + "\" benchRegion");
    for (auto _ : state)
        run(std::string("kv_editRegionMap -im -fn \"") + path + "\" -m benchPlaneShape benchRegion");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * std::filesystem::file_size(path)));
    std::filesystem::remove(path);
}
BENCHMARK_CAPTURE(importMap, plain, kPlainFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(importMap, json, kJsonFile)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
