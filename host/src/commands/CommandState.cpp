#include "commands/CommandState.h"

#include "engine/Node.h"

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
    return node && node->alive() ? node : nullptr;
}

} // namespace host
