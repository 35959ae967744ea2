#pragma once
// Runs command-language text against the command table: for the user (statement by statement, with
// an outcome for each) and for MGlobal::executeCommand (quietly, keeping the last result).
#include "engine/MessageLog.h"
#include "lang/CommandTable.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class Tokenizer;

// What one top-level statement did.
struct Outcome {
    std::string command; // the statement as typed, trimmed, without ';', shortened when very long
    int line = 0;        // line of the command word in its source
    bool ok = true;
    CommandResult result;
    std::vector<Message> messages; // everything pushed to the log while it ran
};

using StatementCallback = std::function<void(const Outcome&)>;

class Interpreter {
public:
    // Nested run()/execute() calls beyond this depth fail instead of recursing without end.
    static constexpr int maxDepth = 64;

    Interpreter(CommandTable& commands, MessageLog& log) : commands_(commands), log_(log) {}

    // Whether run() stops at the first failed statement (true by default, as batch runs need).
    void setStopOnError(bool stop) { stopOnError_ = stop; }
    bool stopOnError() const { return stopOnError_; }
    // Whether a statement that reports an error counts as failed whatever its status (--strict).
    void setErrorsFail(bool fail) { errorsFail_ = fail; }

    // Runs the statements of `text` in order, reporting each to `callback` (which may be empty).
    // `sourceName` (a file name, or empty) prefixes errors in the text itself. False if any
    // statement failed.
    bool run(std::string_view text, const std::string& sourceName, const StatementCallback& callback);

    // Runs every statement, leaving the last one's result in `result`; false at the first failure.
    // Handlers may call it again while they run.
    bool execute(std::string_view text, CommandResult& result);

private:
    bool tooDeep();
    // Reads the next statement, its words in the form its command takes, which `entry` is set to
    // (null for an unknown command).
    bool readStatement(Tokenizer& tokenizer, Statement& statement, const CommandEntry*& entry) const;
    bool invoke(const Statement& statement, const CommandEntry* entry, CommandResult& result);

    CommandTable& commands_;
    MessageLog& log_;
    bool stopOnError_ = true;
    bool errorsFail_ = false;
    int depth_ = 0;
};

} // namespace host
