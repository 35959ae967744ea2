#include "engine/Evaluation.h"

#include "engine/Scene.h"
#include "engine/TransformMatrix.h"

namespace host {

namespace {

// The plug feeding `plug`: its own incoming connection, or the matching child of the plug feeding
// its parent compound (a connected `scale` feeds `inverseScale.inverseScaleX`).
Plug upstreamOf(const Plug& plug) {
    Plug source = scene().sourceOf(plug);
    if (!source.isNull()) return source;
    const AttrSpec* attr = plug.attr();
    if (!attr || !attr->parent || attr->multi) return Plug();
    Plug parent = plug.parent();
    if (parent.isNull()) return Plug();
    Plug parentSource = upstreamOf(parent);
    if (parentSource.isNull() || parentSource.isArray()) return Plug();
    return parentSource.child(static_cast<std::size_t>(attr->index));
}

// A matrix output that a DAG node computes from its transform.
bool computedValue(const Plug& plug, Value& out) {
    Matrix m;
    if (!computedMatrix(plug, m)) return false;
    out = matrixData(m);
    return true;
}

} // namespace

Value evaluatedValue(const Plug& plug) {
    // Follow connections upstream and take the value stored furthest up. Nodes the host does not
    // compute (animation curves, unknown types) hold no value on their outputs: then the value
    // stored downstream of them, as the file saved it, stands. Matrix outputs of DAG nodes are
    // always computed. A node of a type the host knows delivers what it holds, even no value at all.
    auto stored = [](const Plug& p) {
        const Slot* slot = p.slot();
        return (slot && slot->value.index() != 0) || !p.node()->type().generic;
    };
    Value computed;
    if (computedValue(plug, computed)) return computed;
    Plug first = upstreamOf(plug);
    if (first.isNull()) return plug.value(); // the common case: nothing feeds it
    Plug current = plug;
    const Slot* own = plug.slot();
    Plug best = own && own->value.index() != 0 ? plug : Plug();
    for (int hops = 0; hops < 256; ++hops) { // a cycle or a very long chain stops here
        Plug source = upstreamOf(current);
        if (source.isNull() || source.attr()->madeUp) break;
        if (computedValue(source, computed)) return computed;
        current = source;
        if (stored(current)) best = current;
    }
    return (best.isNull() ? current : best).value();
}

} // namespace host
