#pragma once
// A fresh scene per test and the built-in commands run through the interpreter, as scripts run them.
#include "commands/CommandState.h"
#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace builtin_test {

inline host::Interpreter& interpreter() {
    static host::CommandTable table;
    static host::Interpreter instance = [] {
        host::registerBuiltinCommands(table);
        return host::Interpreter(table, host::messageLog());
    }();
    return instance;
}

class BuiltinCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        host::resetScene();
        host::messageLog().clearHistory();
        host::setFileReadingMode(false);
        host::setCurrentNode(nullptr);
    }
    void TearDown() override { host::setFileReadingMode(false); }

    // Runs the statements; false at the first failure.
    bool run(const std::string& text) {
        host::CommandResult ignored;
        return interpreter().execute(text, ignored);
    }

    // Runs the statements expecting success; the last statement's result.
    host::CommandResult result(const std::string& text) {
        host::CommandResult r;
        EXPECT_TRUE(interpreter().execute(text, r)) << text << "\n  error: " << lastError();
        return r;
    }

    template <class T> T resultAs(const std::string& text) {
        const host::CommandResult r = result(text);
        const T* value = std::get_if<T>(&r);
        EXPECT_NE(value, nullptr) << text << " gave a result of another type (index " << r.index() << ")";
        return value ? *value : T();
    }

    std::vector<std::string> strings(const std::string& text) {
        return resultAs<std::vector<std::string>>(text);
    }
    std::vector<double> doubles(const std::string& text) { return resultAs<std::vector<double>>(text); }

    std::string lastError() const {
        const auto& history = host::messageLog().history();
        for (auto it = history.rbegin(); it != history.rend(); ++it)
            if (it->kind == host::MessageKind::Error) return it->text;
        return std::string();
    }

    // Runs text that must fail with an error containing `expected`.
    void expectFailure(const std::string& text, const std::string& expected) {
        host::messageLog().clearHistory();
        EXPECT_FALSE(run(text)) << text;
        EXPECT_NE(lastError().find(expected), std::string::npos) << text << "\n  error: " << lastError();
    }
};

} // namespace builtin_test
