#pragma once
// A node of the scene: its type, name, attribute values, dynamic attributes, aliases and its place
// in the DAG. Nodes are shared so that handles held by commands stay safe after a delete: a deleted
// node is marked dead and refuses every operation.
#include "engine/NodeType.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace host {

struct MeshData;
class ChangeJournal;

// Counts every change to any node or to the scene; evaluation caches compare against it.
void noteSceneChange();
uint64_t sceneChangeCount();
// Counts the changes that may move nodes below the one changed: a change to a node with children,
// or a node with children given a new parent. A world matrix whose ancestors depend only on one
// another stays valid while this count stands.
void noteHierarchyChange();
uint64_t hierarchyChangeCount();

class Node : public std::enable_shared_from_this<Node> {
public:
    Node(uint64_t id, const NodeType* type, std::string name)
        : id_(id), type_(type), name_(std::move(name)) {}
    // Unlinks the node from the DAG neighbours that outlive it.
    ~Node();
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    uint64_t id() const { return id_; }
    const NodeType& type() const { return *type_; }
    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    bool alive() const { return alive_; }
    void kill() { alive_ = false; }
    void revive() { alive_ = true; }
    bool isDag() const { return type_->dag || dagInstance_; }
    void makeDag() { dagInstance_ = true; }

    // Attributes: static ones by the type's index, then dynamic ones.
    const AttrSpec* findAttr(const std::string& name) const;
    std::size_t attrCount() const { return type_->attrs.size() + dynamicAttrs_.size(); }
    const AttrSpec* attrAt(std::size_t index) const;
    // Adds a dynamic attribute; false when the name (long or short) is taken.
    bool addDynamicAttr(AttrPtr attr);
    bool removeDynamicAttr(const AttrSpec* attr);
    // A dynamic attribute taken out with its value and put back where it was (undo and redo).
    struct DetachedAttr {
        AttrPtr attr;
        Slot value;
        std::size_t position = 0;
    };
    DetachedAttr detachDynamicAttr(const AttrSpec* attr);
    void attachDynamicAttr(DetachedAttr detached);
    const std::vector<AttrPtr>& dynamicAttrs() const { return dynamicAttrs_; }
    // Attributes made up for generic nodes when a file sets one the type does not know.
    const AttrSpec* obtainGenericAttr(const std::string& name, bool multi);

    // The value storage of a top-level attribute.
    Slot& topSlot(const AttrSpec* attr);
    const Slot* topSlotIfAny(const AttrSpec* attr) const;

    // Aliases (aliasAttr): alias name -> attribute text such as "w[0]". The non-const form is for
    // writers: a command's change journal keeps the list as it was.
    using AliasList = std::vector<std::pair<std::string, std::string>>;
    AliasList& aliases();
    const AliasList& aliases() const { return aliases_; }
    void exchangeAliases(AliasList& other) { aliases_.swap(other); }

    // DAG
    Node* parent() const { return parent_; }
    const std::vector<Node*>& children() const { return children_; }
    void setParent(Node* parent);
    // Places the node at `position` among the parent's children (clamped), as undo puts it back.
    void setParent(Node* parent, std::size_t position);
    // Where the node stands among its parent's children (0 without a parent).
    std::size_t childPosition() const;

    // Mesh geometry for mesh shapes (null for other nodes). The non-const form is for writers, who
    // copy shared geometry before changing it: a command's change journal keeps the geometry as it
    // was by sharing it.
    std::shared_ptr<MeshData>& mesh();
    const std::shared_ptr<MeshData>& mesh() const { return mesh_; }
    void exchangeMesh(std::shared_ptr<MeshData>& other) { mesh_.swap(other); }

    uint64_t version() const { return version_; }
    void touch() {
        ++version_;
        noteSceneChange();
        if (!children_.empty()) noteHierarchyChange();
    }
    // A change to what the node feeds (a connection made from it or taken away): its values, and so
    // the nodes below it, stay as they were.
    void touchAsSource() {
        ++version_;
        noteSceneChange();
    }

    bool lockedNode = false;

private:
    void reindexDynamic();

    uint64_t id_;
    const NodeType* type_;
    std::string name_;
    bool alive_ = true;
    bool dagInstance_ = false;
    Slot root_;
    std::vector<AttrPtr> dynamicAttrs_;
    std::unordered_map<std::string, const AttrSpec*> dynamicByName_;
    std::vector<std::pair<std::string, std::string>> aliases_;
    Node* parent_ = nullptr;
    std::vector<Node*> children_;
    std::shared_ptr<MeshData> mesh_;
    uint64_t version_ = 0;
};

using NodePtr = std::shared_ptr<Node>;

} // namespace host
