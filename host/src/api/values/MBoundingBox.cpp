#include <maya/MBoundingBox.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include <algorithm>

MBoundingBox::MBoundingBox(const MPoint& corner1, const MPoint& corner2) {
    expand(corner1);
    expand(corner2);
}

void MBoundingBox::clear() {
    *this = MBoundingBox();
}

// The box around the eight transformed corners.
void MBoundingBox::transformUsing(const MMatrix& matrix) {
    if (empty_) return;
    MBoundingBox result;
    for (int corner = 0; corner < 8; ++corner) {
        const MPoint p((corner & 1 ? max_ : min_)[0], (corner & 2 ? max_ : min_)[1],
                       (corner & 4 ? max_ : min_)[2]);
        result.expand(p * matrix);
    }
    *this = result;
}

void MBoundingBox::expand(const MPoint& point) {
    MPoint p(point);
    p.cartesianize();
    for (unsigned int i = 0; i < 3; ++i) {
        min_[i] = empty_ ? p[i] : std::min(min_[i], p[i]);
        max_[i] = empty_ ? p[i] : std::max(max_[i], p[i]);
    }
    empty_ = false;
}

void MBoundingBox::expand(const MBoundingBox& box) {
    if (box.empty_) return;
    expand(box.min());
    expand(box.max());
}

bool MBoundingBox::contains(const MPoint& point) const {
    if (empty_) return false;
    MPoint p(point);
    p.cartesianize();
    for (unsigned int i = 0; i < 3; ++i)
        if (!(p[i] >= min_[i] && p[i] <= max_[i])) return false;
    return true;
}

bool MBoundingBox::intersects(const MBoundingBox& box, double tol) const {
    if (empty_ || box.empty_) return false;
    for (int i = 0; i < 3; ++i)
        if (min_[i] > box.max_[i] + tol || box.min_[i] > max_[i] + tol) return false;
    return true;
}

MPoint MBoundingBox::center() const {
    return MPoint(0.5 * (min_[0] + max_[0]), 0.5 * (min_[1] + max_[1]), 0.5 * (min_[2] + max_[2]));
}

MPoint MBoundingBox::min() const {
    return MPoint(min_[0], min_[1], min_[2]);
}
MPoint MBoundingBox::max() const {
    return MPoint(max_[0], max_[1], max_[2]);
}
