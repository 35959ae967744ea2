#include "commands/InterfaceProcedures.h"

#include "commands/ArgReader.h"

namespace host {

namespace {

std::vector<std::string>& calls() {
    static std::vector<std::string> recorded;
    return recorded;
}

CommandHandler recordingProcedure(const char* name) {
    return [name](Invocation& inv) {
        ArgReader args(name, inv.statement.args);
        if (!args.parse({})) return false;
        if (!args.positional().empty()) return args.fail("takes no arguments.");
        calls().emplace_back(name);
        return true;
    };
}

} // namespace

void registerInterfaceProcedures(CommandTable& table) {
    table.add("talvenSculpt_compareSculpt", recordingProcedure("talvenSculpt_compareSculpt"));
    table.add("talvenSculpt_resetCompare", recordingProcedure("talvenSculpt_resetCompare"));
}

const std::vector<std::string>& interfaceProcedureCalls() {
    return calls();
}

void clearInterfaceProcedureCalls() {
    calls().clear();
}

} // namespace host
