#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

namespace core {

// Where the two walks of each shell (or shell pair) to be mapped begin, as parallel lists: the start faces
// of the first and second walk, the entry vertices of the first walk (1, 2) and of the second walk
// (3, 4; -1 when the second walk enters through 1, 2), and the shell's face and vertex counts. Start
// entries and counts are appended separately, since user-given shells receive their counts later.
struct ShellComponents {
    std::vector<int> faces1, faces2, vertices1, vertices2, vertices3, vertices4;
    std::vector<int> shellFaceCounts, shellVertexCounts;

    void appendStart(int face1, int face2, int vertex1, int vertex2, int vertex3, int vertex4) {
        faces1.push_back(face1);
        faces2.push_back(face2);
        vertices1.push_back(vertex1);
        vertices2.push_back(vertex2);
        vertices3.push_back(vertex3);
        vertices4.push_back(vertex4);
    }
    void appendCounts(int faceCount, int vertexCount) {
        shellFaceCounts.push_back(faceCount);
        shellVertexCounts.push_back(vertexCount);
    }
    std::size_t size() const { return faces1.size(); }
};

// The face holding the point of the mesh nearest to the given point, or -1 when the search fails.
using ClosestFace = std::function<int(const std::array<double, 3>&)>;

} // namespace core
