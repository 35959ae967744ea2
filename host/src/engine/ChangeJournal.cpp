#include "engine/ChangeJournal.h"

#include "engine/SceneChanges.h"

#include <algorithm>

namespace host {

namespace {

// Elements of one multi saved one by one before the whole multi is saved instead.
constexpr std::size_t kElementsSavedAlone = 64;

// Where a plug's value lives, from the top down: the top-level attribute, then for each multi its
// array (below the top) and its element. Compound levels without an index are no place of their own.
std::vector<Plug> placesOf(const Plug& plug) {
    std::vector<Plug> places;
    const std::vector<const AttrSpec*> chain = plug.attr()->chain();
    Plug p(plug.node(), chain.front());
    places.push_back(p);
    int level = 0;
    for (std::size_t k = 0; k < chain.size(); ++k) {
        if (k > 0) p = p.child(chain[k]);
        if (!chain[k]->multi) continue;
        if (k > 0) places.push_back(p);
        const uint32_t index = plug.indexAt(level++);
        if (index == kNoIndex) break;
        p = p.element(index);
        places.push_back(p);
    }
    return places;
}

struct RecordingState {
    ChangeJournal* journal = nullptr;
    bool busy = false; // a command at the top records, or did until its scene was replaced
    int pauses = 0;
};

RecordingState& recording() {
    static RecordingState state;
    return state;
}

} // namespace

void ChangeJournal::nodeAdded(const NodePtr& node, std::size_t listIndex) {
    newNodes_.insert(node.get());
    changes_.push_back(nodePresence(node, listIndex, true));
}

void ChangeJournal::nodeRemoved(const NodePtr& node, std::size_t listIndex) {
    changes_.push_back(nodePresence(node, listIndex, false));
}

void ChangeJournal::parentChanged(const NodePtr& child, Node* oldParent, std::size_t oldPosition) {
    changes_.push_back(parentChange(child, oldParent, oldPosition));
}

void ChangeJournal::renamed(const NodePtr& node, const std::string& oldName) {
    changes_.push_back(nameChange(node, oldName));
}

void ChangeJournal::connectionAdded(const Connection& connection, std::size_t index) {
    changes_.push_back(connectionPresence(connection, index, true));
}

void ChangeJournal::connectionRemoved(const Connection& connection, std::size_t index) {
    changes_.push_back(connectionPresence(connection, index, false));
}

void ChangeJournal::slotWrite(const Plug& plug) {
    if (plug.isNull() || isNew(*plug.node())) return;
    if (!lastSavedArray_.isNull() && plug.isElement() && plug.array() == lastSavedArray_) return;
    const std::vector<Plug> places = placesOf(plug);
    // The write changes the outermost element it creates, or else the innermost place it is in.
    std::size_t target = places.size() - 1;
    for (std::size_t i = 0; i < places.size(); ++i)
        if (places[i].isElement() && !places[i].hasStoredValue()) {
            target = i;
            break;
        }
    for (std::size_t i = 0; i <= target; ++i)
        if (savedSlots_.count(places[i])) return;
    // Elements saved one by one count against every multi above them; past the limit the outermost
    // such multi is saved whole instead.
    if (places[target].isElement())
        for (std::size_t i = 0; i < target; ++i)
            if (places[i].isArray() && ++savedBelow_[places[i]] > kElementsSavedAlone) {
                save(places[i]);
                lastSavedArray_ = places[i];
                return;
            }
    save(places[target]);
}

bool ChangeJournal::takesWholeSlot(const Plug& plug) const {
    if (plug.isNull() || isNew(*plug.node())) return false;
    for (const Plug& place : placesOf(plug))
        if (savedSlots_.count(place)) return false;
    return true;
}

void ChangeJournal::keepSlot(const Plug& plug, Slot old) {
    savedSlots_.insert(plug);
    lastSavedArray_ = plug;
    changes_.push_back(slotChange(plug, std::move(old)));
}

void ChangeJournal::keepNumbers(const Plug& plug, std::vector<double> old) {
    savedSlots_.insert(plug);
    lastSavedArray_ = plug;
    changes_.push_back(numbersChange(plug, std::move(old)));
}

void ChangeJournal::save(const Plug& location) {
    savedSlots_.insert(location);
    changes_.push_back(slotChange(location));
}

void ChangeJournal::meshWrite(Node& node, const std::shared_ptr<MeshData>& mesh) {
    if (isNew(node) || !savedMeshes_.insert(&node).second) return;
    changes_.push_back(meshChange(node.shared_from_this(), mesh));
}

void ChangeJournal::aliasesWrite(Node& node, const Node::AliasList& aliases) {
    if (isNew(node) || !savedAliases_.insert(&node).second) return;
    changes_.push_back(aliasChange(node.shared_from_this(), aliases));
}

void ChangeJournal::attrAdded(Node& node, const AttrSpec* attr) {
    if (isNew(node)) return;
    changes_.push_back(attrPresence(node.shared_from_this(), attr, Node::DetachedAttr()));
}

void ChangeJournal::attrRemoved(Node& node, Node::DetachedAttr detached) {
    if (isNew(node)) return;
    const AttrSpec* attr = detached.attr.get();
    changes_.push_back(attrPresence(node.shared_from_this(), attr, std::move(detached)));
}

void ChangeJournal::selectionWrite() {
    if (selectionSaved_) return;
    selectionSaved_ = true;
    changes_.push_back(selectionChange(std::as_const(scene_).activeSelection()));
}

void ChangeJournal::optionVarsWrite() {
    if (optionVarsSaved_) return;
    optionVarsSaved_ = true;
    changes_.push_back(optionVarsChange(std::as_const(scene_).optionVars()));
}

void ChangeJournal::timeWrite() {
    if (timeSaved_) return;
    timeSaved_ = true;
    changes_.push_back(timeChange(scene_.currentTime()));
}

bool ChangeJournal::settle() {
    changes_.erase(std::remove_if(changes_.begin(), changes_.end(),
                                  [this](const std::unique_ptr<Change>& c) { return c->unchanged(scene_); }),
                   changes_.end());
    // Only undo and redo use the journal from here on.
    newNodes_.clear();
    savedSlots_.clear();
    savedBelow_.clear();
    lastSavedArray_ = Plug();
    savedMeshes_.clear();
    savedAliases_.clear();
    return !changes_.empty();
}

void ChangeJournal::undo() {
    const JournalPause pause;
    for (auto it = changes_.rbegin(); it != changes_.rend(); ++it) (*it)->swap(scene_);
    scene_.touch();
}

void ChangeJournal::redo() {
    const JournalPause pause;
    for (auto& change : changes_) change->swap(scene_);
    scene_.touch();
}

ChangeJournal* recordingJournal() {
    const RecordingState& state = recording();
    return state.pauses == 0 ? state.journal : nullptr;
}

JournalPause::JournalPause() {
    ++recording().pauses;
}

JournalPause::~JournalPause() {
    --recording().pauses;
}

void CommandRecording::start() {
    RecordingState& state = recording();
    if (state.busy || state.pauses > 0 || !scene().undoQueue().enabled) return;
    journal_ = std::make_shared<ChangeJournal>(scene());
    state.journal = journal_.get();
    state.busy = true;
}

CommandRecording::~CommandRecording() {
    if (!journal_) return;
    RecordingState& state = recording();
    const bool abandoned = state.journal != journal_.get();
    state.journal = nullptr;
    state.busy = false;
    if (abandoned || !journal_->settle()) return;
    std::shared_ptr<ChangeJournal> journal = std::move(journal_);
    scene().undoQueue().push(
        {name_(), [journal] { return journal->undo(), true; }, [journal] { return journal->redo(), true; }});
}

void abandonRecording() {
    RecordingState& state = recording();
    state.journal = nullptr;
}

} // namespace host
