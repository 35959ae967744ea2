#pragma once
// Engine access shared by the deformer function sets.
#include "engine/Plug.h"

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <string>

namespace host {

// A plug of the node behind an object; null for other objects and unknown paths.
Plug nodePlug(const MObject& object, const std::string& path);
// The mesh shape an object names: the shape itself, or a transform's visible shape. Null otherwise.
NodePtr meshShapeOf(const MObject& object);

// A deformer's envelope attribute.
float envelopeOf(const MObject& deformer, MStatus* ReturnStatus);
MStatus setEnvelopeOf(const MObject& deformer, float envelope);

} // namespace host
