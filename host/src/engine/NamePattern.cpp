#include "engine/NamePattern.h"

#include "engine/Scene.h"

#include <algorithm>

namespace host {

bool isPattern(const std::string& text) {
    const std::size_t end = std::min(text.find('.'), text.size());
    return text.find_first_of("*?") < end;
}

bool matchesPattern(std::string_view pattern, std::string_view text) {
    std::size_t p = 0, t = 0, star = std::string_view::npos, resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[t])) {
            ++p;
            ++t;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

std::vector<NodePtr> nodesMatching(const Scene& scene, const std::string& text) {
    const std::string pattern = text.size() > 1 && text[0] == ':' ? text.substr(1) : text;
    const bool byPath = pattern.find('|') != std::string::npos;
    std::vector<NodePtr> found;
    for (const NodePtr& node : scene.nodes()) {
        if (!node->alive()) continue;
        const std::string name = byPath ? scene.fullPath(*node) : node->name();
        if (matchesPattern(pattern, name) ||
            (byPath && matchesPattern(pattern, std::string_view(name).substr(1))))
            found.push_back(node);
    }
    return found;
}

} // namespace host
