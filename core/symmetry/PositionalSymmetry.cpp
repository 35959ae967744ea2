#include "core/symmetry/PositionalSymmetry.h"

#include "core/common/Numbers.h"

#include <cmath>

namespace core {

namespace {

bool hasOppositeConnection(const MeshTopology& topology, const std::vector<double>& points, unsigned int axis,
                           bool direction, int vertex) {
    for (int neighbour : topology.vertexVertices(vertex))
        if (onTestedSide(points[3 * std::size_t(neighbour) + axis], direction)) return true;
    return false;
}

// The shortest distance to a neighbour, each distance rounded to five decimals; 0 without neighbours.
double getClosestConnectedVertexDistance(const MeshTopology& topology, const std::vector<double>& points,
                                         int vertex) {
    double shortest = -1.0;
    const double* p = &points[3 * std::size_t(vertex)];
    for (int neighbour : topology.vertexVertices(vertex)) {
        const double* q = &points[3 * std::size_t(neighbour)];
        const double length = roundDouble(std::sqrt(
            (p[0] - q[0]) * (p[0] - q[0]) + (p[1] - q[1]) * (p[1] - q[1]) + (p[2] - q[2]) * (p[2] - q[2])));
        if (shortest < 0.0 || length < shortest) shortest = length;
    }
    return shortest < 0.0 ? 0.0 : shortest;
}

} // namespace

bool onTestedSide(double coordinate, bool direction) {
    const double rounded = roundDouble(coordinate);
    return direction ? rounded < 0.0 : rounded > 0.0;
}

PositionalCheck checkPositionalSymmetry(const MeshTopology& topology, const std::vector<double>& points,
                                        unsigned int axis, bool direction, double tolerance,
                                        const std::vector<int>& tested, const ClosestFace& closestFace,
                                        std::vector<int>& map, SymmetryReport& report) {
    PositionalCheck check;
    const double toleranceSquared = tolerance * tolerance;
    const int numVertices = static_cast<int>(points.size() / 3);
    for (int v : tested) {
        if (v < 0 || v >= numVertices) continue;
        const double* p = &points[3 * std::size_t(v)];
        if (!onTestedSide(p[axis], direction)) {
            if (!hasOppositeConnection(topology, points, axis, direction, v)) continue;
            const double length = getClosestConnectedVertexDistance(topology, points, v);
            if (check.smallestCentreEdge == 0.0 || length < check.smallestCentreEdge)
                check.smallestCentreEdge = length;
        }
        const int face = closestFace({p[0], p[1], p[2]});
        if (face < 0) {
            report.error("Failed to get closest point.");
            check.asymmetrical.push_back(v);
            continue;
        }
        int partner = -1;
        for (int u : topology.faceVertices(face)) {
            const double* q = &points[3 * std::size_t(u)];
            double d[3] = {p[0] - q[0], p[1] - q[1], p[2] - q[2]};
            d[axis] = p[axis] + q[axis];
            if (d[0] * d[0] + d[1] * d[1] + d[2] * d[2] < toleranceSquared) {
                partner = u;
                break;
            }
        }
        if (partner == -1) {
            check.asymmetrical.push_back(v);
            continue;
        }
        map[std::size_t(v)] = partner;
        map[std::size_t(partner)] = v;
    }
    return check;
}

void applyOrderMap(std::vector<double>& points, const std::vector<int>& map, unsigned int axis,
                   bool direction) {
    const std::vector<double> source(points);
    const std::size_t numVertices = points.size() / 3;
    for (std::size_t v = 0; v < numVertices && v < map.size(); ++v) {
        const int partner = map[v];
        if (partner < 0 || std::size_t(partner) >= numVertices) continue;
        if (!onTestedSide(source[3 * v + axis], direction)) continue;
        for (unsigned int c = 0; c < 3; ++c) points[3 * v + c] = source[3 * std::size_t(partner) + c];
        points[3 * v + axis] = -points[3 * v + axis];
    }
}

} // namespace core
