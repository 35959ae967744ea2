// The array data function sets: point, int and double arrays.
#include <maya/MFnDoubleArrayData.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnPointArrayData.h>

#include "api/ObjectRef.h"
#include "api/StatusOut.h"

using host::setStatus;

namespace {

MPoint toPoint(const host::Point4& p) {
    return MPoint(p.x, p.y, p.z, p.w);
}
host::Point4 fromPoint(const MPoint& p) {
    return {p.x, p.y, p.z, p.w};
}

} // namespace

// Point arrays.
MFnPointArrayData::MFnPointArrayData(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnPointArrayData::MFnPointArrayData(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnPointArrayData::accepts(const MObject& object) const {
    return host::dataOf<host::PointArrayData>(object) != nullptr;
}
unsigned int MFnPointArrayData::length(MStatus* ReturnStatus) const {
    auto d = host::dataOf<host::PointArrayData>(object_);
    setStatus(ReturnStatus, d);
    return d ? static_cast<unsigned int>(d->points.size()) : 0u;
}
MStatus MFnPointArrayData::copyTo(MPointArray& out) const {
    auto d = host::dataOf<host::PointArrayData>(object_);
    if (!d) return MS::kFailure;
    auto& v = out.vec();
    v.resize(d->points.size());
    for (std::size_t i = 0; i < v.size(); ++i) v[i] = toPoint(d->points[i]);
    return MS::kSuccess;
}
MStatus MFnPointArrayData::set(const MPointArray& newArray) {
    auto d = host::dataOf<host::PointArrayData>(object_);
    if (!d) return MS::kFailure;
    const auto& v = newArray.vec();
    d->points.resize(v.size());
    for (std::size_t i = 0; i < v.size(); ++i) d->points[i] = fromPoint(v[i]);
    return MS::kSuccess;
}
MPointArray MFnPointArrayData::array(MStatus* ReturnStatus) {
    MPointArray out;
    setStatus(ReturnStatus, copyTo(out) == MS::kSuccess);
    return out;
}
MObject MFnPointArrayData::create(MStatus* ReturnStatus) {
    return create(MPointArray(), ReturnStatus);
}
MObject MFnPointArrayData::create(const MPointArray& in, MStatus* ReturnStatus) {
    object_ = host::ObjectRef::ofData(std::make_shared<host::PointArrayData>());
    MStatus s = set(in);
    if (ReturnStatus) *ReturnStatus = s;
    return object_;
}

// Int arrays.
MFnIntArrayData::MFnIntArrayData(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnIntArrayData::MFnIntArrayData(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnIntArrayData::accepts(const MObject& object) const {
    return host::dataOf<host::IntArrayData>(object) != nullptr;
}
unsigned int MFnIntArrayData::length(MStatus* ReturnStatus) const {
    auto d = host::dataOf<host::IntArrayData>(object_);
    setStatus(ReturnStatus, d);
    return d ? static_cast<unsigned int>(d->values.size()) : 0u;
}
MStatus MFnIntArrayData::copyTo(MIntArray& out) const {
    auto d = host::dataOf<host::IntArrayData>(object_);
    if (!d) return MS::kFailure;
    out.vec() = d->values;
    return MS::kSuccess;
}
MStatus MFnIntArrayData::set(const MIntArray& newArray) {
    auto d = host::dataOf<host::IntArrayData>(object_);
    if (!d) return MS::kFailure;
    d->values = newArray.vec();
    return MS::kSuccess;
}
MIntArray MFnIntArrayData::array(MStatus* ReturnStatus) {
    MIntArray out;
    setStatus(ReturnStatus, copyTo(out) == MS::kSuccess);
    return out;
}
MObject MFnIntArrayData::create(MStatus* ReturnStatus) {
    return create(MIntArray(), ReturnStatus);
}
MObject MFnIntArrayData::create(const MIntArray& in, MStatus* ReturnStatus) {
    object_ = host::ObjectRef::ofData(std::make_shared<host::IntArrayData>());
    MStatus s = set(in);
    if (ReturnStatus) *ReturnStatus = s;
    return object_;
}

// Double arrays.
MFnDoubleArrayData::MFnDoubleArrayData(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnDoubleArrayData::MFnDoubleArrayData(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnDoubleArrayData::accepts(const MObject& object) const {
    return host::dataOf<host::DoubleArrayData>(object) != nullptr;
}
unsigned int MFnDoubleArrayData::length(MStatus* ReturnStatus) const {
    auto d = host::dataOf<host::DoubleArrayData>(object_);
    setStatus(ReturnStatus, d);
    return d ? static_cast<unsigned int>(d->values.size()) : 0u;
}
MStatus MFnDoubleArrayData::copyTo(MDoubleArray& out) const {
    auto d = host::dataOf<host::DoubleArrayData>(object_);
    if (!d) return MS::kFailure;
    out.vec() = d->values;
    return MS::kSuccess;
}
MStatus MFnDoubleArrayData::set(const MDoubleArray& newArray) {
    auto d = host::dataOf<host::DoubleArrayData>(object_);
    if (!d) return MS::kFailure;
    d->values = newArray.vec();
    return MS::kSuccess;
}
MDoubleArray MFnDoubleArrayData::array(MStatus* ReturnStatus) {
    MDoubleArray out;
    setStatus(ReturnStatus, copyTo(out) == MS::kSuccess);
    return out;
}
MObject MFnDoubleArrayData::create(MStatus* ReturnStatus) {
    return create(MDoubleArray(), ReturnStatus);
}
MObject MFnDoubleArrayData::create(const MDoubleArray& in, MStatus* ReturnStatus) {
    object_ = host::ObjectRef::ofData(std::make_shared<host::DoubleArrayData>());
    MStatus s = set(in);
    if (ReturnStatus) *ReturnStatus = s;
    return object_;
}
