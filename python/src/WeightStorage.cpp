#include "WeightStorage.h"

#include "engine/Scene.h"

#include <maya/MIntArray.h>

namespace pytalven {

namespace {

bool connectedBelow(const host::Plug& array) {
    for (const host::Connection& connection : host::scene().connectionsOf(*array.node())) {
        const host::Plug& destination = connection.destination;
        if (destination.node() != array.node() || destination.attr() != array.attr()) continue;
        if (destination == array || destination.array() == array) return true;
    }
    return false;
}

// One element value as the plug would give it: the attribute's default when unset.
double storedNumber(const host::Plug& array, const host::Slot& element) {
    return host::valueAsDouble(element.value.index() != 0 ? element.value : array.attr()->defaultValue);
}

void readThroughPlugs(MPlug weights, double* dense, unsigned int size) {
    MIntArray indices;
    weights.getExistingArrayAttributeIndices(indices);
    for (unsigned int k = 0; k < indices.length(); ++k)
        if (indices[k] >= 0 && static_cast<unsigned int>(indices[k]) < size)
            dense[indices[k]] = weights.elementByPhysicalIndex(k).asDouble();
}

// Whether the multi holds elements at exactly these indices (ascending), so that a new map with
// them can be written over the old one in place: rewriting a map is the common case, and it then
// costs no new storage.
bool holdsExactly(const host::Plug& array, const std::vector<uint32_t>& indices) {
    const host::Slot* slot = array.slot();
    if (!slot || !slot->elements || slot->elements->size() != indices.size()) return false;
    for (std::size_t position = 0; position < indices.size(); ++position)
        if (slot->elements->keyAt(position) != indices[position]) return false;
    return true;
}

} // namespace

void readWeightMap(const MPlug& weights, double* dense, unsigned int size) {
    const host::Plug* array = weights.hostPlug().get();
    if (!array || !array->isArray()) return;
    if (connectedBelow(*array)) return readThroughPlugs(weights, dense, size);
    const host::Slot* slot = array->slot();
    if (!slot || !slot->elements) return;
    const host::SparseArray<host::Slot>& elements = *slot->elements;
    if (elements.holdsNumbers()) {
        const std::vector<uint32_t>& keys = elements.keys();
        const std::vector<double>& numbers = elements.numbers();
        for (std::size_t position = 0; position < keys.size(); ++position)
            if (keys[position] < size) dense[keys[position]] = numbers[position];
        return;
    }
    for (std::size_t position = 0; position < elements.size(); ++position) {
        const uint32_t index = elements.keyAt(position);
        if (index < size) dense[index] = storedNumber(*array, elements.valueAt(position));
    }
}

void replaceWeightMap(const MPlug& weights, const core::WeightMap& writes) {
    const host::Plug* array = weights.hostPlug().get();
    if (!array || !array->isArray()) return;
    // Weight maps are single precision: stored as a float plug write stores them.
    const bool single = array->attr()->type == host::AttrType::Float;
    std::vector<uint32_t> indices;
    std::vector<double> values;
    indices.reserve(writes.size());
    values.reserve(writes.size());
    for (std::size_t k = 0; k < writes.size(); ++k) {
        if (writes.indices[k] < 0) continue;
        indices.push_back(static_cast<uint32_t>(writes.indices[k]));
        values.push_back(single ? static_cast<double>(static_cast<float>(writes.weights[k]))
                                : writes.weights[k]);
    }
    if (holdsExactly(*array, indices) && array->overwriteNumbers(values.data(), values.size())) {
        array->node()->touch();
        return;
    }
    // A new map is stored as bare numbers: no element is built until something asks for one.
    host::SparseArray<host::Slot> elements;
    elements.assignNumbers(std::move(indices), std::move(values));
    // The old map goes to the undo journal as it is.
    if (array->exchangeElements(elements)) array->node()->touch();
}

} // namespace pytalven
