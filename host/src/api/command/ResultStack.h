#pragma once
// The result slot of the command that is running. Commands run commands (MGlobal::executeCommand
// inside doIt), so the slots form a stack: each call pushes its own for as long as it runs.
#include "engine/CommandResult.h"

namespace host {

class ResultFrame {
public:
    explicit ResultFrame(CommandResult& slot);
    ~ResultFrame();
    ResultFrame(const ResultFrame&) = delete;
    ResultFrame& operator=(const ResultFrame&) = delete;
};

// The innermost running command's result; outside any command a scratch slot nobody reads.
CommandResult& currentResult();

} // namespace host
