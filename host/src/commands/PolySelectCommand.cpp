// polySelect -extendToShell: the faces of the shells (faces joined through shared edges) that hold the
// given faces, in ascending order; the selection changes unless -noSelection is given.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "mesh/MeshData.h"

namespace host {

namespace {

bool polySelectCommand(Invocation& inv) {
    static const FlagTable flags = {{"ns", "noSelection", ""}, {"ets", "extendToShell", "i"}};
    ArgReader args("polySelect", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.positional().size() != 1) return args.fail("give one mesh.");
    if (!args.has("extendToShell")) return args.fail("give a face with -extendToShell.");
    std::string error;
    NodePtr node = scene().findNode(args.positional()[0]->text, &error);
    NodePtr shape = node ? shapeOf(scene(), node) : nullptr;
    if (!shape || !shape->type().isA("mesh") || !shape->mesh()) {
        messageLog().error(node ? args.positional()[0]->text + " is not a mesh." : error);
        return false;
    }
    const MeshData& mesh = *shape->mesh();
    const core::MeshTopology& topology = mesh.topology();
    if (!mesh.topologyError().empty()) return args.fail(mesh.topologyError());
    std::vector<char> inShell(static_cast<std::size_t>(topology.numFaces()), 0);
    // Each edge's faces are looked at once: on a non-manifold fan, every face reaches the same edge.
    std::vector<char> edgeSeen(static_cast<std::size_t>(topology.numEdges()), 0);
    std::vector<int> stack;
    for (int use = 0; use < args.uses("extendToShell"); ++use) {
        const int face = args.integer("extendToShell", 0, use);
        if (face < 0 || face >= topology.numFaces())
            return args.fail("face " + std::to_string(face) + " is out of range (the mesh has " +
                             std::to_string(topology.numFaces()) + " faces).");
        if (inShell[static_cast<std::size_t>(face)]) continue;
        inShell[static_cast<std::size_t>(face)] = 1;
        stack.push_back(face);
        while (!stack.empty()) {
            const int f = stack.back();
            stack.pop_back();
            for (int edge : topology.faceEdges(f)) {
                if (edgeSeen[static_cast<std::size_t>(edge)]) continue;
                edgeSeen[static_cast<std::size_t>(edge)] = 1;
                for (int next : topology.edgeFaces(edge))
                    if (!inShell[static_cast<std::size_t>(next)]) {
                        inShell[static_cast<std::size_t>(next)] = 1;
                        stack.push_back(next);
                    }
            }
        }
    }
    std::vector<int> faces;
    for (std::size_t f = 0; f < inShell.size(); ++f)
        if (inShell[f]) faces.push_back(static_cast<int>(f));
    if (!args.has("noSelection")) {
        auto component = std::make_shared<ComponentData>();
        component->type = ComponentType::Face;
        component->typeName = "f";
        component->elements = faces;
        scene().activeSelection() = {SelectionItem{shape, component, Plug()}};
    }
    inv.result = std::move(faces);
    return true;
}

} // namespace

void registerPolySelectCommand(CommandTable& table) {
    table.add("polySelect", polySelectCommand);
}

} // namespace host
