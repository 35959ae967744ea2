// talven: runs scene files, scripts and commands in the embedded host, or an interactive shell.
#include "Batch.h"
#include "Options.h"
#include "Reporter.h"
#include "Shell.h"

#include "engine/HugePages.h"
#include "engine/MessageLog.h"
#include "engine/Scene.h"
#include "lang/CommandTable.h"
#include "lang/Interpreter.h"
#include "session/Session.h"

#include <iostream>
#include <unistd.h>

int main(int argc, char** argv) {
    host::restartWithHugePageHeap(argv);
    app::Options options;
    std::string error;
    if (!app::parseOptions(argc, argv, options, error)) {
        std::cerr << "talven: " << error << '\n';
        return app::exitUsage;
    }
    if (options.help) {
        std::cout << app::helpText();
        return app::exitSuccess;
    }
    const bool interactive = options.inputs.empty() && isatty(STDIN_FILENO);
    if (options.inputs.empty() && !interactive) options.inputs.push_back({app::Input::Kind::Script, "-", {}});
    if (!app::inputsReadable(options.inputs)) return app::exitUsage;

    // The process-wide table, log and interpreter: the plug-in and MGlobal use the same ones.
    host::MessageLog& log = host::messageLog();
    app::Reporter reporter(log, options.json);
    if (!host::startSession(host::commandTable(), log)) {
        std::cerr << "talven: the session could not start\n";
        return app::exitUsage;
    }
    reporter.startStatements();
    host::Interpreter& interpreter = host::interpreter();
    interpreter.setStopOnError(!options.keepGoing);
    interpreter.setErrorsFail(options.strict);
    if (interactive) return app::runShell(interpreter, reporter, !options.json);
    return app::runBatch(options.inputs, interpreter, reporter);
}
