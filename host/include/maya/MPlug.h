#pragma once
// A plug: one attribute value of one node, possibly an element of a multi attribute.
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>

class MIntArray;
class MPlugArray;
class MDataHandle;
class MDGContext;
class MDistance;
class MAngle;
class MTime;
class MPxData;
class MDGModifier;

namespace host {
class Plug;
}

class MPlug {
public:
    MPlug();
    MPlug(const MObject& node, const MObject& attribute);
    MPlug(const MPlug& other) = default;
    MPlug& operator=(const MPlug& other) = default;
    ~MPlug() = default;

    bool isNull(MStatus* ReturnStatus = nullptr) const;
    MObject node(MStatus* ReturnStatus = nullptr) const;
    MObject attribute(MStatus* ReturnStatus = nullptr) const;
    MString name(MStatus* ReturnStatus = nullptr) const;
    MString partialName(bool includeNodeName = false, bool includeNonMandatoryIndices = false,
                        bool includeInstancedIndices = false, bool useAlias = false,
                        bool useFullAttributePath = false, bool useLongNames = false,
                        MStatus* ReturnStatus = nullptr) const;
    MString info(MStatus* ReturnStatus = nullptr) const;

    bool isArray(MStatus* ReturnStatus = nullptr) const;
    bool isElement(MStatus* ReturnStatus = nullptr) const;
    bool isCompound(MStatus* ReturnStatus = nullptr) const;
    bool isChild(MStatus* ReturnStatus = nullptr) const;
    bool isConnected(MStatus* ReturnStatus = nullptr) const;
    bool isSource(MStatus* ReturnStatus = nullptr) const;
    bool isDestination(MStatus* ReturnStatus = nullptr) const;

    unsigned int logicalIndex(MStatus* ReturnStatus = nullptr) const;
    unsigned int numElements(MStatus* ReturnStatus = nullptr) const;
    unsigned int evaluateNumElements(MStatus* ReturnStatus = nullptr);
    unsigned int numChildren(MStatus* ReturnStatus = nullptr) const;
    MPlug elementByLogicalIndex(unsigned int logicalIndex, MStatus* ReturnStatus = nullptr) const;
    MPlug elementByPhysicalIndex(unsigned int physicalIndex, MStatus* ReturnStatus = nullptr) const;
    MPlug operator[](unsigned int physicalIndex) const { return elementByPhysicalIndex(physicalIndex); }
    MPlug child(MObject& attr, MStatus* ReturnStatus = nullptr) const;
    MPlug child(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MPlug parent(MStatus* ReturnStatus = nullptr) const;
    MPlug array(MStatus* ReturnStatus = nullptr) const;
    unsigned int getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus = nullptr);

    bool connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus = nullptr) const;
    MPlug source(MStatus* ReturnStatus = nullptr) const;
    bool destinations(MPlugArray& theDestinations, MStatus* ReturnStatus = nullptr) const;

    bool asBool(MStatus* ReturnStatus = nullptr) const;
    int asInt(MStatus* ReturnStatus = nullptr) const;
    short asShort(MStatus* ReturnStatus = nullptr) const;
    float asFloat(MStatus* ReturnStatus = nullptr) const;
    double asDouble(MStatus* ReturnStatus = nullptr) const;
    MString asString(MStatus* ReturnStatus = nullptr) const;
    MObject asMObject(MStatus* ReturnStatus = nullptr) const;
    bool asBool(const MDGContext&, MStatus* ReturnStatus = nullptr) const;
    int asInt(const MDGContext&, MStatus* ReturnStatus = nullptr) const;
    double asDouble(const MDGContext&, MStatus* ReturnStatus = nullptr) const;
    MObject asMObject(const MDGContext&, MStatus* ReturnStatus = nullptr) const;

    MStatus getValue(MObject&) const;
    MStatus getValue(double&) const;
    MStatus getValue(float&) const;
    MStatus getValue(MInt64&) const;
    MStatus getValue(int&) const;
    MStatus getValue(short&) const;
    MStatus getValue(bool&) const;
    MStatus getValue(char&) const;
    MStatus getValue(MString&) const;
    MStatus getValue(MDistance&) const;
    MStatus getValue(MAngle&) const;
    MStatus getValue(MTime&) const;

    MStatus setBool(bool);
    MStatus setInt(int);
    MStatus setShort(short);
    MStatus setFloat(float);
    MStatus setDouble(double);
    MStatus setString(const MString&);
    MStatus setMObject(const MObject&);
    MStatus setValue(const MObject&);
    MStatus setValue(const MPxData*);
    MStatus setValue(const MDataHandle&);
    MStatus setValue(double);
    MStatus setValue(float);
    MStatus setValue(MInt64);
    MStatus setValue(int);
    MStatus setValue(short);
    MStatus setValue(bool);
    MStatus setValue(char);
    MStatus setValue(const MString&);
    MStatus setValue(const char*);
    MStatus setValue(const MDistance&);
    MStatus setValue(const MAngle&);
    MStatus setValue(const MTime&);

    bool operator==(const MPlug& other) const;
    bool operator!=(const MPlug& other) const { return !(*this == other); }

    // Host access, not part of Maya's interface: never used by plugin code.
    explicit MPlug(std::shared_ptr<const host::Plug> plug) : plug_(std::move(plug)) {}
    const std::shared_ptr<const host::Plug>& hostPlug() const { return plug_; }

private:
    std::shared_ptr<const host::Plug> plug_;
};
