#pragma once
// Reading command words as typed values, shared by MArgList and the argument parser.
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <string_view>

namespace host {

MString wordString(std::string_view word);

// on/off, true/false, yes/no (any case) and integers (non-zero is true).
bool parseBoolWord(std::string_view word, bool& value);
// Numbers as MString's conversions read them.
bool parseIntWord(std::string_view word, int& value);
bool parseUnsignedWord(std::string_view word, unsigned int& value);
// Finite numbers only.
bool parseDoubleWord(std::string_view word, double& value);

// A word such as -1, -0.5 or -.5e3: a negative number, not a flag.
bool isNegativeNumber(std::string_view word);

// Whether the word can be given where the type is expected. Selection items are checked when
// they are resolved.
bool wordFitsType(std::string_view word, MSyntax::MArgType type);

// "an integer", "a double", ... for messages.
const char* typeDescription(MSyntax::MArgType type);

} // namespace host
