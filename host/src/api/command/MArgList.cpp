#include <maya/MArgList.h>

#include "api/StatusOut.h"
#include "api/command/WordValue.h"
#include <charconv>
#include <cstring>

const unsigned int MArgList::kInvalidArgIndex = 0xFFFFFFFFu;

using host::setStatus;

unsigned int MArgList::length(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return static_cast<unsigned int>(words_.size());
}

bool MArgList::asBool(unsigned int index, MStatus* ReturnStatus) const {
    bool value = false;
    setStatus(ReturnStatus, index < words_.size() && host::parseBoolWord(words_[index].str(), value));
    return value;
}

int MArgList::asInt(unsigned int index, MStatus* ReturnStatus) const {
    int value = 0;
    setStatus(ReturnStatus, index < words_.size() && host::parseIntWord(words_[index].str(), value));
    return value;
}

double MArgList::asDouble(unsigned int index, MStatus* ReturnStatus) const {
    double value = 0;
    setStatus(ReturnStatus, index < words_.size() && host::parseDoubleWord(words_[index].str(), value));
    return value;
}

MString MArgList::asString(unsigned int index, MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, index < words_.size());
    return index < words_.size() ? words_[index] : MString();
}

unsigned int MArgList::flagIndex(const char* shortFlag, const char* longFlag) const {
    for (std::size_t i = 0; i < words_.size(); ++i) {
        if (quoted_[i]) continue;
        const char* word = words_[i].asChar();
        if ((shortFlag && std::strcmp(word, shortFlag) == 0) ||
            (longFlag && std::strcmp(word, longFlag) == 0)) {
            return static_cast<unsigned int>(i);
        }
    }
    return kInvalidArgIndex;
}

MArgList& MArgList::addArg(bool arg) {
    return addWord(arg ? "true" : "false", false);
}

MArgList& MArgList::addArg(int arg) {
    return addWord(MString(std::to_string(arg)), false);
}

// The shortest text that reads back as the same double.
MArgList& MArgList::addArg(double arg) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, arg).ptr;
    return addWord(MString(buffer, static_cast<int>(end - buffer)), false);
}

MArgList& MArgList::addArg(const MString& arg) {
    return addWord(arg, false);
}

MArgList& MArgList::addWord(const MString& word, bool quoted) {
    words_.push_back(word);
    quoted_.push_back(quoted);
    return *this;
}
