#include <maya/MEulerRotation.h>
#include <maya/MFnTransform.h>

#include "api/ObjectRef.h"
#include "engine/Plug.h"

namespace {

host::Plug transformPlug(const MObject& object, const char* name) {
    host::NodePtr node = host::nodeOf(object);
    if (!node || !node->type().transform) return host::Plug();
    return host::resolveAttrPath(node, name, nullptr);
}

bool readTriple(const MObject& object, const char* const names[3], double out[3]) {
    for (int i = 0; i < 3; ++i) {
        host::Plug p = transformPlug(object, names[i]);
        if (p.isNull()) return false;
        out[i] = host::valueAsDouble(p.value());
    }
    return true;
}

bool writeTriple(const MObject& object, const char* const names[3], const double in[3]) {
    for (int i = 0; i < 3; ++i) {
        host::Plug p = transformPlug(object, names[i]);
        if (p.isNull() || !p.setValue(in[i])) return false;
    }
    return true;
}

const char* const kTranslate[3] = {"tx", "ty", "tz"};
const char* const kRotate[3] = {"rx", "ry", "rz"};
const char* const kScale[3] = {"sx", "sy", "sz"};

MTransformationMatrix::RotationOrder orderOf(const MObject& object) {
    host::Plug p = transformPlug(object, "ro");
    int ro = p.isNull() ? 0 : static_cast<int>(host::valueAsDouble(p.value()));
    if (ro < 0 || ro > 5) ro = 0;
    return static_cast<MTransformationMatrix::RotationOrder>(ro + 1);
}

} // namespace

MObject MFnTransform::create(MObject parent, MStatus* ReturnStatus) {
    return MFnDagNode::create("transform", parent, ReturnStatus);
}

MTransformationMatrix MFnTransform::transformation(MStatus* ReturnStatus) const {
    MTransformationMatrix m;
    double t[3], r[3], s[3];
    const bool ok = readTriple(object_, kTranslate, t) && readTriple(object_, kRotate, r) &&
                    readTriple(object_, kScale, s);
    if (ReturnStatus) *ReturnStatus = ok ? MS::kSuccess : MS::kFailure;
    if (!ok) return m;
    m.setTranslation(MVector(t[0], t[1], t[2]), MSpace::kTransform);
    m.setRotation(r, orderOf(object_));
    m.setScale(s, MSpace::kTransform);
    return m;
}

MStatus MFnTransform::set(const MTransformationMatrix& transform) {
    MVector t = transform.getTranslation(MSpace::kTransform);
    double tv[3] = {t.x, t.y, t.z};
    double r[3], s[3];
    MTransformationMatrix::RotationOrder order;
    transform.getRotation(r, order);
    transform.getScale(s, MSpace::kTransform);
    host::Plug ro = transformPlug(object_, "ro");
    if (ro.isNull()) return MS::kFailure;
    ro.setValue(static_cast<int>(order) - 1);
    return writeTriple(object_, kTranslate, tv) && writeTriple(object_, kRotate, r) &&
                   writeTriple(object_, kScale, s)
               ? MS::kSuccess
               : MS::kFailure;
}

MVector MFnTransform::getTranslation(MSpace::Space, MStatus* ReturnStatus) const {
    double t[3] = {0, 0, 0};
    const bool ok = readTriple(object_, kTranslate, t);
    if (ReturnStatus) *ReturnStatus = ok ? MS::kSuccess : MS::kFailure;
    return MVector(t[0], t[1], t[2]);
}

MStatus MFnTransform::setTranslation(const MVector& vec, MSpace::Space) {
    double t[3] = {vec.x, vec.y, vec.z};
    return writeTriple(object_, kTranslate, t) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnTransform::getScale(double scale[3]) const {
    return readTriple(object_, kScale, scale) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnTransform::setScale(const double scale[3]) {
    return writeTriple(object_, kScale, scale) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnTransform::getRotation(double rotation[3], MTransformationMatrix::RotationOrder& order) const {
    order = orderOf(object_);
    return readTriple(object_, kRotate, rotation) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnTransform::setRotation(const double rotation[3], MTransformationMatrix::RotationOrder order) {
    host::Plug ro = transformPlug(object_, "ro");
    if (ro.isNull() || order <= MTransformationMatrix::kInvalid || order >= MTransformationMatrix::kLast)
        return MS::kFailure;
    ro.setValue(static_cast<int>(order) - 1);
    return writeTriple(object_, kRotate, rotation) ? MS::kSuccess : MS::kFailure;
}

MTransformationMatrix::RotationOrder MFnTransform::rotationOrder(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = host::nodeOf(object_) ? MS::kSuccess : MS::kFailure;
    return orderOf(object_);
}
