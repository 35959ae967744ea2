#pragma once
// A handle to a node, an attribute, a data object or a component.
#include <maya/MFn.h>
#include <maya/MTypes.h>

#include <memory>

namespace host {
struct ObjectRef;
}

class MObject {
public:
    MObject() = default;
    MObject(const MObject& other) = default;
    MObject& operator=(const MObject& other) = default;
    ~MObject() = default;

    bool hasFn(MFn::Type fs) const;
    bool isNull() const;
    MFn::Type apiType() const;
    const char* apiTypeStr() const;
    bool operator==(const MObject& other) const;
    bool operator!=(const MObject& other) const { return !(*this == other); }

    static MObject kNullObj;

    // Host access, not part of Maya's interface: never used by plugin code.
    explicit MObject(std::shared_ptr<host::ObjectRef> ref) : ref_(std::move(ref)) {}
    const std::shared_ptr<host::ObjectRef>& ref() const { return ref_; }

private:
    std::shared_ptr<host::ObjectRef> ref_;
};
