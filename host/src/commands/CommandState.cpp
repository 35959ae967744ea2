#include "commands/CommandState.h"

#include "engine/Scene.h"

namespace host {

namespace {

bool& readingFlag() {
    static bool reading = false;
    return reading;
}

std::weak_ptr<Node>& currentHolder() {
    static std::weak_ptr<Node> current;
    return current;
}

} // namespace

void setFileReadingMode(bool reading) {
    readingFlag() = reading;
}
bool fileReadingMode() {
    return readingFlag();
}

void setCurrentNode(const NodePtr& node) {
    currentHolder() = node;
}

NodePtr currentNode() {
    NodePtr node = currentHolder().lock();
    if (!node || !node->alive()) return nullptr;
    // A node kept alive by a handle after `file -new` belongs to no scene any more.
    return scene().findNode(scene().fullPath(*node)) == node ? node : nullptr;
}

} // namespace host
