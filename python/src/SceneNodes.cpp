#include "SceneNodes.h"

#include <maya/MSelectionList.h>
#include <maya/MString.h>

#include <pybind11/pybind11.h>

namespace py = pybind11;

namespace pytalven {

namespace {

MSelectionList matching(const std::string& name) {
    MSelectionList list;
    if (!list.add(MString(name.c_str())) || list.length() == 0)
        throw py::value_error("No object matches name: " + name);
    return list;
}

} // namespace

MDagPath meshPath(const std::string& name) {
    MDagPath path;
    if (!matching(name).getDagPath(0, path) || !path.extendToShape() || !path.hasFn(MFn::kMesh))
        throw py::value_error(name + " is not a mesh");
    return path;
}

MObject blendShapeNode(const std::string& name) {
    MObject node;
    if (!matching(name).getDependNode(0, node) || !node.hasFn(MFn::kBlendShape))
        throw py::value_error(name + " is not a blendShape node");
    return node;
}

} // namespace pytalven
