// Broken scene files: cut short, not text, not a scene, or with bad statements. Each gives a clear
// error naming the file and line; a bad statement is skipped (and kept as written) and the rest of
// the file is read; nothing in a file ever runs code.
#include "FileTestSupport.h"

#include <random>

namespace {

struct BadScene {
    const char* what;
    std::string text;
    bool opens;          // whether file -o succeeds (single bad statements do not stop it)
    int line;            // the line the error names; 0 when it names none
    const char* message; // part of the error
};

const std::string kB = "createNode transform -n \"b\";\n";
const std::string kMesh = "createNode mesh -n \"m\";\n\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n"
                          "\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n";

const std::vector<BadScene> kBadScenes = {
    {"cut in a statement", "createNode transform -n \"a\";\n\tsetAttr \".t\" -type \"double3\" 1 2", false, 2,
     "cut short"},
    {"cut in a string", "createNode transform -n \"a\";\ncreateNode transform -n \"b;\n", false, 2,
     "Unterminated string"},
    {"cut in a comment", "createNode transform -n \"a\";\n/* never closed\n", false, 2,
     "Unterminated comment"},
    {"binary data",
     std::string("\x7f"
                 "ELF\0\1\1\0",
                 8),
     false, 0, "binary data"},
    {"not a scene", "<html><body>a page</body></html>\n", false, 1, "not a Maya ASCII scene"},
    {"data of the wrong type",
     "createNode blendShape -n \"a\";\n\tsetAttr \".w[0]\" -type \"pointArray\" 1 0 0 0 1;\n" + kB, true, 2,
     "pointArray"},
    {"a word for a number", "createNode transform -n \"a\";\n\tsetAttr \".tx\" \"abc\";\n" + kB, true, 2,
     "abc"},
    {"points cut short", "createNode mesh -n \"a\";\n\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0;\n" + kB, true, 2,
     "not enough data"},
    {"a face on a missing edge", kMesh + "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 7;\n" + kB, true,
     4, "edge 7"},
    {"a face that is no loop", kMesh + "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 -2 2;\n" + kB, true, 4,
     "loop"},
    {"an unknown face record", kMesh + "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2 zz 1 0;\n" + kB,
     true, 4, "zz"},
    {"a connection to nothing", "createNode transform -n \"a\";\nconnectAttr \"a.t\" \"nowhere.t\";\n" + kB,
     true, 2, "nowhere"},
    {"an unknown flag", "createNode transform -n \"a\" -zz;\n\tsetAttr \".tx\" 1;\n" + kB, true, 1, "-zz"},
};

class SceneReaderErrorTest : public FileTest, public ::testing::WithParamInterface<BadScene> {};

TEST_P(SceneReaderErrorTest, ReportsTheFileAndLineAndReadsOn) {
    const BadScene& bad = GetParam();
    EXPECT_EQ(open(bad.text), bad.opens) << messages();
    const std::string where =
        bad.line > 0 ? path("scene.ma") + " line " + std::to_string(bad.line) + ": " : path("scene.ma");
    bool found = false;
    for (const std::string& error : messagesOf(host::MessageKind::Error))
        found = found || (error.rfind(where, 0) == 0 && error.find(bad.message) != std::string::npos);
    EXPECT_TRUE(found) << "expected \"" << where << "…" << bad.message << "…\" in\n" << messages();
    // Statements after a bad one still ran.
    if (bad.opens) {
        EXPECT_NE(host::scene().findNode("b"), nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(BadScenes, SceneReaderErrorTest, ::testing::ValuesIn(kBadScenes),
                         [](const auto& info) {
                             std::string name = info.param.what;
                             for (char& c : name)
                                 if (c == ' ') c = '_';
                             return name;
                         });

class SceneReaderTest : public FileTest {};

// A bad statement is kept as written, so saving loses nothing the file held.
TEST_F(SceneReaderTest, KeepsBadStatementsForSaving) {
    ASSERT_TRUE(open("createNode transform -n \"a\";\n\tsetAttr \".tx\" \"abc\";\n\tsetAttr \".ty\" 2;\n"));
    const std::string saved = save("saved.ma");
    EXPECT_NE(saved.find("createNode transform -n \"a\";\n\tsetAttr \".t\" -type \"double3\" 0 2 0;\n"
                         "\tsetAttr \".tx\" \"abc\";\n"),
              std::string::npos)
        << saved;
}

// Scripts, plug-in commands and code nodes in a file are kept and written back, never run.
TEST_F(SceneReaderTest, NeverRunsCode) {
    const std::string code = "python \"import os\";\n"
                             "kv_getBlendShapeIndices -n \"blendShape1\";\n"
                             "createNode script -n \"onOpen\";\n"
                             "\tsetAttr \".b\" -type \"string\" \"createNode transform -n made\";\n"
                             "\tsetAttr \".st\" 1;\n"
                             "createNode expression -n \"expr\";\n"
                             "\tsetAttr -k on \".nds\";\n";
    ASSERT_TRUE(open("createNode transform -n \"a\";\n" + code));
    EXPECT_EQ(messagesOf(host::MessageKind::Warning).size(), 2u) << messages();
    EXPECT_TRUE(messagesOf(host::MessageKind::Error).empty()) << messages();
    for (const char* name : {"made", "onOpen", "expr", "blendShape1"})
        EXPECT_EQ(host::scene().findNode(name), nullptr);
    EXPECT_NE(save("saved.ma").find(code), std::string::npos);
}

// A file that cannot be read, or is not text, leaves the current scene alone.
TEST_F(SceneReaderTest, AFileThatCannotBeReadKeepsTheScene) {
    ASSERT_TRUE(run("polyCube -n box"));
    writeText(path("binary.ma"), std::string("FOR4\0\0\0\x10", 8));
    for (const std::string& file : {path("missing.ma"), path("binary.ma"), folder().string()}) {
        EXPECT_FALSE(run("file -o \"" + file + "\"")) << file;
        EXPECT_NE(host::scene().findNode("box"), nullptr) << file;
    }
}

// Connections to nodes that were kept as text, and statements for Maya's default nodes, are kept
// quietly: they are not errors of the file.
TEST_F(SceneReaderTest, KeepsStatementsAboutUnmadeNodesQuietly) {
    ASSERT_TRUE(open("createNode transform -n \"a\";\n"
                     "createNode script -n \"s\";\n"
                     "select -ne :defaultRenderGlobals;\n\tsetAttr \".ren\" -type \"string\" \"arnold\";\n"
                     "connectAttr \"s.msg\" \"a.msg\";\n"
                     "connectAttr \"a.msg\" \":defaultRenderingList1.r\" -na;\n"));
    EXPECT_EQ(messages(), "");
    EXPECT_TRUE(host::scene().connections().empty());
}

// Mangled copies of a scene (cut, bytes changed, pieces dropped or repeated) open, save and open
// again without a crash, whatever they report.
TEST_F(SceneReaderTest, SurvivesMangledFiles) {
    const std::string scene =
        "createNode transform -n \"box\";\n\tsetAttr \".t\" -type \"double3\" 1 2 3 ;\n" + kMesh +
        "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2 mu 0 3 0 1 2;\n"
        "createNode blendShape -n \"bs\";\n\tsetAttr -s 2 \".w[0:1]\" 0.5 1;\n"
        "\tsetAttr \".it[0].itg[0].iti[6000].ict\" -type \"componentList\" 1 \"vtx[0:2]\";\n"
        "\tsetAttr \".aal\" -type \"attributeAlias\" {\"a\",\"weight[0]\"} ;\n"
        "createNode skinCluster -n \"skin\";\n\tsetAttr \".wl[0:1].w\" 1 0 1 2 0 0.5 1 0.5;\n"
        "select -ne :time1;\n\tsetAttr \".o\" 1;\nconnectAttr \"bs.og[0]\" \"m.i\";\n";
    std::mt19937 random(3);
    const std::string printable = " \t\n;\"{}[]:.-0123456789abcfmsvw";
    for (int round = 0; round < 300; ++round) {
        std::string text = scene;
        std::uniform_int_distribution<std::size_t> at(0, text.size() - 1);
        switch (round % 4) {
        case 0:
            text.resize(at(random));
            break;
        case 1:
            for (int k = 0; k < 3; ++k) text[at(random)] = printable[random() % printable.size()];
            break;
        case 2:
            text.erase(at(random), random() % 40);
            break;
        default:
            text.insert(at(random), text.substr(at(random), random() % 60));
        }
        host::resetScene();
        open(text);
        save("saved.ma");
        run("file -o \"" + path("saved.ma") + "\"");
    }
    SUCCEED();
}

} // namespace
