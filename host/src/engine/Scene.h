#pragma once
// The scene: nodes by name, the DAG, connections, the active selection, option variables, the
// current time, the undo queue and the message log. There is one current scene per process, as in
// Maya; `file -new` replaces it.
#include "engine/MessageLog.h"
#include "engine/Plug.h"
#include "engine/Selection.h"
#include "engine/UndoQueue.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

namespace host {

struct Connection {
    Plug source;
    Plug destination;
};

using OptionValue =
    std::variant<int, double, std::string, std::vector<int>, std::vector<double>, std::vector<std::string>>;

class Scene {
public:
    Scene();
    // Handles that outlive the scene (after `file -new`) see its nodes as deleted.
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    // Nodes. `name` may be empty (the type name plus a number is used) or end in '#'.
    NodePtr createNode(const std::string& typeName, const std::string& name, Node* parent,
                       std::string* error);
    // Deletes the node, its DAG children and every connection to them.
    bool deleteNode(const NodePtr& node, std::string* error);
    bool renameNode(const NodePtr& node, const std::string& newName, std::string* error);
    bool reparent(const NodePtr& child, Node* newParent, std::string* error);

    // A node by name, partial DAG path ("a|b") or full path ("|a|b"). Reports ambiguity and
    // missing nodes through `error`.
    NodePtr findNode(const std::string& path, std::string* error = nullptr) const;
    NodePtr sharedNode(const Node* node) const;
    const std::vector<NodePtr>& nodes() const { return nodes_; }
    std::string fullPath(const Node& node) const;
    // The shortest path that names the node uniquely.
    std::string partialPath(const Node& node) const;
    std::vector<Node*> topLevelDagNodes() const;

    // "node.attr[1].child" to a plug.
    Plug findPlug(const std::string& text, std::string* error = nullptr) const;
    std::string plugName(const Plug& plug, bool longNames = true) const;

    // Connections.
    bool connect(const Plug& source, const Plug& destination, bool force, std::string* error);
    bool disconnect(const Plug& source, const Plug& destination, std::string* error);
    Plug sourceOf(const Plug& destination) const;
    std::vector<Plug> destinationsOf(const Plug& source) const;
    std::vector<Connection> connectionsOf(const Node& node) const;
    const std::vector<Connection>& connections() const { return connections_; }

    // Removes connections to array elements or children below `plug` (used when elements go away).
    void disconnectBelow(const Plug& plug);

    // The non-const forms are for writers: a command's change journal keeps the state as it was.
    SelectionList& activeSelection();
    const SelectionList& activeSelection() const { return selection_; }
    std::map<std::string, OptionValue>& optionVars();
    const std::map<std::string, OptionValue>& optionVars() const { return optionVars_; }
    double currentTime() const { return currentTime_; }
    void setCurrentTime(double frame);
    UndoQueue& undoQueue() { return undo_; }
    uint64_t version() const { return sceneChangeCount(); }
    void touch() { noteSceneChange(); }
    // True when any node has this name.
    bool nameInUse(const std::string& name) const { return byName_.count(name) > 0; }

    // Undo and redo: a node or connection taken out of, or put back into, its list at the place a
    // change recorded (the returned place is where it was found), and a rename without checks.
    std::size_t takeNodeOut(const NodePtr& node, std::size_t listIndex);
    void putNodeBack(const NodePtr& node, std::size_t listIndex);
    std::size_t takeConnectionOut(const Connection& connection, std::size_t index);
    void putConnectionBack(const Connection& connection, std::size_t index);
    void setNodeName(Node& node, std::string name);

private:
    bool nameAvailable(const std::string& name, const Node* parent, const Node* self) const;
    std::string uniqueName(const std::string& base, const Node* parent, const Node* self);
    void addToIndex(Node& node);
    void removeFromIndex(const Node& node);
    // A name of `stem` followed by `number` may be free again where it was taken.
    void nameFreed(const std::string& name);
    // Removes the connections `doomed` picks, in one pass, recording each.
    template <class Pred> void eraseConnections(Pred doomed);
    void forgetSource(const Connection& connection);

    std::vector<NodePtr> nodes_;
    std::unordered_multimap<std::string, Node*> byName_;
    // Per name stem and naming context (a parent's id, or one context for nodes outside the DAG):
    // every numbered name below this suffix is taken, so finding a free one need not count from 1.
    std::map<std::pair<std::string, uint64_t>, long long> freeSuffixFrom_;
    std::vector<Connection> connections_;
    // Destination -> source, kept with every change to the connections: reading a value checks its
    // incoming connection, and making a connection checks the destination's, neither by a scan.
    std::unordered_map<Plug, Plug, PlugHash> sources_;
    SelectionList selection_;
    std::map<std::string, OptionValue> optionVars_;
    double currentTime_ = 1.0;
    UndoQueue undo_;
    uint64_t nextId_ = 1;
};

// The current scene, and the message log that outlives it.
Scene& scene();
void resetScene();
MessageLog& messageLog();

} // namespace host
