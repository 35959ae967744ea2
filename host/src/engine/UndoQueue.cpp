#include "engine/UndoQueue.h"

namespace host {

void UndoQueue::push(UndoEntry entry) {
    if (!enabled) return;
    entries_.resize(cursor_); // a new command drops what could have been redone
    entries_.push_back(std::move(entry));
    if (entries_.size() > limit_) entries_.erase(entries_.begin());
    cursor_ = entries_.size();
}

bool UndoQueue::undo(std::string& name, bool& ok) {
    if (cursor_ == 0) return false;
    UndoEntry& entry = entries_[--cursor_];
    name = entry.name;
    ok = entry.undo ? entry.undo() : true;
    return true;
}

bool UndoQueue::redo(std::string& name, bool& ok) {
    if (cursor_ >= entries_.size()) return false;
    UndoEntry& entry = entries_[cursor_++];
    name = entry.name;
    ok = entry.redo ? entry.redo() : true;
    return true;
}

void UndoQueue::clear() {
    entries_.clear();
    cursor_ = 0;
}

} // namespace host
