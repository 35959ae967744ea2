#include "PluginSession.h"

#include <maya/MCommandResult.h>
#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MIntArray.h>
#include <maya/MStringArray.h>

namespace {

using host::MessageKind;

std::vector<int> toVector(const MIntArray& array) {
    return array.vec();
}

class QueryCommands : public PluginSession {
protected:
    void SetUp() override {
        PluginSession::SetUp();
        makeBlendShape();
        host::messageLog().clearHistory();
    }

    // The active selection as (item name, component type, elements), one per item.
    struct Selected {
        std::string name;
        MFn::Type type;
        std::vector<int> elements;
        bool operator==(const Selected& other) const {
            return name == other.name && type == other.type && elements == other.elements;
        }
    };
    static std::vector<Selected> selection() {
        MSelectionList list;
        MGlobal::getActiveSelectionList(list);
        std::vector<Selected> items;
        for (unsigned int i = 0; i < list.length(); ++i) {
            MDagPath path;
            MObject components;
            MObject object;
            list.getDependNode(i, object);
            const bool dag = list.getDagPath(i, path, components);
            Selected item{dag ? path.partialPathName().asChar() : MFnDependencyNode(object).name().asChar(),
                          MFn::kInvalid,
                          {}};
            if (!components.isNull()) {
                const MFnSingleIndexedComponent fn(components);
                item.type = fn.componentType();
                MIntArray elements;
                fn.getElements(elements);
                item.elements = elements.vec();
            }
            items.push_back(item);
        }
        return items;
    }
};

const char* const itemComponents =
    "bs.inputTarget[0].inputTargetGroup[0].inputTargetItem[6000].inputComponentsTarget";

TEST_F(QueryCommands, HelpIgnoresEveryOtherFlagAndObject) {
    must("select -r box.vtx[3]");
    const char* const calls[] = {"kv_getBlendShapeIndices -h box",
                                 "kv_getComponentList -at nothing.ict -sl box -ct 1 -h",
                                 "kv_displayMessage -e stop -h", "kv_reorderRotation -h -irx 90 -io 0 -oo 5"};
    for (const char* call : calls) {
        MString result;
        ASSERT_TRUE(run(call, result)) << call;
        EXPECT_EQ(result.asChar()[0], '\n') << call;
        EXPECT_NE(result.indexW("Description: "), -1) << call;
    }
    EXPECT_TRUE(messages().empty()) << allMessages();
    EXPECT_EQ(selection(), (std::vector<Selected>{{"boxShape", MFn::kMeshVertComponent, {3}}}));
}

TEST_F(QueryCommands, BlendShapeIndicesOfTheFirstNodeOnly) {
    must("createNode blendShape -n other; setAttr other.w[3] 0");
    MIntArray indices;
    ASSERT_TRUE(run("kv_getBlendShapeIndices bs other", indices));
    EXPECT_EQ(toVector(indices), (std::vector<int>{0, 1, 5}));
    ASSERT_TRUE(run("kv_getBlendShapeIndices other bs", indices));
    EXPECT_EQ(toVector(indices), std::vector<int>{3});
    must("select -r other");
    ASSERT_TRUE(run("kv_getBlendShapeIndices", indices));
    EXPECT_EQ(toVector(indices), std::vector<int>{3});
}

TEST_F(QueryCommands, BlendShapeIndicesRejectsMissingAndWrongNodes) {
    const struct {
        const char* call;
        const char* error;
    } cases[] = {{"kv_getBlendShapeIndices", "No blend shape node provided."},
                 {"kv_getBlendShapeIndices box", "The node is not a blend shape node."},
                 {"kv_getBlendShapeIndices boxShape bs", "The node is not a blend shape node."}};
    for (const auto& c : cases) {
        must("select -cl");
        host::messageLog().clearHistory();
        EXPECT_FALSE(run(c.call)) << c.call;
        const auto log = messages();
        ASSERT_EQ(log.size(), 1u) << c.call;
        EXPECT_EQ(log[0].kind, MessageKind::Error);
        EXPECT_EQ(log[0].text, c.error);
    }
}

TEST_F(QueryCommands, DisplayMessagePrecedenceAndSharedText) {
    const struct {
        const char* flags;
        bool ok;
        std::vector<host::Message> shown;
    } cases[] = {
        {"", true, {}},
        {"-i hello", true, {{MessageKind::Info, "hello"}}},
        {"-w careful", true, {{MessageKind::Warning, "careful"}}},
        {"-e stop", false, {{MessageKind::Error, "stop"}}},
        {"-i a -e b", true, {{MessageKind::Info, "b"}}},
        {"-e b -i a", true, {{MessageKind::Info, "b"}}},
        {"-w a -e b", false, {{MessageKind::Error, "b"}}},
        {"-e b -w a", false, {{MessageKind::Error, "b"}}},
        {"-w a -i b", true, {{MessageKind::Info, "a"}}},
        {"-info \"two words\"", true, {{MessageKind::Info, "two words"}}},
    };
    for (const auto& c : cases) {
        host::messageLog().clearHistory();
        EXPECT_EQ(run(std::string("kv_displayMessage ") + c.flags), c.ok) << c.flags;
        const auto log = messages();
        ASSERT_EQ(log.size(), c.shown.size()) << c.flags << "\n" << allMessages();
        for (std::size_t i = 0; i < log.size(); ++i) {
            EXPECT_EQ(log[i].kind, c.shown[i].kind) << c.flags;
            EXPECT_EQ(log[i].text, c.shown[i].text) << c.flags;
        }
    }
}

TEST_F(QueryCommands, ComponentListFlattensInListOrder) {
    must("select -r bs");
    MIntArray indices;
    ASSERT_TRUE(run(std::string("kv_getComponentList -at ") + itemComponents, indices));
    EXPECT_EQ(toVector(indices), (std::vector<int>{0, 1, 2, 7}));
    // -sl without -ct returns the list and leaves the selection alone.
    ASSERT_TRUE(run("kv_getComponentList -attribute bs.it[0].itg[0].iti[6000].ict -sl box", indices));
    EXPECT_EQ(toVector(indices), (std::vector<int>{0, 1, 2, 7}));
    ASSERT_EQ(selection().size(), 1u);
    EXPECT_EQ(selection()[0].name, "bs");
}

TEST_F(QueryCommands, ComponentListWithoutAttributeDoesNothing) {
    must("select -r box");
    EXPECT_TRUE(run("kv_getComponentList -sl box -ct 0"));
    EXPECT_EQ(selection(), (std::vector<Selected>{{"box", MFn::kInvalid, {}}}));
}

TEST_F(QueryCommands, ComponentListSelectsComponentsOfTheShape) {
    const struct {
        int componentType;
        MFn::Type selected;
    } cases[] = {{0, MFn::kMeshVertComponent},
                 {1, MFn::kMeshEdgeComponent},
                 {2, MFn::kMeshPolygonComponent},
                 {7, MFn::kInvalid}};
    for (const auto& c : cases) {
        must("select -r bs");
        MCommandResult result;
        ASSERT_TRUE(run(std::string("kv_getComponentList -at ") + itemComponents + " -sl box -ct " +
                            std::to_string(c.componentType),
                        result))
            << c.componentType;
        EXPECT_EQ(result.resultType(), MCommandResult::kInvalid) << c.componentType;
        const std::vector<int> elements =
            c.selected == MFn::kInvalid ? std::vector<int>{} : std::vector<int>{0, 1, 2, 7};
        EXPECT_EQ(selection(), (std::vector<Selected>{{"boxShape", c.selected, elements}}))
            << c.componentType;
    }
}

TEST_F(QueryCommands, ComponentListOfABadAttributeFailsQuietly) {
    MIntArray indices;
    EXPECT_FALSE(run("kv_getComponentList -at bs.noSuchAttribute", indices));
    EXPECT_FALSE(run("kv_getComponentList -at bs.noSuchAttribute -sl box -ct 0", indices));
    EXPECT_TRUE(messages().empty()) << allMessages();
    // An attribute that holds no component list gives an empty list.
    ASSERT_TRUE(run("kv_getComponentList -at box.translateX", indices));
    EXPECT_TRUE(toVector(indices).empty());
}

TEST_F(QueryCommands, ReorderRotation) {
    constexpr double roundTrip = 0.01745329238474369 * 57.295780181884766;
    const struct {
        const char* flags;
        std::vector<double> expected;
        double tolerance;
    } cases[] = {
        {"-irx 90 -io 0 -oo 5", {90 * roundTrip, 0.0, 0.0}, 1e-9},
        {"-irx 90 -io 7 -oo 5", {90 * roundTrip, 0.0, 0.0}, 1e-9},
        {"-iry 90 -io 0 -oo -1", {0.0, 90 * roundTrip, 0.0}, 1e-9},
        {"-irx 30 -iry 45 -irz 60 -io 2 -oo 2", {30.0, 45.0, 60.0}, 1e-5},
        {"", {0.0, 0.0, 0.0}, 0.0},
        {"-io 3 -oo 4", {0.0, 0.0, 0.0}, 0.0},
        // Expected angles solved independently from the composed rotation matrices.
        {"-irx 30 -iry 45 -irz 60 -io 0 -oo 5", {-24.597223, 47.66322, 58.334492}, 1e-4},
        {"-irx 10 -iry -70 -irz 25 -io 1 -oo 3", {26.781343, -71.938192, -1.193437}, 1e-4},
    };
    for (const auto& c : cases) {
        MDoubleArray result;
        ASSERT_TRUE(run(std::string("kv_reorderRotation ") + c.flags, result)) << c.flags;
        ASSERT_EQ(result.length(), 3u) << c.flags;
        for (unsigned int i = 0; i < 3; ++i)
            EXPECT_NEAR(result[i], c.expected[i], c.tolerance) << c.flags << " " << i;
    }
}

TEST_F(QueryCommands, ReorderRotationRoundTripsThroughEveryOrder) {
    for (int from = 0; from < 6; ++from) {
        for (int to = 0; to < 6; ++to) {
            MDoubleArray there;
            ASSERT_TRUE(run("kv_reorderRotation -irx 20 -iry -35 -irz 50 -io " + std::to_string(from) +
                                " -oo " + std::to_string(to),
                            there));
            MDoubleArray back;
            ASSERT_TRUE(run("kv_reorderRotation -irx " + std::to_string(there[0]) + " -iry " +
                                std::to_string(there[1]) + " -irz " + std::to_string(there[2]) + " -io " +
                                std::to_string(to) + " -oo " + std::to_string(from),
                            back));
            EXPECT_NEAR(back[0], 20.0, 1e-4) << from << "->" << to;
            EXPECT_NEAR(back[1], -35.0, 1e-4) << from << "->" << to;
            EXPECT_NEAR(back[2], 50.0, 1e-4) << from << "->" << to;
        }
    }
}

} // namespace
