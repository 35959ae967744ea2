#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "core/common/TextNumbers.h"
#include "core/json/WeightsFile.h"

namespace {

namespace fs = std::filesystem;

struct Pairs {
    std::vector<int> indices;
    std::vector<double> weights;
};

using Reader = bool (*)(const std::string&, std::vector<int>&, std::vector<double>&);

struct ReadCase {
    const char* text;
    Pairs expected;
};

class WeightsFileTest : public testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::path(testing::TempDir()) / ("weights_file_test_" + std::to_string(::getpid()));
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    std::string writeText(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }

    static std::string readText(const std::string& file) {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }

    void expectReads(Reader reader, const std::vector<ReadCase>& cases) const {
        for (const ReadCase& c : cases) {
            Pairs read;
            ASSERT_TRUE(reader(writeText("weights", c.text), read.indices, read.weights));
            EXPECT_EQ(read.indices, c.expected.indices) << c.text;
            EXPECT_EQ(read.weights, c.expected.weights) << c.text;
        }
    }

    fs::path dir_;
};

TEST(TextNumbersTest, ConvertsLikeTheHostString) {
    const std::string longZeros = "0." + std::string(200, '0') + "1";
    struct Case {
        std::string text;
        bool isLong;
        int asInt;
        bool isDouble;
        double asDouble;
    } cases[] = {
        {"42", true, 42, true, 42.0},
        {" -7 \n", true, -7, true, -7.0},
        {"+3", true, 3, true, 3.0},
        {"12abc", false, 12, false, 12.0},
        {"", false, 0, false, 0.0},
        {"abc", false, 0, false, 0.0},
        {"1e3", false, 1, true, 1000.0},
        {"0x10", false, 0, true, 16.0},
        {"99999999999", true, 0, true, 99999999999.0},
        {"9223372036854775808", false, 0, true, 9223372036854775808.0},
        {std::string("5\0x", 3), true, 5, true, 5.0},
        {std::string(200, ' ') + "7", true, 7, true, 7.0},
        {longZeros, false, 0, true, 1e-201},
        {"1e400", false, 1, true, std::numeric_limits<double>::infinity()},
        {"-inf", false, 0, true, -std::numeric_limits<double>::infinity()},
    };
    for (const Case& c : cases) {
        long long wide = -1;
        int narrow = -1;
        double value = -1.0;
        EXPECT_EQ(common::parseLong(c.text, wide), c.isLong) << c.text;
        common::parseInt(c.text, narrow);
        EXPECT_EQ(narrow, c.asInt) << c.text;
        EXPECT_EQ(common::parseDouble(c.text, value), c.isDouble) << c.text;
        EXPECT_EQ(common::textToDouble(c.text), c.asDouble) << c.text;
    }
    EXPECT_TRUE(std::isnan(common::textToDouble("nan")));
}

TEST_F(WeightsFileTest, ChoosesJsonByTheLastFourCharacters) {
    for (const char* name : {"a.json", "a_json", "json", "dir.x/w.json"})
        EXPECT_TRUE(json::fileTypeIsJSON(name));
    for (const char* name : {"a.JSON", "a.Json", "a.jsonx", "a.json ", "son", ""})
        EXPECT_FALSE(json::fileTypeIsJSON(name)) << name;
}

TEST_F(WeightsFileTest, FormatsBothLayoutsExactly) {
    const std::vector<int> indices{12, 13, -4};
    const std::vector<double> weights{0.5, 1.0, 1e-7};
    EXPECT_EQ(json::formatWeights(indices, weights, true),
              "{\n\t\"12\": 0.5,\n\t\"13\": 1,\n\t\"-4\": 1e-07\n}");
    EXPECT_EQ(json::formatWeights(indices, weights, false), "12 0.5\n13 1\n-4 1e-07");
    EXPECT_EQ(json::formatWeights({7}, {0.25}, true), "{\n\t\"7\": 0.25\n}");
    // Unequal arrays stop at the shorter one.
    EXPECT_EQ(json::formatWeights({1, 2}, {0.5}, false), "1 0.5");
    EXPECT_EQ(json::formatWeights({}, {}, true), "{\n}");
    EXPECT_EQ(json::formatWeights({}, {}, false), "");
}

TEST_F(WeightsFileTest, WeightsMatchDefaultStreamFormatting) {
    const double inf = std::numeric_limits<double>::infinity(),
                 nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> values{0.0,    -0.0,    0.5,    1.0,     -1.0,     0.1234567, 1e-7,
                               0.0001, 0.00001, 123456, 1234567, 999999.5, 9999995,   -0.0000123456789,
                               1e300,  -1e-300, 5e-324, DBL_MAX, 2.0 / 3,  inf,       -inf,
                               nan,    -nan};
    std::mt19937 random(7);
    for (int i = 0; i < 200; ++i)
        values.push_back(std::ldexp(std::uniform_real_distribution<>(-1, 1)(random), i - 100));
    for (double value : values) {
        std::ostringstream expected;
        expected << "3 " << value;
        EXPECT_EQ(json::formatWeights({3}, {value}, false), expected.str());
    }
}

TEST_F(WeightsFileTest, WritesTheTextAndANewlineReplacingTheFile) {
    const std::string file = writeText("w.json", std::string(1000, 'x'));
    ASSERT_TRUE(json::writeWeightsFile(file, {12, 13}, {0.5, 1.0}, true));
    EXPECT_EQ(readText(file), "{\n\t\"12\": 0.5,\n\t\"13\": 1\n}\n");
    EXPECT_FALSE(json::writeWeightsFile(dir_.string(), {1}, {1.0}, false));
    EXPECT_FALSE(json::writeWeightsFile(path("missing/w.txt"), {1}, {1.0}, false));
}

TEST_F(WeightsFileTest, JsonReaderIsATolerantScanner) {
    expectReads(json::readFile, {{"{\n\t\"3\": 0.25,\n\t\"7\": 1\n}\n", {{3, 7}, {0.25, 1}}},
                                 {"{\r\n\t\"3\" :  0.25 ,\r\n\t\"7\"\t:\t1\r\n}\r\n", {{3, 7}, {0.25, 1}}},
                                 {"{\"1\": 0.5, \"2\": 0.25}", {{1, 2}, {0.5, 0.25}}},
                                 {"{\"3\", \"7\": 1}", {{3, 7}, {1}}},
                                 {"{: 0.5\n\"7\": 1}", {{7}, {0.5, 1}}},
                                 {"\"1\": 1 5,", {{1}, {15}}},
                                 {"\"12.7\": abc\n\"99999999999\": 2", {{12, -1}, {0, 2}}},
                                 {"{\"a\": {\"1\": 2}}", {{0}, {0}}},
                                 {"\"5", {{5}, {}}},
                                 {"hello world {}", {{}, {}}},
                                 {"", {{}, {}}}});
}

TEST_F(WeightsFileTest, PlainReaderIsLineOriented) {
    expectReads(json::readFileSimple, {{"3 0.25\n7 1\n", {{3, 7}, {0.25, 1}}},
                                       {"3 0.25\n7 1", {{3, 7}, {0.25, 1}}},
                                       {"3 0.25\n7", {{3}, {0.25}}},
                                       {"3 0.25\n\n5 1\n", {{3, 0}, {0.25, 5}}},
                                       {" 0.5\n12\n0.75\n", {{0, 12}, {0.5, 0.75}}},
                                       {"12 0.5\r\n13\t1  \r\n", {{12, 13}, {0.5, 1}}},
                                       {"abc 0.5\n12 x\n", {{0, 12}, {0.5, 0}}},
                                       {"12\r\n", {{12}, {0}}},
                                       {"\n", {{0}, {0}}},
                                       {"", {{}, {}}}});
}

TEST_F(WeightsFileTest, UnreadablePathsLeaveTheArraysAlone) {
    for (const std::string& file : {path("missing.json"), dir_.string()}) {
        for (auto reader : {json::readFile, json::readFileSimple}) {
            std::vector<int> indices{1};
            std::vector<double> weights{0.5};
            EXPECT_FALSE(reader(file, indices, weights)) << file;
            EXPECT_EQ(indices, std::vector<int>{1});
            EXPECT_EQ(weights, std::vector<double>{0.5});
        }
    }
}

TEST_F(WeightsFileTest, RoundTripsToSixSignificantDigits) {
    std::mt19937 random(11);
    Pairs written;
    for (int i = 0; i < 2000; ++i) {
        written.indices.push_back(static_cast<int>(random()) >> (i % 31));
        const double magnitude = std::pow(10.0, std::uniform_int_distribution<>(-9, 9)(random));
        written.weights.push_back(std::uniform_real_distribution<>(-1, 1)(random) * magnitude);
    }
    for (const char* name : {"w.json", "w_json", "w.JSON", "w.txt"}) {
        const bool asJson = json::fileTypeIsJSON(name);
        ASSERT_TRUE(json::writeWeightsFile(path(name), written.indices, written.weights, asJson));
        EXPECT_EQ(readText(path(name)).front() == '{', asJson) << name;
        Pairs read;
        ASSERT_TRUE((asJson ? json::readFile : json::readFileSimple)(path(name), read.indices, read.weights));
        EXPECT_EQ(read.indices, written.indices) << name;
        ASSERT_EQ(read.weights.size(), written.weights.size()) << name;
        for (std::size_t k = 0; k < read.weights.size(); ++k)
            EXPECT_LE(std::abs(read.weights[k] - written.weights[k]), 5e-6 * std::abs(written.weights[k]))
                << k;
    }
}

} // namespace
