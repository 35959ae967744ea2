#include <maya/MCommandResult.h>

#include "api/command/ResultConvert.h"

namespace {

template <class T> MStatus read(const host::CommandResult& result, T& out) {
    return host::readResult(result, out) ? MS::kSuccess : MS::kInvalidParameter;
}

} // namespace

MCommandResult::MCommandResult(MStatus* ReturnStatus) : box_(std::make_unique<host::CommandResultBox>()) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
}

MCommandResult::MCommandResult(const MCommandResult& other)
    : box_(std::make_unique<host::CommandResultBox>(*other.box_)) {}

MCommandResult& MCommandResult::operator=(const MCommandResult& other) {
    *box_ = *other.box_;
    return *this;
}

MCommandResult::~MCommandResult() = default;

MCommandResult::Type MCommandResult::resultType(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return host::resultTypeOf(box_->value);
}

MStatus MCommandResult::getResult(int& result) const {
    return read(box_->value, result);
}
MStatus MCommandResult::getResult(double& result) const {
    return read(box_->value, result);
}
MStatus MCommandResult::getResult(MString& result) const {
    return read(box_->value, result);
}
MStatus MCommandResult::getResult(MIntArray& result) const {
    return read(box_->value, result);
}
MStatus MCommandResult::getResult(MDoubleArray& result) const {
    return read(box_->value, result);
}
MStatus MCommandResult::getResult(MStringArray& result) const {
    return read(box_->value, result);
}
