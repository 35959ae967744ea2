#include "api/command/ResultConvert.h"

#include "lang/ResultFormat.h"

#include <climits>
#include <type_traits>

namespace host {

namespace {

bool truncate(double value, int& out) {
    if (!(value > INT_MIN - 1.0 && value < INT_MAX + 1.0)) return false; // also rejects NaN
    out = static_cast<int>(value);
    return true;
}

// The result as numbers when it holds numbers; `single` tells a scalar from an array.
bool numbers(const CommandResult& result, std::vector<double>& out, bool& single) {
    return std::visit(
        [&](const auto& value) {
            using T = std::decay_t<decltype(value)>;
            single = std::is_arithmetic_v<T>;
            if constexpr (std::is_arithmetic_v<T>) {
                out = {static_cast<double>(value)};
                return true;
            } else if constexpr (std::is_same_v<T, std::vector<int>> ||
                                 std::is_same_v<T, std::vector<double>>) {
                out.assign(value.begin(), value.end());
                return true;
            } else {
                out.clear();
                return std::is_same_v<T, std::monostate>;
            }
        },
        result);
}

bool scalar(const CommandResult& result, double& out) {
    std::vector<double> values;
    bool single = false;
    if (!numbers(result, values, single) || !single) return false;
    out = values[0];
    return true;
}

std::string text(int value) {
    return std::to_string(value);
}
std::string text(bool value) {
    return value ? "1" : "0";
}
std::string text(double value) {
    return formatNumber(value);
}
std::string text(const std::string& value) {
    return value;
}

} // namespace

MCommandResult::Type resultTypeOf(const CommandResult& result) {
    return std::visit(
        [](const auto& value) {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, int> || std::is_same_v<T, bool>)
                return MCommandResult::kInt;
            else if constexpr (std::is_same_v<T, double>)
                return MCommandResult::kDouble;
            else if constexpr (std::is_same_v<T, std::string>)
                return MCommandResult::kString;
            else if constexpr (std::is_same_v<T, std::vector<int>>)
                return MCommandResult::kIntArray;
            else if constexpr (std::is_same_v<T, std::vector<double>>)
                return MCommandResult::kDoubleArray;
            else if constexpr (std::is_same_v<T, std::vector<std::string>>)
                return MCommandResult::kStringArray;
            else
                return MCommandResult::kInvalid;
        },
        result);
}

bool readResult(const CommandResult& result, int& out) {
    double value = 0;
    return scalar(result, value) && truncate(value, out);
}

bool readResult(const CommandResult& result, double& out) {
    return scalar(result, out);
}

bool readResult(const CommandResult& result, MString& out) {
    auto value = std::get_if<std::string>(&result);
    if (!value) return false;
    out = MString(*value);
    return true;
}

bool readResult(const CommandResult& result, MIntArray& out) {
    std::vector<double> values;
    bool single = false;
    if (!numbers(result, values, single)) return false;
    std::vector<int> converted(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!truncate(values[i], converted[i])) return false;
    }
    out = MIntArray(std::move(converted));
    return true;
}

bool readResult(const CommandResult& result, MDoubleArray& out) {
    std::vector<double> values;
    bool single = false;
    if (!numbers(result, values, single)) return false;
    out = MDoubleArray(std::move(values));
    return true;
}

bool readResult(const CommandResult& result, MStringArray& out) {
    std::vector<MString> values;
    if (auto one = std::get_if<std::string>(&result))
        values.emplace_back(*one);
    else if (auto many = std::get_if<std::vector<std::string>>(&result))
        values.assign(many->begin(), many->end());
    else if (!std::holds_alternative<std::monostate>(result))
        return false;
    out = MStringArray(std::move(values));
    return true;
}

std::string resultText(const CommandResult& result) {
    return std::visit(
        [](const auto& value) -> std::string {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return {};
            } else if constexpr (std::is_same_v<T, std::vector<int>> ||
                                 std::is_same_v<T, std::vector<double>> ||
                                 std::is_same_v<T, std::vector<std::string>>) {
                std::string joined;
                for (std::size_t i = 0; i < value.size(); ++i) joined += (i ? " " : "") + text(value[i]);
                return joined;
            } else {
                return text(value);
            }
        },
        result);
}

} // namespace host
