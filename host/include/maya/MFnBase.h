#pragma once
// Base of the function sets: holds the object the set works on.
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

class MFnBase {
public:
    MFnBase() = default;
    virtual ~MFnBase() = default;
    virtual MFn::Type type() const { return MFn::kBase; }
    bool hasObj(MFn::Type type) const;
    bool hasObj(const MObject& object) const;
    MObject object(MStatus* ReturnStatus = NULL) const;
    virtual MStatus setObject(MObject& object);
    virtual MStatus setObject(const MObject& object);

protected:
    // Whether the set accepts this object; sets override it for their own type.
    virtual bool accepts(const MObject& object) const { return !object.isNull(); }
    MObject object_;
};
