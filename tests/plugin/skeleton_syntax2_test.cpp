// Syntax and help of the delta exchange, topology, region, mesh evaluation and sculpt commands, and
// the compare dragger's context command: every flag parses by either name with its declared argument
// type and multi-use, objects come from the arguments or the selection, "-h" answers the class's
// help text through the loaded plug-in, and each help text lists exactly the declared flags.
#include "PluginSession.h"
#include "api/command/ContextRegistry.h"
#include "plugin/TALVENCompareDraggerTool.h"
#include "plugin/blendShapeExportData.h"
#include "plugin/blendShapeImportData.h"
#include "plugin/editRegionMap.h"
#include "plugin/meshEvaluate.h"
#include "plugin/polyMapVertexOrder.h"
#include "plugin/polySymmetry.h"
#include "plugin/sculptExtractDeltaMesh.h"

#include <maya/MArgDatabase.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

enum class Arg { none, integer, real, text };

struct Flag {
    const char* shortName;
    const char* longName;
    Arg arg;
    bool multiUse;
};

struct CommandCase {
    const char* name;
    MSyntax (*newSyntax)();
    const char* helpText;
    std::vector<Flag> flags; // in help text order, without -h/-help
};

const std::vector<CommandCase>& commandCases() {
    static const std::vector<CommandCase> cases = {
        {"kv_blendShapeExportData",
         blendShapeExportData::newSyntax,
         blendShapeExportData_helpText,
         {{"-cn", "-channelName", Arg::text, true},
          {"-d", "-delta", Arg::none, false},
          {"-fn", "-fileName", Arg::text, false},
          {"-i", "-index", Arg::integer, true}}},
        {"kv_blendShapeImportData",
         blendShapeImportData::newSyntax,
         blendShapeImportData_helpText,
         {{"-d", "-delta", Arg::none, false},
          {"-di", "-destinationIndex", Arg::integer, true},
          {"-fn", "-fileName", Arg::text, false},
          {"-ld", "-listDeltas", Arg::none, false},
          {"-rm", "-remap", Arg::none, false},
          {"-si", "-sourceIndex", Arg::integer, true}}},
        {"kv_polyMapVertexOrder",
         polyMapVertexOrder::newSyntax,
         polyMapVertexOrder_helpText,
         {{"-atm", "-addToMap", Arg::none, false},
          {"-a", "-axis", Arg::text, false},
          {"-ck", "-check", Arg::none, false},
          {"-ct", "-copyTo", Arg::text, false},
          {"-sl", "-select", Arg::none, false},
          {"-sm", "-selectMapped", Arg::none, false},
          {"-su", "-selectUnmapped", Arg::none, false},
          {"-tol", "-tolerance", Arg::real, false},
          {"-v", "-verbose", Arg::integer, false}}},
        {"kv_polySymmetry",
         polySymmetry::newSyntax,
         polySymmetry_helpText,
         {{"-atm", "-addToMap", Arg::none, false},
          {"-aom", "-applyOrderMap", Arg::text, false},
          {"-ax", "-axis", Arg::text, false},
          {"-dir", "-direction", Arg::integer, false},
          {"-tol", "-tolerance", Arg::real, false}}},
        {"kv_editRegionMap",
         editRegionMap::newSyntax,
         editRegionMap_helpText,
         {{"-atm", "-addToMap", Arg::none, false},
          {"-ap", "-append", Arg::none, false},
          {"-cl", "-clear", Arg::none, false},
          {"-col", "-color", Arg::integer, false},
          {"-dw", "-distributeWeight", Arg::integer, false},
          {"-e", "-edit", Arg::none, false},
          {"-ex", "-export", Arg::none, false},
          {"-fn", "-fileName", Arg::text, false},
          {"-im", "-import", Arg::none, false},
          {"-i", "-index", Arg::integer, false},
          {"-m", "-mesh", Arg::text, false},
          {"-res", "-restore", Arg::integer, false}}},
        {"kv_meshEvaluate",
         meshEvaluate::newSyntax,
         meshEvaluate_helpText,
         {{"-i", "-intermediate", Arg::none, false}}},
        {"kv_sculptExtractDeltaMesh",
         sculptExtractDeltaMesh::newSyntax,
         sculptExtractDeltaMesh_helpText,
         {{"-c", "-compare", Arg::none, false},
          {"-m", "-mesh", Arg::text, false},
          {"-om", "-originalMesh", Arg::text, false}}},
    };
    return cases;
}

// The argument word of a flag's use number `use` (0 or 1).
std::string sampleWord(Arg arg, int use) {
    switch (arg) {
    case Arg::integer:
        return use == 0 ? "3" : "-4";
    case Arg::real:
        return use == 0 ? "0.25" : "-1.5";
    case Arg::text:
        return use == 0 ? "abc" : "def";
    case Arg::none:
        break;
    }
    return "";
}

const char* helpType(Arg arg) {
    switch (arg) {
    case Arg::integer:
        return "<int>";
    case Arg::real:
        return "<float>";
    case Arg::text:
        return "<string>";
    case Arg::none:
        break;
    }
    return "<n/a>";
}

// Every flag `uses` times (multi-use flags always twice), then the objects.
MArgList callWords(const CommandCase& command, bool longNames, int uses,
                   const std::vector<std::string>& objects = {}) {
    MArgList args;
    for (const Flag& flag : command.flags) {
        for (int use = 0; use < (flag.multiUse ? 2 : uses); ++use) {
            args.addArg(MString(longNames ? flag.longName : flag.shortName));
            if (flag.arg != Arg::none) args.addArg(MString(sampleWord(flag.arg, use).c_str()));
        }
    }
    for (const std::string& object : objects) args.addArg(MString(object.c_str()));
    return args;
}

void expectArgument(const MArgDatabase& data, const Flag& flag, const char* name, unsigned int use) {
    MArgList list;
    ASSERT_TRUE(data.getFlagArgumentList(name, use, list));
    const std::string expected = sampleWord(flag.arg, static_cast<int>(use));
    MStatus status;
    switch (flag.arg) {
    case Arg::integer:
        EXPECT_EQ(list.asInt(0, &status), std::stoi(expected));
        break;
    case Arg::real:
        EXPECT_DOUBLE_EQ(list.asDouble(0, &status), std::stod(expected));
        break;
    case Arg::text:
        EXPECT_STREQ(list.asString(0, &status).asChar(), expected.c_str());
        break;
    case Arg::none:
        EXPECT_EQ(list.length(), 0u);
        return;
    }
    EXPECT_TRUE(status);
}

std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::vector<std::string> splitWords(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

class SkeletonSyntax2Test : public PluginSession {};

TEST_F(SkeletonSyntax2Test, EveryFlagParsesByEitherNameWithItsType) {
    for (const CommandCase& command : commandCases()) {
        for (bool longNames : {false, true}) {
            SCOPED_TRACE(std::string(command.name) + (longNames ? " long names" : " short names"));
            MStatus status;
            const MArgDatabase data(command.newSyntax(), callWords(command, longNames, 1), &status);
            ASSERT_TRUE(status);
            for (const Flag& flag : command.flags) {
                SCOPED_TRACE(flag.longName);
                // Asked by the other name than the one typed.
                const char* asked = longNames ? flag.shortName : flag.longName;
                EXPECT_TRUE(data.isFlagSet(asked));
                ASSERT_EQ(data.numberOfFlagUses(asked), flag.multiUse ? 2u : 1u);
                for (unsigned int use = 0; use < data.numberOfFlagUses(asked); ++use) {
                    expectArgument(data, flag, asked, use);
                }
            }
            EXPECT_FALSE(data.isFlagSet("-h"));
        }
    }
}

TEST_F(SkeletonSyntax2Test, OnlyMultiUseFlagsKeepRepeatedUses) {
    for (const CommandCase& command : commandCases()) {
        SCOPED_TRACE(command.name);
        MStatus status;
        const MArgDatabase data(command.newSyntax(), callWords(command, true, 2), &status);
        ASSERT_TRUE(status);
        for (const Flag& flag : command.flags) {
            EXPECT_EQ(data.numberOfFlagUses(flag.longName), flag.multiUse ? 2u : 1u) << flag.longName;
        }
    }
}

TEST_F(SkeletonSyntax2Test, NumericFlagsRejectWordsOfAnotherType) {
    for (const CommandCase& command : commandCases()) {
        for (const Flag& flag : command.flags) {
            if (flag.arg != Arg::integer && flag.arg != Arg::real) continue;
            SCOPED_TRACE(std::string(command.name) + " " + flag.longName);
            MArgList args;
            args.addArg(MString(flag.shortName)).addArg(MString(flag.arg == Arg::integer ? "1.5" : "abc"));
            MStatus status;
            const MArgDatabase data(command.newSyntax(), args, &status);
            EXPECT_FALSE(status);
        }
    }
}

TEST_F(SkeletonSyntax2Test, ObjectsComeFromArgumentsOrTheSelection) {
    must("polyCube -n box");
    must("select -cl");
    for (const CommandCase& command : commandCases()) {
        SCOPED_TRACE(command.name);
        MSelectionList objects;
        MStatus status;
        const MArgDatabase given(command.newSyntax(), callWords(command, false, 1, {"box"}), &status);
        ASSERT_TRUE(status);
        ASSERT_TRUE(given.getObjects(objects));
        EXPECT_EQ(objects.length(), 1u);

        // Nothing given and nothing selected is accepted by the parser.
        const MArgDatabase none(command.newSyntax(), MArgList(), &status);
        ASSERT_TRUE(status);
        ASSERT_TRUE(none.getObjects(objects));
        EXPECT_EQ(objects.length(), 0u);
    }
    must("select box");
    for (const CommandCase& command : commandCases()) {
        SCOPED_TRACE(command.name);
        MSelectionList objects;
        MStatus status;
        const MArgDatabase selected(command.newSyntax(), MArgList(), &status);
        ASSERT_TRUE(status);
        ASSERT_TRUE(selected.getObjects(objects));
        EXPECT_EQ(objects.length(), 1u);
    }
}

TEST_F(SkeletonSyntax2Test, HelpAnswersThroughThePluginVerbatim) {
    for (const CommandCase& command : commandCases()) {
        SCOPED_TRACE(command.name);
        for (const char* help : {" -h", " -help"}) {
            MString result;
            ASSERT_TRUE(run(command.name + std::string(help), result));
            EXPECT_STREQ(result.asChar(), command.helpText);
        }
        // Other flags beside -h are ignored.
        MString result;
        const Flag& first = command.flags.front();
        const std::string call =
            std::string(command.name) + " " + first.shortName + " " + sampleWord(first.arg, 0) + " -h";
        ASSERT_TRUE(run(call, result));
        EXPECT_STREQ(result.asChar(), command.helpText);
    }
}

TEST_F(SkeletonSyntax2Test, HelpTextListsTheDeclaredFlagsInAlignedColumns) {
    for (const CommandCase& command : commandCases()) {
        SCOPED_TRACE(command.name);
        const std::string text = command.helpText;
        const std::vector<std::string> lines = splitLines(text);
        const std::size_t flagCount = command.flags.size() + 1;
        ASSERT_EQ(lines.size(), 4 + flagCount + 3);
        EXPECT_EQ(lines[0], "");
        EXPECT_EQ(lines[1].rfind("Description: ", 0), 0u);
        EXPECT_EQ(lines[1].back(), '.');
        EXPECT_EQ(lines[2], "");
        EXPECT_EQ(lines[3], std::string("Flags: ") + command.name);

        std::vector<Flag> expected = {{"-h", "-help", Arg::none, false}};
        expected.insert(expected.end(), command.flags.begin(), command.flags.end());
        const std::string& helpLine = lines[4];
        const char* const helpWords[] = {"-h", "-help", "<n/a>", "this message"};
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::string& line = lines[4 + i];
            SCOPED_TRACE(line);
            const std::vector<std::string> words = splitWords(line);
            ASSERT_GE(words.size(), 4u);
            EXPECT_EQ(words[0], expected[i].shortName);
            EXPECT_EQ(words[1], expected[i].longName);
            EXPECT_EQ(words[2], helpType(expected[i].arg));
            // Each column starts where it starts on the -h line.
            std::size_t at = 0;
            for (std::size_t column = 0; column < 4; ++column) {
                at = line.find(words[column], at);
                EXPECT_EQ(at, helpLine.find(helpWords[column])) << "column " << column;
                at += words[column].size();
            }
        }
        EXPECT_EQ(helpLine.substr(helpLine.find("this")), "this message");
        const std::size_t tail = 4 + flagCount;
        EXPECT_EQ(lines[tail], "Usage: Execute the command with the following arguments:");
        EXPECT_EQ(lines[tail + 1].rfind(std::string("Execute: ") + command.name, 0), 0u);
        EXPECT_EQ(lines[tail + 2].rfind("Return Value: ", 0), 0u);
        EXPECT_EQ(text.back(), '\n');
    }
}

TEST_F(SkeletonSyntax2Test, ContextCommandCreatesTheCompareDragger) {
    MString name;
    ASSERT_TRUE(run("TALVENCompareDraggerToolContext", name));
    ASSERT_GT(name.length(), 0u);
    MPxContext* context = host::findContext(name.asChar());
    ASSERT_NE(context, nullptr);
    EXPECT_STREQ(context->titleString().asChar(), "TALVEN Compare Dragger Tool");
    MEvent event;
    context->toolOnSetup(event);
    EXPECT_STREQ(context->helpString().asChar(),
                 "Change the compare value by holding the left mouse button and sliding left/right");
}

} // namespace
