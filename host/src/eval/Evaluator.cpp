#include "eval/Evaluator.h"

#include "engine/Scene.h"
#include "eval/Deformers.h"

#include <unordered_map>
#include <unordered_set>

namespace host {

namespace {

// The built-in types are added on first use; registering from inside that call finds the table
// already made and the flag already set.
std::unordered_map<std::string, DeformFunction>& deformers() {
    static std::unordered_map<std::string, DeformFunction> table;
    static bool builtinsAdded = false;
    if (!builtinsAdded) {
        builtinsAdded = true;
        registerBuiltinDeformers();
    }
    return table;
}

// Results of one scene state; any change to the scene drops them all.
struct Cache {
    uint64_t version = ~uint64_t{0};
    std::unordered_map<Plug, MeshPtr, PlugHash> entries;
    std::unordered_set<Plug, PlugHash> inProgress; // plugs being evaluated: a repeat is a cycle
};

Cache& cache() {
    static Cache c;
    return c;
}

// Adds non-zero pnts tweaks to a copy of the geometry.
MeshPtr withTweaks(const NodePtr& shape, MeshPtr base) {
    if (!base) return base;
    Plug pnts = resolveAttrPath(shape, "pnts", nullptr);
    if (pnts.isNull() || pnts.numElements() == 0) return base;
    std::shared_ptr<MeshData> result;
    const Slot* arraySlot = pnts.slot();
    const auto& keys = arraySlot->elements->keys();
    for (std::size_t k = 0; k < keys.size(); ++k) {
        const uint32_t v = keys[k];
        if (v >= base->points.size()) continue;
        const Slot& element = arraySlot->elements->valueAt(k);
        if (!element.children) continue;
        float delta[3] = {0.f, 0.f, 0.f};
        for (std::size_t c = 0; c < 3 && c < element.children->size(); ++c)
            delta[c] = static_cast<float>(valueAsDouble((*element.children)[c].value));
        if (delta[0] == 0.f && delta[1] == 0.f && delta[2] == 0.f) continue;
        if (!result) result = std::make_shared<MeshData>(*base);
        for (int c = 0; c < 3; ++c) result->points[v][static_cast<std::size_t>(c)] += delta[c];
    }
    return result ? MeshPtr(result) : base;
}

MeshPtr computeAt(const Plug& plug);

MeshPtr cachedAt(const Plug& plug) {
    Cache& c = cache();
    if (c.version != scene().version()) {
        c.entries.clear();
        c.version = scene().version();
    }
    auto it = c.entries.find(plug);
    if (it != c.entries.end()) return it->second;
    if (!c.inProgress.insert(plug).second) {
        messageLog().warning("Cycle in the deformation of " + scene().plugName(plug) +
                             ": its input is used as is.");
        return nullptr;
    }
    MeshPtr mesh = computeAt(plug);
    c.inProgress.erase(plug);
    // Evaluation itself may record changes (a missing geometry made empty): keep the result for
    // the state it was computed in.
    if (c.version == scene().version()) c.entries[plug] = mesh;
    return mesh;
}

MeshPtr computeAt(const Plug& plug) {
    const NodePtr& node = plug.node();
    const std::string& attr = plug.attr()->longName;
    if (node->type().isA("mesh")) {
        if (attr == "outMesh" || attr == "worldMesh") return evaluatedMesh(node);
        return nullptr;
    }
    if (attr == "outputGeometry") {
        // A deformer's output: its input geometry of the same index, deformed.
        const unsigned index = plug.isElement() ? plug.logicalIndex() : 0;
        MeshPtr input = geometryInto(deformerInputFor(plug));
        if (!input) return nullptr;
        auto found = deformers().find(node->type().name);
        if (found == deformers().end()) return input;
        return found->second(node, index, input);
    }
    // Any other plug carrying mesh data (a stored mesh value, or a pass-through connection).
    Value value = plug.value();
    if (auto data = std::get_if<DataPtr>(&value))
        if (*data && (*data)->kind == DataKind::Mesh) return std::static_pointer_cast<const MeshData>(*data);
    return geometryInto(plug);
}

} // namespace

Plug deformerInputFor(const Plug& output) {
    if (output.isNull() || output.attr()->longName != "outputGeometry") return Plug();
    const NodePtr& node = output.node();
    Plug inputs = resolveAttrPath(node, "input", nullptr);
    if (!inputs.isNull() && inputs.isArray()) {
        const uint32_t index = output.isElement() ? output.logicalIndex() : 0;
        return resolveAttrPath(node, "input[" + std::to_string(index) + "].inputGeometry", nullptr);
    }
    return resolveAttrPath(node, "inputGeometry", nullptr); // groupParts and similar
}

MeshPtr geometryInto(const Plug& destination) {
    if (destination.isNull()) return nullptr;
    Plug source = scene().sourceOf(destination);
    return source.isNull() ? nullptr : cachedAt(source);
}

MeshPtr geometryAt(const Plug& plug) {
    if (plug.isNull() || !plug.node()->alive()) return nullptr;
    return cachedAt(plug);
}

MeshPtr evaluatedMesh(const NodePtr& shape) {
    if (!shape || !shape->alive() || !shape->type().isA("mesh")) return nullptr;
    Plug inMesh = resolveAttrPath(shape, "inMesh", nullptr);
    MeshPtr base;
    if (!scene().sourceOf(inMesh).isNull()) base = geometryInto(inMesh);
    const MeshData* own = shape->mesh().get();
    if (base && own && !own->colorSets.empty()) {
        // Colours written to a deformed shape stay on it: it shows the chain's geometry with its
        // own colour sets.
        auto coloured = std::make_shared<MeshData>(*base);
        coloured->colorSets = own->colorSets;
        coloured->currentColorSet = own->currentColorSet;
        for (ColorSet& set : coloured->colorSets)
            set.colors.resize(coloured->points.size(), {0.f, 0.f, 0.f, -1.f});
        base = std::move(coloured);
    }
    if (!base) {
        if (!shape->mesh()) shape->mesh() = std::make_shared<MeshData>();
        base = shape->mesh();
    }
    return withTweaks(shape, base);
}

void registerDeformer(const std::string& typeName, DeformFunction function) {
    deformers()[typeName] = std::move(function);
}

void clearEvaluationCache() {
    cache().entries.clear();
    cache().version = ~uint64_t{0};
}

} // namespace host
