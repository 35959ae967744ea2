#include "commands/OwnHistory.h"

#include "commands/ObjectItems.h"
#include "engine/Scene.h"

#include <unordered_map>
#include <unordered_set>

namespace host {

namespace {

// Only history may go: nodes outside the DAG (other than sets and shading groups, which collect
// members rather than compute them) and the hidden original shapes deformers read.
bool isHistoryNode(const NodePtr& node) {
    if (node->type().isA("objectSet")) return false;
    if (!node->isDag()) return true;
    return node->type().isA("mesh") && isIntermediateObject(*node);
}

} // namespace

std::vector<NodePtr> ownHistory(const std::vector<NodePtr>& deleted) {
    Scene& s = scene();
    std::unordered_set<const Node*> gone;
    std::vector<Node*> pending;
    for (const NodePtr& node : deleted) {
        if (!node || !node->alive()) continue;
        pending.push_back(node.get());
        for (std::size_t i = pending.size() - 1; i < pending.size(); ++i) {
            gone.insert(pending[i]);
            pending.insert(pending.end(), pending[i]->children().begin(), pending[i]->children().end());
        }
    }
    // Who feeds whom, built once.
    std::unordered_map<const Node*, std::vector<Node*>> sources;
    std::unordered_map<const Node*, std::vector<const Node*>> destinations;
    for (const Connection& c : s.connections()) {
        sources[c.destination.node().get()].push_back(c.source.node().get());
        destinations[c.source.node().get()].push_back(c.destination.node().get());
    }
    std::vector<Node*> walk;
    for (const Node* node : gone)
        if (node->type().isA("mesh")) walk.push_back(const_cast<Node*>(node));
    std::vector<NodePtr> history;
    while (!walk.empty()) {
        const Node* node = walk.back();
        walk.pop_back();
        for (Node* source : sources[node]) {
            if (gone.count(source)) continue;
            const NodePtr candidate = s.sharedNode(source);
            if (!isHistoryNode(candidate)) continue;
            bool feedsOnlyGone = true;
            for (const Node* d : destinations[source]) feedsOnlyGone = feedsOnlyGone && gone.count(d) > 0;
            if (!feedsOnlyGone) continue;
            gone.insert(source);
            history.push_back(candidate);
            walk.push_back(source);
        }
    }
    return history;
}

} // namespace host
