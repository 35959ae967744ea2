#include "mesh/MeshData.h"

#include <gtest/gtest.h>

namespace {

// A unit square split into two triangles, with its five edges given as a file gives them.
host::MeshData twoTriangles() {
    host::MeshData mesh;
    mesh.points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    mesh.edges = {{0, 1}, {1, 2}, {2, 0}, {2, 3}, {3, 0}};
    mesh.faceCounts = {3, 3};
    mesh.faceConnects = {0, 1, 2, 0, 2, 3};
    return mesh;
}

// Face sides are matched to the file's edges, whatever their order or direction; the first face
// side the edges lack, or a face list that runs short, is reported.
TEST(MeshDataEdges, FaceSidesFindTheFileEdges) {
    struct Case {
        const char* name;
        void (*damage)(host::MeshData&);
        const char* error; // empty: built
    };
    const Case cases[] = {
        {"as given", [](host::MeshData&) {}, ""},
        {"edges reversed and reordered",
         [](host::MeshData& m) {
             m.edges = {{3, 2}, {0, 3}, {1, 0}, {0, 2}, {2, 1}};
         },
         ""},
        {"an edge missing", [](host::MeshData& m) { m.edges.pop_back(); },
         "Face edge 3-0 is not in the edge list."},
        {"missing edge before a short face list",
         [](host::MeshData& m) {
             m.edges.pop_back();
             m.faceCounts.push_back(4);
         },
         "Face edge 3-0 is not in the edge list."},
        {"face list short", [](host::MeshData& m) { m.faceCounts.push_back(3); }, "Face list is truncated."},
        {"vertex outside the mesh, with its edges",
         [](host::MeshData& m) {
             m.faceConnects[5] = 9;
             m.edges[3] = {2, 9};
             m.edges[4] = {9, 0};
         },
         "*"},
        {"negative vertex without its edges", [](host::MeshData& m) { m.faceConnects[5] = -4; },
         "Face edge 2--4 is not in the edge list."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        host::MeshData mesh = twoTriangles();
        c.damage(mesh);
        const std::string& error = mesh.topologyError();
        if (std::string(c.error) == "*") {
            EXPECT_NE(error, ""); // the topology's own range check
            continue;
        }
        ASSERT_EQ(error, c.error);
        if (!error.empty()) continue;
        const core::MeshTopology& topology = mesh.topology();
        // Face 1 runs 0-2, 2-3, 3-0: the file's edge numbers, whichever way they are walked.
        std::vector<std::array<int, 2>> sides;
        for (int e : topology.faceEdges(1)) sides.push_back(mesh.edges[static_cast<std::size_t>(e)]);
        ASSERT_EQ(sides.size(), 3u);
        for (std::size_t k = 0; k < 3; ++k) {
            const int a = mesh.faceConnects[3 + k], b = mesh.faceConnects[3 + (k + 1) % 3];
            EXPECT_TRUE((sides[k] == std::array<int, 2>{a, b}) || (sides[k] == std::array<int, 2>{b, a}));
        }
    }
}

} // namespace
