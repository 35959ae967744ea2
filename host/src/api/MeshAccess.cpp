#include "api/MeshAccess.h"

#include "api/ObjectRef.h"
#include "api/Transforms.h"
#include "eval/Evaluator.h"

namespace host {

std::shared_ptr<const MeshData> readMesh(const MObject& object) {
    if (NodePtr node = nodeOf(object)) return evaluatedMesh(node);
    auto data = dataOf(object);
    if (data && data->kind == DataKind::Mesh) return std::static_pointer_cast<const MeshData>(data);
    return nullptr;
}

MeshData* writeMesh(const MObject& object) {
    if (NodePtr node = nodeOf(object)) {
        if (!node->type().isA("mesh")) return nullptr;
        // Written points are final positions: tweaks already in them are baked in.
        Plug pnts = resolveAttrPath(node, "pnts", nullptr);
        if (!pnts.isNull() && pnts.numElements() > 0) {
            auto shown = evaluatedMesh(node);
            node->mesh() = std::make_shared<MeshData>(*shown);
            pnts.clearElements();
        }
        auto& mesh = node->mesh();
        if (!mesh) mesh = std::make_shared<MeshData>();
        else if (mesh.use_count() > 1) mesh = std::static_pointer_cast<MeshData>(mesh->clone());
        node->touch();
        return mesh.get();
    }
    return dataOf<MeshData>(object);
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
