#pragma once
// What one command changed in the scene, noted by the scene's mutators as it happens, so that one
// undo entry can put the scene back and redo can repeat it. Each change holds the other state of
// what it touched: undo swaps the changes in reverse order, redo swaps them again in order, so redo
// returns exactly to the state undo started from.
//
// Attribute values are saved once per command at the first write: the smallest part that holds
// the write (a multi element, or a whole top-level attribute); many elements of one multi are
// saved as the whole multi, so a million-element write keeps its old data once. Nodes made by the
// command need no saved values: undo takes them out whole and redo puts them back as they were.
#include "engine/Node.h"
#include "engine/Plug.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace host {

class Scene;
struct Connection;

class Change {
public:
    virtual ~Change() = default;
    virtual void swap(Scene& scene) = 0;
    // True when the command left what this change saved as it was.
    virtual bool unchanged(const Scene&) const { return false; }
};

class ChangeJournal {
public:
    explicit ChangeJournal(Scene& scene) : scene_(scene) {}

    // Called by the mutators, before the write for values and after the change for structure.
    void nodeAdded(const NodePtr& node, std::size_t listIndex);
    void nodeRemoved(const NodePtr& node, std::size_t listIndex);
    void parentChanged(const NodePtr& child, Node* oldParent, std::size_t oldPosition);
    void renamed(const NodePtr& node, const std::string& oldName);
    void connectionAdded(const Connection& connection, std::size_t index);
    void connectionRemoved(const Connection& connection, std::size_t index);
    void slotWrite(const Plug& plug);
    // A whole multi about to be replaced: true when the command has saved neither it nor a place
    // above it, and the caller then hands the old state over with keepSlot instead of a copy.
    bool takesWholeSlot(const Plug& plug) const;
    void keepSlot(const Plug& plug, Slot old);
    // The same for the numbers of a multi about to be written over in place.
    void keepNumbers(const Plug& plug, std::vector<double> old);
    void meshWrite(Node& node, const std::shared_ptr<MeshData>& mesh);
    void aliasesWrite(Node& node, const Node::AliasList& aliases);
    void attrAdded(Node& node, const AttrSpec* attr);
    void attrRemoved(Node& node, Node::DetachedAttr detached);
    void selectionWrite();
    void optionVarsWrite();
    void timeWrite();

    // Drops saved states the command left unchanged; true when anything changed.
    bool settle();
    void undo();
    void redo();

private:
    bool isNew(const Node& node) const { return newNodes_.count(&node) > 0; }
    void save(const Plug& location);

    Scene& scene_;
    std::vector<std::unique_ptr<Change>> changes_;
    std::unordered_set<const Node*> newNodes_;
    std::unordered_set<Plug, PlugHash> savedSlots_;
    std::unordered_map<Plug, std::size_t, PlugHash> savedBelow_; // saved elements per multi
    Plug lastSavedArray_; // a whole multi saved last: its elements need no look-up
    std::unordered_set<const Node*> savedMeshes_;
    std::unordered_set<const Node*> savedAliases_;
    bool selectionSaved_ = false;
    bool optionVarsSaved_ = false;
    bool timeSaved_ = false;
};

// The journal recording changes now, or null: only a command run at the top, with the undo queue
// on, records, and never while recording is paused.
ChangeJournal* recordingJournal();

// Pauses recording for as long as it lives: plug-in commands keep their own undo, and undo and redo
// replay changes without recording them again.
class JournalPause {
public:
    JournalPause();
    ~JournalPause();
    JournalPause(const JournalPause&) = delete;
    JournalPause& operator=(const JournalPause&) = delete;
};

// Records the changes of the command that runs while it lives, when no other command records and
// the undo queue is on, and leaves one undo entry named by `name()` when the command changed the
// scene. A command that replaces the scene (file -new, file -open) leaves none.
class CommandRecording {
public:
    template <class NameFn> explicit CommandRecording(NameFn name) : name_(std::move(name)) { start(); }
    ~CommandRecording();
    CommandRecording(const CommandRecording&) = delete;
    CommandRecording& operator=(const CommandRecording&) = delete;

private:
    void start();

    std::function<std::string()> name_;
    std::shared_ptr<ChangeJournal> journal_;
};

// The scene is being replaced: what is being recorded can no longer be undone.
void abandonRecording();

} // namespace host
