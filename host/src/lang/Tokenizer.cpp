#include "lang/Tokenizer.h"

#include <algorithm>
#include <array>
#include <memory>

namespace host {

namespace {

constexpr std::array<bool, 256> charTable(std::string_view members) {
    std::array<bool, 256> table{};
    for (char c : members) table[static_cast<unsigned char>(c)] = true;
    return table;
}

constexpr std::array<bool, 256> blanks = charTable(" \t\n\r\f\v");
// Characters that end a word, and '/', which ends one only where a comment starts.
constexpr std::array<bool, 256> wordStops = charTable(" \t\n\r\f\v;\"{},/");
// First characters of the tokens that are not plain words: strings, concatenations, brace lists.
constexpr std::array<bool, 256> startsSpecialToken = charTable("\"({},");

bool isBlank(char c) {
    return blanks[static_cast<unsigned char>(c)];
}

std::string_view trimEnd(std::string_view text) {
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

// Where the words after the command go: one token each, or one shared buffer.
class TokenSink {
public:
    explicit TokenSink(std::vector<Token>& tokens) : tokens_(tokens) {}
    std::string& open() { return tokens_.emplace_back().text; }
    void close(bool quoted) { tokens_.back().quoted = quoted; }
    void add(std::string_view word) { tokens_.emplace_back().text.assign(word); }

private:
    std::vector<Token>& tokens_;
};

class WordSink {
public:
    explicit WordSink(WordList& words) : words_(words) {}
    std::string& open() { return words_.chars(); }
    void close(bool quoted) { words_.endWord(quoted); }
    void add(std::string_view word) { words_.add(word, false); }

private:
    WordList& words_;
};

} // namespace

// Inline, and on copies of pos_ and line_ (which writing characters elsewhere could change, as far
// as the compiler knows): it runs between any two words.
inline bool Tokenizer::skipBlanksAndComments() {
    const char* const data = text_.data();
    const size_t size = text_.size();
    size_t pos = pos_;
    int line = line_;
    for (;;) {
        for (; pos < size && blanks[static_cast<unsigned char>(data[pos])]; ++pos) {
            if (data[pos] == '\n') ++line;
        }
        if (pos + 1 >= size || data[pos] != '/' || (data[pos + 1] != '/' && data[pos + 1] != '*')) break;
        pos_ = pos;
        line_ = line;
        if (!skipComment()) return false;
        pos = pos_;
        line = line_;
    }
    pos_ = pos;
    line_ = line;
    return true;
}

bool Tokenizer::skipComment() {
    if (text_[pos_ + 1] == '/') {
        pos_ = std::min(text_.find('\n', pos_), text_.size());
        return true;
    }
    openPos_ = pos_;
    openLine_ = line_;
    const size_t end = text_.find("*/", pos_ + 2);
    if (end == std::string_view::npos) return false;
    line_ += static_cast<int>(std::count(text_.begin() + pos_, text_.begin() + end, '\n'));
    pos_ = end + 2;
    return true;
}

inline size_t Tokenizer::wordEnd(size_t pos) const {
    const char* const data = text_.data();
    const size_t size = text_.size();
    for (;;) {
        while (pos < size && !wordStops[static_cast<unsigned char>(data[pos])]) ++pos;
        // A '/' that starts no comment belongs to the word.
        const bool slash = pos < size && data[pos] == '/';
        if (!slash || (pos + 1 < size && (data[pos + 1] == '/' || data[pos + 1] == '*'))) return pos;
        ++pos;
    }
}

void Tokenizer::skip(std::size_t length) {
    const std::size_t end = std::min(pos_ + length, text_.size());
    line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(pos_),
                                         text_.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
    pos_ = end;
}

bool Tokenizer::nextStatement(Statement& statement) {
    return readCommand(statement) && readArguments(statement, ArgForm::Tokens);
}

bool Tokenizer::readCommand(Statement& statement) {
    statement.command.clear();
    statement.args.clear();
    statement.words.reset();
    terminated_ = false;
    if (!error_.empty()) return false;
    for (;;) {
        if (!skipBlanksAndComments()) return fail("Unterminated comment.", std::string_view::npos);
        if (pos_ == text_.size()) return false;
        if (text_[pos_] != ';') break;
        ++pos_; // an empty statement
    }
    start_ = pos_;
    statement.line = line_;
    bool quoted = false;
    return readToken(statement.command, quoted) || fail("Unterminated string.", start_);
}

bool Tokenizer::readArguments(Statement& statement, ArgForm form) {
    if (form == ArgForm::Tokens) {
        TokenSink sink(statement.args);
        return readArgumentsInto(sink);
    }
    // A new buffer each time: a command may still hold the previous statement's words.
    statement.words = std::make_shared<WordList>();
    WordSink sink(*statement.words);
    return readArgumentsInto(sink);
}

template <class Sink> bool Tokenizer::readArgumentsInto(Sink& sink) {
    for (;;) {
        if (!skipBlanksAndComments()) return fail("Unterminated comment.", start_);
        if (pos_ == text_.size()) {
            statementText_ = trimEnd(text_.substr(start_));
            return true;
        }
        if (text_[pos_] == ';') {
            ++pos_;
            statementText_ = trimEnd(text_.substr(start_, pos_ - 1 - start_));
            terminated_ = true;
            return true;
        }
        if (!startsSpecialToken[static_cast<unsigned char>(text_[pos_])]) {
            // A plain word, by far the most common token.
            const size_t begin = pos_;
            pos_ = wordEnd(begin);
            sink.add(text_.substr(begin, pos_ - begin));
            continue;
        }
        bool quoted = false;
        if (!readToken(sink.open(), quoted)) return fail("Unterminated string.", start_);
        sink.close(quoted);
    }
}

bool Tokenizer::readToken(std::string& out, bool& quoted) {
    const char c = text_[pos_];
    quoted = c == '"';
    if (quoted) return readString(out);
    if (c == '{' || c == '}' || c == ',') {
        out += c;
        ++pos_;
        return true;
    }
    if (c == '(' && readConcatenation(out)) {
        quoted = true;
        return true;
    }
    readWord(out);
    return true;
}

bool Tokenizer::readString(std::string& out) {
    openPos_ = pos_;
    openLine_ = line_;
    const size_t size = text_.size();
    size_t chunk = ++pos_;
    while (pos_ < size) {
        const char c = text_[pos_];
        if (c == '"') {
            out.append(text_.data() + chunk, pos_ - chunk);
            ++pos_;
            return true;
        }
        if (c == '\n') ++line_;
        if (c != '\\') {
            ++pos_;
            continue;
        }
        if (pos_ + 1 == size) break;
        out.append(text_.data() + chunk, pos_ - chunk);
        const char escaped = text_[pos_ + 1];
        switch (escaped) {
        case 'n':
            out += '\n';
            break;
        case 't':
            out += '\t';
            break;
        case 'r':
            out += '\r';
            break;
        case '"':
        case '\\':
            out += escaped;
            break;
        default:
            // Unknown escapes are kept as written, so a path like "C:\data" survives.
            out += '\\';
            out += escaped;
            if (escaped == '\n') ++line_;
        }
        pos_ += 2;
        chunk = pos_;
    }
    pos_ = size;
    return false;
}

// ("a" + "b" + …) as one string; anything else starting with '(' is read as a word.
bool Tokenizer::readConcatenation(std::string& out) {
    const size_t savedPos = pos_;
    const int savedLine = line_;
    const size_t savedSize = out.size();
    ++pos_;
    for (;;) {
        if (!skipBlanksAndComments() || pos_ == text_.size() || text_[pos_] != '"' || !readString(out) ||
            !skipBlanksAndComments() || pos_ == text_.size())
            break;
        const char c = text_[pos_++];
        if (c == ')') return true;
        if (c != '+') break;
    }
    pos_ = savedPos;
    line_ = savedLine;
    out.resize(savedSize);
    return false;
}

void Tokenizer::readWord(std::string& out) {
    const size_t begin = pos_;
    pos_ = wordEnd(begin);
    out.append(text_.data() + begin, pos_ - begin);
}

bool Tokenizer::fail(const char* what, size_t from) {
    error_ = "Line " + std::to_string(openLine_) + ": " + what;
    statementText_ = trimEnd(text_.substr(from == std::string_view::npos ? openPos_ : from));
    pos_ = text_.size();
    return false;
}

bool isComplete(std::string_view text) {
    Tokenizer tokenizer(text);
    Statement statement;
    bool closed = true;
    while (tokenizer.readCommand(statement) && tokenizer.readArguments(statement, ArgForm::Words))
        closed = tokenizer.terminated();
    return closed && tokenizer.error().empty();
}

} // namespace host
