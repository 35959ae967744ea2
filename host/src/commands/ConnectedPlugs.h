#pragma once
// The destinations of a node's incoming connections, to refuse setting a value that a connection
// provides: the plug itself, a compound or array above it, or a child below it may be connected.
#include "engine/Plug.h"

#include <unordered_set>

namespace host {

class ConnectedPlugs {
public:
    explicit ConnectedPlugs(const Node& node);
    bool empty() const { return destinations_.empty(); }
    bool blocks(const Plug& plug) const;

private:
    std::unordered_set<Plug, PlugHash> destinations_;
};

// True when `plug` is `top` or lies below it: an element or child at any depth.
bool isAtOrBelow(const Plug& plug, const Plug& top);

} // namespace host
