#pragma once
// Switches the current scene's undo queue off for as long as it lives (when asked to), and puts
// the previous state back on whatever scene is current at the end.
#include "engine/Scene.h"

namespace host {

class UndoSuspension {
public:
    explicit UndoSuspension(bool suspend = true) : wasEnabled_(scene().undoQueue().enabled) {
        if (suspend) scene().undoQueue().enabled = false;
    }
    ~UndoSuspension() { scene().undoQueue().enabled = wasEnabled_; }
    UndoSuspension(const UndoSuspension&) = delete;
    UndoSuspension& operator=(const UndoSuspension&) = delete;

private:
    bool wasEnabled_;
};

} // namespace host
