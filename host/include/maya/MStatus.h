#pragma once
// Status codes returned by the interface, with Maya's error texts.
#include <maya/MTypes.h>

class MString;

namespace MS {
enum StatusCode {
    kSuccess = 0,
    kFailure,
    kInsufficientMemory,
    kInvalidParameter,
    kLicenseFailure,
    kUnknownParameter,
    kNotImplemented,
    kNotFound,
    kEndOfFile
};
}

class MStatus {
public:
    enum MStatusCode {
        kSuccess = MS::kSuccess,
        kFailure = MS::kFailure,
        kInsufficientMemory = MS::kInsufficientMemory,
        kInvalidParameter = MS::kInvalidParameter,
        kLicenseFailure = MS::kLicenseFailure,
        kUnknownParameter = MS::kUnknownParameter,
        kNotImplemented = MS::kNotImplemented,
        kNotFound = MS::kNotFound,
        kEndOfFile = MS::kEndOfFile
    };

    MStatus() : code_(MS::kSuccess) {}
    MStatus(MStatusCode code) : code_(static_cast<MS::StatusCode>(code)) {}
    MStatus(MS::StatusCode code) : code_(code) {}
    MStatus(const MStatus&) = default;
    MStatus& operator=(const MStatus&) = default;

    bool operator==(const MStatus& other) const { return code_ == other.code_; }
    bool operator==(MStatusCode code) const { return code_ == static_cast<MS::StatusCode>(code); }
    bool operator==(MS::StatusCode code) const { return code_ == code; }
    bool operator!=(const MStatus& other) const { return code_ != other.code_; }
    bool operator!=(MStatusCode code) const { return code_ != static_cast<MS::StatusCode>(code); }
    bool operator!=(MS::StatusCode code) const { return code_ != code; }
    operator bool() const { return code_ == MS::kSuccess; }

    MStatusCode statusCode() const { return static_cast<MStatusCode>(code_); }
    bool error() const { return code_ != MS::kSuccess; }
    void clear() { code_ = MS::kSuccess; }
    MString errorString() const;
    void perror(const char* text) const;
    void perror(const MString& text) const;
    void pAPIerror(const char* file, int line) const;

private:
    MS::StatusCode code_;
};

#define MCHECKERROR(STAT, MSG)                                                                               \
    if (MStatus::kSuccess != STAT) {                                                                         \
        STAT.perror(MSG);                                                                                    \
        return STAT;                                                                                         \
    }

#define CHECK_MSTATUS_AND_RETURN_IT(_status)                                                                 \
    {                                                                                                        \
        MStatus _maya_status = (_status);                                                                    \
        if (MStatus::kSuccess != _maya_status) {                                                             \
            _maya_status.pAPIerror(__FILE__, __LINE__);                                                      \
            return _maya_status;                                                                             \
        }                                                                                                    \
    }

#define CHECK_MSTATUS(_status)                                                                               \
    {                                                                                                        \
        MStatus _maya_status = (_status);                                                                    \
        if (MStatus::kSuccess != _maya_status) _maya_status.pAPIerror(__FILE__, __LINE__);                   \
    }
