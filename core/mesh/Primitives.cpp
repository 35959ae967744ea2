#include "core/mesh/Primitives.h"

#include <cmath>
#include <initializer_list>

namespace core {

namespace {

constexpr double kPi = 3.14159265358979323846;

std::string checkSize(const char* name, double value) {
    if (!(value > 0.0) || !std::isfinite(value)) return std::string(name) + " must be a positive number";
    return {};
}

std::string checkSubdivisions(const char* name, int value, int minimum) {
    if (value < minimum || value > kMaxPrimitiveSubdivisions)
        return std::string(name) + " must be between " + std::to_string(minimum) + " and " +
               std::to_string(kMaxPrimitiveSubdivisions) + " (got " + std::to_string(value) + ")";
    return {};
}

std::string checkVertexCount(long long count) {
    if (count > kMaxPrimitiveVertices)
        return "the mesh would have " + std::to_string(count) + " vertices; at most " +
               std::to_string(kMaxPrimitiveVertices) + " are supported";
    return {};
}

// Empties the mesh and reserves room for the whole result, so that generating is one pass of appends.
void start(PolyMesh& mesh, long long numVertices, long long numFaces, long long numFaceVertices) {
    mesh = PolyMesh();
    mesh.points.reserve(static_cast<std::size_t>(numVertices) * 3);
    mesh.faceCounts.reserve(static_cast<std::size_t>(numFaces));
    mesh.faceConnects.reserve(static_cast<std::size_t>(numFaceVertices));
}

void addPoint(PolyMesh& mesh, double x, double y, double z) {
    mesh.points.push_back(x);
    mesh.points.push_back(y);
    mesh.points.push_back(z);
}

void addFace(PolyMesh& mesh, std::initializer_list<int> vertices) {
    mesh.faceCounts.push_back(static_cast<int>(vertices.size()));
    mesh.faceConnects.insert(mesh.faceConnects.end(), vertices);
}

// Coordinate of grid line i of `count` divisions across `size`, centred on zero.
double gridCoordinate(double size, int i, int count) {
    return size * (static_cast<double>(i) / count - 0.5);
}

} // namespace

std::string makePolyCube(const PolyCubeOptions& options, PolyMesh& mesh) {
    for (std::string error :
         {checkSize("width", options.width), checkSize("height", options.height),
          checkSize("depth", options.depth), checkSubdivisions("subdivisionsX", options.subdivisionsX, 1),
          checkSubdivisions("subdivisionsY", options.subdivisionsY, 1),
          checkSubdivisions("subdivisionsZ", options.subdivisionsZ, 1)}) {
        if (!error.empty()) return error;
    }
    const double w = options.width, h = options.height, d = options.depth;
    const int sx = options.subdivisionsX, sy = options.subdivisionsY, sz = options.subdivisionsZ;
    const int rows = 2 * (sy + sz);
    const int stride = sx + 1;
    const long long ringVertices = static_cast<long long>(rows) * stride;
    const long long sideInner = static_cast<long long>(sy - 1) * (sz - 1);
    if (std::string error = checkVertexCount(ringVertices + 2 * sideInner); !error.empty()) return error;
    const long long numFaces = static_cast<long long>(rows) * sx + 2LL * sy * sz;
    start(mesh, ringVertices + 2 * sideInner, numFaces, 4 * numFaces);

    for (int r = 0; r < rows; ++r) {
        double y = 0.0, z = 0.0;
        if (r <= sy) { // front, upwards
            y = gridCoordinate(h, r, sy);
            z = 0.5 * d;
        } else if (r <= sy + sz) { // top, backwards
            y = 0.5 * h;
            z = -gridCoordinate(d, r - sy, sz);
        } else if (r <= 2 * sy + sz) { // back, downwards
            y = -gridCoordinate(h, r - sy - sz, sy);
            z = -0.5 * d;
        } else { // bottom, forwards
            y = -0.5 * h;
            z = gridCoordinate(d, r - 2 * sy - sz, sz);
        }
        for (int i = 0; i <= sx; ++i) addPoint(mesh, gridCoordinate(w, i, sx), y, z);
    }
    for (double side : {1.0, -1.0}) {
        for (int v = 1; v < sy; ++v) {
            for (int u = 1; u < sz; ++u)
                addPoint(mesh, side * 0.5 * w, gridCoordinate(h, v, sy), -side * gridCoordinate(d, u, sz));
        }
    }

    for (int r = 0; r < rows; ++r) {
        const int next = (r + 1) % rows;
        for (int i = 0; i < sx; ++i)
            addFace(mesh, {r * stride + i, r * stride + i + 1, next * stride + i + 1, next * stride + i});
    }
    // Vertex (u, v) of a side: u runs along its bottom edge (towards -Z on +X, towards +Z on -X), v upwards.
    auto sideVertex = [&](bool plusX, int u, int v) {
        if (u > 0 && u < sz && v > 0 && v < sy)
            return static_cast<int>(ringVertices + (plusX ? 0 : sideInner)) + (v - 1) * (sz - 1) + (u - 1);
        const int fromFront = plusX ? u : sz - u;
        int row = (rows - fromFront) % rows; // bottom
        if (fromFront == 0)
            row = v;
        else if (v == sy)
            row = sy + fromFront;
        else if (fromFront == sz)
            row = 2 * sy + sz - v;
        return row * stride + (plusX ? sx : 0);
    };
    for (bool plusX : {true, false}) {
        for (int v = 0; v < sy; ++v) {
            for (int u = 0; u < sz; ++u) {
                addFace(mesh, {sideVertex(plusX, u, v), sideVertex(plusX, u + 1, v),
                               sideVertex(plusX, u + 1, v + 1), sideVertex(plusX, u, v + 1)});
            }
        }
    }
    return {};
}

std::string makePolyPlane(const PolyPlaneOptions& options, PolyMesh& mesh) {
    for (std::string error : {checkSize("width", options.width), checkSize("height", options.height),
                              checkSubdivisions("subdivisionsX", options.subdivisionsX, 1),
                              checkSubdivisions("subdivisionsY", options.subdivisionsY, 1)}) {
        if (!error.empty()) return error;
    }
    const int sx = options.subdivisionsX, sy = options.subdivisionsY;
    const int stride = sx + 1;
    const long long numVertices = static_cast<long long>(stride) * (sy + 1);
    if (std::string error = checkVertexCount(numVertices); !error.empty()) return error;
    const long long numFaces = static_cast<long long>(sx) * sy;
    start(mesh, numVertices, numFaces, 4 * numFaces);

    for (int j = 0; j <= sy; ++j) {
        const double z = -gridCoordinate(options.height, j, sy);
        for (int i = 0; i <= sx; ++i) addPoint(mesh, gridCoordinate(options.width, i, sx), 0.0, z);
    }
    for (int j = 0; j < sy; ++j) {
        for (int i = 0; i < sx; ++i)
            addFace(mesh,
                    {j * stride + i, j * stride + i + 1, (j + 1) * stride + i + 1, (j + 1) * stride + i});
    }
    return {};
}

std::string makePolySphere(const PolySphereOptions& options, PolyMesh& mesh) {
    for (std::string error :
         {checkSize("radius", options.radius), checkSubdivisions("subdivisionsX", options.subdivisionsX, 3),
          checkSubdivisions("subdivisionsY", options.subdivisionsY, 2)}) {
        if (!error.empty()) return error;
    }
    const double radius = options.radius;
    const int sx = options.subdivisionsX, sy = options.subdivisionsY;
    const int rings = sy - 1;
    const long long numVertices = static_cast<long long>(sx) * rings + 2;
    if (std::string error = checkVertexCount(numVertices); !error.empty()) return error;
    const long long numQuads = static_cast<long long>(sx) * (rings - 1);
    start(mesh, numVertices, numQuads + 2LL * sx, 4 * numQuads + 6LL * sx);

    // Ring vertex k sits at angle 2pi (k + 1) / sx, so the last one of each ring lies on +X.
    std::vector<double> cosAround(static_cast<std::size_t>(sx)), sinAround(static_cast<std::size_t>(sx));
    for (int k = 0; k < sx; ++k) {
        const double angle = 2.0 * kPi * ((k + 1) % sx) / sx;
        cosAround[k] = std::cos(angle);
        sinAround[k] = std::sin(angle);
    }
    for (int j = 0; j < rings; ++j) {
        const double latitude = kPi * (static_cast<double>(j + 1) / sy - 0.5);
        const double y = radius * std::sin(latitude), ringRadius = radius * std::cos(latitude);
        for (int k = 0; k < sx; ++k) addPoint(mesh, ringRadius * cosAround[k], y, -ringRadius * sinAround[k]);
    }
    addPoint(mesh, 0.0, -radius, 0.0);
    addPoint(mesh, 0.0, radius, 0.0);

    for (int j = 0; j + 1 < rings; ++j) {
        const int base = j * sx, up = base + sx;
        for (int k = 0; k < sx; ++k) {
            const int k1 = (k + 1) % sx;
            addFace(mesh, {base + k, base + k1, up + k1, up + k});
        }
    }
    const int bottomPole = sx * rings, topPole = bottomPole + 1, topRing = sx * (rings - 1);
    for (int k = 0; k < sx; ++k) addFace(mesh, {bottomPole, (k + 1) % sx, k});
    for (int k = 0; k < sx; ++k) addFace(mesh, {topRing + k, topRing + (k + 1) % sx, topPole});
    return {};
}

std::string makePolyCylinder(const PolyCylinderOptions& options, PolyMesh& mesh) {
    for (std::string error : {checkSize("radius", options.radius), checkSize("height", options.height),
                              checkSubdivisions("subdivisionsX", options.subdivisionsX, 3),
                              checkSubdivisions("subdivisionsY", options.subdivisionsY, 1)}) {
        if (!error.empty()) return error;
    }
    const int sx = options.subdivisionsX, sy = options.subdivisionsY, rings = sy + 1;
    const long long numVertices = static_cast<long long>(sx) * rings + 2;
    if (std::string error = checkVertexCount(numVertices); !error.empty()) return error;
    const long long numQuads = static_cast<long long>(sx) * sy;
    start(mesh, numVertices, numQuads + 2LL * sx, 4 * numQuads + 6LL * sx);
    for (int j = 0; j < rings; ++j) {
        const double y = options.height * (static_cast<double>(j) / sy - 0.5);
        for (int k = 0; k < sx; ++k) {
            const double angle = 2.0 * kPi * ((k + 1) % sx) / sx;
            addPoint(mesh, options.radius * std::cos(angle), y, -options.radius * std::sin(angle));
        }
    }
    addPoint(mesh, 0.0, -0.5 * options.height, 0.0);
    addPoint(mesh, 0.0, 0.5 * options.height, 0.0);
    for (int j = 0; j < sy; ++j) {
        const int base = j * sx, up = base + sx;
        for (int k = 0; k < sx; ++k) {
            const int k1 = (k + 1) % sx;
            addFace(mesh, {base + k, base + k1, up + k1, up + k});
        }
    }
    const int bottomCentre = sx * rings, topCentre = bottomCentre + 1, topRing = sx * sy;
    for (int k = 0; k < sx; ++k) addFace(mesh, {bottomCentre, (k + 1) % sx, k});
    for (int k = 0; k < sx; ++k) addFace(mesh, {topRing + k, topRing + (k + 1) % sx, topCentre});
    return {};
}

} // namespace core
