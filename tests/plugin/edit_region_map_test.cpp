// kv_editRegionMap on a small plane: the checks before any work, which operation wins, painting a
// region through the base weights, filling, clearing, storing and restoring.
#include "RegionMapSession.h"

#include <maya/MFnMesh.h>

namespace {

using host::CommandResult;

class EditRegionMap : public RegionMapSession {};

TEST_F(EditRegionMap, ChecksBeforeAnyWork) {
    must("createNode TALVENRegion -n loose; select -cl");
    const struct {
        std::string arguments;
        Lines errors;
        bool ok;
    } cases[] = {
        {"-e", {"No region node provided."}, false},
        {"-e loose", {"The region data node is not connected to a blend shape node."}, true},
        {"-e pl", {"The region data node is not connected to a blend shape node."}, true},
        {"-cl rg", {"The mesh is not defined."}, true},
        {"-im -fn x.txt rg", {"The mesh is not defined."}, true},
        {"-col 1 rg", {"The mesh is not defined."}, true},
        {"-ap rg", {"The mesh is not defined."}, true},
        {"-col 1 -m pl rg", {"pl is not a mesh object."}, true},
        {"-col 1 -m nothingHere rg", {"nothingHere is not a mesh object."}, true},
    };
    setRows(planeMap());
    for (const auto& c : cases) {
        clearMessages();
        EXPECT_EQ(region(c.arguments, c.ok), CommandResult(0)) << c.arguments;
        EXPECT_EQ(errors(), c.errors) << c.arguments;
        expectRows(rows(), planeMap(), c.arguments);
    }
    // With -h only the help text comes back; no mode flag does nothing and answers 0.
    const CommandResult help = region("-h -cl -i 0 rg");
    ASSERT_TRUE(std::holds_alternative<std::string>(help));
    EXPECT_NE(std::get<std::string>(help).find("Edit the current region map."), std::string::npos);
    EXPECT_EQ(region("-i 1 -m plShape rg"), CommandResult(0));
    expectRows(rows(), planeMap(), "after -h and no mode");
    EXPECT_TRUE(stored(-1).empty());
}

TEST_F(EditRegionMap, OneOperationByPrecedence) {
    setRows(planeMap());
    const std::string exported = file("map.txt");
    // Import wins over export: the missing file is read, nothing is written.
    EXPECT_EQ(region("-ex -im -fn \"" + exported + "\" -m plShape rg"), CommandResult(0));
    EXPECT_EQ(errors(), Lines{"Unable to open file for reading"});
    EXPECT_FALSE(std::filesystem::exists(exported));
    // Export wins over everything below it.
    EXPECT_EQ(region("-ex -atm -ap -e -cl -res 0 -col 0 -fn \"" + exported + "\" -m plShape rg"),
              CommandResult(1));
    EXPECT_TRUE(std::filesystem::exists(exported));
    EXPECT_TRUE(stored(-1).empty());
    // Edit wins over clear, restore and colour.
    EXPECT_EQ(region("-e -cl -i 1 -res 1 -col 0 -m plShape rg"), CommandResult(1));
    EXPECT_EQ(stored(-1),
              (Map{{0, 0}, {1, 0}, {2, 0}, {3, 0.5}, {4, 0.5}, {5, 0.5}, {6, 0}, {7, 0}, {8, 0}}));
    expectRows(rows(), planeMap(), "edit leaves the map");
    EXPECT_TRUE(infos().empty());
}

TEST_F(EditRegionMap, PaintingARegionThroughTheBaseWeights) {
    Rows start = planeMap();
    start[4] = {0.6, 0.3, 0.1, 0, 0, 0};
    const struct {
        std::string flags;
        std::array<int, 6> locks;
        Map painted; // base weights after -e, changed here
        Row vertex4;
        Row vertex0;
    } cases[] = {
        {"", {}, {{4, 0.2}}, {0.2, 0.5, 0.3, 0, 0, 0}, {1, 0, 0, 0, 0, 0}},
        {"-dw 0", {}, {{4, 0.2}, {0, 0.5}}, {0.2, 0.3, 0.1, 0, 0, 0}, {0.5, 0, 0, 0, 0, 0}},
        // Region 1 is locked but still takes its share of what region 0 gave up.
        {"", {0, 1, 0, 0, 0, 0}, {{4, 0.2}}, {0.2, 0.5, 0.3, 0, 0, 0}, {1, 0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        const std::string label =
            c.flags + " locks " + std::to_string(c.locks[0]) + std::to_string(c.locks[1]);
        setRows(start);
        setLocks(c.locks);
        store({}, -1);
        EXPECT_EQ(region("-e -i 0 rg"), CommandResult(1)) << label;
        Map base = stored(-1);
        EXPECT_EQ(base.size(), 9u) << label;
        EXPECT_EQ(base[4], 0.6f) << label;
        for (const auto& [v, w] : c.painted) base[v] = w;
        store(base, -1);
        EXPECT_EQ(region("-atm -i 0 " + c.flags + " rg"), CommandResult(1)) << label;
        Rows expected = start;
        expected[4] = c.vertex4;
        expected[0] = c.vertex0;
        expectRows(rows(), expected, label);
    }
}

TEST_F(EditRegionMap, IndexOutsideTheRegions) {
    setRows(planeMap());
    store({{2, 0.25}}, -1);
    const struct {
        std::string arguments;
        int result;
    } cases[] = {
        {"-e -i 6 rg", 1}, // no region to load: nothing happens
        {"-atm -i 6 rg", 0},
        {"-atm -i -1 rg", 0},
        {"-ap -i 6 -m plShape rg", 0},
        {"-cl -i 6 -m plShape rg", 0},
        {"-cl -i -1 -m plShape rg", 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(region(c.arguments), CommandResult(c.result)) << c.arguments;
        expectRows(rows(), planeMap(), c.arguments);
        EXPECT_EQ(stored(-1), (Map{{2, 0.25}})) << c.arguments;
    }
}

TEST_F(EditRegionMap, AppendFillsSelectedVertices) {
    // The plane's vertex 7 has the edge neighbours 4, 6 and 8; vertex 6 has 3 and 7.
    const struct {
        std::string arguments;
        std::string selection;
        std::array<int, 6> locks;
        std::map<int, Row> changed;
    } cases[] = {
        {"-i 3", "pl.vtx[6:7]", {}, {{6, {0, 0, 0, 1, 0, 0}}, {7, {0, 0, 0, 1, 0, 0}}}},
        {"-i 3", "pl.vtx[6]", {0, 0, 0, 1, 0, 0}, {}},
        {"-i 3", "pl", {}, {}},
        // Vertex 6 first: its neighbour 3 is half region 1 and half region 2, vertex 7 is empty. Then
        // vertex 7 sees 4 (the same mix), 6 (filled just now) and the empty 8.
        {"-i -1", "pl.vtx[6:7]", {}, {{6, {0, 0.5, 0.5, 0, 0, 0}}, {7, {0, 0.5, 0.5, 0, 0, 0}}}},
    };
    for (const auto& c : cases) {
        const std::string label = c.arguments + " on " + c.selection;
        setRows(planeMap());
        setLocks(c.locks);
        must(c.selection.empty() ? "select -cl" : "select -r " + c.selection);
        EXPECT_EQ(region("-ap " + c.arguments + " -m plShape rg"), CommandResult(1)) << label;
        Rows expected = planeMap();
        for (const auto& [v, row] : c.changed) expected[v] = row;
        expectRows(rows(), expected, label);
    }
}

TEST_F(EditRegionMap, ClearZeroesOneRegionAtTheMeshSize) {
    Rows map = planeMap();
    map.resize(4); // a map shorter than the mesh
    setRows(map);
    EXPECT_EQ(region("-cl -i 1 -m plShape rg"), CommandResult(1));
    EXPECT_EQ(array("regionWeights", 1), std::vector<double>(9, 0.0));
    EXPECT_EQ(array("regionWeights", 2), (std::vector<double>{0, 0, 0, 0.5}));
}

TEST_F(EditRegionMap, StoreEditRestore) {
    setRows(planeMap());
    must("setAttr rg.regions -type \"string\" \"ui\"");
    EXPECT_EQ(region("-res 0 rg"), CommandResult(1));
    Rows edited = planeMap();
    edited[0] = {0, 0, 0, 0, 0, 1};
    setRows(edited);
    EXPECT_EQ(region("-res 1 rg"), CommandResult(1));
    expectRows(rows(), planeMap(), "restored");
    for (int k = 0; k < 6; ++k) EXPECT_TRUE(array("regionWeightsBuffer", k).empty()) << k;
    EXPECT_EQ(region("-res 1 rg"), CommandResult(1)); // nothing stored: the map is emptied
    EXPECT_TRUE(rows().empty());
}

TEST_F(EditRegionMap, ColoursNeedAColourSet) {
    setRows(planeMap());
    EXPECT_EQ(region("-col 0 -m plShape rg"), CommandResult(1));
    EXPECT_TRUE(infos().empty());
    MSelectionList list;
    list.add("plShape");
    MDagPath path;
    list.getDagPath(0, path);
    EXPECT_EQ(MFnMesh(path).numColorSets(), 0);
}

} // namespace
