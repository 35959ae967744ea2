// OBJ files: what the reader accepts, the errors it gives for bad lines, and meshes going out and
// back in unchanged (the ICT FaceKit head among them).
#include "FileTestSupport.h"

#include "eval/Evaluator.h"
#include "files/ObjFile.h"

namespace {

struct ObjCase {
    const char* what;
    const char* text;
    const char* error; // empty when the text reads
    std::vector<int> faceConnects;
};

const std::vector<ObjCase> kObjCases = {
    {"plain", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", "", {0, 1, 2}},
    {"slashes, comments and other records",
     "# head\nmtllib a.mtl\nv 0 0 0\nv 1 0 0 1\nv 0 1 0 0.5 0.5 0.5\nvt 0 0\nvn 0 0 1\ng part\ns 1\n"
     "f 1/1/1 2//1 3/1\r\n",
     "",
     {0, 1, 2}},
    {"indices counted back", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf -3 -2 -1\n", "", {0, 1, 2}},
    {"vertices after the faces", "f 1 2 3\nv 0 0 0\nv 1 0 0\nv 0 1 0\n", "", {0, 1, 2}},
    {"a vertex short of a number", "v 0 0 0\nv 1 0\n", "line 2: a vertex needs three coordinates", {}},
    {"a word for a number", "v 0 0 0\nv 1 x 0\n", "line 2: 'x' is not a number", {}},
    {"a face of two", "v 0 0 0\nv 1 0 0\nf 1 2\n", "line 3: a face needs at least three vertices", {}},
    {"a vertex number that is no number",
     "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 b\n",
     "line 4: 'b' is not a vertex number",
     {}},
    {"vertex zero", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 0 1 2\n", "line 4: '0' is not a vertex number", {}},
    {"a vertex that is not there",
     "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\nf 1 3 9\n",
     "line 5: the face names vertex 9, but there are 3 vertices",
     {}},
    {"counting back too far",
     "v 0 0 0\nv 1 0 0\nf 1 2 -3\n",
     "line 3: the vertex -3 comes before the first vertex",
     {}},
    {"a vertex twice in a row",
     "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 2 3\n",
     "line 4: the face uses vertex 2 twice",
     {}},
    {"a huge coordinate", "v 1e300 0 0\n", "line 1: the coordinate 1e300 is too large", {}},
};

class ObjFileTest : public FileTest, public ::testing::WithParamInterface<ObjCase> {};

TEST_P(ObjFileTest, ReadsGeometryOrNamesTheBadLine) {
    const ObjCase& c = GetParam();
    host::MeshData mesh;
    std::string error;
    std::vector<std::string> warnings;
    const bool ok = host::parseObj(c.text, mesh, error, warnings);
    EXPECT_EQ(ok, std::string(c.error).empty()) << error;
    if (ok) {
        EXPECT_EQ(mesh.faceConnects, c.faceConnects);
        EXPECT_EQ(mesh.points.size(), 3u);
    } else {
        EXPECT_EQ(error.rfind(c.error, 0), 0u) << error;
    }
}

INSTANTIATE_TEST_SUITE_P(Lines, ObjFileTest, ::testing::ValuesIn(kObjCases), [](const auto& info) {
    std::string name = info.param.what;
    for (char& c : name)
        if (c == ' ' || c == ',') c = '_';
    return name;
});

class ObjTransferTest : public FileTest {};

TEST_F(ObjTransferTest, ReportsRecordsItDoesNotKnowOnce) {
    host::MeshData mesh;
    std::string error;
    std::vector<std::string> warnings;
    ASSERT_TRUE(host::parseObj("v 0 0 0\ncurv 0 1\ncurv 0 2\nv 1 0 0\n", mesh, error, warnings));
    EXPECT_EQ(warnings,
              std::vector<std::string>{"line 2: 'curv' lines are not understood and were passed over."});
}

std::vector<std::array<float, 3>> shownPoints(const char* name) {
    return host::evaluatedMesh(host::scene().findNode(name))->points;
}

TEST_F(ObjTransferTest, ExportsAndImportsAMesh) {
    ASSERT_TRUE(run("polyCube -n box; setAttr box.tx 5; select box"));
    const std::string file = path("box.obj");
    ASSERT_EQ(resultAs<std::string>("file -es -type \"OBJexport\" \"" + file + "\""), file);
    // Object space: the transform's translation is not in the points.
    EXPECT_EQ(readText(file).rfind("# Written by talven\ng box\nv -0.5 -0.5 0.5\n", 0), 0u) << readText(file);
    EXPECT_FALSE(run("file -es -type \"OBJexport\" \"" + file + "\"")) << "replaced without -force";
    ASSERT_TRUE(run("file -i -type \"OBJ\" \"" + file + "\"")) << messages();
    ASSERT_NE(host::scene().findNode("boxShape1"), nullptr) << "named after the file";
    const auto original = host::scene().findNode("boxShape")->mesh();
    const auto imported = host::scene().findNode("boxShape1")->mesh();
    EXPECT_EQ(imported->points, original->points);
    EXPECT_EQ(imported->faceCounts, original->faceCounts);
    EXPECT_EQ(imported->faceConnects, original->faceConnects);
}

TEST_F(ObjTransferTest, ExportNeedsAMeshAndImportAGoodFile) {
    EXPECT_FALSE(run("file -es -type \"OBJexport\" \"" + path("none.obj") + "\""));
    EXPECT_FALSE(run("file -ea -type \"OBJexport\" \"" + path("none.obj") + "\""));
    EXPECT_FALSE(std::filesystem::exists(path("none.obj")));
    writeText(path("bad.obj"), "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 4\n");
    const std::size_t nodes = host::scene().nodes().size();
    EXPECT_FALSE(run("file -i -type \"OBJ\" \"" + path("bad.obj") + "\""));
    EXPECT_NE(messages().find(path("bad.obj") + " line 4: the face names vertex 4"), std::string::npos)
        << messages();
    EXPECT_EQ(host::scene().nodes().size(), nodes);
}

TEST_F(ObjTransferTest, TheIctHeadGoesOutAndBackUnchanged) {
    const std::string head = std::string(TALVEN_DATA_DIR) + "/ict-facekit/generic_neutral_mesh.obj";
    if (!std::ifstream(head)) GTEST_SKIP() << head << " is not there";
    ASSERT_TRUE(run("file -i -type \"OBJ\" \"" + head + "\"")) << messages();
    ASSERT_NE(host::scene().findNode("generic_neutral_meshShape"), nullptr);
    const auto neutral = host::scene().findNode("generic_neutral_meshShape")->mesh();
    EXPECT_EQ(neutral->numVertices(), 26719);
    EXPECT_EQ(neutral->numFaces(), 26384);
    const std::string file = path("head.obj");
    ASSERT_TRUE(run("select generic_neutral_mesh; file -es -type \"OBJexport\" \"" + file + "\""));
    ASSERT_TRUE(run("file -i -type \"OBJ\" \"" + file + "\"")) << messages();
    ASSERT_NE(host::scene().findNode("headShape"), nullptr);
    const auto again = host::scene().findNode("headShape")->mesh();
    EXPECT_EQ(again->points, neutral->points);
    EXPECT_EQ(again->faceCounts, neutral->faceCounts);
    EXPECT_EQ(again->faceConnects, neutral->faceConnects);
    EXPECT_EQ(shownPoints("headShape"), shownPoints("generic_neutral_meshShape"));
}

} // namespace
