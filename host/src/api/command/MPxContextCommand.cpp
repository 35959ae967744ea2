#include <maya/MPxContextCommand.h>

MPxContextCommand::MPxContextCommand() = default;
MPxContextCommand::~MPxContextCommand() = default;

MStatus MPxContextCommand::doEditFlags() {
    return MS::kSuccess;
}
MStatus MPxContextCommand::doQueryFlags() {
    return MS::kSuccess;
}
MPxContext* MPxContextCommand::makeObj() {
    return nullptr;
}
MStatus MPxContextCommand::appendSyntax() {
    return MS::kSuccess;
}

MSyntax MPxContextCommand::syntax() const {
    return syntax_;
}

MArgParser* MPxContextCommand::parser() {
    return &parser_;
}
