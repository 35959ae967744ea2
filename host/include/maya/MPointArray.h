#pragma once
// Maya's array of points, with its append of loose coordinates.
#include <maya/MArrayBase.h>
#include <maya/MPoint.h>

class MPointArray : public MHostArray<MPoint> {
public:
    MPointArray() = default;
    MPointArray(const MPoint* src, unsigned int count) : MHostArray<MPoint>(src, count) {}
    MPointArray(unsigned int initialSize, const MPoint& initialValue)
        : MHostArray<MPoint>(initialSize, initialValue) {}
    explicit MPointArray(unsigned int initialSize) : MHostArray<MPoint>(initialSize) {}
    // Host access, not part of Maya's interface.
    explicit MPointArray(std::vector<MPoint> values) { data_ = std::move(values); }
    MStatus copy(const MPointArray& source) {
        data_ = source.data_;
        return MS::kSuccess;
    }

    using MHostArray<MPoint>::append;
    MStatus append(double x, double y, double z, double w = 1.0) { return append(MPoint(x, y, z, w)); }
};
