// Delta files: the writer's exact bytes, and what the scanner picks up from good and damaged text.
#include <gtest/gtest.h>

#include "core/json/DeltaFileScanner.h"
#include "core/json/DeltaFileWriter.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Item {
    int target;
    int item;
    std::string name;
    std::vector<int> components;
    std::vector<double> xyz;
    bool operator==(const Item& o) const {
        return target == o.target && item == o.item && name == o.name && components == o.components &&
               xyz == o.xyz;
    }
};

std::ostream& operator<<(std::ostream& out, const Item& item) {
    out << "{" << item.target << ", " << item.item << ", '" << item.name << "', [";
    for (int c : item.components) out << c << " ";
    out << "], [";
    for (double v : item.xyz) out << v << " ";
    return out << "]}";
}

// Records items and a plain listing ("index,name,weight:weight") of each block.
class Recorder : public json::DeltaScanHandler {
public:
    std::vector<Item> items;
    std::vector<std::string> list;
    std::vector<double> invalid;

    void targetKey(int index) override { entry = std::to_string(index) + ","; }
    void channelName(const std::string& name) override { entry += name + ","; }
    void itemKey(double weight, bool afterItem) override {
        std::ostringstream text;
        text << weight;
        entry += (afterItem ? ":" : "") + text.str();
    }
    void item(int target, int item, const std::string& name, const std::vector<int>& components,
              const std::vector<double>& xyz) override {
        items.push_back({target, item, name, components, xyz});
    }
    void invalidItem(int, double weight) override { invalid.push_back(weight); }
    void blockClosed() override {
        if (!entry.empty()) list.push_back(entry);
        entry.clear();
    }

private:
    std::string entry;
};

const char* const exampleFile = "{\n"
                                "\"2\": {\n"
                                "\t\"name\": \"smile\",\n"
                                "\t\"data\": {\n"
                                "\t\t\"0.5\": {\n"
                                "\t\t\t\"14\": [0, 0.25, 0]\n"
                                "\t\t},\n"
                                "\t\t\"1\": {\n"
                                "\t\t\t\"14\": [0, 0.5, 0]\n"
                                "\t\t}\n"
                                "\t}\n"
                                "}\n"
                                "}\n"
                                "\n";

class DeltaFileTest : public testing::Test {
protected:
    void SetUp() override {
        dir = fs::path(testing::TempDir()) / ("delta_file_test_" + std::to_string(::getpid()));
        fs::create_directories(dir);
        path = (dir / "deltas.json").string();
    }
    void TearDown() override { fs::remove_all(dir); }

    std::string readBack() const {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

    fs::path dir;
    std::string path;
};

TEST_F(DeltaFileTest, WriterProducesTheExampleLayout) {
    json::DeltaFileWriter writer;
    ASSERT_TRUE(writer.open(path));
    writer.beginTarget(2, "smile");
    const int component = 14;
    const double half[] = {0, 0.25, 0}, full[] = {0, 0.5, 0};
    writer.writeItem(5500, &component, half, 1, false);
    writer.writeItem(6000, &component, full, 1, true);
    writer.endTarget(true);
    ASSERT_TRUE(writer.close());
    EXPECT_EQ(readBack(), exampleFile);
}

TEST_F(DeltaFileTest, WriterFormatsKeysAndNumbersAsAStream) {
    json::DeltaFileWriter writer;
    ASSERT_TRUE(writer.open(path));
    writer.beginTarget(7, "a\"b c");
    const int components[] = {9, 3, 100000};
    const double xyz[] = {0.0125, -1.5e-05, 0, 1234567, -0.1234567, 1e-300, -0.0, 2.5, 0.0001};
    writer.writeItem(4500, components, xyz, 3, false);
    writer.writeItem(5570, components, xyz, 1, false); // the last item skipped by the caller keeps ","
    writer.endTarget(false);
    writer.beginTarget(-3, "");
    writer.writeItem(4000, components, xyz, 0, true);
    writer.endTarget(true);
    ASSERT_TRUE(writer.close());
    EXPECT_EQ(readBack(), "{\n"
                          "\"7\": {\n"
                          "\t\"name\": \"a\"b c\",\n"
                          "\t\"data\": {\n"
                          "\t\t\"-0.5\": {\n"
                          "\t\t\t\"9\": [0.0125, -1.5e-05, 0],\n"
                          "\t\t\t\"3\": [1.23457e+06, -0.123457, 1e-300],\n"
                          "\t\t\t\"100000\": [-0, 2.5, 0.0001]\n"
                          "\t\t},\n"
                          "\t\t\"0.57\": {\n"
                          "\t\t\t\"9\": [0.0125, -1.5e-05, 0]\n"
                          "\t\t},\n"
                          "\t}\n"
                          "},\n"
                          "\"-3\": {\n"
                          "\t\"name\": \"\",\n"
                          "\t\"data\": {\n"
                          "\t\t\"-1\": {\n"
                          "\t\t}\n"
                          "\t}\n"
                          "}\n"
                          "}\n\n");
}

// A skipped index lowers the unsigned level, which wraps at the top: the brace stands unindented
// and the blocks after it are written one tab shallower below the key line.
TEST_F(DeltaFileTest, WriterSkippedIndexUnbalancesTheBraces) {
    json::DeltaFileWriter writer;
    ASSERT_TRUE(writer.open(path));
    writer.skipTarget(false);
    writer.beginTarget(1, "n");
    const int component = 0;
    const double xyz[] = {1, 2, 3};
    writer.writeItem(6000, &component, xyz, 1, true);
    writer.endTarget(false);
    writer.skipTarget(true);
    ASSERT_TRUE(writer.close());
    EXPECT_EQ(readBack(), "{\n},\n\"1\": {\n\"name\": \"n\",\n\"data\": {\n\t\"1\": {\n\t\t\"0\": [1, 2, 3]\n"
                          "\t}\n}\n},\n}\n}\n\n");
}

TEST_F(DeltaFileTest, WriterCannotOpenADirectory) {
    json::DeltaFileWriter writer;
    EXPECT_FALSE(writer.open(dir.string()));
    EXPECT_FALSE(writer.close());
}

TEST_F(DeltaFileTest, ScannerReadsAFileInBlocks) {
    // Enough components to cross the reader's block boundary in the middle of numbers.
    json::DeltaFileWriter writer;
    ASSERT_TRUE(writer.open(path));
    writer.beginTarget(4, "big");
    const int count = 60000;
    std::vector<int> components(count);
    std::vector<double> xyz(3 * count);
    for (int v = 0; v < count; ++v) {
        components[v] = count - v;
        xyz[3 * v] = v * 0.001;
        xyz[3 * v + 1] = -v;
        xyz[3 * v + 2] = 0.5;
    }
    writer.writeItem(6000, components.data(), xyz.data(), count, true);
    writer.endTarget(true);
    ASSERT_TRUE(writer.close());

    Recorder recorder;
    ASSERT_TRUE(json::scanDeltaFile(path, {}, recorder));
    ASSERT_EQ(recorder.items.size(), 1u);
    EXPECT_EQ(recorder.items[0].components, components);
    ASSERT_EQ(recorder.items[0].xyz.size(), xyz.size());
    for (std::size_t k = 0; k < xyz.size(); ++k)
        ASSERT_NEAR(recorder.items[0].xyz[k], xyz[k], 1e-6 * (1 + std::abs(xyz[k])));
    EXPECT_FALSE(json::scanDeltaFile((dir / "missing.json").string(), {}, recorder));
    EXPECT_FALSE(json::scanDeltaFile(dir.string(), {}, recorder));
}

struct ScanCase {
    const char* label;
    std::string text;
    json::DeltaScanOptions options;
    std::vector<Item> items;
    std::vector<std::string> list;
};

// A block of the writer's layout, with one item per weight holding one component.
std::string block(const std::string& key, const std::string& name, const std::vector<std::string>& weights,
                  const std::string& component = "1", const std::string& delta = "[1, 2, 3]") {
    std::string text = "\"" + key + "\": {\n\t\"name\": " + name + ",\n\t\"data\": {\n";
    for (std::size_t k = 0; k < weights.size(); ++k)
        text += "\t\t\"" + weights[k] + "\": {\n\t\t\t\"" + component + "\": " + delta + "\n\t\t}" +
                (k + 1 < weights.size() ? ",\n" : "\n");
    return text + "\t}\n}";
}

std::vector<ScanCase> scanCases() {
    const std::vector<double> d = {1, 2, 3};
    json::DeltaScanOptions remap;
    remap.remap = true;
    remap.sourceIndices = {2, 5};
    remap.destinationIndices = {10, 11};
    json::DeltaScanOptions filter;
    filter.vertexFilter = {14, 3};
    json::DeltaScanOptions shortRemap = remap;
    shortRemap.destinationIndices = {10};
    return {
        {"example",
         exampleFile,
         {},
         {{2, 5500, "smile", {14}, {0, 0.25, 0}}, {2, 6000, "smile", {14}, {0, 0.5, 0}}},
         {"2,smile,0.5:1"}},
        {"remap is positional",
         "{\n" + block("2", "\"a\"", {"1"}) + ",\n" + block("3", "\"b\"", {"1"}) + ",\n" +
             block("5", "\"c\"", {"1"}) + "\n}\n",
         remap,
         {{10, 6000, "a", {1}, d}, {11, 6000, "c", {1}, d}},
         {"10,a,1", "3,b,1", "11,c,1"}},
        {"remap with fewer destinations",
         "{\n" + block("2", "\"a\"", {"1"}) + ",\n" + block("5", "\"c\"", {"1"}) + "}",
         shortRemap,
         {{10, 6000, "a", {1}, d}},
         {"10,a,1", "5,c,1"}},
        {"weights truncate",
         "{" + block("0", "\"w\"", {"0.57", "0.2889999", "-0.5", "-5.0009", "x"}) + "}",
         {},
         {{0, 5570, "w", {1}, d},
          {0, 5288, "w", {1}, d},
          {0, 4500, "w", {1}, d},
          {0, 0, "w", {1}, d},
          {0, 5000, "w", {1}, d}},
         {"0,w,0.57:0.289:-0.5:-5.0009:0"}},
        {"name blanks dropped",
         "{" + block("1", " \"my shape\" ,", {"1"}) + "}",
         {},
         {{1, 6000, "myshape", {1}, d}},
         {"1,myshape,1"}},
        {"filter drops components with their deltas",
         "{\"0\":{\"name\":\"f\",\n\"data\":{\"1\":{\"3\":[1,1,1],\"4\":[2,2,2],\"14\":[3,3,3],\"15\":[4,4,4]"
         "}}}}",
         filter,
         {{0, 6000, "f", {3, 14}, {1, 1, 1, 3, 3, 3}}},
         {"0,f,1"}},
        {"truncated inside an item",
         std::string(exampleFile).substr(0, 95),
         {},
         {{2, 5500, "smile", {14}, {0, 0.25, 0}}},
         {}},
        {"unbalanced closing braces",
         "}}}{\"1\":{\"name\":\"u\",\n\"data\":{\"1\":{\"2\":[1,2,3]}}}}}}",
         {},
         {},
         {}},
        {"keys without values",
         "{\"1\":{\"name\":\n\"data\":{\"1\":{\"2\":}}}}",
         {},
         {{1, 6000, "", {2}, {}}},
         {"1,,1"}},
        {"short and long brackets",
         "{\"1\":{\"name\":\"s\",\n\"data\":{\"1\":{\"2\":[5],\"3\":[1,2,3,4],\"4\":[]}}}}",
         {},
         {{1, 6000, "s", {2, 3, 4}, {5, 0, 0, 1, 2, 3, 0, 0, 0}}},
         {"1,s,1"}},
        {"the name takes the rest of its line",
         "{\"1\":{\"name\":\"n\",\"data\":{\"1\":{\"2\":[1,2,3]}}}}",
         {},
         {},
         {}},
        {"non-numeric keys count as 0",
         "{\"a\":{\"name\":\"k\",\n\"data\":{\"1\":{\"b\":[1,2,3]}}}}",
         {},
         {{0, 6000, "k", {0}, d}},
         {"0,k,1"}},
    };
}

TEST(DeltaFileScanner, PicksUpWhatTheRulesAllow) {
    for (const ScanCase& c : scanCases()) {
        Recorder recorder;
        json::scanDeltaText(c.text, c.options, recorder);
        EXPECT_EQ(recorder.items, c.items) << c.label;
        EXPECT_EQ(recorder.list, c.list) << c.label;
    }
}

TEST(DeltaFileScanner, WeightsWithoutAnItemIndexAreReported) {
    Recorder recorder;
    json::scanDeltaText("{" + block("0", "\"w\"", {"nan", "1e300", "-6"}) + "}", {}, recorder);
    EXPECT_TRUE(recorder.items.empty());
    EXPECT_EQ(recorder.invalid.size(), 3u);
}

// Writes the scanner cases as the fuzzer's seed corpus when TALVEN_DELTA_CORPUS names a folder.
TEST(DeltaFileScanner, SeedCorpus) {
    const char* folder = std::getenv("TALVEN_DELTA_CORPUS");
    if (!folder) GTEST_SKIP() << "TALVEN_DELTA_CORPUS not set";
    fs::create_directories(folder);
    int n = 0;
    for (const ScanCase& c : scanCases()) {
        std::ofstream out(fs::path(folder) / ("seed_" + std::to_string(n++) + ".json"), std::ios::binary);
        out << c.text;
    }
}

} // namespace
