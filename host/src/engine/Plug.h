#pragma once
// An address of one attribute value on a node: the attribute and one logical index for every multi
// attribute from the top down. The last index may be missing: that is the array plug itself.
// Plugs hold no pointers into value storage, so they stay valid while arrays grow.
#include "engine/Node.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace host {

constexpr uint32_t kNoIndex = 0xFFFFFFFFu;

class Plug {
public:
    static constexpr int kMaxDepth = 8;

    Plug() = default;
    Plug(NodePtr node, const AttrSpec* attr);

    bool isNull() const { return !node_ || !attr_; }
    const NodePtr& node() const { return node_; }
    const AttrSpec* attr() const { return attr_; }
    int depth() const { return depth_; }
    uint32_t indexAt(int level) const { return indices_[static_cast<std::size_t>(level)]; }

    bool isArray() const;   // a multi attribute without its own index
    bool isElement() const; // a multi attribute with its index
    bool isCompound() const { return attr_ && attr_->isCompound(); }
    // True when every multi above (and including, unless it is the array plug) has an index.
    bool isComplete() const;
    uint32_t logicalIndex() const;

    Plug element(uint32_t logical) const;
    Plug array() const; // the array plug of an element
    Plug child(const AttrSpec* childAttr) const;
    Plug child(std::size_t index) const;
    Plug parent() const; // the compound (element) this plug is a child of

    // Value access. Reading an unset value gives the attribute's default.
    const Slot* slot() const;
    Slot* slotForWrite() const;
    // Swaps the elements of this multi with `elements`: a whole map replaced without a copy of the
    // old one, which the undo journal keeps as it was. False when the plug is not a multi.
    bool exchangeElements(SparseArray<Slot>& elements) const;
    // Writes values[k] over the number held by the k-th element of this multi, in physical order,
    // when the multi holds exactly `count` elements and all hold numbers; the old numbers go to
    // the undo journal in one block. False, with nothing written, otherwise.
    bool overwriteNumbers(const double* values, std::size_t count) const;
    Value value() const;
    bool setValue(Value value) const; // false if the plug is not a complete leaf plug
    bool hasStoredValue() const;

    // Multi elements (array plugs only).
    std::vector<uint32_t> existingIndices() const;
    std::size_t numElements() const;
    bool removeElement(uint32_t logical) const;
    void clearElements() const;

    // "node.attr[3].child" with long names (as MPlug::name gives it) or short names.
    std::string name(bool longNames = true) const;
    std::string attrPath(bool longNames = true) const;

    bool operator==(const Plug& o) const;
    bool operator!=(const Plug& o) const { return !(*this == o); }
    std::size_t hash() const;

private:
    // The slot a write goes to, created as needed, without telling the undo journal.
    Slot* locateForWrite() const;

    NodePtr node_;
    const AttrSpec* attr_ = nullptr;
    std::array<uint32_t, kMaxDepth> indices_{};
    int depth_ = 0; // number of indices: multiDepth of attr_
};

struct PlugHash {
    std::size_t operator()(const Plug& p) const { return p.hash(); }
};

// Parses "attr[1].child[2].leaf" (long or short names, parents optional where not multi) on a node.
// Returns a null plug and an error text when the path does not resolve.
Plug resolveAttrPath(const NodePtr& node, const std::string& path, std::string* error);

// As resolveAttrPath, but attributes the node does not have are made up as generic ones (multi
// where an index is given, compound where a child follows), so a scene file's data is kept
// whatever the node type. Existing attributes are never changed in kind, except that a made-up
// attribute becomes multi or compound when the file uses it so.
Plug obtainGenericPath(const NodePtr& node, const std::string& path, std::string* error);

} // namespace host
