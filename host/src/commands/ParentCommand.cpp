// parent: moves DAG nodes under a new parent or to the world, keeping their place in the world
// unless -r keeps their local values.
#include "api/Transforms.h"
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "engine/Scene.h"

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MTransformationMatrix.h>

namespace host {

namespace {

void setNumber(const NodePtr& node, const char* attr, double value) {
    Plug plug = resolveAttrPath(node, attr, nullptr);
    if (!plug.isNull()) plug.setValue(value);
}

double number(const NodePtr& node, const char* attr, double fallback) {
    Plug plug = resolveAttrPath(node, attr, nullptr);
    return plug.isNull() ? fallback : valueAsDouble(plug.value());
}

MMatrix eulerAt(const NodePtr& node, const char* x, const char* y, const char* z) {
    return MEulerRotation(number(node, x, 0.0), number(node, y, 0.0), number(node, z, 0.0)).asMatrix();
}

// Sets translate, rotate, scale and shear so that the node's local matrix becomes `target`, keeping its
// pivots, rotate axis and joint orient: the 3x3 part is S Sh RA R JO (IS), and translate is what the
// rest leaves over.
void setLocalMatrix(const NodePtr& node, const MMatrix& target) {
    const bool joint = node->type().isA("joint");
    MMatrix upper = target;
    for (int c = 0; c < 3; ++c) upper.matrix[3][c] = 0.0;
    if (joint) {
        MMatrix parentScale;
        for (int i = 0; i < 3; ++i)
            parentScale.matrix[i][i] = number(node, i == 0 ? "isx" : i == 1 ? "isy" : "isz", 1.0);
        upper = upper * parentScale;
    }
    const MTransformationMatrix parts(upper);
    double scale[3], shear[3];
    parts.getScale(scale, MSpace::kTransform);
    parts.getShear(shear, MSpace::kTransform);
    const MMatrix orient = joint ? eulerAt(node, "jox", "joy", "joz") : MMatrix();
    const MMatrix rotation =
        eulerAt(node, "rax", "ray", "raz").inverse() * parts.asRotateMatrix() * orient.inverse();
    int order = static_cast<int>(number(node, "ro", 0.0));
    if (order < 0 || order > 5) order = 0;
    const MEulerRotation r =
        MEulerRotation::decompose(rotation, static_cast<MEulerRotation::RotationOrder>(order));
    const char* scaleNames[] = {"sx", "sy", "sz"};
    const char* shearNames[] = {"shxy", "shxz", "shyz"};
    const char* translateNames[] = {"tx", "ty", "tz"};
    const double angles[] = {r.x, r.y, r.z};
    const char* rotateNames[] = {"rx", "ry", "rz"};
    for (int i = 0; i < 3; ++i) {
        setNumber(node, scaleNames[i], scale[i]);
        setNumber(node, shearNames[i], joint ? 0.0 : shear[i]);
        setNumber(node, rotateNames[i], angles[i]);
        setNumber(node, translateNames[i], 0.0);
    }
    const MMatrix withoutTranslate = localMatrix(*node);
    for (int i = 0; i < 3; ++i)
        setNumber(node, translateNames[i], target.matrix[3][i] - withoutTranslate.matrix[3][i]);
}

bool parentCommand(Invocation& inv) {
    static const FlagTable flags = {{"w", "world", ""},          {"r", "relative", ""},
                                    {"a", "absolute", ""},       {"s", "shape", ""},
                                    {"nc", "noConnections", ""}, {"nis", "noInvScale", ""}};
    ArgReader args("parent", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& names = args.positional();
    const bool world = args.has("world");
    if (names.size() < (world ? 1u : 2u))
        return args.fail("give the objects to parent and their new parent.");
    std::string error;
    NodePtr newParent;
    if (!world && !(newParent = scene().findNode(names.back()->text, &error))) {
        messageLog().error(error);
        return false;
    }
    std::vector<NodePtr> children;
    for (std::size_t i = 0; i < names.size() - (world ? 0 : 1); ++i) {
        NodePtr child = scene().findNode(names[i]->text, &error);
        if (!child) {
            messageLog().error(error);
            return false;
        }
        children.push_back(child);
    }
    std::vector<std::string> result;
    for (const NodePtr& child : children) {
        if (child->parent() == newParent.get()) {
            messageLog().warning(nodeName(*child) + " is already a child of " +
                                 (newParent ? nodeName(*newParent) : std::string("the world")) + ".");
            result.push_back(nodeName(*child));
            continue;
        }
        const bool keepWorld = !args.has("relative") && child->type().transform;
        const MMatrix before = keepWorld ? worldMatrix(*child) : MMatrix();
        if (!scene().reparent(child, newParent.get(), &error)) {
            messageLog().error(error);
            return false;
        }
        if (keepWorld)
            setLocalMatrix(child, before * (newParent ? worldMatrix(*newParent) : MMatrix()).inverse());
        result.push_back(nodeName(*child));
    }
    inv.result = result;
    return true;
}

} // namespace

void registerParentCommand(CommandTable& table) {
    table.add("parent", parentCommand);
}

} // namespace host
