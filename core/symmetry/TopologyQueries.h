#pragma once

#include "core/mesh/CompressedRows.h"
#include "core/mesh/MeshTopology.h"
#include "core/symmetry/SymmetryMesh.h"
#include "core/symmetry/SymmetryReport.h"

#include <array>
#include <vector>

namespace core {

// The edge joining v and w: the first of v's edges (in adjacency order) that ends at w, or -1.
int getEdgeByVertex(const MeshTopology& topology, int v, int w);

// The first two faces of an edge. Warns and fails when it has none or only one.
bool getConnectedEdgeFaces(const MeshTopology& topology, int edge, int& face1, int& face2,
                           SymmetryReport& report);

// 1 when b follows a in the face's vertex list, -1 when it precedes it, else 0.
int getEdgeDirection(IndexRange faceVertices, int a, int b);

// The values with each pair of equal values removed (the first and the next occurrence form a pair; an
// unpaired last occurrence is kept). `duplicates` receives each removed pair's value once.
std::vector<int> removeIntArrayDuplicates(const std::vector<int>& values, std::vector<int>& duplicates);

// Mean length of edges 0, step, 2 * step, ...; NaN for a mesh without edges.
double averageEdgeLength(const MeshTopology& topology, const std::vector<double>& points, int step);

// The first neighbour of the vertex that lies on the plane, or -1. Warns and fails when the vertex has
// no neighbours.
bool getConnectedCenterVertex(const SymmetryMesh& mesh, unsigned int axis, int vertex, double tolerance,
                              int& centre, SymmetryReport& report);

// The symmetry edge of a shell symmetric in itself, found from one of its vertices on the plane: the
// second centre vertex next to it and the two faces of the edge joining them. Fails (all -1) when there
// is no such vertex, edge or pair of faces.
struct OneShellComponents {
    int secondCentre = -1;
    int face1 = -1;
    int face2 = -1;
};
bool getSymmetryComponentsOneShell(const SymmetryMesh& mesh, unsigned int axis, int centre, double tolerance,
                                   unsigned int verbose, OneShellComponents& components,
                                   SymmetryReport& report);

// Shells for which the user gave a symmetry edge: the lowest face of the shell and the edge's first face.
struct UserShells {
    std::vector<int> shellStarts;
    std::vector<int> faces;
};

// What a scan of one shell finds.
struct ShellData {
    int startFace = -1;
    int faceCount = 0;
    int vertexCount = 0;
    int userFace = -1;
    int centreVertex = -1;
    std::array<double, 3> boxMin{};
    std::array<double, 3> boxMax{};
};

// Scans one shell: its counts, its user face and, unless the user gave its symmetry edge, its vertices'
// bounding box and the vertex nearest the plane. `seen` is scratch space of one entry per vertex that
// holds no value above `shell` on entry.
ShellData getShellData(const SymmetryMesh& mesh, int shell, unsigned int axis, const UserShells& user,
                       double tolerance, std::vector<int>& seen, SymmetryReport& report);

} // namespace core
