// MGlobal: the active selection.
#include <maya/MGlobal.h>

#include "engine/Scene.h"

#include <maya/MSelectionList.h>

MStatus MGlobal::getActiveSelectionList(MSelectionList& dest, bool) {
    dest.items() = host::scene().activeSelection();
    return MS::kSuccess;
}

MStatus MGlobal::setActiveSelectionList(const MSelectionList& src, ListAdjustment adjustment) {
    MSelectionList current;
    current.items() = host::scene().activeSelection();
    switch (adjustment) {
    case kReplaceList:
        current = src;
        break;
    case kAddToList:
        current.merge(src, MSelectionList::kMergeNormal);
        break;
    case kXORWithList:
        current.merge(src, MSelectionList::kXORWithList);
        break;
    case kRemoveFromList:
        current.merge(src, MSelectionList::kRemoveFromList);
        break;
    case kAddToHeadOfList: {
        MSelectionList head = src;
        head.merge(current, MSelectionList::kMergeNormal);
        current = head;
        break;
    }
    default:
        return MS::kInvalidParameter;
    }
    host::scene().activeSelection() = current.items();
    return MS::kSuccess;
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment listAdjustment) {
    MSelectionList matches;
    if (matches.add(name) != MS::kSuccess) return MS::kFailure;
    return setActiveSelectionList(matches, listAdjustment);
}

MStatus MGlobal::clearSelectionList() {
    host::scene().activeSelection().clear();
    return MS::kSuccess;
}
