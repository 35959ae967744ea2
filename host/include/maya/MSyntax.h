#pragma once
// The syntax of a command: its flags with their argument types, and what objects it takes.
// Copies share one description, so a context command's appendSyntax can add flags to the syntax
// it got from syntax().
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <memory>

namespace host {
class SyntaxData;
}

class MSyntax {
public:
    enum MArgType {
        kInvalidArgType,
        kNoArg,
        kBoolean,
        kLong,
        kDouble,
        kString,
        kUnsigned,
        kDistance,
        kAngle,
        kTime,
        kSelectionItem,
        kLastArgType
    };

    enum MObjectFormat { kInvalidObjectFormat, kNone, kStringObjects, kSelectionList, kLastObjectFormat };

    MSyntax();
    MSyntax(const MSyntax& other);
    MSyntax& operator=(const MSyntax& rhs);
    ~MSyntax();

    MStatus addFlag(const char* shortName, const char* longName, MArgType argType1 = kNoArg,
                    MArgType argType2 = kNoArg, MArgType argType3 = kNoArg, MArgType argType4 = kNoArg,
                    MArgType argType5 = kNoArg, MArgType argType6 = kNoArg);
    MStatus makeFlagMultiUse(const char* flag);
    void useSelectionAsDefault(bool useSelectionList = false);
    MStatus setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects = 0);
    MStatus setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects,
                          unsigned int maximumObjects);
    MStatus setMinObjects(unsigned int minimumObjectCount);
    unsigned int minObjects() const;
    MStatus setMaxObjects(unsigned int maximumObjectCount);
    unsigned int maxObjects() const;
    void enableQuery(bool supportsQuery = true);
    void enableEdit(bool supportsEdit = true);
    bool canQuery() const;
    bool canEdit() const;
    void clear();

    // Host access, not part of Maya's interface: never used by plugin code.
    const host::SyntaxData& data() const { return *data_; }

private:
    std::shared_ptr<host::SyntaxData> data_;
};
