#pragma once
// The undo queue: each undoable command leaves one entry whose undo and redo restore and repeat it.
#include <functional>
#include <string>
#include <vector>

namespace host {

struct UndoEntry {
    std::string name;
    std::function<bool()> undo;
    std::function<bool()> redo;
};

class UndoQueue {
public:
    void push(UndoEntry entry);
    // False with nothing to undo or redo; `name` receives the entry's name.
    bool undo(std::string& name, bool& ok);
    bool redo(std::string& name, bool& ok);
    void clear();
    std::size_t size() const { return entries_.size(); }
    bool enabled = true;

private:
    std::vector<UndoEntry> entries_;
    std::size_t cursor_ = 0; // entries before the cursor can be undone
    std::size_t limit_ = 1000;
};

} // namespace host
