// Numbers and strings as scene files spell them: the shortest text that reads back exactly.
#include "engine/Attribute.h"
#include "files/MaText.h"
#include "files/ValueText.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

double parsed(const std::string& text) {
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string doubleText(double v) {
    std::string out;
    host::appendDouble(out, v);
    return out;
}

std::string floatText(float v) {
    std::string out;
    host::appendFloat(out, v);
    return out;
}

TEST(MaTextTest, WritesTheShortestExactText) {
    const std::pair<double, const char*> doubles[] = {
        {0.0, "0"},         {-0.0, "-0"},
        {1.0, "1"},         {0.1, "0.1"},
        {1e-05, "1e-05"},   {1e21, "1e+21"},
        {-2.5, "-2.5"},     {1.0 / 3.0, "0.3333333333333333"},
        {5e-324, "5e-324"}, {34.999999999999993, "34.99999999999999"}};
    for (const auto& [value, text] : doubles) EXPECT_EQ(doubleText(value), text);
    const std::pair<float, const char*> floats[] = {
        {0.33000001f, "0.33"}, {0.66333336f, "0.66333336"}, {-1e-7f, "-1e-07"}};
    for (const auto& [value, text] : floats) EXPECT_EQ(floatText(value), text);
}

TEST(MaTextTest, EveryValueReadsBackExactly) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 100000; ++i) {
        uint64_t bits = random();
        double d = 0.0;
        std::memcpy(&d, &bits, sizeof d);
        if (std::isfinite(d)) {
            EXPECT_EQ(parsed(doubleText(d)), d) << doubleText(d);
        }
        const uint32_t fbits = static_cast<uint32_t>(bits >> 17);
        float f = 0.f;
        std::memcpy(&f, &fbits, sizeof f);
        // Files are read as doubles and rounded to float.
        if (std::isfinite(f)) {
            EXPECT_EQ(static_cast<float>(parsed(floatText(f))), f) << floatText(f);
        }
    }
}

// Angles are stored in radians and written in degrees; what is written reads back into a value
// that writes the same text, so saving twice gives the same file.
TEST(MaTextTest, AnglesWriteTheSameTextAfterReadingBack) {
    host::AttrPtr angle = host::doubleAttr("rotateX", "rx", 0.0, "doubleAngle");
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> radians(-10.0, 10.0);
    for (int i = 0; i < 20000; ++i) {
        std::string first;
        host::appendNumber(*angle, radians(random), first);
        std::string second;
        host::appendNumber(*angle, host::fromUiUnits(*angle, parsed(first)), second);
        ASSERT_EQ(second, first);
    }
    std::string ninety;
    host::appendNumber(*angle, std::acos(0.0), ninety);
    EXPECT_EQ(ninety, "90");
}

TEST(MaTextTest, QuotesWithTheEscapesTheTokenizerReads) {
    EXPECT_EQ(host::quoted("a \"b\" \\c\nd\te"), "\"a \\\"b\\\" \\\\c\\nd\\te\"");
}

TEST(MaTextTest, WrapsLongValueLists) {
    std::string out = "\tsetAttr \".x\"";
    host::ValueList list(out);
    for (int i = 0; i < 100; ++i) host::appendInt(list.next(), 1234567);
    std::size_t longest = 0, start = 0;
    for (std::size_t end = out.find('\n'); start < out.size(); end = out.find('\n', start)) {
        if (end == std::string::npos) end = out.size();
        longest = std::max(longest, end - start);
        start = end + 1;
    }
    EXPECT_LE(longest, 110u);
    EXPECT_NE(out.find("\n\t\t1234567"), std::string::npos);
}

} // namespace
