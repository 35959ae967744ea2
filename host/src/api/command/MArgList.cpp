#include <maya/MArgList.h>

#include "api/StatusOut.h"
#include "api/command/WordValue.h"
#include "lang/WordList.h"

#include <charconv>
#include <cstring>

const unsigned int MArgList::kInvalidArgIndex = 0xFFFFFFFFu;

using host::setStatus;

MArgList::MArgList(std::shared_ptr<host::WordList> words) : words_(std::move(words)) {}

unsigned int MArgList::length(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return words_ ? static_cast<unsigned int>(words_->size()) : 0u;
}

bool MArgList::asBool(unsigned int index, MStatus* ReturnStatus) const {
    bool value = false;
    setStatus(ReturnStatus, index < length() && host::parseBoolWord(word(index), value));
    return value;
}

int MArgList::asInt(unsigned int index, MStatus* ReturnStatus) const {
    int value = 0;
    setStatus(ReturnStatus, index < length() && host::parseIntWord(word(index), value));
    return value;
}

double MArgList::asDouble(unsigned int index, MStatus* ReturnStatus) const {
    double value = 0;
    setStatus(ReturnStatus, index < length() && host::parseDoubleWord(word(index), value));
    return value;
}

MString MArgList::asString(unsigned int index, MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, index < length());
    return host::wordString(word(index));
}

unsigned int MArgList::flagIndex(const char* shortFlag, const char* longFlag) const {
    for (unsigned int i = 0; i < length(); ++i) {
        if (words_->quoted(i)) continue;
        const char* word = words_->cString(i);
        if ((shortFlag && std::strcmp(word, shortFlag) == 0) ||
            (longFlag && std::strcmp(word, longFlag) == 0))
            return i;
    }
    return kInvalidArgIndex;
}

MArgList& MArgList::addArg(bool arg) {
    return addWord(arg ? "true" : "false", false);
}

MArgList& MArgList::addArg(int arg) {
    char buffer[16];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, arg).ptr;
    return addWord(std::string_view(buffer, static_cast<std::size_t>(end - buffer)), false);
}

// The shortest text that reads back as the same double.
MArgList& MArgList::addArg(double arg) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, arg).ptr;
    return addWord(std::string_view(buffer, static_cast<std::size_t>(end - buffer)), false);
}

MArgList& MArgList::addArg(const MString& arg) {
    return addWord(arg.str(), false);
}

MArgList& MArgList::addWord(std::string_view word, bool quoted) {
    if (!words_)
        words_ = std::make_shared<host::WordList>();
    else if (words_.use_count() > 1)
        words_ = std::make_shared<host::WordList>(*words_);
    words_->add(word, quoted);
    return *this;
}

bool MArgList::isQuoted(unsigned int index) const {
    return index < length() && words_->quoted(index);
}

std::string_view MArgList::word(unsigned int index) const {
    return index < length() ? (*words_)[index] : std::string_view();
}

void MArgList::clearWords() {
    if (words_ && words_.use_count() == 1)
        words_->clear();
    else
        words_.reset();
}
