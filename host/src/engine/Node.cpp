#include "engine/Node.h"

#include "engine/ChangeJournal.h"

#include <algorithm>

namespace host {

Node::~Node() {
    for (Node* child : children_) child->parent_ = nullptr;
    if (parent_) {
        auto& siblings = parent_->children_;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
}

const AttrSpec* Node::findAttr(const std::string& attrName) const {
    if (const AttrSpec* attr = type_->findAttr(attrName)) return attr;
    auto it = dynamicByName_.find(attrName);
    return it == dynamicByName_.end() ? nullptr : it->second;
}

const AttrSpec* Node::attrAt(std::size_t index) const {
    const std::size_t fixed = type_->attrs.size();
    if (index < fixed) return type_->attrs[index];
    index -= fixed;
    return index < dynamicAttrs_.size() ? dynamicAttrs_[index].get() : nullptr;
}

static void indexDynamic(std::unordered_map<std::string, const AttrSpec*>& names, const AttrSpec& attr) {
    names.emplace(attr.longName, &attr);
    if (!attr.shortName.empty()) names.emplace(attr.shortName, &attr);
    for (const auto& child : attr.children) indexDynamic(names, *child);
}

static bool namesFree(const Node& node, const AttrSpec& attr) {
    if (node.findAttr(attr.longName) || (!attr.shortName.empty() && node.findAttr(attr.shortName)))
        return false;
    for (const auto& child : attr.children)
        if (!namesFree(node, *child)) return false;
    return true;
}

bool Node::addDynamicAttr(AttrPtr attr) {
    if (!attr || attr->longName.empty() || !namesFree(*this, *attr)) return false;
    if (attr->shortName.empty()) attr->shortName = attr->longName;
    attr->dynamic = true;
    linkAttr(*attr, nullptr, static_cast<int>(attrCount()));
    indexDynamic(dynamicByName_, *attr);
    const AttrSpec* added = attr.get();
    dynamicAttrs_.push_back(std::move(attr));
    touch();
    if (ChangeJournal* journal = recordingJournal()) journal->attrAdded(*this, added);
    return true;
}

bool Node::removeDynamicAttr(const AttrSpec* attr) {
    DetachedAttr detached = detachDynamicAttr(attr);
    if (!detached.attr) return false;
    if (ChangeJournal* journal = recordingJournal()) journal->attrRemoved(*this, std::move(detached));
    return true;
}

Node::DetachedAttr Node::detachDynamicAttr(const AttrSpec* attr) {
    DetachedAttr detached;
    auto it = std::find_if(dynamicAttrs_.begin(), dynamicAttrs_.end(),
                           [attr](const AttrPtr& a) { return a.get() == attr; });
    if (it == dynamicAttrs_.end()) return detached;
    detached.position = static_cast<std::size_t>(it - dynamicAttrs_.begin());
    const std::size_t slotIndex = static_cast<std::size_t>(attr->index);
    // Later dynamic attributes move down one slot.
    if (root_.children && slotIndex < root_.children->size()) {
        detached.value = std::move((*root_.children)[slotIndex]);
        root_.children->erase(root_.children->begin() + static_cast<std::ptrdiff_t>(slotIndex));
    }
    detached.attr = std::move(*it);
    dynamicAttrs_.erase(it);
    reindexDynamic();
    return detached;
}

void Node::attachDynamicAttr(DetachedAttr detached) {
    const std::size_t position = std::min(detached.position, dynamicAttrs_.size());
    const std::size_t slotIndex = type_->attrs.size() + position;
    std::vector<Slot>& slots = root_.childSlots(slotIndex);
    slots.insert(slots.begin() + static_cast<std::ptrdiff_t>(slotIndex), std::move(detached.value));
    dynamicAttrs_.insert(dynamicAttrs_.begin() + static_cast<std::ptrdiff_t>(position),
                         std::move(detached.attr));
    reindexDynamic();
}

void Node::reindexDynamic() {
    for (std::size_t i = 0; i < dynamicAttrs_.size(); ++i)
        dynamicAttrs_[i]->index = static_cast<int>(type_->attrs.size() + i);
    dynamicByName_.clear();
    for (const auto& a : dynamicAttrs_) indexDynamic(dynamicByName_, *a);
    touch();
}

const AttrSpec* Node::obtainGenericAttr(const std::string& attrName, bool isMulti) {
    if (const AttrSpec* existing = findAttr(attrName)) return existing;
    auto attr = genericAttr(attrName, attrName);
    attr->multi = isMulti;
    const AttrSpec* result = attr.get();
    if (!addDynamicAttr(std::move(attr))) return nullptr;
    const_cast<AttrSpec*>(result)->dynamic = false; // part of the node as read, not user-added
    const_cast<AttrSpec*>(result)->madeUp = true;
    return result;
}

Slot& Node::topSlot(const AttrSpec* attr) {
    return root_.childSlots(attrCount())[static_cast<std::size_t>(attr->index)];
}

const Slot* Node::topSlotIfAny(const AttrSpec* attr) const {
    const std::size_t index = static_cast<std::size_t>(attr->index);
    if (!root_.children || index >= root_.children->size()) return nullptr;
    return &(*root_.children)[index];
}

void Node::setParent(Node* parent) {
    setParent(parent, parent ? parent->children_.size() : 0);
}

void Node::setParent(Node* parent, std::size_t position) {
    if (!children_.empty()) noteHierarchyChange();
    if (parent_) {
        auto& siblings = parent_->children_;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
    parent_ = parent;
    if (!parent_) return;
    auto& siblings = parent_->children_;
    siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(std::min(position, siblings.size())),
                    this);
}

std::size_t Node::childPosition() const {
    if (!parent_) return 0;
    const auto& siblings = parent_->children_;
    return static_cast<std::size_t>(std::find(siblings.begin(), siblings.end(), this) - siblings.begin());
}

std::shared_ptr<MeshData>& Node::mesh() {
    if (ChangeJournal* journal = recordingJournal()) journal->meshWrite(*this, mesh_);
    return mesh_;
}

Node::AliasList& Node::aliases() {
    if (ChangeJournal* journal = recordingJournal()) journal->aliasesWrite(*this, aliases_);
    return aliases_;
}

} // namespace host
