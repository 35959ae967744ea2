#pragma once
// Fixture for deformer tests: a fresh scene per test, command text run through the session, and
// the positions that meshes show.
#include "engine/MessageLog.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"
#include "session/Session.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <string>

// A case description as a test name: letters and digits, the rest as underscores.
inline std::string testName(std::string text) {
    for (char& c : text)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return text;
}

class DeformTest : public ::testing::Test {
public:
    using Point = std::array<float, 3>;

protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
        host::messageLog().clearHistory();
    }

    static bool run(const std::string& text) { return MGlobal::executeCommand(MString(text.c_str())); }
    static void must(const std::string& text) { ASSERT_TRUE(run(text)) << text << "\n" << lastError(); }

    static std::string lastError() {
        const auto& history = host::messageLog().history();
        for (auto it = history.rbegin(); it != history.rend(); ++it)
            if (it->kind == host::MessageKind::Error) return it->text;
        return std::string();
    }

    static MObject node(const char* name) {
        MSelectionList list;
        MObject object;
        if (list.add(name)) list.getDependNode(0, object);
        return object;
    }

    static host::NodePtr engineNode(const char* name) { return host::scene().findNode(name); }

    // The position a mesh shape shows for vertex v (object space).
    static Point shown(const char* shape, int v) {
        host::MeshPtr mesh = host::evaluatedMesh(engineNode(shape));
        return mesh ? mesh->points[static_cast<std::size_t>(v)] : Point{};
    }

    static Point offset(const char* shape, const char* original, int v) {
        const Point a = shown(shape, v), b = shown(original, v);
        return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    }

    static void expectNear(const Point& actual, const Point& expected, const std::string& context) {
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_NEAR(actual[c], expected[c], 1e-5) << context << " axis " << c;
    }
};
