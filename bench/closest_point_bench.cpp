// Closest-point queries on a million-vertex sphere: building the index, and a million queries at
// points within 1% of the radius from the surface, in random order, in the order of the mesh's
// vertices, and in random order spread over all cores; and a million at the mirrored vertices
// themselves, in vertex order, as the mirroring commands ask about a symmetric mesh, and at the
// mirrored vertices moved off them at random, as they ask about a scanned one.
#include <benchmark/benchmark.h>

#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MMeshIntersector.h>
#include <maya/MSelectionList.h>
#include <maya/MVector.h>

#include "engine/Scene.h"
#include "session/Session.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <random>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t kQueries = 1000000;

MObject millionVertexSphere() {
    static bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    host::resetScene();
    MGlobal::executeCommand("polySphere -sx 1000 -sy 1001 -n benchSphere");
    MSelectionList list;
    MObject sphere;
    list.add("benchSphereShape");
    list.getDependNode(0, sphere);
    return sphere;
}

double nearSurface(std::size_t i) {
    return 0.99 + 0.02 * static_cast<double>(i % 101) / 100.0;
}

std::vector<MPoint> randomPoints() {
    std::mt19937 random(5);
    std::normal_distribution<double> direction;
    std::vector<MPoint> points;
    points.reserve(kQueries);
    while (points.size() < kQueries) {
        const double x = direction(random), y = direction(random), z = direction(random);
        const double length = std::sqrt(x * x + y * y + z * z);
        if (length < 1e-9) continue;
        const double scale = nearSurface(points.size()) / length;
        points.emplace_back(x * scale, y * scale, z * scale);
    }
    return points;
}

// The sphere's vertices mirrored across x, in vertex order, moved off the surface or not.
std::vector<MPoint> mirroredVertices(const MObject& sphere, bool offSurface) {
    MFloatPointArray vertices;
    MFnMesh(sphere).getPoints(vertices);
    std::vector<MPoint> points;
    points.reserve(kQueries);
    for (std::size_t i = 0; points.size() < kQueries; ++i) {
        const MFloatPoint& v = vertices[static_cast<unsigned>(i % vertices.length())];
        points.push_back(MPoint(-v.x, v.y, v.z) * (offSurface ? nearSurface(i) : 1.0));
    }
    return points;
}

// The sphere's vertices mirrored across x, in vertex order, each moved in a random direction by
// up to 1% of the radius, as the vertices of a scanned, not quite symmetric mesh lie.
std::vector<MPoint> jitteredMirroredVertices(const MObject& sphere) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> offset(-0.01 / std::sqrt(3.0), 0.01 / std::sqrt(3.0));
    std::vector<MPoint> points = mirroredVertices(sphere, false);
    for (MPoint& p : points) p += MVector(offset(random), offset(random), offset(random));
    return points;
}

void queryAll(benchmark::State& state, MObject& sphere, const std::vector<MPoint>& points, unsigned threads) {
    MMeshIntersector intersector;
    if (!intersector.create(sphere)) state.SkipWithError("create failed");
    for (auto _ : state) {
        std::atomic<std::size_t> found{0};
        auto run = [&](std::size_t first) {
            MPointOnMesh hit;
            std::size_t count = 0;
            for (std::size_t i = first; i < points.size(); i += threads)
                count += intersector.getClosestPoint(points[i], hit) == MS::kSuccess;
            found += count;
        };
        std::vector<std::thread> workers;
        for (unsigned t = 1; t < threads; ++t) workers.emplace_back(run, t);
        run(0);
        for (std::thread& worker : workers) worker.join();
        if (found != points.size()) state.SkipWithError("a query failed");
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * points.size()));
}

void meshClosestPointBuild(benchmark::State& state) {
    MObject sphere = millionVertexSphere();
    for (auto _ : state) {
        MMeshIntersector intersector;
        if (!intersector.create(sphere)) state.SkipWithError("create failed");
    }
}
BENCHMARK(meshClosestPointBuild)->Unit(benchmark::kMillisecond)->Iterations(3);

void meshClosestPointRandomQueries(benchmark::State& state) {
    MObject sphere = millionVertexSphere();
    queryAll(state, sphere, randomPoints(), 1);
}
BENCHMARK(meshClosestPointRandomQueries)->Unit(benchmark::kMillisecond)->Iterations(1);

void meshClosestPointVertexOrderQueries(benchmark::State& state) {
    MObject sphere = millionVertexSphere();
    queryAll(state, sphere, mirroredVertices(sphere, true), 1);
}
BENCHMARK(meshClosestPointVertexOrderQueries)->Unit(benchmark::kMillisecond)->Iterations(1);

void meshClosestPointOnSurfaceVertexOrderQueries(benchmark::State& state) {
    MObject sphere = millionVertexSphere();
    queryAll(state, sphere, mirroredVertices(sphere, false), 1);
}
BENCHMARK(meshClosestPointOnSurfaceVertexOrderQueries)->Unit(benchmark::kMillisecond)->Iterations(1);

void meshClosestPointJitteredVertexOrderQueries(benchmark::State& state) {
    MObject sphere = millionVertexSphere();
    queryAll(state, sphere, jitteredMirroredVertices(sphere), 1);
}
BENCHMARK(meshClosestPointJitteredVertexOrderQueries)->Unit(benchmark::kMillisecond)->Iterations(1);

void meshClosestPointThreadedRandomQueries(benchmark::State& state) {
    MObject sphere = millionVertexSphere();
    queryAll(state, sphere, randomPoints(), std::max(1u, std::thread::hardware_concurrency()));
}
BENCHMARK(meshClosestPointThreadedRandomQueries)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
