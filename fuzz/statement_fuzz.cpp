// The interpreter's statement reader on arbitrary text, reading each statement in the form its
// command takes, as the interpreter does; nothing is run. A quoted empty command word ("") is read
// as such; the interpreter then reports that no procedure has that name.
#include "engine/MessageLog.h"
#include "engine/Scene.h"
#include "lang/Tokenizer.h"
#include "session/Session.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    host::Tokenizer tokenizer(text);
    host::Statement statement;
    while (tokenizer.readCommand(statement)) {
        const host::CommandEntry* entry = host::commandTable().entry(statement.command);
        if (!tokenizer.readArguments(statement, entry ? entry->form : host::ArgForm::Words)) break;
    }
    host::isComplete(text);
    return 0;
}
