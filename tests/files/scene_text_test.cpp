// A hand-written scene with every kind of value a scene file holds, saved as Maya lays files out:
// the exact text, the same text again after reading it back, and the values it holds.
#include "FileTestSupport.h"

#include "engine/Scene.h"
#include "mesh/MeshData.h"

namespace {

const char* const kScene = R"MA(//Maya ASCII 2023 scene
requires maya "2023";
requires -nodeType "kvRegion" "talven" "5.10";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
createNode transform -n "box";
	rename -uid "11111111-2222-3333-4444-555555555555";
	addAttr -ci true -sn "tag" -ln "tagName" -dt "string";
	setAttr ".t" -type "double3" 1 2.5 -3 ;
	setAttr ".r" -type "double3" 0 45 0 ;
	setAttr -k off ".v" no;
	setAttr -l on ".sx";
	setAttr ".tag" -type "string" "say \"hi\"";
createNode mesh -n "boxShape" -p "box";
	setAttr -s 4 ".vt[0:3]"  0 0 0 1 0 0 1 1 0 0 1 0;
	setAttr -s 4 ".ed[0:3]"  0 1 0 1 2 1 2 3 0 3 0 1;
	setAttr -s 1 -ch 4 ".fc[0]" -type "polyFaces" 
		f 4 0 1 2 3
		mu 0 4 0 1 2 3;
	setAttr -s 2 ".pt[0:1]" -type "float3" 0.1 0 0 0 0.25 0;
createNode blendShape -n "bs";
	setAttr -s 2 ".w[0:1]"  0.5 1;
	setAttr ".it[0].itg[0].iti[6000].ipt" -type "pointArray" 2 0 1 0 1 0 0 2 1 ;
	setAttr ".it[0].itg[0].iti[6000].ict" -type "componentList" 2 "vtx[0]" "vtx[2:3]";
	setAttr -s 3 ".it[0].itg[0].tw[0:2]" 1 0.5 0;
	setAttr ".aal" -type "attributeAlias" {"smile","weight[0]","frown","weight[1]"} ;
createNode skinCluster -n "skin";
	setAttr -s 2 ".wl";
	setAttr ".wl[0:1].w"
		2 0 0.25 1 0.75
		1 1 1;
	setAttr ".pm[0]" -type "matrix" 1 0 0 0 0 1 0 0 0 0 1 0 5 6 7 1;
createNode fooDeformer -n "foo";
	setAttr ".ia" -type "Int32Array" 3 1 2 3 ;
	setAttr ".da" -type "doubleArray" 2 0.1 0.25 ;
	setAttr ".sa" -type "stringArray" 2 "a b" "c\"d" ;
	setAttr ".s" -type "string" "hello";
	setAttr ".f3" -type "float3" 1 2 3 ;
	setAttr ".pc" -type "dataPolyComponent" Index_Data Edge 0 ;
	setAttr ".xm[0]" -type "matrix" "xform" 1 1 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 0 0 1 1 1 1 yes;
	setAttr -s 2 ".ktv[0:1]"  1 0 5 1;
	setAttr ".on" yes;
	setAttr ".tgdt[0].cid" -type "Int32Array" 1 0 ;
	lockNode -l 1 ;
createNode script -n "uiConfigurationScriptNode";
	setAttr ".b" -type "string" "print(\"never run\");";
select -ne :time1;
	setAttr ".o" 5;
select -ne :initialShadingGroup;
	setAttr ".ro" yes;
connectAttr "box.t" "foo.in";
connectAttr "bs.og[0]" "boxShape.i";
relationship "link" ":lightLinker1" ":initialShadingGroup.message" ":defaultLightSet.message";
connectAttr "boxShape.iog" ":initialShadingGroup.dsm" -na;
connectAttr "uiConfigurationScriptNode.msg" "foo.sn";
// End of in.ma
)MA";

const char* const kSaved = R"MA(//Maya ASCII 2023 scene
//Name: golden.ma
//Codeset: UTF-8
requires maya "2023";
requires -nodeType "kvRegion" "talven" "5.10";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
createNode transform -n "box";
	rename -uid "11111111-2222-3333-4444-555555555555";
	addAttr -ci true -sn "tag" -ln "tagName" -dt "string";
	setAttr -k off ".v" no;
	setAttr ".t" -type "double3" 1 2.5 -3;
	setAttr ".r" -type "double3" 0 45 0;
	setAttr ".tag" -type "string" "say \"hi\"";
	setAttr -l on ".sx";
createNode mesh -n "boxShape" -p "box";
	setAttr -s 4 ".vt[0:3]" 0 0 0 1 0 0 1 1 0 0 1 0;
	setAttr -s 4 ".ed[0:3]" 0 1 0 1 2 1 2 3 0 3 0 1;
	setAttr -s 1 -ch 4 ".fc[0]" -type "polyFaces"
		f 4 0 1 2 3
		mu 0 4 0 1 2 3;
	setAttr -s 2 ".pt[0:1]" -type "float3" 0.1 0 0 0 0.25 0;
createNode blendShape -n "bs";
	addAttr -ci true -h true -sn "aal" -ln "attributeAliasList" -dt "attributeAlias";
	setAttr -s 2 ".w[0:1]" 0.5 1;
	setAttr ".it[0].itg[0].iti[6000].ipt" -type "pointArray" 2 0 1 0 1 0 0 2 1;
	setAttr ".it[0].itg[0].iti[6000].ict" -type "componentList" 2 "vtx[0]" "vtx[2:3]";
	setAttr -s 3 ".it[0].itg[0].tw[0:2]" 1 0.5 0;
	setAttr ".aal" -type "attributeAlias" {"smile","weight[0]","frown","weight[1]"} ;
createNode skinCluster -n "skin";
	setAttr ".wl[0:1].w" 2 0 0.25 1 0.75 1 1 1;
	setAttr ".pm[0]" -type "matrix" 1 0 0 0 0 1 0 0 0 0 1 0 5 6 7 1;
	setAttr -s 2 ".wl";
createNode fooDeformer -n "foo";
	setAttr ".ia" -type "Int32Array" 3 1 2 3;
	setAttr ".da" -type "doubleArray" 2 0.1 0.25;
	setAttr ".sa" -type "stringArray" 2 "a b" "c\"d";
	setAttr ".s" -type "string" "hello";
	setAttr ".f3" -type "float3" 1 2 3;
	setAttr ".pc" -type "dataPolyComponent" Index_Data Edge 0;
	setAttr ".xm[0]" -type "matrix" "xform" 1 1 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 0 0 1 1 1 1 yes;
	setAttr -s 2 ".ktv[0:1]" 1 0 5 1;
	setAttr ".on" yes;
	setAttr ".tgdt[0].cid" -type "Int32Array" 1 0;
	lockNode -l 1;
createNode script -n "uiConfigurationScriptNode";
	setAttr ".b" -type "string" "print(\"never run\");";
select -ne :time1;
	setAttr ".o" 5;
select -ne :initialShadingGroup;
	setAttr ".ro" yes;
connectAttr "box.t" "foo.in";
connectAttr "bs.og[0]" "boxShape.i";
relationship "link" ":lightLinker1" ":initialShadingGroup.message" ":defaultLightSet.message";
connectAttr "boxShape.iog" ":initialShadingGroup.dsm[0]";
connectAttr "uiConfigurationScriptNode.msg" "foo.sn";
// End of golden.ma
)MA";

class SceneTextTest : public FileTest {};

TEST_F(SceneTextTest, SavesEveryKindOfValueAsMayaWritesIt) {
    ASSERT_TRUE(open(kScene)) << messages();
    EXPECT_TRUE(messagesOf(host::MessageKind::Error).empty()) << messages();
    EXPECT_EQ(save("golden.ma"), kSaved);
    // What the writer wrote reads back into a scene that writes the same text.
    ASSERT_TRUE(run("file -o \"" + path("golden.ma") + "\"")) << messages();
    EXPECT_EQ(save("golden.ma"), kSaved);
}

TEST_F(SceneTextTest, ValuesSurviveSavingAndOpening) {
    ASSERT_TRUE(open(kScene));
    save("golden.ma");
    ASSERT_TRUE(run("file -o \"" + path("golden.ma") + "\"")) << messages();
    EXPECT_EQ(resultAs<std::vector<double>>("getAttr box.r"), (std::vector<double>{0, 45, 0}));
    EXPECT_EQ(resultAs<std::vector<double>>("getAttr bs.w"), (std::vector<double>{0.5, 1}));
    EXPECT_EQ(resultAs<double>("getAttr bs.frown"), 1.0);
    EXPECT_EQ(resultAs<double>("getAttr skin.wl[0].w[1]"), 0.75);
    EXPECT_EQ(resultAs<std::vector<double>>("getAttr boxShape.vt[2]"), (std::vector<double>{1, 1, 0}));
    EXPECT_EQ(resultAs<std::string>("getAttr box.tagName"), "say \"hi\"");
    // The script node is kept as text, never made; the connections are all there.
    EXPECT_EQ(host::scene().findNode("uiConfigurationScriptNode"), nullptr);
    EXPECT_EQ(host::scene().connections().size(), 3u);
}

// Colour sets are the mesh's own: written as Maya writes them (colours listed once, faces naming
// them in "mc" records), and a file's per-corner colours become per-vertex colours.
TEST_F(SceneTextTest, ColourSetsSurviveSavingAndOpening) {
    ASSERT_TRUE(
        open("createNode mesh -n \"sq\";\n"
             "\tsetAttr -s 4 \".vt[0:3]\" 0 0 0 1 0 0 1 1 0 0 1 0;\n"
             "\tsetAttr -s 4 \".ed[0:3]\" 0 1 0 1 2 0 2 3 0 3 0 0;\n"
             "\tsetAttr \".clst[2].clsn\" -type \"string\" \"paint\";\n"
             "\tsetAttr -s 2 \".clst[2].clsp[0:1]\" 1 0 0 1 0 0 1 0.5;\n"
             "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 4 0 1 2 3 mu 0 4 0 1 2 3 mc 2 4 1 0 -1 1;\n"))
        << messages();
    ASSERT_TRUE(
        run("polyColorSet -create -colorSet mask sq; polyColorSet -currentColorSet -colorSet paint sq"));
    const std::vector<host::ColorSet> sets = host::scene().findNode("sq")->mesh()->colorSets;
    ASSERT_EQ(sets.size(), 2u);
    const std::array<float, 4> red{1, 0, 0, 1}, blue{0, 0, 1, 0.5f}, unset{0, 0, 0, -1};
    EXPECT_EQ(sets[0].colors, (std::vector<std::array<float, 4>>{blue, red, unset, blue}));
    const std::string saved = save("colors.ma");
    EXPECT_NE(saved.find("\t\tmu 0 4 0 1 2 3 mc 0 4 0 1 -1 2;\n"
                         "\tsetAttr \".clst[0].clsn\" -type \"string\" \"paint\";\n"
                         "\tsetAttr -s 3 \".clst[0].clsp[0:2]\" 0 0 1 0.5 1 0 0 1 0 0 1 0.5;\n"
                         "\tsetAttr \".clst[1].clsn\" -type \"string\" \"mask\";\n"
                         "\tsetAttr \".ccls\" -type \"string\" \"paint\";\n"),
              std::string::npos)
        << saved;
    ASSERT_TRUE(run("file -o \"" + path("colors.ma") + "\"")) << messages();
    const auto& again = host::scene().findNode("sq")->mesh();
    ASSERT_EQ(again->colorSets.size(), 2u);
    EXPECT_EQ(again->colorSets[0].colors, sets[0].colors);
    EXPECT_EQ(again->colorSets[1].name, "mask");
    EXPECT_EQ(again->currentColorSet, "paint");
    EXPECT_EQ(save("colors.ma"), saved);
}

} // namespace

// Numbers a scene holds bare are written as the same statements as elements holding them, gaps in
// the indices included.
TEST_F(SceneTextTest, BareNumbersSaveAsElementsDo) {
    ASSERT_TRUE(run("createNode blendShape -n bs; setAttr bs.w[0] 0.5; setAttr bs.w[1] 0.25; "
                    "setAttr bs.w[3] 1; setAttr bs.w[7] 0.125"));
    const std::string bare = save("bare.ma");
    EXPECT_NE(
        bare.find(
            "\tsetAttr -s 4 \".w[0:1]\" 0.5 0.25;\n\tsetAttr \".w[3]\" 1;\n\tsetAttr \".w[7]\" 0.125;\n"),
        std::string::npos)
        << bare;
    // Asking for an element builds them all.
    const host::NodePtr node = host::scene().findNode("bs");
    ASSERT_NE(host::resolveAttrPath(node, "w[3]", nullptr).slot(), nullptr);
    EXPECT_EQ(save("bare.ma"), bare);
}
