#pragma once
// Edits the region map of a region data node: paint round trips through the blend shape's
// base weights, fill, clear, store/restore, file export/import and vertex colour display.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const editRegionMap_helpText;

class editRegionMap : public MPxCommand {
public:
    editRegionMap();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    bool addToMap;         // -addToMap
    bool append;           // -append
    bool clear;            // -clear
    bool color;            // -color given
    int colorMode;         // -color
    bool distributeWeight; // -distributeWeight, read as a boolean
    bool edit;             // -edit
    bool exportMode;       // -export
    MString fileName;      // -fileName
    bool importMode;       // -import
    bool indexSet;         // -index given
    int index;             // -index
    MString meshName;      // -mesh
    bool restore;          // -restore given
    int restoreMode;       // -restore
};
