// Mirroring a weight map on a scanned head whose halves are not quite symmetric: by position the
// default tolerance leaves vertices unmatched, a tolerance that covers the asymmetry works, and a
// vertex order map built from those pairs gives the same result.
#include "EditWeightsSession.h"

#include "plugin/mirrorMatching.h"
#include "plugin/vertexOrderMap.h"

#include <maya/MDagPath.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace {

using host::CommandResult;

const std::string headFile = std::string(TALVEN_DATA_DIR) + "/ict-facekit/generic_neutral_mesh.obj";

// The largest distance from a vertex's mirror image across x = 0 to the nearest vertex. Vertices
// are binned in cubes of the given size; a larger gap counts as that size.
double largestMirrorGap(const MFloatPointArray& points, double cell) {
    const auto bin = [cell](double c) { return static_cast<long long>(std::floor(c / cell)); };
    const auto key = [](long long x, long long y, long long z) {
        return (x * 73856093) ^ (y * 19349663) ^ (z * 83492791);
    };
    std::unordered_map<long long, std::vector<unsigned int>> grid;
    for (unsigned int v = 0; v < points.length(); ++v)
        grid[key(bin(points[v].x), bin(points[v].y), bin(points[v].z))].push_back(v);
    double largest = 0.0;
    for (unsigned int v = 0; v < points.length(); ++v) {
        const double x = -points[v].x, y = points[v].y, z = points[v].z;
        double nearest = cell;
        for (long long i = bin(x) - 1; i <= bin(x) + 1; ++i)
            for (long long j = bin(y) - 1; j <= bin(y) + 1; ++j)
                for (long long k = bin(z) - 1; k <= bin(z) + 1; ++k) {
                    const auto found = grid.find(key(i, j, k));
                    if (found == grid.end()) continue;
                    for (const unsigned int u : found->second)
                        nearest =
                            std::min(nearest, std::hypot(x - points[u].x, y - points[u].y, z - points[u].z));
                }
        largest = std::max(largest, nearest);
    }
    return largest;
}

class EditWeightsRealData : public EditWeightsSession {
protected:
    void SetUp() override {
        EditWeightsSession::SetUp();
        if (!std::filesystem::exists(headFile)) GTEST_SKIP() << "test data not found: " << headFile;
        must("file -i -type \"OBJ\" \"" + headFile + "\"");
        must(
            "duplicate -n headTarget generic_neutral_mesh; blendShape -n bs headTarget generic_neutral_mesh");
        must("select -cl");
        MSelectionList list;
        list.add("generic_neutral_meshShape");
        ASSERT_TRUE(list.getDagPath(0, head));
        MFnMesh(head).getPoints(points, MSpace::kObject);
    }
    MDagPath head;
    MFloatPointArray points;
};

TEST_F(EditWeightsRealData, MirrorByPositionAndByOrderMap) {
    const unsigned int count = points.length();
    ASSERT_EQ(count, 26719u);
    // Paint the +X side: a ramp from 0 at x = 0 to 1 at a third of the half width.
    float halfWidth = 0.0f;
    for (unsigned int v = 0; v < count; ++v) halfWidth = std::max(halfWidth, points[v].x);
    Map painted;
    MIntArray sources;
    for (unsigned int v = 0; v < count; ++v) {
        const double w = points[v].x / (halfWidth / 3.0);
        if (points[v].x > 0.0f && w < 1.0) painted[static_cast<int>(v)] = w;
    }
    store(painted);
    const Map start = stored();
    for (const auto& element : start) sources.append(element.first);
    ASSERT_GT(start.size(), 1000u);

    // At the default tolerance some painted vertices have no partner, and nothing is written.
    const unsigned int matched = common::getMirroredMeshIndices("x", head, sources, 0.001f).length();
    ASSERT_LT(matched, sources.length());
    RecordProperty("unmatchedAtDefault", std::to_string(sources.length() - matched));
    EXPECT_EQ(edit("-m -om generic_neutral_mesh bs"), CommandResult(false));
    EXPECT_EQ(
        errors(),
        Lines{"Unable to find " + std::to_string(sources.length() - matched) +
              " mirrored points. Please increase the tolerance to account for non-symmetrical points."});
    EXPECT_EQ(stored(), start);

    // A tolerance just above the scan's asymmetry pairs every vertex of the head.
    const double asymmetry = largestMirrorGap(points, 0.05);
    RecordProperty("asymmetry", std::to_string(asymmetry));
    EXPECT_GT(asymmetry, 0.001);
    const float tolerance = static_cast<float>(std::ceil(asymmetry * 1000.0) / 1000.0);
    MIntArray every(count);
    for (unsigned int v = 0; v < count; ++v) every[v] = static_cast<int>(v);
    const MIntArray partners = common::getMirroredMeshIndices("x", head, every, tolerance);
    ASSERT_EQ(partners.length(), count) << "tolerance " << tolerance;

    EXPECT_EQ(edit("-m -om generic_neutral_mesh -tol " + std::to_string(tolerance) + " bs"),
              CommandResult(true));
    // The painted side keeps its weights; each partner on the -X side takes its source's weight (the
    // last source's where partners are shared).
    Map expected = start;
    for (const auto& [v, w] : start) {
        const int partner = partners[static_cast<unsigned int>(v)];
        if (points[static_cast<unsigned int>(partner)].x < 0.0f) expected[partner] = w;
    }
    EXPECT_GT(expected.size(), start.size() * 3 / 2);
    const Map byPosition = stored();
    EXPECT_EQ(byPosition, expected);

    // An order map from the same pairs, both directions written, the reverse one first: where the
    // face-order rule made a pair one-way (counted in the property) a vertex keeps its own partner.
    std::vector<int> order(count, -1);
    for (unsigned int v = 0; v < count; ++v)
        order[static_cast<std::size_t>(partners[v])] = static_cast<int>(v);
    for (unsigned int v = 0; v < count; ++v) order[v] = partners[v];
    std::size_t oneWay = 0;
    for (unsigned int v = 0; v < count; ++v)
        oneWay += order[static_cast<std::size_t>(order[v])] != static_cast<int>(v);
    RecordProperty("oneWayPairs", std::to_string(oneWay));
    MPlug plug;
    ASSERT_TRUE(common::createVertexOrderMap(head, plug));
    ASSERT_TRUE(common::writeVertexOrderMap(plug, MIntArray(order)));
    store(start);
    clearMessages();
    EXPECT_EQ(edit("-m -om generic_neutral_mesh -ob generic_neutral_mesh bs"), CommandResult(true));
    EXPECT_EQ(stored(), byPosition);
    EXPECT_TRUE(messages().empty()) << allMessages();
}

} // namespace
