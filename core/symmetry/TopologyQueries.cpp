#include "core/symmetry/TopologyQueries.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace core {

int getEdgeByVertex(const MeshTopology& topology, int v, int w) {
    for (int edge : topology.vertexEdges(v)) {
        const std::array<int, 2> ends = topology.edgeVertices(edge);
        if (ends[0] == w || ends[1] == w) return edge;
    }
    return -1;
}

bool getConnectedEdgeFaces(const MeshTopology& topology, int edge, int& face1, int& face2,
                           SymmetryReport& report) {
    face1 = -1;
    face2 = -1;
    const IndexRange faces = topology.edgeFaces(edge);
    if (faces.empty()) {
        report.warning("The symmetry edge is not connected to any faces.");
        return false;
    }
    if (faces.size() == 1) {
        report.warning("The symmetry edge must be connected to two faces.");
        return false;
    }
    face1 = faces[0];
    face2 = faces[1];
    return true;
}

int getEdgeDirection(IndexRange faceVertices, int a, int b) {
    const int n = faceVertices.size();
    for (int p = 0; p < n; ++p) {
        if (faceVertices[p] != a) continue;
        if (faceVertices[(p + 1) % n] == b) return 1;
        if (faceVertices[(p + n - 1) % n] == b) return -1;
        return 0;
    }
    return 0;
}

std::vector<int> removeIntArrayDuplicates(const std::vector<int>& values, std::vector<int>& duplicates) {
    // Occurrences of one value pair up in order: the 1st with the 2nd, the 3rd with the 4th, ...
    std::unordered_map<int, int> total, met;
    for (int value : values) ++total[value];
    std::vector<int> kept;
    for (int value : values) {
        const int occurrence = met[value]++;
        if (occurrence % 2 == 1) continue;
        if (occurrence + 1 < total[value]) {
            duplicates.push_back(value);
        } else {
            kept.push_back(value);
        }
    }
    return kept;
}

double averageEdgeLength(const MeshTopology& topology, const std::vector<double>& points, int step) {
    double sum = 0.0;
    int visited = 0;
    const std::vector<int>& ends = topology.edgeVertexList();
    for (int edge = 0; edge < topology.numEdges(); edge += std::max(step, 1)) {
        const double* p = &points[3 * std::size_t(ends[2 * std::size_t(edge)])];
        const double* q = &points[3 * std::size_t(ends[2 * std::size_t(edge) + 1])];
        sum += std::sqrt((p[0] - q[0]) * (p[0] - q[0]) + (p[1] - q[1]) * (p[1] - q[1]) +
                         (p[2] - q[2]) * (p[2] - q[2]));
        ++visited;
    }
    return visited ? sum / visited : std::numeric_limits<double>::quiet_NaN();
}

bool getConnectedCenterVertex(const SymmetryMesh& mesh, unsigned int axis, int vertex, double tolerance,
                              int& centre, SymmetryReport& report) {
    centre = -1;
    const IndexRange neighbours = mesh.topology.vertexVertices(vertex);
    if (neighbours.empty()) {
        report.warning("The shell vertex is not connected to any vertices.");
        return false;
    }
    for (int neighbour : neighbours) {
        if (mesh.onPlane(neighbour, axis, tolerance)) {
            centre = neighbour;
            break;
        }
    }
    return true;
}

bool getSymmetryComponentsOneShell(const SymmetryMesh& mesh, unsigned int axis, int centre, double tolerance,
                                   unsigned int verbose, OneShellComponents& components,
                                   SymmetryReport& report) {
    components = OneShellComponents();
    int second = -1;
    if (!getConnectedCenterVertex(mesh, axis, centre, tolerance, second, report) || second == -1) {
        if (verbose != 0)
            report.warning(
                "A second center vertex cannot be found for a shell without user defined components.");
        return false;
    }
    const int edge = getEdgeByVertex(mesh.topology, centre, second);
    if (edge == -1) {
        if (verbose != 0)
            report.warning("A symmetry edge cannot be found for a shell without user defined components.");
        return false;
    }
    int face1 = -1, face2 = -1;
    if (!getConnectedEdgeFaces(mesh.topology, edge, face1, face2, report)) return false;
    components = {second, face1, face2};
    return true;
}

ShellData getShellData(const SymmetryMesh& mesh, int shell, unsigned int axis, const UserShells& user,
                       double tolerance, std::vector<int>& seen, SymmetryReport& report) {
    ShellData data;
    const IndexRange faces = mesh.shells.faces(shell);
    if (faces.empty()) return data;
    data.startFace = faces[0];
    data.faceCount = faces.size();
    for (std::size_t k = 0; k < user.shellStarts.size(); ++k) {
        if (user.shellStarts[k] == data.startFace) {
            data.userFace = user.faces[k];
            return data;
        }
    }
    // The vertex nearest the plane, the first visited on ties. A vertex on the plane with a neighbour on
    // the plane is taken without recording its distance, so the next vertex always replaces it.
    double best = -1.0;
    const int stamp = shell + 1;
    bool first = true;
    for (int face : faces) {
        if (std::find(user.faces.begin(), user.faces.end(), face) != user.faces.end()) data.userFace = face;
        for (int vertex : mesh.topology.faceVertices(face)) {
            if (seen[vertex] == stamp) continue;
            seen[vertex] = stamp;
            ++data.vertexCount;
            const std::array<double, 3> p = mesh.point(vertex);
            if (first) {
                data.boxMin = p;
                data.boxMax = p;
                first = false;
            }
            for (int c = 0; c < 3; ++c) {
                if (p[c] < data.boxMin[c]) data.boxMin[c] = p[c];
                if (p[c] > data.boxMax[c]) data.boxMax[c] = p[c];
            }
            const double distance = std::fabs(p[axis]);
            if (data.centreVertex == -1 && distance * distance < tolerance * tolerance) {
                int neighbour = -1;
                getConnectedCenterVertex(mesh, axis, vertex, tolerance, neighbour, report);
                if (neighbour != -1) data.centreVertex = vertex;
            } else if (best == -1.0 || distance < best) {
                data.centreVertex = vertex;
                best = distance;
            }
        }
    }
    return data;
}

} // namespace core
