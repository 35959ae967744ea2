// Tweak evaluation: vlist[index].vertex[v] holds an offset for vertex v of geometry `index`. With
// relativeTweak off the values are positions instead, and replace the vertices they are set for.
// The envelope scales the change in both modes.
#include "eval/DeformerData.h"
#include "eval/Deformers.h"

#include <cmath>

namespace host {

MeshPtr deformTweak(const NodePtr& node, unsigned index, const MeshPtr& input) {
    const double envelope = plugNumber(node, "envelope", 1.0);
    if (envelope == 0.0 || !std::isfinite(envelope)) return input;
    const Plug vertices = resolveAttrPath(node, "vlist[" + std::to_string(index) + "].vertex", nullptr);
    const Slot* slot = vertices.isArray() ? vertices.slot() : nullptr;
    if (!slot || !slot->elements || slot->elements->empty()) return input;
    const bool relative = plugNumber(node, "relativeTweak", 1.0) != 0.0;
    auto out = std::make_shared<MeshData>(*input);
    const auto& keys = slot->elements->keys();
    for (std::size_t k = 0; k < keys.size() && keys[k] < out->points.size(); ++k) {
        const Slot& element = slot->elements->valueAt(k);
        if (!element.children) continue;
        std::array<float, 3>& p = out->points[keys[k]];
        for (std::size_t c = 0; c < 3 && c < element.children->size(); ++c) {
            const Value& value = (*element.children)[c].value;
            if (!valueIsNumeric(value)) continue;
            const double v = valueAsDouble(value);
            p[c] += static_cast<float>(envelope * (relative ? v : v - p[c]));
        }
    }
    return out;
}

} // namespace host
