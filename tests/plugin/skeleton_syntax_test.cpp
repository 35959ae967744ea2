// Syntax and help of the blend-shape weight, target editing and tweak commands: each syntax takes
// every flag by short and by long name with its argument type, objects come from the call or the
// selection, and "-h" answers the help text, whose aligned columns list exactly the declared flags.
#include "engine/Scene.h"
#include "plugin/blendShapeEditWeights.h"
#include "plugin/blendShapeExtractTarget.h"
#include "plugin/blendShapeMirrorTarget.h"
#include "plugin/blendShapeRemoveDeltas.h"
#include "plugin/blendShapeReplaceTarget.h"
#include "plugin/blendShapeSetInbetweenPosition.h"
#include "plugin/blendShapeSplitTarget.h"
#include "plugin/editTweakNode.h"
#include "session/Session.h"

#include <maya/MArgDatabase.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

enum class Arg { none, boolean, integer, number, text };

struct Flag {
    const char* shortName;
    const char* longName;
    Arg arg;
    bool multiUse = false;
    const char* helpName = nullptr; // the short name the help text shows, when it differs
};

struct Command {
    const char* name;
    MSyntax (*newSyntax)();
    const char* helpText;
    std::vector<Flag> flags; // without -h/-help, which every command has
};

const std::vector<Command>& commands() {
    static const std::vector<Command> table = {
        {"kv_blendShapeEditWeights",
         blendShapeEditWeights::newSyntax,
         blendShapeEditWeights_helpText,
         {{"-aw", "-addWeights", Arg::none, false, "-add"},
          {"-del", "-delete", Arg::none},
          {"-ex", "-export", Arg::none},
          {"-flp", "-flip", Arg::none},
          {"-fl", "-flush", Arg::number},
          {"-f", "-freeze", Arg::none},
          {"-fp", "-freezePaint", Arg::none},
          {"-gi", "-getIndices", Arg::none},
          {"-gw", "-getWeights", Arg::none},
          {"-im", "-import", Arg::none},
          {"-iv", "-invert", Arg::none},
          {"-m", "-mirror", Arg::none},
          {"-sw", "-setWeights", Arg::none},
          {"-sc", "-skinCluster", Arg::text},
          {"-sub", "-subtract", Arg::none},
          {"-t", "-trim", Arg::none},
          {"-av", "-allValues", Arg::none},
          {"-ax", "-axis", Arg::text},
          {"-dir", "-direction", Arg::boolean},
          {"-fn", "-fileName", Arg::text},
          {"-i", "-index", Arg::integer},
          {"-ii", "-influenceIndex", Arg::integer},
          {"-ob", "-orderBased", Arg::text},
          {"-om", "-originalMesh", Arg::text},
          {"-sm", "-skinMesh", Arg::text},
          {"-ti", "-targetItem", Arg::integer},
          {"-tol", "-tolerance", Arg::number},
          {"-w", "-weight", Arg::number, true},
          {"-wi", "-weightIndex", Arg::integer, true}}},
        {"kv_blendShapeExtractTarget",
         blendShapeExtractTarget::newSyntax,
         blendShapeExtractTarget_helpText,
         {{"-i", "-index", Arg::integer},
          {"-om", "-originalMesh", Arg::text},
          {"-ti", "-targetItem", Arg::integer}}},
        {"kv_blendShapeReplaceTarget",
         blendShapeReplaceTarget::newSyntax,
         blendShapeReplaceTarget_helpText,
         {{"-i", "-index", Arg::integer},
          {"-m", "-mesh", Arg::text},
          {"-om", "-originalMesh", Arg::text},
          {"-ti", "-targetItem", Arg::integer}}},
        {"kv_blendShapeRemoveDeltas",
         blendShapeRemoveDeltas::newSyntax,
         blendShapeRemoveDeltas_helpText,
         {{"-i", "-index", Arg::integer}, {"-ti", "-targetItem", Arg::integer}}},
        {"kv_blendShapeSetInbetweenPosition",
         blendShapeSetInbetweenPosition::newSyntax,
         blendShapeSetInbetweenPosition_helpText,
         {{"-i", "-index", Arg::integer},
          {"-sp", "-sourcePosition", Arg::integer},
          {"-tp", "-targetPosition", Arg::integer}}},
        {"kv_blendShapeSplitTarget",
         blendShapeSplitTarget::newSyntax,
         blendShapeSplitTarget_helpText,
         {{"-ax", "-axis", Arg::text},
          {"-b", "-blend", Arg::number},
          {"-c", "-center", Arg::number},
          {"-i", "-index", Arg::integer},
          {"-iv", "-invert", Arg::integer},
          {"-om", "-originalMesh", Arg::text},
          {"-tol", "-tolerance", Arg::number}}},
        {"kv_blendShapeMirrorTarget",
         blendShapeMirrorTarget::newSyntax,
         blendShapeMirrorTarget_helpText,
         {{"-ax", "-axis", Arg::text},
          {"-dir", "-direction", Arg::boolean},
          {"-f", "-flip", Arg::boolean},
          {"-ib", "-inbetween", Arg::boolean},
          {"-m", "-mesh", Arg::text},
          {"-ob", "-orderBased", Arg::text},
          {"-om", "-originalMesh", Arg::text},
          {"-sc", "-skipComponents", Arg::text},
          {"-si", "-sourceIndex", Arg::integer},
          {"-ti", "-targetIndex", Arg::integer},
          {"-tn", "-targetName", Arg::text},
          {"-tit", "-targetItem", Arg::integer},
          {"-tol", "-tolerance", Arg::number},
          {"-tm", "-tweakMesh", Arg::text},
          {"-t", "-type", Arg::integer}}},
        {"kv_editTweakNode",
         editTweakNode::newSyntax,
         editTweakNode_helpText,
         {{"-b", "-bake", Arg::boolean}, {"-om", "-originalMesh", Arg::text}}},
    };
    return table;
}

// The k-th use of a flag gets the value k + 1 (as text "word1", "word2" for strings).
void addValue(MArgList& args, Arg arg, int use) {
    switch (arg) {
    case Arg::none:
        break;
    case Arg::boolean:
        args.addArg(true);
        break;
    case Arg::integer:
        args.addArg(use + 1);
        break;
    case Arg::number:
        args.addArg(use + 1.5);
        break;
    case Arg::text:
        args.addArg(MString("word") + (use + 1));
        break;
    }
}

// The value of the first use read back with the flag's type, as text.
std::string readValue(const MArgDatabase& db, const char* flag, Arg arg) {
    bool b = false;
    int i = 0;
    double d = 0;
    MString s;
    switch (arg) {
    case Arg::none:
        return "";
    case Arg::boolean:
        return db.getFlagArgument(flag, 0, b) ? (b ? "true" : "false") : "?";
    case Arg::integer:
        return db.getFlagArgument(flag, 0, i) ? std::to_string(i) : "?";
    case Arg::number:
        return db.getFlagArgument(flag, 0, d) ? std::to_string(d) : "?";
    case Arg::text:
        return db.getFlagArgument(flag, 0, s) ? s.asChar() : "?";
    }
    return "?";
}

std::string expectedValue(Arg arg) {
    switch (arg) {
    case Arg::none:
        return "";
    case Arg::boolean:
        return "true";
    case Arg::integer:
        return "1";
    case Arg::number:
        return std::to_string(1.5);
    case Arg::text:
        return "word1";
    }
    return "?";
}

class SkeletonSyntaxTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { host::startSession(host::commandTable(), host::messageLog()); }
    void SetUp() override {
        host::resetScene();
        ASSERT_TRUE(MGlobal::executeCommand("createNode transform -n skeletonObject"));
    }
};

TEST_F(SkeletonSyntaxTest, EveryFlagParsesByShortAndLongNameWithItsArgumentType) {
    for (const Command& command : commands()) {
        for (const bool longNames : {false, true}) {
            SCOPED_TRACE(std::string(command.name) + (longNames ? " long names" : " short names"));
            MArgList args;
            args.addArg(MString(longNames ? "-help" : "-h"));
            for (const Flag& flag : command.flags) {
                for (int use = 0; use < (flag.multiUse ? 2 : 1); ++use) {
                    args.addArg(MString(longNames ? flag.longName : flag.shortName));
                    addValue(args, flag.arg, use);
                }
            }
            args.addArg(MString("skeletonObject"));
            MStatus status;
            const MArgDatabase db(command.newSyntax(), args, &status);
            ASSERT_TRUE(status);
            EXPECT_TRUE(db.isFlagSet("-h"));
            EXPECT_TRUE(db.isFlagSet("-help"));
            for (const Flag& flag : command.flags) {
                SCOPED_TRACE(flag.longName);
                EXPECT_TRUE(db.isFlagSet(flag.shortName));
                EXPECT_EQ(db.numberOfFlagUses(flag.longName), flag.multiUse ? 2u : 1u);
                EXPECT_EQ(readValue(db, flag.shortName, flag.arg), expectedValue(flag.arg));
                if (flag.multiUse) {
                    MArgList second;
                    ASSERT_TRUE(db.getFlagArgumentList(flag.longName, 1, second));
                    EXPECT_EQ(second.asDouble(0), flag.arg == Arg::integer ? 2.0 : 2.5);
                }
            }
            MSelectionList objects;
            ASSERT_TRUE(db.getObjects(objects));
            EXPECT_EQ(objects.length(), 1u);
        }
    }
}

TEST_F(SkeletonSyntaxTest, ObjectsDefaultToTheActiveSelection) {
    for (const Command& command : commands()) {
        SCOPED_TRACE(command.name);
        for (const unsigned int selected : {0u, 1u}) {
            MGlobal::clearSelectionList();
            if (selected) {
                ASSERT_TRUE(MGlobal::selectByName("skeletonObject"));
            }
            MStatus status;
            const MArgDatabase db(command.newSyntax(), MArgList(), &status);
            ASSERT_TRUE(status); // zero objects are accepted by the parser
            MSelectionList objects;
            ASSERT_TRUE(db.getObjects(objects));
            EXPECT_EQ(objects.length(), selected);
        }
    }
}

TEST_F(SkeletonSyntaxTest, HelpFlagReturnsTheHelpTextVerbatim) {
    for (const Command& command : commands()) {
        for (const char* flag : {" -h", " -help"}) {
            SCOPED_TRACE(std::string(command.name) + flag);
            MString result;
            EXPECT_TRUE(MGlobal::executeCommand(MString(command.name) + flag, result));
            EXPECT_STREQ(result.asChar(), command.helpText);
        }
    }
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) result.push_back(line);
    return result;
}

// Flag lines are "    <short> <long> <type> <description>", each column where the -h line has it
// and at the same place in every text; they list exactly the syntax's flags, in order.
TEST_F(SkeletonSyntaxTest, HelpTextsListTheFlagsInAlignedColumns) {
    const std::set<std::string> types = {"<n/a>", "<int>", "<float>", "<double>", "<string>"};
    const std::string helpLine = lines(commands().front().helpText).at(4);
    const std::size_t longColumn = helpLine.find("-help"), typeColumn = helpLine.find("<n/a>"),
                      textColumn = helpLine.find("this message");
    ASSERT_EQ(helpLine.rfind("    -h ", 0), 0u) << helpLine;
    ASSERT_LT(typeColumn, textColumn);
    for (const Command& command : commands()) {
        SCOPED_TRACE(command.name);
        const std::vector<std::string> text = lines(command.helpText);
        ASSERT_GE(text.size(), 8u);
        EXPECT_EQ(text[3], std::string("Flags: ") + command.name);
        EXPECT_EQ(text[4], helpLine);
        const std::size_t usage = text.size() - 3;
        EXPECT_EQ(text[usage], "Usage: Execute the command with the following arguments:");

        std::vector<std::string> expected, listed;
        for (const Flag& flag : command.flags) {
            expected.push_back(std::string(flag.helpName ? flag.helpName : flag.shortName) +
                               (flag.arg == Arg::none ? " <n/a>" : " <arg>"));
        }
        bool modes = false, options = false;
        for (std::size_t i = 5; i < usage; ++i) {
            const std::string& line = text[i];
            if (line == "    modes:" && i == 5) {
                modes = true;
                continue;
            }
            if (line == "    options:" && modes && !options) {
                options = true;
                continue;
            }
            ASSERT_GT(line.size(), textColumn) << line;
            EXPECT_EQ(line.rfind("    -", 0), 0u) << line;
            EXPECT_EQ(line[longColumn], '-') << line;
            EXPECT_EQ(line[longColumn - 1], ' ') << line;
            EXPECT_EQ(line[typeColumn - 1], ' ') << line;
            EXPECT_EQ(line[textColumn - 1], ' ') << line;
            EXPECT_NE(line[textColumn], ' ') << line;
            const std::string type = line.substr(typeColumn, line.find(' ', typeColumn) - typeColumn);
            EXPECT_TRUE(types.count(type)) << line;
            listed.push_back(line.substr(4, line.find(' ', 4) - 4) + (type == "<n/a>" ? " <n/a>" : " <arg>"));
        }
        EXPECT_EQ(modes, options);
        EXPECT_EQ(listed, expected);
    }
}

} // namespace
