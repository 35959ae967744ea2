// Target delta arithmetic: differences between meshes, which deltas a selection removes, and tweak
// offsets added to points.
#include "core/targets/TargetEditing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(TargetDeltas, MeshDeltas) {
    const float step = std::nextafter(3.0f, 4.0f) - 3.0f;
    const struct {
        const char* name;
        std::vector<float> original, mesh;
        std::vector<int> components;
        std::vector<double> deltas;
    } cases[] = {
        {"identical", {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}, {}, {}},
        {"second vertex moved", {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5.5f, 5}, {1}, {0, 0.5, -1}},
        // One unit in the last place is a change; the difference is taken in single precision.
        {"smallest change", {3, 0, 0}, {std::nextafter(3.0f, 4.0f), 0, 0}, {0}, {step, 0, 0}},
        {"single precision", {0.1f, 0, 0}, {0.3f, 0, 0}, {0}, {0.3f - 0.1f, 0, 0}},
        // Only the original's vertices are compared.
        {"longer mesh", {0, 0, 0}, {0, 0, 0, 1, 1, 1}, {}, {}},
    };
    for (const auto& c : cases) {
        const core::SparseDeltas result = core::meshDeltas(c.original, c.mesh);
        EXPECT_EQ(result.components, c.components) << c.name;
        EXPECT_EQ(result.deltas, c.deltas) << c.name;
    }
}

TEST(TargetDeltas, UnselectedPositions) {
    const struct {
        const char* name;
        std::vector<int> components, selected;
        std::vector<std::size_t> kept;
    } cases[] = {
        {"nothing selected", {4, 2, 9}, {}, {0, 1, 2}},
        {"one selected", {4, 2, 9}, {2}, {0, 2}},
        {"duplicates in the selection", {4, 2, 9}, {9, 4, 9, 4}, {1}},
        {"duplicates in the list", {4, 2, 4}, {4}, {1}},
        {"all selected", {4, 2, 9}, {2, 4, 9}, {}},
        {"selection beyond the list", {1, 2}, {3, 1000000}, {0, 1}},
        {"negative indices", {-1, 2}, {-1}, {0, 1}},
        {"empty list", {}, {1, 2}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(core::unselectedPositions(c.components, c.selected), c.kept) << c.name;
}

TEST(TargetDeltas, AddOffsets) {
    const struct {
        const char* name;
        std::vector<int> vertices;
        std::vector<double> offsets;
        std::vector<float> points;
    } cases[] = {
        {"none", {}, {}, {1, 1, 1, 2, 2, 2}},
        {"second vertex", {1}, {0.5, -1, 2}, {1, 1, 1, 2.5f, 1, 4}},
        // Each offset is converted to single precision before it is added.
        {"single precision", {0}, {1e-9, 0, 0}, {1, 1, 1, 2, 2, 2}},
        {"same vertex twice", {0, 0}, {1, 0, 0, 1, 0, 0}, {3, 1, 1, 2, 2, 2}},
        {"beyond the mesh", {2, -1}, {1, 1, 1, 1, 1, 1}, {1, 1, 1, 2, 2, 2}},
    };
    for (const auto& c : cases) {
        std::vector<float> points = {1, 1, 1, 2, 2, 2};
        core::addOffsets(points, c.vertices, c.offsets);
        EXPECT_EQ(points, c.points) << c.name;
    }
}

} // namespace
