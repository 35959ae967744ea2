#include "engine/MessageLog.h"

#include <algorithm>

namespace host {

void MessageLog::push(MessageKind kind, std::string text) {
    history_.push_back({kind, std::move(text)});
    // Copy: a listener may add or remove listeners while it runs.
    auto listeners = listeners_;
    for (auto& entry : listeners) entry.second(history_.back());
}

int MessageLog::addListener(Listener listener) {
    listeners_.emplace_back(nextId_, std::move(listener));
    return nextId_++;
}

void MessageLog::removeListener(int id) {
    listeners_.erase(std::remove_if(listeners_.begin(), listeners_.end(),
                                    [id](const auto& entry) { return entry.first == id; }),
                     listeners_.end());
}

} // namespace host
