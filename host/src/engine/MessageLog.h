#pragma once
// Every error, warning and information line shown to the user goes through here, so the program
// can print them as the script editor does and tests can read them back.
#include <functional>
#include <string>
#include <vector>

namespace host {

enum class MessageKind { Error, Warning, Info };

struct Message {
    MessageKind kind;
    std::string text;
};

class MessageLog {
public:
    using Listener = std::function<void(const Message&)>;

    void push(MessageKind kind, std::string text);
    void error(std::string text) { push(MessageKind::Error, std::move(text)); }
    void warning(std::string text) { push(MessageKind::Warning, std::move(text)); }
    void info(std::string text) { push(MessageKind::Info, std::move(text)); }

    // Listeners are called in the order they were added; the returned id removes one.
    int addListener(Listener listener);
    void removeListener(int id);

    const std::vector<Message>& history() const { return history_; }
    void clearHistory() { history_.clear(); }

private:
    std::vector<Message> history_;
    std::vector<std::pair<int, Listener>> listeners_;
    int nextId_ = 1;
};

} // namespace host
