// The compare dragger driven through the host's tool commands: value, time and compare weight
// across scripted drags, the interface procedures it runs, and the cases that leave it inactive.
#include "PluginSession.h"

#include "api/command/ContextRegistry.h"
#include "commands/InterfaceProcedures.h"

#include <maya/MCursor.h>
#include <maya/MPxContext.h>

#include <string>
#include <vector>

namespace {

const std::string kCompare = "talvenSculpt_compareSculpt";
const std::string kReset = "talvenSculpt_resetCompare";

class CompareDraggerTest : public PluginSession {
protected:
    void SetUp() override {
        PluginSession::SetUp();
        must("createNode blendShape -n cmp; setAttr cmp.w[10000] 0; currentTime 3");
        ASSERT_TRUE(run("TALVENCompareDraggerToolContext", context));
        must("setToolTo " + std::string(context.asChar()));
        host::clearInterfaceProcedureCalls();
    }

    static void toolList(const std::string& list) {
        must("optionVar -sv TALVENSculptCompareToolList \"" + list + "\"");
    }

    static double number(const std::string& query) {
        double value = -1.0;
        EXPECT_TRUE(run(query, value)) << query;
        return value;
    }
    static double weight() { return number("getAttr cmp.w[10000]"); }
    static double time() { return number("currentTime -q"); }
    static const std::vector<std::string>& calls() { return host::interfaceProcedureCalls(); }

    MString context;
};

TEST_F(CompareDraggerTest, ScriptedDragDrivesWeightAndTimeThenReleaseRestores) {
    // From frame 10 to 20, sensitivity 1 (100 pixels for the whole range), back to frame 5.
    toolList("10,20,1,5,cmp");
    for (const char* form : {"", " -viewport2"}) {
        must("currentTime 3; setAttr cmp.w[10000] 0");
        host::clearInterfaceProcedureCalls();
        const struct {
            std::string event;
            double weight;
            double time;
        } steps[] = {
            {"-press 100 40", 0.0, 3.0}, {"-drag 150 10", 0.5, 15.0}, {"-drag 180 40", 0.8, 18.0},
            {"-drag 250 40", 1.0, 20.0}, {"-drag 99 40", 0.0, 10.0},  {"-drag 133 0", 0.33, 13.3},
            {"-release 0 0", 0.33, 5.0},
        };
        for (const auto& s : steps) {
            must("toolEvent" + std::string(form) + " " + s.event);
            EXPECT_NEAR(weight(), s.weight, 1e-6) << s.event << form;
            EXPECT_NEAR(time(), s.time, 1e-9) << s.event << form;
        }
        const std::vector<std::string> expected = {kCompare, kCompare, kCompare, kCompare, kCompare, kReset};
        EXPECT_EQ(calls(), expected) << form;
        // After the release the tool is inactive until the next press.
        must("toolEvent -drag 150 40 -release 150 40");
        EXPECT_EQ(calls(), expected);
    }
}

TEST_F(CompareDraggerTest, ToolListVariantsAndButtons) {
    const struct {
        const char* list; // null: the option variable is absent
        std::string events;
        double weight;
        double time;
        std::vector<std::string> calls;
    } cases[] = {
        {nullptr, "-press 0 0 -drag 50 0 -release 0 0", 0.0, 3.0, {}},
        {"10,20,1,5", "-press 0 0 -drag 50 0 -release 0 0", 0.0, 3.0, {}},
        {"10,20,1,5,cmp,6", "-press 0 0 -drag 50 0 -release 0 0", 0.0, 3.0, {}},
        {"10,20,1,5,", "-press 0 0 -drag 50 0 -release 0 0", 0.0, 3.0, {}},
        // Equal start and end: only the weight moves; the release still restores the time.
        {"10,10,1,5,cmp", "-press 0 0 -drag 50 0", 0.5, 3.0, {kCompare}},
        {"10,10,1,5,cmp", "-press 0 0 -drag 50 0 -release 0 0", 0.5, 5.0, {kCompare, kReset}},
        // Half the sensitivity needs twice the distance.
        {"0,100,0.5,0,cmp", "-press 0 0 -drag 50 0", 0.25, 25.0, {kCompare}},
        // The distance is a 16-bit difference: 60000 pixels to the right wrap to the left.
        {"0,100,1,0,cmp", "-press -30000 0 -drag 30000 0", 0.0, 0.0, {kCompare}},
        // Only the left button drags; the release does not look at the button.
        {"10,20,1,5,cmp", "-button middle -press 0 0 -drag 50 0 -release 0 0", 0.0, 5.0, {kReset}},
        {"10,20,1,5,cmp", "-button right -press 0 0 -drag 50 0", 0.0, 3.0, {}},
    };
    for (const auto& c : cases) {
        must("currentTime 3; setAttr cmp.w[10000] 0; optionVar -rm TALVENSculptCompareToolList");
        if (c.list) toolList(c.list);
        host::clearInterfaceProcedureCalls();
        must("toolEvent " + c.events);
        const std::string name = std::string(c.list ? c.list : "(none)") + " " + c.events;
        EXPECT_NEAR(weight(), c.weight, 1e-6) << name;
        EXPECT_NEAR(time(), c.time, 1e-9) << name;
        EXPECT_EQ(calls(), c.calls) << name;
    }
}

TEST_F(CompareDraggerTest, SetToolToSetsUpTheContext) {
    const MPxContext* tool = host::findContext(context.asChar());
    ASSERT_NE(tool, nullptr);
    EXPECT_EQ(tool->helpString(),
              "Change the compare value by holding the left mouse button and sliding left/right");
    EXPECT_EQ(tool->cursor(), MCursor::handCursor);
    MString current;
    ASSERT_TRUE(run("currentCtx", current));
    EXPECT_EQ(current, context);
}

TEST_F(CompareDraggerTest, ToolCommandsRejectBadInput) {
    for (const char* command :
         {"setToolTo ghostContext", "setToolTo", "toolEvent", "toolEvent -button up -press 0 0",
          "toolEvent -press 40000 0", "talvenSculpt_compareSculpt extra"})
        EXPECT_FALSE(run(command)) << command;
    must("setToolTo selectSuperContext");
    EXPECT_FALSE(run("toolEvent -press 0 0"));
    EXPECT_TRUE(calls().empty());
}

} // namespace
