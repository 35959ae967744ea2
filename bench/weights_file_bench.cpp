// Weights file throughput: writing and reading a map of a million pairs in both layouts
// (argument 1: JSON, 0: plain), reported in pairs per second.
#include <benchmark/benchmark.h>

#include "core/json/WeightsFile.h"

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kPairs = 1000000;

std::string weightsPath(bool asJson) {
    const std::string name = "talven_bench_weights_" + std::to_string(getpid()) + (asJson ? ".json" : ".txt");
    return (std::filesystem::temp_directory_path() / name).string();
}

// Indices of every vertex and weights spread over [0, 1], the shape of a painted map.
void makeMap(std::vector<int>& indices, std::vector<double>& weights) {
    std::mt19937 random(3);
    std::uniform_real_distribution<> weight(0.0, 1.0);
    indices.resize(kPairs);
    weights.resize(kPairs);
    for (int i = 0; i < kPairs; ++i) {
        indices[i] = i;
        weights[i] = weight(random);
    }
}

void writeWeightsFileMillion(benchmark::State& state) {
    const bool asJson = state.range(0) != 0;
    const std::string path = weightsPath(asJson);
    std::vector<int> indices;
    std::vector<double> weights;
    makeMap(indices, weights);
    for (auto _ : state)
        if (!json::writeWeightsFile(path, indices, weights, asJson)) state.SkipWithError("write failed");
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * kPairs);
    std::remove(path.c_str());
}
BENCHMARK(writeWeightsFileMillion)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

void readWeightsFileMillion(benchmark::State& state) {
    const bool asJson = state.range(0) != 0;
    const std::string path = weightsPath(asJson);
    std::vector<int> indices;
    std::vector<double> weights;
    makeMap(indices, weights);
    if (!json::writeWeightsFile(path, indices, weights, asJson)) state.SkipWithError("write failed");
    for (auto _ : state) {
        indices.clear();
        weights.clear();
        const bool read =
            asJson ? json::readFile(path, indices, weights) : json::readFileSimple(path, indices, weights);
        if (!read || indices.size() != kPairs) state.SkipWithError("read failed");
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * kPairs);
    std::remove(path.c_str());
}
BENCHMARK(readWeightsFileMillion)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

} // namespace
