#pragma once
// A universally unique identifier, written as 8-4-4-4-12 hexadecimal digits.
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <array>

class MUuid {
public:
    MUuid() = default;
    MUuid(const MUuid& other) = default;
    MUuid& operator=(const MUuid& other) = default;
    MUuid(const MString& value, MStatus* ReturnStatus = NULL);
    ~MUuid() = default;

    MStatus copy(const MString& value);
    void generate();
    MString asString() const;
    // False for the all-zero identifier a default MUuid holds.
    bool valid() const;
    bool operator==(const MUuid& rhs) const { return bytes_ == rhs.bytes_; }
    bool operator!=(const MUuid& rhs) const { return bytes_ != rhs.bytes_; }

private:
    std::array<unsigned char, 16> bytes_{};
};
