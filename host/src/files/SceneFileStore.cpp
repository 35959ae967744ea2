#include "files/SceneFileStore.h"

namespace host {

const NodeFileInfo* SceneFileStore::find(const Node& node) const {
    auto it = nodes.find(node.id());
    return it == nodes.end() ? nullptr : &it->second;
}

SceneFileStore& sceneFileStore() {
    // A scene is recognised by its first node (initialShadingGroup), which can never be deleted: a
    // new scene at the same address still has a new first node.
    static std::weak_ptr<Node> owner;
    static SceneFileStore store;
    const NodePtr first = scene().nodes().empty() ? nullptr : scene().nodes().front();
    if (owner.expired() || owner.lock() != first) {
        store = SceneFileStore();
        owner = first;
    }
    return store;
}

} // namespace host
