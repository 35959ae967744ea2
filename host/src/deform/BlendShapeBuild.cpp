#include "deform/BlendShapeBuild.h"

#include "deform/DeformerChain.h"
#include "engine/Scene.h"
#include "eval/DeformerData.h"
#include "eval/Evaluator.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

// Deltas of `target` against `base`, kept where any axis differs.
void sparseDeltas(const MeshData& base, const MeshData& target, PointArrayData& points,
                  ComponentData& vertices) {
    for (std::size_t v = 0; v < base.points.size(); ++v) {
        Point4 d;
        d.x = static_cast<double>(target.points[v][0]) - base.points[v][0];
        d.y = static_cast<double>(target.points[v][1]) - base.points[v][1];
        d.z = static_cast<double>(target.points[v][2]) - base.points[v][2];
        if (d.x == 0 && d.y == 0 && d.z == 0) continue;
        points.points.push_back(d);
        vertices.elements.push_back(static_cast<int>(v));
    }
}

} // namespace

NodePtr createBlendShape(const std::vector<NodePtr>& shapes, const std::string& name, bool frontOfChain,
                         std::string* error) {
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        if (!shapes[i] || !shapes[i]->alive() || !shapes[i]->type().isA("mesh")) {
            if (error)
                *error = (shapes[i] ? shapes[i]->name() : std::string("A base object")) + " is not a mesh.";
            return nullptr;
        }
        if (std::find(shapes.begin(), shapes.begin() + static_cast<std::ptrdiff_t>(i), shapes[i]) !=
            shapes.begin() + static_cast<std::ptrdiff_t>(i)) {
            if (error) *error = shapes[i]->name() + " is given more than once.";
            return nullptr;
        }
    }
    NodePtr blendShape = scene().createNode("blendShape", name, nullptr, error);
    if (!blendShape) return nullptr;
    for (std::size_t i = 0; i < shapes.size(); ++i)
        if (!insertDeformer(blendShape, static_cast<unsigned>(i), shapes[i], frontOfChain, error)) {
            scene().deleteNode(blendShape, nullptr);
            return nullptr;
        }
    return blendShape;
}

std::optional<uint32_t> itemForWeight(double fullWeight) {
    const double item = std::round(fullWeight * 1000.0 + 5000.0);
    // Item numbers are unsigned 32-bit and wrap around: a weight made from an item below 5000 in
    // unsigned arithmetic (4294966.796 from 4500) comes back to that item.
    if (!(std::fabs(item) < 9.0e18)) return std::nullopt;
    const auto wrapped = static_cast<uint32_t>(static_cast<uint64_t>(static_cast<int64_t>(item)));
    if (wrapped == 5000u) return std::nullopt;
    return wrapped;
}

bool addBlendShapeTarget(const NodePtr& blendShape, unsigned geometry, unsigned weightIndex,
                         const MeshData* target, double fullWeight, std::string* error) {
    const std::optional<uint32_t> item = itemForWeight(fullWeight);
    if (!item) {
        if (error) *error = "The weight of a target must not be 0.";
        return false;
    }
    auto points = std::make_shared<PointArrayData>();
    auto components = std::make_shared<ComponentListData>();
    if (target) {
        MeshPtr base = geometryInto(
            resolveAttrPath(blendShape, "input[" + std::to_string(geometry) + "].inputGeometry", nullptr));
        if (!base || base->points.size() != target->points.size()) {
            if (error) *error = "The target does not have the same number of vertices as the base object.";
            return false;
        }
        auto vertices = std::make_shared<ComponentData>();
        vertices->typeName = "vtx";
        sparseDeltas(*base, *target, *points, *vertices);
        if (!vertices->elements.empty()) components->components.push_back(vertices);
    }
    const Plug plug =
        childPlug(targetGroupPlug(blendShape, geometry, weightIndex), "inputTargetItem").element(*item);
    const Plug weight = weightPlug(blendShape, weightIndex);
    if (plug.isNull() || weight.isNull()) {
        if (error) *error = "Invalid target index " + std::to_string(weightIndex) + ".";
        return false;
    }
    childPlug(plug, "inputPointsTarget").setValue(DataPtr(points));
    childPlug(plug, "inputComponentsTarget").setValue(DataPtr(components));
    if (!weight.hasStoredValue()) weight.setValue(0.0);
    return true;
}

Plug targetGroupPlug(const NodePtr& blendShape, unsigned geometry, unsigned weightIndex) {
    return resolveAttrPath(blendShape,
                           "inputTarget[" + std::to_string(geometry) + "].inputTargetGroup[" +
                               std::to_string(weightIndex) + "]",
                           nullptr);
}

void removeBlendShapeItems(const NodePtr& blendShape, unsigned geometry, unsigned weightIndex,
                           std::optional<uint32_t> item) {
    const Plug group = targetGroupPlug(blendShape, geometry, weightIndex);
    const Plug items = childPlug(group, "inputTargetItem");
    if (items.isNull()) return;
    if (item) {
        scene().disconnectBelow(items.element(*item));
        items.removeElement(*item);
    } else {
        scene().disconnectBelow(items);
        items.clearElements();
    }
    if (items.numElements() > 0) return;
    scene().disconnectBelow(group);
    group.array().removeElement(weightIndex);
    // The weight channel is shared by all geometries: it goes with the target's last group.
    const Plug inputTarget = resolveAttrPath(blendShape, "inputTarget", nullptr);
    for (uint32_t g : inputTarget.existingIndices())
        if (childPlug(inputTarget.element(g), "inputTargetGroup").element(weightIndex).hasStoredValue())
            return;
    const Plug weight = weightPlug(blendShape, weightIndex);
    const std::string path = weight.attrPath(true);
    auto& aliases = blendShape->aliases();
    aliases.erase(
        std::remove_if(aliases.begin(), aliases.end(), [&](const auto& a) { return a.second == path; }),
        aliases.end());
    weight.array().removeElement(weightIndex);
    blendShape->touch();
}

Plug weightPlug(const NodePtr& blendShape, unsigned weightIndex) {
    return resolveAttrPath(blendShape, "weight[" + std::to_string(weightIndex) + "]", nullptr);
}

} // namespace host
