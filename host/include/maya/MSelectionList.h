#pragma once
// An ordered list of selected nodes, DAG paths with components, and plugs.
#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>
#include <vector>

class MStringArray;
class MUuid;

namespace host {
struct SelectionItem;
}

class MSelectionList {
public:
    enum MergeStrategy { kMergeNormal = 0, kXORWithList, kRemoveFromList };

    MSelectionList();
    MSelectionList(const MSelectionList& src);
    MSelectionList& operator=(const MSelectionList& src);
    ~MSelectionList();

    MStatus clear();
    bool isEmpty(MStatus* ReturnStatus = NULL) const;
    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MStatus getDependNode(unsigned int index, MObject& depNode) const;
    MStatus getDagPath(unsigned int index, MDagPath& dagPath, MObject& component = MObject::kNullObj) const;
    MStatus getPlug(unsigned int index, MPlug& plug) const;
    MStatus getPlug(unsigned int index, bool convertComponents, MPlug& plug) const;
    MStatus getSelectionStrings(MStringArray& array) const;
    MStatus getSelectionStrings(unsigned int index, MStringArray& array) const;
    MStatus add(const MObject& object, const bool mergeWithExisting = false);
    MStatus add(const MDagPath& object, const MObject& component = MObject::kNullObj,
                const bool mergeWithExisting = false);
    MStatus add(const MString& matchString, const bool searchChildNamespacesToo = false);
    MStatus add(const MPlug& plug, const bool mergeWithExisting = false);
    MStatus add(const MUuid& uuid, bool mergeWithExisting = false);
    MStatus merge(const MSelectionList& other, const MergeStrategy strategy = kMergeNormal);
    MStatus remove(unsigned int index);
    bool hasItem(const MObject& item, MStatus* ReturnStatus = NULL) const;

    // Host access, not part of Maya's interface: never used by plugin code.
    std::vector<host::SelectionItem>& items();
    const std::vector<host::SelectionItem>& items() const;

private:
    std::unique_ptr<std::vector<host::SelectionItem>> items_;
};
