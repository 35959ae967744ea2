// Every file the system writes (weights, deltas, regions, scenes, OBJ exports) is replaced only once
// its new text is complete: a write cut short keeps the old file, a symbolic link keeps pointing at
// the file it names, which gets the new text, and anything but a regular file is refused.
// Temporaries abandoned by a process that died while writing are cleared by the next write there.
#include "RegionMapSession.h"
#include "tests/support/FileSizeLimit.h"

#include <chrono>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

class SafeWrites : public RegionMapSession {
protected:
    void SetUp() override {
        RegionMapSession::SetUp();
        store(everyVertex(0.5));
        must("setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 1 vtx[0:3]");
        must("setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 4 0 1 0 1 0 2 0 1 0 3 0 1 0 4 0 1");
        setRows(planeMap());
        must("select pl");
    }

    struct Writer {
        const char* name;
        std::string command; // with "F" where the file name goes
    };
    static std::vector<Writer> writers() {
        return {{"weights", "kv_blendShapeEditWeights -ex -fn \"F\" bs"},
                {"deltas", "kv_blendShapeExportData -d -fn \"F\" -cn a -i 0 bs"},
                {"regions", "kv_editRegionMap -ex -fn \"F\" -m plShape rg"},
                {"scene", "file -rn \"F\"; file -s"},
                {"obj", "file -es -f -type \"OBJexport\" \"F\""}};
    }
    static std::string withFile(std::string command, const std::string& path) {
        const std::string mark = "\"F\"", quoted = "\"" + path + "\"";
        for (std::size_t at = command.find(mark); at != std::string::npos;
             at = command.find(mark, at + quoted.size()))
            command.replace(at, mark.size(), quoted);
        return command;
    }
    // Whether the write went through: the plug-in's commands report a failed write as an error.
    static bool write(const Writer& writer, const std::string& path) {
        clearMessages();
        host::CommandResult ignored;
        return host::interpreter().execute(withFile(writer.command, path), ignored) && errors().empty();
    }

    std::vector<std::string> namesIn(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(file(folder)))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(SafeWrites, AWriteCutShortKeepsTheOldFile) {
    for (const Writer& writer : writers()) {
        fs::create_directories(file(writer.name));
        const std::string target = writeFile(std::string(writer.name) + "/old.txt", "old");
        EXPECT_FALSE(withFileSizeLimit(16, [&] { return write(writer, target); })) << writer.name;
        EXPECT_EQ(readFile(target), "old") << writer.name;
        EXPECT_EQ(namesIn(writer.name), std::vector<std::string>{"old.txt"}) << writer.name;
        // Without the limit the same write goes through.
        EXPECT_TRUE(write(writer, target)) << writer.name << "\n" << allMessages();
        EXPECT_GT(readFile(target).size(), 16u) << writer.name;
    }
}

TEST_F(SafeWrites, LinksAreFollowedAndOnlyRegularFilesReplaced) {
    for (const Writer& writer : writers()) {
        const std::string folder = writer.name;
        fs::create_directories(file(folder + "/real"));
        const std::string real = writeFile(folder + "/real/data.txt", "old");
        const std::string link = file(folder + "/link.txt"), chain = file(folder + "/chain.txt");
        fs::create_symlink("real/data.txt", link);
        fs::create_symlink("link.txt", chain);
        EXPECT_TRUE(write(writer, chain)) << writer.name << "\n" << allMessages();
        EXPECT_TRUE(fs::is_symlink(link) && fs::is_symlink(chain)) << writer.name;
        EXPECT_GT(readFile(real).size(), 16u) << writer.name;
        EXPECT_EQ(namesIn(folder + "/real"), std::vector<std::string>{"data.txt"}) << writer.name;

        const std::string fifo = file(folder + "/fifo.txt");
        ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
        EXPECT_FALSE(write(writer, fifo)) << writer.name;
        EXPECT_TRUE(fs::is_fifo(fifo)) << writer.name;
        EXPECT_FALSE(errors().empty()) << writer.name;
    }
    const std::string fifo = file("scene/fifo.txt");
    EXPECT_FALSE(write(writers()[3], fifo));
    EXPECT_EQ(errors(), Lines{"Cannot save " + fifo + ": it is not a regular file."});
}

TEST_F(SafeWrites, AbandonedTemporariesAreClearedByTheNextWrite) {
    const std::string abandoned = writeFile(".scene.ma.talven-tmp-0123456789abcdef", "cut");
    const std::string inProgress = writeFile(".other.ma.talven-tmp-fedcba9876543210", "writing");
    const std::string unrelated = writeFile(".scene.ma.tmp", "kept");
    fs::last_write_time(abandoned, fs::file_time_type::clock::now() - std::chrono::hours(1));
    fs::last_write_time(unrelated, fs::file_time_type::clock::now() - std::chrono::hours(1));
    ASSERT_TRUE(write(writers()[0], file("w.txt")));
    EXPECT_FALSE(fs::exists(abandoned));
    // A young one may be another process's save in progress.
    EXPECT_TRUE(fs::exists(inProgress));
    EXPECT_TRUE(fs::exists(unrelated));
}

} // namespace
