// The fuzz targets exercise the host's readers, not the commands of the plug-in: the session's
// plug-in loader finds these empty entry points instead, which keeps the plug-in out of the build.
#include <maya/MObject.h>
#include <maya/MStatus.h>

MStatus initializePlugin(MObject) {
    return MS::kSuccess;
}
MStatus uninitializePlugin(MObject) {
    return MS::kSuccess;
}
