#pragma once
// Python scripts run by the talven program: an embedded interpreter, started at the first script,
// with the talven module built in so scripts act on the program's own session.
#include <string>
#include <vector>

namespace app {

// Runs the file as python runs a script: a fresh __main__, sys.argv = [path, arguments...], and
// `talven` imported. A traceback is printed for an uncaught exception; false then, and for
// sys.exit with a non-zero status.
bool runPythonScript(const std::string& path, const std::vector<std::string>& arguments);

} // namespace app
