#pragma once
// The context a value is read in: normal (the current time) or at a given time. The host itself
// evaluates at the current time only.
#include <maya/MStatus.h>
#include <maya/MTime.h>
#include <maya/MTypes.h>

class MDGContext {
public:
    MDGContext() = default;
    MDGContext(const MTime& when) : time_(when), normal_(false) {}
    MDGContext(const MDGContext& in) = default;
    MDGContext& operator=(const MDGContext& in) = default;
    virtual ~MDGContext() = default;

    bool isNormal(MStatus* ReturnStatus = NULL) const;
    MStatus getTime(MTime& outTime) const;

    static MDGContext fsNormal;

private:
    MTime time_;
    bool normal_ = true;
};
