// Copying a sculpted left-side target of a scanned head to the right side, by position and through
// a vertex order map, and measuring how far the copy lies from the sculpted right-side target.
#include "MirrorTargetSession.h"

#include "plugin/mirrorMatching.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFloatVector.h>
#include <maya/MFnMesh.h>

#include <cmath>
#include <cstdio>

namespace {

using host::CommandResult;

const std::string kitFolder = std::string(TALVEN_DATA_DIR) + "/ict-facekit/";

MFloatPointArray meshPoints(const char* name) {
    MSelectionList list;
    list.add(name);
    MDagPath path;
    list.getDagPath(0, path);
    MFloatPointArray points;
    MFnMesh(path).getPoints(points, MSpace::kObject);
    return points;
}

class MirrorTargetRealData : public MirrorTargetSession {
protected:
    void SetUp() override {
        MirrorTargetSession::SetUp();
        for (const char* name : {"generic_neutral_mesh", "eyeBlink_L", "eyeBlink_R"}) {
            const std::string file = kitFolder + name + ".obj";
            if (!std::filesystem::exists(file)) GTEST_SKIP() << "test data not found: " << file;
            must("file -i -type \"OBJ\" \"" + file + "\"");
        }
        must("blendShape -n bs eyeBlink_L generic_neutral_mesh; select -cl");
        MSelectionList list;
        list.add("generic_neutral_meshShape");
        ASSERT_TRUE(list.getDagPath(0, head));
        neutral = meshPoints("generic_neutral_mesh");
        const MFloatPointArray right = meshPoints("eyeBlink_R");
        ASSERT_EQ(right.length(), neutral.length());
        for (unsigned int v = 0; v < neutral.length(); ++v) sculpted.push_back(right[v] - neutral[v]);
    }

    // Mean and largest distance between the target's deltas and the sculpted ones, over the head.
    std::pair<double, double> distanceToSculpted(unsigned int index) const {
        std::vector<MFloatVector> copied(neutral.length());
        const std::vector<int> vertices = components(index);
        const Deltas values = deltas(index);
        for (std::size_t k = 0; k < vertices.size(); ++k)
            copied[static_cast<std::size_t>(vertices[k])] =
                MFloatVector(static_cast<float>(values[k][0]), static_cast<float>(values[k][1]),
                             static_cast<float>(values[k][2]));
        double sum = 0.0, largest = 0.0;
        for (std::size_t v = 0; v < copied.size(); ++v) {
            const double distance = (copied[v] - sculpted[v]).length();
            sum += distance;
            largest = std::max(largest, distance);
        }
        return {sum / static_cast<double>(copied.size()), largest};
    }

    MDagPath head;
    MFloatPointArray neutral;
    std::vector<MFloatVector> sculpted;
};

TEST_F(MirrorTargetRealData, CopiedLeftBlinkAgainstSculptedRightBlink) {
    const unsigned int count = neutral.length();
    // The smallest tolerance that pairs every vertex of the head: the scan is not quite symmetric.
    MIntArray every(count);
    for (unsigned int v = 0; v < count; ++v) every[v] = static_cast<int>(v);
    float tolerance = 0.0f;
    MIntArray partners;
    for (const float candidate : {0.001f, 0.005f, 0.01f, 0.02f, 0.03f, 0.05f}) {
        partners = common::getMirroredMeshIndices("x", head, every, candidate);
        if (partners.length() == count) {
            tolerance = candidate;
            break;
        }
    }
    ASSERT_GT(tolerance, 0.0f);

    char arguments[160];
    std::snprintf(arguments, sizeof arguments,
                  "-om generic_neutral_mesh -m generic_neutral_mesh -t 1 -tol %g",
                  static_cast<double>(tolerance));
    EXPECT_EQ(mirror(std::string(arguments) + " -ti 1 -tn blinkByPosition"), CommandResult(1))
        << allMessages();

    // An order map made of the same pairs.
    MPlug plug;
    ASSERT_TRUE(common::createVertexOrderMap(head, plug));
    ASSERT_TRUE(common::writeVertexOrderMap(plug, partners));
    EXPECT_EQ(mirror(std::string(arguments) + " -ti 2 -tn blinkByOrder -ob generic_neutral_mesh"),
              CommandResult(1))
        << allMessages();

    const auto [positionMean, positionLargest] = distanceToSculpted(1);
    const auto [orderMean, orderLargest] = distanceToSculpted(2);
    std::printf("tolerance %g; by position: mean %.6f, largest %.6f; by order map: mean %.6f, largest %.6f\n",
                static_cast<double>(tolerance), positionMean, positionLargest, orderMean, orderLargest);
    RecordProperty("tolerance", std::to_string(tolerance));
    RecordProperty("positionMean", std::to_string(positionMean));
    RecordProperty("positionLargest", std::to_string(positionLargest));
    RecordProperty("orderMean", std::to_string(orderMean));
    RecordProperty("orderLargest", std::to_string(orderLargest));
    // Sculpted separately, the sides differ by about 0.2 at most against a blink of 1.78.
    EXPECT_LT(positionLargest, 0.3);
    EXPECT_LT(positionMean, 0.01);
    EXPECT_EQ(target(2), target(1));
}

} // namespace
