#pragma once
// A session with a fresh scene per test and a private folder for the files it writes, with
// shortcuts to run commands, read and write files and look at the messages.
#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

class FileTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
        host::messageLog().clearHistory();
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(info->test_suite_name()) + "_" + info->name();
        for (char& c : name)
            if (c == '/') c = '_';
        folder_ = std::filesystem::temp_directory_path() /
                  ("talven_files_" + std::to_string(getpid()) + "_" + name);
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }
    const std::filesystem::path& folder() const { return folder_; }

    static bool run(const std::string& text) {
        host::CommandResult ignored;
        return host::interpreter().execute(text, ignored);
    }
    static host::CommandResult result(const std::string& text) {
        host::CommandResult r;
        EXPECT_TRUE(host::interpreter().execute(text, r)) << text << "\n" << messages();
        return r;
    }
    template <class T> static T resultAs(const std::string& text) {
        const host::CommandResult r = result(text);
        const T* value = std::get_if<T>(&r);
        EXPECT_NE(value, nullptr) << text;
        return value ? *value : T();
    }

    static std::string readText(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }
    static void writeText(const std::string& file, const std::string& text) {
        std::ofstream(file, std::ios::binary) << text;
    }

    static std::vector<std::string> messagesOf(host::MessageKind kind) {
        std::vector<std::string> texts;
        for (const host::Message& m : host::messageLog().history())
            if (m.kind == kind) texts.push_back(m.text);
        return texts;
    }
    static std::string messages() {
        std::string text;
        for (const host::Message& m : host::messageLog().history()) text += m.text + "\n";
        return text;
    }

    // `file -o` on a scene given as text.
    bool open(const std::string& text, const std::string& name = "scene.ma") {
        writeText(path(name), text);
        return run("file -o \"" + path(name) + "\"");
    }
    // Names the scene and saves it; the saved text.
    std::string save(const std::string& name) {
        EXPECT_TRUE(run("file -rn \"" + path(name) + "\"; file -s")) << messages();
        return readText(path(name));
    }

private:
    std::filesystem::path folder_;
};
