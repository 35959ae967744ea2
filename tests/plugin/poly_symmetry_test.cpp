// kv_polySymmetry: the positional check, its selection and suggested tolerance, recording pairs in the
// order map, the shell restriction, and rebuilding one side from another mesh's map with undo.
#include "SymmetrySession.h"
#include "tests/support/SymmetricMeshes.h"

namespace {

using host::MessageKind;

class PolySymmetry : public SymmetrySession {
protected:
    void SetUp() override {
        SymmetrySession::SetUp();
        mesh = symmetric::shuffle(symmetric::symmetrize(symmetric::halfGrid(3, 2, 0.3, 0.3, 6)), 5);
        addMesh(mesh.mesh, "body");
    }
    int check(const std::string& command) {
        int result = -999;
        EXPECT_TRUE(run(command, result)) << command << "\n" << allMessages();
        return result;
    }
    // A vertex on the negative side, not on the plane.
    int negativeVertex() const {
        for (int v = 0; v < mesh.mesh.numVertices(); ++v)
            if (mesh.mesh.points[3 * std::size_t(v)] < -0.5) return v;
        return -1;
    }
    symmetric::Mesh mesh;
};

TEST_F(PolySymmetry, ChecksSelectsAndSuggestsATolerance) {
    EXPECT_EQ(check("kv_polySymmetry body"), 1);
    EXPECT_EQ(lines(MessageKind::Info), std::vector<std::string>{"The mesh is symmetrical"});
    // The shortest edge at the centre line is 1, so a tenth of it is suggested.
    EXPECT_DOUBLE_EQ(MGlobal::optionVarDoubleValue("TALVENMirrorToleranceValue"), 0.1);
    EXPECT_EQ(storedMap("body"), Ints{-999}); // nothing recorded without -atm

    // Moving a vertex of the tested side beyond the tolerance makes it asymmetrical; with direction 0
    // the positive side is tested and the moved vertex is only found as a partner that is missing.
    std::vector<double> points = mesh.mesh.points;
    const int moved = negativeVertex();
    points[3 * std::size_t(moved) + 1] += 0.01;
    setPoints("body", points);
    host::messageLog().clearHistory();
    EXPECT_EQ(check("kv_polySymmetry body"), 0);
    EXPECT_EQ(selectedVertices(), Ints{moved});
    EXPECT_EQ(lines(MessageKind::Info), std::vector<std::string>{"Asymmetrical vertices found: 1"});
    EXPECT_EQ(check("kv_polySymmetry -dir 0 body"), 0);
    EXPECT_EQ(selectedVertices(), Ints{mesh.partner[std::size_t(moved)]});
    // A tolerance covering the displacement accepts it; doubling the transform's scale halves it again.
    EXPECT_EQ(check("kv_polySymmetry -tol 0.011 body"), 1);
    must("setAttr body.scale 2 2 2");
    EXPECT_EQ(check("kv_polySymmetry -tol 0.011 body"), 0);
}

TEST_F(PolySymmetry, RecordsPairsInTheOrderMap) {
    EXPECT_EQ(check("kv_polySymmetry -atm body"), 1);
    EXPECT_EQ(storedMap("body"), mesh.partner);
    EXPECT_TRUE(lines(MessageKind::Info).empty());

    // With a face selected, only its shell is tested and the other shell keeps its entries.
    const symmetric::Mesh two =
        symmetric::merge(mesh, symmetric::mirroredPair(symmetric::halfGrid(1, 1, 0.0, 0.0, 1), 20.0));
    addMesh(two.mesh, "two");
    Ints map(two.partner.size(), 5);
    std::string values;
    for (int v : map) values += " " + std::to_string(v);
    must("addAttr -ln kvVertexOrderMap -sn kvvom -h 1 -dt Int32Array twoShape");
    must("setAttr twoShape.kvvom -type Int32Array " + std::to_string(map.size()) + values);
    const int lastFace = static_cast<int>(two.mesh.faceCounts.size()) - 1;
    EXPECT_EQ(check("kv_polySymmetry -atm two.f[" + std::to_string(lastFace) + "]"), 1);
    const Ints stored = storedMap("two");
    for (std::size_t v = 0; v < map.size(); ++v)
        EXPECT_EQ(stored[v], v < mesh.partner.size() ? 5 : two.partner[v]) << v;

    // A stored map of the wrong length is refused.
    must("setAttr twoShape.kvvom -type Int32Array 1 0");
    int result = 0;
    EXPECT_FALSE(run("kv_polySymmetry -atm two", result));
    EXPECT_EQ(
        lines(MessageKind::Error),
        std::vector<std::string>{"Unable to extend the order mapping because the vertex count has changed."})
        << allMessages();
    EXPECT_EQ(storedMap("two"), Ints{0});
}

TEST_F(PolySymmetry, AppliesAnOrderMapAndUndoesIt) {
    EXPECT_EQ(check("kv_polySymmetry -atm body"), 1);
    addMesh(mesh.mesh, "spoilt");
    std::vector<double> spoilt = mesh.mesh.points;
    for (std::size_t v = 0; v < spoilt.size() / 3; ++v)
        if (spoilt[3 * v] < -0.5) spoilt[3 * v + 2] += 1.0 + double(v);
    setPoints("spoilt", spoilt);
    int result = 0;
    ASSERT_TRUE(MGlobal::executeCommand("kv_polySymmetry -aom body spoilt", result, false, true));
    EXPECT_EQ(result, 1);
    const std::vector<double> rebuilt = getPoints("spoilt");
    for (std::size_t i = 0; i < rebuilt.size(); ++i) EXPECT_NEAR(rebuilt[i], mesh.mesh.points[i], 1e-9) << i;
    must("undo");
    const std::vector<double> restored = getPoints("spoilt");
    for (std::size_t i = 0; i < restored.size(); ++i) EXPECT_NEAR(restored[i], spoilt[i], 1e-9) << i;
}

TEST_F(PolySymmetry, RefusesBadInput) {
    must("createNode transform -n bare");
    struct Case {
        const char* command;
        const char* error;
    } cases[] = {
        {"kv_polySymmetry -ax w body", "The axis string is not correcty defined. Use x, y, or z."},
        {"kv_polySymmetry -aom body body", "Vertex order map attribute is not available."},
        {"kv_polySymmetry bare", "bare has no shape node."},
    };
    for (const Case& c : cases) {
        host::messageLog().clearHistory();
        EXPECT_FALSE(run(c.command)) << c.command;
        EXPECT_EQ(lines(MessageKind::Error), std::vector<std::string>{c.error}) << c.command;
    }
    must("select -cl");
    host::messageLog().clearHistory();
    EXPECT_FALSE(run("kv_polySymmetry"));
    EXPECT_EQ(lines(MessageKind::Error), std::vector<std::string>{"No mesh provided."});
}

} // namespace
