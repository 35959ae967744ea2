// polyCube, polyPlane, polySphere and polyCylinder: a transform with a mesh shape laid out as Maya lays them
// out. The host keeps no construction history: with history on (the default) the result names the transform
// and the shape, with -ch off only the transform.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/CommandState.h"
#include "commands/Names.h"
#include "core/mesh/Primitives.h"
#include "engine/Scene.h"
#include "mesh/MeshData.h"

#include <cctype>
#include <functional>

namespace host {

namespace {

using MakeMesh = std::function<std::string(const ArgReader&, core::PolyMesh&)>;

// "pCube1" -> "pCubeShape1", "box" -> "boxShape".
std::string shapeNameFor(const std::string& transform) {
    std::size_t end = transform.size();
    while (end > 0 && std::isdigit(static_cast<unsigned char>(transform[end - 1]))) --end;
    return transform.substr(0, end) + "Shape" + transform.substr(end);
}

bool makePrimitive(Invocation& inv, const char* command, const char* stem, const FlagTable& shapeFlags,
                   const MakeMesh& make) {
    FlagTable flags = shapeFlags;
    flags.insert(flags.end(), {{"n", "name", "s"},
                               {"ch", "constructionHistory", "b"},
                               {"o", "object", "b"},
                               {"cuv", "createUVs", "i"},
                               {"ax", "axis", "ddd"}});
    ArgReader args(command, inv.statement.args);
    if (!args.parse(flags)) return false;
    if (!args.positional().empty())
        return args.fail("unexpected argument " + args.positional()[0]->text + ".");
    core::PolyMesh polyMesh;
    const std::string problem = make(args, polyMesh);
    if (!problem.empty()) return args.fail(problem + ".");
    Scene& s = scene();
    std::string error;
    const std::string name = args.text("name");
    NodePtr transform =
        s.createNode("transform", name.empty() ? std::string(stem) + "#" : name, nullptr, &error);
    NodePtr shape =
        transform ? s.createNode("mesh", shapeNameFor(transform->name()), transform.get(), &error) : nullptr;
    if (!shape) {
        if (transform) s.deleteNode(transform, nullptr);
        return args.fail(error);
    }
    auto mesh = std::make_shared<MeshData>();
    mesh->points.reserve(polyMesh.points.size() / 3);
    for (std::size_t i = 0; i + 2 < polyMesh.points.size(); i += 3)
        mesh->points.push_back({static_cast<float>(polyMesh.points[i]),
                                static_cast<float>(polyMesh.points[i + 1]),
                                static_cast<float>(polyMesh.points[i + 2])});
    mesh->faceCounts = std::move(polyMesh.faceCounts);
    mesh->faceConnects = std::move(polyMesh.faceConnects);
    shape->mesh() = std::move(mesh);
    s.activeSelection() = {SelectionItem{transform, nullptr, Plug()}};
    setCurrentNode(transform);
    const bool history = !args.has("constructionHistory") || args.boolean("constructionHistory");
    inv.result = history ? std::vector<std::string>{nodeName(*transform), nodeName(*shape)}
                         : std::vector<std::string>{nodeName(*transform)};
    return true;
}

bool polyCubeCommand(Invocation& inv) {
    static const FlagTable flags = {{"w", "width", "d"},          {"h", "height", "d"},
                                    {"d", "depth", "d"},          {"sx", "subdivisionsX", "i"},
                                    {"sy", "subdivisionsY", "i"}, {"sz", "subdivisionsZ", "i"}};
    return makePrimitive(inv, "polyCube", "pCube", flags, [](const ArgReader& args, core::PolyMesh& mesh) {
        core::PolyCubeOptions o;
        if (args.has("width")) o.width = args.number("width");
        if (args.has("height")) o.height = args.number("height");
        if (args.has("depth")) o.depth = args.number("depth");
        if (args.has("subdivisionsX")) o.subdivisionsX = args.integer("subdivisionsX");
        if (args.has("subdivisionsY")) o.subdivisionsY = args.integer("subdivisionsY");
        if (args.has("subdivisionsZ")) o.subdivisionsZ = args.integer("subdivisionsZ");
        return core::makePolyCube(o, mesh);
    });
}

bool polyPlaneCommand(Invocation& inv) {
    static const FlagTable flags = {{"w", "width", "d"},
                                    {"h", "height", "d"},
                                    {"sx", "subdivisionsX", "i"},
                                    {"sy", "subdivisionsY", "i"}};
    return makePrimitive(inv, "polyPlane", "pPlane", flags, [](const ArgReader& args, core::PolyMesh& mesh) {
        core::PolyPlaneOptions o;
        if (args.has("width")) o.width = args.number("width");
        if (args.has("height")) o.height = args.number("height");
        if (args.has("subdivisionsX")) o.subdivisionsX = args.integer("subdivisionsX");
        if (args.has("subdivisionsY")) o.subdivisionsY = args.integer("subdivisionsY");
        return core::makePolyPlane(o, mesh);
    });
}

bool polySphereCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"r", "radius", "d"}, {"sx", "subdivisionsX", "i"}, {"sy", "subdivisionsY", "i"}};
    return makePrimitive(inv, "polySphere", "pSphere", flags,
                         [](const ArgReader& args, core::PolyMesh& mesh) {
                             core::PolySphereOptions o;
                             if (args.has("radius")) o.radius = args.number("radius");
                             if (args.has("subdivisionsX")) o.subdivisionsX = args.integer("subdivisionsX");
                             if (args.has("subdivisionsY")) o.subdivisionsY = args.integer("subdivisionsY");
                             return core::makePolySphere(o, mesh);
                         });
}

bool polyCylinderCommand(Invocation& inv) {
    static const FlagTable flags = {{"r", "radius", "d"},
                                    {"h", "height", "d"},
                                    {"sx", "subdivisionsX", "i"},
                                    {"sy", "subdivisionsY", "i"}};
    return makePrimitive(inv, "polyCylinder", "pCylinder", flags,
                         [](const ArgReader& args, core::PolyMesh& mesh) {
                             core::PolyCylinderOptions o;
                             if (args.has("radius")) o.radius = args.number("radius");
                             if (args.has("height")) o.height = args.number("height");
                             if (args.has("subdivisionsX")) o.subdivisionsX = args.integer("subdivisionsX");
                             if (args.has("subdivisionsY")) o.subdivisionsY = args.integer("subdivisionsY");
                             return core::makePolyCylinder(o, mesh);
                         });
}

} // namespace

void registerPolyCommands(CommandTable& table) {
    table.add("polyCube", polyCubeCommand);
    table.add("polyPlane", polyPlaneCommand);
    table.add("polySphere", polySphereCommand);
    table.add("polyCylinder", polyCylinderCommand);
}

} // namespace host
