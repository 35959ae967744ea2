#include "engine/Scene.h"

#include <algorithm>
#include <cctype>

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

std::string Scene::uniqueName(const std::string& requested, const Node* parent, const Node* self) const {
    std::string base = requested;
    bool hash = !base.empty() && base.back() == '#';
    if (hash) base.pop_back();
    if (!hash && nameAvailable(base, parent, self)) return base;
    auto [stem, number] = splitTrailingNumber(base);
    long long n = hash || number < 0 ? 1 : number + 1;
    while (!nameAvailable(stem + std::to_string(n), parent, self)) ++n;
    return stem + std::to_string(n);
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
    byName_.emplace(node->name(), node.get());
    nodes_.push_back(node);
    touch();
    return node;
}

void Scene::removeFromIndex(const Node& node) {
    auto range = byName_.equal_range(node.name());
    for (auto it = range.first; it != range.second; ++it)
        if (it->second == &node) {
            byName_.erase(it);
            return;
        }
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
    // Children first, so their connections go too.
    std::vector<Node*> children = node->children();
    for (Node* child : children) deleteNode(sharedNode(child), nullptr);
    connections_.erase(std::remove_if(connections_.begin(), connections_.end(),
                                      [&](const Connection& c) {
                                          return c.source.node() == node || c.destination.node() == node;
                                      }),
                       connections_.end());
    ++connectionsGeneration_;
    selection_.erase(std::remove_if(selection_.begin(), selection_.end(),
                                    [&](const SelectionItem& item) {
                                        return item.node == node || item.plug.node() == node;
                                    }),
                     selection_.end());
    node->setParent(nullptr);
    removeFromIndex(*node);
    nodes_.erase(std::remove(nodes_.begin(), nodes_.end(), node), nodes_.end());
    node->kill();
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
    removeFromIndex(*node);
    node->setName(uniqueName(newName, node->parent(), node.get()));
    byName_.emplace(node->name(), node.get());
    touch();
    return true;
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
    child->setParent(newParent);
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
    for (auto it = connections_.begin(); it != connections_.end(); ++it) {
        if (it->destination != destination) continue;
        if (it->source == source) {
            if (error) *error = plugName(source) + " is already connected to " + plugName(destination) + ".";
            return false;
        }
        if (!force) {
            if (error)
                *error = "The destination attribute '" + plugName(destination) +
                         "' cannot be connected: it already has an incoming connection from '" +
                         plugName(it->source) + "'.";
            return false;
        }
        connections_.erase(it);
        ++connectionsGeneration_;
        break;
    }
    connections_.push_back({source, destination});
    ++connectionsGeneration_;
    source.node()->touch();
    destination.node()->touch();
    touch();
    return true;
}

bool Scene::disconnect(const Plug& source, const Plug& destination, std::string* error) {
    for (auto it = connections_.begin(); it != connections_.end(); ++it)
        if (it->source == source && it->destination == destination) {
            connections_.erase(it);
            ++connectionsGeneration_;
            destination.node()->touch();
            touch();
            return true;
        }
    if (error)
        *error = "There is no connection from '" + plugName(source) + "' to '" + plugName(destination) + "'.";
    return false;
}

Plug Scene::sourceOf(const Plug& destination) const {
    if (connections_.empty()) return Plug();
    if (sourcesGeneration_ != connectionsGeneration_ || sourcesBuiltFor_ != connections_.size()) {
        sources_.clear();
        for (const Connection& c : connections_) sources_.emplace(c.destination, c.source);
        sourcesGeneration_ = connectionsGeneration_;
        sourcesBuiltFor_ = connections_.size();
    }
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
    connections_.erase(std::remove_if(connections_.begin(), connections_.end(),
                                      [&](const Connection& c) {
                                          return isBelow(c.source, plug) || isBelow(c.destination, plug);
                                      }),
                       connections_.end());
    ++connectionsGeneration_;
}

namespace {
uint64_t changeCount = 0;
} // namespace

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
    auto& holder = sceneHolder();
    std::map<std::string, OptionValue> keep;
    if (holder) keep = holder->optionVars(); // option variables outlive scenes, as in Maya
    holder = std::make_unique<Scene>();
    holder->optionVars() = std::move(keep);
}

MessageLog& messageLog() {
    static MessageLog log;
    return log;
}

} // namespace host
