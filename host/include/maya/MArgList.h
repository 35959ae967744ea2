#pragma once
// The words a command was called with, in order.
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <memory>
#include <string_view>

namespace host {
class WordList;
}

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
    // The words of a statement, shared with it rather than copied; the first change copies them.
    explicit MArgList(std::shared_ptr<host::WordList> words);
    // A quoted word is a string value even when it starts with '-'.
    MArgList& addWord(std::string_view word, bool quoted);
    bool isQuoted(unsigned int index) const;
    // The word at `index`, empty past the end.
    std::string_view word(unsigned int index) const;
    // Empties the list, keeping its storage when no other list shares it.
    void clearWords();
    // The words to read in place, shared; null for an empty list.
    std::shared_ptr<const host::WordList> sharedWords() const { return words_; }

private:
    // Copies shared by several lists are read only.
    std::shared_ptr<host::WordList> words_;
};
