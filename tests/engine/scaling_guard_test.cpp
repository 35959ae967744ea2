// Scaling guards for structures whose cost used to grow with the square of their size: a
// non-manifold fan (every face on one edge) walked by polySelect -extendToShell, and chains of
// joints or parented transforms built one level at a time. Each is timed at n and 4n; a linear cost
// gives about 4x, a quadratic one 16x.
#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"
#include "tests/support/RunCost.h"

#include <gtest/gtest.h>

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

// Disabled: the fan still costs about 18x at 4x the faces (the walk no longer rescans an edge's faces;
// what remains grows elsewhere), and a chain of 500 `joint -p` takes about 20 s. Enable once fixed.
TEST_F(ScalingGuard, DISABLED_CostGrowsLinearly) {
    const struct {
        const char* name;
        int n;
        std::function<std::string(int)> setup, work;
    } cases[] = {
        {"polySelect -extendToShell on a non-manifold fan", 5000, fanMesh,
         [](int) { return std::string("polySelect -ns -ets 0 fan"); }},
        {"chained joint -p", 500, [](int) { return std::string(); },
         [](int n) { return repeated("joint -p 0 1 0;", n); }},
        {"chained parent", 500, transforms, parentChain},
    };
    for (const auto& c : cases) {
        double cost[2] = {};
        for (int k = 0; k < 2; ++k) {
            const int n = c.n * (k == 0 ? 1 : 4);
            const std::string setup = c.setup(n), work = c.work(n);
            cost[k] = bestRunTime(
                [&] {
                    host::resetScene();
                    EXPECT_TRUE(run(setup)) << c.name;
                },
                [&] { EXPECT_TRUE(run(work)) << c.name; });
        }
        EXPECT_LT(cost[1] / cost[0], 9.0)
            << c.name << ": 4x the size cost " << cost[1] / cost[0] << "x the time";
    }
    // The walk still finds the whole fan.
    host::CommandResult faces;
    ASSERT_TRUE(host::interpreter().execute(fanMesh(6) + "polySelect -ns -ets 3 fan", faces));
    const auto* list = std::get_if<std::vector<int>>(&faces);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(*list, (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

} // namespace
