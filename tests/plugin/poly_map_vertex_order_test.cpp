// kv_polyMapVertexOrder: mapping whole meshes, extending a map from selected edges, the query and
// selection flags, copying, and the inputs it refuses.
#include "SymmetrySession.h"
#include "tests/support/SymmetricMeshes.h"

#include <algorithm>

namespace {

using host::MessageKind;

class PolyMapVertexOrder : public SymmetrySession {
protected:
    // A grid symmetric in itself and a pair of mirrored shells beside it.
    void SetUp() override {
        SymmetrySession::SetUp();
        const symmetric::Mesh grid = symmetric::symmetrize(symmetric::halfGrid(3, 2, 0.3, 0.3, 4));
        mesh = symmetric::shuffle(
            symmetric::merge(grid, symmetric::mirroredPair(symmetric::halfGrid(2, 1, 0.0, 0.0, 1), 10.0)), 3);
        addMesh(mesh.mesh, "body");
    }
    int query(const std::string& flags) {
        int result = -999;
        EXPECT_TRUE(run("kv_polyMapVertexOrder " + flags, result)) << flags << "\n" << allMessages();
        return result;
    }
    symmetric::Mesh mesh;
};

TEST_F(PolyMapVertexOrder, MapsEveryShellAndAnswersQueries) {
    // Before any map, the query flags answer -1.
    for (const char* flags : {"-ck body", "-sm body", "-su body", "-ct other body"})
        EXPECT_EQ(query(flags), -1);
    EXPECT_EQ(query("body"), 1);
    EXPECT_EQ(storedMap("body"), mesh.partner);
    EXPECT_TRUE(messages().empty()) << allMessages();

    EXPECT_EQ(query("-ck body"), 0);
    must("select -r body.vtx[3] body.vtx[5]");
    must("kv_polyMapVertexOrder -ck");
    Ints expected{3, 5, mesh.partner[3], mesh.partner[5]};
    std::sort(expected.begin(), expected.end());
    expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
    EXPECT_EQ(selectedVertices(), expected);

    // One unmapped vertex: -ck counts it, -su selects it, -sm selects the others.
    Ints map = mesh.partner;
    map[7] = -1;
    std::string values;
    for (int v : map) values += " " + std::to_string(v);
    must("setAttr bodyShape.kvvom -type Int32Array " + std::to_string(map.size()) + values);
    EXPECT_EQ(query("-ck body"), 1);
    must("kv_polyMapVertexOrder -su body");
    EXPECT_EQ(selectedVertices(), Ints{7});
    must("kv_polyMapVertexOrder -sm body");
    EXPECT_EQ(selectedVertices().size(), map.size() - 1);
}

TEST_F(PolyMapVertexOrder, CopiesTheMapUnchecked) {
    must("polyCube -n box; createNode transform -n empty");
    EXPECT_EQ(query("body"), 1);
    EXPECT_EQ(query("-ct boxShape body"), 1);
    EXPECT_EQ(storedMap("box"), mesh.partner);
    EXPECT_EQ(query("-ck box"), -1); // the cube has 8 vertices, the map does not fit
    EXPECT_FALSE(run("kv_polyMapVertexOrder -ct empty body"));
    EXPECT_EQ(lines(MessageKind::Error), std::vector<std::string>{"empty is not a mesh object."});
}

// A zero tolerance is derived from the mesh; shells that cannot be mapped are reported with the command
// that reproduces the run, and the map of the others is written all the same.
TEST_F(PolyMapVertexOrder, ReportsUnmappedShellsWithTheRebuiltCommand) {
    core::PolyMesh lone = symmetric::halfGrid(1, 1, 0.0, 0.0, 1);
    for (std::size_t v = 0; v < 4; ++v) lone.points[3 * v] += 30.0;
    addMesh(symmetric::merge(mesh, {lone, {-1, -1, -1, -1}}).mesh, "withLone");
    EXPECT_EQ(query("-tol 0 withLone"), 1);
    Ints expected = mesh.partner;
    expected.insert(expected.end(), {-1, -1, -1, -1});
    EXPECT_EQ(storedMap("withLone"), expected);
    const std::vector<std::string> info = lines(MessageKind::Info);
    ASSERT_EQ(info.size(), 4u);
    EXPECT_EQ(info[0], "One or more errors occurred while mapping the mesh.");
    EXPECT_EQ(info[1], "To receive more info on the failed components reload the unmapped mesh and run the "
                       "following command:");
    // Mean edge length over every fifth edge divided by 100: all edges here are 1 or sqrt(2) long.
    EXPECT_EQ(info[2].rfind("kv_polyMapVertexOrder -axis x -tolerance 0.01", 0), 0u) << info[2];
    EXPECT_EQ(info[2].substr(info[2].size() - 12), " -verbose 1;");
    EXPECT_EQ(info[3], "For full details set the verbose flag to 2.");
    EXPECT_EQ(lines(MessageKind::Warning),
              std::vector<std::string>{"Not all vertices have been mapped. See script editor for details."});
}

// Extending a map from one edge on each of two mirrored shells fills in just those shells.
TEST_F(PolyMapVertexOrder, AddsAMirroredShellPairFromTwoEdges) {
    const symmetric::Mesh pair = symmetric::mirroredPair(symmetric::halfGrid(2, 2, 0.3, 0.0, 9), 4.0);
    addMesh(pair.mesh, "eyes");
    const int n = pair.mesh.numVertices();
    must("addAttr -ln kvVertexOrderMap -sn kvvom -h 1 -dt Int32Array eyesShape");
    std::string values;
    for (int v = 0; v < n; ++v) values += " -1";
    must("setAttr eyesShape.kvvom -type Int32Array " + std::to_string(n) + values);
    // The interior edge joining half vertices 1 and 4 (x = 5), and its mirror image.
    MFnMesh meshFn(shape("eyes"));
    const auto edgeOf = [&](int v, int w) {
        for (int e = 0; e < meshFn.numEdges(); ++e) {
            int2 ends;
            meshFn.getEdgeVertices(e, ends);
            if ((ends[0] == v && ends[1] == w) || (ends[0] == w && ends[1] == v)) return e;
        }
        return -1;
    };
    const int edge = edgeOf(1, 4);
    const int mirrorEdge = edgeOf(pair.partner[1], pair.partner[4]);
    ASSERT_NE(edge, -1);
    ASSERT_NE(mirrorEdge, -1);
    const std::string edges =
        "eyes.e[" + std::to_string(edge) + "] eyes.e[" + std::to_string(mirrorEdge) + "]";
    EXPECT_EQ(query("-atm " + edges), 1);
    EXPECT_TRUE(messages().empty()) << allMessages();
    EXPECT_EQ(storedMap("eyes"), pair.partner);

    // Three edges map nothing and still answer 1; a map of the wrong length is refused.
    const Ints before = storedMap("eyes");
    EXPECT_EQ(query("-atm eyes.e[0:2]"), 1);
    EXPECT_EQ(storedMap("eyes"), before);
    must("setAttr eyesShape.kvvom -type Int32Array 2 0 1");
    int result = 0;
    EXPECT_FALSE(run("kv_polyMapVertexOrder -atm " + edges, result));
    EXPECT_EQ(
        lines(MessageKind::Error),
        std::vector<std::string>{"Unable to extend the order mapping because the vertex count has changed."})
        << allMessages();
    EXPECT_EQ(storedMap("eyes"), (Ints{0, 1}));
}

TEST_F(PolyMapVertexOrder, RefusesBadInputWithoutWriting) {
    // A border edge cannot be a symmetry edge.
    must("polyPlane -sx 2 -sy 2 -n sheet");
    EXPECT_FALSE(run("kv_polyMapVertexOrder sheet.e[0]"));
    EXPECT_EQ(lines(MessageKind::Warning),
              std::vector<std::string>{"The symmetry edge must be connected to two faces."});
    EXPECT_EQ(storedMap("sheet"), Ints{-999});

    // Objects that are no mesh.
    must("createNode transform -n bare; createNode blendShape -n bs");
    struct Case {
        const char* command;
        const char* error;
    } cases[] = {{"kv_polyMapVertexOrder bare", "bare has no shape node."},
                 {"kv_polyMapVertexOrder bs", "bs is not a mesh object."}};
    for (const Case& c : cases) {
        host::messageLog().clearHistory();
        EXPECT_FALSE(run(c.command)) << c.command;
        EXPECT_EQ(lines(MessageKind::Error), std::vector<std::string>{c.error}) << c.command;
    }
    host::messageLog().clearHistory();
    must("select -cl");
    EXPECT_FALSE(run("kv_polyMapVertexOrder"));
    EXPECT_EQ(lines(MessageKind::Error), std::vector<std::string>{"No mesh provided."});
}

// A face reachable only through an edge shared by three faces is never queued: both walks run dry, the run
// stops with the reasons, and nothing is written.
TEST_F(PolyMapVertexOrder, NonManifoldEdgeStopsTheRun) {
    symmetric::Mesh fin = symmetric::symmetrize(symmetric::halfGrid(1, 1, 0.0, 0.0, 1));
    // A third face on the plane edge 0-2, standing out along z.
    fin.mesh.points.insert(fin.mesh.points.end(), {0, 0, 1, 0, 1, 1});
    fin.mesh.faceCounts.push_back(4);
    fin.mesh.faceConnects.insert(fin.mesh.faceConnects.end(), {0, 2, 7, 6});
    addMesh(fin.mesh, "fin");
    EXPECT_FALSE(run("kv_polyMapVertexOrder fin"));
    const std::vector<std::string> expected = {"Failed to process all faces.",
                                               "Shell index: 0",
                                               "Vertices: 2 0",
                                               "Error while iterating the mesh during the first pass.",
                                               "Failed to process all faces.",
                                               "Shell index: 0",
                                               "Vertices: 2 0",
                                               "Error while iterating the mesh during the second pass."};
    std::vector<std::string> texts;
    for (const host::Message& message : messages()) texts.push_back(message.text);
    EXPECT_EQ(texts, expected);
    EXPECT_EQ(storedMap("fin"), Ints{-999});
}

} // namespace
