#pragma once
// Edits the region map of a region data node: paint round trips through the blend shape's
// base weights, fill, clear, store/restore, file export/import and vertex colour display.
#include "core/regions/RegionMap.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <vector>

extern const char* const editRegionMap_helpText;

class editRegionMap : public MPxCommand {
public:
    editRegionMap();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    // Region edits are taken back with -restore, not with undo.
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

    // True when the name's last four characters are exactly "json".
    static bool fileTypeIsJSON(const MString& fileName);

private:
    MStatus parseArguments(const MArgDatabase& argData);
    bool findRegionNode(const MObject& node);
    bool findMesh();

    // The six region arrays, each as long as region 0's (missing weights read as 0).
    MStatus getRegionData(core::RegionMap& map);
    MStatus setRegionData(int region, const std::vector<double>& weights);
    // The existing element indices of the base weights, and the weight at each.
    MIntArray getWeightIndices();
    void getWeights(MIntArray& indices, MDoubleArray& weights);

    bool exportRegions();
    bool importRegions();
    MStatus editRegion();
    MStatus addToRegionMap();
    MStatus appendWeights();
    MStatus clearRegion();
    bool restoreRegions();
    MStatus colorRegions();

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

    MString regionNodeName;
    MDagPath meshPath;        // the -mesh shape, when the mode needs one
    unsigned int vertexCount; // its point count, for -clear and -import
    MPlug regionPlugs[core::kRegionCount];
    MPlug baseWeightsPlug;
    core::RegionLocks locks;
};
