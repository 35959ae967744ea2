#pragma once
// A mesh's geometry: single-precision points, faces, optional edges as a file gave them, colour
// sets, and the topology built from the faces on first use and shared between copies.
#include "core/mesh/MeshTopology.h"
#include "engine/Data.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace host {

struct ColorSet {
    std::string name;
    std::vector<std::array<float, 4>> colors; // per vertex; alpha < 0 marks an unset colour
};

struct MeshData : DataOf<DataKind::Mesh> {
    std::vector<std::array<float, 3>> points;
    std::vector<int> faceCounts;
    std::vector<int> faceConnects;
    // Edges as (a, b) pairs when a file gave them; empty when they follow from the faces.
    std::vector<std::array<int, 2>> edges;
    std::vector<ColorSet> colorSets;
    std::string currentColorSet;

    std::shared_ptr<DataObject> clone() const override { return std::make_shared<MeshData>(*this); }
    int numVertices() const { return static_cast<int>(points.size()); }
    int numFaces() const { return static_cast<int>(faceCounts.size()); }

    // The topology of the current faces; an invalid face list gives an empty topology and the
    // reason in `topologyError()`.
    const core::MeshTopology& topology() const;
    const std::string& topologyError() const;
    // Call after changing faces, edges or the number of points.
    void invalidateTopology() { topology_.reset(); }

private:
    struct Cache {
        core::MeshTopology topology;
        std::string error;
    };
    mutable std::shared_ptr<const Cache> topology_;
    const Cache& cache() const;
};

} // namespace host
