#include "sculptExtractDeltaMesh.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const sculptExtractDeltaMesh_helpText =
    "\n"
    "Description: Generates a delta mesh based on the given sculpt result and the intermediate shape node.\n"
    "\n"
    "Flags: kv_sculptExtractDeltaMesh\n"
    "    -h      -help               <n/a>      this message\n"
    "    -c      -compare            <n/a>      compares if both meshes are identical\n"
    "    -m      -mesh               <string>   mesh with skin cluster\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_sculptExtractDeltaMesh -m <string> -om <string>\n"
    "Return Value: int\n";

sculptExtractDeltaMesh::sculptExtractDeltaMesh() : compare(false) {}

void* sculptExtractDeltaMesh::creator() {
    return new sculptExtractDeltaMesh();
}

MSyntax sculptExtractDeltaMesh::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-c", "-compare");
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus sculptExtractDeltaMesh::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, sculptExtractDeltaMesh_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_sculptExtractDeltaMesh");
}

MStatus sculptExtractDeltaMesh::redoIt() {
    return MS::kSuccess;
}

MStatus sculptExtractDeltaMesh::undoIt() {
    return MS::kSuccess;
}
