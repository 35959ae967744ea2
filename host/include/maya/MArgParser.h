#pragma once
// A command's argument list parsed against its syntax: flags with their arguments, the objects,
// query and edit mode.
#include <maya/MArgList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>
#include <maya/MTypes.h>

#include <memory>

class MAngle;
class MDistance;
class MStringArray;
class MTime;

namespace host {
struct ParsedArgs;
}

class MArgParser {
public:
    MArgParser();
    MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = NULL);
    MArgParser(const MArgParser& other);
    MArgParser& operator=(const MArgParser& other);
    virtual ~MArgParser();

    bool isFlagSet(const char* flag, MStatus* ReturnStatus = NULL) const;
    bool isEdit(MStatus* ReturnStatus = NULL) const;
    bool isQuery(MStatus* ReturnStatus = NULL) const;
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char* flag) const;

    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MDistance& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MAngle& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MTime& result) const;
    // The arguments of the i-th use of a (multi-use) flag.
    MStatus getFlagArgumentList(const char* flag, unsigned int i, MArgList& args) const;

    MStatus getObjects(MStringArray& result) const;

    // Host access, not part of Maya's interface: never used by plugin code. Null when the parse
    // failed or nothing was parsed.
    const host::ParsedArgs* parsed() const { return parsed_.get(); }

private:
    std::shared_ptr<const host::ParsedArgs> parsed_;
};
