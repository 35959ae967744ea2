#include "CommandText.h"

#include "FlagShape.h"

#include "lang/Quoting.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>

namespace py = pybind11;

namespace pytalven {

namespace {

bool isNumberType(MSyntax::MArgType type) {
    return type == MSyntax::kDouble || type == MSyntax::kDistance || type == MSyntax::kAngle ||
           type == MSyntax::kTime;
}

bool isIntegerType(MSyntax::MArgType type) {
    return type == MSyntax::kLong || type == MSyntax::kUnsigned;
}

const char* typeDescription(MSyntax::MArgType type) {
    if (isNumberType(type)) return "a number";
    if (isIntegerType(type)) return "an integer";
    if (type == MSyntax::kBoolean) return "a boolean";
    return "a string";
}

std::string pythonTypeName(const py::handle& value) {
    return py::str(py::type::handle_of(value).attr("__name__"));
}

// Whether the value fits an argument of the declared type; strings never stand for numbers.
bool fits(const py::handle& value, MSyntax::MArgType type) {
    const bool isBool = py::isinstance<py::bool_>(value);
    const bool isInt = py::isinstance<py::int_>(value);
    if (isNumberType(type)) return isInt || py::isinstance<py::float_>(value);
    if (isIntegerType(type)) return isInt && !isBool;
    if (type == MSyntax::kBoolean) return isInt;
    return py::isinstance<py::str>(value);
}

// Appends one value as a word: strings quoted, so that "-x" stays a string; numbers as written.
void appendWord(std::string& text, const py::handle& value, const std::string& where) {
    text += ' ';
    if (py::isinstance<py::str>(value)) {
        host::appendQuoted(text, value.cast<std::string>());
    } else if (py::isinstance<py::bool_>(value)) {
        text += value.cast<bool>() ? "1" : "0";
    } else if (py::isinstance<py::int_>(value)) {
        // Out of the 64-bit range the cast raises, which is the clear message we want.
        text += std::to_string(value.cast<long long>());
    } else if (py::isinstance<py::float_>(value)) {
        const double number = value.cast<double>();
        if (!std::isfinite(number))
            throw py::value_error(where + ": " + py::repr(value).cast<std::string>() +
                                  " is not a finite number");
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.17g", number);
        text += buffer;
    } else {
        throw py::type_error(where + ": cannot pass a value of type " + pythonTypeName(value) +
                             " (give a str, int, float or bool)");
    }
}

void appendObjects(std::string& text, const py::args& objects) {
    for (const py::handle& object : objects) {
        if (py::isinstance<py::list>(object) || py::isinstance<py::tuple>(object)) {
            for (const py::handle& item : object) appendWord(text, item, "object");
        } else {
            appendWord(text, object, "object");
        }
    }
}

// One use of a flag with its arguments, checked against the declared types when known.
void appendUse(std::string& text, const std::string& flag, const FlagShape& shape, const py::handle& value) {
    const std::string where = "flag " + flag;
    const bool isTuple = py::isinstance<py::tuple>(value) || py::isinstance<py::list>(value);
    if (py::isinstance<py::bool_>(value) && !shape.booleanArgument &&
        (!shape.known || shape.argTypes.empty())) {
        if (value.cast<bool>()) text += " -" + flag;
        return;
    }
    if (shape.known && shape.argTypes.empty())
        throw py::type_error(where + " takes no value: pass True or False, not " + pythonTypeName(value));
    const py::sequence args =
        isTuple ? py::reinterpret_borrow<py::sequence>(value) : py::sequence(py::make_tuple(value));
    if (shape.known && args.size() != shape.argTypes.size())
        throw py::type_error(where + " takes " + std::to_string(shape.argTypes.size()) + " value(s), got " +
                             std::to_string(args.size()));
    text += " -" + flag;
    for (std::size_t k = 0; k < args.size(); ++k) {
        const py::handle arg = args[k];
        if (shape.known && !fits(arg, shape.argTypes[k]))
            throw py::type_error(where + " needs " + typeDescription(shape.argTypes[k]) + ", got " +
                                 pythonTypeName(arg));
        appendWord(text, arg, where);
    }
}

void appendFlag(std::string& text, const std::string& command, const std::string& flag,
                const py::handle& value) {
    const bool validName = !flag.empty() && std::isalpha(static_cast<unsigned char>(flag[0])) &&
                           std::all_of(flag.begin(), flag.end(), [](char c) {
                               return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
                           });
    if (!validName) throw py::type_error("\"" + flag + "\" is not a flag name");
    if (value.is_none()) throw py::type_error("flag " + flag + ": None is not a value");
    const FlagShape shape = flagShape(command, flag);
    // A list repeats a multi-use flag; a flag of several arguments takes it as their values.
    const bool repeats =
        py::isinstance<py::list>(value) && (!shape.known || shape.multiUse || shape.argTypes.size() <= 1);
    if (!repeats) return appendUse(text, flag, shape, value);
    if (shape.known && !shape.multiUse) throw py::type_error("flag " + flag + " takes one value, not a list");
    for (const py::handle& item : value) appendUse(text, flag, shape, item);
}

} // namespace

std::string commandText(const std::string& command, const py::args& objects, const py::kwargs& flags) {
    std::string text = command;
    for (const auto& [key, value] : flags) appendFlag(text, command, py::str(key), value);
    appendObjects(text, objects);
    return text;
}

} // namespace pytalven
