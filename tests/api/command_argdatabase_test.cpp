// Parsing command words against a syntax: flags, typed arguments, objects and their errors.
#include "api/command/SyntaxData.h"
#include "engine/Scene.h"

#include <maya/MAngle.h>
#include <maya/MArgDatabase.h>
#include <maya/MDistance.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const char* const kLongNames[] = {"-help",  "-tolerance", "-count",  "-enable", "-name",
                                  "-index", "-pair",      "-weight", "-target"};

MSyntax testSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.addFlag("-n", "-count", MSyntax::kLong);
    syntax.addFlag("-on", "-enable", MSyntax::kBoolean);
    syntax.addFlag("-nm", "-name", MSyntax::kString);
    syntax.addFlag("-u", "-index", MSyntax::kUnsigned);
    syntax.addFlag("-p", "-pair", MSyntax::kLong, MSyntax::kDouble);
    syntax.addFlag("-w", "-weight", MSyntax::kDouble);
    syntax.makeFlagMultiUse("-weight");
    syntax.addFlag("-t", "-target", MSyntax::kSelectionItem);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

// Words separated by blanks; a word written "'x" is the quoted word x.
MArgList words(const std::string& text) {
    MArgList args;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find(' ', pos);
        if (end == std::string::npos) end = text.size();
        const std::string_view word = std::string_view(text).substr(pos, end - pos);
        const bool quoted = !word.empty() && word[0] == '\'';
        if (!word.empty()) args.addWord(word.substr(quoted ? 1 : 0), quoted);
        pos = end + 1;
    }
    return args;
}

// "count(-3) weight(1)(2) : a b" — every use of every set flag, then the objects.
std::string describe(const MArgDatabase& db) {
    std::string text;
    for (const char* flag : kLongNames) {
        const unsigned int uses = db.numberOfFlagUses(flag);
        if (uses == 0) continue;
        text += (text.empty() ? "" : " ") + std::string(flag + 1);
        for (unsigned int i = 0; i < uses; ++i) {
            MArgList args;
            EXPECT_TRUE(db.getFlagArgumentList(flag, i, args));
            text += "(";
            for (unsigned int k = 0; k < args.length(); ++k) text += (k ? "," : "") + args.asString(k).str();
            text += ")";
        }
    }
    MStringArray objects;
    EXPECT_TRUE(db.getObjects(objects));
    text += " :";
    for (const MString& object : objects.vec()) text += " " + object.str();
    return text;
}

class ArgDatabaseTest : public ::testing::Test {
protected:
    void SetUp() override {
        host::resetScene();
        host::messageLog().clearHistory();
        for (const char* name : {"a", "b", "c"}) {
            std::string error;
            ASSERT_TRUE(host::scene().createNode("transform", name, nullptr, &error)) << error;
        }
    }

    std::string errors() const {
        std::string text;
        for (const auto& message : host::messageLog().history()) {
            if (message.kind == host::MessageKind::Error) text += (text.empty() ? "" : " | ") + message.text;
        }
        return text;
    }
};

struct ParseCase {
    const char* name;
    const char* words;
    const char* parsed; // describe() on success, empty when the parse must fail
    const char* error;  // the error reported
};

TEST_F(ArgDatabaseTest, ParsesFlagsArgumentsAndObjects) {
    const ParseCase cases[] = {
        {"short name", "-tol 0.5", "tolerance(0.5) :", ""},
        {"long name", "-tolerance 0.5", "tolerance(0.5) :", ""},
        {"no-argument flag", "-h", "help() :", ""},
        {"negative numbers are values", "-n -3 -tol -0.5", "tolerance(-0.5) count(-3) :", ""},
        {"negative fraction without digit", "-tol -.5e1", "tolerance(-.5e1) :", ""},
        {"boolean words", "-on off", "enable(off) :", ""},
        {"two arguments", "-p 3 0.25", "pair(3,0.25) :", ""},
        {"multi-use keeps every use in order", "-w 1 -n 2 -w 0.5 -w 2", "count(2) weight(1)(0.5)(2) :", ""},
        {"single-use flag keeps the last value", "-n 1 -n 2", "count(2) :", ""},
        {"quoted dash word is a string", "-nm '-x", "name(-x) :", ""},
        {"string takes any word", "-nm 12", "name(12) :", ""},
        {"objects after flags", "-n 1 a b", "count(1) : a b", ""},
        {"selection item flag", "-t b", "target(b) :", ""},
        {"unknown flag", "-foo", "", "Invalid flag: -foo"},
        {"unknown long flag after good ones", "-n 1 -counts 2", "", "Invalid flag: -counts"},
        {"missing argument at the end", "-tol", "", "Flag '-tol' must be passed a double argument."},
        {"missing argument before a flag", "-tolerance -n 2", "",
         "Flag '-tolerance' must be passed a double argument."},
        {"missing second argument", "-p 3", "", "Flag '-p' must be passed a double argument."},
        {"missing integer", "-n", "", "Flag '-n' must be passed an integer argument."},
        {"missing string", "-nm", "", "Flag '-nm' must be passed a string argument."},
        {"fraction for an integer", "-n 2.5", "", "Invalid argument for flag -n: '2.5'."},
        {"word for a double", "-tol abc", "", "Invalid argument for flag -tol: 'abc'."},
        {"not a boolean", "-enable maybe", "", "Invalid argument for flag -enable: 'maybe'."},
        {"negative unsigned", "-u -1", "", "Invalid argument for flag -u: '-1'."},
        {"integer overflow", "-n 3000000000", "", "Invalid argument for flag -n: '3000000000'."},
        {"unknown object", "a zz", "", "No object matches name: zz"},
        {"unknown selection item", "-t zz", "", "No object matches name: zz"},
        {"quoted dash object is a name", "'-x", "", "No object matches name: -x"},
        {"flag after objects", "a -n 1", "", "Flags must come before objects: -n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        host::messageLog().clearHistory();
        MStatus status;
        const MArgDatabase db(testSyntax(), words(c.words), &status);
        if (*c.parsed) {
            ASSERT_TRUE(status) << errors();
            EXPECT_EQ(describe(db), c.parsed);
        } else {
            EXPECT_FALSE(status);
            EXPECT_FALSE(db.isFlagSet("-h"));
        }
        EXPECT_EQ(errors(), c.error);
    }
}

TEST_F(ArgDatabaseTest, ReadsTypedArguments) {
    MStatus status;
    const MArgDatabase db(testSyntax(), words("-tol -0.5 -n 7 -on yes -nm '-x -u 4 -p -2 1e-3 -t c"),
                          &status);
    ASSERT_TRUE(status) << errors();
    double tolerance = 0;
    int count = 0, pairFirst = 0;
    bool enable = false;
    MString name;
    unsigned int index = 0;
    double pairSecond = 0, countAsDouble = 0;
    EXPECT_TRUE(db.getFlagArgument("-tol", 0, tolerance));
    EXPECT_TRUE(db.getFlagArgument("count", 0, count)); // the dash may be left off
    EXPECT_TRUE(db.getFlagArgument("-count", 0, countAsDouble));
    EXPECT_TRUE(db.getFlagArgument("-enable", 0, enable));
    EXPECT_TRUE(db.getFlagArgument("-nm", 0, name));
    EXPECT_TRUE(db.getFlagArgument("-index", 0, index));
    EXPECT_TRUE(db.getFlagArgument("-pair", 0, pairFirst));
    EXPECT_TRUE(db.getFlagArgument("-pair", 1, pairSecond));
    EXPECT_EQ(tolerance, -0.5);
    EXPECT_EQ(count, 7);
    EXPECT_EQ(countAsDouble, 7.0);
    EXPECT_TRUE(enable);
    EXPECT_EQ(name, "-x");
    EXPECT_EQ(index, 4u);
    EXPECT_EQ(pairFirst, -2);
    EXPECT_EQ(pairSecond, 1e-3);

    MDistance distance;
    MAngle angle;
    MTime time;
    EXPECT_TRUE(db.getFlagArgument("-tol", 0, distance));
    EXPECT_TRUE(db.getFlagArgument("-tol", 0, angle));
    EXPECT_TRUE(db.getFlagArgument("-tol", 0, time));
    EXPECT_DOUBLE_EQ(distance.asCentimeters(), -0.5);
    EXPECT_DOUBLE_EQ(angle.asDegrees(), -0.5);
    EXPECT_DOUBLE_EQ(time.as(MTime::kFilm), -0.5);

    MSelectionList target;
    ASSERT_TRUE(db.getFlagArgument("-t", 0, target));
    MStringArray targetNames;
    target.getSelectionStrings(targetNames);
    ASSERT_EQ(targetNames.length(), 1u);
    EXPECT_EQ(targetNames[0], "c");

    // Reads that cannot succeed fail without touching the output.
    int untouched = 42;
    EXPECT_FALSE(db.getFlagArgument("-tol", 0, untouched)); // -0.5 is not an integer
    EXPECT_FALSE(db.getFlagArgument("-pair", 2, untouched));
    EXPECT_FALSE(db.getFlagArgument("-weight", 0, untouched)); // not given
    EXPECT_FALSE(db.getFlagArgument("-nosuch", 0, untouched));
    EXPECT_FALSE(db.getFlagArgument("-h", 0, untouched)); // takes no argument
    EXPECT_EQ(untouched, 42);

    MStatus flagStatus;
    EXPECT_TRUE(db.isFlagSet("-on", &flagStatus));
    EXPECT_TRUE(flagStatus);
    EXPECT_FALSE(db.isFlagSet("-w", &flagStatus));
    EXPECT_TRUE(flagStatus);
    EXPECT_FALSE(db.isFlagSet("-nosuch", &flagStatus));
    EXPECT_FALSE(flagStatus);
    EXPECT_EQ(db.numberOfFlagsUsed(), 7u);
}

// Uses read one after another into one list, and the parse outliving the words it was given.
TEST_F(ArgDatabaseTest, ReadsUsesIntoOneListAndOutlivesItsWords) {
    MStatus status;
    const MArgDatabase db(testSyntax(), words("-w 1 -w 2.5 -nm 'x -w -3 a"), &status);
    ASSERT_TRUE(status) << errors();
    MArgList use;
    std::vector<double> weights;
    for (unsigned int i = 0; i < db.numberOfFlagUses("-w"); ++i) {
        ASSERT_TRUE(db.getFlagArgumentList("-w", i, use));
        ASSERT_EQ(use.length(), 1u);
        weights.push_back(use.asDouble(0));
    }
    EXPECT_EQ(weights, (std::vector<double>{1, 2.5, -3}));
    const MArgList kept = use;
    ASSERT_TRUE(db.getFlagArgumentList("-nm", 0, use));
    EXPECT_EQ(use.asString(0), "x");
    EXPECT_FALSE(use.isQuoted(0)); // flag arguments come back as plain values
    EXPECT_EQ(kept.asDouble(0), -3.0);
    EXPECT_FALSE(db.getFlagArgumentList("-w", 3, use));
    MString name;
    EXPECT_TRUE(db.getFlagArgument("-nm", 0, name));
    EXPECT_EQ(name, "x");
}

TEST_F(ArgDatabaseTest, TakesObjectsFromTheSelectionWhenNoneAreGiven) {
    MSelectionList selected;
    selected.add(MString("c"));
    selected.add(MString("a"));
    host::scene().activeSelection() = selected.items();

    MStatus status;
    const MArgDatabase fromSelection(testSyntax(), words("-n 1"), &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(describe(fromSelection), "count(1) : c a");

    const MArgDatabase fromArgs(testSyntax(), words("b"), &status);
    ASSERT_TRUE(status);
    MSelectionList objects;
    ASSERT_TRUE(fromArgs.getObjects(objects));
    EXPECT_EQ(objects.length(), 1u);

    MSyntax noDefault = testSyntax();
    noDefault.useSelectionAsDefault(false);
    const MArgDatabase without(noDefault, words(""), &status);
    ASSERT_TRUE(status);
    ASSERT_TRUE(without.getObjects(objects));
    EXPECT_EQ(objects.length(), 0u);
}

struct CountCase {
    MSyntax::MObjectFormat format;
    unsigned int minimum, maximum;
    const char* words;
    const char* error;
};

TEST_F(ArgDatabaseTest, ChecksObjectCounts) {
    const CountCase cases[] = {
        {MSyntax::kSelectionList, 1, 1, "", "Not enough objects or values: expected at least 1, found 0."},
        {MSyntax::kSelectionList, 1, 1, "a b", "Too many objects or values: expected at most 1, found 2."},
        {MSyntax::kSelectionList, 1, 2, "a b", ""},
        {MSyntax::kStringObjects, 0, 3, "anything at all", ""},
        {MSyntax::kStringObjects, 2, 3, "x", "Not enough objects or values: expected at least 2, found 1."},
        {MSyntax::kNone, 0, 0, "x", "Too many objects or values: expected at most 0, found 1."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words);
        host::messageLog().clearHistory();
        MSyntax syntax;
        syntax.setObjectType(c.format, c.minimum, c.maximum);
        MStatus status;
        const MArgDatabase db(syntax, words(c.words), &status);
        EXPECT_EQ(static_cast<bool>(status), *c.error == '\0');
        EXPECT_EQ(errors(), c.error);
    }
}

TEST_F(ArgDatabaseTest, QueryAndEditModes) {
    MSyntax syntax = testSyntax();
    syntax.enableQuery();
    syntax.enableEdit();
    EXPECT_TRUE(syntax.canQuery());
    EXPECT_FALSE(syntax.addFlag("-q", "-quick")); // taken by -query

    MStatus status;
    const MArgDatabase query(syntax, words("-q -tol a"), &status); // flags take no argument in query mode
    ASSERT_TRUE(status) << errors();
    EXPECT_TRUE(query.isQuery());
    EXPECT_FALSE(query.isEdit());
    EXPECT_TRUE(query.isFlagSet("-tolerance"));

    const MArgDatabase edit(syntax, words("-edit -tol 2 a"), &status);
    ASSERT_TRUE(status) << errors();
    EXPECT_TRUE(edit.isEdit());
    double tolerance = 0;
    EXPECT_TRUE(edit.getFlagArgument("-tol", 0, tolerance));
    EXPECT_EQ(tolerance, 2.0);

    const MArgDatabase plain(testSyntax(), words("-q"), &status);
    EXPECT_FALSE(status);
    EXPECT_EQ(errors(), "Invalid flag: -q");
}

TEST(SyntaxTest, RejectsBadDeclarations) {
    MSyntax syntax;
    EXPECT_TRUE(syntax.addFlag("-a", "-alpha", MSyntax::kDouble));
    EXPECT_FALSE(syntax.addFlag("-a", "-another"));
    EXPECT_FALSE(syntax.addFlag("-b", "-alpha"));
    EXPECT_FALSE(syntax.addFlag("", "-empty"));
    EXPECT_FALSE(syntax.makeFlagMultiUse("-nosuch"));
    EXPECT_FALSE(syntax.setObjectType(MSyntax::kSelectionList, 3, 1));
    EXPECT_TRUE(syntax.setObjectType(MSyntax::kSelectionList, 1, 3));
    EXPECT_EQ(syntax.minObjects(), 1u);
    EXPECT_EQ(syntax.maxObjects(), 3u);

    // Copies share one description, as appendSyntax relies on.
    MSyntax copy = syntax;
    EXPECT_TRUE(copy.addFlag("-c", "-charlie"));
    EXPECT_FALSE(syntax.addFlag("-c", "-charlie"));
}

// The flag index survives flags being added in numbers and -query being taken out again.
TEST(SyntaxTest, FindsEveryFlagByEitherName) {
    MSyntax syntax;
    syntax.enableQuery();
    for (int i = 0; i < 100; ++i) {
        const std::string n = std::to_string(i);
        ASSERT_TRUE(syntax.addFlag(("-f" + n).c_str(), ("-flag" + n).c_str(), MSyntax::kLong));
    }
    syntax.enableQuery(false);
    const host::SyntaxData& data = syntax.data();
    for (int i = 0; i < 100; ++i) {
        const std::string n = std::to_string(i);
        for (const std::string& name : {"-f" + n, "f" + n, "-flag" + n, "flag" + n}) {
            const int index = data.findFlag(name);
            ASSERT_GE(index, 0) << name;
            EXPECT_EQ(data.flags()[static_cast<std::size_t>(index)].longName, "-flag" + n) << name;
        }
    }
    for (const char* unknown : {"", "-", "--f1", "-f100", "-q", "-query", "-fl", "-flag"})
        EXPECT_LT(data.findFlag(unknown), 0) << unknown;
}

TEST(ArgListTest, ReadsWords) {
    const MArgList args = words("12 -2.5 on text '-q -q");
    MStatus status;
    EXPECT_EQ(args.length(), 6u);
    EXPECT_EQ(args.asInt(0, &status), 12);
    EXPECT_TRUE(status);
    EXPECT_EQ(args.asDouble(1), -2.5);
    EXPECT_TRUE(args.asBool(2, &status));
    EXPECT_TRUE(status);
    EXPECT_EQ(args.asString(3), "text");
    args.asInt(3, &status);
    EXPECT_FALSE(status);
    args.asInt(1, &status);
    EXPECT_FALSE(status);
    args.asString(6, &status);
    EXPECT_FALSE(status);
    EXPECT_EQ(args.flagIndex("-q", "-query"), 5u); // the quoted "-q" is a value
    EXPECT_EQ(args.flagIndex("-x"), MArgList::kInvalidArgIndex);

    MArgList built;
    built.addArg(3).addArg(0.25).addArg(true).addArg(MString("w"));
    EXPECT_EQ(built.asInt(0), 3);
    EXPECT_EQ(built.asDouble(1), 0.25);
    EXPECT_TRUE(built.asBool(2));
    EXPECT_EQ(built.asString(3), "w");
}

} // namespace
