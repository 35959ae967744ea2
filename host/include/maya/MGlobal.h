#pragma once
// Services of the host as a whole: messages, running command text, the active selection, option
// variables and node deletion.
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

class MCommandResult;
class MDoubleArray;
class MIntArray;
class MObject;
class MSelectionList;
class MStringArray;

class MGlobal {
public:
    enum MMayaState { kInteractive, kBatch, kLibraryApp, kBaseUIMode };
    enum ListAdjustment { kReplaceList, kXORWithList, kAddToList, kRemoveFromList, kAddToHeadOfList };

    static MMayaState mayaState(MStatus* ReturnStatus = NULL);

    static void displayInfo(const MString& theMessage);
    static void displayWarning(const MString& theWarning);
    static void displayError(const MString& theError);

    // Runs command text. With displayEnabled the command and its result are echoed as information
    // lines; without undoEnabled the commands it runs leave nothing on the undo queue.
    static MStatus executeCommand(const MString& command, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MCommandResult& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, int& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MIntArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, double& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MStringArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MString& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MString executeCommandStringResult(const MString& command, bool displayEnabled = false,
                                              bool undoEnabled = false, MStatus* ResultStatus = NULL);

    static MStatus getActiveSelectionList(MSelectionList& dest, bool orderedSelectionIfAvailable = false);
    static MStatus setActiveSelectionList(const MSelectionList& src, ListAdjustment = kReplaceList);
    static MStatus selectByName(const MString& name, ListAdjustment listAdjustment = kAddToList);
    static MStatus clearSelectionList();

    static bool optionVarExists(const MString& name);
    static int optionVarIntValue(const MString& name, bool* exists = NULL);
    static double optionVarDoubleValue(const MString& name, bool* exists = NULL);
    static MString optionVarStringValue(const MString& name, bool* exists = NULL);
    static bool setOptionVarValue(const MString& name, int value);
    static bool setOptionVarValue(const MString& name, double value);
    static bool setOptionVarValue(const MString& name, MString value);
    static void removeOptionVar(const MString& name);

    static MStatus deleteNode(MObject& node);
};
