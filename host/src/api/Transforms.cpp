#include "api/Transforms.h"

#include "engine/Evaluation.h"
#include "engine/Plug.h"

#include <maya/MEulerRotation.h>

namespace host {

namespace {

double attrValue(const Node& node, const char* name, double fallback) {
    Plug plug = resolveAttrPath(const_cast<Node&>(node).shared_from_this(), name, nullptr);
    if (plug.isNull()) return fallback;
    return valueAsDouble(evaluatedValue(plug));
}

MMatrix translation(double x, double y, double z) {
    MMatrix m;
    m.matrix[3][0] = x;
    m.matrix[3][1] = y;
    m.matrix[3][2] = z;
    return m;
}

MMatrix triple(const Node& node, const char* x, const char* y, const char* z, double fallback,
               bool negate = false) {
    const double s = negate ? -1.0 : 1.0;
    return translation(s * attrValue(node, x, fallback), s * attrValue(node, y, fallback),
                       s * attrValue(node, z, fallback));
}

MMatrix rotation(const Node& node, const char* x, const char* y, const char* z, int order) {
    MEulerRotation r(attrValue(node, x, 0.0), attrValue(node, y, 0.0), attrValue(node, z, 0.0),
                     static_cast<MEulerRotation::RotationOrder>(order));
    return r.asMatrix();
}

} // namespace

MMatrix localMatrix(const Node& node) {
    if (!node.type().transform) return MMatrix();
    MMatrix scale;
    scale.matrix[0][0] = attrValue(node, "sx", 1.0);
    scale.matrix[1][1] = attrValue(node, "sy", 1.0);
    scale.matrix[2][2] = attrValue(node, "sz", 1.0);
    MMatrix shear;
    shear.matrix[1][0] = attrValue(node, "shxy", 0.0);
    shear.matrix[2][0] = attrValue(node, "shxz", 0.0);
    shear.matrix[2][1] = attrValue(node, "shyz", 0.0);
    int order = static_cast<int>(attrValue(node, "ro", 0.0));
    if (order < 0 || order > 5) order = 0;
    const MMatrix rotate = rotation(node, "rx", "ry", "rz", order);
    const MMatrix rotateAxis = rotation(node, "rax", "ray", "raz", 0);
    const MMatrix t = triple(node, "tx", "ty", "tz", 0.0);
    if (node.type().isA("joint")) {
        // Joints: scale, rotate axis, rotation, joint orient, inverse parent scale, translation.
        const MMatrix orient = rotation(node, "jox", "joy", "joz", 0);
        MMatrix inverseScale;
        for (int i = 0; i < 3; ++i) {
            const char* names[] = {"isx", "isy", "isz"};
            double s = attrValue(node, names[i], 1.0);
            inverseScale.matrix[i][i] = s != 0.0 ? 1.0 / s : 1.0;
        }
        return scale * rotateAxis * rotate * orient * inverseScale * t;
    }
    // Transforms: [-sp] S Sh [sp] [spt] [-rp] Ra R [rp] [rpt] T, for row vectors.
    return triple(node, "spx", "spy", "spz", 0.0, true) * scale * shear *
           triple(node, "spx", "spy", "spz", 0.0) * triple(node, "sptx", "spty", "sptz", 0.0) *
           triple(node, "rpx", "rpy", "rpz", 0.0, true) * rotateAxis * rotate *
           triple(node, "rpx", "rpy", "rpz", 0.0) * triple(node, "rptx", "rpty", "rptz", 0.0) * t;
}

MMatrix worldMatrix(const Node& node) {
    MMatrix m = localMatrix(node);
    int guard = 0;
    for (const Node* p = node.parent(); p && guard < 1000; p = p->parent(), ++guard) m = m * localMatrix(*p);
    return m;
}

} // namespace host
