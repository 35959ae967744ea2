// The interpreter and argument parser on one statement of two million flag uses (a -wi/-w pair per
// vertex of a million-vertex mesh, as paint tools send them), step by step and end to end through
// a plug-in command that only reads its arguments.
#include <benchmark/benchmark.h>

#include <maya/MArgDatabase.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MSyntax.h>

#include "api/command/PluginCommand.h"
#include "api/command/StatementArgs.h"
#include "engine/Scene.h"
#include "lang/Tokenizer.h"
#include "session/Session.h"

#include <string>

namespace {

constexpr int kPairs = 1000000;

const std::string& pairStatement() {
    static const std::string text = [] {
        std::string command = "benchReadPairs -sw";
        command.reserve(static_cast<std::size_t>(kPairs) * 24);
        for (int v = 0; v < kPairs; ++v) command += " -wi " + std::to_string(v) + " -w 0.5";
        return command + " benchBlend";
    }();
    return text;
}

MSyntax pairSyntax() {
    MSyntax syntax;
    syntax.addFlag("-sw", "-setWeights");
    syntax.addFlag("-wi", "-weightIndex", MSyntax::kLong);
    syntax.addFlag("-w", "-weight", MSyntax::kDouble);
    syntax.makeFlagMultiUse("-wi");
    syntax.makeFlagMultiUse("-w");
    for (const char* name : {"-a", "-b", "-c", "-d", "-f", "-g", "-h", "-k", "-l", "-m", "-n", "-o"})
        syntax.addFlag(name, (std::string(name) + "Long").c_str(), MSyntax::kString);
    syntax.setObjectType(MSyntax::kStringObjects, 1, 1);
    return syntax;
}

// Reads every use the way the blend-shape commands do.
MStatus readPairs(const MArgList& args, double& sum) {
    MStatus status;
    MArgDatabase data(pairSyntax(), args, &status);
    if (!status) return status;
    MArgList use;
    for (unsigned int i = 0, n = data.numberOfFlagUses("-wi"); i < n; ++i) {
        data.getFlagArgumentList("-wi", i, use);
        sum += use.asInt(0);
    }
    for (unsigned int i = 0, n = data.numberOfFlagUses("-w"); i < n; ++i) {
        data.getFlagArgumentList("-w", i, use);
        sum += use.asDouble(0);
    }
    return MS::kSuccess;
}

class ReadPairs : public MPxCommand {
public:
    static void* creator() { return new ReadPairs; }
    MStatus doIt(const MArgList& args) override {
        double sum = 0;
        const MStatus status = readPairs(args, sum);
        benchmark::DoNotOptimize(sum);
        return status;
    }
    MStatus undoIt() override { return MS::kSuccess; }
    bool isUndoable() const override { return true; }
};

host::Statement readStatement(host::ArgForm form) {
    host::Tokenizer tokenizer(pairStatement());
    host::Statement statement;
    if (!tokenizer.readCommand(statement) || !tokenizer.readArguments(statement, form)) std::abort();
    return statement;
}

void tokenizeWords(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(readStatement(host::ArgForm::Words));
}
BENCHMARK(tokenizeWords)->Unit(benchmark::kMillisecond)->Iterations(5);

void tokenizeTokens(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(readStatement(host::ArgForm::Tokens));
}
BENCHMARK(tokenizeTokens)->Unit(benchmark::kMillisecond)->Iterations(5);

void startSessionOnce() {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
}

void parseAndReadUses(benchmark::State& state) {
    startSessionOnce();
    const MArgList args = host::argListOf(readStatement(host::ArgForm::Words));
    for (auto _ : state) {
        double sum = 0;
        if (!readPairs(args, sum)) std::abort();
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(parseAndReadUses)->Unit(benchmark::kMillisecond)->Iterations(5);

void undoText(benchmark::State& state) {
    const MArgList args = host::argListOf(readStatement(host::ArgForm::Words));
    for (auto _ : state) benchmark::DoNotOptimize(host::commandTextOf("benchReadPairs", args));
}
BENCHMARK(undoText)->Unit(benchmark::kMillisecond)->Iterations(5);

void executePairCommand(benchmark::State& state) {
    startSessionOnce();
    static const bool added = host::commandTable().add(
        "benchReadPairs", host::pluginCommandHandler(ReadPairs::creator, pairSyntax()), host::ArgForm::Words);
    (void)added;
    for (auto _ : state) {
        if (!MGlobal::executeCommand(MString(pairStatement().c_str()), false, true)) std::abort();
    }
}
BENCHMARK(executePairCommand)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
