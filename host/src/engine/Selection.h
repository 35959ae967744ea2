#pragma once
// Selection items: a node (with a component on a mesh shape) or a plug.
#include "engine/Plug.h"

#include <memory>
#include <vector>

namespace host {

struct SelectionItem {
    NodePtr node;
    std::shared_ptr<const ComponentData> component; // null for whole objects
    Plug plug;                                      // set for plug items
};

using SelectionList = std::vector<SelectionItem>;

} // namespace host
