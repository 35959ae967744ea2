#include <maya/MSyntax.h>

#include "api/command/SyntaxData.h"

namespace {

bool validName(const char* name) {
    return name && name[0] != '\0' && std::string_view(name) != "-";
}

// Adds or removes one of the built-in no-argument flags (-query, -edit).
void setModeFlag(host::SyntaxData& data, const char* shortName, const char* longName, bool on) {
    const int index = data.findFlag(longName);
    if (on && index < 0 && data.findFlag(shortName) < 0) data.addFlag({shortName, longName, {}, false});
    if (!on && index >= 0) data.removeFlag(static_cast<std::size_t>(index));
}

} // namespace

MSyntax::MSyntax() : data_(std::make_shared<host::SyntaxData>()) {}
MSyntax::MSyntax(const MSyntax& other) = default;
MSyntax& MSyntax::operator=(const MSyntax& rhs) = default;
MSyntax::~MSyntax() = default;

MStatus MSyntax::addFlag(const char* shortName, const char* longName, MArgType argType1, MArgType argType2,
                         MArgType argType3, MArgType argType4, MArgType argType5, MArgType argType6) {
    if (!validName(shortName) || !validName(longName)) return MS::kInvalidParameter;
    if (data_->findFlag(shortName) >= 0 || data_->findFlag(longName) >= 0) return MS::kFailure;
    host::SyntaxFlag flag{host::dashed(shortName), host::dashed(longName), {}, false};
    for (MArgType type : {argType1, argType2, argType3, argType4, argType5, argType6}) {
        if (type == kNoArg) break;
        if (type <= kInvalidArgType || type >= kLastArgType) return MS::kInvalidParameter;
        flag.argTypes.push_back(type);
    }
    data_->addFlag(std::move(flag));
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagMultiUse(const char* flag) {
    const int index = flag ? data_->findFlag(flag) : -1;
    if (index < 0) return MS::kInvalidParameter;
    data_->setMultiUse(static_cast<std::size_t>(index));
    return MS::kSuccess;
}

void MSyntax::useSelectionAsDefault(bool useSelectionList) {
    data_->selectionAsDefault = useSelectionList;
}

MStatus MSyntax::setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects) {
    return setObjectType(objectFormat, minimumObjects, UINT_MAX);
}

MStatus MSyntax::setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects,
                               unsigned int maximumObjects) {
    if (objectFormat <= kInvalidObjectFormat || objectFormat >= kLastObjectFormat)
        return MS::kInvalidParameter;
    if (minimumObjects > maximumObjects) return MS::kInvalidParameter;
    data_->objectFormat = objectFormat;
    data_->minObjects = minimumObjects;
    data_->maxObjects = maximumObjects;
    return MS::kSuccess;
}

MStatus MSyntax::setMinObjects(unsigned int minimumObjectCount) {
    if (minimumObjectCount > data_->maxObjects) return MS::kInvalidParameter;
    data_->minObjects = minimumObjectCount;
    return MS::kSuccess;
}

unsigned int MSyntax::minObjects() const {
    return data_->minObjects;
}

MStatus MSyntax::setMaxObjects(unsigned int maximumObjectCount) {
    if (maximumObjectCount < data_->minObjects) return MS::kInvalidParameter;
    data_->maxObjects = maximumObjectCount;
    return MS::kSuccess;
}

unsigned int MSyntax::maxObjects() const {
    return data_->maxObjects;
}

void MSyntax::enableQuery(bool supportsQuery) {
    setModeFlag(*data_, host::kQueryShort, host::kQueryLong, supportsQuery);
}

void MSyntax::enableEdit(bool supportsEdit) {
    setModeFlag(*data_, host::kEditShort, host::kEditLong, supportsEdit);
}

bool MSyntax::canQuery() const {
    return data_->findFlag(host::kQueryLong) >= 0;
}

bool MSyntax::canEdit() const {
    return data_->findFlag(host::kEditLong) >= 0;
}

void MSyntax::clear() {
    *data_ = host::SyntaxData();
}
