#pragma once
// kv_displayMessage: prints a message as information, warning or error, so that scripts can report
// through the script editor and abort a run with an error.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

class MArgDatabase;

extern const char* const displayMessage_helpText;

class displayMessage : public MPxCommand {
public:
    displayMessage();
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override;

private:
    // Whether the flag is set; its text, if so, replaces the shared message.
    bool readMessage(const MArgDatabase& argData, const char* flag);

    bool info_;
    bool warning_;
    bool error_;
    // One text for all three severities: the last flag read wins.
    MString message_;
};
