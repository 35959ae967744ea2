// Topological symmetry on a symmetric mesh of about a million vertices in three shells (a grid symmetric
// in itself with triangles and n-gons, and a mirrored pair of small shells), numbered row by row as
// modelled meshes are: building the order map with kv_polyMapVertexOrder and the positional check of
// kv_polySymmetry.
#include <benchmark/benchmark.h>

#include "tests/support/SymmetricMeshes.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>

#include "engine/Scene.h"
#include "session/Session.h"

namespace {

// A fresh scene holding the mesh "body" (1,001,820 + 882 vertices).
void freshSymmetricMesh() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    static const symmetric::Mesh mesh =
        symmetric::merge(symmetric::symmetrize(symmetric::halfGrid(707, 707, 0.1, 0.05, 1)),
                         symmetric::mirroredPair(symmetric::halfGrid(20, 20, 0.0, 0.0, 2), 1000.0));
    host::resetScene();
    MPointArray points;
    for (std::size_t v = 0; v < std::size_t(mesh.mesh.numVertices()); ++v)
        points.append(
            MPoint(mesh.mesh.points[3 * v], mesh.mesh.points[3 * v + 1], mesh.mesh.points[3 * v + 2]));
    MIntArray counts, connects;
    for (int c : mesh.mesh.faceCounts) counts.append(c);
    for (int v : mesh.mesh.faceConnects) connects.append(v);
    MFnMesh meshFn;
    MObject transform =
        meshFn.create(mesh.mesh.numVertices(), static_cast<int>(counts.length()), points, counts, connects);
    MFnDependencyNode(transform).setName("body");
}

void mapVertexOrder(benchmark::State& state) {
    freshSymmetricMesh();
    for (auto _ : state) {
        int result = 0;
        MGlobal::executeCommand("kv_polyMapVertexOrder body", result);
        if (result != 1) state.SkipWithError("the mesh was not mapped");
    }
}
BENCHMARK(mapVertexOrder)->Unit(benchmark::kMillisecond);

void checkSymmetry(benchmark::State& state) {
    freshSymmetricMesh();
    for (auto _ : state) {
        int result = 0;
        MGlobal::executeCommand("kv_polySymmetry body", result);
        if (result != 1) state.SkipWithError("the mesh was not found symmetrical");
    }
}
BENCHMARK(checkSymmetry)->Unit(benchmark::kMillisecond);

} // namespace
