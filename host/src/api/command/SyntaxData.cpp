#include "api/command/SyntaxData.h"

#include <cstdint>

namespace host {

namespace {

std::string_view undashed(std::string_view name) {
    return !name.empty() && name[0] == '-' ? name.substr(1) : name;
}

// Flag names are a few characters long: a loop beats a call to memcmp.
bool sameText(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i]) return false;
    }
    return true;
}

// FNV-1a, for the same reason.
std::size_t hashName(std::string_view name) {
    std::uint32_t hash = 2166136261u;
    for (char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash;
}

} // namespace

std::string dashed(std::string_view name) {
    std::string text(name);
    if (text.empty() || text[0] != '-') text.insert(text.begin(), '-');
    return text;
}

void SyntaxData::addFlag(SyntaxFlag flag) {
    flags_.push_back(std::move(flag));
    rebuildIndex();
}

void SyntaxData::removeFlag(std::size_t index) {
    flags_.erase(flags_.begin() + static_cast<std::ptrdiff_t>(index));
    rebuildIndex();
}

int SyntaxData::findFlag(std::string_view name) const {
    if (name.empty() || slots_.empty()) return -1;
    const std::string_view key = undashed(name);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = hashName(key) & mask; slots_[i].flag >= 0; i = (i + 1) & mask) {
        const Slot& slot = slots_[i];
        if (sameText(key, std::string_view(names_).substr(slot.nameStart, slot.nameSize))) return slot.flag;
    }
    return -1;
}

// Syntaxes are made once per command and have tens of flags: rebuilt whole on every change.
void SyntaxData::rebuildIndex() {
    std::size_t size = 8;
    while (size < 8 * flags_.size()) size *= 2;
    slots_.assign(size, Slot());
    names_.clear();
    for (std::size_t flag = 0; flag < flags_.size(); ++flag) {
        for (const std::string* name : {&flags_[flag].shortName, &flags_[flag].longName}) {
            const std::string_view key = undashed(*name);
            std::size_t i = hashName(key) & (size - 1);
            while (slots_[i].flag >= 0) i = (i + 1) & (size - 1);
            slots_[i] = Slot{static_cast<int>(flag), static_cast<std::uint32_t>(names_.size()),
                             static_cast<std::uint32_t>(key.size())};
            names_ += key;
        }
    }
}

} // namespace host
