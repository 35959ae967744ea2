#pragma once
// kv_getComponentList: the vertex indices held by a component list attribute (such as a blend shape
// item's inputComponentsTarget) as a flat array, or, with a mesh and a component type, those
// indices made the active selection on that mesh.
#include <maya/MArgList.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const getComponentList_helpText;

class getComponentList : public MPxCommand {
public:
    getComponentList();
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override;

private:
    // Replaces the active selection with the indices as components of the mesh's shape.
    MStatus selectComponents(MIntArray& indices) const;

    MString attribute_;
    MString selectMesh_;
    int componentType_; // 0 vertex, 1 edge, 2 face, -1 none
};
