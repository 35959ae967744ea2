#include "polyMapVertexOrder.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const polyMapVertexOrder_helpText =
    "\n"
    "Description: Creates a reversed vertex order and stores it on the given target mesh.\n"
    "\n"
    "Flags: kv_polyMapVertexOrder\n"
    "    -h      -help               <n/a>      this message\n"
    "    -atm    -addToMap           <n/a>      add to the map based on two selected edges\n"
    "    -a      -axis               <string>   symmetry axis\n"
    "    -ck     -check              <n/a>      check if all mapping indices are set; selects the symmetric "
    "components if vertices are selected\n"
    "    -ct     -copyTo             <string>   copy the vertex mapping to the given mesh\n"
    "    -sl     -select             <n/a>      select all found components\n"
    "    -sm     -selectMapped       <n/a>      select all mapped components\n"
    "    -su     -selectUnmapped     <n/a>      select all unmapped components\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.0001)\n"
    "    -v      -verbose            <int>      output info to the script editor (0: none, 1: simple, 2: "
    "full)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_polyMapVertexOrder -a <string> -tol <float> polyName\n"
    "Return Value: int\n";

polyMapVertexOrder::polyMapVertexOrder()
    : addToMap(false), axis("x"), check(false), copyTo(false), select(false), selectMapped(false),
      selectUnmapped(false), tolerance(0.0001), verbose(0) {}

void* polyMapVertexOrder::creator() {
    return new polyMapVertexOrder();
}

MSyntax polyMapVertexOrder::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-atm", "-addToMap");
    syntax.addFlag("-a", "-axis", MSyntax::kString);
    syntax.addFlag("-ck", "-check");
    syntax.addFlag("-ct", "-copyTo", MSyntax::kString);
    syntax.addFlag("-sl", "-select");
    syntax.addFlag("-sm", "-selectMapped");
    syntax.addFlag("-su", "-selectUnmapped");
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.addFlag("-v", "-verbose", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus polyMapVertexOrder::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, polyMapVertexOrder_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_polyMapVertexOrder");
}

MStatus polyMapVertexOrder::redoIt() {
    return MS::kSuccess;
}

MStatus polyMapVertexOrder::undoIt() {
    return MS::kSuccess;
}
