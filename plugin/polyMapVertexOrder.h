#pragma once
// Builds, extends, queries and copies the topological mirror map of a mesh.
#include <maya/MArgList.h>
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const polyMapVertexOrder_helpText;

class polyMapVertexOrder : public MPxCommand {
public:
    polyMapVertexOrder();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return false; }

private:
    // Answers -check, -selectMapped and -selectUnmapped from the stored map.
    MStatus doSelectShells(const MIntArray& map);

    bool addToMap;        // -addToMap
    MString axis;         // -axis
    bool check;           // -check
    bool copyTo;          // -copyTo given
    MString copyToName;   // -copyTo
    bool select;          // -select
    bool selectMapped;    // -selectMapped
    bool selectUnmapped;  // -selectUnmapped
    double tolerance;     // -tolerance; 0 derives it from the mesh
    unsigned int verbose; // -verbose
    unsigned int axisIndex;
    bool verticesSelected; // the mesh came with selected vertices
    MIntArray selectedVertices;
    MIntArray selectedEdges;
    MObject meshObject;
    MDagPath meshPath;
};
