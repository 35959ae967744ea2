#pragma once
// How results and messages are shown: as the script editor shows them, or as one JSON object per
// statement for programs that read the output.
#include "lang/Interpreter.h"

#include <string>

namespace host {

// A number as the script editor prints it: up to 15 significant digits, no trailing zeros.
std::string formatNumber(double value);

// "// Result: 0 1 5 //"; empty for a command that returns nothing.
std::string formatResult(const CommandResult& result);

// "// Error: … //", "// Warning: … //", or an information line as it is.
std::string formatMessage(const Message& message);

// {"command": …, "ok": …, "result": …, "messages": [{"kind": …, "text": …}]} on one line.
std::string formatJson(const Outcome& outcome);

} // namespace host
