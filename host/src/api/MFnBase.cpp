#include <maya/MFnBase.h>

bool MFnBase::hasObj(MFn::Type type) const {
    return object_.hasFn(type);
}
bool MFnBase::hasObj(const MObject& object) const {
    return accepts(object);
}

MObject MFnBase::object(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = object_.isNull() ? MS::kFailure : MS::kSuccess;
    return object_;
}

MStatus MFnBase::setObject(MObject& object) {
    return setObject(static_cast<const MObject&>(object));
}

MStatus MFnBase::setObject(const MObject& object) {
    if (!accepts(object)) {
        object_ = MObject();
        return MS::kInvalidParameter;
    }
    object_ = object;
    return MS::kSuccess;
}
