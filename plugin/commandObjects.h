#pragma once
// Finding the objects a command works on: the node given as the command's object (or taken from
// the active selection) and mesh shapes named by flags.
#include <maya/MArgDatabase.h>
#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace common {

// The first object of the call when it has the given type. Shows "Error getting objects" and
// returns the failing status when the objects cannot be read, shows missingMessage for an empty
// list and wrongTypeMessage for a node of another type (both with failure). Further objects are
// ignored.
MStatus getCommandNode(const MArgDatabase& argData, MFn::Type type, const char* missingMessage,
                       const char* wrongTypeMessage, MObject& node);

// Reads an index flag given as an integer into an unsigned index. A negative number wraps around
// (as a C++ conversion does) to an index no item has, so the command reports that item as it would
// any other rather than stopping without a word.
MStatus getIndexFlag(const MArgDatabase& argData, const char* flag, unsigned int& index);

// The blend shape node of the call, with the messages every blend shape command shows.
MStatus getBlendShapeNode(const MArgDatabase& argData, MObject& node);

// The name of a selection list entry as the list prints it, or the fallback when it has none.
MString selectionName(const MSelectionList& list, unsigned int index, const MString& fallback);

// Resolves a name that must denote a mesh shape (a transform does not qualify). Otherwise shows
// "<name> is not a mesh object." and returns false.
bool getMeshShape(const MString& name, MDagPath& path);

} // namespace common
