#include "lang/Tokenizer.h"

#include <gtest/gtest.h>

#include <random>

using host::Statement;
using host::Tokenizer;

namespace {

std::string renderWord(std::string_view text, bool quoted) {
    return '|' + (quoted ? '"' + std::string(text) + '"' : std::string(text));
}

// Each statement as "command|arg|…", quoted tokens in double quotes (their text unescaped), read
// as tokens or as words in one buffer.
std::vector<std::string> render(std::string_view text, host::ArgForm form, std::string* error) {
    Tokenizer tokenizer(text);
    Statement statement;
    std::vector<std::string> statements;
    while (tokenizer.readCommand(statement) && tokenizer.readArguments(statement, form)) {
        std::string line = statement.command;
        if (form == host::ArgForm::Words) {
            EXPECT_TRUE(statement.args.empty());
            for (std::size_t i = 0; i < statement.words->size(); ++i)
                line += renderWord((*statement.words)[i], statement.words->quoted(i));
        } else {
            EXPECT_FALSE(statement.words);
            for (const auto& token : statement.args) line += renderWord(token.text, token.quoted);
        }
        statements.push_back(line);
    }
    if (error) *error = tokenizer.error();
    return statements;
}

// Both forms, which must agree.
std::vector<std::string> render(std::string_view text, std::string* error = nullptr) {
    std::string wordsError;
    const std::vector<std::string> words = render(text, host::ArgForm::Words, &wordsError);
    const std::vector<std::string> tokens = render(text, host::ArgForm::Tokens, error);
    EXPECT_EQ(words, tokens) << text;
    if (error) {
        EXPECT_EQ(wordsError, *error) << text;
    }
    return tokens;
}

struct TokenCase {
    const char* name;
    std::string text;
    std::vector<std::string> statements;
};

TEST(Tokenizer, SplitsStatementsIntoTokens) {
    const TokenCase cases[] = {
        {"flags and words", "ls -type mesh;", {"ls|-type|mesh"}},
        {"negative numbers stay words",
         "setAttr \".t\" -type \"double3\" 1 -2.5 -1e-3;",
         {"setAttr|\".t\"|-type|\"double3\"|1|-2.5|-1e-3"}},
        {"escapes", R"(echo "a\"b\\c\nd\te\rf\q";)", {"echo|\"a\"b\\c\nd\te\rf\\q\""}},
        {"empty string", "echo \"\" x;", {"echo|\"\"|x"}},
        {"line comment hides ;", "a // x ; y\nb;\ne;", {"a|b", "e"}},
        {"block comments", "a/* ; */b /*\n;\n*/ c;", {"a|b|c"}},
        {"slash inside a word", "a/b c;", {"a/b|c"}},
        {"comment markers in strings", "echo \"// x /* y\";", {"echo|\"// x /* y\""}},
        {"string list",
         "setAttr \".aal\" -type \"attributeAlias\" {\"t\",\"weight[0]\"} ;",
         {"setAttr|\".aal\"|-type|\"attributeAlias\"|{|\"t\"|,|\"weight[0]\"|}"}},
        {"number list", "x {1, 2,3};", {"x|{|1|,|2|,|3|}"}},
        {"statement over lines", "a\n  b\n\n c;", {"a|b|c"}},
        {"empty statements", ";; a ;;; b;", {"a", "b"}},
        {"missing final ;", "a; b c", {"a", "b|c"}},
        {"quotes split words", "a\"b\"c;", {"a|\"b\"|c"}},
        {"concatenated string",
         "setAttr \".b\" -type \"string\" (\n\t\"x;\" +\n\t\"y\");",
         {"setAttr|\".b\"|-type|\"string\"|\"x;y\""}},
        {"parentheses otherwise", "a (b) (\"x\" y);", {"a|(b)|(|\"x\"|y)"}},
        {"CRLF", "a\r\nb;\r\n", {"a|b"}},
        {"UTF-8 passes through", "echo \"\xC3\xA9\" \xC3\xBC;", {"echo|\"\xC3\xA9\"|\xC3\xBC"}},
        {"nothing but comments", "// a\n/* b */ \n", {}},
    };
    for (const auto& c : cases) {
        std::string error;
        EXPECT_EQ(render(c.text, &error), c.statements) << c.name;
        EXPECT_EQ(error, "") << c.name;
    }
}

TEST(Tokenizer, ReportsLinesAndTextOfStatements) {
    const std::string text = "a 1;\n\n  b \"x\ny\"\n /* c\n */ z ;\nd // e\n;\n  f  ";
    Tokenizer tokenizer(text);
    Statement statement;
    std::vector<std::pair<int, std::string>> seen;
    std::vector<bool> terminated;
    while (tokenizer.nextStatement(statement)) {
        seen.emplace_back(statement.line, std::string(tokenizer.statementText()));
        terminated.push_back(tokenizer.terminated());
    }
    const std::vector<std::pair<int, std::string>> expected = {
        {1, "a 1"}, {3, "b \"x\ny\"\n /* c\n */ z"}, {7, "d // e"}, {9, "f"}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(terminated, (std::vector<bool>{true, true, true, false}));
}

TEST(Tokenizer, MalformedTextStopsWithLineNumber) {
    const struct {
        std::string text;
        std::vector<std::string> before;
        std::string error;
        std::string rest;
    } cases[] = {
        {"a;\nb \"x\n\ny", {"a"}, "Line 2: Unterminated string.", "b \"x\n\ny"},
        {"a;\n\n  /* x\n", {"a"}, "Line 3: Unterminated comment.", "/* x"},
        {"a b /* x", {}, "Line 1: Unterminated comment.", "a b /* x"},
        {"echo \"abc\\", {}, "Line 1: Unterminated string.", "echo \"abc\\"},
        {"a (\"x\" +\n \"y", {}, "Line 2: Unterminated string.", "a (\"x\" +\n \"y"},
    };
    for (const auto& c : cases) {
        Tokenizer tokenizer(c.text);
        Statement statement;
        std::vector<std::string> before;
        while (tokenizer.nextStatement(statement)) before.push_back(statement.command);
        EXPECT_EQ(before, c.before) << c.text;
        EXPECT_EQ(tokenizer.error(), c.error) << c.text;
        EXPECT_EQ(tokenizer.statementText(), c.rest) << c.text;
        EXPECT_FALSE(tokenizer.nextStatement(statement)) << "stays stopped: " << c.text;
        std::string error;
        render(c.text, &error);
        EXPECT_EQ(error, c.error) << c.text;
    }
}

TEST(Tokenizer, IsCompleteWaitsForSemicolonAndClosedStrings) {
    const std::pair<const char*, bool> cases[] = {
        {"", true},        {"  \n", true},      {"ls;", true},      {"ls; // c", true},
        {"a\nb;\n", true}, {"a \"x;\";", true}, {"ls", false},      {"a; b", false},
        {"a \"x;", false}, {"/* x; ", false},   {"a; /* */", true}, {"a \"\\\";", false},
    };
    for (const auto& [text, complete] : cases) EXPECT_EQ(host::isComplete(text), complete) << text;
}

// Random tokens written out (quoted with escapes, or as plain words) must read back unchanged.
TEST(Tokenizer, RoundTripsRandomTokens) {
    std::mt19937 random(7);
    const std::string wordChars = "abz019-_.:[]|*/";
    const std::string anyChars = "ab \t\n\"\\;/*{},()+\xC3\xA9";
    for (int round = 0; round < 300; ++round) {
        std::vector<host::Token> tokens(1 + random() % 6);
        std::string text = "cmd";
        for (auto& token : tokens) {
            token.quoted = random() % 2;
            const std::string& chars = token.quoted ? anyChars : wordChars;
            for (size_t n = 1 + random() % 6; n > 0; --n) token.text += chars[random() % chars.size()];
            if (!token.quoted &&
                (token.text.find("//") != std::string::npos || token.text.find("/*") != std::string::npos))
                token.text = "w";
            text += ' ';
            if (!token.quoted) {
                text += token.text;
                continue;
            }
            text += '"';
            for (char c : token.text)
                text += c == '"' ? "\\\"" : c == '\\' ? "\\\\" : c == '\n' ? "\\n" : std::string(1, c);
            text += '"';
        }
        text += " ;";
        Tokenizer tokenizer(text);
        Statement statement;
        ASSERT_TRUE(tokenizer.nextStatement(statement)) << text;
        ASSERT_EQ(statement.args.size(), tokens.size()) << text;
        for (size_t i = 0; i < tokens.size(); ++i) {
            EXPECT_EQ(statement.args[i].text, tokens[i].text) << text;
            EXPECT_EQ(statement.args[i].quoted, tokens[i].quoted) << text;
        }
        render(text);
    }
}

// Truncated scene text and random bytes end in statements or an error, never a crash or a hang.
TEST(Tokenizer, SurvivesTruncationAndRandomBytes) {
    const std::string sample =
        "createNode mesh -n \"a\" -p \"b\";\n\tsetAttr \".aal\" -type \"attributeAlias\" "
        "{\"t\",\"w[0]\"} ;\n/* x */ setAttr \".b\" -type \"string\" (\"a\\\"\" + \"b\");\n";
    std::vector<std::string> inputs;
    for (size_t n = 0; n <= sample.size(); ++n) inputs.push_back(sample.substr(0, n));
    std::mt19937 random(11);
    const char letters[] = "a \n\"\\;/*{},()+\r\0\xFF";
    const std::string alphabet(letters, sizeof letters - 1);
    for (int i = 0; i < 2000; ++i) {
        std::string text(random() % 40, ' ');
        for (char& c : text) c = i % 2 ? static_cast<char>(random()) : alphabet[random() % alphabet.size()];
        inputs.push_back(text);
    }
    for (const auto& text : inputs) {
        Tokenizer tokenizer(text);
        Statement statement;
        size_t count = 0;
        while (tokenizer.nextStatement(statement)) ASSERT_LE(++count, text.size());
        host::isComplete(text);
        render(text);
    }
}

} // namespace
