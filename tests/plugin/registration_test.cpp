#include "PluginSession.h"

#include "api/command/PluginRegistry.h"

#include <maya/MStatus.h>

#include <algorithm>

MStatus initializePlugin(MObject obj);
MStatus uninitializePlugin(MObject obj);

namespace {

const std::vector<std::string> registrationOrder = {"kv_blendShapeEditWeights",
                                                    "kv_blendShapeExportData",
                                                    "kv_blendShapeExtractTarget",
                                                    "kv_blendShapeImportData",
                                                    "kv_blendShapeMirrorTarget",
                                                    "kv_blendShapeRemoveDeltas",
                                                    "kv_blendShapeReplaceTarget",
                                                    "kv_blendShapeSetInbetweenPosition",
                                                    "kv_blendShapeSplitTarget",
                                                    "kv_displayMessage",
                                                    "kv_editRegionMap",
                                                    "kv_editTweakNode",
                                                    "kv_getBlendShapeIndices",
                                                    "kv_getComponentList",
                                                    "kv_meshEvaluate",
                                                    "kv_polyMapVertexOrder",
                                                    "kv_polySymmetry",
                                                    "kv_reorderRotation",
                                                    "kv_sculptExtractDeltaMesh",
                                                    "TALVENCompareDraggerToolContext"};

// Each test leaves the plug-in loaded with all its commands, as the session expects.
class Registration : public PluginSession {
protected:
    void TearDown() override {
        for (const std::string& name : squatted) host::commandTable().remove(name);
        uninitializePlugin(MObject());
        initializePlugin(MObject());
        for (const std::string& name : registrationOrder) EXPECT_TRUE(registered(name)) << name;
    }

    // Takes a command name before the plug-in can, as another plug-in would.
    void squat(const std::string& name) {
        ASSERT_TRUE(host::commandTable().add(name, [](host::Invocation&) { return true; }));
        squatted.push_back(name);
    }

    static bool registered(const std::string& name) { return host::commandTable().find(name) != nullptr; }
    static bool ownedByPlugin(const std::string& name) {
        return host::talvenPlugin().command(name) != nullptr;
    }

    static std::vector<std::string> errors() {
        std::vector<std::string> texts;
        for (const host::Message& message : messages())
            if (message.kind == host::MessageKind::Error) texts.push_back(message.text);
        return texts;
    }

    std::vector<std::string> squatted;
};

TEST_F(Registration, IdentityGivenAtLoad) {
    EXPECT_EQ(host::talvenPlugin().vendor, "Talven");
    EXPECT_EQ(host::talvenPlugin().version, "5.10.0");
    EXPECT_EQ(host::talvenPlugin().apiVersion, "Any");
}

TEST_F(Registration, UnloadAndReloadWalkAllEntriesQuietly) {
    EXPECT_TRUE(uninitializePlugin(MObject()));
    for (const std::string& name : registrationOrder) EXPECT_FALSE(registered(name)) << name;
    EXPECT_TRUE(initializePlugin(MObject()));
    for (const std::string& name : registrationOrder) EXPECT_TRUE(ownedByPlugin(name)) << name;
    EXPECT_TRUE(messages().empty()) << allMessages();
}

TEST_F(Registration, ATakenNameIsReportedAndLoadingGoesOn) {
    ASSERT_TRUE(uninitializePlugin(MObject()));
    squat("kv_blendShapeMirrorTarget");
    host::messageLog().clearHistory();

    EXPECT_TRUE(initializePlugin(MObject())); // the status of the last step, the context command
    const auto reported = errors();
    ASSERT_EQ(reported.size(), 1u) << allMessages();
    EXPECT_EQ(reported[0].rfind("Register kv_blendShapeMirrorTarget command failed.", 0), 0u) << reported[0];
    for (const std::string& name : registrationOrder)
        EXPECT_EQ(ownedByPlugin(name), name != "kv_blendShapeMirrorTarget") << name;

    // Unloading cannot remove what it did not register: reported, the rest removed.
    host::messageLog().clearHistory();
    EXPECT_TRUE(uninitializePlugin(MObject()));
    const auto unloadReported = errors();
    ASSERT_EQ(unloadReported.size(), 1u) << allMessages();
    EXPECT_EQ(unloadReported[0].rfind("Deregister kv_blendShapeMirrorTarget command failed.", 0), 0u);
    EXPECT_TRUE(registered("kv_blendShapeMirrorTarget")); // the other owner's command stays
    EXPECT_FALSE(registered("kv_blendShapeRemoveDeltas"));
    EXPECT_FALSE(registered("TALVENCompareDraggerToolContext"));
}

TEST_F(Registration, TheLastStepDecidesTheStatus) {
    ASSERT_TRUE(uninitializePlugin(MObject()));
    squat("TALVENCompareDraggerToolContext");
    host::messageLog().clearHistory();

    EXPECT_FALSE(initializePlugin(MObject()));
    ASSERT_EQ(errors().size(), 1u) << allMessages();
    EXPECT_EQ(errors()[0].rfind("Register TALVENCompareDraggerToolContext command failed.", 0), 0u);
    EXPECT_TRUE(ownedByPlugin("kv_sculptExtractDeltaMesh"));

    host::messageLog().clearHistory();
    EXPECT_FALSE(uninitializePlugin(MObject()));
    ASSERT_EQ(errors().size(), 1u) << allMessages();
    EXPECT_EQ(errors()[0].rfind("Deregister TALVENCompareDraggerToolContext command failed.", 0), 0u);
}

} // namespace
