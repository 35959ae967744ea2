#include "eval/DeformerData.h"

#include "engine/Evaluation.h"

namespace host {

double plugNumber(const NodePtr& node, const std::string& path, double fallback) {
    Plug plug = resolveAttrPath(node, path, nullptr);
    return plug.isNull() ? fallback : valueAsDouble(evaluatedValue(plug));
}

Plug childPlug(const Plug& parent, const char* name) {
    if (parent.isNull()) return Plug();
    const AttrSpec* child = parent.attr()->childNamed(name);
    return child ? parent.child(child) : Plug();
}

std::vector<float> denseWeights(const Plug& map, std::size_t n) {
    const Slot* slot = map.isArray() ? map.slot() : nullptr;
    if (!slot || !slot->elements || slot->elements->empty()) return {};
    std::vector<float> weights(n, 1.f);
    const auto& keys = slot->elements->keys();
    if (slot->elements->holdsNumbers()) {
        const std::vector<double>& numbers = slot->elements->numbers();
        for (std::size_t k = 0; k < keys.size() && keys[k] < n; ++k)
            weights[keys[k]] = static_cast<float>(numbers[k]);
        return weights;
    }
    for (std::size_t k = 0; k < keys.size() && keys[k] < n; ++k) {
        const Value& value = slot->elements->valueAt(k).value;
        if (valueIsNumeric(value)) weights[keys[k]] = static_cast<float>(valueAsDouble(value));
    }
    return weights;
}

} // namespace host
