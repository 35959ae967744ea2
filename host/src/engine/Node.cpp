#include "engine/Node.h"

#include <algorithm>

namespace host {

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
    dynamicAttrs_.push_back(std::move(attr));
    touch();
    return true;
}

bool Node::removeDynamicAttr(const AttrSpec* attr) {
    auto it = std::find_if(dynamicAttrs_.begin(), dynamicAttrs_.end(),
                           [attr](const AttrPtr& a) { return a.get() == attr; });
    if (it == dynamicAttrs_.end()) return false;
    const std::size_t slotIndex = static_cast<std::size_t>(attr->index);
    // Later dynamic attributes move down one slot.
    if (root_.children && slotIndex < root_.children->size())
        root_.children->erase(root_.children->begin() + static_cast<std::ptrdiff_t>(slotIndex));
    dynamicAttrs_.erase(it);
    for (std::size_t i = 0; i < dynamicAttrs_.size(); ++i)
        dynamicAttrs_[i]->index = static_cast<int>(type_->attrs.size() + i);
    dynamicByName_.clear();
    for (const auto& a : dynamicAttrs_) indexDynamic(dynamicByName_, *a);
    touch();
    return true;
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
    if (parent_) {
        auto& siblings = parent_->children_;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
    parent_ = parent;
    if (parent_) parent_->children_.push_back(this);
}

} // namespace host
