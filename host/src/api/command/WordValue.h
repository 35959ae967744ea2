#pragma once
// Reading command words as typed values, shared by MArgList and the argument parser.
#include <maya/MSyntax.h>

#include <string>

namespace host {

// on/off, true/false, yes/no (any case) and integers (non-zero is true).
bool parseBoolWord(const std::string& word, bool& value);
bool parseIntWord(const std::string& word, int& value);
bool parseUnsignedWord(const std::string& word, unsigned int& value);
// Finite numbers only.
bool parseDoubleWord(const std::string& word, double& value);

// A word such as -1, -0.5 or -.5e3: a negative number, not a flag.
bool isNegativeNumber(const std::string& word);

// Whether the word can be given where the type is expected. Selection items are checked when
// they are resolved.
bool wordFitsType(const std::string& word, MSyntax::MArgType type);

// "an integer", "a double", ... for messages.
const char* typeDescription(MSyntax::MArgType type);

} // namespace host
