#include "engine/Plug.h"

#include "engine/ChangeJournal.h"

#include <algorithm>
#include <cstdlib>

namespace host {

Plug::Plug(NodePtr node, const AttrSpec* attr) : node_(std::move(node)), attr_(attr) {
    indices_.fill(kNoIndex);
    depth_ = attr_ ? attr_->multiDepth() : 0;
    if (depth_ > kMaxDepth) {
        node_.reset();
        attr_ = nullptr;
        depth_ = 0;
    }
}

bool Plug::isArray() const {
    return attr_ && attr_->multi && indices_[depth_ - 1] == kNoIndex;
}
bool Plug::isElement() const {
    return attr_ && attr_->multi && indices_[depth_ - 1] != kNoIndex;
}

bool Plug::isComplete() const {
    const int needed = isArray() ? depth_ - 1 : depth_;
    for (int i = 0; i < needed; ++i)
        if (indices_[i] == kNoIndex) return false;
    return true;
}

uint32_t Plug::logicalIndex() const {
    return isElement() ? indices_[depth_ - 1] : kNoIndex;
}

Plug Plug::element(uint32_t logical) const {
    if (!isArray() || logical == kNoIndex) return Plug();
    Plug p = *this;
    p.indices_[depth_ - 1] = logical;
    return p;
}

Plug Plug::array() const {
    if (!isElement()) return Plug();
    Plug p = *this;
    p.indices_[depth_ - 1] = kNoIndex;
    return p;
}

Plug Plug::child(const AttrSpec* childAttr) const {
    if (!childAttr || childAttr->parent != attr_ || isArray()) return Plug();
    Plug p(node_, childAttr);
    for (int i = 0; i < depth_; ++i) p.indices_[i] = indices_[i];
    return p;
}

Plug Plug::child(std::size_t index) const {
    if (!attr_ || index >= attr_->children.size()) return Plug();
    return child(attr_->children[index].get());
}

Plug Plug::parent() const {
    if (!attr_ || !attr_->parent) return Plug();
    Plug p(node_, attr_->parent);
    for (int i = 0; i < p.depth_; ++i) p.indices_[i] = indices_[i];
    return p;
}

namespace {

// The attribute chain from the top down without allocating; plugs deeper than this are refused.
struct Chain {
    std::array<const AttrSpec*, 16> items{};
    std::size_t count = 0;
    explicit Chain(const AttrSpec* attr) {
        for (const AttrSpec* a = attr; a && count < items.size(); a = a->parent) items[count++] = a;
        std::reverse(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(count));
    }
    std::size_t size() const { return count; }
    const AttrSpec* operator[](std::size_t i) const { return items[i]; }
    const AttrSpec* front() const { return items[0]; }
};

} // namespace

const Slot* Plug::slot() const {
    if (isNull() || !node_->alive()) return nullptr;
    const Chain chain(attr_);
    const Slot* s = node_->topSlotIfAny(chain.front());
    int level = 0;
    for (std::size_t k = 0; s && k < chain.size(); ++k) {
        const AttrSpec* a = chain[k];
        if (k > 0) {
            if (!s->children || static_cast<std::size_t>(a->index) >= s->children->size()) return nullptr;
            s = &(*s->children)[static_cast<std::size_t>(a->index)];
        }
        if (a->multi) {
            const uint32_t idx = indices_[static_cast<std::size_t>(level++)];
            if (idx == kNoIndex) return k + 1 == chain.size() ? s : nullptr;
            if (!s->elements) return nullptr;
            s = s->elements->find(idx);
        }
    }
    return s;
}

Slot* Plug::slotForWrite() const {
    if (isNull() || !node_->alive() || !isComplete()) return nullptr;
    if (ChangeJournal* journal = recordingJournal()) journal->slotWrite(*this);
    return locateForWrite();
}

bool Plug::exchangeElements(SparseArray<Slot>& elements) const {
    if (isNull() || !isArray() || !node_->alive() || !isComplete()) return false;
    Slot* slot = locateForWrite();
    ChangeJournal* journal = recordingJournal();
    if (journal && journal->takesWholeSlot(*this)) {
        Slot old;
        old.value = slot->value;
        old.elements = std::move(slot->elements);
        journal->keepSlot(*this, std::move(old));
    }
    std::swap(slot->elementSlots(), elements);
    return true;
}

bool Plug::overwriteNumbers(const double* values, std::size_t count) const {
    const Slot* current = !isNull() && isArray() && node_->alive() && isComplete() ? slot() : nullptr;
    if (!current || !current->elements || current->elements->size() != count) return false;
    SparseArray<Slot>& elements = *locateForWrite()->elements;
    ChangeJournal* journal = recordingJournal();
    const bool keepOld = journal && journal->takesWholeSlot(*this);
    if (elements.holdsNumbers()) {
        std::vector<double>& numbers = elements.numbers();
        std::vector<double> old;
        if (keepOld) old = numbers;
        std::copy(values, values + count, numbers.begin());
        if (keepOld) journal->keepNumbers(*this, std::move(old));
        return true;
    }
    // One pass over the elements, which may be many: each old number is kept as it is written over,
    // and the kept ones are put back if an element turns out to hold something else.
    std::vector<double> old;
    old.reserve(count);
    for (std::size_t position = 0; position < count; ++position) {
        Slot& element = elements.valueAt(position);
        double* number = std::get_if<double>(&element.value);
        if (!number || element.children || element.elements) {
            for (std::size_t k = 0; k < old.size(); ++k) elements.valueAt(k).value = old[k];
            return false;
        }
        old.push_back(*number);
        *number = values[position];
    }
    if (keepOld) journal->keepNumbers(*this, std::move(old));
    return true;
}

Slot* Plug::locateForWrite() const {
    const Chain chain(attr_);
    Slot* s = &node_->topSlot(chain.front());
    int level = 0;
    for (std::size_t k = 0; k < chain.size(); ++k) {
        const AttrSpec* a = chain[k];
        if (k > 0) s = &s->childSlots(chain[k - 1]->children.size())[static_cast<std::size_t>(a->index)];
        if (a->multi) {
            const uint32_t idx = indices_[static_cast<std::size_t>(level++)];
            if (idx == kNoIndex) return s; // the array plug itself
            s = &s->elementSlots().obtain(idx);
        }
    }
    return s;
}

namespace {

// Where a plug's value is stored: a bare number of its multi, or a slot; neither when unset. An
// element's value is in its multi's elements, so one walk to the multi finds either.
struct Stored {
    const double* number = nullptr;
    const Slot* slot = nullptr;
};

Stored storedAt(const Plug& plug) {
    if (plug.isNull() || !plug.isElement()) return {nullptr, plug.slot()};
    const Slot* owner = plug.array().slot();
    if (!owner || !owner->elements) return {};
    if (const double* number = owner->elements->findNumber(plug.logicalIndex())) return {number, nullptr};
    return {nullptr, owner->elements->find(plug.logicalIndex())};
}

} // namespace

Value Plug::value() const {
    const Stored stored = storedAt(*this);
    if (stored.number) return *stored.number;
    if (stored.slot && stored.slot->value.index() != 0) return stored.slot->value;
    return attr_ ? attr_->defaultValue : Value();
}

bool Plug::hasStoredValue() const {
    const Stored stored = storedAt(*this);
    return stored.number || stored.slot;
}

bool Plug::setValue(Value v) const {
    if (isArray() || isCompound() || isNull() || !node_->alive() || !isComplete()) return false;
    if (ChangeJournal* journal = recordingJournal()) journal->slotWrite(*this);
    if (!isElement()) {
        locateForWrite()->value = std::move(v);
    } else {
        // A number written to an element of a multi of numbers is kept bare while the multi holds
        // nothing else.
        SparseArray<Slot>& elements = array().locateForWrite()->elementSlots();
        const double* number = std::get_if<double>(&v);
        if (!number || !elements.writeNumber(logicalIndex(), *number))
            elements.obtain(logicalIndex()).value = std::move(v);
    }
    node_->touch();
    return true;
}

std::vector<uint32_t> Plug::existingIndices() const {
    if (!isArray()) return {};
    const Slot* s = slot();
    if (!s || !s->elements) return {};
    return s->elements->keys();
}

std::size_t Plug::numElements() const {
    if (!isArray()) return 0;
    const Slot* s = slot();
    return s && s->elements ? s->elements->size() : 0;
}

bool Plug::removeElement(uint32_t logical) const {
    if (!isArray()) return false;
    const Slot* s = slot();
    if (!s || !s->elements || !s->elements->find(logical)) return false;
    if (ChangeJournal* journal = recordingJournal()) journal->slotWrite(element(logical));
    bool removed = const_cast<Slot*>(s)->elements->erase(logical);
    if (removed) node_->touch();
    return removed;
}

void Plug::clearElements() const {
    if (!isArray()) return;
    const Slot* s = slot();
    if (s && s->elements && !s->elements->empty()) {
        if (ChangeJournal* journal = recordingJournal()) journal->slotWrite(*this);
        const_cast<Slot*>(s)->elements->clear();
        node_->touch();
    }
}

std::string Plug::attrPath(bool longNames) const {
    if (isNull()) return std::string();
    // Non-multi compound parents are left out ("translateX", not "translate.translateX"); multi
    // parents are spelled with their index ("inputTarget[0].inputTargetGroup[2]").
    const auto chain = attr_->chain();
    std::string out;
    int level = 0;
    for (std::size_t k = 0; k < chain.size(); ++k) {
        const AttrSpec* a = chain[k];
        if (!a->multi && k + 1 != chain.size()) continue;
        if (!out.empty()) out += '.';
        out += longNames ? a->longName : a->shortName;
        if (a->multi) {
            const uint32_t idx = indices_[static_cast<std::size_t>(level++)];
            if (idx != kNoIndex) out += '[' + std::to_string(idx) + ']';
        }
    }
    return out;
}

std::string Plug::name(bool longNames) const {
    if (isNull()) return std::string();
    return node_->name() + "." + attrPath(longNames);
}

bool Plug::operator==(const Plug& o) const {
    if (node_ != o.node_ || attr_ != o.attr_) return false;
    for (int i = 0; i < depth_; ++i)
        if (indices_[i] != o.indices_[i]) return false;
    return true;
}

std::size_t Plug::hash() const {
    std::size_t h = std::hash<const void*>()(node_.get()) ^ (std::hash<const void*>()(attr_) << 1);
    for (int i = 0; i < depth_; ++i) h = h * 1000003u ^ indices_[i];
    return h;
}

namespace {

struct Segment {
    std::string name;
    uint32_t index = kNoIndex;
};

bool splitPath(const std::string& path, std::vector<Segment>& out, std::string* error) {
    std::size_t i = 0;
    const std::size_t n = path.size();
    while (i < n) {
        Segment seg;
        std::size_t start = i;
        while (i < n && path[i] != '.' && path[i] != '[') ++i;
        seg.name = path.substr(start, i - start);
        if (seg.name.empty()) {
            if (error) *error = "Invalid attribute path: " + path;
            return false;
        }
        if (i < n && path[i] == '[') {
            std::size_t close = path.find(']', i);
            if (close == std::string::npos || close == i + 1) {
                if (error) *error = "Invalid attribute index: " + path;
                return false;
            }
            std::string digits = path.substr(i + 1, close - i - 1);
            char* end = nullptr;
            unsigned long long value = std::strtoull(digits.c_str(), &end, 10);
            if (*end != '\0' || digits[0] == '-' || value >= kNoIndex) {
                if (error) *error = "Invalid attribute index: " + path;
                return false;
            }
            seg.index = static_cast<uint32_t>(value);
            i = close + 1;
        }
        out.push_back(std::move(seg));
        if (i < n) {
            if (path[i] != '.' || i + 1 == n) {
                if (error) *error = "Invalid attribute path: " + path;
                return false;
            }
            ++i;
        }
    }
    return !out.empty();
}

bool isAncestor(const AttrSpec* ancestor, const AttrSpec* attr) {
    for (const AttrSpec* a = attr ? attr->parent : nullptr; a; a = a->parent)
        if (a == ancestor) return true;
    return false;
}

} // namespace

Plug resolveAttrPath(const NodePtr& node, const std::string& path, std::string* error) {
    std::vector<Segment> segments;
    if (!node || !splitPath(path, segments, error)) {
        if (error && error->empty()) *error = "Invalid attribute path: " + path;
        return Plug();
    }
    // Aliases name a whole attribute path of their own ("w[0]"); they may stand first.
    for (const auto& alias : node->aliases()) {
        if (alias.first == segments.front().name && segments.front().index == kNoIndex) {
            std::string rest;
            for (std::size_t k = 1; k < segments.size(); ++k) {
                rest += '.' + segments[k].name;
                if (segments[k].index != kNoIndex) rest += '[' + std::to_string(segments[k].index) + ']';
            }
            return resolveAttrPath(node, alias.second + rest, error);
        }
    }
    const AttrSpec* previous = nullptr;
    std::vector<std::pair<const AttrSpec*, uint32_t>> given;
    for (const Segment& seg : segments) {
        const AttrSpec* attr = nullptr;
        if (previous) {
            // A child name is looked up below the previous attribute first (names may repeat).
            attr = previous->childNamed(seg.name);
            if (!attr) {
                const AttrSpec* candidate = node->findAttr(seg.name);
                if (candidate && isAncestor(previous, candidate)) attr = candidate;
            }
        } else {
            attr = node->findAttr(seg.name);
        }
        if (!attr) {
            if (error) *error = "No object matches name: " + node->name() + "." + path;
            return Plug();
        }
        if (seg.index != kNoIndex && !attr->multi) {
            if (error) *error = "Attribute is not an array: " + node->name() + "." + path;
            return Plug();
        }
        given.emplace_back(attr, seg.index);
        previous = attr;
    }
    Plug plug(node, previous);
    if (plug.isNull()) {
        if (error) *error = "Attribute nesting too deep: " + path;
        return Plug();
    }
    // Place the given indices on the multi attributes of the chain; every multi above the last
    // attribute must have one.
    const auto chain = previous->chain();
    std::vector<uint32_t> indices;
    for (const AttrSpec* a : chain) {
        if (!a->multi) continue;
        uint32_t idx = kNoIndex;
        for (const auto& g : given)
            if (g.first == a) idx = g.second;
        // A multi above the last attribute given without an index means its element 0, as Maya
        // reads "iog.og[2]" for instance 0.
        if (idx == kNoIndex && a != previous) idx = 0;
        indices.push_back(idx);
    }
    Plug result(node, chain.front());
    for (std::size_t k = 0; k < chain.size(); ++k) {
        const AttrSpec* a = chain[k];
        if (k > 0) result = result.child(a);
        if (a->multi) {
            const uint32_t idx = indices[static_cast<std::size_t>(result.depth() - 1)];
            if (idx != kNoIndex) result = result.element(idx);
        }
    }
    return result;
}

Plug obtainGenericPath(const NodePtr& node, const std::string& path, std::string* error) {
    std::string ignored;
    Plug existing = resolveAttrPath(node, path, &ignored);
    if (!existing.isNull()) return existing;
    std::vector<Segment> segments;
    if (!node || !splitPath(path, segments, error)) return Plug();
    AttrSpec* previous = nullptr;
    for (std::size_t k = 0; k < segments.size(); ++k) {
        const Segment& seg = segments[k];
        const bool hasChild = k + 1 < segments.size();
        const AttrSpec* found = previous ? previous->childNamed(seg.name) : node->findAttr(seg.name);
        AttrSpec* attr = const_cast<AttrSpec*>(found);
        if (!attr) {
            if (previous && !previous->madeUp) {
                if (error) *error = "No object matches name: " + node->name() + "." + path;
                return Plug();
            }
            if (previous) {
                if (previous->type == AttrType::Generic) previous->type = AttrType::Compound;
                auto child = genericAttr(seg.name, seg.name);
                child->dynamic = previous->dynamic;
                child->madeUp = true;
                child->parent = previous;
                child->index = static_cast<int>(previous->children.size());
                attr = child.get();
                previous->children.push_back(std::move(child));
                node->touch();
            } else {
                attr = const_cast<AttrSpec*>(node->obtainGenericAttr(seg.name, seg.index != kNoIndex));
                if (!attr) {
                    if (error) *error = "No object matches name: " + node->name() + "." + path;
                    return Plug();
                }
            }
        }
        // Only made-up attributes may change kind.
        if (attr->madeUp && seg.index != kNoIndex && !attr->multi && attr->multiDepth() < Plug::kMaxDepth)
            attr->multi = true;
        if (attr->madeUp && hasChild && attr->type == AttrType::Generic) attr->type = AttrType::Compound;
        previous = attr;
    }
    return resolveAttrPath(node, path, error);
}

} // namespace host
