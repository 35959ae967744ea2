// Deep hierarchies and many same-named nodes: deleting and duplicating walk the DAG without
// recursion (checked on a thread with a small stack, opened from a file too), and naming and
// duplicating cost grows linearly (checked as the ratio of run times at n and 4n, never as a time).
#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"
#include "tests/support/RunCost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <pthread.h>
#include <string>
#include <unistd.h>

namespace {

class DeepScene : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
        host::messageLog().clearHistory();
    }
    void TearDown() override { host::resetScene(); }

    static bool run(const std::string& text) {
        host::CommandResult ignored;
        return host::interpreter().execute(text, ignored);
    }

    // A chain t0|t1|…|t<depth-1>.
    static std::string chain(int depth) {
        std::string text = "createNode transform -n t0;";
        for (int i = 1; i < depth; ++i)
            text += "createNode transform -n t" + std::to_string(i) + " -p t" + std::to_string(i - 1) + ";";
        return text;
    }

    // Runs `work` on a thread whose stack is too small for one frame per level of a deep walk.
    static bool onSmallStack(const std::function<bool()>& work) {
        struct Job {
            const std::function<bool()>* work;
            bool ok = false;
        } job{&work};
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, 512 * 1024);
        pthread_t thread;
        const auto body = [](void* data) -> void* {
            auto* j = static_cast<Job*>(data);
            j->ok = (*j->work)();
            return nullptr;
        };
        const bool started = pthread_create(&thread, &attributes, body, &job) == 0;
        pthread_attr_destroy(&attributes);
        if (started) pthread_join(thread, nullptr);
        return started && job.ok;
    }
};

constexpr int kDeep = 5000;

TEST_F(DeepScene, DeleteDuplicateAndUndoOfADeepChain) {
    ASSERT_TRUE(run(chain(kDeep)));
    const auto work = [] {
        return run("duplicate -n copy t0") && host::scene().findNode("copy") != nullptr &&
               host::scene().nodes().size() == 2 * kDeep + 1 && run("delete t0") && run("undo") &&
               host::scene().findNode("t0|t1|t2") != nullptr && run("delete copy; delete t0") &&
               host::scene().nodes().size() == 1;
    };
    EXPECT_TRUE(onSmallStack(work));
}

TEST_F(DeepScene, DeepChainOpenedFromAFile) {
    const std::string file =
        (std::filesystem::temp_directory_path() / ("talven_deep_" + std::to_string(getpid()) + ".ma"))
            .string();
    ASSERT_TRUE(run(chain(kDeep) + "file -rn \"" + file + "\"; file -s; file -f -new"));
    const auto work = [&file] {
        return run("file -f -o \"" + file + "\"") && host::scene().findNode("t4999") != nullptr &&
               run("duplicate t0; delete t0") && host::scene().nodes().size() == kDeep + 1;
    };
    EXPECT_TRUE(onSmallStack(work));
    std::filesystem::remove(file);
}

TEST_F(DeepScene, SameNameNodesCostLinearly) {
    const auto named = [](int n) {
        std::string text;
        for (int i = 0; i < n; ++i) text += "createNode transform -n \"x\";";
        return text;
    };
    const std::string small = named(2000), large = named(8000);
    const auto reset = [] { host::resetScene(); };
    const double smallCost = bestRunTime(reset, [&] { EXPECT_TRUE(run(small)); });
    const double ratio = bestRunTime(reset, [&] { EXPECT_TRUE(run(large)); }) / smallCost;
    EXPECT_LT(ratio, 12.0) << "4x the nodes cost " << ratio << "x the time";
    EXPECT_NE(host::scene().findNode("x7999"), nullptr);
    // Names freed by a delete are found again, as counting from 1 would.
    ASSERT_TRUE(run("delete x17; createNode transform -n x"));
    EXPECT_NE(host::scene().findNode("x17"), nullptr);
}

TEST_F(DeepScene, DuplicatingAChainCostsLinearly) {
    const std::string small = chain(250), large = chain(1000);
    const auto duplicate = [] { EXPECT_TRUE(run("duplicate t0")); };
    const double smallCost = bestRunTime([&] { host::resetScene(), run(small); }, duplicate);
    const double ratio = bestRunTime([&] { host::resetScene(), run(large); }, duplicate) / smallCost;
    EXPECT_LT(ratio, 13.0) << "a 4x deeper chain cost " << ratio << "x the time";
    // The copy keeps the names below its top.
    EXPECT_NE(host::scene().findNode("t1000|t1|t2"), nullptr);
}

} // namespace
