// The scanned head: its vertex order map from topology alone, how far the pairs agree with the mirrored
// positions, and that bending one side changes the positional check but not the topological map.
#include "SymmetrySession.h"

#include <cmath>
#include <cstdio>
#include <filesystem>

namespace {

using host::MessageKind;

const std::string headFile = std::string(TALVEN_DATA_DIR) + "/ict-facekit/generic_neutral_mesh.obj";

class SymmetryRealData : public SymmetrySession {
protected:
    void SetUp() override {
        SymmetrySession::SetUp();
        if (!std::filesystem::exists(headFile)) GTEST_SKIP() << "test data not found: " << headFile;
        must("file -i -type \"OBJ\" \"" + headFile + "\"");
        must("select -cl");
    }
    int command(const std::string& text) {
        int result = -999;
        EXPECT_TRUE(run(text, result)) << text << "\n" << allMessages();
        return result;
    }
};

TEST_F(SymmetryRealData, HeadIsMappedFromTopologyAndSurvivesABend) {
    const std::string head = "generic_neutral_mesh";
    EXPECT_EQ(command("kv_polyMapVertexOrder -v 1 " + head), 1);
    const Ints map = storedMap(head);
    const std::vector<double> points = getPoints(head);
    ASSERT_EQ(map.size(), 26719u);
    int mapped = 0, agreeing = 0, centre = 0;
    for (std::size_t v = 0; v < map.size(); ++v) {
        if (map[v] == -1) continue;
        ++mapped;
        ASSERT_EQ(map[std::size_t(map[v])], int(v)) << v;
        if (map[v] == int(v)) ++centre;
        const double* p = &points[3 * v];
        const double* q = &points[3 * std::size_t(map[v])];
        if (std::hypot(p[0] + q[0], p[1] - q[1], p[2] - q[2]) < 0.03) ++agreeing;
    }
    RecordProperty("infoLines", std::to_string(lines(MessageKind::Info).size()));
    RecordProperty("mapped", mapped);
    RecordProperty("agreeing", agreeing);
    RecordProperty("centre", centre);
    std::printf("mapped %d of %zu, on the plane %d, agreeing with mirrored positions %d\n", mapped,
                map.size(), centre, agreeing);
    for (const std::string& line : lines(MessageKind::Info)) std::printf("  %s\n", line.c_str());
    EXPECT_GT(mapped, 26000);
    EXPECT_EQ(agreeing, mapped);
    EXPECT_EQ(command("kv_polyMapVertexOrder -ck " + head), int(map.size()) - mapped);

    // Bend the +X side of the face: the positional check finds the bent vertices, the topological map is
    // rebuilt unchanged.
    std::vector<double> bent = points;
    int moved = 0;
    for (std::size_t v = 0; v < bent.size() / 3; ++v) {
        if (bent[3 * v] <= 0.5) continue;
        bent[3 * v + 1] += 0.02 * bent[3 * v] * bent[3 * v];
        ++moved;
    }
    setPoints(head, bent);
    host::messageLog().clearHistory();
    EXPECT_EQ(command("kv_polySymmetry -dir 0 " + head), 0);
    const std::vector<std::string> info = lines(MessageKind::Info);
    ASSERT_FALSE(info.empty());
    std::printf("bent %d vertices; %s\n", moved, info.back().c_str());
    EXPECT_GE(int(selectedVertices().size()), moved * 9 / 10);
    EXPECT_EQ(command("kv_polyMapVertexOrder " + head), 1);
    EXPECT_EQ(storedMap(head), map);
}

} // namespace
