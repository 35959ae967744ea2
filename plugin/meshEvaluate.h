#pragma once
// Finds the visible or the intermediate shape node of a mesh.
#include <maya/MArgList.h>
#include <maya/MObject.h>
#include <maya/MObjectArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const meshEvaluate_helpText;

class meshEvaluate : public MPxCommand {
public:
    meshEvaluate();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return false; }

    // The transform's mesh children in child order: those without the intermediate flag (all of
    // them when `intermediate` is set) are returned, the intermediate ones go to `intermediates`.
    static MObjectArray getShapes(const MObject& transform, bool intermediate, MObjectArray& intermediates);
    // The single visible mesh shape of the transform.
    static MStatus getShape(const MObject& transform, MObject& shape);
    // The intermediate shape that feeds the transform's deformed mesh; re-parents it under the
    // transform when it lives elsewhere.
    static MStatus getIntermediate(const MObject& transform, MObject& shape);

private:
    bool intermediate;  // -intermediate
    MObject transform;  // the mesh's transform
    MObject meshShape;  // the node the command was given or reached first
    MString resultPath; // full path of the shape found
};
