#pragma once
// Removes the vertex offsets of a tweak node, optionally baking them into the original mesh first.
#include <maya/MArgList.h>
#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const editTweakNode_helpText;

class editTweakNode : public MPxCommand {
public:
    editTweakNode();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return false; }

private:
    bool bake;                // -bake
    MString originalMeshName; // -originalMesh

    MObject tweakNode;
    MDagPath originalMeshPath;
    MObject originalMesh;
    MPlug vertexPlug; // <tweak>.vlist[0].vertex: offsets by vertex index
};
