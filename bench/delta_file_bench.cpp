// Delta files: kv_blendShapeExportData and kv_blendShapeImportData with 100 dense targets on a
// 100,000-vertex mesh, and the core writer and scanner alone on the same data; reported in bytes
// of file per second.
#include <benchmark/benchmark.h>

#include "core/json/DeltaFileScanner.h"
#include "core/json/DeltaFileWriter.h"
#include "plugin/common.h"

#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kTargets = 100;
constexpr int kVertices = 100000;

std::string deltaPath() {
    return (std::filesystem::temp_directory_path() /
            ("talven_bench_deltas_" + std::to_string(getpid()) + ".json"))
        .string();
}

// Deltas of the size sculpted shapes have: a few hundredths, six significant digits.
std::vector<double> makeDeltas(unsigned int seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<> delta(-0.05, 0.05);
    std::vector<double> xyz(3 * kVertices);
    for (double& d : xyz) d = delta(random);
    return xyz;
}

MObject nodeNamed(const char* name) {
    MSelectionList list;
    list.add(name);
    MObject node;
    list.getDependNode(0, node);
    return node;
}

// A fresh scene with "benchBlend" holding kTargets dense targets and an empty "benchImport".
void denseScene() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    host::resetScene();
    MGlobal::executeCommand("createNode blendShape -n benchBlend; createNode blendShape -n benchImport");
    const MObject blend = nodeNamed("benchBlend");
    std::vector<int> all(kVertices);
    for (int v = 0; v < kVertices; ++v) all[v] = v;
    const MIntArray components(all.data(), kVertices);
    for (int t = 0; t < kTargets; ++t) {
        const std::vector<double> xyz = makeDeltas(static_cast<unsigned int>(t));
        MPointArray points(kVertices);
        for (unsigned int v = 0; v < kVertices; ++v)
            points[v] = MPoint(xyz[3 * v], xyz[3 * v + 1], xyz[3 * v + 2]);
        common::setTargetComponents(blend, t, 6000, components);
        common::setTargetPoints(blend, t, 6000, points);
    }
}

std::string exportCommand(const std::string& path) {
    std::string command = "kv_blendShapeExportData -d -fn \"" + path + "\"";
    for (int t = 0; t < kTargets; ++t)
        command += " -cn shape" + std::to_string(t) + " -i " + std::to_string(t);
    return command + " benchBlend";
}

void exportDenseTargets(benchmark::State& state) {
    denseScene();
    const std::string path = deltaPath();
    const MString command(exportCommand(path).c_str());
    for (auto _ : state) MGlobal::executeCommand(command);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * std::filesystem::file_size(path)));
    std::remove(path.c_str());
}
BENCHMARK(exportDenseTargets)->Unit(benchmark::kSecond)->Iterations(2);

void importDenseTargets(benchmark::State& state) {
    denseScene();
    const std::string path = deltaPath();
    MGlobal::executeCommand(MString(exportCommand(path).c_str()));
    const MString command(("kv_blendShapeImportData -d -fn \"" + path + "\" benchImport").c_str());
    for (auto _ : state) MGlobal::executeCommand(command);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * std::filesystem::file_size(path)));
    std::remove(path.c_str());
}
BENCHMARK(importDenseTargets)->Unit(benchmark::kSecond)->Iterations(2);

// kTargets full items of every vertex written by the core writer alone.
bool writeDenseFile(const std::string& path) {
    std::vector<int> components(kVertices);
    for (int v = 0; v < kVertices; ++v) components[v] = v;
    const std::vector<double> xyz = makeDeltas(1);
    json::DeltaFileWriter writer;
    if (!writer.open(path)) return false;
    for (int t = 0; t < kTargets; ++t) {
        writer.beginTarget(t, "shape");
        writer.writeItem(6000, components.data(), xyz.data(), kVertices, true);
        writer.endTarget(t + 1 == kTargets);
    }
    return writer.close();
}

// The writer alone: the same amount of data without the host's reading.
void writeDeltaFile(benchmark::State& state) {
    const std::string path = deltaPath();
    for (auto _ : state)
        if (!writeDenseFile(path)) state.SkipWithError("write failed");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * std::filesystem::file_size(path)));
    std::remove(path.c_str());
}
BENCHMARK(writeDeltaFile)->Unit(benchmark::kMillisecond)->Iterations(2);

class CountingHandler : public json::DeltaScanHandler {
public:
    std::size_t components = 0;
    void targetKey(int) override {}
    void channelName(const std::string&) override {}
    void itemKey(double, bool) override {}
    void item(int, int, const std::string&, const std::vector<int>& ids,
              const std::vector<double>&) override {
        components += ids.size();
    }
    void invalidItem(int, double) override {}
    void blockClosed() override {}
};

// The scanner alone on the file the writer benchmark writes.
void scanDeltaFile(benchmark::State& state) {
    const std::string path = deltaPath();
    if (!writeDenseFile(path)) state.SkipWithError("write failed");
    for (auto _ : state) {
        CountingHandler handler;
        json::scanDeltaFile(path, {}, handler);
        if (handler.components != std::size_t(kTargets) * kVertices) state.SkipWithError("scan failed");
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * std::filesystem::file_size(path)));
    std::remove(path.c_str());
}
BENCHMARK(scanDeltaFile)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace
