#include "lang/Interpreter.h"

#include "engine/ChangeJournal.h"
#include "lang/Quoting.h"
#include "lang/Tokenizer.h"

#include <exception>

namespace host {

namespace {

constexpr size_t maxCommandText = 200;

// Counts one level of nesting for as long as it lives.
class DepthGuard {
public:
    explicit DepthGuard(int& depth) : depth_(depth) { ++depth_; }
    ~DepthGuard() { --depth_; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    int& depth_;
};

// Collects the log's messages into `*sink` whenever it is set, for as long as it lives.
class MessageCollector {
public:
    explicit MessageCollector(MessageLog& log) : log_(log) {
        id_ = log_.addListener([this](const Message& message) {
            if (sink) sink->push_back(message);
        });
    }
    ~MessageCollector() { log_.removeListener(id_); }
    MessageCollector(const MessageCollector&) = delete;
    MessageCollector& operator=(const MessageCollector&) = delete;

    std::vector<Message>* sink = nullptr;

private:
    MessageLog& log_;
    int id_ = 0;
};

// Cuts a long statement (a million components) to a readable head, never inside a UTF-8 character.
std::string shortened(std::string_view text) {
    if (text.size() <= maxCommandText) return std::string(text);
    size_t end = maxCommandText;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return std::string(text.substr(0, end)) + "...";
}

// The statement as an undo entry names it: the command and its first words.
std::string undoName(const Statement& statement) {
    constexpr std::size_t maxWords = 12;
    std::string text = statement.command;
    const auto add = [&](std::string_view word, bool isQuoted) {
        text += ' ';
        if (isQuoted)
            appendQuoted(text, word);
        else
            text += word;
    };
    const std::size_t count = statement.words ? statement.words->size() : statement.args.size();
    for (std::size_t i = 0; i < count && i < maxWords; ++i) {
        if (statement.words)
            add((*statement.words)[i], statement.words->quoted(i));
        else
            add(statement.args[i].text, statement.args[i].quoted);
    }
    if (count > maxWords) text += " ...";
    return text;
}

} // namespace

bool Interpreter::run(std::string_view text, const std::string& sourceName,
                      const StatementCallback& callback) {
    if (tooDeep()) return false;
    DepthGuard depth(depth_);
    MessageCollector collector(log_);
    Tokenizer tokenizer(text);
    Statement statement;
    const CommandEntry* entry = nullptr;
    bool allOk = true;
    for (;;) {
        Outcome outcome;
        collector.sink = &outcome.messages;
        const bool read = readStatement(tokenizer, statement, entry);
        if (!read && tokenizer.error().empty()) break;
        outcome.command = shortened(tokenizer.statementText());
        if (read) {
            outcome.line = statement.line;
            outcome.ok = invoke(statement, entry, outcome.result);
            if (errorsFail_)
                for (const Message& message : outcome.messages)
                    outcome.ok = outcome.ok && message.kind != MessageKind::Error;
        } else {
            log_.error(sourceName.empty() ? tokenizer.error() : sourceName + ": " + tokenizer.error());
            outcome.ok = false;
        }
        collector.sink = nullptr;
        allOk = allOk && outcome.ok;
        if (callback) callback(outcome);
        if (!read || (!outcome.ok && stopOnError_)) break;
    }
    return allOk;
}

bool Interpreter::execute(std::string_view text, CommandResult& result) {
    result = {};
    if (tooDeep()) return false;
    DepthGuard depth(depth_);
    Tokenizer tokenizer(text);
    Statement statement;
    const CommandEntry* entry = nullptr;
    while (readStatement(tokenizer, statement, entry)) {
        if (!invoke(statement, entry, result)) return false;
    }
    if (tokenizer.error().empty()) return true;
    log_.error(tokenizer.error());
    return false;
}

bool Interpreter::tooDeep() {
    if (depth_ < maxDepth) return false;
    log_.error("Commands are nested more than " + std::to_string(maxDepth) + " levels deep.");
    return true;
}

bool Interpreter::readStatement(Tokenizer& tokenizer, Statement& statement,
                                const CommandEntry*& entry) const {
    if (!tokenizer.readCommand(statement)) return false;
    entry = commands_.entry(statement.command);
    // The words of an unknown command are only skipped: one buffer costs least.
    return tokenizer.readArguments(statement, entry ? entry->form : ArgForm::Words);
}

bool Interpreter::invoke(const Statement& statement, const CommandEntry* entry, CommandResult& result) {
    if (!entry) {
        log_.error("Cannot find procedure \"" + statement.command + "\".");
        return false;
    }
    // A copy: the command may remove itself from the table while it runs.
    const CommandHandler handler = entry->handler;
    Invocation invocation{statement, {}};
    bool ok = false;
    // A command run at the top leaves one undo entry for what it changed.
    const CommandRecording recording([&statement] { return undoName(statement); });
    try {
        ok = handler(invocation);
    } catch (const std::exception& error) {
        log_.error(std::string("Internal error: ") + error.what());
        return false;
    } catch (...) {
        log_.error("Internal error: unknown exception.");
        return false;
    }
    result = std::move(invocation.result);
    return ok;
}

} // namespace host
