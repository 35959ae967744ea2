// Plug-in commands through the command table: registration, results, undo and redo, nesting, tool
// contexts, and the framework's built-in commands.
#include "api/command/ContextRegistry.h"
#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>
#include <maya/MStringArray.h>

#include <gtest/gtest.h>

namespace {

int gCounter = 0;
int gLiveCommands = 0;

// cmdfwAdd [-fail] n: adds n to gCounter; undoable unless told -keep.
class AddCommand : public MPxCommand {
public:
    AddCommand() { ++gLiveCommands; }
    ~AddCommand() override { --gLiveCommands; }
    static void* creator() { return new AddCommand; }
    static MSyntax newSyntax() {
        MSyntax syntax;
        syntax.addFlag("-f", "-fail");
        syntax.addFlag("-k", "-keep");
        syntax.setObjectType(MSyntax::kStringObjects, 1, 1);
        return syntax;
    }
    MStatus doIt(const MArgList& args) override {
        MStatus status;
        MArgDatabase db(syntax(), args, &status);
        if (!status) return status;
        if (db.isFlagSet("-fail")) {
            displayError("told to fail");
            return MS::kFailure;
        }
        undoable_ = !db.isFlagSet("-keep");
        MStringArray objects;
        db.getObjects(objects);
        amount_ = objects[0].asInt();
        return redoIt();
    }
    MStatus redoIt() override {
        gCounter += amount_;
        setResult(gCounter);
        return MS::kSuccess;
    }
    MStatus undoIt() override {
        gCounter -= amount_;
        setResult(-1); // must not become the result of `undo`
        return MS::kSuccess;
    }
    bool isUndoable() const override { return undoable_; }

private:
    int amount_ = 0;
    bool undoable_ = true;
};

// cmdfwInner: returns 7.
class InnerCommand : public MPxCommand {
public:
    static void* creator() { return new InnerCommand; }
    MStatus doIt(const MArgList&) override {
        setResult(7);
        return MS::kSuccess;
    }
};

// cmdfwOuter: sets its result, runs cmdfwInner, then adds the inner result to its own.
class OuterCommand : public MPxCommand {
public:
    static void* creator() { return new OuterCommand; }
    MStatus doIt(const MArgList&) override {
        setResult(1);
        int inner = 0;
        MStatus status = MGlobal::executeCommand("cmdfwInner", inner);
        if (!status) return status;
        setResult(currentIntResult() + inner);
        return MS::kSuccess;
    }
};

class Context : public MPxContext {
public:
    double value = 0;
};

// cmdfwCtx: makes a Context; -edit -value v sets its value, -query -value returns it.
class ContextCommand : public MPxContextCommand {
public:
    static void* creator() { return new ContextCommand; }
    MPxContext* makeObj() override { return context_ = new Context; }
    MStatus appendSyntax() override {
        MSyntax own = syntax();
        return own.addFlag("-v", "-value", MSyntax::kDouble);
    }
    MStatus doEditFlags() override { return parser()->getFlagArgument("-value", 0, context_->value); }
    MStatus doQueryFlags() override {
        if (parser()->isFlagSet("-value")) MPxCommand::setResult(context_->value);
        return MS::kSuccess;
    }

private:
    Context* context_ = nullptr;
};

class PluginCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
        host::messageLog().clearHistory();
        gCounter = 0;
        MObject object;
        MFnPlugin plugin(object);
        ASSERT_TRUE(plugin.registerCommand("cmdfwAdd", AddCommand::creator, AddCommand::newSyntax));
        ASSERT_TRUE(plugin.registerCommand("cmdfwInner", InnerCommand::creator));
        ASSERT_TRUE(plugin.registerCommand("cmdfwOuter", OuterCommand::creator));
        ASSERT_TRUE(plugin.registerContextCommand("cmdfwCtx", ContextCommand::creator));
    }

    void TearDown() override {
        MObject object;
        MFnPlugin plugin(object);
        EXPECT_TRUE(plugin.deregisterCommand("cmdfwAdd"));
        EXPECT_TRUE(plugin.deregisterCommand("cmdfwInner"));
        EXPECT_TRUE(plugin.deregisterCommand("cmdfwOuter"));
        EXPECT_TRUE(plugin.deregisterContextCommand("cmdfwCtx"));
        host::resetScene();
        EXPECT_EQ(gLiveCommands, 0);
    }

    // Runs text as the user does (undo is recorded); returns the last result.
    host::CommandResult run(const std::string& text, bool expectOk = true) {
        host::CommandResult result;
        EXPECT_EQ(host::interpreter().execute(text, result), expectOk) << text;
        return result;
    }

    std::vector<std::string> messages() const {
        std::vector<std::string> lines;
        for (const auto& m : host::messageLog().history()) {
            const char* kind = m.kind == host::MessageKind::Error     ? "error: "
                               : m.kind == host::MessageKind::Warning ? "warning: "
                                                                      : "";
            lines.push_back(kind + m.text);
        }
        return lines;
    }
};

using Lines = std::vector<std::string>;

TEST_F(PluginCommandTest, RegistrationIsByUniqueName) {
    MObject object;
    MFnPlugin plugin(object);
    EXPECT_FALSE(plugin.registerCommand("cmdfwAdd", InnerCommand::creator)); // taken: the first stays
    EXPECT_EQ(run("cmdfwAdd 2"), host::CommandResult(2));
    EXPECT_FALSE(plugin.registerCommand("undo", InnerCommand::creator));
    EXPECT_FALSE(plugin.registerCommand("cmdfwNull", nullptr));
    EXPECT_FALSE(plugin.deregisterCommand("cmdfwNeverRegistered"));
    EXPECT_FALSE(plugin.deregisterCommand("undo"));     // not the plug-in's
    EXPECT_FALSE(plugin.deregisterCommand("cmdfwCtx")); // a context command
    EXPECT_FALSE(plugin.deregisterContextCommand("cmdfwAdd"));

    ASSERT_TRUE(plugin.registerCommand("cmdfwTemp", InnerCommand::creator));
    EXPECT_EQ(run("cmdfwTemp"), host::CommandResult(7));
    EXPECT_TRUE(plugin.deregisterCommand("cmdfwTemp"));
    EXPECT_FALSE(plugin.deregisterCommand("cmdfwTemp"));
    run("cmdfwTemp", false);
    EXPECT_NE(host::commandTable().find("undo"), nullptr);
}

TEST_F(PluginCommandTest, UndoAndRedoReplayTheCommandObject) {
    run("cmdfwAdd 5");
    run("cmdfwAdd 10");
    EXPECT_EQ(gCounter, 15);
    EXPECT_EQ(gLiveCommands, 2); // kept by the undo queue
    host::messageLog().clearHistory();

    EXPECT_EQ(run("undo"), host::CommandResult());
    EXPECT_EQ(gCounter, 5);
    run("undo");
    EXPECT_EQ(gCounter, 0);
    run("undo");
    run("redo");
    EXPECT_EQ(gCounter, 5);
    EXPECT_EQ(messages(), (Lines{"Undo: cmdfwAdd 10", "Undo: cmdfwAdd 5",
                                 "warning: There are no more commands to undo.", "Redo: cmdfwAdd 5"}));

    // A new command drops what could have been redone.
    run("cmdfwAdd 1");
    host::messageLog().clearHistory();
    run("redo");
    EXPECT_EQ(gCounter, 6);
    EXPECT_EQ(messages(), (Lines{"warning: There are no more commands to redo."}));
    run("undo -x", false);
    EXPECT_EQ(gCounter, 6);
    host::scene().undoQueue().clear();
    EXPECT_EQ(gLiveCommands, 0);
}

TEST_F(PluginCommandTest, OnlySuccessfulUndoableCallsAreRecorded) {
    run("cmdfwAdd -keep 3");
    run("cmdfwAdd -fail 4", false);
    run("cmdfwAdd -bad 4", false);
    EXPECT_EQ(gLiveCommands, 0);
    EXPECT_EQ(host::scene().undoQueue().size(), 0u);
    EXPECT_EQ(messages(), (Lines{"error: told to fail", "error: Invalid flag: -bad"}));

    // executeCommand records only when asked to.
    EXPECT_TRUE(MGlobal::executeCommand("cmdfwAdd 1"));
    EXPECT_EQ(host::scene().undoQueue().size(), 0u);
    EXPECT_TRUE(MGlobal::executeCommand("cmdfwAdd 1", false, true));
    EXPECT_EQ(host::scene().undoQueue().size(), 1u);
    EXPECT_TRUE(host::scene().undoQueue().enabled);
    EXPECT_EQ(gCounter, 5);
}

TEST_F(PluginCommandTest, NestedCommandsKeepTheirOwnResults) {
    EXPECT_EQ(run("cmdfwOuter"), host::CommandResult(8));
    int result = 0;
    EXPECT_TRUE(MGlobal::executeCommand("cmdfwOuter; cmdfwAdd 2", result));
    EXPECT_EQ(result, 2); // the last statement's result

    host::messageLog().clearHistory();
    EXPECT_TRUE(MGlobal::executeCommand("cmdfwInner", result, true));
    EXPECT_EQ(messages(), (Lines{"cmdfwInner", "// Result: 7 //"}));
}

TEST_F(PluginCommandTest, ContextCommandsMakeNamedContexts) {
    MString name;
    ASSERT_TRUE(MGlobal::executeCommand("cmdfwCtx", name));
    EXPECT_EQ(name, "cmdfwCtx1");
    ASSERT_TRUE(MGlobal::executeCommand("cmdfwCtx", name));
    EXPECT_EQ(name, "cmdfwCtx2");
    ASSERT_TRUE(MGlobal::executeCommand("cmdfwCtx tool", name));
    EXPECT_EQ(name, "tool");
    EXPECT_FALSE(MGlobal::executeCommand("cmdfwCtx tool"));

    ASSERT_TRUE(MGlobal::executeCommand("cmdfwCtx -e -value 0.25 tool"));
    auto* context = dynamic_cast<Context*>(host::findContext("tool"));
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(context->value, 0.25);
    double value = 0;
    ASSERT_TRUE(MGlobal::executeCommand("cmdfwCtx -q -value tool", value));
    EXPECT_EQ(value, 0.25);
    EXPECT_FALSE(MGlobal::executeCommand("cmdfwCtx -e -value 1 nosuch"));

    MObject object;
    MFnPlugin plugin(object);
    ASSERT_TRUE(plugin.deregisterContextCommand("cmdfwCtx"));
    EXPECT_EQ(host::findContext("tool"), nullptr);
    ASSERT_TRUE(plugin.registerContextCommand("cmdfwCtx", ContextCommand::creator));
}

TEST_F(PluginCommandTest, PluginBuiltins) {
    EXPECT_EQ(run("loadPlugin talven"), host::CommandResult(std::vector<std::string>{"talven"}));
    EXPECT_EQ(run("loadPlugin -qt \"/opt/plug-ins/talven.so\""),
              host::CommandResult(std::vector<std::string>{"talven"}));
    EXPECT_EQ(run("pluginInfo -q -v talven"), host::CommandResult(std::string("5.10.0")));
    EXPECT_EQ(run("pluginInfo -query -loaded talven"), host::CommandResult(true));
    EXPECT_EQ(run("pluginInfo -q -l other"), host::CommandResult(false));
    run("loadPlugin other", false);
    run("pluginInfo -q -v other", false);
    run("pluginInfo -v talven", false);
    EXPECT_EQ(messages(), (Lines{"error: Plug-in, \"other\", was not found on MAYA_PLUG_IN_PATH.",
                                 "error: Plug-in, \"other\", was not found on MAYA_PLUG_IN_PATH.",
                                 "error: pluginInfo: use -query with -loaded, -version, -vendor or -path."}));

    MObject object;
    MFnPlugin plugin(object, "Somebody", "0.0.1"); // outside loading: identity unchanged
    EXPECT_EQ(plugin.version(), "5.10.0");
    EXPECT_EQ(plugin.name(), "talven");
}

TEST(StatusTest, ReportsWithMayaTexts) {
    host::messageLog().clearHistory();
    MStatus(MS::kFailure).perror("Register kv_x command failed.");
    MStatus(MS::kInvalidParameter).perror(MString("p"));
    MStatus(MS::kNotFound).pAPIerror("plugin.cpp", 12);
    const auto& history = host::messageLog().history();
    ASSERT_EQ(history.size(), 3u);
    EXPECT_EQ(history[0].kind, host::MessageKind::Error);
    EXPECT_EQ(history[0].text, "Register kv_x command failed.: (kFailure): Unexpected Internal Failure");
    EXPECT_EQ(history[1].text, "p: (kInvalidParameter): Invalid Parameter");
    EXPECT_EQ(history[2].text, "API error detected in plugin.cpp at line 12: (kNotFound): Object not found");
    EXPECT_EQ(MStatus(MS::kNotImplemented).errorString(), "(kNotImplemented): Not implemented");
}

} // namespace
