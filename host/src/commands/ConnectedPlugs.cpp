#include "commands/ConnectedPlugs.h"

#include "engine/Scene.h"

namespace host {

ConnectedPlugs::ConnectedPlugs(const Node& node) {
    for (const Connection& c : scene().connections())
        if (c.destination.node().get() == &node) destinations_.insert(c.destination);
}

bool isAtOrBelow(const Plug& plug, const Plug& top) {
    if (plug.node() != top.node()) return false;
    for (Plug p = plug; !p.isNull(); p = p.isElement() ? p.array() : p.parent())
        if (p == top) return true;
    return false;
}

bool ConnectedPlugs::blocks(const Plug& plug) const {
    if (destinations_.empty()) return false;
    for (Plug p = plug; !p.isNull(); p = p.isElement() ? p.array() : p.parent())
        if (destinations_.count(p)) return true;
    if (plug.isCompound() && !plug.isArray())
        for (std::size_t k = 0; k < plug.attr()->children.size(); ++k)
            if (destinations_.count(plug.child(k))) return true;
    return false;
}

} // namespace host
