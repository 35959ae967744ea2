#pragma once
// A mesh's geometry: single-precision points and the topology shared between copies.
#include "engine/Data.h"

#include <array>
#include <map>
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
    // Edges as (a, b) pairs in Maya's numbering; filled by buildEdges or given by a file.
    std::vector<std::array<int, 2>> edges;
    std::vector<int> faceEdges; // per face corner: the edge from that corner to the next
    std::vector<ColorSet> colorSets;
    std::string currentColorSet;

    std::shared_ptr<DataObject> clone() const override { return std::make_shared<MeshData>(*this); }
    int numVertices() const { return static_cast<int>(points.size()); }
    int numFaces() const { return static_cast<int>(faceCounts.size()); }
    int numEdges() const { return static_cast<int>(edges.size()); }
};

} // namespace host
