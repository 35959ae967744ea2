#pragma once
// Meshes symmetric across x = 0 by construction, for the symmetry tests and benchmarks: a half mesh is
// mirrored and welded on the plane, vertex and face order are shuffled, and the true partner of every
// vertex is known.
#include "core/mesh/PolyMesh.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <random>
#include <vector>

namespace symmetric {

struct Mesh {
    core::PolyMesh mesh;
    std::vector<int> partner; // the true mirror partner of every vertex
};

// A half mesh on x >= 0: a grid of `columns` x `rows` cells with the first column of vertices on the
// plane. Cells whose random draw falls under `triangles` are split along a random diagonal; a pair of
// cells on an even row whose draw falls under `ngons` is merged into one hexagon (never two stacked, since
// faces sharing two edges are not what real meshes hold).
inline core::PolyMesh halfGrid(int columns, int rows, double triangles, double ngons, unsigned int seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> draw(0.0, 1.0);
    core::PolyMesh half;
    const auto id = [&](int i, int j) { return j * (columns + 1) + i; };
    for (int j = 0; j <= rows; ++j)
        for (int i = 0; i <= columns; ++i) half.points.insert(half.points.end(), {double(i), double(j), 0.0});
    const auto face = [&](std::vector<int> vertices) {
        half.faceCounts.push_back(int(vertices.size()));
        half.faceConnects.insert(half.faceConnects.end(), vertices.begin(), vertices.end());
    };
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < columns; ++i) {
            const int a = id(i, j), b = id(i + 1, j), c = id(i + 1, j + 1), d = id(i, j + 1);
            if (j % 2 == 0 && i + 1 < columns && draw(random) < ngons) {
                face({a, b, id(i + 2, j), id(i + 2, j + 1), c, d});
                ++i;
            } else if (draw(random) < triangles) {
                if (draw(random) < 0.5) {
                    face({a, b, c});
                    face({a, c, d});
                } else {
                    face({a, b, d});
                    face({b, c, d});
                }
            } else {
                face({a, b, c, d});
            }
        }
    }
    return half;
}

// The half mesh and its mirror image across x = 0, welded where x is 0; mirrored faces wind the other way.
inline Mesh symmetrize(const core::PolyMesh& half) {
    Mesh result;
    const int n = half.numVertices();
    std::vector<int> image(static_cast<std::size_t>(n));
    result.mesh.points = half.points;
    result.partner.resize(std::size_t(n));
    for (int v = 0; v < n; ++v) {
        if (half.points[3 * std::size_t(v)] == 0.0) {
            image[std::size_t(v)] = v;
            result.partner[std::size_t(v)] = v;
            continue;
        }
        image[std::size_t(v)] = result.mesh.numVertices();
        result.partner[std::size_t(v)] = image[std::size_t(v)];
        result.partner.push_back(v);
        result.mesh.points.insert(result.mesh.points.end(),
                                  {-half.points[3 * std::size_t(v)], half.points[3 * std::size_t(v) + 1],
                                   half.points[3 * std::size_t(v) + 2]});
    }
    result.mesh.faceCounts = half.faceCounts;
    result.mesh.faceConnects = half.faceConnects;
    std::size_t offset = 0;
    for (int count : half.faceCounts) {
        result.mesh.faceCounts.push_back(count);
        for (int k = count - 1; k >= 0; --k)
            result.mesh.faceConnects.push_back(
                image[std::size_t(half.faceConnects[offset + std::size_t(k)])]);
        offset += std::size_t(count);
    }
    return result;
}

// A mesh moved along x; partners are unchanged (only meaningful for pairs of mirrored shells).
inline void translate(Mesh& mesh, double dx) {
    for (std::size_t v = 0; v < mesh.partner.size(); ++v) mesh.mesh.points[3 * v] += dx;
}

// Both meshes in one, the second's indices following the first's.
inline Mesh merge(const Mesh& a, const Mesh& b) {
    Mesh result = a;
    const int offset = a.mesh.numVertices();
    result.mesh.points.insert(result.mesh.points.end(), b.mesh.points.begin(), b.mesh.points.end());
    result.mesh.faceCounts.insert(result.mesh.faceCounts.end(), b.mesh.faceCounts.begin(),
                                  b.mesh.faceCounts.end());
    for (int v : b.mesh.faceConnects) result.mesh.faceConnects.push_back(v + offset);
    for (int p : b.partner) result.partner.push_back(p + offset);
    return result;
}

// A shell and its mirror image as two shells: the shell is moved to x + dx and mirrored to -(x + dx).
inline Mesh mirroredPair(const core::PolyMesh& shell, double dx) {
    core::PolyMesh moved = shell;
    for (std::size_t v = 0; v < std::size_t(moved.numVertices()); ++v) moved.points[3 * v] += dx;
    Mesh mesh = symmetrize(moved);
    return mesh;
}

// The same mesh with vertices and faces renumbered at random and each face starting at a random corner.
inline Mesh shuffle(const Mesh& in, unsigned int seed) {
    std::mt19937 random(seed);
    const int n = in.mesh.numVertices();
    std::vector<int> newIndex(static_cast<std::size_t>(n));
    std::iota(newIndex.begin(), newIndex.end(), 0);
    std::shuffle(newIndex.begin(), newIndex.end(), random);
    Mesh out;
    out.mesh.points.resize(in.mesh.points.size());
    out.partner.resize(std::size_t(n));
    for (int v = 0; v < n; ++v) {
        const std::size_t to = std::size_t(newIndex[std::size_t(v)]);
        for (std::size_t c = 0; c < 3; ++c)
            out.mesh.points[3 * to + c] = in.mesh.points[3 * std::size_t(v) + c];
        out.partner[to] = newIndex[std::size_t(in.partner[std::size_t(v)])];
    }
    std::vector<std::size_t> offsets{0};
    for (int count : in.mesh.faceCounts) offsets.push_back(offsets.back() + std::size_t(count));
    std::vector<std::size_t> faces(in.mesh.faceCounts.size());
    std::iota(faces.begin(), faces.end(), 0);
    std::shuffle(faces.begin(), faces.end(), random);
    for (std::size_t f : faces) {
        const int count = in.mesh.faceCounts[f];
        const int start = int(random() % unsigned(count));
        out.mesh.faceCounts.push_back(count);
        for (int k = 0; k < count; ++k)
            out.mesh.faceConnects.push_back(
                newIndex[std::size_t(in.mesh.faceConnects[offsets[f] + std::size_t((start + k) % count)])]);
    }
    return out;
}

// Bends the part of the x > 0 side below `limit`: y grows with the square of x, so the halves no longer
// match by position there.
inline void bendPositiveSide(core::PolyMesh& mesh, double amount, double limit) {
    for (std::size_t v = 0; v < std::size_t(mesh.numVertices()); ++v) {
        const double x = mesh.points[3 * v];
        if (x > 0.0 && x < limit) mesh.points[3 * v + 1] += amount * x * x;
    }
}

} // namespace symmetric
