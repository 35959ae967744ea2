// MGlobal services and result conversions: typed executeCommand results, MCommandResult, option
// variables, the active selection, time, identifiers.
#include "engine/Scene.h"
#include "session/Session.h"

#include <maya/MAnimControl.h>
#include <maya/MArgDatabase.h>
#include <maya/MCommandResult.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <maya/MUuid.h>

#include <gtest/gtest.h>

#include <map>

namespace {

// cmdfwResult kind: sets a result of that kind (the append kinds go through appendToResult).
const std::map<std::string, void (*)()> kResultSetters = {
    {"int", [] { MPxCommand::setResult(3); }},
    {"unsigned", [] { MPxCommand::setResult(4u); }},
    {"bool", [] { MPxCommand::setResult(true); }},
    {"double", [] { MPxCommand::setResult(-2.75); }},
    {"huge", [] { MPxCommand::setResult(1e12); }},
    {"string", [] { MPxCommand::setResult("text"); }},
    {"ints",
     [] {
         MPxCommand::setResult(MIntArray(std::vector<int>{1, 2}));
     }},
    {"doubles",
     [] {
         MPxCommand::setResult(MDoubleArray(std::vector<double>{1.5, 2}));
     }},
    {"strings",
     [] {
         MPxCommand::setResult(MStringArray(std::vector<MString>{"a", "b c"}));
     }},
    {"appendNumbers",
     [] {
         MPxCommand::appendToResult(1);
         MPxCommand::appendToResult(2);
         MPxCommand::appendToResult(0.5);
     }},
    {"appendStrings",
     [] {
         MPxCommand::appendToResult("x");
         MPxCommand::appendToResult(MString("y"));
     }},
    {"appendMixed",
     [] {
         MPxCommand::setResult(1);
         MPxCommand::appendToResult("fresh");
     }},
};

class ResultCommand : public MPxCommand {
public:
    static void* creator() { return new ResultCommand; }
    MStatus doIt(const MArgList& args) override {
        auto setter = kResultSetters.find(args.asString(0).str());
        if (setter != kResultSetters.end()) setter->second();
        return MS::kSuccess;
    }
};

class GlobalTest : public ::testing::Test {
protected:
    void SetUp() override {
        host::resetScene();
        host::messageLog().clearHistory();
        MObject object;
        MFnPlugin plugin(object);
        ASSERT_TRUE(plugin.registerCommand("cmdfwResult", ResultCommand::creator));
    }
    void TearDown() override {
        MObject object;
        MFnPlugin plugin(object);
        EXPECT_TRUE(plugin.deregisterCommand("cmdfwResult"));
    }
};

template <class T> std::string show(const T& value) {
    return std::to_string(value);
}
std::string show(const MString& value) {
    return '"' + value.str() + '"';
}
template <class A> std::string showArray(const A& values) {
    std::string text = "[";
    for (unsigned int i = 0; i < values.length(); ++i) text += (i ? " " : "") + show(values[i]);
    return text + "]";
}
std::string show(const MIntArray& values) {
    return showArray(values);
}
std::string show(const MDoubleArray& values) {
    return showArray(values);
}
std::string show(const MStringArray& values) {
    return showArray(values);
}

// The result read as T through MCommandResult, or "fail".
template <class T> std::string read(const char* kind) {
    MCommandResult result;
    if (!MGlobal::executeCommand(MString("cmdfwResult ") + kind, result)) return "command failed";
    T value{};
    return result.getResult(value) ? show(value) : "fail";
}

struct ConversionCase {
    const char* kind;
    MCommandResult::Type type;
    const char* asInt;
    const char* asDouble;
    const char* asString;
    const char* asInts;
    const char* asDoubles;
    const char* asStrings;
};

TEST_F(GlobalTest, CommandResultsConvert) {
    const ConversionCase cases[] = {
        {"int", MCommandResult::kInt, "3", "3.000000", "fail", "[3]", "[3.000000]", "fail"},
        {"unsigned", MCommandResult::kInt, "4", "4.000000", "fail", "[4]", "[4.000000]", "fail"},
        {"bool", MCommandResult::kInt, "1", "1.000000", "fail", "[1]", "[1.000000]", "fail"},
        {"double", MCommandResult::kDouble, "-2", "-2.750000", "fail", "[-2]", "[-2.750000]", "fail"},
        {"huge", MCommandResult::kDouble, "fail", "1000000000000.000000", "fail", "fail",
         "[1000000000000.000000]", "fail"},
        {"string", MCommandResult::kString, "fail", "fail", "\"text\"", "fail", "fail", "[\"text\"]"},
        {"ints", MCommandResult::kIntArray, "fail", "fail", "fail", "[1 2]", "[1.000000 2.000000]", "fail"},
        {"doubles", MCommandResult::kDoubleArray, "fail", "fail", "fail", "[1 2]", "[1.500000 2.000000]",
         "fail"},
        {"strings", MCommandResult::kStringArray, "fail", "fail", "fail", "fail", "fail", "[\"a\" \"b c\"]"},
        {"none", MCommandResult::kInvalid, "fail", "fail", "fail", "[]", "[]", "[]"},
        {"appendNumbers", MCommandResult::kDoubleArray, "fail", "fail", "fail", "[1 2 0]",
         "[1.000000 2.000000 0.500000]", "fail"},
        {"appendStrings", MCommandResult::kStringArray, "fail", "fail", "fail", "fail", "fail",
         "[\"x\" \"y\"]"},
        {"appendMixed", MCommandResult::kStringArray, "fail", "fail", "fail", "fail", "fail", "[\"fresh\"]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.kind);
        MCommandResult result;
        ASSERT_TRUE(MGlobal::executeCommand(MString("cmdfwResult ") + c.kind, result));
        EXPECT_EQ(result.resultType(), c.type);
        EXPECT_EQ(read<int>(c.kind), c.asInt);
        EXPECT_EQ(read<double>(c.kind), c.asDouble);
        EXPECT_EQ(read<MString>(c.kind), c.asString);
        EXPECT_EQ(read<MIntArray>(c.kind), c.asInts);
        EXPECT_EQ(read<MDoubleArray>(c.kind), c.asDoubles);
        EXPECT_EQ(read<MStringArray>(c.kind), c.asStrings);
    }
}

TEST_F(GlobalTest, TypedExecuteCommandResults) {
    int number = 0;
    EXPECT_TRUE(MGlobal::executeCommand("cmdfwResult double", number));
    EXPECT_EQ(number, -2);
    MString text = "kept";
    EXPECT_EQ(MGlobal::executeCommand("cmdfwResult ints", text), MS::kInvalidParameter);
    EXPECT_EQ(text, "kept");
    MStringArray strings;
    EXPECT_FALSE(MGlobal::executeCommand("cmdfwNoSuchCommand", strings));
    EXPECT_EQ(host::messageLog().history().back().text, "Cannot find procedure \"cmdfwNoSuchCommand\".");

    MStatus status;
    EXPECT_EQ(MGlobal::executeCommandStringResult("cmdfwResult doubles", false, false, &status), "1.5 2");
    EXPECT_TRUE(status);
    EXPECT_EQ(MGlobal::executeCommandStringResult("cmdfwResult int"), "3");
    MGlobal::executeCommandStringResult("cmdfwNoSuchCommand", false, false, &status);
    EXPECT_FALSE(status);
}

TEST_F(GlobalTest, OptionVariables) {
    EXPECT_TRUE(MGlobal::setOptionVarValue("cmdfwInt", 3));
    EXPECT_TRUE(MGlobal::setOptionVarValue("cmdfwDouble", 2.9));
    EXPECT_TRUE(MGlobal::setOptionVarValue("cmdfwString", MString("5,6,7")));
    bool exists = false;
    EXPECT_EQ(MGlobal::optionVarIntValue("cmdfwInt", &exists), 3);
    EXPECT_TRUE(exists);
    EXPECT_EQ(MGlobal::optionVarDoubleValue("cmdfwInt"), 3.0);
    EXPECT_EQ(MGlobal::optionVarIntValue("cmdfwDouble"), 2);
    EXPECT_EQ(MGlobal::optionVarStringValue("cmdfwDouble"), "2.9");
    EXPECT_EQ(MGlobal::optionVarStringValue("cmdfwString", &exists), "5,6,7");
    EXPECT_EQ(MGlobal::optionVarIntValue("cmdfwString", &exists), 0);
    EXPECT_TRUE(exists);
    EXPECT_EQ(MGlobal::optionVarDoubleValue("cmdfwMissing", &exists), 0.0);
    EXPECT_FALSE(exists);

    host::resetScene(); // option variables outlive scenes
    EXPECT_TRUE(MGlobal::optionVarExists("cmdfwInt"));
    EXPECT_TRUE(MGlobal::setOptionVarValue("cmdfwInt", MString("now text")));
    EXPECT_EQ(MGlobal::optionVarStringValue("cmdfwInt"), "now text");
    for (const char* name : {"cmdfwInt", "cmdfwDouble", "cmdfwString"}) MGlobal::removeOptionVar(name);
    EXPECT_FALSE(MGlobal::optionVarExists("cmdfwInt"));
    MGlobal::removeOptionVar("cmdfwInt"); // absent: nothing happens
}

// The active selection as "a b c".
std::string selection() {
    MSelectionList list;
    MGlobal::getActiveSelectionList(list);
    MStringArray names;
    list.getSelectionStrings(names);
    std::string text;
    for (const MString& name : names.vec()) text += (text.empty() ? "" : " ") + name.str();
    return text;
}

TEST_F(GlobalTest, SelectionAdjustments) {
    for (const char* name : {"a", "b", "c"}) {
        std::string error;
        ASSERT_TRUE(host::scene().createNode("transform", name, nullptr, &error)) << error;
    }
    MSelectionList ab, bc;
    ab.add(MString("a"));
    ab.add(MString("b"));
    bc.add(MString("b"));
    bc.add(MString("c"));

    ASSERT_TRUE(MGlobal::setActiveSelectionList(ab));
    EXPECT_EQ(selection(), "a b");
    MGlobal::setActiveSelectionList(bc, MGlobal::kAddToList);
    EXPECT_EQ(selection(), "a b c");
    MGlobal::setActiveSelectionList(ab, MGlobal::kRemoveFromList);
    EXPECT_EQ(selection(), "c");
    MGlobal::setActiveSelectionList(bc, MGlobal::kXORWithList);
    EXPECT_EQ(selection(), "b");
    MGlobal::setActiveSelectionList(bc, MGlobal::kAddToHeadOfList);
    EXPECT_EQ(selection(), "b c");
    ASSERT_TRUE(MGlobal::selectByName("a", MGlobal::kReplaceList));
    EXPECT_EQ(selection(), "a");
    EXPECT_FALSE(MGlobal::selectByName("zz"));
    EXPECT_EQ(selection(), "a");
    MGlobal::clearSelectionList();
    EXPECT_EQ(selection(), "");

    MObject node;
    MSelectionList list;
    list.add(MString("b"));
    ASSERT_TRUE(list.getDependNode(0, node));
    EXPECT_TRUE(MGlobal::deleteNode(node));
    EXPECT_EQ(host::scene().findNode("b"), nullptr);
    EXPECT_FALSE(MGlobal::deleteNode(node));
    MObject null;
    EXPECT_FALSE(MGlobal::deleteNode(null));
}

TEST_F(GlobalTest, MessagesAndState) {
    MGlobal::displayInfo("i");
    MGlobal::displayWarning("w");
    MGlobal::displayError("e");
    MPxCommand::displayWarning("pw");
    const auto& history = host::messageLog().history();
    ASSERT_EQ(history.size(), 4u);
    EXPECT_EQ(history[0].kind, host::MessageKind::Info);
    EXPECT_EQ(history[1].kind, host::MessageKind::Warning);
    EXPECT_EQ(history[2].kind, host::MessageKind::Error);
    EXPECT_EQ(history[3].text, "pw");
    EXPECT_EQ(MGlobal::mayaState(), MGlobal::kBatch);

    MAnimControl::setCurrentTime(MTime(0.5, MTime::kSeconds));
    EXPECT_DOUBLE_EQ(host::scene().currentTime(), 12.0);
    EXPECT_DOUBLE_EQ(MAnimControl::currentTime().as(MTime::kFilm), 12.0);
}

TEST(UuidTest, RoundTripsThroughText) {
    MUuid id;
    EXPECT_FALSE(id.valid());
    id.generate();
    EXPECT_TRUE(id.valid());
    MStatus status;
    const MUuid copy(id.asString(), &status);
    EXPECT_TRUE(status);
    EXPECT_EQ(copy, id);
    EXPECT_EQ(MUuid("0123abcd-4567-89ef-0123-456789ABCDEF").asString(),
              "0123ABCD-4567-89EF-0123-456789ABCDEF");
    for (const char* bad : {"", "0123abcd-4567-89ef-0123-456789ABCDE", "0123abcd+4567-89ef-0123-456789ABCDEF",
                            "0123abcg-4567-89ef-0123-456789ABCDEF"}) {
        MUuid parsed(bad, &status);
        EXPECT_FALSE(status) << bad;
        EXPECT_FALSE(parsed.valid());
    }
}

} // namespace
