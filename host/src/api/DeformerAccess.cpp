#include "api/DeformerAccess.h"

#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"

namespace host {

Plug nodePlug(const MObject& object, const std::string& path) {
    NodePtr node = nodeOf(object);
    return node ? resolveAttrPath(node, path, nullptr) : Plug();
}

NodePtr meshShapeOf(const MObject& object) {
    NodePtr shape = shapeOf(scene(), nodeOf(object));
    return shape && shape->type().isA("mesh") ? shape : nullptr;
}

float envelopeOf(const MObject& deformer, MStatus* ReturnStatus) {
    Plug p = nodePlug(deformer, "envelope");
    setStatus(ReturnStatus, !p.isNull());
    return p.isNull() ? 0.f : static_cast<float>(valueAsDouble(p.value()));
}

MStatus setEnvelopeOf(const MObject& deformer, float envelope) {
    Plug p = nodePlug(deformer, "envelope");
    return !p.isNull() && p.setValue(static_cast<double>(envelope)) ? MS::kSuccess : MS::kFailure;
}

} // namespace host
