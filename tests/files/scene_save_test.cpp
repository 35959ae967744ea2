// Saving: the file name comes from file -rename (or the file opened), and a save that fails leaves
// whatever was there before untouched, with no temporary file left behind.
#include "FileTestSupport.h"
#include "tests/support/FileSizeLimit.h"

#include <sys/stat.h>

namespace {

class SceneSaveTest : public FileTest {
protected:
    // The names in the test's folder, to see that no temporary file stays behind.
    std::vector<std::string> folderContents() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    bool saveAs(const std::string& file) { return run("file -rn \"" + file + "\"; file -s"); }
};

TEST_F(SceneSaveTest, NeedsANameAndTheAsciiType) {
    EXPECT_FALSE(run("file -s"));
    EXPECT_NE(messagesOf(host::MessageKind::Error).back().find("no name"), std::string::npos);
    ASSERT_TRUE(run("file -rn \"" + path("a.ma") + "\""));
    EXPECT_EQ(resultAs<std::string>("file -q -sn"), path("a.ma"));
    EXPECT_FALSE(run("file -s -type \"mayaBinary\""));
    EXPECT_FALSE(std::filesystem::exists(path("a.ma")));
    EXPECT_EQ(resultAs<std::string>("file -s -type \"mayaAscii\""), path("a.ma"));
    EXPECT_TRUE(std::filesystem::exists(path("a.ma")));
}

TEST_F(SceneSaveTest, OpenedSceneSavesUnderItsName) {
    ASSERT_TRUE(open("createNode transform -n \"a\";\n", "opened.ma"));
    ASSERT_TRUE(run("setAttr a.tx 4; file -s"));
    EXPECT_NE(readText(path("opened.ma")).find("setAttr \".t\" -type \"double3\" 4 0 0;"), std::string::npos);
    ASSERT_TRUE(run("file -new"));
    EXPECT_EQ(resultAs<std::string>("file -q -sn"), "");
}

TEST_F(SceneSaveTest, FailedSavesLeaveNothingBehind) {
    ASSERT_TRUE(run("polyCube -n box"));
    std::filesystem::create_directories(path("folder.ma"));
    const std::vector<std::string> before = folderContents();
    for (const std::string& target : {path("missing/box.ma"), path("folder.ma")}) {
        host::messageLog().clearHistory();
        EXPECT_FALSE(saveAs(target)) << target;
        EXPECT_NE(messagesOf(host::MessageKind::Error).back().find("Cannot save " + target),
                  std::string::npos)
            << messages();
        EXPECT_EQ(folderContents(), before) << target;
    }
    EXPECT_TRUE(std::filesystem::is_directory(path("folder.ma")));
}

// A write that fails half way (here: the file size limit) keeps the old file as it was.
TEST_F(SceneSaveTest, AFailedWriteKeepsTheOldFile) {
    writeText(path("box.ma"), "old scene");
    const std::vector<std::string> before = folderContents();
    ASSERT_TRUE(run("polyCube -n box"));
    EXPECT_FALSE(withFileSizeLimit(64, [&] { return saveAs(path("box.ma")); }));
    EXPECT_EQ(readText(path("box.ma")), "old scene");
    EXPECT_EQ(folderContents(), before);
}

TEST_F(SceneSaveTest, ReplacingAFileKeepsItsPermissions) {
    writeText(path("box.ma"), "old scene");
    ::chmod(path("box.ma").c_str(), 0640);
    ASSERT_TRUE(run("polyCube -n box"));
    ASSERT_TRUE(saveAs(path("box.ma"))) << messages();
    struct stat info {};
    ASSERT_EQ(::stat(path("box.ma").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0640u);
    EXPECT_EQ(readText(path("box.ma")).rfind("//Maya ASCII 2023 scene\n//Name: box.ma\n", 0), 0u);
    EXPECT_EQ(folderContents(), std::vector<std::string>{"box.ma"});
}

} // namespace
