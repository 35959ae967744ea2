#include "SceneArrays.h"

#include "ArrayConversion.h"
#include "SceneNodes.h"
#include "WeightStorage.h"

#include "core/weights/WeightEdits.h"
#include "plugin/common.h"
#include "plugin/vertexOrderMap.h"

#include "engine/ChangeJournal.h"

#include <maya/MFnBlendShapeDeformer.h>
#include <maya/MFnGeometryFilter.h>
#include <maya/MFnMesh.h>
#include <maya/MPlug.h>

#include <limits>
#include <numeric>
#include <string>

namespace py = pybind11;

namespace pytalven {

namespace {

constexpr unsigned int fullWeightItem = 6000;

// One undo entry for what the write changes, as a command run at the top leaves.
template <class Write> void recorded(const std::string& name, Write write) {
    const host::CommandRecording recording([&name] { return name; });
    write();
}

unsigned int vertexCount(const MDagPath& mesh) {
    return static_cast<unsigned int>(MFnMesh(mesh).numVertices());
}

// The vertex count of the mesh the blendShape deforms: the length of its dense weight maps.
unsigned int deformedVertexCount(const MObject& blendShape, const std::string& name) {
    MStatus status;
    const MObject shape = MFnGeometryFilter(blendShape).outputShapeAtIndex(0, &status);
    if (!status || shape.isNull()) throw py::value_error(name + " deforms no mesh");
    return static_cast<unsigned int>(MFnMesh(shape).numVertices());
}

void requireTarget(const MObject& blendShape, int target, const std::string& name) {
    MIntArray indices;
    MFnBlendShapeDeformer(blendShape).weightIndexList(indices);
    for (unsigned int k = 0; k < indices.length(); ++k)
        if (indices[k] == target) return;
    throw py::value_error(name + " has no target " + std::to_string(target));
}

MPlug weightMap(const MObject& blendShape, int target, const std::string& name) {
    if (target != -1) requireTarget(blendShape, target, name);
    return common::weightsPlug(blendShape, target);
}

Doubles getPoints(const std::string& name) {
    MPointArray points;
    MFnMesh(meshPath(name)).getPoints(points, MSpace::kObject);
    return pointRows(points);
}

void setPoints(const std::string& name, const py::object& value) {
    const MDagPath mesh = meshPath(name);
    const py::array rows =
        checkedArray(py::dtype::of<double>(), value, "points", "float64", vertexCount(mesh), 3);
    requireFinite(static_cast<const double*>(rows.data()), rows.size(), "points");
    MPointArray points = pointsOf(rows);
    recorded("talven.set_points " + name, [&] { MFnMesh(mesh).setPoints(points, MSpace::kObject); });
}

Doubles getTargetDeltas(const std::string& name, int target, unsigned int item) {
    const MObject node = blendShapeNode(name);
    requireTarget(node, target, name);
    return pointRows(common::getTargetPoints(node, static_cast<unsigned int>(target), item));
}

Ints getTargetComponents(const std::string& name, int target, unsigned int item) {
    const MObject node = blendShapeNode(name);
    requireTarget(node, target, name);
    return intArray(common::getTargetComponents(node, static_cast<unsigned int>(target), item));
}

void setTargetDeltas(const std::string& name, int target, const py::object& deltas,
                     const py::object& components, unsigned int item) {
    const MObject node = blendShapeNode(name);
    requireTarget(node, target, name);
    const py::array indexArray =
        checkedArray(py::dtype::of<std::int32_t>(), components, "components", "int32", -1, 0);
    const py::array rows =
        checkedArray(py::dtype::of<double>(), deltas, "deltas", "float64", indexArray.shape(0), 3);
    requireFinite(static_cast<const double*>(rows.data()), rows.size(), "deltas");
    // A node that deforms no mesh yet puts no upper bound on the indices.
    MStatus deforms;
    const MObject shape = MFnGeometryFilter(node).outputShapeAtIndex(0, &deforms);
    const int vertexLimit =
        deforms && !shape.isNull() ? MFnMesh(shape).numVertices() : std::numeric_limits<int>::max();
    requireIndices(static_cast<const std::int32_t*>(indexArray.data()), indexArray.size(), 0, vertexLimit,
                   "components");
    const MPointArray points = pointsOf(rows);
    const MIntArray indices = intsOf(indexArray);
    MStatus status;
    recorded("talven.set_target_deltas " + name, [&] {
        status = common::setTargetPoints(node, static_cast<unsigned int>(target), item, points);
        if (status)
            status = common::setTargetComponents(node, static_cast<unsigned int>(target), item, indices);
    });
    if (!status)
        throw std::runtime_error(name + ": the target item " + std::to_string(item) + " cannot be written");
}

Doubles getWeights(const std::string& name, int target) {
    const MObject node = blendShapeNode(name);
    const unsigned int count = deformedVertexCount(node, name);
    const MPlug weights = weightMap(node, target, name);
    Doubles dense(static_cast<py::ssize_t>(count));
    double* out = dense.mutable_data();
    std::fill(out, out + count, 1.0);
    readWeightMap(weights, out, count);
    return dense;
}

// As the weight editing command sets a whole map: the elements it keeps replace the map.
void setWeights(const std::string& name, const py::object& value, int target) {
    const MObject node = blendShapeNode(name);
    const unsigned int count = deformedVertexCount(node, name);
    const MPlug weights = weightMap(node, target, name);
    const py::array array = checkedArray(py::dtype::of<double>(), value, "weights", "float64", count, 0);
    const double* in = static_cast<const double*>(array.data());
    requireFinite(in, array.size(), "weights");
    std::vector<int> indices(count);
    std::iota(indices.begin(), indices.end(), 0);
    const core::WeightMap writes =
        core::weightsToSet(indices, std::vector<double>(in, in + count), target == -1);
    recorded("talven.set_weights " + name, [&] { replaceWeightMap(weights, writes); });
}

Ints getVertexOrderMap(const std::string& name) {
    MPlug plug;
    if (!common::findVertexOrderMap(meshPath(name), plug))
        throw py::value_error(name + " has no vertex order map");
    return intArray(common::readVertexOrderMap(plug));
}

void setVertexOrderMap(const std::string& name, const py::object& value) {
    const MDagPath mesh = meshPath(name);
    const int count = static_cast<int>(vertexCount(mesh));
    const py::array array =
        checkedArray(py::dtype::of<std::int32_t>(), value, "order map", "int32", count, 0);
    requireIndices(static_cast<const std::int32_t*>(array.data()), array.size(), -1, count, "order map");
    const MIntArray map = intsOf(array);
    recorded("talven.set_vertex_order_map " + name, [&] {
        MPlug plug;
        if (!common::findVertexOrderMap(mesh, plug)) common::createVertexOrderMap(mesh, plug);
        common::writeVertexOrderMap(plug, map);
    });
}

} // namespace

void defineSceneArrays(py::module_& module) {
    using py::arg;
    module.def("get_points", &getPoints, arg("mesh"),
               "The object-space points of a mesh as an (N, 3) float64 array.");
    module.def("set_points", &setPoints, arg("mesh"), arg("points"),
               "Sets every point of a mesh from an (N, 3) float64 array, as one undoable change.");
    module.def("get_target_deltas", &getTargetDeltas, arg("blend_shape"), arg("target"),
               arg("item") = fullWeightItem, "The point deltas of a target item as a (K, 3) float64 array.");
    module.def("get_target_components", &getTargetComponents, arg("blend_shape"), arg("target"),
               arg("item") = fullWeightItem,
               "The vertex indices of a target item's deltas as an int32 array.");
    module.def(
        "set_target_deltas", &setTargetDeltas, arg("blend_shape"), arg("target"), arg("deltas"),
        arg("components"), arg("item") = fullWeightItem,
        "Replaces a target item's deltas (K, 3) and their vertex indices (K,), as one undoable change.");
    module.def(
        "get_weights", &getWeights, arg("blend_shape"), arg("target") = -1,
        "A weight map (target -1: the base weights) as a dense float64 array; unset weights read 1.0.");
    module.def("set_weights", &setWeights, arg("blend_shape"), arg("weights"), arg("target") = -1,
               "Sets a whole weight map from a dense float64 array, as one undoable change.");
    module.def("get_vertex_order_map", &getVertexOrderMap, arg("mesh"),
               "A mesh's vertex order map as an int32 array (-1: unmapped).");
    module.def("set_vertex_order_map", &setVertexOrderMap, arg("mesh"), arg("order_map"),
               "Stores a mesh's vertex order map from an int32 array, creating it when missing.");
}

} // namespace pytalven
