#include "reorderRotation.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>
#include <maya/MDoubleArray.h>
#include <maya/MEulerRotation.h>
#include <maya/MTransformationMatrix.h>

const char* const reorderRotation_helpText =
    "\n"
    "Description: Converts the input rotation to match the target rotate order.\n"
    "\n"
    "Flags: kv_reorderRotation\n"
    "    -h      -help               <n/a>      this message\n"
    "    -io     -inOrder            <int>      source rotate order\n"
    "    -oo     -outOrder           <int>      target rotate order\n"
    "    -irx    -inRotationX        <float>    x rotation value to convert\n"
    "    -iry    -inRotationY        <float>    y rotation value to convert\n"
    "    -irz    -inRotationZ        <float>    z rotation value to convert\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_reorderRotation -inRotationX <float> -inRotationY <float> -inRotationZ <float> -inOrder "
    "<int> "
    "-outOrder <int>\n"
    "Return Value: float[]\n";

namespace {

// Single-precision values of pi/180 and 180/pi, used in double arithmetic so results keep the
// same last digits as the tools that pass these angles around.
constexpr double kDegreesToRadians = 0.01745329238474369;
constexpr double kRadiansToDegrees = 57.295780181884766;

// The two enums number the same orders differently (the matrix one starts with kInvalid), so each
// gets its own table.
MTransformationMatrix::RotationOrder matrixOrder(int order) {
    static const MTransformationMatrix::RotationOrder orders[] = {
        MTransformationMatrix::kXYZ, MTransformationMatrix::kYZX, MTransformationMatrix::kZXY,
        MTransformationMatrix::kXZY, MTransformationMatrix::kYXZ, MTransformationMatrix::kZYX};
    return order >= 0 && order < 6 ? orders[order] : MTransformationMatrix::kXYZ;
}

MEulerRotation::RotationOrder eulerOrder(int order) {
    static const MEulerRotation::RotationOrder orders[] = {MEulerRotation::kXYZ, MEulerRotation::kYZX,
                                                           MEulerRotation::kZXY, MEulerRotation::kXZY,
                                                           MEulerRotation::kYXZ, MEulerRotation::kZYX};
    return order >= 0 && order < 6 ? orders[order] : MEulerRotation::kXYZ;
}

} // namespace

reorderRotation::reorderRotation() : inOrder_(0), outOrder_(0), inRotation_{0.0, 0.0, 0.0} {}

void* reorderRotation::creator() {
    return new reorderRotation();
}

MSyntax reorderRotation::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-io", "-inOrder", MSyntax::kLong);
    syntax.addFlag("-oo", "-outOrder", MSyntax::kLong);
    syntax.addFlag("-irx", "-inRotationX", MSyntax::kDouble);
    syntax.addFlag("-iry", "-inRotationY", MSyntax::kDouble);
    syntax.addFlag("-irz", "-inRotationZ", MSyntax::kDouble);
    return syntax;
}

MStatus reorderRotation::doIt(const MArgList& args) {
    MStatus status;
    const MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, reorderRotation_helpText)) return MS::kSuccess;

    if (argData.isFlagSet("-io")) argData.getFlagArgument("-io", 0, inOrder_);
    if (argData.isFlagSet("-oo")) argData.getFlagArgument("-oo", 0, outOrder_);
    if (argData.isFlagSet("-irx")) argData.getFlagArgument("-irx", 0, inRotation_[0]);
    if (argData.isFlagSet("-iry")) argData.getFlagArgument("-iry", 0, inRotation_[1]);
    if (argData.isFlagSet("-irz")) argData.getFlagArgument("-irz", 0, inRotation_[2]);
    return redoIt();
}

MStatus reorderRotation::redoIt() {
    const double radians[3] = {inRotation_[0] * kDegreesToRadians, inRotation_[1] * kDegreesToRadians,
                               inRotation_[2] * kDegreesToRadians};
    MTransformationMatrix transformation;
    const MStatus status = transformation.setRotation(radians, matrixOrder(inOrder_));
    if (!status) return status;
    MEulerRotation rotation = transformation.eulerRotation();
    rotation.reorderIt(eulerOrder(outOrder_));

    MDoubleArray result;
    result.append(rotation.x * kRadiansToDegrees);
    result.append(rotation.y * kRadiansToDegrees);
    result.append(rotation.z * kRadiansToDegrees);
    setResult(result);
    return MS::kSuccess;
}

MStatus reorderRotation::undoIt() {
    return MS::kSuccess;
}

bool reorderRotation::isUndoable() const {
    return false;
}
