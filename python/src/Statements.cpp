#include "Statements.h"

#include "lang/Interpreter.h"
#include "session/Session.h"

#include <pybind11/stl.h>

#include <variant>

namespace py = pybind11;

namespace pytalven {

namespace {

py::object toPython(const host::CommandResult& result) {
    return std::visit(
        [](const auto& value) -> py::object {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, std::monostate>)
                return py::none();
            else
                return py::cast(value);
        },
        result);
}

// Hands the messages of a statement to Python's logging; errors of a statement that failed
// become the exception instead.
void logMessages(const std::vector<host::Message>& messages, bool failed) {
    py::object logger;
    for (const host::Message& message : messages) {
        if (failed && message.kind == host::MessageKind::Error) continue;
        if (!logger) logger = py::module_::import("logging").attr("getLogger")("talven");
        const char* level = message.kind == host::MessageKind::Error     ? "error"
                            : message.kind == host::MessageKind::Warning ? "warning"
                                                                         : "info";
        logger.attr(level)("%s", message.text);
    }
}

std::string errorText(const host::Outcome& outcome) {
    std::string text;
    for (const host::Message& message : outcome.messages) {
        if (message.kind != host::MessageKind::Error) continue;
        if (!text.empty()) text += '\n';
        text += message.text;
    }
    return text.empty() ? outcome.command + ": the command failed" : text;
}

} // namespace

py::object runStatements(const std::string& text) {
    host::Outcome last;
    std::vector<host::Message> earlier; // messages of the statements before the last
    bool failed = false;
    host::interpreter().run(text, std::string(), [&](const host::Outcome& outcome) {
        if (failed) return;
        earlier.insert(earlier.end(), last.messages.begin(), last.messages.end());
        last = outcome;
        failed = !outcome.ok;
    });
    logMessages(earlier, false);
    logMessages(last.messages, failed);
    if (failed) throw std::runtime_error(errorText(last));
    return toPython(last.result);
}

} // namespace pytalven
