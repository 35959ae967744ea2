#pragma once
// What an attribute holds: a leaf value, the children of a compound, or the elements of a multi.
#include "engine/Data.h"
#include "engine/SparseArray.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace host {

using Value = std::variant<std::monostate, bool, int, double, std::string, DataPtr>;

struct Slot {
    Value value;
    std::unique_ptr<std::vector<Slot>> children; // compound attributes, by child position
    std::unique_ptr<SparseArray<Slot>> elements; // multi attributes, by logical index

    Slot() = default;
    Slot(Slot&&) noexcept = default;
    Slot& operator=(Slot&&) noexcept = default;

    Slot clone() const {
        Slot copy;
        copy.value = value;
        if (children) {
            copy.children = std::make_unique<std::vector<Slot>>();
            copy.children->reserve(children->size());
            for (const Slot& c : *children) copy.children->push_back(c.clone());
        }
        if (elements) copy.elements = std::make_unique<SparseArray<Slot>>(elements->clone());
        return copy;
    }

    std::vector<Slot>& childSlots(std::size_t count) {
        if (!children) children = std::make_unique<std::vector<Slot>>();
        if (children->size() < count) children->resize(count);
        return *children;
    }
    SparseArray<Slot>& elementSlots() {
        if (!elements) elements = std::make_unique<SparseArray<Slot>>();
        return *elements;
    }
};

double valueAsDouble(const Value& value);
bool valueIsNumeric(const Value& value);

} // namespace host
