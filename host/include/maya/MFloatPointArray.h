#pragma once
// Maya's array of points, with its append of loose coordinates.
#include <maya/MArrayBase.h>
#include <maya/MFloatPoint.h>

class MFloatPointArray : public MHostArray<MFloatPoint> {
public:
    MFloatPointArray() = default;
    MFloatPointArray(const MFloatPoint* src, unsigned int count) : MHostArray<MFloatPoint>(src, count) {}
    MFloatPointArray(unsigned int initialSize, const MFloatPoint& initialValue)
        : MHostArray<MFloatPoint>(initialSize, initialValue) {}
    explicit MFloatPointArray(unsigned int initialSize) : MHostArray<MFloatPoint>(initialSize) {}
    // Host access, not part of Maya's interface.
    explicit MFloatPointArray(std::vector<MFloatPoint> values) { data_ = std::move(values); }
    MStatus copy(const MFloatPointArray& source) {
        data_ = source.data_;
        return MS::kSuccess;
    }

    using MHostArray<MFloatPoint>::append;
    MStatus append(float x, float y, float z, float w = 1.0F) { return append(MFloatPoint(x, y, z, w)); }
};
