#pragma once
// The words of a statement in one buffer: their characters back to back, each word followed by a
// '\0', and where each word ends. Filling it costs no allocation per word, which matters for a
// statement of millions of words, and the '\0' lets C string functions read a word in place.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class WordList {
public:
    std::size_t size() const { return ends_.size(); }
    // The characters of all words, each with its '\0'.
    std::size_t charCount() const { return chars_.size(); }

    std::string_view operator[](std::size_t i) const { return {cString(i), ends_[i] - begin(i)}; }
    // The word up to its '\0'.
    const char* cString(std::size_t i) const { return chars_.data() + begin(i); }
    bool quoted(std::size_t i) const { return quoted_[i] != 0; }

    void clear() {
        chars_.clear();
        ends_.clear();
        quoted_.clear();
    }
    void add(std::string_view word, bool quoted) {
        chars_.append(word);
        endWord(quoted);
    }

    // Adding a word piece by piece: append its characters to chars(), then call endWord().
    std::string& chars() { return chars_; }
    void endWord(bool quoted) {
        ends_.push_back(chars_.size());
        quoted_.push_back(quoted ? 1 : 0);
        chars_.push_back('\0');
    }

private:
    std::size_t begin(std::size_t i) const { return i == 0 ? 0 : ends_[i - 1] + 1; }

    std::string chars_;
    std::vector<std::size_t> ends_;     // position of each word's '\0' in chars_
    std::vector<unsigned char> quoted_; // one flag per word
};

} // namespace host
