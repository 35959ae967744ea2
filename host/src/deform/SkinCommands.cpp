// joint: a new joint under the selected joint (or at the world), placed at a world position.
// skinCluster: binds a mesh to joints. The skin cluster goes on the mesh's history like any
// deformer; matrix[j] is connected to influence j's worldMatrix[0], bindPreMatrix[j] holds the
// inverse of that matrix at bind time and geomMatrix the mesh's world matrix. Each vertex starts
// fully weighted to the influence whose origin is closest to it in world space (the lowest index on
// a tie): simple, and every vertex follows exactly one influence until weights are edited.
#include "deform/SkinCommands.h"

#include "api/Transforms.h"
#include "commands/ArgReader.h"
#include "commands/Names.h"
#include "deform/DeformerChain.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"

#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {

namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

bool isJoint(const Node* node) {
    return node && node->type().isA("joint");
}

void setNumber(const NodePtr& node, const std::string& attr, double value) {
    const Plug plug = resolveAttrPath(node, attr, nullptr);
    if (!plug.isNull()) plug.setValue(value);
}

bool connectPlugs(const NodePtr& source, const std::string& from, const NodePtr& destination,
                  const std::string& to, std::string* error) {
    return scene().connect(resolveAttrPath(source, from, nullptr), resolveAttrPath(destination, to, nullptr),
                           true, error);
}

bool jointCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"n", "name", "s"}, {"p", "position", "ddd"}, {"o", "orientation", "ddd"}};
    ArgReader args("joint", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (!args.positional().empty())
        return args.fail("unexpected argument " + args.positional()[0]->text + ".");
    Scene& s = scene();
    // A selected joint becomes the parent; anything else selected leaves the joint at the world.
    const SelectionList& selection = s.activeSelection();
    const NodePtr parent =
        !selection.empty() && isJoint(selection.front().node.get()) && selection.front().node->alive()
            ? selection.front().node
            : nullptr;
    std::string error;
    const std::string name = args.has("name") ? args.text("name") : std::string();
    const NodePtr joint = s.createNode("joint", name.empty() ? "joint#" : name, parent.get(), &error);
    if (!joint) return args.fail(error);
    if (parent && !connectPlugs(parent, "scale", joint, "inverseScale", &error)) {
        s.deleteNode(joint, nullptr);
        return args.fail(error);
    }
    MPoint position;
    if (args.has("position"))
        position = MPoint(args.number("position", 0), args.number("position", 1), args.number("position", 2));
    const MPoint local = position * (parent ? worldMatrix(*parent) : MMatrix()).inverse();
    setNumber(joint, "translateX", local.x);
    setNumber(joint, "translateY", local.y);
    setNumber(joint, "translateZ", local.z);
    if (args.has("orientation")) {
        setNumber(joint, "jointOrientX", args.number("orientation", 0) * kRadiansPerDegree);
        setNumber(joint, "jointOrientY", args.number("orientation", 1) * kRadiansPerDegree);
        setNumber(joint, "jointOrientZ", args.number("orientation", 2) * kRadiansPerDegree);
    }
    // The new joint is selected, so that the next one continues the chain.
    s.activeSelection() = {SelectionItem{joint, nullptr, Plug()}};
    inv.result = nodeName(*joint);
    return true;
}

// Appends a node and, for joints, every joint below it, depth first; repeats are skipped.
void addInfluence(const NodePtr& top, bool withHierarchy, std::vector<NodePtr>& out) {
    std::vector<NodePtr> pending{top};
    while (!pending.empty()) {
        const NodePtr node = pending.back();
        pending.pop_back();
        if (std::find(out.begin(), out.end(), node) == out.end()) out.push_back(node);
        if (!withHierarchy || !isJoint(node.get())) continue;
        const auto& children = node->children();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            if (isJoint(*child)) pending.push_back(scene().sharedNode(*child));
    }
}

// Sorts the command's objects into influences and the one mesh to bind. Without -tsb a joint
// stands for its whole skeleton: the topmost joint above it and every joint below that.
bool readObjects(const ArgReader& args, std::vector<NodePtr>& influences, NodePtr& shape) {
    Scene& s = scene();
    std::vector<NodePtr> objects;
    for (const Token* token : args.positional()) {
        std::string error;
        NodePtr node = s.findNode(token->text, &error);
        if (!node) return args.fail(error);
        objects.push_back(node);
    }
    if (args.positional().empty())
        for (const SelectionItem& item : s.activeSelection())
            if (item.node && item.node->alive() && item.plug.isNull()) objects.push_back(item.node);
    const bool wholeSkeleton = !args.has("toSelectedBones");
    for (const NodePtr& node : objects) {
        const NodePtr mesh = shapeOf(s, node);
        if (mesh && mesh->type().isA("mesh")) {
            if (shape && shape != mesh) return args.fail("only one mesh can be bound at a time.");
            shape = mesh;
        } else if (node->type().transform) {
            NodePtr root = node;
            while (wholeSkeleton && isJoint(root.get()) && isJoint(root->parent()))
                root = s.sharedNode(root->parent());
            addInfluence(root, wholeSkeleton, influences);
        } else {
            return args.fail(nodeName(*node) + " is neither an influence nor a mesh.");
        }
    }
    if (!shape) return args.fail("no mesh to bind.");
    for (const NodePtr& node : s.nodes())
        if (node->alive() && node->type().isA("skinCluster") && indexForShape(node, shape))
            return args.fail(nodeName(*shape) + " is already bound to " + nodeName(*node) + ".");
    if (influences.empty()) return args.fail("no joints or transforms to bind to.");
    return true;
}

// Weights every vertex fully to the influence closest to it.
void weightToClosest(const NodePtr& skin, const MeshData& mesh, const MMatrix& geometry,
                     const std::vector<NodePtr>& influences) {
    std::vector<MPoint> origins;
    for (const NodePtr& influence : influences) origins.push_back(MPoint() * worldMatrix(*influence));
    const Plug weightList = resolveAttrPath(skin, "weightList", nullptr);
    const AttrSpec* weights = weightList.attr()->childNamed("weights");
    for (std::size_t v = 0; v < mesh.points.size(); ++v) {
        const auto& p = mesh.points[v];
        const MPoint world = MPoint(p[0], p[1], p[2]) * geometry;
        std::size_t closest = 0;
        double best = std::numeric_limits<double>::infinity();
        for (std::size_t j = 0; j < origins.size(); ++j) {
            const double d = world.distanceTo(origins[j]);
            if (d < best) {
                best = d;
                closest = j;
            }
        }
        weightList.element(static_cast<uint32_t>(v))
            .child(weights)
            .element(static_cast<uint32_t>(closest))
            .setValue(1.0);
    }
}

bool bindMesh(const NodePtr& skin, const NodePtr& shape, const std::vector<NodePtr>& influences,
              std::string* error) {
    if (!insertDeformer(skin, 0, shape, false, error)) return false;
    for (std::size_t j = 0; j < influences.size(); ++j) {
        const std::string index = "[" + std::to_string(j) + "]";
        if (!connectPlugs(influences[j], "worldMatrix[0]", skin, "matrix" + index, error)) return false;
        resolveAttrPath(skin, "bindPreMatrix" + index, nullptr)
            .setValue(matrixData(worldMatrixOf(*influences[j]).inverse()));
    }
    const MMatrix geometry = worldMatrix(*shape);
    resolveAttrPath(skin, "geomMatrix", nullptr).setValue(matrixData(worldMatrixOf(*shape)));
    const MeshPtr input = geometryInto(resolveAttrPath(skin, "input[0].inputGeometry", nullptr));
    if (input) weightToClosest(skin, *input, geometry, influences);
    return true;
}

bool skinClusterCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"n", "name", "s"}, {"tsb", "toSelectedBones", ""}, {"mi", "maxInfluences", "i"}};
    ArgReader args("skinCluster", inv.statement.args);
    if (!args.parse(flags)) return false;
    std::vector<NodePtr> influences;
    NodePtr shape;
    if (!readObjects(args, influences, shape)) return false;
    Scene& s = scene();
    std::string error;
    const std::string name = args.has("name") ? args.text("name") : std::string();
    const NodePtr skin = s.createNode("skinCluster", name.empty() ? "skinCluster#" : name, nullptr, &error);
    if (!skin) return args.fail(error);
    if (!bindMesh(skin, shape, influences, &error)) {
        s.deleteNode(skin, nullptr);
        return args.fail(error);
    }
    if (args.has("maxInfluences"))
        resolveAttrPath(skin, "maxInfluences", nullptr).setValue(args.integer("maxInfluences"));
    inv.result = nodeName(*skin);
    return true;
}

} // namespace

void registerSkinCommands(CommandTable& table) {
    table.add("joint", jointCommand);
    table.add("skinCluster", skinClusterCommand);
}

} // namespace host
