// polyColorSet: creating, deleting, renaming and choosing a mesh's colour sets, and listing them.
// A new colour set has no colours yet and becomes the current one.
#include "commands/ArgReader.h"
#include "commands/ObjectItems.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "files/SceneCommands.h"
#include "mesh/MeshData.h"

#include <algorithm>

namespace host {

namespace {

// The mesh shape the command works on: the one named, or the first selected.
NodePtr targetMesh(const ArgReader& args, std::string& error) {
    SelectionList items;
    if (args.positional().size() > 1) {
        error = "give one mesh.";
        return nullptr;
    }
    if (args.positional().empty())
        items = scene().activeSelection();
    else if (!resolveObjectArg(args.positional()[0]->text, items, &error))
        return nullptr;
    NodePtr shape = items.empty() ? nullptr : shapeOf(scene(), items.front().node);
    if (!shape || !shape->type().isA("mesh")) {
        error =
            items.empty() ? "give or select a mesh." : "'" + items.front().node->name() + "' is not a mesh.";
        return nullptr;
    }
    return shape;
}

// The shape's own geometry, copied first when someone else shares it.
MeshData& editableMesh(Node& shape) {
    auto& mesh = shape.mesh();
    if (!mesh)
        mesh = std::make_shared<MeshData>();
    else if (mesh.use_count() > 1)
        mesh = std::static_pointer_cast<MeshData>(mesh->clone());
    shape.touch();
    return *mesh;
}

std::vector<ColorSet>::iterator findSet(MeshData& mesh, const std::string& name) {
    return std::find_if(mesh.colorSets.begin(), mesh.colorSets.end(),
                        [&](const ColorSet& set) { return set.name == name; });
}

bool hasSet(const MeshData* mesh, const std::string& name) {
    return mesh && std::any_of(mesh->colorSets.begin(), mesh->colorSets.end(),
                               [&](const ColorSet& set) { return set.name == name; });
}

bool validSetName(const std::string& name) {
    return !name.empty() && (std::isalpha(static_cast<unsigned char>(name[0])) || name[0] == '_') &&
           std::all_of(name.begin(), name.end(),
                       [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; });
}

std::vector<std::string> setNames(const MeshData* mesh) {
    std::vector<std::string> names;
    if (mesh)
        for (const ColorSet& set : mesh->colorSets) names.push_back(set.name);
    return names;
}

} // namespace

bool polyColorSetCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"cr", "create", ""},           {"d", "delete", ""},     {"rn", "rename", ""},
        {"nc", "newColorSet", "s"},     {"cs", "colorSet", "s"}, {"ccs", "currentColorSet", ""},
        {"acs", "allColorSets", ""},    {"q", "query", ""},      {"e", "edit", ""},
        {"rpt", "representation", "s"}, {"clm", "clamped", "b"}};
    ArgReader args("polyColorSet", inv.statement.args);
    if (!args.parse(flags)) return false;
    int actions = 0;
    for (const char* action : {"create", "delete", "rename", "currentColorSet", "allColorSets"})
        actions += args.has(action) ? 1 : 0;
    if (actions != 1)
        return args.fail("give one of -create, -delete, -rename, -currentColorSet and -allColorSets.");
    std::string error;
    const NodePtr shape = targetMesh(args, error);
    if (!shape) return args.fail(error);
    const MeshData* current = shape->mesh().get();
    if (args.has("query")) {
        if (args.has("allColorSets")) {
            inv.result = setNames(current);
        } else if (args.has("currentColorSet")) {
            std::vector<std::string> name;
            if (current && !current->currentColorSet.empty()) name.push_back(current->currentColorSet);
            inv.result = name;
        } else {
            return args.fail("query -allColorSets or -currentColorSet.");
        }
        return true;
    }
    if (args.has("allColorSets")) return args.fail("-allColorSets is a query.");
    const std::string name = args.has("colorSet")             ? args.text("colorSet")
                             : current && !args.has("create") ? current->currentColorSet
                                                              : std::string();
    if (args.has("create")) {
        std::string created = name;
        if (!args.has("colorSet"))
            for (int n = 1; created.empty() || hasSet(current, created); ++n)
                created = "colorSet" + std::to_string(n);
        if (!validSetName(created)) return args.fail("'" + created + "' is not a valid colour set name.");
        if (hasSet(current, created))
            return args.fail("the colour set '" + created + "' already exists on " + shape->name() + ".");
        MeshData& mesh = editableMesh(*shape);
        mesh.colorSets.push_back(
            ColorSet{created, std::vector<std::array<float, 4>>(mesh.points.size(), {0.f, 0.f, 0.f, -1.f})});
        mesh.currentColorSet = created;
        inv.result = std::vector<std::string>{created};
        scene().touch();
        return true;
    }
    if (!hasSet(current, name))
        return args.fail(name.empty() ? shape->name() + " has no colour set."
                                      : "there is no colour set '" + name + "' on " + shape->name() + ".");
    const std::string newName = args.has("newColorSet") ? args.text("newColorSet") : std::string();
    if (args.has("rename") && !validSetName(newName))
        return args.fail("give a valid new name with -newColorSet.");
    if (args.has("rename") && hasSet(current, newName))
        return args.fail("the colour set '" + newName + "' already exists on " + shape->name() + ".");
    MeshData& mesh = editableMesh(*shape);
    scene().touch();
    if (args.has("delete")) {
        mesh.colorSets.erase(findSet(mesh, name));
        if (mesh.currentColorSet == name)
            mesh.currentColorSet = mesh.colorSets.empty() ? std::string() : mesh.colorSets.front().name;
        return true;
    }
    if (args.has("rename")) {
        findSet(mesh, name)->name = newName;
        if (mesh.currentColorSet == name) mesh.currentColorSet = newName;
        inv.result = std::vector<std::string>{newName};
        return true;
    }
    mesh.currentColorSet = name;
    inv.result = std::vector<std::string>{name};
    return true;
}

} // namespace host
