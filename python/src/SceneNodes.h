#pragma once
// Nodes named from Python: a ValueError with a clear message when the name matches nothing or a
// node of the wrong kind.
#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <string>

namespace pytalven {

MDagPath meshPath(const std::string& name); // a mesh shape, or a transform above one
MObject blendShapeNode(const std::string& name);

} // namespace pytalven
