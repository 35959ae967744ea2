// Command words read as numbers: the fast reading of plain numbers must give exactly what the
// general conversions give, and every word must read as MString reads it.
#include "api/command/WordValue.h"
#include "core/common/PlainNumber.h"
#include "core/common/TextNumbers.h"

#include <maya/MString.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>

namespace {

bool sameDouble(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(PlainNumberTest, ReadsOnlyPlainNumbers) {
    const struct {
        const char* word;
        bool integer;
        bool real;
    } cases[] = {
        {"0", true, true},
        {"-12", true, true},
        {"007", true, true},
        {"0.5", false, true},
        {"-.5", false, true},
        {"5.", false, true},
        {"1e-3", false, true},
        {"2E+22", false, true},
        {"-0", true, true},
        {"", false, false},
        {"-", false, false},
        {".", false, false},
        {"+5", false, false},
        {" 5", false, false},
        {"5 ", false, false},
        {"0x10", false, false},
        {"1e", false, false},
        {"1e+", false, false},
        {"inf", false, false},
        {"nan", false, false},
        {"1e23", false, false},
        {"1e-23", false, false},
        {"9007199254740993", true, false},
        {"1234567890123456789", false, false},
    };
    for (const auto& c : cases) {
        long long integer = 0;
        double real = 0;
        EXPECT_EQ(common::readPlainInteger(c.word, integer), c.integer) << c.word;
        EXPECT_EQ(common::readPlainDouble(c.word, real), c.real) << c.word;
    }
}

// Random decimals of every shape near the limits of the fast reading.
TEST(PlainNumberTest, AgreesExactlyWithStrtod) {
    std::mt19937 random(5);
    const auto digits = [&](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += static_cast<char>('0' + random() % 10);
        return text;
    };
    int accepted = 0;
    for (int i = 0; i < 200000; ++i) {
        std::string word = random() % 2 ? "-" : "";
        word += digits(static_cast<int>(random() % 12));
        if (random() % 3) word += "." + digits(static_cast<int>(random() % 12));
        if (random() % 3 == 0) word += "e" + std::string(random() % 2 ? "-" : "") + digits(1 + random() % 2);
        double fast = 0;
        double general = 0;
        if (!common::readPlainDouble(word, fast)) continue;
        ++accepted;
        ASSERT_TRUE(common::parseDouble(word, general)) << word;
        ASSERT_TRUE(sameDouble(fast, general)) << word;
        long long integer = 0;
        long long wide = 0;
        if (common::readPlainInteger(word, integer)) {
            ASSERT_TRUE(common::parseLong(word, wide)) << word;
            ASSERT_EQ(integer, wide) << word;
        }
    }
    EXPECT_GT(accepted, 100000);
}

// parse…Word reads every word as MString's conversions do, plain or not.
TEST(WordValueTest, ReadsWordsAsMStringDoes) {
    const char* const words[] = {"42",
                                 "-7",
                                 " 3",
                                 "+3",
                                 "3 ",
                                 "0x1A",
                                 "1e3",
                                 "2147483647",
                                 "2147483648",
                                 "-2147483648",
                                 "-2147483649",
                                 "4294967295",
                                 "4294967296",
                                 "-0",
                                 "-1",
                                 "0.25",
                                 "-.5e1",
                                 "1e400",
                                 "-1e400",
                                 "1e-400",
                                 "inf",
                                 "nan",
                                 "",
                                 "-",
                                 "abc",
                                 "12abc",
                                 "1.5 ",
                                 "00012",
                                 "9999999999999999999"};
    for (const char* word : words) {
        const MString text(word);
        MStatus status;
        int integer = -99;
        const int mayaInt = text.asInt(&status);
        EXPECT_EQ(host::parseIntWord(word, integer), static_cast<bool>(status)) << word;
        EXPECT_TRUE(!status || integer == mayaInt) << word;
        unsigned int natural = 99;
        const unsigned int mayaNatural = text.asUnsigned(&status);
        EXPECT_EQ(host::parseUnsignedWord(word, natural), static_cast<bool>(status)) << word;
        EXPECT_TRUE(!status || natural == mayaNatural) << word;
        double real = -99;
        const double mayaReal = text.asDouble(&status);
        const bool finite = status && std::isfinite(mayaReal);
        EXPECT_EQ(host::parseDoubleWord(word, real), finite) << word;
        EXPECT_TRUE(!finite || sameDouble(real, mayaReal)) << word;
    }
}

} // namespace
