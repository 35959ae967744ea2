// Opening and saving scenes without losing files: a scene read only in part is not saved over the
// file it came from unless forced, a folder is refused as a scene file, and the geometry statements
// of a mesh block read the same in any order.
#include "FileTestSupport.h"

namespace {

using SceneSafety = FileTest;

const char* const kDamaged = "createNode transform -n \"a\";\n"
                             "createNode transform -n \"b\";\n"
                             "$$$ not a statement\n"
                             "createNode transform -n \"c\";\n";

TEST_F(SceneSafety, ASceneReadInPartIsNotSavedOverItsSource) {
    const struct {
        const char* name;
        bool openAnotherFirst;
    } cases[] = {{"opened in a fresh session", false}, {"opened over another scene", true}};
    for (const auto& c : cases) {
        host::resetScene();
        if (c.openAnotherFirst) {
            ASSERT_TRUE(open("createNode transform -n \"x\";\n", "a.ma"));
        }
        writeText(path("b.ma"), kDamaged);
        host::messageLog().clearHistory();
        EXPECT_FALSE(run("file -o \"" + path("b.ma") + "\"")) << c.name;
        EXPECT_FALSE(run("file -s")) << c.name;
        EXPECT_NE(messagesOf(host::MessageKind::Error).back().find("read only in part"), std::string::npos)
            << c.name << "\n"
            << messages();
        EXPECT_EQ(readText(path("b.ma")), kDamaged) << c.name;
        // Under another name it saves; over the source only when forced.
        EXPECT_NE(save("c.ma").find("\"b\""), std::string::npos) << c.name;
        EXPECT_EQ(readText(path("b.ma")), kDamaged) << c.name;
        ASSERT_TRUE(run("file -rn \"" + path("b.ma") + "\"; file -s -f")) << c.name << "\n" << messages();
        EXPECT_NE(readText(path("b.ma")), kDamaged) << c.name;
        EXPECT_NE(readText(path("b.ma")).find("\"b\""), std::string::npos) << c.name;
    }
}

TEST_F(SceneSafety, AFolderIsNotAScene) {
    ASSERT_TRUE(run("createNode transform -n keep"));
    for (const std::string& folder : {path(""), std::string("/tmp")}) {
        host::messageLog().clearHistory();
        EXPECT_FALSE(run("file -f -o \"" + folder + "\""));
        EXPECT_EQ(messagesOf(host::MessageKind::Error),
                  std::vector<std::string>{folder + " is a folder, not a file."});
        EXPECT_NE(host::scene().findNode("keep"), nullptr);
    }
}

TEST_F(SceneSafety, MeshGeometryStatementsReadInAnyOrder) {
    const std::string head =
        "createNode transform -n \"quad\";\ncreateNode mesh -n \"quadShape\" -p \"quad\";\n";
    const std::string vt = "\tsetAttr -s 4 \".vt[0:3]\" -0.5 0 0.5 0.5 0 0.5 -0.5 0 -0.5 0.5 0 -0.5;\n";
    const std::string ed = "\tsetAttr -s 4 \".ed[0:3]\" 0 1 0 1 3 0 3 2 0 2 0 0;\n";
    const std::string fc = "\tsetAttr -s 1 \".fc[0]\" -type \"polyFaces\" f 4 0 1 2 3;\n";
    const std::string tail = "createNode transform -n \"after\";\n";
    ASSERT_TRUE(open(head + vt + ed + fc + tail));
    const std::string expected = save("out.ma");
    for (const std::string& block : {fc + ed + vt, ed + fc + vt, fc + vt + ed, vt + fc + ed}) {
        host::messageLog().clearHistory();
        ASSERT_TRUE(open(head + block + tail)) << block;
        EXPECT_TRUE(messagesOf(host::MessageKind::Error).empty()) << block << messages();
        EXPECT_EQ(save("out.ma"), expected) << block;
        ASSERT_TRUE(run("file -o \"" + path("out.ma") + "\""));
        EXPECT_EQ(save("out.ma"), expected) << block;
    }
    // The last block of a file is completed too; what never fits is reported and kept as written.
    host::messageLog().clearHistory();
    ASSERT_TRUE(open(head + fc + vt));
    EXPECT_EQ(messagesOf(host::MessageKind::Error).size(), 1u) << messages();
    EXPECT_NE(save("out.ma").find("f 4 0 1 2 3"), std::string::npos);
}

} // namespace
