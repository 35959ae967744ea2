#include "api/command/ResultStack.h"

#include <vector>

namespace host {

namespace {

std::vector<CommandResult*>& frames() {
    static std::vector<CommandResult*> stack;
    return stack;
}

} // namespace

ResultFrame::ResultFrame(CommandResult& slot) {
    frames().push_back(&slot);
}

ResultFrame::~ResultFrame() {
    frames().pop_back();
}

CommandResult& currentResult() {
    static CommandResult scratch;
    if (frames().empty()) {
        scratch = {};
        return scratch;
    }
    return *frames().back();
}

} // namespace host
