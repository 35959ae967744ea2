#pragma once
// Splits command-language text into statements `word -flag value … ;`, one statement at a time, so a
// scene file of any size is read in one pass without holding more than one statement in memory.
//
// Words are separated by blanks; ';' ends a statement (the end of the text ends the last one too);
// "…" is a quoted token with the escapes \" \\ \n \t \r; `//` and `/* */` are comments; `{`, `}` and
// `,` (the brace lists of scene files) are tokens of their own; ("a" + "b") is one quoted token "ab",
// the way scene files wrap long strings.
#include "lang/CommandTable.h"

#include <string>
#include <string_view>

namespace host {

class Tokenizer {
public:
    explicit Tokenizer(std::string_view text) : text_(text) {}

    // Reads the next statement into `statement`, reusing its storage, with its words as tokens.
    // False at the end of the text, and on malformed text: then error() tells why and the rest of
    // the text is not read.
    bool nextStatement(Statement& statement);

    // The same in two steps, so that the command word can choose the form of the rest: reads the
    // command word (false as above), then the words after it (false on malformed text).
    bool readCommand(Statement& statement);
    bool readArguments(Statement& statement, ArgForm form);

    // "Line 3: Unterminated string." after malformed text, empty otherwise.
    const std::string& error() const { return error_; }
    // The statement just read as typed, from its command word up to (without) the ';'; after an
    // error, the unfinished rest of the text.
    std::string_view statementText() const { return statementText_; }
    // Whether the statement just read was closed by ';' rather than by the end of the text.
    bool terminated() const { return terminated_; }

    // The text not read yet, for a reader that takes a statement straight from the text.
    std::string_view rest() const { return text_.substr(pos_); }
    // Passes over the first `length` characters of rest(), a statement such a reader took.
    void skip(std::size_t length);

private:
    template <class Sink> bool readArgumentsInto(Sink& sink);
    bool skipBlanksAndComments();
    // Skips the comment at pos_; false when it is never closed.
    bool skipComment();
    // These append what they read to `out`.
    bool readToken(std::string& out, bool& quoted);
    bool readString(std::string& out);
    bool readConcatenation(std::string& out);
    void readWord(std::string& out);
    // Where the word starting at `pos` ends.
    size_t wordEnd(size_t pos) const;
    bool fail(const char* what, size_t from);

    std::string_view text_;
    size_t pos_ = 0;
    int line_ = 1;
    // Where the statement being read began.
    size_t start_ = 0;
    // Where the construct that ran off the end of the text began.
    size_t openPos_ = 0;
    int openLine_ = 0;
    std::string error_;
    std::string_view statementText_;
    bool terminated_ = false;
};

// False while the text needs more lines: an open string or comment, or a statement without ';'.
bool isComplete(std::string_view text);

} // namespace host
