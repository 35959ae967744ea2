// Scaling guards for structures whose cost used to grow with the square of their size: a
// non-manifold fan (every face on one edge) walked by polySelect -extendToShell, and chains of
// joints or parented transforms built one level at a time. Each is timed at n and 8n; a linear cost
// gives about 8x, a quadratic one 64x; the wide gap keeps a loaded machine from failing them.
#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"
#include "tests/support/RunCost.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

bool run(const std::string& text) {
    host::CommandResult ignored;
    return host::interpreter().execute(text, ignored);
}

// `faces` triangles that all share the edge between vertices 0 and 1, each with an apex of its own.
std::string fanMesh(int faces) {
    std::string points = "0 0 0 1 0 0", edges = "0 1 0", polygons;
    for (int f = 0; f < faces; ++f) {
        const std::string apex = std::to_string(2 + f);
        points += " 0.5 1 " + std::to_string(f);
        edges += " 1 " + apex + " 0 " + apex + " 0 0";
        polygons += " f 3 0 " + std::to_string(1 + 2 * f) + " " + std::to_string(2 + 2 * f);
    }
    return "createNode transform -n fan; createNode mesh -n fanShape -p fan;"
           "setAttr -s " +
           std::to_string(faces + 2) + " fanShape.vt[0:" + std::to_string(faces + 1) + "] " + points +
           "; setAttr -s " + std::to_string(2 * faces + 1) + " fanShape.ed[0:" + std::to_string(2 * faces) +
           "] " + edges + "; setAttr -s " + std::to_string(faces) +
           " fanShape.fc[0:" + std::to_string(faces - 1) + "] -type polyFaces" + polygons + ";";
}

std::string repeated(const std::string& statement, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += statement;
    return text;
}

// t0 … t<n-1> at the world.
std::string transforms(int n) {
    std::string text;
    for (int i = 0; i < n; ++i) text += "createNode transform -n t" + std::to_string(i) + ";";
    return text;
}

// Each of t1 … t<n-1> parented under the one before.
std::string parentChain(int n) {
    std::string text;
    for (int i = 1; i < n; ++i) text += "parent t" + std::to_string(i) + " t" + std::to_string(i - 1) + ";";
    return text;
}

class ScalingGuard : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
    }
    void TearDown() override { host::resetScene(); }
};

// The cost of `work` after `setup`, for sizes n and 8n: the ratio of the two.
double growth(int n, const std::function<std::string(int)>& setup,
              const std::function<std::string(int)>& work) {
    double cost[2] = {};
    for (int k = 0; k < 2; ++k) {
        const std::string before = setup(n * (k == 0 ? 1 : 8)), timed = work(n * (k == 0 ? 1 : 8));
        cost[k] = bestRunTime(
            [&] {
                host::resetScene();
                EXPECT_TRUE(run(before));
            },
            [&] { EXPECT_TRUE(run(timed)); });
    }
    return cost[1] / cost[0];
}

TEST_F(ScalingGuard, ShellWalkOnANonManifoldFan) {
    const double ratio = growth(2000, fanMesh, [](int) { return std::string("polySelect -ns -ets 0 fan"); });
    EXPECT_LT(ratio, 24.0) << "8x the faces cost " << ratio << "x the time";
    // The walk still finds the whole fan.
    host::resetScene();
    host::CommandResult faces;
    ASSERT_TRUE(host::interpreter().execute(fanMesh(6) + "polySelect -ns -ets 3 fan", faces));
    const auto* list = std::get_if<std::vector<int>>(&faces);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(*list, (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

// Each new joint of a chain takes the next free number in the whole scene (joint1|joint2|…), so its
// short name stays unique and naming it does not walk the chain.
TEST_F(ScalingGuard, ChainsBuiltLevelByLevel) {
    const struct {
        const char* name;
        std::function<std::string(int)> setup, work;
    } cases[] = {
        {"chained joint -p", [](int) { return std::string(); },
         [](int n) { return repeated("joint -p 0 1 0;", n); }},
        {"chained parent", transforms, parentChain},
    };
    for (const auto& c : cases) {
        const double ratio = growth(250, c.setup, c.work);
        EXPECT_LT(ratio, 24.0) << c.name << ": 8x the depth cost " << ratio << "x the time";
    }
}

} // namespace
