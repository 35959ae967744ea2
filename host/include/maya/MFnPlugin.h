#pragma once
// Function set on the plug-in being loaded: its identity, and the commands it adds to the host.
#include <maya/MFnBase.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

// Marks initializePlugin/uninitializePlugin for export, as plug-ins declare them.
#ifndef PLUGIN_EXPORT
#define PLUGIN_EXPORT __attribute__((visibility("default")))
#endif

class MFnPlugin : public MFnBase {
public:
    MFnPlugin();
    MFnPlugin(MObject& object, const char* vendor = "Unknown", const char* version = "Unknown",
              const char* requiredApiVersion = "Any", MStatus* ReturnStatus = 0L);
    MFnPlugin(const MFnPlugin&) = delete;
    MFnPlugin& operator=(const MFnPlugin&) = delete;
    ~MFnPlugin() override;

    MFn::Type type() const override { return MFn::kPlugin; }

    MString vendor(MStatus* ReturnStatus = NULL) const;
    MString version(MStatus* ReturnStatus = NULL) const;
    MString apiVersion(MStatus* ReturnStatus = NULL) const;
    MString name(MStatus* ReturnStatus = NULL) const;
    MString loadPath(MStatus* ReturnStatus = NULL) const;

    MStatus registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                            MCreateSyntaxFunction createSyntaxFunction = nullptr);
    MStatus deregisterCommand(const MString& commandName);
    MStatus registerContextCommand(const MString& commandName, MCreatorFunction creatorFunction);
    MStatus deregisterContextCommand(const MString& commandName);
};

// The entry points every plug-in defines.
PLUGIN_EXPORT MStatus initializePlugin(MObject obj);
PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj);
