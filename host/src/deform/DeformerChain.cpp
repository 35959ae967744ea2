#include "deform/DeformerChain.h"

#include "engine/Scene.h"
#include "eval/Evaluator.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kMaxHops = 256; // a longer walk is a cycle

bool isMesh(const NodePtr& node) {
    return node && node->type().isA("mesh");
}

Plug geometryInputOf(const NodePtr& deformer, unsigned index) {
    return resolveAttrPath(deformer, "input[" + std::to_string(index) + "].inputGeometry", nullptr);
}

Plug geometryOutputOf(const NodePtr& deformer, unsigned index) {
    return resolveAttrPath(deformer, "outputGeometry[" + std::to_string(index) + "]", nullptr);
}

// The output computed from a geometry input: outputGeometry[i] for input[i].inputGeometry, a
// groupParts' outputGeometry for its inputGeometry.
Plug outputFor(const Plug& input) {
    if (input.isNull() || input.attr()->longName != "inputGeometry") return Plug();
    const Plug element = input.parent();
    if (element.isNull()) return resolveAttrPath(input.node(), "outputGeometry", nullptr);
    if (!element.isElement()) return Plug();
    return geometryOutputOf(input.node(), element.logicalIndex());
}

// The connection into the chain that a new deformer takes over: the shape's inMesh, or with
// `front` the input that the original shape feeds.
Plug insertionPoint(const Plug& inMesh, bool front) {
    if (!front) return inMesh;
    Plug destination = inMesh;
    for (int hop = 0; hop < kMaxHops; ++hop) {
        const Plug source = scene().sourceOf(destination);
        const Plug upstream = deformerInputFor(source);
        if (isMesh(source.node()) || upstream.isNull() || scene().sourceOf(upstream).isNull())
            return destination;
        destination = upstream;
    }
    return inMesh;
}

bool connect(const Plug& source, const Plug& destination, std::string* error) {
    return scene().connect(source, destination, true, error);
}

bool makeOriginal(const NodePtr& shape, const Plug& deformerInput, std::string* error) {
    Scene& s = scene();
    NodePtr original = s.createNode("mesh", shape->name() + "Orig", shape->parent(), error);
    if (!original) return false;
    original->mesh() = std::make_shared<MeshData>(*evaluatedMesh(shape));
    resolveAttrPath(shape, "pnts", nullptr).clearElements();
    resolveAttrPath(original, "intermediateObject", nullptr).setValue(true);
    return connect(resolveAttrPath(original, "worldMesh[0]", nullptr), deformerInput, error);
}

} // namespace

NodePtr inputShape(const NodePtr& deformer, unsigned index) {
    Plug destination = geometryInputOf(deformer, index);
    for (int hop = 0; hop < kMaxHops && !destination.isNull(); ++hop) {
        const Plug source = scene().sourceOf(destination);
        if (source.isNull()) return nullptr;
        if (isMesh(source.node())) return source.node();
        destination = deformerInputFor(source);
    }
    return nullptr;
}

NodePtr outputShape(const NodePtr& deformer, unsigned index) {
    Plug source = geometryOutputOf(deformer, index);
    for (int hop = 0; hop < kMaxHops && !source.isNull(); ++hop) {
        Plug next;
        for (const Plug& destination : scene().destinationsOf(source)) {
            if (isMesh(destination.node()) && destination.attr()->longName == "inMesh")
                return destination.node();
            if (next.isNull()) next = outputFor(destination);
        }
        source = next;
    }
    return nullptr;
}

std::vector<unsigned> outputIndices(const NodePtr& deformer) {
    std::vector<unsigned> indices;
    for (const Connection& c : scene().connectionsOf(*deformer))
        if (c.source.node() == deformer && c.source.attr()->longName == "outputGeometry" &&
            c.source.isElement() && outputShape(deformer, c.source.logicalIndex()))
            indices.push_back(c.source.logicalIndex());
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    return indices;
}

std::vector<unsigned> inputIndices(const NodePtr& deformer) {
    std::vector<unsigned> indices;
    for (const Connection& c : scene().connectionsOf(*deformer)) {
        const Plug element = c.destination.parent();
        if (c.destination.node() == deformer && c.destination.attr()->longName == "inputGeometry" &&
            element.isElement() && inputShape(deformer, element.logicalIndex()))
            indices.push_back(element.logicalIndex());
    }
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    return indices;
}

std::optional<unsigned> indexForShape(const NodePtr& deformer, const NodePtr& shape) {
    for (unsigned index : outputIndices(deformer))
        if (outputShape(deformer, index) == shape) return index;
    return std::nullopt;
}

bool insertDeformer(const NodePtr& deformer, unsigned index, const NodePtr& shape, bool frontOfChain,
                    std::string* error) {
    Scene& s = scene();
    const Plug input = geometryInputOf(deformer, index);
    const Plug output = geometryOutputOf(deformer, index);
    const Plug inMesh = resolveAttrPath(shape, "inMesh", nullptr);
    if (input.isNull() || output.isNull() || !isMesh(shape) || inMesh.isNull()) {
        if (error) *error = "Cannot deform " + (shape ? shape->name() : std::string("nothing")) + ".";
        return false;
    }
    if (!s.sourceOf(input).isNull() || !s.destinationsOf(output).empty()) {
        if (error) *error = s.plugName(output) + " is already in use.";
        return false;
    }
    const Plug destination = insertionPoint(inMesh, frontOfChain);
    const Plug source = s.sourceOf(destination);
    if (source.isNull()) return makeOriginal(shape, input, error) && connect(output, inMesh, error);
    return s.disconnect(source, destination, error) && connect(source, input, error) &&
           connect(output, destination, error);
}

} // namespace host
