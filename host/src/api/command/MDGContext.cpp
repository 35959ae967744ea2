#include <maya/MDGContext.h>

MDGContext MDGContext::fsNormal;

bool MDGContext::isNormal(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return normal_;
}

// A normal context has no time of its own.
MStatus MDGContext::getTime(MTime& outTime) const {
    if (normal_) return MS::kFailure;
    outTime = time_;
    return MS::kSuccess;
}
