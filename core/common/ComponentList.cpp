#include "core/common/ComponentList.h"

#include <charconv>

namespace core {

namespace {

// Splits like the host's string split (empty pieces dropped). Stores the first `capacity` pieces
// and returns how many pieces there are in all.
std::size_t splitPieces(std::string_view text, char delimiter, std::string_view* pieces,
                        std::size_t capacity) {
    std::size_t count = 0;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(delimiter, start);
        if (end == std::string_view::npos) end = text.size();
        if (end > start) {
            if (count < capacity) pieces[count] = text.substr(start, end - start);
            ++count;
        }
        start = end + 1;
    }
    return count;
}

bool parseIndex(std::string_view text, int& value) {
    if (text.empty() || text.front() < '0' || text.front() > '9') return false;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end;
}

void appendDecimal(std::string& text, long long value) {
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    text.append(digits, result.ptr);
}

} // namespace

bool appendComponentIndices(std::string_view entry, std::vector<int>& indices) {
    std::string_view names[2];
    if (splitPieces(entry, '.', names, 2) < 2) return false;
    const std::string_view component = names[1];
    constexpr std::size_t prefixLength = 4; // "vtx["
    if (component.size() <= prefixLength + 1) return false;
    const std::string_view range = component.substr(prefixLength, component.size() - prefixLength - 1);

    std::string_view bounds[2];
    const std::size_t boundCount = splitPieces(range, ':', bounds, 2);
    int from = 0;
    int to = 0;
    if (boundCount < 1 || boundCount > 2 || !parseIndex(bounds[0], from)) return false;
    if (boundCount == 1) {
        if (indices.size() >= kMaxFlattenedIndices) return false;
        indices.push_back(from);
        return true;
    }
    if (!parseIndex(bounds[1], to)) return false;
    if (from > to) return true;
    const std::size_t count = static_cast<std::size_t>(to - from) + 1;
    if (count > kMaxFlattenedIndices - indices.size()) return false;
    for (long long index = from; index <= to; ++index) indices.push_back(static_cast<int>(index));
    return true;
}

std::vector<int> flattenComponentList(const std::vector<std::string>& entries) {
    std::vector<int> indices;
    indices.reserve(entries.size());
    for (const std::string& entry : entries) appendComponentIndices(entry, indices);
    return indices;
}

std::string componentListCommand(std::string_view plugName, const std::vector<int>& indices) {
    static constexpr std::string_view head = "setAttr ";
    static constexpr std::string_view type = " -type componentList ";
    std::string command;
    // "vtx[" + up to ten digits + "] " per index.
    command.reserve(head.size() + plugName.size() + type.size() + 24 + indices.size() * 16);
    command += head;
    command += plugName;
    command += type;
    appendDecimal(command, static_cast<long long>(indices.size()));
    command += ' ';
    for (const int index : indices) {
        command += "vtx[";
        appendDecimal(command, index);
        command += "] ";
    }
    command += ';';
    return command;
}

} // namespace core
