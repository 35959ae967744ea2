#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MTime.h>

#include "api/ObjectRef.h"
#include "engine/Evaluation.h"
#include "engine/Scene.h"

#include "api/StatusOut.h"
#include <cmath>

using host::Plug;
using host::setStatus;

namespace {

const Plug* valid(const std::shared_ptr<const Plug>& plug) {
    return plug && !plug->isNull() && plug->node()->alive() ? plug.get() : nullptr;
}

MPlug wrap(Plug plug) {
    if (plug.isNull()) return MPlug();
    return MPlug(std::make_shared<const Plug>(std::move(plug)));
}

bool readNumber(const std::shared_ptr<const Plug>& plug, double& out) {
    const Plug* p = valid(plug);
    if (!p || !p->attr()->isNumeric() || p->isArray()) return false;
    out = host::valueAsDouble(host::evaluatedValue(*p));
    return true;
}

MStatus writeValue(const std::shared_ptr<const Plug>& plug, host::Value value) {
    const Plug* p = valid(plug);
    if (!p) return MS::kFailure;
    return p->setValue(std::move(value)) ? MS::kSuccess : MS::kFailure;
}

MStatus writeNumber(const std::shared_ptr<const Plug>& plug, double v) {
    const Plug* p = valid(plug);
    if (!p || !p->attr()->isNumeric()) return MS::kFailure;
    switch (p->attr()->type) {
    case host::AttrType::Bool:
        return writeValue(plug, v != 0.0);
    case host::AttrType::Int:
    case host::AttrType::Enum:
        if (!std::isfinite(v)) return MS::kFailure;
        return writeValue(
            plug, static_cast<int>(std::lround(std::fmax(std::fmin(v, 2147483647.0), -2147483648.0))));
    case host::AttrType::Float:
        return writeValue(plug, static_cast<double>(static_cast<float>(v)));
    default:
        return writeValue(plug, v);
    }
}

} // namespace

MPlug::MPlug() = default;

MPlug::MPlug(const MObject& node, const MObject& attribute) {
    host::NodePtr n = host::nodeOf(node);
    const host::AttrSpec* attr = host::attrOf(attribute);
    if (n && attr) {
        Plug plug(n, attr);
        // Only attributes with no multi above them can be addressed without indices.
        if (!plug.isNull() && (plug.depth() == 0 || (plug.depth() == 1 && attr->multi)))
            plug_ = std::make_shared<const Plug>(plug);
    }
}

bool MPlug::isNull(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return !valid(plug_);
}

MObject MPlug::node(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p ? host::ObjectRef::ofNode(p->node()) : MObject();
}

MObject MPlug::attribute(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p ? host::ObjectRef::ofAttr(p->attr()) : MObject();
}

MString MPlug::name(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p ? MString(host::scene().plugName(*p, true)) : MString();
}

MString MPlug::partialName(bool includeNodeName, bool, bool, bool, bool, bool useLongNames,
                           MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    if (!p) return MString();
    std::string text = p->attrPath(useLongNames);
    if (includeNodeName) text = host::scene().partialPath(*p->node()) + "." + text;
    return MString(text);
}

MString MPlug::info(MStatus* ReturnStatus) const {
    return name(ReturnStatus);
}

bool MPlug::isArray(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && p->isArray();
}
bool MPlug::isElement(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && p->isElement();
}
bool MPlug::isCompound(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && p->isCompound();
}
bool MPlug::isChild(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && p->attr()->parent != nullptr;
}

bool MPlug::isConnected(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && (!host::scene().sourceOf(*p).isNull() || !host::scene().destinationsOf(*p).empty());
}
bool MPlug::isSource(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && !host::scene().destinationsOf(*p).empty();
}
bool MPlug::isDestination(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && !host::scene().sourceOf(*p).isNull();
}

unsigned int MPlug::logicalIndex(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    const bool ok = p && p->isElement();
    setStatus(ReturnStatus, ok);
    return ok ? p->logicalIndex() : static_cast<unsigned int>(-1);
}

unsigned int MPlug::numElements(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    const bool ok = p && p->isArray();
    setStatus(ReturnStatus, ok);
    return ok ? static_cast<unsigned int>(p->numElements()) : 0u;
}

unsigned int MPlug::evaluateNumElements(MStatus* ReturnStatus) {
    return numElements(ReturnStatus);
}

unsigned int MPlug::numChildren(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p && !p->isArray() ? static_cast<unsigned int>(p->attr()->children.size()) : 0u;
}

MPlug MPlug::elementByLogicalIndex(unsigned int logicalIndex, MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    MPlug result = p ? wrap(p->element(logicalIndex)) : MPlug();
    setStatus(ReturnStatus, !result.isNull());
    return result;
}

MPlug MPlug::elementByPhysicalIndex(unsigned int physicalIndex, MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    if (!p || !p->isArray()) {
        setStatus(ReturnStatus, false);
        return MPlug();
    }
    const host::Slot* slot = p->slot();
    if (!slot || !slot->elements || physicalIndex >= slot->elements->size()) {
        setStatus(ReturnStatus, false);
        return MPlug();
    }
    setStatus(ReturnStatus, true);
    return wrap(p->element(slot->elements->keyAt(physicalIndex)));
}

MPlug MPlug::child(MObject& attr, MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    MPlug result = p ? wrap(p->child(host::attrOf(attr))) : MPlug();
    setStatus(ReturnStatus, !result.isNull());
    return result;
}

MPlug MPlug::child(unsigned int index, MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    MPlug result = p ? wrap(p->child(static_cast<std::size_t>(index))) : MPlug();
    setStatus(ReturnStatus, !result.isNull());
    return result;
}

MPlug MPlug::parent(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    MPlug result = p ? wrap(p->parent()) : MPlug();
    setStatus(ReturnStatus, !result.isNull());
    return result;
}

MPlug MPlug::array(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    MPlug result = p ? wrap(p->array()) : MPlug();
    setStatus(ReturnStatus, !result.isNull());
    return result;
}

unsigned int MPlug::getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus) {
    indices.clear();
    const Plug* p = valid(plug_);
    if (!p || !p->isArray()) {
        setStatus(ReturnStatus, false);
        return 0;
    }
    const auto keys = p->existingIndices();
    indices.vec().assign(keys.begin(), keys.end());
    setStatus(ReturnStatus, true);
    return indices.length();
}

bool MPlug::connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus) const {
    array.clear();
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    if (!p) return false;
    if (asDst) {
        Plug source = host::scene().sourceOf(*p);
        if (!source.isNull()) array.append(wrap(source));
    }
    if (asSrc)
        for (Plug& d : host::scene().destinationsOf(*p)) array.append(wrap(d));
    return array.length() > 0;
}

MPlug MPlug::source(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    setStatus(ReturnStatus, p);
    return p ? wrap(host::scene().sourceOf(*p)) : MPlug();
}

bool MPlug::destinations(MPlugArray& theDestinations, MStatus* ReturnStatus) const {
    return connectedTo(theDestinations, false, true, ReturnStatus);
}

bool MPlug::asBool(MStatus* ReturnStatus) const {
    double v = 0;
    setStatus(ReturnStatus, readNumber(plug_, v));
    return v != 0.0;
}
int MPlug::asInt(MStatus* ReturnStatus) const {
    double v = 0;
    setStatus(ReturnStatus, readNumber(plug_, v));
    return std::isfinite(v) ? static_cast<int>(std::fmax(std::fmin(v, 2147483647.0), -2147483648.0)) : 0;
}
short MPlug::asShort(MStatus* ReturnStatus) const {
    return static_cast<short>(asInt(ReturnStatus));
}
float MPlug::asFloat(MStatus* ReturnStatus) const {
    return static_cast<float>(asDouble(ReturnStatus));
}
double MPlug::asDouble(MStatus* ReturnStatus) const {
    double v = 0;
    setStatus(ReturnStatus, readNumber(plug_, v));
    return v;
}
MString MPlug::asString(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    if (!p) {
        setStatus(ReturnStatus, false);
        return MString();
    }
    host::Value v = host::evaluatedValue(*p);
    if (auto s = std::get_if<std::string>(&v)) {
        setStatus(ReturnStatus, true);
        return MString(*s);
    }
    setStatus(ReturnStatus, false);
    return MString();
}
MObject MPlug::asMObject(MStatus* ReturnStatus) const {
    const Plug* p = valid(plug_);
    if (!p) {
        setStatus(ReturnStatus, false);
        return MObject();
    }
    host::Value v = host::evaluatedValue(*p);
    auto data = std::get_if<host::DataPtr>(&v);
    if (!data || !*data) {
        setStatus(ReturnStatus, false);
        return MObject();
    }
    setStatus(ReturnStatus, true);
    return host::ObjectRef::ofData((*data)->clone());
}
bool MPlug::asBool(const MDGContext&, MStatus* ReturnStatus) const {
    return asBool(ReturnStatus);
}
int MPlug::asInt(const MDGContext&, MStatus* ReturnStatus) const {
    return asInt(ReturnStatus);
}
double MPlug::asDouble(const MDGContext&, MStatus* ReturnStatus) const {
    return asDouble(ReturnStatus);
}
MObject MPlug::asMObject(const MDGContext&, MStatus* ReturnStatus) const {
    return asMObject(ReturnStatus);
}

MStatus MPlug::getValue(MObject& v) const {
    MStatus s;
    v = asMObject(&s);
    return s;
}
MStatus MPlug::getValue(double& v) const {
    MStatus s;
    v = asDouble(&s);
    return s;
}
MStatus MPlug::getValue(float& v) const {
    MStatus s;
    v = asFloat(&s);
    return s;
}
MStatus MPlug::getValue(MInt64& v) const {
    MStatus s;
    v = asInt(&s);
    return s;
}
MStatus MPlug::getValue(int& v) const {
    MStatus s;
    v = asInt(&s);
    return s;
}
MStatus MPlug::getValue(short& v) const {
    MStatus s;
    v = asShort(&s);
    return s;
}
MStatus MPlug::getValue(bool& v) const {
    MStatus s;
    v = asBool(&s);
    return s;
}
MStatus MPlug::getValue(char& v) const {
    MStatus s;
    v = static_cast<char>(asInt(&s));
    return s;
}
MStatus MPlug::getValue(MString& v) const {
    MStatus s;
    v = asString(&s);
    return s;
}
MStatus MPlug::getValue(MDistance& v) const {
    MStatus s;
    v = MDistance(asDouble(&s));
    return s;
}
MStatus MPlug::getValue(MAngle& v) const {
    MStatus s;
    v = MAngle(asDouble(&s));
    return s;
}
MStatus MPlug::getValue(MTime& v) const {
    MStatus s;
    v = MTime(asDouble(&s));
    return s;
}

MStatus MPlug::setBool(bool v) {
    return writeNumber(plug_, v ? 1.0 : 0.0);
}
MStatus MPlug::setInt(int v) {
    return writeNumber(plug_, v);
}
MStatus MPlug::setShort(short v) {
    return writeNumber(plug_, v);
}
MStatus MPlug::setFloat(float v) {
    return writeNumber(plug_, v);
}
MStatus MPlug::setDouble(double v) {
    return writeNumber(plug_, v);
}
MStatus MPlug::setString(const MString& v) {
    const Plug* p = valid(plug_);
    if (!p || p->attr()->type != host::AttrType::String) return MS::kFailure;
    return writeValue(plug_, v.str());
}
MStatus MPlug::setMObject(const MObject& v) {
    return setValue(v);
}

MStatus MPlug::setValue(const MObject& v) {
    const Plug* p = valid(plug_);
    if (!p) return MS::kFailure;
    auto data = host::dataOf(v);
    if (p->isArray()) {
        // An array of numbers replaces every element of a numeric multi; no data clears it.
        if (!p->attr()->isNumeric() && !p->attr()->isCompound() && data) return MS::kFailure;
        p->clearElements();
        if (auto d = host::dataOf<host::DoubleArrayData>(v)) {
            if (!p->attr()->isNumeric()) return MS::kFailure;
            for (std::size_t i = 0; i < d->values.size(); ++i)
                p->element(static_cast<uint32_t>(i)).setValue(d->values[i]);
        } else if (auto ints = host::dataOf<host::IntArrayData>(v)) {
            if (!p->attr()->isNumeric()) return MS::kFailure;
            for (std::size_t i = 0; i < ints->values.size(); ++i)
                p->element(static_cast<uint32_t>(i)).setValue(static_cast<double>(ints->values[i]));
        }
        host::scene().touch();
        return MS::kSuccess;
    }
    const auto type = p->attr()->type;
    if (type != host::AttrType::Data && type != host::AttrType::Generic && type != host::AttrType::Matrix)
        return MS::kFailure;
    if (!data) return writeValue(plug_, std::monostate{});
    if (type == host::AttrType::Data && data->kind != p->attr()->dataKind) return MS::kFailure;
    return writeValue(plug_, host::DataPtr(data->clone()));
}
MStatus MPlug::setValue(const MPxData*) {
    return MS::kNotImplemented;
}
MStatus MPlug::setValue(const MDataHandle&) {
    return MS::kNotImplemented;
}
MStatus MPlug::setValue(double v) {
    return setDouble(v);
}
MStatus MPlug::setValue(float v) {
    return setFloat(v);
}
MStatus MPlug::setValue(MInt64 v) {
    return writeNumber(plug_, static_cast<double>(v));
}
MStatus MPlug::setValue(int v) {
    return setInt(v);
}
MStatus MPlug::setValue(short v) {
    return setShort(v);
}
MStatus MPlug::setValue(bool v) {
    return setBool(v);
}
MStatus MPlug::setValue(char v) {
    return writeNumber(plug_, v);
}
MStatus MPlug::setValue(const MString& v) {
    return setString(v);
}
MStatus MPlug::setValue(const char* v) {
    return setString(MString(v));
}
MStatus MPlug::setValue(const MDistance& v) {
    return setDouble(v.value());
}
MStatus MPlug::setValue(const MAngle& v) {
    return setDouble(v.value());
}
MStatus MPlug::setValue(const MTime& v) {
    return setDouble(v.value());
}

bool MPlug::operator==(const MPlug& other) const {
    const Plug* a = valid(plug_);
    const Plug* b = valid(other.plug_);
    if (!a || !b) return !a && !b;
    return *a == *b;
}
