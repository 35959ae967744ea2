#include "api/command/StatementArgs.h"

#include "lang/Quoting.h"

namespace host {

MArgList argListOf(const Statement& statement) {
    if (statement.words) return MArgList(statement.words);
    MArgList args;
    for (const Token& token : statement.args) args.addWord(token.text, token.quoted);
    return args;
}

// A run of unquoted words is copied as one block, the '\0' after each word but the last becoming
// the blank between words: a command of millions of words is written in a few large copies.
std::string commandTextOf(const std::string& command, const MArgList& args) {
    std::string text = command;
    const std::shared_ptr<const WordList> words = args.sharedWords();
    if (!words) return text;
    text.reserve(command.size() + words->charCount() + 1);
    const std::size_t count = words->size();
    for (std::size_t i = 0; i < count;) {
        text += ' ';
        if (words->quoted(i)) {
            appendQuoted(text, (*words)[i++]);
            continue;
        }
        std::size_t end = i + 1;
        while (end < count && !words->quoted(end)) ++end;
        const char* const first = (*words)[i].data();
        const std::string_view last = (*words)[end - 1];
        const std::size_t base = text.size();
        text.append(first, last.data() + last.size());
        for (; i + 1 < end; ++i) {
            const std::string_view word = (*words)[i];
            text[base + static_cast<std::size_t>(word.data() + word.size() - first)] = ' ';
        }
        i = end;
    }
    return text;
}

} // namespace host
