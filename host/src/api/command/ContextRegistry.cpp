#include "api/command/ContextRegistry.h"

namespace host {

std::map<std::string, ContextEntry>& contexts() {
    static std::map<std::string, ContextEntry> registry;
    return registry;
}

MPxContext* findContext(const std::string& name) {
    auto it = contexts().find(name);
    return it == contexts().end() ? nullptr : it->second.context.get();
}

void removeContextsOf(const std::string& commandName) {
    auto& registry = contexts();
    for (auto it = registry.begin(); it != registry.end();) {
        it = it->second.commandName == commandName ? registry.erase(it) : std::next(it);
    }
}

} // namespace host
