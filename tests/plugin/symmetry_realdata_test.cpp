// The scanned head: its vertex order map from topology alone, how far the pairs agree with the mirrored
// positions, and that bending one side changes the positional check but not the topological map.
#include "SymmetrySession.h"

#include <algorithm>
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

// The pairs of a map, counted by how close each vertex lies to its partner's mirror image.
struct Agreement {
    int mapped = 0, within0001 = 0, within003 = 0;
};
Agreement agreement(const std::vector<int>& map, const std::vector<double>& points) {
    Agreement a;
    for (std::size_t v = 0; v < map.size(); ++v) {
        if (map[v] == -1) continue;
        ++a.mapped;
        const double* p = &points[3 * v];
        const double* q = &points[3 * std::size_t(map[v])];
        const double gap = std::hypot(p[0] + q[0], p[1] - q[1], p[2] - q[2]);
        if (gap < 0.001) ++a.within0001;
        if (gap < 0.03) ++a.within003;
    }
    return a;
}

TEST_F(SymmetryRealData, HeadIsMappedFromTopologyAndSurvivesABend) {
    const std::string head = "generic_neutral_mesh";
    EXPECT_EQ(command("kv_polyMapVertexOrder -v 1 " + head), 1);
    const std::vector<double> points = getPoints(head);
    Ints map = storedMap(head);
    ASSERT_EQ(map.size(), 26719u);
    Agreement a = agreement(map, points);
    std::printf("from topology alone: %d of %zu vertices mapped, %d within 0.001 and %d within 0.03 of their "
                "partner's mirror image\n",
                a.mapped, map.size(), a.within0001, a.within003);
    for (const std::string& line : lines(MessageKind::Info)) std::printf("  %s\n", line.c_str());
    EXPECT_EQ(a.mapped, 25047);
    const std::vector<std::string> report = lines(MessageKind::Info);
    EXPECT_NE(std::find(report.begin(), report.end(), "42 of 56 shells verified."), report.end());
    EXPECT_EQ(a.within003, a.mapped);
    EXPECT_EQ(command("kv_polyMapVertexOrder -ck " + head), int(map.size()) - a.mapped);

    // Two 128-face shells whose mirror images meet other geometry first, and twelve 90-face shells lying in
    // coinciding layers, are left to the user: one edge on each shell of a mirrored pair completes the map.
    const char* pairs[] = {"e[50020] ", "e[50302]",  "e[50578] ", "e[51799]",  "e[52001] ",
                           "e[50782]",  "e[52204] ", "e[50985]",  "e[51187] ", "e[52408]",
                           "e[52608] ", "e[51393]",  "e[52811] ", "e[51596]"};
    for (int k = 0; k < 14; k += 2)
        EXPECT_EQ(command("kv_polyMapVertexOrder -atm " + head + "." + pairs[k] + head + "." + pairs[k + 1]),
                  1);
    map = storedMap(head);
    a = agreement(map, points);
    std::printf("with six edge pairs: %d mapped, %d within 0.001, %d within 0.03\n", a.mapped, a.within0001,
                a.within003);
    EXPECT_EQ(a.mapped, 26719);
    EXPECT_EQ(a.within003, a.mapped);
    for (std::size_t v = 0; v < map.size(); ++v) ASSERT_EQ(map[std::size_t(map[v])], int(v)) << v;

    // Bend the +X side of the face (vertices 0 to 9408): the positional check finds the bent vertices, and
    // the topological map is rebuilt unchanged. (Mirrored shell pairs are matched by position where their
    // walks begin, so the bend keeps off them.)
    std::vector<double> bent = points;
    int moved = 0;
    for (std::size_t v = 0; v < 9409; ++v) {
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
    for (int k = 0; k < 14; k += 2)
        EXPECT_EQ(command("kv_polyMapVertexOrder -atm " + head + "." + pairs[k] + head + "." + pairs[k + 1]),
                  1);
    EXPECT_EQ(storedMap(head), map);
}

} // namespace
