#pragma once
// Base class of plug-in commands. The host creates one object per call, runs doIt, and keeps the
// object on the undo queue when the call succeeded and the command is undoable.
#include <maya/MArgList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>
#include <maya/MTypes.h>

class MDoubleArray;
class MIntArray;
class MStringArray;

class MPxCommand {
public:
    enum MResultType { kLong, kDouble, kString, kNoArg };

    MPxCommand();
    MPxCommand(const MPxCommand&) = delete;
    MPxCommand& operator=(const MPxCommand&) = delete;
    virtual ~MPxCommand();

    virtual MStatus doIt(const MArgList& args);
    virtual MStatus undoIt();
    virtual MStatus redoIt();
    virtual bool isUndoable() const;
    virtual bool hasSyntax() const;

    MSyntax syntax() const;
    MString commandString() const;
    MStatus setCommandString(const MString& str);

    static void displayInfo(const MString& theInfo);
    static void displayWarning(const MString& theWarning, bool showLineNumber = false);
    static void displayError(const MString& theError, bool showLineNumber = false);

    // The result of the command that is running.
    static void clearResult();
    static void setResult(unsigned int val);
    static void setResult(int val);
    static void setResult(double val);
    static void setResult(bool val);
    static void setResult(const char* val);
    static void setResult(const MString& val);
    static void setResult(const MIntArray& val);
    static void setResult(const MDoubleArray& val);
    static void setResult(const MStringArray& val);
    static void appendToResult(int val);
    static void appendToResult(double val);
    static void appendToResult(bool val);
    static void appendToResult(const char* val);
    static void appendToResult(const MString& val);
    static bool isCurrentResultArray();
    static MResultType currentResultType();
    static int currentIntResult(MStatus* ReturnStatus = NULL);
    static double currentDoubleResult(MStatus* ReturnStatus = NULL);
    static MString currentStringResult(MStatus* ReturnStatus = NULL);

    // Host access, not part of Maya's interface: never used by plugin code.
    void setSyntax(const MSyntax& syntax) { syntax_ = syntax; }

protected:
    MStatus setUndoable(bool state);

private:
    MSyntax syntax_;
    MString commandString_;
    bool undoable_ = false;
};
