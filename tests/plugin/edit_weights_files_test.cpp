// kv_blendShapeEditWeights with weight files: export, import, add and subtract, freeze paint in
// vertex colours or in a freeze attribute, and files that are broken in every way we know of.
#include "EditWeightsSession.h"

#include <maya/MColorArray.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>

#include <random>

namespace {

using host::CommandResult;

class EditWeightsFiles : public EditWeightsSession {
protected:
    void SetUp() override {
        EditWeightsSession::SetUp();
        makePlane();
    }
    static CommandResult withFile(const std::string& mode, const std::string& path,
                                  const std::string& rest = "") {
        return edit(mode + " -fn \"" + path + "\" " + rest + " bs");
    }
};

TEST_F(EditWeightsFiles, ExportLayoutAndRoundTrip) {
    store({{0, 0.25}, {3, 0.1234567}, {5, 1e-7}, {8, 1.0}});
    const std::string json = "{\n\t\"0\": 0.25,\n\t\"3\": 0.123457,\n\t\"5\": 1e-07,\n\t\"8\": 1\n}\n";
    const std::string plain = "0 0.25\n3 0.123457\n5 1e-07\n8 1\n";
    for (const auto& [name, text] : {std::pair<const char*, const std::string&>{"w.json", json},
                                     {"w_json", json},
                                     {"w.txt", plain},
                                     {"w.JSON", plain}}) {
        EXPECT_EQ(withFile("-ex -wi 1 -w 0.75", file(name)), CommandResult(true))
            << name; // -wi/-w are ignored
        EXPECT_EQ(readFile(file(name)), text) << name;
        // Read back into another target: indices exactly, weights to six significant digits.
        EXPECT_EQ(withFile("-im", file(name), "-i 1 -om pl"), CommandResult(true)) << name;
        const Map read = stored(1);
        EXPECT_EQ(read.size(), 3u) << name; // 1.0 is left out
        EXPECT_NEAR(read.at(3), 0.1234567, 5e-7) << name;
        EXPECT_NEAR(read.at(5), 1e-7, 1e-12) << name;
    }
}

TEST_F(EditWeightsFiles, FilesThatCannotBeWrittenOrRead) {
    const std::string missing = file("no/such/folder/w.txt");
    const std::string reading = "Unable to open file for reading";
    const struct {
        std::string mode, path;
        Lines errors;
    } cases[] = {
        {"-ex", file(""), {"Unable to open file for writing"}},
        {"-ex", missing, {"Unable to open file for writing"}},
        {"-im", file(""), {reading, reading}}, // the import reads the file twice
        {"-im", missing, {reading, reading}},
        {"-aw", file(""), {reading}},
        {"-sub", missing + ".json", {reading}},
    };
    for (const auto& c : cases) {
        store({{1, 0.5}});
        clearMessages();
        EXPECT_EQ(withFile(c.mode, c.path, "-om pl"), CommandResult(false)) << c.mode << " " << c.path;
        EXPECT_EQ(errors(), c.errors) << c.mode << " " << c.path;
        EXPECT_EQ(stored(), (Map{{1, 0.5}})) << c.mode << " " << c.path;
    }
    store({});
    clearMessages();
    EXPECT_EQ(withFile("-ex -wi 1 -w 0.5", file("empty.txt")), CommandResult(false));
    EXPECT_EQ(errors(), Lines{"No weights to export"});
    EXPECT_FALSE(std::filesystem::exists(file("empty.txt")));
}

// Whatever a file holds, the import writes only pairs that fit the mesh and says what it skipped,
// once per read (it reads twice).
TEST_F(EditWeightsFiles, ImportToleratesBrokenFiles) {
    const Map start = {{1, 0.5}};
    const std::string range = " with a vertex index outside the mesh (0 to 8)";
    const struct {
        const char* name;
        std::string text;
        Map expected;
        std::string warning;
    } cases[] = {
        {"garbage.txt", "hello world\n", {{0, 0.0}}, ""}, // text reads as 0
        {"garbage.json", "{ nonsense }", start, ""},
        {"empty.txt", "", start, ""},
        {"crlf.json", "{\r\n\t\"3\" : 0.25 ,\r\n\t\"7\": 1\r\n}\r\n", {{3, 0.25}}, ""},
        {"lastline.txt", "7 0.5\n8", {{7, 0.5}}, ""},
        {"keyonly.json",
         "{\n\t\"3\": 0.5,\n\t\"4\"\n}\n",
         {{3, 0.5}},
         "Skipped 1 weights: 1 without a matching index or value."},
        {"outside.txt", "-2 0.5\n9 0.5\n8 0.25\n", {{8, 0.25}}, "Skipped 2 weights: 2" + range + "."},
        // Beyond the integer range: outside the mesh, not vertex 0.
        {"big.txt", "3000000000 0.25\n-3000000000 0.5\n", start, "Skipped 2 weights: 2" + range + "."},
        {"big.json", "{\"3000000000\": 0.25}", start, "Skipped 1 weights: 1" + range + "."},
        {"notfinite.txt",
         "1 nan\n2 inf\n3 -inf\n4 1e999\n5 0.5\n",
         {{5, 0.5}},
         "Skipped 4 weights: 4 whose weight is not a finite number."},
        {"mixed.json",
         "{\"-1\": 0.5, \"2\": nan, \"3\": 0.25, \"4\"}",
         {{3, 0.25}},
         "Skipped 3 weights: 1 without a matching index or value, 1" + range +
             ", 1 whose weight is not a finite number."},
    };
    for (const auto& c : cases) {
        store(start);
        clearMessages();
        EXPECT_EQ(withFile("-im", writeFile(c.name, c.text), "-om pl"), CommandResult(true)) << c.name;
        EXPECT_EQ(stored(), c.expected) << c.name;
        EXPECT_EQ(warnings(), c.warning.empty() ? Lines{} : (Lines{c.warning, c.warning})) << c.name;
        EXPECT_TRUE(errors().empty()) << c.name << allMessages();
    }
    // Without a mesh the vertex count is unknown: only negative indices are dropped.
    EXPECT_EQ(withFile("-im", writeFile("w.txt", "100 0.5\n-3 0.5\n2147483647 0.25\n")), CommandResult(true));
    EXPECT_EQ(stored(), (Map{{100, 0.5}, {2147483647, 0.25}}));
}

// Random bytes in either layout: the maps only ever receive finite weights on real vertices.
TEST_F(EditWeightsFiles, ImportAddAndSubtractSurviveRandomBytes) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    const std::string alphabet = "0123456789-.:\"{},eEnaif \t\r\n";
    for (int round = 0; round < 40; ++round) {
        std::string text;
        for (int i = 0; i < 300; ++i)
            text += round % 2 ? static_cast<char>(byte(random)) : alphabet[byte(random) % alphabet.size()];
        const std::string path = writeFile(round % 4 < 2 ? "random.json" : "random.txt", text);
        for (const char* mode : {"-im", "-aw", "-sub"}) {
            EXPECT_EQ(withFile(mode, path, "-om pl"), CommandResult(true)) << mode;
            for (const auto& [v, w] : stored()) EXPECT_TRUE(v >= 0 && v < 9 && std::isfinite(w)) << mode << v;
        }
    }
}

TEST_F(EditWeightsFiles, AddAndSubtractOverTheWholeMesh) {
    const std::string one = writeFile("one.json", "{\n\t\"1\": 0.5\n}\n");
    const std::string two = writeFile("two.txt", "0 0.5\n2 0.25\n12 0.5\n");
    const struct {
        std::string mode;
        const std::string& path;
        int index;
        Map current, expected;
    } cases[] = {
        {"-aw", one, 0, {{1, 0.75}}, {}}, // 1.0 everywhere: stored empty
        {"-sub", one, 0, {{1, 0.75}}, everyVertex(0, {{1, 0.25}})},
        {"-aw", two, 0, {{0, 0.25}}, {{0, 0.75}}},
        {"-sub", two, 0, {{0, 0.25}, {3, 0.5}}, everyVertex(0, {{2, 0.75}})},
        {"-sub", one, -1, {}, everyVertex(0, {{1, 0.5}})},
    };
    for (const auto& c : cases) {
        store(c.current, c.index);
        clearMessages();
        EXPECT_EQ(withFile(c.mode, c.path, "-om pl -i " + std::to_string(c.index)), CommandResult(true))
            << c.mode;
        EXPECT_EQ(stored(c.index), c.expected) << c.mode << " " << c.path << " " << c.index;
        EXPECT_EQ(warnings().size(), c.path == two ? 1u : 0u) << c.mode; // index 12: read once, warned once
    }
}

// Freeze paint without the sculpt option lives in the mesh's vertex colours: weight w becomes the
// colour (0.4 f, 0.7 f, f) with f = 1 - w, and blue above 0 exports as 1 - blue. Undo of an import
// puts the colours back.
TEST_F(EditWeightsFiles, FreezePaintThroughVertexColours) {
    const auto colors = [] {
        MSelectionList list;
        list.add("plShape");
        MDagPath mesh;
        list.getDagPath(0, mesh);
        MColorArray result;
        MFnMesh(mesh).getVertexColors(result);
        return result.vec();
    };
    EXPECT_EQ(withFile("-ex -fp", file("none.txt"), "-om pl"), CommandResult(false)); // no colour set yet
    EXPECT_FALSE(std::filesystem::exists(file("none.txt")));
    store({{1, 0.5}});
    must("kv_blendShapeEditWeights -im -fp -fn \"" + writeFile("paint.txt", "2 0.25\n5 1\n12 0.5\n") +
         "\" -om pl bs");
    EXPECT_EQ(stored(), (Map{{1, 0.5}}));
    const std::vector<MColor> painted = colors();
    ASSERT_EQ(painted.size(), 9u);
    EXPECT_EQ(painted[2], MColor(0.4f * 0.75f, 0.7f * 0.75f, 0.75f, 1.0f));
    EXPECT_EQ(painted[5], MColor(0.0f, 0.0f, 0.0f, 1.0f));
    EXPECT_EQ(withFile("-ex -fp", file("out.txt"), "-om pl"), CommandResult(true));
    EXPECT_EQ(readFile(file("out.txt")), "2 0.25\n");

    EXPECT_EQ(withFile("-im -fp", writeFile("more.txt", "2 0.5\n6 0.5\n"), "-om pl"), CommandResult(true));
    EXPECT_NE(colors(), painted);
    exec("undo");
    EXPECT_EQ(colors(), painted);
}

// With the sculpt option it lives in a multi attribute "freeze" on the blend shape node, which the
// node does not have by default: weight w is stored as 1 - w; values that round above 0 export.
TEST_F(EditWeightsFiles, FreezePaintThroughTheFreezeAttribute) {
    must("optionVar -iv \"TALVENUseMayaSculptTool\" 1");
    const std::string paint = writeFile("paint.json", "{\n\t\"2\": 0.25,\n\t\"5\": 1\n}\n");
    EXPECT_EQ(withFile("-im -fp", paint, "-om pl"), CommandResult(false));
    EXPECT_EQ(errors(), Lines{"bs has no freeze attribute."});

    must("addAttr -ln freeze -at double -m bs; setAttr bs.freeze[7] 0.5");
    EXPECT_EQ(withFile("-im -fp", paint, "-om pl"), CommandResult(true));
    exec("undo"); // leaves the attribute as imported
    MPlug freeze = MFnDependencyNode(node("bs")).findPlug("freeze", false);
    MIntArray indices;
    freeze.getExistingArrayAttributeIndices(indices);
    EXPECT_EQ(indices.vec(), (std::vector<int>{2, 5})); // element 7 was cleared
    EXPECT_EQ(freeze.elementByLogicalIndex(2).asDouble(), 0.75);
    EXPECT_EQ(freeze.elementByLogicalIndex(5).asDouble(), 0.0);
    EXPECT_EQ(stored(), Map());

    must("setAttr bs.freeze[6] 0.000004"); // rounds to 0: not exported
    EXPECT_EQ(withFile("-ex -fp", file("out.txt"), "-om pl"), CommandResult(true));
    EXPECT_EQ(readFile(file("out.txt")), "2 0.25\n");
}

} // namespace
