#include "commands/ArgReader.h"
#include "commands/TextValues.h"
#include "engine/Scene.h"

#include <gtest/gtest.h>

namespace {

std::vector<host::Token> tokens(std::initializer_list<std::pair<const char*, bool>> words) {
    std::vector<host::Token> out;
    for (const auto& [text, quoted] : words) out.push_back({text, quoted});
    return out;
}

const host::FlagTable kFlags = {{"n", "name", "s"}, {"s", "size", "i"}, {"w", "width", "d"},
                                {"l", "lock", "b"}, {"q", "query", ""}, {"iv", "intValue", "si"}};

TEST(BuiltinArgReader, SeparatesFlagsFromArguments) {
    const auto args = tokens({{"-n", false},
                              {"box", false},
                              {"a.t", false},
                              {"-1.5", false},
                              {"-x", true},
                              {"-size", false},
                              {"3", false},
                              {"-q", false},
                              {"-.5", false}});
    host::ArgReader reader("cmd", args);
    ASSERT_TRUE(reader.parse(kFlags));
    EXPECT_EQ(reader.text("name"), "box");
    EXPECT_EQ(reader.integer("size"), 3);
    EXPECT_TRUE(reader.has("query"));
    EXPECT_FALSE(reader.has("lock"));
    std::vector<std::string> positional;
    for (const host::Token* t : reader.positional()) positional.push_back(t->text);
    EXPECT_EQ(positional, (std::vector<std::string>{"a.t", "-1.5", "-x", "-.5"}));
}

TEST(BuiltinArgReader, RepeatedFlagsKeepTheirOrder) {
    const auto args = tokens(
        {{"-iv", false}, {"a", false}, {"1", false}, {"-intValue", false}, {"b", false}, {"-2", false}});
    host::ArgReader reader("cmd", args);
    ASSERT_TRUE(reader.parse(kFlags));
    ASSERT_EQ(reader.uses("intValue"), 2);
    EXPECT_EQ(reader.text("intValue", 0, 1), "b");
    EXPECT_EQ(reader.integer("intValue", 1, 1), -2);
    EXPECT_EQ(reader.argText(reader.flagUses()[0], 0), "a");
}

TEST(BuiltinArgReader, ReportsBadFlagsAndArguments) {
    struct Case {
        std::vector<host::Token> args;
        const char* error;
    };
    const Case cases[] = {
        {tokens({{"-x", false}}), "Invalid flag: -x"},
        {tokens({{"-n", false}}), "Flag -n needs a string argument."},
        {tokens({{"-n", false}, {"-q", false}}), "Flag -n needs a string argument, got \"-q\"."},
        {tokens({{"-s", false}, {"2.5", false}}), "Flag -s needs an integer argument"},
        {tokens({{"-w", false}, {"wide", false}}), "Flag -w needs a number argument"},
        {tokens({{"-l", false}, {"maybe", false}}), "Flag -l needs a boolean argument"},
        {tokens({{"-iv", false}, {"a", false}}), "Flag -iv needs an integer argument."},
    };
    for (const Case& c : cases) {
        host::messageLog().clearHistory();
        host::ArgReader reader("cmd", c.args);
        EXPECT_FALSE(reader.parse(kFlags)) << c.error;
        ASSERT_FALSE(host::messageLog().history().empty());
        EXPECT_EQ(host::messageLog().history().back().text.rfind(c.error, 0), 0u)
            << host::messageLog().history().back().text;
    }
}

TEST(BuiltinArgReader, BooleanFlagsReadTheirWords) {
    for (const auto& [word, expected] : {std::pair{"on", true},
                                         {"off", false},
                                         {"yes", true},
                                         {"no", false},
                                         {"true", true},
                                         {"false", false},
                                         {"1", true},
                                         {"0", false}}) {
        const auto args = tokens({{"-l", false}, {word, false}});
        host::ArgReader reader("cmd", args);
        ASSERT_TRUE(reader.parse(kFlags)) << word;
        EXPECT_EQ(reader.enabled("lock"), expected) << word;
    }
}

TEST(BuiltinTextValues, ParsesOnlyWholeFiniteNumbers) {
    struct Case {
        const char* text;
        bool number, integer;
        double value;
    };
    const Case cases[] = {
        {"3", true, true, 3},
        {"-2.5", true, false, -2.5},
        {"+4", true, true, 4},
        {".5", true, false, 0.5},
        {"1e3", true, true, 1000},
        {"4.0", true, true, 4},
        {"1e400", false, false, 0},
        {"nan", false, false, 0},
        {"inf", false, false, 0},
        {"3x", false, false, 0},
        {"", false, false, 0},
        {"++1", false, false, 0},
        {"3000000000", true, false, 3e9},
    };
    for (const Case& c : cases) {
        double d = -7;
        int i = -7;
        EXPECT_EQ(host::numberFromText(c.text, d), c.number) << c.text;
        EXPECT_EQ(host::integerFromText(c.text, i), c.integer) << c.text;
        if (c.number) {
            EXPECT_DOUBLE_EQ(d, c.value) << c.text;
        }
    }
}

} // namespace
