#include "Options.h"

#include <cctype>
#include <string_view>

namespace app {

namespace {

// Whether the path ends in '.' and `extension` (lower case), in any case.
bool hasExtension(std::string_view path, std::string_view extension) {
    if (path.size() <= extension.size()) return false;
    const std::string_view suffix = path.substr(path.size() - extension.size() - 1);
    if (suffix[0] != '.') return false;
    for (std::size_t k = 0; k < extension.size(); ++k)
        if (std::tolower(static_cast<unsigned char>(suffix[k + 1])) != extension[k]) return false;
    return true;
}

Input::Kind inputKind(std::string_view path) {
    if (hasExtension(path, "ma")) return Input::Kind::Scene;
    if (hasExtension(path, "py")) return Input::Kind::Python;
    return Input::Kind::Script;
}

} // namespace

bool parseOptions(int argc, const char* const* argv, Options& options, std::string& error) {
    bool optionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (optionsEnded || arg.size() < 2 || arg[0] != '-') {
            const Input::Kind kind = inputKind(arg);
            // A Python script given first takes every following argument, as python does.
            if (kind == Input::Kind::Python && options.inputs.empty()) {
                options.inputs.push_back({kind, std::string(arg), {argv + i + 1, argv + argc}});
                return true;
            }
            options.inputs.push_back({kind, std::string(arg), {}});
        } else if (arg == "--") {
            optionsEnded = true;
        } else if (arg == "-h" || arg == "--help") {
            options.help = true;
        } else if (arg == "--json") {
            options.json = true;
        } else if (arg == "--keep-going") {
            options.keepGoing = true;
        } else if (arg == "--strict") {
            options.strict = true;
        } else if (arg == "-c") {
            if (++i == argc) {
                error = "-c needs the commands to run, e.g. -c \"ls -type mesh\"";
                return false;
            }
            options.inputs.push_back({Input::Kind::Commands, argv[i], {}});
        } else {
            error = "unknown option " + std::string(arg) + " (see talven --help)";
            return false;
        }
    }
    return true;
}

std::string helpText() {
    return R"(talven - run Talven blend-shape commands without Maya

Usage:
  talven [options] [inputs...]

Inputs run in the order given:
  scene.ma          a Maya ASCII scene, opened as by  file -f -o "scene.ma"
  script.py         a Python script, run with the talven module imported and sys.argv set; given
                    first, it takes every following argument as its sys.argv (talven script.py a b)
  script.mel        any other file: a script of commands, run statement by statement
  -c "commands"     command text given on the command line
  -                 a script read from standard input, each statement run as soon as it is complete

With no inputs, talven reads commands from standard input: an interactive shell when it is a
terminal (prompt "talven> ", history in ~/.talven_history, "quit", "exit" or Ctrl-D to leave),
otherwise a script.

Options:
  -c <commands>     run the given commands (may be repeated and mixed with files)
  --json            print one JSON object per statement instead of script-editor text
  --keep-going      do not stop at the first command that fails
  --strict          a command that reports an error fails, even with a success status
  -h, --help        print this help and exit
  --                treat every following argument as a file, even if it starts with '-'

Commands:
  Statements look like  command -flag value ... ;  Words are separated by blanks, strings are
  "double-quoted" (escapes \" \\ \n \t \r), // and /* */ are comments, and a statement may span
  lines. In the shell a statement runs once it ends with ';' (an empty line runs it anyway).

Output:
  Script-editor text (default): messages appear as they are issued, results after each command:
      // Result: 0 1 5 //
      // Warning: ... //
      // Error: ... //
      information lines as they are
  JSON (--json): one line per statement:
      {"command": "...", "ok": true, "result": <number|string|bool|array|null>,
       "messages": [{"kind": "error"|"warning"|"info", "text": "..."}]}

Exit status:
  0  every command succeeded (warnings and errors printed by a succeeding command do not count,
     unless --strict is given)
  1  a command returned a failure status (or, with --strict, reported an error); the run stops
     there unless --keep-going is given
  2  bad arguments, an unreadable input file, or the session could not start

Examples:
  talven face.ma -c "kv_getBlendShapeIndices blendShape1"
  talven face.ma fix_weights.mel -c "file -s"
  talven face.ma fix_weights.py -c "file -s"
  talven export_weights.py face.ma weights.npy
  talven --json --keep-going face.ma checks.mel > report.jsonl
  echo "polyCube; ls -type mesh;" | talven
)";
}

} // namespace app
