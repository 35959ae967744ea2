#include "commands/SelectionEdit.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

enum class Edit { Add, Remove, Toggle };

bool sameTarget(const SelectionItem& a, const SelectionItem& b) {
    if (a.node != b.node || a.plug != b.plug || !a.component != !b.component) return false;
    return !a.component || a.component->type == b.component->type;
}

std::vector<int> sortedElements(const ComponentData& c) {
    std::vector<int> e = c.elements;
    std::sort(e.begin(), e.end());
    e.erase(std::unique(e.begin(), e.end()), e.end());
    return e;
}

void edit(SelectionList& list, const SelectionItem& item, Edit how) {
    auto found =
        std::find_if(list.begin(), list.end(), [&](const SelectionItem& e) { return sameTarget(e, item); });
    if (found == list.end()) {
        if (how == Edit::Remove) return;
        SelectionItem added = item;
        if (item.component) {
            auto c = std::make_shared<ComponentData>(*item.component);
            c->elements = sortedElements(*c);
            added.component = std::move(c);
        }
        list.push_back(std::move(added));
        return;
    }
    if (!item.component) {
        if (how != Edit::Add) list.erase(found);
        return;
    }
    const std::vector<int> current = sortedElements(*found->component);
    const std::vector<int> given = sortedElements(*item.component);
    std::vector<int> result;
    result.reserve(current.size() + given.size());
    auto out = std::back_inserter(result);
    if (how == Edit::Add) std::set_union(current.begin(), current.end(), given.begin(), given.end(), out);
    if (how == Edit::Remove)
        std::set_difference(current.begin(), current.end(), given.begin(), given.end(), out);
    if (how == Edit::Toggle)
        std::set_symmetric_difference(current.begin(), current.end(), given.begin(), given.end(), out);
    if (result.empty()) {
        list.erase(found);
        return;
    }
    auto c = std::make_shared<ComponentData>(*found->component);
    c->elements = std::move(result);
    c->complete = false;
    found->component = std::move(c);
}

} // namespace

void addToSelection(SelectionList& list, const SelectionItem& item) {
    edit(list, item, Edit::Add);
}
void removeFromSelection(SelectionList& list, const SelectionItem& item) {
    edit(list, item, Edit::Remove);
}
void toggleInSelection(SelectionList& list, const SelectionItem& item) {
    edit(list, item, Edit::Toggle);
}

} // namespace host
