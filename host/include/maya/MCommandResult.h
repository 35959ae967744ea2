#pragma once
// The result of a command run through MGlobal::executeCommand.
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <memory>

class MDoubleArray;
class MIntArray;
class MStringArray;

namespace host {
struct CommandResultBox;
}

class MCommandResult {
public:
    enum Type {
        kInvalid = 0,
        kInt,
        kInt64,
        kIntArray,
        kDouble,
        kDoubleArray,
        kString,
        kStringArray,
        kVector,
        kVectorArray,
        kMatrix,
        kMatrixArray
    };

    MCommandResult(MStatus* ReturnStatus = NULL);
    MCommandResult(const MCommandResult& other);
    MCommandResult& operator=(const MCommandResult& other);
    virtual ~MCommandResult();

    Type resultType(MStatus* ReturnStatus = NULL) const;
    // Numbers convert between int and double (doubles truncate toward zero); a single value also
    // reads as a one-element array.
    MStatus getResult(int& result) const;
    MStatus getResult(double& result) const;
    MStatus getResult(MString& result) const;
    MStatus getResult(MIntArray& result) const;
    MStatus getResult(MDoubleArray& result) const;
    MStatus getResult(MStringArray& result) const;

    // Host access, not part of Maya's interface: never used by plugin code.
    host::CommandResultBox& box() { return *box_; }

private:
    std::unique_ptr<host::CommandResultBox> box_;
};
