#pragma once
// The groups of built-in commands, one file each; registerBuiltinCommands adds them all.
#include "lang/CommandTable.h"

namespace host {

void registerNodeCommands(CommandTable& table);              // createNode, rename, delete
void registerParentCommand(CommandTable& table);             // parent
void registerSelectCommands(CommandTable& table);            // select, ls
void registerSetAttrCommand(CommandTable& table);            // setAttr
void registerGetAttrCommand(CommandTable& table);            // getAttr
void registerAddAttrCommand(CommandTable& table);            // addAttr
void registerAliasCommand(CommandTable& table);              // aliasAttr
void registerConnectCommands(CommandTable& table);           // connectAttr, disconnectAttr
void registerMultiCommands(CommandTable& table);             // removeMultiInstance
void registerSetsCommand(CommandTable& table);               // sets
void registerPolyCommands(CommandTable& table);              // polyCube, polyPlane, polySphere, polyCylinder
void registerPolySelectCommand(CommandTable& table);         // polySelect
void registerMiscCommands(CommandTable& table);              // optionVar, currentTime
void registerNodeQueryCommands(CommandTable& table);         // objExists, nodeType, objectType
void registerListRelativesCommand(CommandTable& table);      // listRelatives
void registerListConnectionsCommand(CommandTable& table);    // listConnections
void registerListAttrCommand(CommandTable& table);           // listAttr
void registerPolyEvaluateCommand(CommandTable& table);       // polyEvaluate
void registerPolyInfoCommand(CommandTable& table);           // polyInfo
void registerMoveCommands(CommandTable& table);              // move, xform
void registerPolyColorPerVertexCommand(CommandTable& table); // polyColorPerVertex
void registerToolCommands(CommandTable& table); // setToolTo, currentCtx, toolEvent, interface procedures

} // namespace host
