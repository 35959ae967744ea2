#include "commands/MeshArgs.h"

#include "commands/QueryArgs.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"

namespace host {

bool meshArgs(const ArgReader& args, std::vector<MeshArg>& out, int& skipped) {
    SelectionList items;
    if (!queryItems(args, items)) return false;
    skipped = 0;
    for (const SelectionItem& item : items) {
        const NodePtr shape = item.node && item.node->alive() ? shapeOf(scene(), item.node) : nullptr;
        MeshArg arg;
        arg.mesh = shape && shape->type().isA("mesh") ? evaluatedMesh(shape) : nullptr;
        if (!arg.mesh) {
            ++skipped;
            continue;
        }
        arg.shape = shape;
        arg.component = item.component;
        out.push_back(std::move(arg));
    }
    return true;
}

} // namespace host
