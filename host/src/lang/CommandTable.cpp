#include "lang/CommandTable.h"

#include <algorithm>

namespace host {

bool CommandTable::add(const std::string& name, CommandHandler handler) {
    return handlers_.emplace(name, std::move(handler)).second;
}

bool CommandTable::remove(const std::string& name) {
    return handlers_.erase(name) > 0;
}

const CommandHandler* CommandTable::find(const std::string& name) const {
    auto it = handlers_.find(name);
    return it == handlers_.end() ? nullptr : &it->second;
}

std::vector<std::string> CommandTable::names() const {
    std::vector<std::string> result;
    result.reserve(handlers_.size());
    for (const auto& entry : handlers_) result.push_back(entry.first);
    std::sort(result.begin(), result.end());
    return result;
}

} // namespace host
