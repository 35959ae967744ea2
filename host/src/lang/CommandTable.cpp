#include "lang/CommandTable.h"

#include <algorithm>

namespace host {

bool CommandTable::add(const std::string& name, CommandHandler handler, ArgForm form) {
    return entries_.emplace(name, CommandEntry{std::move(handler), form}).second;
}

bool CommandTable::remove(const std::string& name) {
    return entries_.erase(name) > 0;
}

const CommandHandler* CommandTable::find(const std::string& name) const {
    const CommandEntry* found = entry(name);
    return found ? &found->handler : nullptr;
}

const CommandEntry* CommandTable::entry(const std::string& name) const {
    auto it = entries_.find(name);
    return it == entries_.end() ? nullptr : &it->second;
}

std::vector<std::string> CommandTable::names() const {
    std::vector<std::string> result;
    result.reserve(entries_.size());
    for (const auto& entry : entries_) result.push_back(entry.first);
    std::sort(result.begin(), result.end());
    return result;
}

} // namespace host
