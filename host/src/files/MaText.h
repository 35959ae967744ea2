#pragma once
// Text as Maya ASCII files spell it: numbers in the shortest form that reads back to the same value,
// quoted strings with the escapes the tokenizer reads, and long value lists wrapped over
// continuation lines the way Maya wraps them.
#include "lang/Quoting.h"

#include <string>
#include <string_view>

namespace host {

void appendDouble(std::string& out, double value);
// The shortest text that reads back (as a double, then rounded to float) to the same float.
void appendFloat(std::string& out, float value);
void appendInt(std::string& out, long long value);

// Appends the values of one statement, breaking the line once it grows long. Continuation lines
// start with two tabs, as Maya writes them.
class ValueList {
public:
    explicit ValueList(std::string& out);
    // Starts the next value: a blank, or a line break when the line is full.
    std::string& next();
    // Starts a new line for a record (a face of a polyFaces payload).
    std::string& newLine();

private:
    static constexpr std::size_t kLineWidth = 100;
    std::string& out_;
    std::size_t lineStart_;
};

} // namespace host
