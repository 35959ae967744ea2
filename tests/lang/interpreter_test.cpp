#include "lang/Interpreter.h"

#include <gtest/gtest.h>

#include <stdexcept>

using host::CommandResult;
using host::Invocation;
using host::MessageKind;
using host::Outcome;

namespace {

class InterpreterTest : public ::testing::Test {
protected:
    InterpreterTest() {
        commands.add("one", [](Invocation& call) {
            call.result = 1;
            return true;
        });
        commands.add("say", [this](Invocation& call) {
            for (const auto& token : call.statement.args) log.info(token.text);
            return true;
        });
        // The same, taking its words in one buffer.
        commands.add(
            "sayWords",
            [this](Invocation& call) {
                if (!call.statement.args.empty()) return false;
                const host::WordList& words = *call.statement.words;
                for (std::size_t i = 0; i < words.size(); ++i)
                    log.info(std::string(words[i]) + (words.quoted(i) ? " (quoted)" : ""));
                return true;
            },
            host::ArgForm::Words);
        commands.add("fail", [this](Invocation&) {
            log.error("failed");
            return false;
        });
        commands.add("throw", [](Invocation&) -> bool { throw std::runtime_error("boom"); });
        commands.add("count", [this](Invocation& call) {
            call.result = ++counted;
            return true;
        });
        // Runs its first argument as command text, as a plug-in command does.
        commands.add("nested", [this](Invocation& call) {
            return interpreter.execute(call.statement.args.at(0).text, call.result);
        });
        commands.add("recurse", [this](Invocation& call) {
            ++counted;
            return interpreter.execute("recurse", call.result);
        });
        commands.add("unload", [this](Invocation&) {
            commands.remove("unload");
            log.info("still here");
            return true;
        });
    }

    std::vector<Outcome> run(std::string_view text, const std::string& source = "") {
        std::vector<Outcome> outcomes;
        ok = interpreter.run(text, source, [&](const Outcome& outcome) { outcomes.push_back(outcome); });
        return outcomes;
    }

    host::CommandTable commands;
    host::MessageLog log;
    host::Interpreter interpreter{commands, log};
    int counted = 0;
    bool ok = false;
};

std::vector<std::string> texts(const std::vector<host::Message>& messages) {
    std::vector<std::string> result;
    for (const auto& message : messages) result.push_back(message.text);
    return result;
}

TEST_F(InterpreterTest, ReportsEachStatementWithItsMessages) {
    const auto outcomes = run("one ;\n say  a \"b c\"; fail;\ncount");
    ASSERT_EQ(outcomes.size(), 3u);
    EXPECT_FALSE(ok);
    EXPECT_EQ(counted, 0) << "the batch stops at the failure";

    EXPECT_EQ(outcomes[0].command, "one");
    EXPECT_TRUE(outcomes[0].ok);
    EXPECT_EQ(outcomes[0].result, CommandResult(1));
    EXPECT_TRUE(outcomes[0].messages.empty());

    EXPECT_EQ(outcomes[1].command, "say  a \"b c\"");
    EXPECT_EQ(outcomes[1].line, 2);
    EXPECT_EQ(texts(outcomes[1].messages), (std::vector<std::string>{"a", "b c"}));

    EXPECT_FALSE(outcomes[2].ok);
    ASSERT_EQ(outcomes[2].messages.size(), 1u);
    EXPECT_EQ(outcomes[2].messages[0].kind, MessageKind::Error);
}

TEST_F(InterpreterTest, KeepsGoingWhenAsked) {
    interpreter.setStopOnError(false);
    const auto outcomes = run("fail; count; nope; count");
    EXPECT_FALSE(ok);
    EXPECT_EQ(outcomes.size(), 4u);
    EXPECT_EQ(counted, 2);
}

TEST_F(InterpreterTest, FailuresCarryTheirReason) {
    const struct {
        std::string text;
        std::string source;
        std::string error;
    } cases[] = {
        {"nope -x 1", "", "Cannot find procedure \"nope\"."},
        {"nope \"x", "", "Line 1: Unterminated string."},
        {"sayWords a /* x", "", "Line 1: Unterminated comment."},
        {"throw", "", "Internal error: boom"},
        {"one;\n\"x", "", "Line 2: Unterminated string."},
        {"one;\n/* x", "setup.mel", "setup.mel: Line 2: Unterminated comment."},
    };
    for (const auto& c : cases) {
        const auto outcomes = run(c.text, c.source);
        ASSERT_FALSE(outcomes.empty()) << c.text;
        EXPECT_FALSE(ok) << c.text;
        EXPECT_FALSE(outcomes.back().ok) << c.text;
        EXPECT_EQ(texts(outcomes.back().messages), std::vector<std::string>{c.error}) << c.text;
    }
}

TEST_F(InterpreterTest, CommandsTakeTheirWordsInTheFormTheyAskFor) {
    const auto outcomes = run("sayWords -a \"b c\" (\"d\" + \"e\") {1,x} \"\"; sayWords; say -a \"b c\"");
    ASSERT_EQ(outcomes.size(), 3u);
    EXPECT_TRUE(ok);
    EXPECT_EQ(texts(outcomes[0].messages), (std::vector<std::string>{"-a", "b c (quoted)", "de (quoted)", "{",
                                                                     "1", ",", "x", "}", " (quoted)"}));
    EXPECT_TRUE(outcomes[1].messages.empty());
    EXPECT_EQ(texts(outcomes[2].messages), (std::vector<std::string>{"-a", "b c"}));
}

TEST_F(InterpreterTest, ShortensLongStatementsOnCharacterBoundaries) {
    std::string word;
    for (int i = 0; i < 300; ++i) word += "\xC3\xA9"; // two bytes each
    const auto outcomes = run("say x" + word + "  ;");
    ASSERT_EQ(outcomes.size(), 1u);
    const std::string& command = outcomes[0].command;
    ASSERT_GT(command.size(), 150u);
    ASSERT_LE(command.size(), 203u);
    EXPECT_EQ(command.substr(command.size() - 3), "...");
    EXPECT_EQ(command.substr(0, command.size() - 3), ("say x" + word).substr(0, command.size() - 3));
    EXPECT_EQ((command.size() - 3 - 5) % 2, 0u) << "cut inside a character";
}

TEST_F(InterpreterTest, ExecuteKeepsTheLastResultAndStopsAtFailure) {
    CommandResult result;
    EXPECT_TRUE(interpreter.execute("count; one", result));
    EXPECT_EQ(result, CommandResult(1));
    EXPECT_FALSE(interpreter.execute("count; fail; count", result));
    EXPECT_EQ(counted, 2);
    EXPECT_TRUE(interpreter.execute("", result));
    EXPECT_EQ(result, CommandResult());
    EXPECT_FALSE(interpreter.execute("one; \"open", result));
    EXPECT_EQ(log.history().back().text, "Line 1: Unterminated string.");
}

TEST_F(InterpreterTest, HandlersMayRunCommands) {
    const auto outcomes = run("nested \"say inner; one\"; nested \"nested \\\"count\\\"\"");
    ASSERT_EQ(outcomes.size(), 2u);
    EXPECT_TRUE(ok);
    EXPECT_EQ(outcomes[0].result, CommandResult(1));
    EXPECT_EQ(texts(outcomes[0].messages), std::vector<std::string>{"inner"});
    EXPECT_EQ(outcomes[1].result, CommandResult(1));
}

TEST_F(InterpreterTest, LimitsNesting) {
    CommandResult result;
    EXPECT_FALSE(interpreter.execute("recurse", result));
    EXPECT_EQ(counted, host::Interpreter::maxDepth);
    ASSERT_EQ(log.history().size(), 1u);
    EXPECT_NE(log.history()[0].text.find("64"), std::string::npos);
    // The depth unwinds: the next run is not refused.
    EXPECT_TRUE(interpreter.execute("one", result));
}

TEST_F(InterpreterTest, CommandMayRemoveItselfWhileRunning) {
    const auto outcomes = run("unload; unload");
    ASSERT_EQ(outcomes.size(), 2u);
    EXPECT_TRUE(outcomes[0].ok);
    EXPECT_EQ(texts(outcomes[0].messages), std::vector<std::string>{"still here"});
    EXPECT_FALSE(outcomes[1].ok);
}

} // namespace
