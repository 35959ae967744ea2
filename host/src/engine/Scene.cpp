#include "engine/Scene.h"

#include "engine/ChangeJournal.h"

#include <algorithm>
#include <cctype>
#include <unordered_set>

namespace host {

namespace {

std::string defaultNameStem(const NodeType& type) {
    if (type.name == "mesh") return "polySurfaceShape";
    if (type.name == "objectSet") return "set";
    return type.name;
}

// Splits "pCube12" into "pCube" and 12; no trailing digits gives -1.
std::pair<std::string, long long> splitTrailingNumber(const std::string& name) {
    std::size_t end = name.size();
    while (end > 0 && std::isdigit(static_cast<unsigned char>(name[end - 1]))) --end;
    if (end == name.size() || name.size() - end > 15) return {name, -1};
    return {name.substr(0, end), std::stoll(name.substr(end))};
}

bool validName(const std::string& name) {
    if (name.empty() || std::isdigit(static_cast<unsigned char>(name[0]))) return false;
    for (char c : name)
        if (!(std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == ':')) return false;
    return true;
}

std::vector<std::string> splitPath(const std::string& path) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t pos = path.find('|', start);
        if (pos == std::string::npos) pos = path.size();
        parts.push_back(path.substr(start, pos - start));
        start = pos + 1;
    }
    return parts;
}

} // namespace

Scene::Scene() {
    std::string ignored;
    createNode("shadingEngine", "initialShadingGroup", nullptr, &ignored);
}

Scene::~Scene() {
    for (const NodePtr& node : nodes_) node->kill();
}

bool Scene::nameAvailable(const std::string& name, const Node* parent, const Node* self) const {
    auto range = byName_.equal_range(name);
    for (auto it = range.first; it != range.second; ++it) {
        const Node* other = it->second;
        if (other == self) continue;
        // DAG nodes may share a name under different parents; nothing else may.
        const bool selfDag = self ? self->isDag() : parent != nullptr;
        if (!(selfDag && other->isDag() && other->parent() != parent)) return false;
    }
    return true;
}

std::string Scene::uniqueName(const std::string& requested, const Node* parent, const Node* self) {
    std::string base = requested;
    bool hash = !base.empty() && base.back() == '#';
    if (hash) base.pop_back();
    if (!hash && nameAvailable(base, parent, self)) return base;
    auto [stem, number] = splitTrailingNumber(base);
    const long long first = hash || number < 0 ? 1 : number + 1;
    // A number the host picks ('#', default names) makes the name unique in the whole scene, so a
    // chain of new joints reads joint1|joint2|joint3; a clash of a given name is resolved among
    // siblings only. Counting from 1 may start where the last count for this stem and context ended.
    const bool dag = self ? self->isDag() : parent != nullptr;
    const bool global = hash || !dag;
    const uint64_t context = global ? ~uint64_t{0} : (parent ? parent->id() : 0);
    const auto available = [&](const std::string& name) {
        if (!global) return nameAvailable(name, parent, self);
        auto range = byName_.equal_range(name);
        return std::all_of(range.first, range.second,
                           [&](const auto& entry) { return entry.second == self; });
    };
    long long& known = freeSuffixFrom_[{stem, context}];
    long long n = first == 1 ? std::max(first, known) : first;
    while (!available(stem + std::to_string(n))) ++n;
    if (first == 1) known = n;
    return stem + std::to_string(n);
}

void Scene::nameFreed(const std::string& name) {
    auto [stem, number] = splitTrailingNumber(name);
    if (number < 0) return;
    for (auto it = freeSuffixFrom_.lower_bound({stem, 0});
         it != freeSuffixFrom_.end() && it->first.first == stem; ++it)
        it->second = std::min(it->second, number);
}

void Scene::addToIndex(Node& node) {
    byName_.emplace(node.name(), &node);
}

NodePtr Scene::createNode(const std::string& typeName, const std::string& name, Node* parent,
                          std::string* error) {
    const NodeType* type = NodeTypeRegistry::instance().find(typeName);
    if (!type) {
        if (error) *error = "Unknown object type: " + typeName;
        return nullptr;
    }
    if (parent && (!parent->alive() || !parent->isDag())) {
        if (error) *error = "Parent is not a DAG node: " + parent->name();
        return nullptr;
    }
    if (parent && parent->type().shape) {
        if (error) *error = "A shape cannot be a parent: " + parent->name();
        return nullptr;
    }
    if (parent && !type->dag && !type->generic) {
        if (error) *error = "A " + typeName + " node cannot be parented.";
        return nullptr;
    }
    std::string requested = name.empty() ? defaultNameStem(*type) + "#" : name;
    std::string check = requested;
    if (!check.empty() && check.back() == '#') check.pop_back();
    if (!validName(check) && !(name.empty())) {
        if (error) *error = "Invalid node name: " + name;
        return nullptr;
    }
    auto node = std::make_shared<Node>(nextId_++, type, std::string());
    if (parent && type->generic) node->makeDag();
    node->setName(uniqueName(requested, parent, node.get()));
    if (parent) node->setParent(parent);
    addToIndex(*node);
    nodes_.push_back(node);
    if (ChangeJournal* journal = recordingJournal()) {
        journal->nodeAdded(node, nodes_.size() - 1);
        if (parent) journal->parentChanged(node, nullptr, 0);
    }
    touch();
    return node;
}

void Scene::removeFromIndex(const Node& node) {
    auto range = byName_.equal_range(node.name());
    for (auto it = range.first; it != range.second; ++it)
        if (it->second == &node) {
            byName_.erase(it);
            break;
        }
    nameFreed(node.name());
}

bool Scene::deleteNode(const NodePtr& node, std::string* error) {
    if (!node || !node->alive()) {
        if (error) *error = "Cannot delete a node that no longer exists.";
        return false;
    }
    if (node->name() == "initialShadingGroup") {
        if (error) *error = "Cannot delete the default node initialShadingGroup.";
        return false;
    }
    // The node and everything below it, gathered without recursion: hierarchies may be deep.
    std::vector<Node*> doomed{node.get()};
    for (std::size_t i = 0; i < doomed.size(); ++i)
        doomed.insert(doomed.end(), doomed[i]->children().begin(), doomed[i]->children().end());
    const std::unordered_set<const Node*> gone(doomed.begin(), doomed.end());
    eraseConnections([&](const Connection& c) {
        return gone.count(c.source.node().get()) || gone.count(c.destination.node().get());
    });
    const auto selected = [&](const SelectionItem& item) {
        return gone.count(item.node.get()) || gone.count(item.plug.node().get());
    };
    if (std::any_of(selection_.begin(), selection_.end(), selected)) {
        SelectionList& selection = activeSelection();
        selection.erase(std::remove_if(selection.begin(), selection.end(), selected), selection.end());
    }
    // Only the top node leaves its parent: the nodes below keep their places under it.
    ChangeJournal* journal = recordingJournal();
    if (Node* parent = node->parent()) {
        const std::size_t position = node->childPosition();
        node->setParent(nullptr);
        if (journal) journal->parentChanged(node, parent, position);
    }
    // Taken out of the list from the back, so each recorded place holds while the earlier ones go.
    for (std::size_t i = nodes_.size(); i-- > 0;) {
        Node& candidate = *nodes_[i];
        if (!gone.count(&candidate)) continue;
        removeFromIndex(candidate);
        candidate.kill();
        if (journal) journal->nodeRemoved(nodes_[i], i);
    }
    nodes_.erase(std::remove_if(nodes_.begin(), nodes_.end(), [](const NodePtr& n) { return !n->alive(); }),
                 nodes_.end());
    touch();
    return true;
}

bool Scene::renameNode(const NodePtr& node, const std::string& newName, std::string* error) {
    if (!node || !node->alive()) {
        if (error) *error = "Cannot rename a node that no longer exists.";
        return false;
    }
    std::string check = newName;
    if (!check.empty() && check.back() == '#') check.pop_back();
    if (!validName(check)) {
        if (error) *error = "New name is not valid: " + newName;
        return false;
    }
    const std::string oldName = node->name();
    removeFromIndex(*node);
    node->setName(uniqueName(newName, node->parent(), node.get()));
    addToIndex(*node);
    if (ChangeJournal* journal = recordingJournal()) journal->renamed(node, oldName);
    touch();
    return true;
}

void Scene::setNodeName(Node& node, std::string name) {
    removeFromIndex(node);
    node.setName(std::move(name));
    addToIndex(node);
    node.touch();
}

bool Scene::reparent(const NodePtr& child, Node* newParent, std::string* error) {
    if (!child || !child->alive() || !child->isDag()) {
        if (error) *error = "Only DAG nodes can be parented.";
        return false;
    }
    for (Node* p = newParent; p; p = p->parent())
        if (p == child.get()) {
            if (error) *error = "Cannot parent a node under itself or its descendants.";
            return false;
        }
    if (newParent && (!newParent->isDag() || newParent->type().shape)) {
        if (error) *error = "The new parent must be a transform.";
        return false;
    }
    if (!newParent && child->type().shape) {
        if (error) *error = "A shape cannot be parented to the world.";
        return false;
    }
    Node* oldParent = child->parent();
    const std::size_t oldPosition = child->childPosition();
    child->setParent(newParent);
    nameFreed(child->name()); // the name is free again under the old parent
    if (ChangeJournal* journal = recordingJournal()) journal->parentChanged(child, oldParent, oldPosition);
    if (!nameAvailable(child->name(), newParent, child.get())) renameNode(child, child->name(), nullptr);
    touch();
    return true;
}

NodePtr Scene::sharedNode(const Node* node) const {
    return node ? const_cast<Node*>(node)->shared_from_this() : nullptr;
}

NodePtr Scene::findNode(const std::string& rawPath, std::string* error) const {
    // A leading ':' names the root namespace, the only one the host has.
    const std::string path = !rawPath.empty() && rawPath[0] == ':' ? rawPath.substr(1) : rawPath;
    if (path.empty()) {
        if (error) *error = "No object matches name: ";
        return nullptr;
    }
    std::vector<std::string> parts = splitPath(path);
    const bool absolute = path[0] == '|';
    if (absolute) parts.erase(parts.begin());
    for (const auto& part : parts)
        if (part.empty()) {
            if (error) *error = "No object matches name: " + path;
            return nullptr;
        }
    Node* found = nullptr;
    int matches = 0;
    auto range = byName_.equal_range(parts.back());
    for (auto it = range.first; it != range.second; ++it) {
        Node* candidate = it->second;
        Node* cursor = candidate->parent();
        bool ok = true;
        for (std::size_t k = parts.size() - 1; k-- > 0;) {
            if (!cursor || cursor->name() != parts[k]) {
                ok = false;
                break;
            }
            cursor = cursor->parent();
        }
        if (ok && absolute && cursor) ok = false;
        if (ok) {
            found = candidate;
            ++matches;
        }
    }
    if (matches == 0) {
        if (error) *error = "No object matches name: " + path;
        return nullptr;
    }
    if (matches > 1) {
        if (error) *error = "More than one object matches name: " + path;
        return nullptr;
    }
    // The index holds raw pointers; hand out the owning pointer.
    return found->shared_from_this();
}

std::string Scene::fullPath(const Node& node) const {
    if (!node.isDag()) return node.name();
    // Filled from the leaf backwards into its final size: prepending copies the path once per level,
    // which a deep hierarchy makes quadratic.
    std::size_t size = 0;
    for (const Node* n = &node; n; n = n->parent()) size += 1 + n->name().size();
    std::string path(size, '|');
    for (const Node* n = &node; n; n = n->parent()) {
        size -= n->name().size();
        path.replace(size, n->name().size(), n->name());
        --size;
    }
    return path;
}

std::string Scene::partialPath(const Node& node) const {
    if (!node.isDag()) return node.name();
    std::string path = node.name();
    const Node* cursor = node.parent();
    while (byName_.count(node.name()) > 1) {
        std::string error;
        if (findNode(path, &error)) break;
        if (!cursor) return fullPath(node);
        path = cursor->name() + "|" + path;
        cursor = cursor->parent();
    }
    return path;
}

std::vector<Node*> Scene::topLevelDagNodes() const {
    std::vector<Node*> result;
    for (const NodePtr& n : nodes_)
        if (n->isDag() && !n->parent()) result.push_back(n.get());
    return result;
}

Plug Scene::findPlug(const std::string& text, std::string* error) const {
    const std::size_t dot = text.find('.');
    if (dot == std::string::npos || dot == 0) {
        if (error) *error = "No attribute given: " + text;
        return Plug();
    }
    NodePtr node = findNode(text.substr(0, dot), error);
    if (!node) return Plug();
    return resolveAttrPath(node, text.substr(dot + 1), error);
}

std::string Scene::plugName(const Plug& plug, bool longNames) const {
    if (plug.isNull()) return std::string();
    return partialPath(*plug.node()) + "." + plug.attrPath(longNames);
}

static bool isBelow(const Plug& plug, const Plug& top) {
    if (plug.node() != top.node()) return false;
    for (Plug p = plug; !p.isNull(); p = p.isElement() ? p.array() : p.parent()) {
        if (p == top) return true;
    }
    return false;
}

bool Scene::connect(const Plug& source, const Plug& destination, bool force, std::string* error) {
    if (source.isNull() || destination.isNull() || !source.isComplete() || !destination.isComplete()) {
        if (error) *error = "Cannot connect incomplete plugs.";
        return false;
    }
    if (source == destination || isBelow(source, destination) || isBelow(destination, source)) {
        if (error) *error = "Cannot connect a plug to itself or to a plug within it: " + plugName(source);
        return false;
    }
    const auto existing = sources_.find(destination);
    if (existing != sources_.end()) {
        const Plug replaced = existing->second;
        if (replaced == source) {
            if (error) *error = plugName(source) + " is already connected to " + plugName(destination) + ".";
            return false;
        }
        if (!force) {
            if (error)
                *error = "The destination attribute '" + plugName(destination) +
                         "' cannot be connected: it already has an incoming connection from '" +
                         plugName(replaced) + "'.";
            return false;
        }
        eraseConnections(
            [&](const Connection& c) { return c.source == replaced && c.destination == destination; });
    }
    connections_.push_back({source, destination});
    sources_.emplace(destination, source);
    if (ChangeJournal* journal = recordingJournal())
        journal->connectionAdded(connections_.back(), connections_.size() - 1);
    source.node()->touchAsSource();
    destination.node()->touch();
    touch();
    return true;
}

bool Scene::disconnect(const Plug& source, const Plug& destination, std::string* error) {
    for (auto it = connections_.begin(); it != connections_.end(); ++it)
        if (it->source == source && it->destination == destination) {
            eraseConnections(
                [&](const Connection& c) { return c.source == source && c.destination == destination; });
            destination.node()->touch();
            touch();
            return true;
        }
    if (error)
        *error = "There is no connection from '" + plugName(source) + "' to '" + plugName(destination) + "'.";
    return false;
}

Plug Scene::sourceOf(const Plug& destination) const {
    auto it = sources_.find(destination);
    return it == sources_.end() ? Plug() : it->second;
}

std::vector<Plug> Scene::destinationsOf(const Plug& source) const {
    std::vector<Plug> result;
    for (const Connection& c : connections_)
        if (c.source == source) result.push_back(c.destination);
    return result;
}

std::vector<Connection> Scene::connectionsOf(const Node& node) const {
    std::vector<Connection> result;
    for (const Connection& c : connections_)
        if (c.source.node().get() == &node || c.destination.node().get() == &node) result.push_back(c);
    return result;
}

void Scene::disconnectBelow(const Plug& plug) {
    eraseConnections(
        [&](const Connection& c) { return isBelow(c.source, plug) || isBelow(c.destination, plug); });
}

template <class Pred> void Scene::eraseConnections(Pred doomed) {
    std::vector<std::size_t> removed;
    for (std::size_t i = 0; i < connections_.size(); ++i)
        if (doomed(connections_[i])) removed.push_back(i);
    if (removed.empty()) return;
    // Recorded from the back, as if taken out one by one, so each recorded place holds.
    if (ChangeJournal* journal = recordingJournal())
        for (std::size_t k = removed.size(); k-- > 0;)
            journal->connectionRemoved(connections_[removed[k]], removed[k]);
    std::size_t kept = 0;
    for (std::size_t i = 0, r = 0; i < connections_.size(); ++i) {
        if (r < removed.size() && removed[r] == i) {
            ++r;
            forgetSource(connections_[i]);
            continue;
        }
        if (kept != i) connections_[kept] = std::move(connections_[i]);
        ++kept;
    }
    connections_.resize(kept);
}

void Scene::forgetSource(const Connection& connection) {
    const auto it = sources_.find(connection.destination);
    if (it != sources_.end() && it->second == connection.source) sources_.erase(it);
}

std::size_t Scene::takeNodeOut(const NodePtr& node, std::size_t listIndex) {
    if (listIndex >= nodes_.size() || nodes_[listIndex] != node)
        listIndex = static_cast<std::size_t>(std::find(nodes_.begin(), nodes_.end(), node) - nodes_.begin());
    if (listIndex < nodes_.size()) nodes_.erase(nodes_.begin() + static_cast<std::ptrdiff_t>(listIndex));
    removeFromIndex(*node);
    node->kill();
    touch();
    return listIndex;
}

void Scene::putNodeBack(const NodePtr& node, std::size_t listIndex) {
    node->revive();
    nodes_.insert(nodes_.begin() + static_cast<std::ptrdiff_t>(std::min(listIndex, nodes_.size())), node);
    addToIndex(*node);
    node->touch();
}

std::size_t Scene::takeConnectionOut(const Connection& connection, std::size_t index) {
    const auto same = [&](const Connection& c) {
        return c.source == connection.source && c.destination == connection.destination;
    };
    if (index >= connections_.size() || !same(connections_[index]))
        index = static_cast<std::size_t>(std::find_if(connections_.begin(), connections_.end(), same) -
                                         connections_.begin());
    if (index < connections_.size()) {
        forgetSource(connections_[index]);
        connections_.erase(connections_.begin() + static_cast<std::ptrdiff_t>(index));
    }
    connection.source.node()->touchAsSource();
    connection.destination.node()->touch();
    return index;
}

void Scene::putConnectionBack(const Connection& connection, std::size_t index) {
    connections_.insert(
        connections_.begin() + static_cast<std::ptrdiff_t>(std::min(index, connections_.size())), connection);
    sources_.emplace(connection.destination, connection.source);
    connection.source.node()->touchAsSource();
    connection.destination.node()->touch();
}

SelectionList& Scene::activeSelection() {
    if (ChangeJournal* journal = recordingJournal()) journal->selectionWrite();
    return selection_;
}

std::map<std::string, OptionValue>& Scene::optionVars() {
    if (ChangeJournal* journal = recordingJournal()) journal->optionVarsWrite();
    return optionVars_;
}

void Scene::setCurrentTime(double frame) {
    if (ChangeJournal* journal = recordingJournal()) journal->timeWrite();
    currentTime_ = frame;
}

namespace {
uint64_t changeCount = 0;
uint64_t hierarchyCount = 1; // 0 marks a world matrix that is never taken without checking
} // namespace

void noteHierarchyChange() {
    ++hierarchyCount;
}
uint64_t hierarchyChangeCount() {
    return hierarchyCount;
}

void noteSceneChange() {
    ++changeCount;
}
uint64_t sceneChangeCount() {
    return changeCount;
}

namespace {
std::unique_ptr<Scene>& sceneHolder() {
    static std::unique_ptr<Scene> holder;
    return holder;
}
} // namespace

Scene& scene() {
    auto& holder = sceneHolder();
    if (!holder) holder = std::make_unique<Scene>();
    return *holder;
}

void resetScene() {
    abandonRecording();
    auto& holder = sceneHolder();
    std::map<std::string, OptionValue> keep;
    if (holder) keep = std::as_const(*holder).optionVars(); // option variables outlive scenes, as in Maya
    holder = std::make_unique<Scene>();
    holder->optionVars() = std::move(keep);
}

MessageLog& messageLog() {
    static MessageLog log;
    return log;
}

} // namespace host
