#include "Batch.h"

#include "PythonScript.h"

#include "lang/Tokenizer.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <iterator>
#include <memory>

namespace app {

namespace {

constexpr const char* standardInput = "-";

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// Reads a whole file; on failure `error` says why.
bool readFile(const std::string& path, std::string& text, std::string& error) {
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        error = std::strerror(errno);
        return false;
    }
    text.clear();
    char buffer[1 << 16];
    size_t count = 0;
    while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) text.append(buffer, count);
    if (std::ferror(file.get())) {
        error = std::strerror(errno);
        return false;
    }
    return true;
}

bool isFile(const Input& input) {
    return input.kind != Input::Kind::Commands;
}

std::string sourceName(const Input& input) {
    if (input.kind == Input::Kind::Commands) return "-c";
    return input.text == standardInput ? "standard input" : input.text;
}

// The statement that opens a scene, with the path quoted for the command language.
std::string openSceneCommand(const std::string& path) {
    std::string command = "file -f -o \"";
    for (char c : path) {
        if (c == '"' || c == '\\') command += '\\';
        command += c;
    }
    return command + "\";";
}

// Runs standard input statement by statement as lines arrive, so that a program can drive talven
// line by line; false when a statement failed. With stopOnError, reading ends there.
bool runStandardInput(host::Interpreter& interpreter, const host::StatementCallback& callback) {
    bool allOk = true;
    std::string pending, line;
    const auto runPending = [&] {
        allOk = interpreter.run(pending, "standard input", callback) && allOk;
        pending.clear();
        return allOk || !interpreter.stopOnError();
    };
    while (std::getline(std::cin, line)) {
        pending += line;
        pending += '\n';
        if (host::isComplete(pending) && pending.find_first_not_of(" \t\r\n") != std::string::npos &&
            !runPending())
            return false;
    }
    if (pending.find_first_not_of(" \t\r\n") != std::string::npos) runPending();
    return allOk;
}

} // namespace

bool inputsReadable(const std::vector<Input>& inputs) {
    for (const Input& input : inputs) {
        if (!isFile(input) || input.text == standardInput) continue;
        const File file(std::fopen(input.text.c_str(), "rb"));
        // Reading one byte also rejects directories, which open without complaint.
        if (file && (std::fgetc(file.get()) != EOF || !std::ferror(file.get()))) continue;
        std::cerr << "talven: cannot read " << input.text << ": " << std::strerror(errno) << '\n';
        return false;
    }
    return true;
}

int runBatch(const std::vector<Input>& inputs, host::Interpreter& interpreter, Reporter& reporter) {
    bool allOk = true;
    for (const Input& input : inputs) {
        if (input.kind == Input::Kind::Python) {
            const bool ok = runPythonScript(input.text, input.arguments);
            allOk = allOk && ok;
            if (ok || !interpreter.stopOnError()) continue;
            std::cerr << "talven: stopped after " << input.text << " failed\n";
            return exitCommandFailed;
        }
        std::string text;
        std::string error;
        const bool streamed = input.kind == Input::Kind::Script && input.text == standardInput;
        if (input.kind == Input::Kind::Commands || streamed) {
            text = input.text;
        } else if (input.kind == Input::Kind::Scene) {
            text = openSceneCommand(input.text);
        } else if (!readFile(input.text, text, error)) {
            std::cerr << "talven: cannot read " << input.text << ": " << error << '\n';
            return exitUsage;
        }
        const std::string source = sourceName(input);
        std::string failedCommand;
        int failedLine = 0;
        const host::StatementCallback report = [&](const host::Outcome& outcome) {
            reporter.report(outcome);
            if (outcome.ok) return;
            failedCommand = outcome.command;
            failedLine = outcome.line;
        };
        const bool ok =
            streamed
                ? runStandardInput(interpreter, report)
                : interpreter.run(text, input.kind == Input::Kind::Script ? source : std::string(), report);
        allOk = allOk && ok;
        if (!ok && interpreter.stopOnError()) {
            std::cerr << "talven: stopped after \"" << failedCommand << "\" failed (" << source;
            if (failedLine > 0) std::cerr << " line " << failedLine;
            std::cerr << ")\n";
            return exitCommandFailed;
        }
    }
    return allOk ? exitSuccess : exitCommandFailed;
}

} // namespace app
