#include "nodes/NodeTypes.h"

namespace host {

namespace {

std::vector<AttrPtr> geometryFilterAttrs() {
    return attrs(keyable(floatAttr("envelope", "en", 1.0)),
                 multi(compoundAttr("input", "ip",
                                    attrs(dataAttr("inputGeometry", "ig", DataKind::Mesh, "mesh"),
                                          intAttr("groupId", "gi", 0)))),
                 multi(dataAttr("outputGeometry", "og", DataKind::Mesh, "mesh")),
                 multi(dataAttr("originalGeometry", "orggeom", DataKind::Mesh, "mesh")));
}

AttrPtr weightMap(const std::string& longName, const std::string& shortName) {
    return multi(floatAttr(longName, shortName, 1.0));
}

} // namespace

void addDeformerTypes(std::vector<NodeTypeDef>& out) {
    out.push_back(typeDef("geometryFilter", "node", MFn::kGeometryFilt, geometryFilterAttrs()));
    out.push_back(typeDef("weightGeometryFilter", "geometryFilter", MFn::kWeightGeometryFilt,
                          attrs(multi(compoundAttr("weightList", "wl", attrs(weightMap("weights", "w")))))));

    // The blend shape's target data: inputTarget[geometry].inputTargetGroup[target].inputTargetItem[item].
    auto item = multi(compoundAttr(
        "inputTargetItem", "iti",
        attrs(dataAttr("inputGeomTarget", "igt", DataKind::Mesh, "mesh"),
              dataAttr("inputRelativePointsTarget", "irpt", DataKind::PointArray, "pointArray"),
              dataAttr("inputRelativeComponentsTarget", "irct", DataKind::ComponentList, "componentList"),
              dataAttr("inputPointsTarget", "ipt", DataKind::PointArray, "pointArray"),
              dataAttr("inputComponentsTarget", "ict", DataKind::ComponentList, "componentList"))));
    auto group = multi(compoundAttr(
        "inputTargetGroup", "itg",
        attrs(std::move(item), weightMap("targetWeights", "tw"), intAttr("normalizationId", "nid", 0),
              enumAttr("postDeformersMode", "pdm", 0), matrixAttr("targetMatrix", "tmx"))));
    auto inputTarget = multi(compoundAttr(
        "inputTarget", "it",
        attrs(std::move(group), weightMap("baseWeights", "bw"), intAttr("sculptTargetIndex", "sti", -1),
              dataAttr("paintTargetWeights", "pwt", DataKind::DoubleArray, "doubleArray"),
              intAttr("paintTargetIndex", "pti", -1))));
    auto inbetweenInfo =
        multi(compoundAttr("inbetweenInfoGroup", "ibig",
                           attrs(multi(compoundAttr(
                               "inbetweenInfo", "ibi",
                               attrs(stringAttr("inbetweenTargetName", "ibtn"),
                                     multi(compoundAttr("interpolationCurve", "itc",
                                                        attrs(floatAttr("interpolationCurvePosition", "itcp"),
                                                              floatAttr("interpolationCurveValue", "itcv")),
                                                        "float2"))))))));
    auto baseOrigin = triple("baseOrigin", "bo", AttrType::Double);
    out.push_back(typeDef(
        "blendShape", "geometryFilter", MFn::kBlendShape,
        attrs(keyable(multi(floatAttr("weight", "w", 0.0))), std::move(inputTarget), std::move(inbetweenInfo),
              enumAttr("origin", "or", 1), std::move(baseOrigin), boolAttr("parallelBlender", "pb", false),
              boolAttr("topologyCheck", "tc", true), boolAttr("supportNegativeWeights", "snw", false),
              dataAttr("paintWeights", "pw", DataKind::DoubleArray, "doubleArray"))));

    auto skinWeights = multi(compoundAttr("weightList", "wl", attrs(multi(doubleAttr("weights", "w", 0.0)))));
    out.push_back(
        typeDef("skinCluster", "geometryFilter", MFn::kSkinClusterFilter,
                attrs(std::move(skinWeights), multi(matrixAttr("bindPreMatrix", "pm")),
                      multi(matrixAttr("matrix", "ma")), matrixAttr("geomMatrix", "gm"),
                      enumAttr("normalizeWeights", "nw", 1), intAttr("maxInfluences", "mi", 5),
                      boolAttr("maintainMaxInfluences", "mmi", false), enumAttr("skinningMethod", "skm", 0),
                      multi(doubleAttr("dropoff", "dpf", 4.0)), multi(boolAttr("lockWeights", "lw", false)),
                      dataAttr("paintWeights", "ptw", DataKind::DoubleArray, "doubleArray"),
                      messageAttr("bindPose", "bp"))));

    auto vertex = multi(triple("vertex", "vt", AttrType::Float, 0.0, "XYZ", "xyz"));
    const char* vLong[] = {"xVertex", "yVertex", "zVertex"};
    const char* vShort[] = {"vx", "vy", "vz"};
    for (int i = 0; i < 3; ++i) {
        vertex->children[static_cast<std::size_t>(i)]->longName = vLong[i];
        vertex->children[static_cast<std::size_t>(i)]->shortName = vShort[i];
    }
    auto controlPoints = multi(triple("controlPoints", "cp", AttrType::Double, 0.0, "XYZ", "xyz"));
    const char* cLong[] = {"xValue", "yValue", "zValue"};
    const char* cShort[] = {"xv", "yv", "zv"};
    for (int i = 0; i < 3; ++i) {
        controlPoints->children[static_cast<std::size_t>(i)]->longName = cLong[i];
        controlPoints->children[static_cast<std::size_t>(i)]->shortName = cShort[i];
    }
    out.push_back(typeDef("tweak", "geometryFilter", MFn::kTweak,
                          attrs(boolAttr("relativeTweak", "rtw", true),
                                multi(compoundAttr("vlist", "vl", attrs(std::move(vertex)))),
                                multi(compoundAttr("plist", "pl", attrs(std::move(controlPoints)))))));

    out.push_back(typeDef("groupId", "node", MFn::kGroupId, attrs(intAttr("groupId", "id", 0))));
    out.push_back(typeDef("groupParts", "node", MFn::kGroupParts,
                          attrs(dataAttr("inputGeometry", "ig", DataKind::Mesh, "mesh"),
                                dataAttr("outputGeometry", "og", DataKind::Mesh, "mesh"),
                                dataAttr("inputComponents", "ic", DataKind::ComponentList, "componentList"),
                                intAttr("groupId", "gi", 0))));
}

void addSetTypes(std::vector<NodeTypeDef>& out) {
    out.push_back(
        typeDef("objectSet", "node", MFn::kSet,
                attrs(multi(messageAttr("dagSetMembers", "dsm")), multi(messageAttr("dnSetMembers", "dnsm")),
                      stringAttr("annotation", "an"), boolAttr("isLayer", "il", false),
                      boolAttr("verticesOnlySet", "vo", false), boolAttr("edgesOnlySet", "eo", false),
                      boolAttr("facetsOnlySet", "fo", false), boolAttr("renderableOnlySet", "ro", false),
                      multi(messageAttr("groupNodes", "gn")), multi(messageAttr("usedBy", "ub")),
                      messageAttr("partition", "pa"))));
    out.push_back(typeDef("shadingEngine", "objectSet", MFn::kShadingEngine,
                          attrs(genericAttr("surfaceShader", "ss"), genericAttr("volumeShader", "vs"),
                                genericAttr("displacementShader", "ds"))));
}

} // namespace host
