#include "Shell.h"

#include "Options.h"

#include "lang/Tokenizer.h"

#include <cstdlib>
#include <editline/readline.h>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

namespace app {

namespace {

constexpr int historySize = 1000;

std::string_view trimmed(std::string_view text) {
    const size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

bool isQuit(std::string_view line) {
    line = trimmed(line);
    if (!line.empty() && line.back() == ';') line = trimmed(line.substr(0, line.size() - 1));
    return line == "quit" || line == "exit";
}

std::string historyPath() {
    const char* home = std::getenv("HOME");
    return home && *home ? std::string(home) + "/.talven_history" : std::string();
}

// Keeps the history file up to date however the shell ends.
class History {
public:
    History() : path_(historyPath()) {
        using_history();
        stifle_history(historySize);
        if (!path_.empty()) read_history(path_.c_str());
    }
    ~History() {
        if (!path_.empty()) write_history(path_.c_str());
    }
    History(const History&) = delete;
    History& operator=(const History&) = delete;

private:
    std::string path_;
};

struct FreeLine {
    void operator()(char* line) const { std::free(line); }
};

} // namespace

int runShell(host::Interpreter& interpreter, Reporter& reporter, bool banner) {
    if (banner) {
        std::cout << "Talven shell. End statements with ';' (an empty line runs an unfinished one).\n"
                     "Type quit or exit, or press Ctrl-D, to leave.\n";
    }
    const History history;
    const auto report = [&reporter](const host::Outcome& outcome) { reporter.report(outcome); };
    std::string pending;
    for (;;) {
        const std::unique_ptr<char, FreeLine> raw(readline(pending.empty() ? "talven> " : "...> "));
        if (!raw) break;
        const std::string_view line(raw.get());
        if (pending.empty() && isQuit(line)) break;
        const bool blank = trimmed(line).empty();
        if (!blank) add_history(raw.get());
        if (pending.empty() && blank) continue;
        if (!pending.empty()) pending += '\n';
        pending += line;
        if (!blank && !host::isComplete(pending)) continue;
        interpreter.run(pending, std::string(), report);
        pending.clear();
    }
    std::cout << '\n';
    return exitSuccess;
}

} // namespace app
