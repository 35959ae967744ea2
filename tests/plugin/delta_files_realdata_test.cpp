// The four ICT face kit targets on the neutral head through a delta file: everything back
// unchanged on a second head, and onto other indices with -si/-di.
#include "EditWeightsSession.h"

namespace {

const std::string dataDir = std::string(TALVEN_DATA_DIR) + "/ict-facekit/";
const char* const targets[] = {"eyeBlink_L", "eyeBlink_R", "mouthSmile_L", "mouthSmile_R"};

class DeltaFilesRealData : public EditWeightsSession {
protected:
    void SetUp() override {
        EditWeightsSession::SetUp();
        const std::string head = dataDir + "generic_neutral_mesh.obj";
        if (!std::filesystem::exists(head)) GTEST_SKIP() << "test data not found: " << head;
        must("file -i -type \"OBJ\" \"" + head + "\"");
        for (const char* target : targets) must("file -i -type \"OBJ\" \"" + dataDir + target + ".obj\"");
        must("duplicate -n otherHead generic_neutral_mesh; blendShape -n otherShapes otherHead");
        must("blendShape -n faceShapes eyeBlink_L eyeBlink_R mouthSmile_L mouthSmile_R generic_neutral_mesh");
        must("select -cl");
        path = file("face.json");
        must("kv_blendShapeExportData -d -fn \"" + path +
             "\" -cn eyeBlink_L -cn eyeBlink_R -cn mouthSmile_L -cn mouthSmile_R -i 0 -i 1 -i 2 -i 3 "
             "faceShapes");
    }

    // Components equal and deltas equal to six significant digits.
    static void expectSameTarget(unsigned int from, unsigned int to) {
        const MIntArray ids = common::getTargetComponents(node("faceShapes"), from, 6000);
        const MPointArray points = common::getTargetPoints(node("faceShapes"), from, 6000);
        ASSERT_GT(ids.length(), 1000u);
        EXPECT_EQ(common::getTargetComponents(node("otherShapes"), to, 6000).vec(), ids.vec()) << from;
        const MPointArray read = common::getTargetPoints(node("otherShapes"), to, 6000);
        ASSERT_EQ(read.length(), points.length()) << from;
        for (unsigned int k = 0; k < points.length(); ++k)
            for (int c = 0; c < 3; ++c)
                ASSERT_NEAR(read[k][c], points[k][c], 5e-6 * std::abs(points[k][c]) + 1e-300)
                    << from << " " << k;
    }
    std::string path;
};

TEST_F(DeltaFilesRealData, ExportAndImportBackUnchanged) {
    EXPECT_EQ(exec("kv_blendShapeImportData -ld -fn \"" + path + "\""),
              host::CommandResult(std::vector<std::string>{"0,eyeBlink_L,1", "1,eyeBlink_R,1",
                                                           "2,mouthSmile_L,1", "3,mouthSmile_R,1"}));
    must("kv_blendShapeImportData -d -fn \"" + path + "\" otherShapes");
    for (unsigned int t = 0; t < 4; ++t) expectSameTarget(t, t);
    EXPECT_TRUE(errors().empty() && warnings().empty()) << allMessages();
}

TEST_F(DeltaFilesRealData, RemappedOntoOtherIndices) {
    must("kv_blendShapeImportData -d -rm -si 0 -di 7 -si 3 -di 9 -fn \"" + path + "\" otherShapes");
    expectSameTarget(0, 7);
    expectSameTarget(3, 9);
    EXPECT_EQ(exec("kv_getBlendShapeIndices otherShapes"), host::CommandResult(std::vector<int>{7, 9}));
}

} // namespace
