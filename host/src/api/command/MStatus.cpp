#include <maya/MStatus.h>

#include <maya/MString.h>

#include "engine/Scene.h"

#include <string>

namespace {

const char* codeName(MS::StatusCode code) {
    switch (code) {
    case MS::kSuccess:
        return "(kSuccess): Success";
    case MS::kFailure:
        return "(kFailure): Unexpected Internal Failure";
    case MS::kInsufficientMemory:
        return "(kInsufficientMemory): Insufficient Memory";
    case MS::kInvalidParameter:
        return "(kInvalidParameter): Invalid Parameter";
    case MS::kLicenseFailure:
        return "(kLicenseFailure): License Failure";
    case MS::kUnknownParameter:
        return "(kUnknownParameter): Unknown Parameter";
    case MS::kNotImplemented:
        return "(kNotImplemented): Not implemented";
    case MS::kNotFound:
        return "(kNotFound): Object not found";
    case MS::kEndOfFile:
        return "(kEndOfFile): End of File";
    }
    return "(kFailure): Unexpected Internal Failure";
}

} // namespace

MString MStatus::errorString() const {
    return MString(codeName(code_));
}

void MStatus::perror(const char* text) const {
    host::messageLog().error(std::string(text ? text : "") + ": " + codeName(code_));
}

void MStatus::perror(const MString& text) const {
    perror(text.asChar());
}

void MStatus::pAPIerror(const char* file, int line) const {
    host::messageLog().error("API error detected in " + std::string(file ? file : "") + " at line " +
                             std::to_string(line) + ": " + codeName(code_));
}
