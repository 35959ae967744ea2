#include "Reporter.h"

#include "lang/ResultFormat.h"

#include <iostream>

namespace app {

Reporter::Reporter(host::MessageLog& log, bool json)
    : log_(log), json_(json),
      listener_(log.addListener([this](const host::Message& message) { onMessage(message); })) {}

Reporter::~Reporter() {
    log_.removeListener(listener_);
}

void Reporter::report(const host::Outcome& outcome) {
    const std::string line = json_ ? host::formatJson(outcome) : host::formatResult(outcome.result);
    // Flushed line by line so long runs show progress through pipes too.
    if (!line.empty()) std::cout << line << std::endl;
}

void Reporter::onMessage(const host::Message& message) {
    if (!json_) {
        std::cout << host::formatMessage(message) << std::endl;
    } else if (!statementsStarted_) {
        std::cerr << host::formatMessage(message) << std::endl;
    }
}

} // namespace app
