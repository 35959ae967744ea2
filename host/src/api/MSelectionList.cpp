#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include "api/ObjectRef.h"
#include "engine/ComponentText.h"
#include "engine/NamePattern.h"
#include "engine/Scene.h"

#include "api/StatusOut.h"
#include <algorithm>
#include <unordered_set>

using host::SelectionItem;

using host::setStatus;

namespace {

bool sameItem(const SelectionItem& a, const SelectionItem& b) {
    return a.node == b.node && a.plug == b.plug && !a.component && !b.component;
}

// Adds an item; with merging, a node already listed is not added twice and components of one mesh
// are combined into one item.
void addItem(std::vector<SelectionItem>& items, SelectionItem item, bool merge) {
    if (merge) {
        for (SelectionItem& existing : items) {
            if (existing.node != item.node || !existing.plug.isNull() || !item.plug.isNull()) continue;
            if (!existing.component && !item.component) return;
            if (existing.component && item.component && existing.component->type == item.component->type) {
                auto combined = std::make_shared<host::ComponentData>(*existing.component);
                std::unordered_set<int> present(combined->elements.begin(), combined->elements.end());
                for (int e : item.component->elements)
                    if (present.insert(e).second) combined->elements.push_back(e);
                combined->complete = combined->complete || item.component->complete;
                existing.component = combined;
                return;
            }
        }
    }
    items.push_back(std::move(item));
}

} // namespace

MSelectionList::MSelectionList() : items_(std::make_unique<std::vector<SelectionItem>>()) {}
MSelectionList::MSelectionList(const MSelectionList& src)
    : items_(std::make_unique<std::vector<SelectionItem>>(*src.items_)) {}
MSelectionList& MSelectionList::operator=(const MSelectionList& src) {
    if (this != &src) *items_ = *src.items_;
    return *this;
}
MSelectionList::~MSelectionList() = default;

std::vector<SelectionItem>& MSelectionList::items() {
    return *items_;
}
const std::vector<SelectionItem>& MSelectionList::items() const {
    return *items_;
}

MStatus MSelectionList::clear() {
    items_->clear();
    return MS::kSuccess;
}

bool MSelectionList::isEmpty(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return items_->empty();
}

unsigned int MSelectionList::length(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return static_cast<unsigned int>(items_->size());
}

MStatus MSelectionList::getDependNode(unsigned int index, MObject& depNode) const {
    if (index >= items_->size() || !(*items_)[index].node || !(*items_)[index].node->alive()) {
        depNode = MObject();
        return MS::kFailure;
    }
    depNode = host::ObjectRef::ofNode((*items_)[index].node);
    return MS::kSuccess;
}

MStatus MSelectionList::getDagPath(unsigned int index, MDagPath& dagPath, MObject& component) const {
    if (index >= items_->size()) return MS::kFailure;
    const SelectionItem& item = (*items_)[index];
    if (!item.node || !item.node->alive() || !item.node->isDag()) return MS::kFailure;
    dagPath = MDagPath(host::ObjectRef::ofNode(item.node));
    // Writing to the shared null object would change it for everyone: only a caller's own object.
    if (&component != &MObject::kNullObj)
        component = item.component ? host::ObjectRef::ofData(item.component->clone()) : MObject();
    return MS::kSuccess;
}

MStatus MSelectionList::getPlug(unsigned int index, MPlug& plug) const {
    if (index >= items_->size() || (*items_)[index].plug.isNull()) return MS::kFailure;
    plug = MPlug(std::make_shared<const host::Plug>((*items_)[index].plug));
    return MS::kSuccess;
}

MStatus MSelectionList::getPlug(unsigned int index, bool, MPlug& plug) const {
    return getPlug(index, plug);
}

static void itemStrings(const SelectionItem& item, MStringArray& out) {
    host::Scene& scene = host::scene();
    if (!item.node || !item.node->alive()) return;
    if (!item.plug.isNull()) {
        out.append(MString(scene.plugName(item.plug, false)));
        return;
    }
    const std::string name = scene.partialPath(*item.node);
    if (!item.component) {
        out.append(MString(name));
        return;
    }
    for (const std::string& text : host::componentItems(*item.component))
        out.append(MString(name + "." + text));
}

MStatus MSelectionList::getSelectionStrings(MStringArray& array) const {
    array.clear();
    for (const SelectionItem& item : *items_) itemStrings(item, array);
    return MS::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(unsigned int index, MStringArray& array) const {
    array.clear();
    if (index >= items_->size()) return MS::kFailure;
    itemStrings((*items_)[index], array);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MObject& object, const bool mergeWithExisting) {
    host::NodePtr node = host::nodeOf(object);
    if (!node) return MS::kInvalidParameter;
    SelectionItem item;
    item.node = node;
    addItem(*items_, std::move(item), mergeWithExisting);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MDagPath& object, const MObject& component, const bool mergeWithExisting) {
    host::NodePtr node = host::nodeOf(object.node());
    if (!node) return MS::kInvalidParameter;
    SelectionItem item;
    item.node = node;
    if (auto data = host::dataOf<host::ComponentData>(component))
        item.component = std::make_shared<const host::ComponentData>(*data);
    else if (!component.isNull())
        return MS::kInvalidParameter;
    addItem(*items_, std::move(item), mergeWithExisting);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MString& matchString, const bool) {
    if (host::isPattern(matchString.str())) {
        // Every node the pattern matches; a pattern matching nothing is an invalid parameter.
        const auto nodes = host::nodesMatching(host::scene(), matchString.str());
        for (const host::NodePtr& node : nodes)
            addItem(*items_, SelectionItem{node, nullptr, host::Plug()}, true);
        return nodes.empty() ? MS::kInvalidParameter : MS::kSuccess;
    }
    SelectionItem item;
    std::string error;
    if (!host::resolveSelectionString(host::scene(), matchString.str(), item, &error))
        return MS::kInvalidParameter;
    addItem(*items_, std::move(item), true);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MPlug& plug, const bool mergeWithExisting) {
    const auto& p = plug.hostPlug();
    if (!p || p->isNull() || !p->node()->alive()) return MS::kInvalidParameter;
    SelectionItem item;
    item.node = p->node();
    item.plug = *p;
    addItem(*items_, std::move(item), mergeWithExisting);
    return MS::kSuccess;
}

MStatus MSelectionList::add(const MUuid&, bool) {
    return MS::kNotImplemented;
}

MStatus MSelectionList::merge(const MSelectionList& other, const MergeStrategy strategy) {
    for (const SelectionItem& item : *other.items_) {
        auto found = std::find_if(items_->begin(), items_->end(),
                                  [&](const SelectionItem& e) { return sameItem(e, item); });
        if (strategy == kRemoveFromList) {
            if (found != items_->end()) items_->erase(found);
        } else if (strategy == kXORWithList && found != items_->end()) {
            items_->erase(found);
        } else {
            addItem(*items_, item, true);
        }
    }
    return MS::kSuccess;
}

MStatus MSelectionList::remove(unsigned int index) {
    if (index >= items_->size()) return MS::kFailure;
    items_->erase(items_->begin() + index);
    return MS::kSuccess;
}

bool MSelectionList::hasItem(const MObject& item, MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    host::NodePtr node = host::nodeOf(item);
    return node && std::any_of(items_->begin(), items_->end(),
                               [&](const SelectionItem& e) { return e.node == node; });
}
