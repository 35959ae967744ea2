// The target editing commands on the scanned head with four targets: extraction reproduces each
// target mesh, replacing a target from its own extraction keeps its deltas, and removing the
// deltas of the +X half of mouthSmile_L leaves its other deltas alone.
#include "TargetEditSession.h"

#include <maya/MFnSingleIndexedComponent.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {

using host::CommandResult;

const std::string dataDir = std::string(TALVEN_DATA_DIR) + "/ict-facekit/";
const char* const targetNames[] = {"eyeBlink_L", "eyeBlink_R", "mouthSmile_L", "mouthSmile_R"};

class TargetEditRealData : public TargetEditSession {
protected:
    void SetUp() override {
        TargetEditSession::SetUp();
        if (!std::filesystem::exists(dataDir + "generic_neutral_mesh.obj"))
            GTEST_SKIP() << "test data not found: " << dataDir;
        must("file -i -type \"OBJ\" \"" + dataDir + "generic_neutral_mesh.obj\"");
        std::string targets;
        for (const char* name : targetNames) {
            must("file -i -type \"OBJ\" \"" + dataDir + name + ".obj\"");
            targets += std::string(name) + " ";
        }
        // An untouched copy stands for the original mesh of the deformed head.
        must("duplicate -n neutral generic_neutral_mesh");
        must("blendShape -n bs " + targets + "generic_neutral_mesh");
        must("select -cl");
        original = shapeOf("neutral");
        ASSERT_FALSE(original.empty());
    }
    std::string original;

    static double largestDifference(const Points& a, const Points& b) {
        double largest = a.size() == b.size() ? 0.0 : INFINITY;
        for (std::size_t v = 0; v < std::min(a.size(), b.size()); ++v)
            for (std::size_t c = 0; c < 3; ++c)
                largest = std::max(largest, std::fabs(double(a[v][c]) - b[v][c]));
        return largest;
    }
};

TEST_F(TargetEditRealData, ExtractAndReplaceEachTarget) {
    for (unsigned int t = 0; t < 4; ++t) {
        const std::vector<int> storedComponents = components(t);
        const Deltas storedDeltas = deltas(t);
        ASSERT_GT(storedComponents.size(), 100u) << targetNames[t];

        const CommandResult result =
            exec("kv_blendShapeExtractTarget -i " + std::to_string(t) + " -om " + original + " bs");
        const std::string name = std::get<std::string>(result);
        ASSERT_TRUE(exists(name)) << allMessages();
        EXPECT_LE(largestDifference(meshPoints(name), meshPoints(targetNames[t])), 1e-5) << targetNames[t];

        EXPECT_EQ(exec("kv_blendShapeReplaceTarget -i " + std::to_string(t) + " -om " + original + " -m " +
                       shapeOf(name) + " bs"),
                  CommandResult(1));
        EXPECT_EQ(components(t), storedComponents) << targetNames[t];
        // The deltas come back as differences of single-precision points.
        const Deltas replaced = deltas(t);
        ASSERT_EQ(replaced.size(), storedDeltas.size());
        double largest = 0.0;
        for (std::size_t k = 0; k < replaced.size(); ++k)
            for (std::size_t c = 0; c < 3; ++c)
                largest = std::max(largest, std::fabs(replaced[k][c] - storedDeltas[k][c]));
        EXPECT_LE(largest, 1e-6) << targetNames[t];
        must("delete " + name);
    }
    EXPECT_TRUE(errors().empty()) << allMessages();
}

TEST_F(TargetEditRealData, RemoveTheLeftHalfOfASmile) {
    const Points head = meshPoints(original);
    const std::vector<int> before = components(2);
    const Deltas beforeDeltas = deltas(2);
    MIntArray left;
    for (std::size_t v = 0; v < head.size(); ++v)
        if (head[v][0] > 0.0f) left.append(static_cast<int>(v));
    MFnSingleIndexedComponent vertices;
    const MObject component = vertices.create(MFn::kMeshVertComponent);
    vertices.addElements(left);
    MSelectionList selection;
    selection.add(path("generic_neutral_mesh"), component);
    MGlobal::setActiveSelectionList(selection);

    EXPECT_EQ(exec("kv_blendShapeRemoveDeltas -i 2 bs"), CommandResult(1));
    std::vector<int> expected;
    Deltas expectedDeltas;
    for (std::size_t k = 0; k < before.size(); ++k)
        if (head[static_cast<std::size_t>(before[k])][0] <= 0.0f) {
            expected.push_back(before[k]);
            expectedDeltas.push_back(beforeDeltas[k]);
        }
    ASSERT_FALSE(expected.empty());
    ASSERT_LT(expected.size(), before.size() / 2);
    EXPECT_EQ(components(2), expected);
    EXPECT_EQ(deltas(2), expectedDeltas);
    // The other targets keep their deltas.
    EXPECT_GT(components(3).size(), expected.size());
}

} // namespace
