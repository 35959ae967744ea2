#pragma once

#include <string>

#include "core/mesh/PolyMesh.h"

namespace core {

// Plain meshes laid out as Maya's polyCube, polyPlane and polySphere make them without construction
// history: same vertex numbering, face order and face vertex order. Each maker returns an empty string
// on success, otherwise what is wrong with the options, and then leaves `mesh` unchanged.

// Largest subdivision count accepted along any axis.
constexpr int kMaxPrimitiveSubdivisions = 100000;
// Largest vertex count a primitive may have, so that no option asks for an absurd allocation.
constexpr long long kMaxPrimitiveVertices = 1LL << 24;

struct PolyCubeOptions {
    double width = 1.0;
    double height = 1.0;
    double depth = 1.0;
    int subdivisionsX = 1;
    int subdivisionsY = 1;
    int subdivisionsZ = 1;
};

struct PolyPlaneOptions {
    double width = 1.0;  // along X
    double height = 1.0; // along Z
    int subdivisionsX = 10;
    int subdivisionsY = 10;
};

struct PolySphereOptions {
    double radius = 1.0;
    int subdivisionsX = 20; // around the Y axis
    int subdivisionsY = 20; // from pole to pole
};

struct PolyCylinderOptions {
    double radius = 1.0;
    double height = 2.0;    // along Y, centred on the origin
    int subdivisionsX = 20; // around the Y axis
    int subdivisionsY = 1;  // along the height
};

// Vertices form rings from the bottom (-Y) to the top, each turning from +X towards -Z as the
// sphere's do, followed by the centres of the bottom and the top cap. Faces: the side quads ring by
// ring, then the bottom and the top cap triangles.
std::string makePolyCylinder(const PolyCylinderOptions& options, PolyMesh& mesh);

// Vertices form rings around the X axis, each running along +X: up the front (+Z) side, back over the top,
// down the back and forward under the bottom; then the inner vertices of the +X side and of the -X side.
// Faces follow the same rings, then the +X side and the -X side.
std::string makePolyCube(const PolyCubeOptions& options, PolyMesh& mesh);

// Lies in the XZ plane facing +Y. Vertices run row by row along +X, starting at (-width/2, 0, height/2)
// and stepping towards -Z; faces follow the same rows, wound counter-clockwise seen from +Y.
std::string makePolyPlane(const PolyPlaneOptions& options, PolyMesh& mesh);

// Vertices form rings from the bottom (-Y) to the top, each turning from +X towards -Z, followed by the
// bottom pole and the top pole. Faces: the quads ring by ring, then the bottom and the top triangles.
std::string makePolySphere(const PolySphereOptions& options, PolyMesh& mesh);

} // namespace core
