// kv_blendShapeExportData and kv_blendShapeImportData: the exported bytes with skipped items and
// indices, every message, listing, remapping, the vertex filter, aliases and damaged files.
#include "EditWeightsSession.h"

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>

namespace {

using host::CommandResult;
using List = std::vector<std::string>;

class DeltaFiles : public EditWeightsSession {
protected:
    // "bs" on a cube "box": target 0 holds vertices 0, 1, 2, 7 in its full item; target 1 holds
    // vertex 3 at 0.5 and 1 and an item at 1.5 without data; target 5 has no items.
    void SetUp() override {
        EditWeightsSession::SetUp();
        makeBlendShape();
        must("setAttr bs.it[0].itg[1].iti[5500].ict -type componentList 1 vtx[3]");
        must("setAttr bs.it[0].itg[1].iti[5500].ipt -type pointArray 1 0 0.25 0 1");
        must("setAttr bs.it[0].itg[1].iti[6000].ict -type componentList 1 vtx[3]");
        must("setAttr bs.it[0].itg[1].iti[6000].ipt -type pointArray 1 0 0.5 0 1");
        must("setAttr bs.it[0].itg[1].iti[6500].ict -type componentList 0");
        must("createNode blendShape -n bs2; select -cl");
        path = file("deltas.json");
    }
    CommandResult exportData(const std::string& arguments, bool expectOk = true) {
        return exec("kv_blendShapeExportData " + arguments, expectOk);
    }
    CommandResult importData(const std::string& arguments, bool expectOk = true) {
        return exec("kv_blendShapeImportData " + arguments, expectOk);
    }
    static std::vector<int> componentsOf(const char* blendShape, unsigned int target, unsigned int item) {
        return common::getTargetComponents(node(blendShape), target, item).vec();
    }
    static Deltas deltasOf(const char* blendShape, unsigned int target, unsigned int item) {
        const MPointArray points = common::getTargetPoints(node(blendShape), target, item);
        Deltas result;
        for (unsigned int k = 0; k < points.length(); ++k)
            result.push_back({points[k].x, points[k].y, points[k].z});
        return result;
    }
    static bool hasAlias(const char* blendShape, const char* alias) {
        MObject attribute;
        return MFnDependencyNode(node(blendShape)).findAlias(alias, attribute);
    }
    std::string path;
};

TEST_F(DeltaFiles, ExportWritesTheLayoutWithSkippedItemsAndIndices) {
    EXPECT_EQ(exportData("-d -fn \"" + path + "\" -cn a -cn b -cn c -i 0 -i 5 -i 1 bs"), CommandResult(true));
    EXPECT_EQ(readFile(path), "{\n"
                              "\"0\": {\n"
                              "\t\"name\": \"a\",\n"
                              "\t\"data\": {\n"
                              "\t\t\"1\": {\n"
                              "\t\t\t\"0\": [0, 1, 0],\n"
                              "\t\t\t\"1\": [0, 2, 0],\n"
                              "\t\t\t\"2\": [0, 3, 0],\n"
                              "\t\t\t\"7\": [0, 4, 0]\n"
                              "\t\t}\n"
                              "\t}\n"
                              "},\n"
                              "},\n"
                              "\"1\": {\n"
                              "\"name\": \"c\",\n"
                              "\"data\": {\n"
                              "\t\"0.5\": {\n"
                              "\t\t\"3\": [0, 0.25, 0]\n"
                              "\t},\n"
                              "\t\"1\": {\n"
                              "\t\t\"3\": [0, 0.5, 0]\n"
                              "\t},\n"
                              "}\n"
                              "}\n"
                              "}\n"
                              "\n");
    EXPECT_EQ(warnings(), Lines({"Skipped index 5 because of missing data.",
                                 "Skipped position 6500 of index 1 because of missing target data."}));
    EXPECT_TRUE(errors().empty());
}

TEST_F(DeltaFiles, MessagesAndResults) {
    const std::string fn = " -fn \"" + path + "\"";
    const std::string unwritable = " -fn \"" + file("no/folder/d.json") + "\"";
    const struct {
        std::string command;
        bool ok;
        CommandResult result;
        std::string error;
    } cases[] = {
        {"kv_blendShapeExportData" + fn + " -cn a -i 0 bs", true, 0, "No operation mode defined."},
        {"kv_blendShapeExportData -d -cn a -i 0 bs", true, 0, "Missing export file path."},
        {"kv_blendShapeExportData -d" + fn + " -i 0 bs", true, 0, "Missing channel names."},
        {"kv_blendShapeExportData -d" + fn + " -cn a bs", true, 0, "Missing index list."},
        {"kv_blendShapeExportData -d" + unwritable + " -cn a -i 0 bs", true, false,
         "Unable to open file for writing."},
        {"kv_blendShapeExportData -d" + fn + " -cn a -i 0 box",
         false,
         {},
         "The node is not a blend shape node."},
        {"kv_blendShapeExportData -d" + fn + " -cn a -i 0", false, {}, "No blend shape node provided."},
        {"kv_blendShapeImportData" + fn + " bs", true, 0, "No operation mode defined."},
        {"kv_blendShapeImportData -d -rm -si 1 -si 2 -di 3" + fn + " bs", true, 0,
         "The number of indices for source and destination needs to match."},
        {"kv_blendShapeImportData -d bs", true, 0, "Missing export file path."},
        {"kv_blendShapeImportData -d" + unwritable + " bs", true, false, "Unable to open file for reading."},
        {"kv_blendShapeImportData -ld" + unwritable, true, List(), "Unable to open file for reading."},
        {"kv_blendShapeImportData -d" + fn, false, {}, "No blend shape node provided."},
        {"kv_blendShapeImportData -d" + fn + " box", false, {}, "The node is not a blend shape node."},
    };
    for (const auto& c : cases) {
        clearMessages();
        const CommandResult result = exec(c.command, c.ok);
        if (c.ok) {
            EXPECT_EQ(result, c.result) << c.command;
        }
        EXPECT_EQ(errors(), Lines({c.error})) << c.command;
    }
}

TEST_F(DeltaFiles, RoundTripIntoAnEmptyBlendShape) {
    must("aliasAttr smile bs.w[1]");
    exportData("-d -fn \"" + path + "\" -cn lift -cn smile -i 0 -i 1 bs");
    EXPECT_EQ(importData("-ld -fn \"" + path + "\""), CommandResult(List{"0,lift,1", "1,smile,0.5:1"}));
    EXPECT_EQ(importData("-d -fn \"" + path + "\" bs2"), CommandResult(true));
    for (const auto& [target, item] : {std::pair<unsigned, unsigned>{0, 6000}, {1, 5500}, {1, 6000}}) {
        EXPECT_EQ(componentsOf("bs2", target, item), componentsOf("bs", target, item))
            << target << " " << item;
        EXPECT_EQ(deltasOf("bs2", target, item), deltasOf("bs", target, item)) << target << " " << item;
    }
    EXPECT_TRUE(hasAlias("bs2", "lift"));
    EXPECT_TRUE(hasAlias("bs2", "smile"));
    EXPECT_EQ(exec("getAttr bs2.w[1]"), CommandResult(0.0));
    EXPECT_TRUE(errors().empty()) << allMessages();
    EXPECT_EQ(warnings(), Lines{"Skipped position 6500 of index 1 because of missing target data."});
}

TEST_F(DeltaFiles, RemapMovesBlocksByPosition) {
    exportData("-d -fn \"" + path + "\" -cn lift -cn smile -i 0 -i 1 bs");
    // Source 1 is not the first block: block 0 is rejected, block 1 goes to 7.
    EXPECT_EQ(importData("-ld -rm -si 1 -di 7 -fn \"" + path + "\""),
              CommandResult(List{"0,lift,1", "7,smile,0.5:1"}));
    EXPECT_EQ(importData("-d -rm -si 1 -di 7 -fn \"" + path + "\" bs2"), CommandResult(true));
    EXPECT_TRUE(componentsOf("bs2", 0, 6000).empty());
    EXPECT_EQ(componentsOf("bs2", 7, 5500), std::vector<int>{3});
    EXPECT_EQ(deltasOf("bs2", 7, 6000), Deltas({{0, 0.5, 0}}));
    EXPECT_TRUE(hasAlias("bs2", "smile"));
}

TEST_F(DeltaFiles, SelectedVerticesFilterTheImport) {
    exportData("-d -fn \"" + path + "\" -cn lift -i 0 bs");
    must("select -r box.vtx[7] box.vtx[1]");
    EXPECT_EQ(importData("-d -fn \"" + path + "\" bs2"), CommandResult(true));
    EXPECT_EQ(componentsOf("bs2", 0, 6000), std::vector<int>({1, 7}));
    EXPECT_EQ(deltasOf("bs2", 0, 6000), Deltas({{0, 2, 0}, {0, 4, 0}}));
}

TEST_F(DeltaFiles, AliasesForNewIndicesOnly) {
    must("setAttr bs2.it[0].itg[0].iti[6000].ict -type componentList 1 vtx[5]; setAttr bs2.w[0] 0.75");
    must("setAttr bs2.w[3] 1; aliasAttr smile bs2.w[3]; setAttr bs2.w[4] 1; aliasAttr smile1 bs2.w[4]");
    writeFile("d.json", "{\n\"0\": {\"name\": \"lift\",\n\"data\": {\"1\": {\"2\": [1, 1, 1]}}},\n"
                        "\"1\": {\"name\": \"smile\",\n\"data\": {\"1\": {\"2\": [1, 1, 1]}}},\n"
                        "\"9\": {\"name\": \"\",\n\"data\": {\"1\": {\"2\": [1, 1, 1]}}}\n}\n");
    EXPECT_EQ(importData("-d -fn \"" + file("d.json") + "\" bs2"), CommandResult(true));
    EXPECT_FALSE(hasAlias("bs2", "lift"));
    EXPECT_EQ(exec("getAttr bs2.w[0]"), CommandResult(0.75));
    EXPECT_TRUE(hasAlias("bs2", "smile2"));
    EXPECT_TRUE(hasAlias("bs2", "weight_9"));
    EXPECT_EQ(exec("getAttr bs2.w[9]"), CommandResult(0.0));
}

// Damaged files never stop the command: what the scanner picks up is written, and vertices
// beyond the mesh are ignored by the deformer's evaluation.
TEST_F(DeltaFiles, DamagedFilesAreReadAsFarAsTheyGo) {
    must("polyCube -n head; duplicate -n shape head; blendShape -n bs3 shape head; setAttr bs3.w[0] 1");
    exportData("-d -fn \"" + path + "\" -cn a -cn b -cn c -i 0 -i 5 -i 1 bs"); // a skipped index
    const std::string skipped = readFile(path);
    const struct {
        const char* label;
        std::string text;
    } cases[] = {
        {"skipped index", skipped},
        {"truncated", skipped.substr(0, 60)},
        {"unbalanced", "}}{{{\"0\": [1, 2, 3]}}}}}}}"},
        {"key without value", "{\"0\": {\"name\": \"n\",\n\"data\": {\"1\": {\"2\": }}}}"},
        {"non-numeric weight", "{\"0\": {\"name\": \"n\",\n\"data\": {\"heavy\": {\"2\": [0, 1, 0]}}}}"},
        {"beyond the mesh",
         "{\"0\": {\"name\": \"n\",\n\"data\": {\"1\": {\"2\": [0, 1, 0], \"99\": [5, 5, 5]}}}}"},
        {"negative index", "{\"-4\": {\"name\": \"n\",\n\"data\": {\"1\": {\"-2\": [0, 1, 0]}}}}"},
    };
    for (const auto& c : cases) {
        const std::string name = writeFile("bad.json", c.text);
        EXPECT_EQ(importData("-d -fn \"" + name + "\" bs3"), CommandResult(true)) << c.label;
        importData("-ld -fn \"" + name + "\"");
        MSelectionList list;
        list.add("headShape");
        MDagPath head;
        ASSERT_TRUE(list.getDagPath(0, head));
        MPointArray points;
        EXPECT_TRUE(MFnMesh(head).getPoints(points)) << c.label;
        EXPECT_EQ(points.length(), 8u) << c.label;
    }
    EXPECT_EQ(componentsOf("bs3", 0, 5000), std::vector<int>{2}); // "heavy" reads as weight 0
}

} // namespace
