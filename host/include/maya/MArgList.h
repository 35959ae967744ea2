#pragma once
// The words a command was called with, in order.
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <vector>

class MArgList {
public:
    MArgList() = default;
    MArgList(const MArgList& other) = default;
    MArgList& operator=(const MArgList& other) = default;
    ~MArgList() = default;

    unsigned int length(MStatus* ReturnStatus = NULL) const;
    bool asBool(unsigned int index, MStatus* ReturnStatus = NULL) const;
    int asInt(unsigned int index, MStatus* ReturnStatus = NULL) const;
    double asDouble(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MString asString(unsigned int index, MStatus* ReturnStatus = NULL) const;
    // Index of the first occurrence of either flag, or kInvalidArgIndex.
    unsigned int flagIndex(const char* shortFlag, const char* longFlag = NULL) const;

    MArgList& addArg(bool arg);
    MArgList& addArg(int arg);
    MArgList& addArg(double arg);
    MArgList& addArg(const MString& arg);

    static const unsigned int kInvalidArgIndex;

    // Host access, not part of Maya's interface: never used by plugin code.
    // A quoted word is a string value even when it starts with '-'.
    MArgList& addWord(const MString& word, bool quoted);
    bool isQuoted(unsigned int index) const { return index < quoted_.size() && quoted_[index]; }

private:
    std::vector<MString> words_;
    std::vector<bool> quoted_;
};
