#include "editRegionMap.h"

#include "commandSupport.h"

#include <maya/MArgDatabase.h>

const char* const editRegionMap_helpText =
    "\n"
    "Description: Edit the current region map.\n"
    "\n"
    "Flags: kv_editRegionMap\n"
    "    -h      -help               <n/a>      this message\n"
    "    -atm    -addToMap           <n/a>      add the current edits to the map\n"
    "    -ap     -append             <n/a>      append unassigned weights to the region\n"
    "    -cl     -clear              <n/a>      clear the indexed region\n"
    "    -col    -color              <int>      display as black and white (0), colored (1) or colorRamp (2) "
    "vertex colors\n"
    "    -dw     -distributeWeight   <int>      distribute remaining weight to influencing regions\n"
    "    -e      -edit               <n/a>      load the indexed region for editing\n"
    "    -ex     -export             <n/a>      export weights to a file\n"
    "    -fn     -fileName           <string>   file name for export/import\n"
    "    -im     -import             <n/a>      import weights from a file\n"
    "    -i      -index              <int>      index of the current region\n"
    "    -m      -mesh               <string>   mesh shape (needed for clear, import and color)\n"
    "    -res    -restore            <int>      stores the current region data (0) or restores the previous "
    "data (1)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_editRegionMap\n"
    "Return Value: int\n";

editRegionMap::editRegionMap()
    : addToMap(false), append(false), clear(false), color(false), colorMode(0), distributeWeight(true),
      edit(false), exportMode(false), importMode(false), indexSet(false), index(0), restore(false),
      restoreMode(0) {}

void* editRegionMap::creator() {
    return new editRegionMap();
}

MSyntax editRegionMap::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-atm", "-addToMap");
    syntax.addFlag("-ap", "-append");
    syntax.addFlag("-cl", "-clear");
    syntax.addFlag("-col", "-color", MSyntax::kLong);
    syntax.addFlag("-dw", "-distributeWeight", MSyntax::kLong);
    syntax.addFlag("-e", "-edit");
    syntax.addFlag("-ex", "-export");
    syntax.addFlag("-fn", "-fileName", MSyntax::kString);
    syntax.addFlag("-im", "-import");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-res", "-restore", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus editRegionMap::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, editRegionMap_helpText)) return MS::kSuccess;
    return common::notAvailable("kv_editRegionMap");
}

MStatus editRegionMap::redoIt() {
    return MS::kSuccess;
}

MStatus editRegionMap::undoIt() {
    return MS::kSuccess;
}
