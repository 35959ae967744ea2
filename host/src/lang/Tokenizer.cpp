#include "lang/Tokenizer.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// Characters that end a word; '/' ends one only where a comment starts.
constexpr std::array<bool, 256> makeWordEnds() {
    std::array<bool, 256> ends{};
    for (unsigned char c : {' ', '\t', '\n', '\r', '\f', '\v', ';', '"', '{', '}', ','}) ends[c] = true;
    return ends;
}
constexpr std::array<bool, 256> wordEnds = makeWordEnds();

std::string_view trimEnd(std::string_view text) {
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

} // namespace

bool Tokenizer::nextStatement(Statement& statement) {
    statement.command.clear();
    statement.args.clear();
    terminated_ = false;
    if (!error_.empty()) return false;
    constexpr size_t none = std::string_view::npos;
    size_t start = none;
    for (;;) {
        if (!skipBlanksAndComments()) return fail("Unterminated comment.", start);
        if (pos_ == text_.size()) {
            if (start == none) return false;
            statementText_ = trimEnd(text_.substr(start));
            return true;
        }
        if (text_[pos_] == ';') {
            ++pos_;
            if (start == none) continue; // an empty statement
            statementText_ = trimEnd(text_.substr(start, pos_ - 1 - start));
            terminated_ = true;
            return true;
        }
        bool quoted = false;
        if (start == none) {
            start = pos_;
            statement.line = line_;
            if (!readToken(statement.command, quoted)) return fail("Unterminated string.", start);
        } else {
            Token& token = statement.args.emplace_back();
            if (!readToken(token.text, token.quoted)) return fail("Unterminated string.", start);
        }
    }
}

bool Tokenizer::skipBlanksAndComments() {
    const size_t size = text_.size();
    while (pos_ < size) {
        const char c = text_[pos_];
        const char next = pos_ + 1 < size ? text_[pos_ + 1] : '\0';
        if (c == '\n') {
            ++line_;
            ++pos_;
        } else if (isBlank(c)) {
            ++pos_;
        } else if (c == '/' && next == '/') {
            pos_ = std::min(text_.find('\n', pos_), size);
        } else if (c == '/' && next == '*') {
            openPos_ = pos_;
            openLine_ = line_;
            const size_t end = text_.find("*/", pos_ + 2);
            if (end == std::string_view::npos) return false;
            line_ += static_cast<int>(std::count(text_.begin() + pos_, text_.begin() + end, '\n'));
            pos_ = end + 2;
        } else {
            return true;
        }
    }
    return true;
}

bool Tokenizer::readToken(std::string& out, bool& quoted) {
    const char c = text_[pos_];
    quoted = c == '"';
    if (quoted) {
        out.clear();
        return readString(out);
    }
    if (c == '{' || c == '}' || c == ',') {
        out.assign(1, c);
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
    out.clear();
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
    return false;
}

void Tokenizer::readWord(std::string& out) {
    const size_t size = text_.size();
    const size_t begin = pos_;
    while (pos_ < size) {
        const unsigned char c = static_cast<unsigned char>(text_[pos_]);
        if (wordEnds[c]) break;
        if (c == '/' && pos_ + 1 < size && (text_[pos_ + 1] == '/' || text_[pos_ + 1] == '*')) break;
        ++pos_;
    }
    out.assign(text_.data() + begin, pos_ - begin);
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
    while (tokenizer.nextStatement(statement)) closed = tokenizer.terminated();
    return closed && tokenizer.error().empty();
}

} // namespace host
