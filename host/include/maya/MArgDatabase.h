#pragma once
// MArgParser that also reads arguments and objects as selection lists.
#include <maya/MArgParser.h>

class MSelectionList;

class MArgDatabase : public MArgParser {
public:
    MArgDatabase();
    MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = NULL);
    MArgDatabase(const MArgDatabase& rhs);
    MArgDatabase& operator=(const MArgDatabase& rhs);
    ~MArgDatabase() override;

    MStatus getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MDistance& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MAngle& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MTime& result) const;

    MStatus getObjects(MSelectionList& result) const;
    MStatus getObjects(MStringArray& result) const;
};
