#pragma once

#include <string>

namespace core {

// Where the symmetry algorithms send their messages. Numbers that are not integers are formatted by the
// receiver, so that they read exactly as the host's own strings print them.
class SymmetryReport {
public:
    virtual ~SymmetryReport() = default;
    virtual void info(const std::string& text) = 0;
    virtual void warning(const std::string& text) = 0;
    virtual void error(const std::string& text) = 0;
    virtual std::string number(double value) const = 0;
};

} // namespace core
