#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

TEST(MStringTest, FormatsNumbersWithFifteenDigits) {
    struct Case {
        double value;
        const char* text;
    } cases[] = {{3.0, "3"}, {0.1, "0.1"}, {-2.5, "-2.5"}, {1.0 / 3.0, "0.333333333333333"}, {1e20, "1e+20"}};
    for (const Case& c : cases) {
        EXPECT_EQ(MString() + c.value, c.text);
        MString assigned;
        assigned = c.value;
        EXPECT_EQ(assigned, c.text);
    }
    EXPECT_EQ(MString("n") + 7, "n7");
}

TEST(MStringTest, ParsesNumbers) {
    struct Case {
        const char* text;
        int asInt;
        bool isInt;
        double asDouble;
    } cases[] = {
        {"42", 42, true, 42.0}, {" -7 ", -7, true, -7.0}, {"abc", 0, false, 0.0},
        {"", 0, false, 0.0},    {"2.5", 2, false, 2.5},   {"99999999999", 0, false, 99999999999.0},
    };
    for (const Case& c : cases) {
        const MString text(c.text);
        EXPECT_EQ(text.asInt(), c.asInt) << c.text;
        EXPECT_EQ(text.isInt(), c.isInt) << c.text;
        EXPECT_EQ(text.asDouble(), c.asDouble) << c.text;
    }
    MStatus status;
    EXPECT_EQ(MString("abc").asInt(&status), 0);
    EXPECT_EQ(status, MS::kFailure);
    EXPECT_TRUE(std::isinf(MString("1e300").asFloat()));
}

TEST(MStringTest, SubstringEndIsInclusive) {
    const MString text("blendShape1");
    struct Case {
        int start, end;
        const char* expected;
    } cases[] = {{0, 4, "blend"},   {5, 9, "Shape"}, {10, 10, "1"},
                 {5, 99, "Shape1"}, {-3, 1, "bl"},   {4, 3, ""}};
    for (const Case& c : cases)
        EXPECT_EQ(text.substring(c.start, c.end), c.expected) << c.start << ".." << c.end;
}

TEST(MStringTest, SplitDropsEmptyPieces) {
    struct Case {
        const char* text;
        std::vector<std::string> pieces;
    } cases[] = {
        {"a.b.c", {"a", "b", "c"}}, {"..a..b.", {"a", "b"}}, {"", {}}, {"...", {}}, {"single", {"single"}},
    };
    for (const Case& c : cases) {
        MStringArray pieces;
        pieces.append("stale");
        ASSERT_EQ(MString(c.text).split('.', pieces), MS::kSuccess);
        ASSERT_EQ(pieces.length(), c.pieces.size()) << c.text;
        for (unsigned int i = 0; i < pieces.length(); ++i) EXPECT_EQ(pieces[i].str(), c.pieces[i]);
    }
}

// Sets an environment variable for one test and puts the old value back afterwards.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        hadValue_ = std::getenv(name) != nullptr;
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~ScopedEnv() {
        if (hadValue_)
            setenv(name_.c_str(), old_.c_str(), 1);
        else
            unsetenv(name_.c_str());
    }

private:
    std::string name_, old_;
    bool hadValue_ = false;
};

TEST(MStringTest, ExpandsHomeAndVariables) {
    const ScopedEnv home("HOME", "/home/tester"), dir("TALVEN_TEST_DIR", "/data"),
        unset("TALVEN_TEST_UNSET", nullptr);
    struct Case {
        const char* text;
        const char* expected;
    } cases[] = {
        {"~/maps/w.json", "/home/tester/maps/w.json"},
        {"~", "/home/tester"},
        {"~other/w.json", "~other/w.json"},
        {"$TALVEN_TEST_DIR/w.json", "/data/w.json"},
        {"${TALVEN_TEST_DIR}x", "/datax"},
        {"$TALVEN_TEST_UNSET/w", "$TALVEN_TEST_UNSET/w"},
        {"cost $5", "cost $5"},
    };
    for (const Case& c : cases) EXPECT_EQ(MString(c.text).expandEnvironmentVariablesAndTilde(), c.expected);
}

} // namespace
