#pragma once
// Runs the topological mapping on a plain mesh as the mapping command does, recording its messages.
#include "core/mesh/MeshTopology.h"
#include "core/mesh/PolyMesh.h"
#include "core/symmetry/MeshShells.h"
#include "core/symmetry/OrderMapping.h"
#include "core/symmetry/ShellPairing.h"
#include "core/symmetry/SymmetryReport.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace symmetric {

class RecordingReport : public core::SymmetryReport {
public:
    void info(const std::string& text) override { lines.push_back("I " + text); }
    void warning(const std::string& text) override { lines.push_back("W " + text); }
    void error(const std::string& text) override { lines.push_back("E " + text); }
    std::string number(double value) const override {
        char text[32];
        std::snprintf(text, sizeof text, "%g", value);
        return text;
    }
    bool has(const std::string& line) const {
        for (const std::string& l : lines)
            if (l == line) return true;
        return false;
    }
    std::vector<std::string> lines;
};

// A plain mesh with its topology and shells, ready for the symmetry algorithms.
struct Prepared {
    explicit Prepared(const core::PolyMesh& polyMesh) : points(polyMesh.points) {
        topology.build(polyMesh.numVertices(), polyMesh.faceCounts, polyMesh.faceConnects);
        shells.reset(new core::MeshShells(topology));
    }
    core::SymmetryMesh mesh() const { return {topology, points, *shells, "shape"}; }
    // Stands in for the host's closest-point search on meshes whose halves match: the first face of the
    // vertex nearest to the point.
    int closestFace(const std::array<double, 3>& p) const {
        int best = -1;
        double bestDistance = 0.0;
        for (int v = 0; v < topology.numVertices(); ++v) {
            if (topology.vertexFaces(v).empty()) continue;
            double d = 0.0;
            for (int c = 0; c < 3; ++c)
                d += (points[3 * std::size_t(v) + c] - p[c]) * (points[3 * std::size_t(v) + c] - p[c]);
            if (best == -1 || d < bestDistance) {
                best = v;
                bestDistance = d;
            }
        }
        return best == -1 ? -1 : topology.vertexFaces(best)[0];
    }

    core::MeshTopology topology;
    std::vector<double> points;
    std::unique_ptr<core::MeshShells> shells;
};

struct MappingRun {
    std::vector<int> map;
    bool ok = false;
    bool errors = false;
    int mappedShells = 0;
    RecordingReport report;
};

// Finds the start components of every shell and maps them, as the command does without user edges.
inline MappingRun mapMesh(const core::PolyMesh& polyMesh, double tolerance = 0.0001,
                          unsigned int verbose = 0) {
    Prepared prepared(polyMesh);
    MappingRun run;
    core::ShellComponents components;
    std::vector<std::string> selection;
    const core::SymmetryMesh mesh = prepared.mesh();
    core::getMultiShellComponents(
        mesh, {0, tolerance, verbose, false}, {},
        [&](const std::array<double, 3>& p) { return prepared.closestFace(p); }, components, run.errors,
        selection, run.report);
    run.map.assign(std::size_t(polyMesh.numVertices()), -1);
    run.ok = core::mapShells(prepared.topology, components, run.map, run.mappedShells, run.report);
    return run;
}

} // namespace symmetric
