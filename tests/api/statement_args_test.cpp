// What plug-in commands get from a statement: its words, shared rather than copied, and the call
// written back for the undo queue.
#include "api/command/StatementArgs.h"
#include "lang/Tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

host::Statement read(const std::string& text, host::ArgForm form) {
    host::Tokenizer tokenizer(text);
    host::Statement statement;
    EXPECT_TRUE(tokenizer.readCommand(statement) && tokenizer.readArguments(statement, form)) << text;
    return statement;
}

std::vector<std::string> wordsOf(const MArgList& args) {
    std::vector<std::string> words;
    for (unsigned int i = 0; i < args.length(); ++i)
        words.push_back((args.isQuoted(i) ? "'" : "") + args.asString(i).str());
    return words;
}

// Written back and read again, a call gives the same words, whichever form they were read in.
TEST(StatementArgsTest, CommandTextReadsBackToTheSameWords) {
    const char* const texts[] = {
        "cmd",
        "cmd -f 1 -w 0.5 obj",
        "cmd \"a b\" \"\" -x \"q\\\"uote\\\\back\\nline\\ttab\" w v",
        "cmd \"-flag-like\" {1,\"x\"} (\"con\" + \"cat\") last",
        "cmd \"only quoted\"",
    };
    for (const char* text : texts) {
        for (const host::ArgForm form : {host::ArgForm::Tokens, host::ArgForm::Words}) {
            const host::Statement statement = read(text, form);
            const MArgList args = host::argListOf(statement);
            const std::string written = host::commandTextOf(statement.command, args);
            const host::Statement again = read(written, host::ArgForm::Words);
            EXPECT_EQ(again.command, "cmd") << written;
            EXPECT_EQ(wordsOf(host::argListOf(again)), wordsOf(args)) << written;
            EXPECT_EQ(host::commandTextOf(again.command, host::argListOf(again)), written);
        }
    }
    MArgList args;
    args.addWord("a", false).addWord("b c", true).addWord("d", false).addWord("e", false);
    EXPECT_EQ(host::commandTextOf("cmd", args), "cmd a \"b c\" d e");
}

TEST(StatementArgsTest, ListsShareWordsUntilOneChanges) {
    const host::Statement statement = read("cmd -a 1 \"x y\"", host::ArgForm::Words);
    const MArgList shared = host::argListOf(statement);
    EXPECT_EQ(shared.sharedWords(), statement.words);
    MArgList copy = shared;
    copy.addArg(2).addArg(MString("z"));
    EXPECT_EQ(wordsOf(shared), (std::vector<std::string>{"-a", "1", "'x y"}));
    EXPECT_EQ(wordsOf(copy), (std::vector<std::string>{"-a", "1", "'x y", "2", "z"}));
    EXPECT_EQ(statement.words->size(), 3u);

    MArgList reused = copy;
    reused.clearWords();
    reused.addArg(7);
    EXPECT_EQ(wordsOf(reused), std::vector<std::string>{"7"});
    EXPECT_EQ(copy.length(), 5u);
}

} // namespace
