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

// The smallest of a few tolerances that pairs every one of the vertices, or 0.
float pairingTolerance(const MDagPath& mesh, const MIntArray& vertices, MIntArray& partners) {
    for (const float tolerance : {0.0001f, 0.001f, 0.002f, 0.005f, 0.01f, 0.02f, 0.03f, 0.05f}) {
        partners = common::getMirroredMeshIndices("x", mesh, vertices, tolerance);
        if (partners.length() == vertices.length()) return tolerance;
    }
    return 0.0f;
}

std::string toleranceFlag(float tolerance) {
    char text[32];
    std::snprintf(text, sizeof text, " -tol %g", static_cast<double>(tolerance));
    return text;
}

TEST_F(MirrorTargetRealData, CopiedLeftBlinkAgainstSculptedRightBlink) {
    const unsigned int count = neutral.length();
    // By position: the smallest tolerance that pairs the blink's vertices (the scan is not quite
    // symmetric, so the default leaves some unpaired).
    MIntArray partners;
    const MIntArray blink = common::getTargetComponents(node("bs"), 0, 6000);
    const float blinkTolerance = pairingTolerance(head, blink, partners);
    ASSERT_GT(blinkTolerance, 0.0f);
    const std::string copy = "-om generic_neutral_mesh -m generic_neutral_mesh -t 1";
    EXPECT_EQ(mirror(copy + toleranceFlag(blinkTolerance) + " -ti 1 -tn blinkByPosition"), CommandResult(1))
        << allMessages();

    // By order map: one made of the position pairs of every vertex, at the smallest tolerance that
    // pairs the whole head.
    MIntArray every(count);
    for (unsigned int v = 0; v < count; ++v) every[v] = static_cast<int>(v);
    const float headTolerance = pairingTolerance(head, every, partners);
    ASSERT_GT(headTolerance, 0.0f);
    MPlug plug;
    ASSERT_TRUE(common::createVertexOrderMap(head, plug));
    ASSERT_TRUE(common::writeVertexOrderMap(plug, partners));
    EXPECT_EQ(mirror(copy + " -ti 2 -tn blinkByOrder -ob generic_neutral_mesh"), CommandResult(1))
        << allMessages();

    const auto [positionMean, positionLargest] = distanceToSculpted(1);
    const auto [orderMean, orderLargest] = distanceToSculpted(2);
    std::printf("by position (tolerance %g): mean %.6f, largest %.6f; by order map (pairs at %g): mean %.6f, "
                "largest %.6f\n",
                static_cast<double>(blinkTolerance), positionMean, positionLargest,
                static_cast<double>(headTolerance), orderMean, orderLargest);
    RecordProperty("positionMean", std::to_string(positionMean));
    RecordProperty("positionLargest", std::to_string(positionLargest));
    RecordProperty("orderMean", std::to_string(orderMean));
    RecordProperty("orderLargest", std::to_string(orderLargest));
    // The sides were sculpted apart: close on the whole, not equal.
    EXPECT_LT(positionMean, 0.01);
    EXPECT_LT(orderMean, 0.01);
    EXPECT_GT(positionLargest, 0.01);
}

} // namespace
