#pragma once
// Prints what the interpreter does: script-editor text (messages as they are issued, then each
// result) or one JSON line per statement.
#include "engine/MessageLog.h"
#include "lang/Interpreter.h"

namespace app {

class Reporter {
public:
    Reporter(host::MessageLog& log, bool json);
    ~Reporter();
    Reporter(const Reporter&) = delete;
    Reporter& operator=(const Reporter&) = delete;

    // Until this is called, JSON output sends messages (those of the start-up) to stderr as text;
    // afterwards they travel inside each statement's object.
    void startStatements() { statementsStarted_ = true; }

    void report(const host::Outcome& outcome);

private:
    void onMessage(const host::Message& message);

    host::MessageLog& log_;
    bool json_;
    bool statementsStarted_ = false;
    int listener_;
};

} // namespace app
