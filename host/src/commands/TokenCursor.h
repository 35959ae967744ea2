#pragma once
// A forward-only reader over the value tokens of a command.
#include "lang/CommandTable.h"

#include <string>
#include <vector>

namespace host {

class TokenCursor {
public:
    TokenCursor(const std::vector<const Token*>& tokens, std::size_t start)
        : tokens_(tokens), pos_(start < tokens.size() ? start : tokens.size()) {}

    bool atEnd() const { return pos_ == tokens_.size(); }
    std::size_t remaining() const { return tokens_.size() - pos_; }
    // Only when !atEnd().
    const Token& peek() const { return *tokens_[pos_]; }
    const Token& next() { return *tokens_[pos_++]; }

private:
    const std::vector<const Token*>& tokens_;
    std::size_t pos_;
};

} // namespace host
