// Mesh geometry in scene files is read straight from the text when it has the plain form and by the
// general reader otherwise: every spelling of the same triangle must give the same mesh and the same
// saved file, and errors after or inside such statements must name the right line.
#include "FileTestSupport.h"

namespace {

const std::string kHead = "createNode transform -n \"t\";\ncreateNode mesh -n \"m\" -p \"t\";\n";
const std::string kTail = "createNode transform -n \"b\";\n";

struct Spelling {
    const char* what;
    std::string geometry;
};

const std::vector<Spelling> kSpellings = {
    {"plain", "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n"
              "\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
              "\tsetAttr -s 1 -ch 3 \".fc[0]\" -type \"polyFaces\"\n\t\tf 3 0 1 2;\n"},
    {"wrapped with comments between",
     "\tsetAttr -s 3 \".vt[0:2]\" 0 0\n\t\t0 1 0 0\r\n\t\t0 1 0 ;\n// between\n"
     "\tsetAttr -s 3 \".ed[0:2]\"\n\t\t0 1 0\n\t\t1 2 0\n\t\t2 0 0;\n/* between */"
     "\tsetAttr -s 1 -ch 3 \".fc[0]\" -type \"polyFaces\" f 3\n\t\t0 1 2;\n"},
    {"long names", "\tsetAttr -size 3 \".vrts[0:2]\" 0 0 0 1 0 0 0 1 0;\n"
                   "\tsetAttr -size 3 \".edge[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
                   "\tsetAttr -size 1 -capacityHint 3 \".face[0]\" -typ \"polyFaces\" f 3 0 1 2;\n"},
    {"pieces", "\tsetAttr -s 2 \".vt[0:1]\" 0 0 0 1 0 0;\n\tsetAttr \".vt[2]\" 0 1 0;\n"
               "\tsetAttr \".ed[0]\" 0 1 0;\n\tsetAttr -s 2 \".ed[1:2]\" 1 2 0 2 0 0;\n"
               "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2;\n"},
    {"other number forms", "\tsetAttr -s 3 \".vt[0:2]\" 0.0 0e3 +0 1e0 0 0 0 10e-1 .0;\n"
                           "\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
                           "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2;\n"},
    {"a comment inside", "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 /* x */ 1 0 0 0 1 0;\n"
                         "\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0 // flags\n;\n"
                         "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2;\n"},
    {"flags after the plug", "\tsetAttr \".vt[0:2]\" -s 3 0 0 0 1 0 0 0 1 0;\n"
                             "\tsetAttr \".ed[0:2]\" -s 3 0 1 0 1 2 0 2 0 0;\n"
                             "\tsetAttr \".fc[0]\" -type \"polyFaces\" -s 1 f 3 0 1 2;\n"},
    {"a plug without quotes", "\tsetAttr -s 3 .vt[0:2] 0 0 0 1 0 0 0 1 0;\n"
                              "\tsetAttr -s 3 .ed[0:2] 0 1 0 1 2 0 2 0 0;\n"
                              "\tsetAttr .fc[0] -type polyFaces f 3 0 1 2;\n"},
};

class MeshPayloadTest : public FileTest, public ::testing::WithParamInterface<Spelling> {};

TEST_P(MeshPayloadTest, EverySpellingGivesTheSameMeshAndFile) {
    ASSERT_TRUE(open(kHead + kSpellings[0].geometry + kTail)) << messages();
    const std::string expected = save("expected.ma");
    const auto expectedPoint = resultAs<std::vector<double>>("pointPosition -l m.vtx[2]");

    host::resetScene();
    ASSERT_TRUE(open(kHead + GetParam().geometry + kTail, "spelled.ma")) << messages();
    EXPECT_TRUE(messagesOf(host::MessageKind::Error).empty()) << messages();
    EXPECT_EQ(resultAs<std::vector<double>>("pointPosition -l m.vtx[2]"), expectedPoint);
    EXPECT_EQ(save("expected.ma"), expected);
}

INSTANTIATE_TEST_SUITE_P(Spellings, MeshPayloadTest, ::testing::ValuesIn(kSpellings), [](const auto& info) {
    std::string name = info.param.what;
    for (char& c : name)
        if (c == ' ') c = '_';
    return name;
});

struct BadPayload {
    const char* what;
    std::string geometry;
    int line; // the line the error names, counted in the whole file
    const char* message;
};

const std::vector<BadPayload> kBadPayloads = {
    // The points span lines 3 to 5; the error is on the line after them.
    {"after a wrapped statement",
     "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0\n\t\t1 0 0\n\t\t0 1 0;\n\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 "
     "0;\n",
     6, "not enough data"},
    {"a count far beyond the text", "\tsetAttr -s 3 \".vt[0:2000000000]\" 0 0 0 1 0 0 0 1 0;\n", 3,
     "not enough data"},
    {"a face count far beyond the text",
     "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
     "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 2000000000 0 1 2;\n",
     5, "cut short"},
    {"an edge on a missing vertex",
     "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n\tsetAttr \".ed[0]\" 0 9 0;\n", 4, "vertex 9"},
};

class MeshPayloadErrorTest : public FileTest, public ::testing::WithParamInterface<BadPayload> {};

TEST_P(MeshPayloadErrorTest, NamesTheLineAndReadsOn) {
    const BadPayload& bad = GetParam();
    EXPECT_TRUE(open(kHead + bad.geometry + kTail)) << messages();
    const std::string where = path("scene.ma") + " line " + std::to_string(bad.line) + ": ";
    bool found = false;
    for (const std::string& error : messagesOf(host::MessageKind::Error))
        found = found || (error.rfind(where, 0) == 0 && error.find(bad.message) != std::string::npos);
    EXPECT_TRUE(found) << "expected \"" << where << "…" << bad.message << "…\" in\n" << messages();
    EXPECT_NE(host::scene().findNode("b"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(BadPayloads, MeshPayloadErrorTest, ::testing::ValuesIn(kBadPayloads),
                         [](const auto& info) {
                             std::string name = info.param.what;
                             for (char& c : name)
                                 if (c == ' ') c = '_';
                             return name;
                         });

} // namespace
