#include "lang/ResultFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

using host::CommandResult;
using host::Message;
using host::MessageKind;
using host::Outcome;

namespace {

std::string jsonResult(CommandResult result) {
    Outcome outcome;
    outcome.result = std::move(result);
    const std::string json = host::formatJson(outcome);
    const std::string head = "{\"command\": \"\", \"ok\": true, \"result\": ";
    const std::string tail = ", \"messages\": []}";
    EXPECT_EQ(json.substr(0, head.size()), head);
    EXPECT_EQ(json.substr(json.size() - tail.size()), tail);
    return json.substr(head.size(), json.size() - head.size() - tail.size());
}

TEST(ResultFormat, NumbersAsTheScriptEditorPrintsThem) {
    const std::pair<double, const char*> cases[] = {
        {0.5, "0.5"},           {3.0, "3"},         {1e-05, "1e-05"},
        {-2.25, "-2.25"},       {0.1 + 0.2, "0.3"}, {1.0 / 3.0, "0.333333333333333"},
        {1234567.0, "1234567"}, {1e20, "1e+20"},
    };
    for (const auto& [value, text] : cases) EXPECT_EQ(host::formatNumber(value), text) << value;
}

TEST(ResultFormat, ResultLines) {
    const std::pair<CommandResult, const char*> cases[] = {
        {std::monostate{}, ""},
        {7, "// Result: 7 //"},
        {-0.5, "// Result: -0.5 //"},
        {true, "// Result: 1 //"},
        {false, "// Result: 0 //"},
        {std::string("blendShape1"), "// Result: blendShape1 //"},
        {std::vector<int>{0, 1, 5}, "// Result: 0 1 5 //"},
        {std::vector<double>{0.5, 3, 1e-05}, "// Result: 0.5 3 1e-05 //"},
        {std::vector<std::string>{"pCube1", "pCube2"}, "// Result: pCube1 pCube2 //"},
    };
    for (const auto& [result, text] : cases) EXPECT_EQ(host::formatResult(result), text);
}

TEST(ResultFormat, MessageLines) {
    EXPECT_EQ(host::formatMessage({MessageKind::Error, "No mesh."}), "// Error: No mesh. //");
    EXPECT_EQ(host::formatMessage({MessageKind::Warning, "Careful."}), "// Warning: Careful. //");
    EXPECT_EQ(host::formatMessage({MessageKind::Info, "12 vertices"}), "12 vertices");
}

TEST(ResultFormat, JsonObjectPerStatement) {
    Outcome outcome;
    outcome.command = "kv_split -s \"a\"";
    outcome.ok = false;
    outcome.result = std::vector<int>{2, 4};
    outcome.messages = {{MessageKind::Error, "bad"}, {MessageKind::Warning, "w"}, {MessageKind::Info, "i"}};
    EXPECT_EQ(host::formatJson(outcome),
              R"({"command": "kv_split -s \"a\"", "ok": false, "result": [2, 4], "messages": [)"
              R"({"kind": "error", "text": "bad"}, {"kind": "warning", "text": "w"}, )"
              R"({"kind": "info", "text": "i"}]})");
}

TEST(ResultFormat, JsonValuesKeepTheirType) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const std::pair<CommandResult, const char*> cases[] = {
        {std::monostate{}, "null"},
        {-3, "-3"},
        {3.0, "3.0"},
        {0.1, "0.1"},
        {1e-05, "1e-05"},
        {-1e300, "-1e+300"},
        {nan, "null"},
        {-inf, "null"},
        {true, "true"},
        {std::string("x"), "\"x\""},
        {std::vector<int>{}, "[]"},
        {std::vector<double>{0.5, 2, inf}, "[0.5, 2.0, null]"},
        {std::vector<std::string>{"a", "b"}, "[\"a\", \"b\"]"},
    };
    for (const auto& [result, text] : cases) EXPECT_EQ(jsonResult(result), text);
}

TEST(ResultFormat, JsonDoublesRoundTrip) {
    for (double value : {0.1, 1.0 / 3.0, 2.0 / 3.0 * 1e-200, 123456789.123456789, -7.0e22, 5e-324}) {
        const std::string text = jsonResult(value);
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
    }
}

TEST(ResultFormat, JsonStringEscaping) {
    const std::pair<std::string, const char*> cases[] = {
        {"say \"hi\"", R"("say \"hi\"")"},
        {"C:\\dir", R"("C:\\dir")"},
        {"a\nb\tc\rd", R"("a\nb\tc\rd")"},
        {std::string("\x01\x1f\b\f", 4), R"("\u0001\u001f\b\f")"},
        {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", "\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\""},
        {"a\xFF"
         "b",
         R"("a\ufffdb")"},
        {"\xC3", R"("\ufffd")"},
        {"\xC0\xAF", R"("\ufffd\ufffd")"},
        {"\xED\xA0\x80", R"("\ufffd\ufffd\ufffd")"},
        {"\x7F/", "\"\x7F/\""},
    };
    for (const auto& [text, json] : cases) EXPECT_EQ(jsonResult(text), json) << text;
}

} // namespace
