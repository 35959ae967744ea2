#pragma once
// What reading a setAttr statement from a scene file keeps beyond the value the command stored, so
// that saving writes it back: the flags set on the plug (-k on, -l on, -cb on, -av) and the text of
// a typed value on a made-up attribute as the file spelled it.
#include "files/SceneFileStore.h"
#include "lang/CommandTable.h"

namespace host {

enum class SetAttrKind {
    Value,    // sets a value: what it keeps is in the store
    FlagsOnly // sets flags or a size hint only: the statement itself is kept as written
};

// Call after the statement ran successfully in file reading mode.
SetAttrKind captureSetAttr(const Statement& statement, SceneFileStore& store);

} // namespace host
