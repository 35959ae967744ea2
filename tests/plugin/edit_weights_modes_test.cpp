// kv_blendShapeEditWeights: which mode runs, what each returns and writes, and the checks made
// before any mode runs.
#include "EditWeightsSession.h"

#include "plugin/blendShapeEditWeights.h"

namespace {

using host::CommandResult;
using Ints = std::vector<int>;

class EditWeightsModes : public EditWeightsSession {
protected:
    const Map start = {{0, 0.25}, {2, 0.75}, {4, 0.375}}; // one weight each side of x = 0, one on it

    void SetUp() override {
        EditWeightsSession::SetUp();
        makePlane();
        store(start);
    }
};

// The first mode flag in a fixed order wins; each mode has its result type.
TEST_F(EditWeightsModes, ModesPrecedenceAndResults) {
    const std::string data = " -fn \"" + writeFile("data.txt", "1 0.5\n") + "\"";
    const std::string out = " -fn \"" + file("out.txt") + "\"";
    const struct {
        std::string arguments;
        CommandResult result;
        Map expected;
    } cases[] = {
        {"-gi -gw -iv -om pl", Ints{0, 2, 4}, start},
        {"-gw -sw -wi 1 -w 0.5", std::vector<double>{0.25, 0.75, 0.375}, start},
        {"-sw -wi 3 -w 0.5 -iv -om pl", 1, {{3, 0.5}}},
        {"-iv -m -om pl", true, everyVertex(0, {{0, 0.75}, {2, 0.25}, {4, 0.625}})},
        {"-m -flp -om pl", true, {{0, 0.75}, {2, 0.75}, {4, 0.375}}},
        {"-flp -t -om pl", true, {{0, 0.75}, {2, 0.25}, {4, 0.375}}},
        {"-t -f -om pl", true, {{0, 0.25}}},
        {"-f -fl 0.5 -om pl", true, {}},   // no target items: only the map is cleared
        {"-fl 0.5 -del -om pl", 1, start}, // nothing selected
        {"-del -ex" + out, 1, {}},
        {"-ex -im" + out, true, start},
        {"-im -aw -om pl" + data, true, {{1, 0.5}}},
        {"-aw -om pl" + data, true, {}},
        {"-sub -om pl" + data, true, everyVertex(0, {{1, 0.5}})},
        {"-iv", true, {}}, // without a mesh there are no vertices to write
        {"-om pl -ax y -w 3", {}, start},
    };
    for (const auto& c : cases) {
        store(start);
        EXPECT_EQ(edit(c.arguments + " bs"), c.result) << c.arguments;
        EXPECT_EQ(stored(), c.expected) << c.arguments;
    }
    EXPECT_EQ(readFile(file("out.txt")), "0 0.25\n2 0.75\n4 0.375\n");
    EXPECT_TRUE(errors().empty()) << allMessages();
}

TEST_F(EditWeightsModes, SetWeightsWarnsAboutPairsItSkips) {
    const std::string outside = " weights: 2 with a vertex index outside the mesh";
    const struct {
        std::string arguments;
        Map target, base;
        Lines warnings;
    } cases[] = {
        {"-i -1 -wi 4 -w 1 -wi 5 -w 0.5", start, {{4, 1.0}, {5, 0.5}}, {}}, // 1.0 is kept in base weights
        {"-i -1 -wi 4 -w 1", start, {}, {}},
        {"-w 0.5", start, {}, {"Skipped 1 weights: 1 without a matching index or value."}},
        {"-wi 3 -w 0.5 -wi 99 -w 0.25 -wi -2 -w 0.125 -om pl",
         {{3, 0.5}},
         {},
         {"Skipped 2" + outside + " (0 to 8)."}},
        {"-wi 99 -w 0.25 -wi -2 -w 0.5 -wi -3 -w 0.5", {{99, 0.25}}, {}, {"Skipped 2" + outside + "."}},
    };
    for (const auto& c : cases) {
        store(start);
        store({}, -1);
        clearMessages();
        EXPECT_EQ(edit("-sw " + c.arguments + " bs"), CommandResult(1)) << c.arguments;
        EXPECT_EQ(stored(0), c.target) << c.arguments;
        EXPECT_EQ(stored(-1), c.base) << c.arguments;
        EXPECT_EQ(warnings(), c.warnings) << c.arguments;
    }
    // Inverting 0 gives 1.0, which is left out unless -av keeps all values.
    store({{0, 0.0}});
    EXPECT_EQ(edit("-iv -av -om pl bs"), CommandResult(true));
    EXPECT_EQ(stored(), everyVertex(0, {{0, 1.0}}));
    store({{0, 0.0}});
    EXPECT_EQ(edit("-iv -om pl bs"), CommandResult(true));
    EXPECT_EQ(stored().count(0), 0u);
}

TEST_F(EditWeightsModes, FlushWritesTheSelectionOrTheWholeMesh) {
    const double f = static_cast<double>(0.3f); // the flush value is single precision
    const struct {
        std::string selection, value;
        Map expected;
    } cases[] = {
        {"select -cl", "0.5", start},
        {"select pl.vtx[3:5]", "0.3", {{0, 0.25}, {2, 0.75}, {3, f}, {4, f}, {5, f}}},
        {"select pl.vtx[1]", "1", {{0, 0.25}, {1, 1.0}, {2, 0.75}, {4, 0.375}}},
        {"select pl.vtx[0]", "-2", {{0, -2.0}, {2, 0.75}, {4, 0.375}}},
        {"select pl", "0.3", everyVertex(f)},
        {"select plShape", "-0.5", everyVertex(-0.5)},
        {"select pl", "1", start}, // the help says 1 clears all weights; nothing is written
        {"select pl", "-1", start},
    };
    for (const auto& c : cases) {
        store(start);
        must(c.selection);
        EXPECT_EQ(edit("-fl " + c.value + " -om pl bs"), CommandResult(1)) << c.selection << " " << c.value;
        EXPECT_EQ(stored(), c.expected) << c.selection << " " << c.value;
    }
}

// Freezing scales each item's delta at the first component of a mapped vertex by its weight.
TEST_F(EditWeightsModes, FreezeBakesTheMapIntoEveryItem) {
    must("setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 4 vtx[3] vtx[1] vtx[3] vtx[6]");
    must("setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 3 0 1 0 1 0 2 0 1 0 4 0 1");
    must("setAttr bs.it[0].itg[0].iti[5500].ict -type componentList 1 vtx[1]");
    must("setAttr bs.it[0].itg[0].iti[5500].ipt -type pointArray 1 2 0 0 1");
    must("setAttr bs.it[0].itg[1].iti[6000].ipt -type pointArray 0");
    store({{1, 0.5}, {3, 0.25}, {6, 0.5}, {7, 0.125}});
    store({{0, 0.5}}, 1);
    EXPECT_EQ(edit("-f bs"), CommandResult(true));
    EXPECT_EQ(stored(), Map());
    EXPECT_EQ(components(0), (Ints{3, 1, 3, 6})); // 6 has no delta: left alone
    EXPECT_EQ(deltas(0), (Deltas{{0, 0.25, 0}, {0, 1, 0}, {0, 4, 0}}));
    EXPECT_EQ(deltas(0, 5500), (Deltas{{1, 0, 0}}));
    // An item without data first gets vertex 0 with a zero delta.
    EXPECT_EQ(edit("-f -i 1 bs"), CommandResult(true));
    EXPECT_EQ(components(1), Ints{0});
    EXPECT_EQ(deltas(1), (Deltas{{0, 0, 0}}));
    EXPECT_EQ(edit("-f bs"), CommandResult(false)); // empty map
    store({{1, 0.5}}, -1);
    EXPECT_EQ(edit("-f -i -1 bs"), CommandResult(false));
    EXPECT_EQ(stored(-1), (Map{{1, 0.5}}));
}

// The object and option checks come first and leave the map as it was.
TEST_F(EditWeightsModes, RejectsBadObjectsAndOptions) {
    must(
        "createNode transform -n grp; createNode transform -n outer; createNode transform -n inner -p outer");
    must("polyCube -n box; createNode mesh -n hollow; select -cl");
    const std::string noMesh = "The original mesh is not defined.";
    const std::string badAxis = "The axis string is not correcty defined. Use x, y, or z.";
    const struct {
        std::string arguments, error;
        bool ok;
    } cases[] = {
        {"-m bs", noMesh, true},
        {"-t bs", noMesh, true},
        {"-aw -fn x bs", noMesh, true},
        {"-sub -fn x bs", noMesh, true},
        {"-gi -fl 0.5 bs", noMesh, true}, // checked before the mode is chosen
        {"-m -om grp bs", "grp has no shape node.", true},
        {"-m -om outer bs", "outer is not a mesh object.", true},
        {"-m -om bs bs", "bs is not a mesh object.", true},
        {"-m -om pl -ob grp bs", "grp has no shape node.", true},
        {"-gi -ax w bs", badAxis, true},
        {"-del -ax X -om pl bs", badAxis, true},
        {"-del box", "The node is not a blend shape node.", false},
        {"-del", "No blend shape node provided.", false},
    };
    for (const auto& c : cases) {
        clearMessages();
        EXPECT_EQ(edit(c.arguments, c.ok), CommandResult(0)) << c.arguments;
        EXPECT_EQ(errors(), Lines{c.error}) << c.arguments;
        EXPECT_EQ(stored(), start) << c.arguments;
    }
    EXPECT_EQ(edit("-iv -om nothing bs"), CommandResult(0)); // a missing mesh stops the command too
    EXPECT_EQ(stored(), start);

    // A mesh without vertices gives every mode nothing to do; none may fail or add elements.
    for (const char* mode :
         {"-iv", "-m", "-flp", "-t", "-fl 0.5", "-aw -fn x", "-m -ob hollow", "-ex -fp -fn x"}) {
        must("select hollow");
        edit(std::string(mode) + " -om hollow bs");
        for (const auto& element : stored()) EXPECT_TRUE(start.count(element.first)) << mode;
    }
}

TEST_F(EditWeightsModes, HelpOnlyTheFirstNodeAndNamesOfMeshes) {
    EXPECT_EQ(edit("-h -del -ax w -om grp bs"), CommandResult(std::string(blendShapeEditWeights_helpText)));
    EXPECT_EQ(stored(), start);
    for (const char* mesh : {"pl", "plShape", "|pl|plShape"}) {
        store(start);
        EXPECT_EQ(edit(std::string("-t -om ") + mesh + " bs"), CommandResult(true)) << mesh;
        EXPECT_EQ(stored(), (Map{{0, 0.25}})) << mesh;
    }
    must("createNode blendShape -n bs2; select -cl");
    store(start);
    store(start, 0, "bs2");
    store({{3, 0.5}}, -1);
    EXPECT_EQ(edit("-del bs bs2"), CommandResult(1));
    EXPECT_EQ(stored(0, "bs2"), start);
    EXPECT_EQ(edit("-gi -i -1 bs"), CommandResult(Ints{3}));
    EXPECT_TRUE(errors().empty()) << allMessages();
}

} // namespace
