// Scenes written by Maya, opened, saved, opened again and saved again: the second save gives the
// same text as the first, nothing is lost on the way (nodes, connections, values, what deformers
// compute, the statements the host keeps without running), and errors name their file and line.
#include "FileTestSupport.h"

#include "eval/Evaluator.h"

#include <map>

namespace {

struct Sample {
    const char* file;
    std::vector<const char*> plugs;    // values compared before and after the round trip
    std::vector<const char*> keptText; // statements the saved file still holds
};

const std::vector<Sample> kSamples = {
    {"UsdExportSkeletonWithIdentityBindPose.ma",
     {"persp.r", "pCubeShape1Orig.vt[5]", "skinCluster1.wl[2].w[0]", "skinCluster1.pm[0]", "bindPose1.g[2]"},
     {"requires maya \"2018ff08\";", "fileInfo \"cutIdentifier\" \"201804062215-77a9351045\";",
      "rename -uid \"0484B840-0000-0FB4-5C1A-F1AA00000225\";",
      "createNode script -n \"uiConfigurationScriptNode\";", "select -ne :time1;\n\tsetAttr \".o\" 5;",
      "relationship \"link\" \":lightLinker1\"",
      "addAttr -ci true -sn \"liw\" -ln \"lockInfluenceWeights\" -min 0 -max 1 -at \"bool\";",
      "\tsetAttr -l on \".tx\";", "\t\tmu 0 4 0 1 3 2\n",
      "setAttr \".xm[0]\" -type \"matrix\" \"xform\" 1 1 1 0 0 0 0"}},
    {"bindTransformsExport.ma",
     {"c.jo", "c.r", "lfShapeOrig.vt[10]", "lfShape.pv", "rt_joint.t"},
     {"createNode transform -s -n \"persp\";", "setAttr -s 10 \".iog[0].og\";",
      "setAttr -av \".iog[0].og[3].gco\";"}},
    {"blendShapesExport.ma",
     {"blendShape22.w", "blendShape22.it[0].itg[0].iti[6000].ipt", "blendShape22.it[0].itg[2].iti[6000].ict",
      "blendShape9.pCube2", "blendShape10.ibig[0].ibi[5333].ibtn"},
     {"requires \"stereoCamera\" \"10.0\";",
      "setAttr \".aal\" -type \"attributeAlias\" {\"pCube2\",\"weight[0]\"} ;",
      "select -ne :defaultRenderGlobals;\n\taddAttr -ci true -h true -sn \"dss\""}},
};

std::string samplePath(const Sample& sample) {
    return std::string(TALVEN_DATA_DIR) + "/maya-ascii/" + sample.file;
}

// Everything the scene shows that a file must carry: values of the chosen plugs and the points of
// every mesh as its deformers leave them.
struct Snapshot {
    std::size_t nodes = 0, connections = 0;
    std::map<std::string, host::CommandResult> values;
    std::map<std::string, std::vector<std::array<float, 3>>> meshes;
};

Snapshot snapshot(const Sample& sample) {
    Snapshot s;
    s.nodes = host::scene().nodes().size();
    s.connections = host::scene().connections().size();
    for (const char* plug : sample.plugs) {
        host::CommandResult r;
        EXPECT_TRUE(host::interpreter().execute(std::string("getAttr ") + plug, r)) << plug;
        s.values[plug] = r;
    }
    for (const host::NodePtr& node : host::scene().nodes())
        if (node->type().isA("mesh"))
            if (host::MeshPtr mesh = host::evaluatedMesh(node))
                s.meshes[host::scene().fullPath(*node)] = mesh->points;
    return s;
}

class SceneRoundTripTest : public FileTest, public ::testing::WithParamInterface<Sample> {};

TEST_P(SceneRoundTripTest, SecondSaveGivesTheSameTextAndNothingIsLost) {
    const Sample& sample = GetParam();
    if (!std::ifstream(samplePath(sample))) GTEST_SKIP() << samplePath(sample) << " is not there";
    ASSERT_TRUE(run("file -o \"" + samplePath(sample) + "\"")) << messages();
    const std::vector<std::string> openErrors = messagesOf(host::MessageKind::Error);
    // Statements that fail are reported with their file and line, after the command's own message.
    const std::string where = samplePath(sample) + " line ";
    for (std::size_t i = 0; i < openErrors.size(); ++i)
        EXPECT_TRUE(openErrors[i].rfind(where, 0) == 0 ||
                    (i + 1 < openErrors.size() && openErrors[i + 1].rfind(where, 0) == 0))
            << openErrors[i];
    const Snapshot before = snapshot(sample);

    std::filesystem::create_directories(path("first"));
    std::filesystem::create_directories(path("second"));
    const std::string first = save(std::string("first/") + sample.file);
    host::messageLog().clearHistory();
    ASSERT_TRUE(run("file -o \"" + path(std::string("first/") + sample.file) + "\"")) << messages();
    EXPECT_EQ(messagesOf(host::MessageKind::Error).size(), openErrors.size()) << messages();
    const Snapshot after = snapshot(sample);
    const std::string second = save(std::string("second/") + sample.file);

    EXPECT_EQ(first, second);
    EXPECT_EQ(after.nodes, before.nodes);
    EXPECT_EQ(after.connections, before.connections);
    for (const auto& [plug, value] : before.values) EXPECT_EQ(after.values.at(plug), value) << plug;
    EXPECT_EQ(after.meshes, before.meshes);
    for (const char* text : sample.keptText) EXPECT_NE(first.find(text), std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(MayaScenes, SceneRoundTripTest, ::testing::ValuesIn(kSamples), [](const auto& info) {
    std::string name = info.param.file;
    return name.substr(0, name.find('.'));
});

} // namespace
