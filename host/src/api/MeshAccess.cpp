#include "api/MeshAccess.h"

#include "api/ObjectRef.h"
#include "api/Transforms.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"

namespace host {

namespace {

// The geometry a shape's deformer chain delivers; null for a shape without one.
MeshPtr chainResult(const NodePtr& shape) {
    const Plug inMesh = resolveAttrPath(shape, "inMesh", nullptr);
    return scene().sourceOf(inMesh).isNull() ? nullptr : geometryInto(inMesh);
}

void writeTweaks(const NodePtr& shape, const MeshData& chain, std::size_t first,
                 const std::vector<std::array<float, 3>>& points) {
    Slot* array = resolveAttrPath(shape, "pnts", nullptr).slotForWrite();
    if (!array) return;
    SparseArray<Slot>& elements = array->elementSlots();
    for (std::size_t k = 0; k < points.size() && first + k < chain.points.size(); ++k) {
        const auto v = static_cast<uint32_t>(first + k);
        const std::array<float, 3>& base = chain.points[v];
        const float delta[3] = {points[k][0] - base[0], points[k][1] - base[1], points[k][2] - base[2]};
        Slot* element = elements.find(v);
        if (!element && delta[0] == 0.f && delta[1] == 0.f && delta[2] == 0.f) continue;
        if (!element) element = &elements.obtain(v);
        std::vector<Slot>& xyz = element->childSlots(3);
        for (std::size_t c = 0; c < 3; ++c) xyz[c].value = static_cast<double>(delta[c]);
    }
}

} // namespace

std::shared_ptr<const MeshData> readMesh(const MObject& object) {
    if (NodePtr node = nodeOf(object)) return evaluatedMesh(node);
    auto data = dataOf(object);
    if (data && data->kind == DataKind::Mesh) return std::static_pointer_cast<const MeshData>(data);
    return nullptr;
}

MeshData* writeMesh(const MObject& object) {
    if (NodePtr node = nodeOf(object)) {
        if (!node->type().isA("mesh")) return nullptr;
        // Written points are final positions: tweaks already in them are baked in. A shape with
        // history keeps its tweaks: they apply to the chain's result, not to its own geometry.
        Plug pnts = resolveAttrPath(node, "pnts", nullptr);
        if (!pnts.isNull() && pnts.numElements() > 0 && !chainResult(node)) {
            auto shown = evaluatedMesh(node);
            node->mesh() = std::make_shared<MeshData>(*shown);
            pnts.clearElements();
        }
        auto& mesh = node->mesh();
        if (!mesh)
            mesh = std::make_shared<MeshData>();
        else if (mesh.use_count() > 1)
            mesh = std::static_pointer_cast<MeshData>(mesh->clone());
        node->touch();
        return mesh.get();
    }
    return dataOf<MeshData>(object);
}

bool writeShownPoints(const MObject& object, std::size_t first,
                      const std::vector<std::array<float, 3>>& points) {
    NodePtr node = nodeOf(object);
    if (MeshPtr chain = node && node->type().isA("mesh") ? chainResult(node) : nullptr) {
        writeTweaks(node, *chain, first, points);
    } else {
        MeshData* mesh = writeMesh(object);
        if (!mesh) return false;
        for (std::size_t k = 0; k < points.size() && first + k < mesh->points.size(); ++k)
            mesh->points[first + k] = points[k];
    }
    if (node) node->touch();
    return true;
}

MMatrix meshSpaceMatrix(const MObject& object, MSpace::Space space) {
    NodePtr node = nodeOf(object);
    if (!node || space != MSpace::kWorld) return MMatrix();
    return worldMatrix(*node);
}

void componentElements(const MObject& component, std::vector<int>& elements, bool& all) {
    elements.clear();
    auto c = dataOf<ComponentData>(component);
    all = !c || c->complete;
    if (c && !all) elements = c->elements;
}

} // namespace host
