#include "lang/ResultFormat.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace host {

namespace {

std::string editorText(std::monostate) {
    return {};
}
std::string editorText(int value) {
    return std::to_string(value);
}
std::string editorText(double value) {
    return formatNumber(value);
}
std::string editorText(bool value) {
    return value ? "1" : "0";
}
std::string editorText(const std::string& value) {
    return value;
}

template <typename T> std::string editorText(const std::vector<T>& values) {
    std::string text;
    for (size_t i = 0; i < values.size(); ++i) {
        if (i > 0) text += ' ';
        text += editorText(values[i]);
    }
    return text;
}

// Length of the well-formed UTF-8 sequence starting at `i`, 0 if there is none.
size_t utf8Length(std::string_view text, size_t i) {
    const auto byte = [&](size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char lead = byte(i);
    size_t length = 0;
    unsigned char low = 0x80, high = 0xBF; // allowed range of the second byte
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;  // overlong
        if (lead == 0xED) high = 0x9F; // surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;  // overlong
        if (lead == 0xF4) high = 0x8F; // beyond U+10FFFF
    } else {
        return 0;
    }
    if (i + length > text.size() || byte(i + 1) < low || byte(i + 1) > high) return 0;
    for (size_t k = i + 2; k < i + length; ++k) {
        if ((byte(k) & 0xC0) != 0x80) return 0;
    }
    return length;
}

// A JSON string; bytes that are not well-formed UTF-8 become U+FFFD so the line stays valid JSON.
std::string jsonString(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    for (size_t i = 0; i < text.size();) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c >= 0x80) {
            const size_t length = utf8Length(text, i);
            if (length == 0) {
                out += "\\ufffd";
                ++i;
            } else {
                out.append(text, i, length);
                i += length;
            }
            continue;
        }
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\b':
            out += "\\b";
            break;
        case '\f':
            out += "\\f";
            break;
        default:
            if (c < 0x20) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
                out += escaped;
            } else {
                out += static_cast<char>(c);
            }
        }
        ++i;
    }
    out += '"';
    return out;
}

std::string jsonValue(std::monostate) {
    return "null";
}
std::string jsonValue(int value) {
    return std::to_string(value);
}
std::string jsonValue(bool value) {
    return value ? "true" : "false";
}
std::string jsonValue(const std::string& value) {
    return jsonString(value);
}

// The shortest text that reads back as the same double; integral values keep a ".0" so readers
// still see a floating-point number. JSON has no NaN or infinity: those become null.
std::string jsonValue(double value) {
    if (!std::isfinite(value)) return "null";
    char buffer[32];
    const auto converted = std::to_chars(buffer, buffer + sizeof buffer, value);
    std::string text(buffer, converted.ptr);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
}

template <typename T> std::string jsonValue(const std::vector<T>& values) {
    std::string text = "[";
    for (size_t i = 0; i < values.size(); ++i) {
        if (i > 0) text += ", ";
        text += jsonValue(values[i]);
    }
    return text + "]";
}

const char* kindName(MessageKind kind) {
    switch (kind) {
    case MessageKind::Error:
        return "error";
    case MessageKind::Warning:
        return "warning";
    case MessageKind::Info:
        break;
    }
    return "info";
}

} // namespace

std::string formatNumber(double value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

std::string formatResult(const CommandResult& result) {
    if (std::holds_alternative<std::monostate>(result)) return {};
    return "// Result: " + std::visit([](const auto& value) { return editorText(value); }, result) + " //";
}

std::string formatMessage(const Message& message) {
    switch (message.kind) {
    case MessageKind::Error:
        return "// Error: " + message.text + " //";
    case MessageKind::Warning:
        return "// Warning: " + message.text + " //";
    case MessageKind::Info:
        break;
    }
    return message.text;
}

std::string formatJson(const Outcome& outcome) {
    std::string text = "{\"command\": " + jsonString(outcome.command);
    text += outcome.ok ? ", \"ok\": true" : ", \"ok\": false";
    text += ", \"result\": " + std::visit([](const auto& value) { return jsonValue(value); }, outcome.result);
    text += ", \"messages\": [";
    for (size_t i = 0; i < outcome.messages.size(); ++i) {
        const Message& message = outcome.messages[i];
        if (i > 0) text += ", ";
        text += "{\"kind\": \"";
        text += kindName(message.kind);
        text += "\", \"text\": " + jsonString(message.text) + "}";
    }
    return text + "]}";
}

} // namespace host
