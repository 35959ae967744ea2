#pragma once
// The plug-in side of reading a delta file: what the scanner picks up is either listed (one entry
// per target block, "index,name,weight:weight...") or written into a blend shape node, where a new
// target index also gets a weight alias and a zero weight.
#include "core/json/DeltaFileScanner.h"

#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <string>
#include <vector>

namespace common {

// The vertex indices of the first item of the active selection when it carries vertex components;
// empty otherwise.
std::vector<int> selectedVertexFilter();

class DeltaImport : public json::DeltaScanHandler {
public:
    // With writing, complete items are set on the node; the list gets an entry per block either way.
    DeltaImport(const MObject& blendShape, bool writing, MStringArray& list);

    void targetKey(int targetIndex) override;
    void channelName(const std::string& name) override;
    void itemKey(double weight, bool afterItem) override;
    void item(int targetIndex, int itemIndex, const std::string& channelName,
              const std::vector<int>& components, const std::vector<double>& xyz) override;
    void invalidItem(int targetIndex, double weight) override;
    void blockClosed() override;

private:
    bool targetExists(int targetIndex) const;
    void addWeightAlias(int targetIndex, const std::string& channelName) const;

    MObject blendShape;
    bool writing;
    MStringArray& list;
    MString listEntry;
    // Reused from item to item, so that large items do not allocate afresh.
    MIntArray ids;
    MPointArray points;
};

} // namespace common
