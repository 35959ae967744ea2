#pragma once
// Base class of user-defined attribute data.
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

class MPxData {
public:
    enum Type { kData, kGeometryData, kLast };

    MPxData() = default;
    virtual ~MPxData() = default;

    virtual void copy(const MPxData& src) = 0;
    virtual MString name() const = 0;
};
