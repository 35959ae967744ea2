#pragma once
// The command line of the talven program.
#include <string>
#include <vector>

namespace app {

enum ExitCode { exitSuccess = 0, exitCommandFailed = 1, exitUsage = 2 };

struct Input {
    enum class Kind { Scene, Script, Commands, Python };
    Kind kind;
    std::string text;                   // a path, or command text for -c
    std::vector<std::string> arguments; // a Python script's sys.argv after its own path
};

struct Options {
    bool help = false;
    bool json = false;
    bool keepGoing = false;
    bool strict = false;       // an error message fails its statement
    std::vector<Input> inputs; // in the order given
};

// False with a one-line reason for arguments that make no sense.
bool parseOptions(int argc, const char* const* argv, Options& options, std::string& error);

std::string helpText();

} // namespace app
