#pragma once
// An axis-aligned box; a new or cleared box is empty and contains nothing.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MMatrix;
class MPoint;

class MBoundingBox {
public:
    MBoundingBox() = default;
    MBoundingBox(const MBoundingBox& src) = default;
    // The box spanned by two opposite corners, given in any order.
    MBoundingBox(const MPoint& corner1, const MPoint& corner2);
    ~MBoundingBox() = default;

    void clear();
    void transformUsing(const MMatrix& matrix);
    void expand(const MPoint& point);
    void expand(const MBoundingBox& box);
    // Points on the faces count as inside.
    bool contains(const MPoint& point) const;
    bool intersects(const MBoundingBox& box, double tol = 0.0) const;
    double width() const { return max_[0] - min_[0]; }
    double height() const { return max_[1] - min_[1]; }
    double depth() const { return max_[2] - min_[2]; }
    MPoint center() const;
    MPoint min() const;
    MPoint max() const;

    MBoundingBox& operator=(const MBoundingBox& other) = default;

private:
    // An empty box keeps both corners at the origin.
    double min_[3] = {0.0, 0.0, 0.0};
    double max_[3] = {0.0, 0.0, 0.0};
    bool empty_ = true;
};
