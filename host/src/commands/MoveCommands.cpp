// move and xform: translating transforms and mesh components, and xform's rotation and scale of
// transforms and queries. Spaces follow Maya: move is absolute in world space unless -r (relative)
// or -os (object space) say otherwise; xform works in object space unless -ws. A transform's
// position is its translation (the world matrix's translation row in world space); a vertex's is
// where the mesh shows it. Components of a deformed mesh move through tweaks on its shape.
#include "api/MeshAccess.h"
#include "api/ObjectRef.h"
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/QueryArgs.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "engine/TransformMatrix.h"
#include "eval/Evaluator.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace host {

namespace {

using Vec3 = std::array<double, 3>;

// A point (w = 1) or a direction (w = 0) through a matrix, for row vectors.
Vec3 apply(const Vec3& v, const Matrix& m, double w) {
    Vec3 out{};
    for (int c = 0; c < 3; ++c)
        out[static_cast<std::size_t>(c)] =
            v[0] * m.m[0][c] + v[1] * m.m[1][c] + v[2] * m.m[2][c] + w * m.m[3][c];
    return out;
}

struct Target {
    NodePtr node;              // a transform, or a mesh shape when `vertices` is set
    std::vector<int> vertices; // sorted, unique
    bool components = false;
};

// Objects (the selection when none are named) as transforms or vertex lists on mesh shapes.
// Edges and faces stand for their vertices.
bool targetsOf(const ArgReader& args, std::size_t firstName, std::vector<Target>& out) {
    SelectionList items;
    if (!queryItems(args, items, firstName)) return false;
    for (const SelectionItem& item : items) {
        if (!item.node || !item.node->alive()) continue;
        Target target;
        target.node = item.node;
        if (item.component) {
            const MeshPtr mesh = evaluatedMesh(item.node);
            if (!mesh) continue;
            const core::MeshTopology& topology = mesh->topology();
            target.components = true;
            for (int e : item.component->elements) {
                if (item.component->type == ComponentType::Vertex) {
                    if (e >= 0 && e < mesh->numVertices()) target.vertices.push_back(e);
                } else if (item.component->type == ComponentType::Edge) {
                    if (e >= 0 && e < topology.numEdges())
                        for (int v : topology.edgeVertices(e)) target.vertices.push_back(v);
                } else if (item.component->type == ComponentType::Face) {
                    for (int v : topology.faceVertices(e)) target.vertices.push_back(v);
                }
            }
            std::sort(target.vertices.begin(), target.vertices.end());
            target.vertices.erase(std::unique(target.vertices.begin(), target.vertices.end()),
                                  target.vertices.end());
        } else if (!item.node->type().transform) {
            return args.fail(scene().partialPath(*item.node) + " is not a transform or a mesh component.");
        }
        out.push_back(std::move(target));
    }
    if (out.empty()) return args.fail("nothing to work on: name objects or select them.");
    return true;
}

Matrix parentWorld(const Node& node) {
    return node.parent() ? worldMatrixOf(*node.parent()) : Matrix();
}

double attrNumber(const NodePtr& node, const char* name) {
    const Plug plug = resolveAttrPath(node, name, nullptr);
    return plug.isNull() ? 0.0 : toUiUnits(*plug.attr(), valueAsDouble(plug.value()));
}

void setAttrNumber(const NodePtr& node, const char* name, double shown) {
    const Plug plug = resolveAttrPath(node, name, nullptr);
    if (!plug.isNull()) plug.setValue(fromUiUnits(*plug.attr(), shown));
}

Vec3 triple(const NodePtr& node, const char* const names[3]) {
    return {attrNumber(node, names[0]), attrNumber(node, names[1]), attrNumber(node, names[2])};
}

void setTriple(const NodePtr& node, const char* const names[3], const Vec3& v) {
    for (int i = 0; i < 3; ++i) setAttrNumber(node, names[i], v[static_cast<std::size_t>(i)]);
}

const char* const kTranslate[3] = {"tx", "ty", "tz"};
const char* const kRotate[3] = {"rx", "ry", "rz"};
const char* const kScale[3] = {"sx", "sy", "sz"};

// Where a transform sits in world space: its world matrix's translation.
Vec3 worldPosition(const Node& node) {
    const Matrix world = worldMatrixOf(node);
    return {world.m[3][0], world.m[3][1], world.m[3][2]};
}

// Moves a transform by `delta` (world space when `world`, else in the parent's space, which is
// the space of its translate values).
void moveTransform(const NodePtr& node, const Vec3& delta, bool world) {
    Vec3 d = world ? apply(delta, parentWorld(*node).inverse(), 0.0) : delta;
    Vec3 t = triple(node, kTranslate);
    for (std::size_t i = 0; i < 3; ++i) t[i] += d[i];
    setTriple(node, kTranslate, t);
}

// Shown positions of a shape's vertices, in world space when `world`.
std::vector<Vec3> vertexPositions(const Target& target, bool world) {
    const MeshPtr mesh = evaluatedMesh(target.node);
    const Matrix toWorld = worldMatrixOf(*target.node);
    std::vector<Vec3> out;
    for (int v : target.vertices) {
        const auto& p = mesh->points[static_cast<std::size_t>(v)];
        const Vec3 local{p[0], p[1], p[2]};
        out.push_back(world ? apply(local, toWorld, 1.0) : local);
    }
    return out;
}

// Writes new positions (world space when `world`) for the target's vertices, in one pass over the
// span they cover.
void setVertexPositions(const Target& target, const std::vector<Vec3>& positions, bool world) {
    if (target.vertices.empty()) return;
    const MeshPtr mesh = evaluatedMesh(target.node);
    const Matrix toObject = worldMatrixOf(*target.node).inverse();
    const std::size_t first = static_cast<std::size_t>(target.vertices.front());
    const std::size_t last = static_cast<std::size_t>(target.vertices.back());
    std::vector<std::array<float, 3>> span(mesh->points.begin() + static_cast<std::ptrdiff_t>(first),
                                           mesh->points.begin() + static_cast<std::ptrdiff_t>(last + 1));
    for (std::size_t k = 0; k < target.vertices.size(); ++k) {
        const Vec3 p = world ? apply(positions[k], toObject, 1.0) : positions[k];
        auto& out = span[static_cast<std::size_t>(target.vertices[k]) - first];
        for (std::size_t c = 0; c < 3; ++c) out[c] = static_cast<float>(p[c]);
    }
    writeShownPoints(ObjectRef::ofNode(target.node), first, span);
}

// The three numbers before the object names; false with an error when they are missing.
bool readVector(const ArgReader& args, Vec3& out) {
    const auto& words = args.positional();
    for (std::size_t i = 0; i < 3; ++i) {
        char* end = nullptr;
        const std::string& text = i < words.size() ? words[i]->text : std::string();
        out[i] = std::strtod(text.c_str(), &end);
        if (text.empty() || *end != '\0' || !std::isfinite(out[i]))
            return args.fail("give three numbers (x y z) before the objects.");
    }
    return true;
}

bool moveCommand(Invocation& inv) {
    static const FlagTable flags = {{"r", "relative", ""},
                                    {"a", "absolute", ""},
                                    {"os", "objectSpace", ""},
                                    {"ws", "worldSpace", ""},
                                    {"ls", "localSpace", ""}};
    ArgReader args("move", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.has("relative") && args.has("absolute"))
        return args.fail("-relative and -absolute cannot be combined.");
    Vec3 value;
    std::vector<Target> targets;
    if (!readVector(args, value) || !targetsOf(args, 3, targets)) return false;
    const bool relative = args.has("relative");
    const bool objectSpace = args.has("objectSpace"), localSpace = args.has("localSpace");
    for (const Target& target : targets) {
        if (target.components) {
            // Object space is the mesh's own; world space otherwise.
            const bool world = !objectSpace && !localSpace;
            std::vector<Vec3> positions = vertexPositions(target, world);
            for (Vec3& p : positions)
                for (std::size_t c = 0; c < 3; ++c) p[c] = relative ? p[c] + value[c] : value[c];
            setVertexPositions(target, positions, world);
            continue;
        }
        if (!relative) {
            // Absolute: the transform goes to the point (given in its parent's space with -ls).
            const Vec3 now = localSpace ? triple(target.node, kTranslate) : worldPosition(*target.node);
            Vec3 delta;
            for (std::size_t c = 0; c < 3; ++c) delta[c] = value[c] - now[c];
            moveTransform(target.node, delta, !localSpace);
        } else if (objectSpace) {
            // Along the transform's own axes.
            moveTransform(target.node, apply(value, worldMatrixOf(*target.node), 0.0), true);
        } else {
            moveTransform(target.node, value, !localSpace);
        }
    }
    return true;
}

// xform queries: one of -t, -ro, -s for transforms; -t for components (flattened x y z per vertex).
bool xformQuery(const ArgReader& args, const std::vector<Target>& targets, CommandResult& result) {
    const int asked =
        (args.has("translation") ? 1 : 0) + (args.has("rotation") ? 1 : 0) + (args.has("scale") ? 1 : 0);
    if (asked != 1) return args.fail("query exactly one of -translation, -rotation, -scale.");
    const bool world = args.has("worldSpace");
    std::vector<double> values;
    for (const Target& target : targets) {
        if (target.components) {
            if (!args.has("translation")) return args.fail("components have only a translation to query.");
            for (const Vec3& p : vertexPositions(target, world))
                values.insert(values.end(), p.begin(), p.end());
            continue;
        }
        Vec3 v{};
        if (args.has("translation")) {
            v = world ? worldPosition(*target.node) : triple(target.node, kTranslate);
        } else if (args.has("rotation")) {
            if (world) return args.fail("-rotation is queried in object space only.");
            v = triple(target.node, kRotate);
        } else {
            const Matrix m = worldMatrixOf(*target.node);
            for (std::size_t r = 0; r < 3; ++r)
                v[r] = world
                           ? std::sqrt(m.m[r][0] * m.m[r][0] + m.m[r][1] * m.m[r][1] + m.m[r][2] * m.m[r][2])
                           : attrNumber(target.node, kScale[r]);
        }
        values.insert(values.end(), v.begin(), v.end());
    }
    result = std::move(values);
    return true;
}

bool xformCommand(Invocation& inv) {
    static const FlagTable flags = {{"q", "query", ""},        {"r", "relative", ""},
                                    {"a", "absolute", ""},     {"os", "objectSpace", ""},
                                    {"ws", "worldSpace", ""},  {"t", "translation", "ddd"},
                                    {"ro", "rotation", "ddd"}, {"s", "scale", "ddd"}};
    // In query mode the value flags take no numbers.
    static const FlagTable queryFlags = {
        {"q", "query", ""},       {"r", "relative", ""},    {"a", "absolute", ""},  {"os", "objectSpace", ""},
        {"ws", "worldSpace", ""}, {"t", "translation", ""}, {"ro", "rotation", ""}, {"s", "scale", ""}};
    const bool query = std::any_of(inv.statement.args.begin(), inv.statement.args.end(), [](const Token& t) {
        return isFlagToken(t) && (t.text == "-q" || t.text == "-query");
    });
    ArgReader args("xform", inv.statement.args);
    if (!args.parse(query ? queryFlags : flags)) return false;
    if (args.has("relative") && args.has("absolute"))
        return args.fail("-relative and -absolute cannot be combined.");
    if (args.has("objectSpace") && args.has("worldSpace"))
        return args.fail("-objectSpace and -worldSpace cannot be combined.");
    std::vector<Target> targets;
    if (!targetsOf(args, 0, targets)) return false;
    if (query) return xformQuery(args, targets, inv.result);

    const bool relative = args.has("relative"), world = args.has("worldSpace");
    auto vectorOf = [&](const char* flag) {
        return Vec3{args.number(flag, 0), args.number(flag, 1), args.number(flag, 2)};
    };
    for (const Target& target : targets) {
        if (target.components) {
            if (args.has("rotation") || args.has("scale"))
                return args.fail("components can only be translated.");
            if (!args.has("translation")) continue;
            const Vec3 t = vectorOf("translation");
            std::vector<Vec3> positions = vertexPositions(target, world);
            for (Vec3& p : positions)
                for (std::size_t c = 0; c < 3; ++c) p[c] = relative ? p[c] + t[c] : t[c];
            setVertexPositions(target, positions, world);
            continue;
        }
        if (args.has("scale")) {
            if (world) return args.fail("-scale is set in object space only.");
            Vec3 s = vectorOf("scale");
            const Vec3 now = triple(target.node, kScale);
            if (relative)
                for (std::size_t c = 0; c < 3; ++c) s[c] *= now[c];
            setTriple(target.node, kScale, s);
        }
        if (args.has("rotation")) {
            if (world) return args.fail("-rotation is set in object space only.");
            Vec3 r = vectorOf("rotation");
            const Vec3 now = triple(target.node, kRotate);
            if (relative)
                for (std::size_t c = 0; c < 3; ++c) r[c] += now[c];
            setTriple(target.node, kRotate, r);
        }
        if (args.has("translation")) {
            const Vec3 t = vectorOf("translation");
            const Vec3 now = world ? worldPosition(*target.node) : triple(target.node, kTranslate);
            Vec3 delta;
            for (std::size_t c = 0; c < 3; ++c) delta[c] = relative ? t[c] : t[c] - now[c];
            moveTransform(target.node, delta, world);
        }
    }
    return true;
}

} // namespace

void registerMoveCommands(CommandTable& table) {
    table.add("move", moveCommand);
    table.add("xform", xformCommand);
}

} // namespace host
