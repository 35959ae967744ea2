// pointPosition [-local | -world] mesh.vtx[i]: the position a vertex shows (deformers and tweaks
// applied) as x y z, in world space unless -local is given.
#include "api/Transforms.h"
#include "commands/ArgReader.h"
#include "deform/DeformerCommands.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"

#include <maya/MPoint.h>

namespace host {

namespace {

bool pointPositionCommand(Invocation& inv) {
    static const FlagTable flags = {{"l", "local", ""}, {"w", "world", ""}};
    ArgReader args("pointPosition", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.has("local") && args.has("world")) return args.fail("give either -local or -world.");
    if (args.positional().size() != 1) return args.fail("give one vertex, such as pCube1.vtx[0].");
    const std::string& text = args.positional()[0]->text;
    SelectionItem item;
    std::string error;
    if (!resolveSelectionString(scene(), text, item, &error)) return args.fail(error);
    const auto& component = item.component;
    if (!component || component->type != ComponentType::Vertex || component->complete ||
        component->elements.size() != 1)
        return args.fail("give one vertex, such as pCube1.vtx[0]: " + text);
    MeshPtr mesh = evaluatedMesh(item.node);
    const int vertex = component->elements[0];
    if (!mesh || vertex < 0 || vertex >= mesh->numVertices()) return args.fail("no such vertex: " + text);
    const auto& p = mesh->points[static_cast<std::size_t>(vertex)];
    MPoint position(p[0], p[1], p[2]);
    if (!args.has("local")) position = position * worldMatrix(*item.node);
    inv.result = std::vector<double>{position.x, position.y, position.z};
    return true;
}

} // namespace

void registerPointPositionCommand(CommandTable& table) {
    table.add("pointPosition", pointPositionCommand);
}

} // namespace host
