#include "engine/Evaluation.h"

#include "engine/Scene.h"

namespace host {

Value evaluatedValue(const Plug& plug) {
    Plug current = plug;
    // Follow connections upstream; a cycle or a very long chain stops at the stored value.
    for (int hops = 0; hops < 256; ++hops) {
        Plug source = scene().sourceOf(current);
        if (source.isNull()) break;
        current = source;
    }
    return current.value();
}

} // namespace host
