#include <maya/MMeshIntersector.h>

MMeshIntersector::MMeshIntersector(void) = default;
MMeshIntersector::~MMeshIntersector(void) = default;
MStatus MMeshIntersector::create(MObject&, const MMatrix&, const MIntArray*) { return MS::kNotImplemented; }
bool MMeshIntersector::isCreated(void) { return index_ != nullptr; }
MStatus MMeshIntersector::getClosestPoint(const MPoint&, MPointOnMesh&, double) const { return MS::kNotImplemented; }
