#include "nodes/NodeTypes.h"

namespace host {

namespace {

// Rotations are stored in radians and shown in degrees, like Maya's doubleAngle attributes.
AttrPtr angleTriple(const std::string& longName, const std::string& shortName) {
    auto attr = triple(longName, shortName, AttrType::Double);
    for (auto& child : attr->children) child->typeName = "doubleAngle";
    return attr;
}

} // namespace

void addDagTypes(std::vector<NodeTypeDef>& out) {
    auto objectGroups = multi(compoundAttr(
        "objectGroups", "og",
        attrs(dataAttr("objectGrpCompList", "gcl", DataKind::ComponentList, "componentList"),
              intAttr("objectGroupId", "gid", 0), intAttr("objectGrpColor", "gco", -1, "short"))));
    NodeTypeDef dag = typeDef(
        "dagNode", "node", MFn::kDagNode,
        attrs(boolAttr("visibility", "v", true), boolAttr("intermediateObject", "io", false),
              boolAttr("template", "tmp", false), boolAttr("lodVisibility", "lodv", true),
              multi(compoundAttr("instObjGroups", "iog", attrs(std::move(objectGroups)))),
              matrixAttr("matrix", "m"), matrixAttr("inverseMatrix", "im"),
              multi(matrixAttr("worldMatrix", "wm")), multi(matrixAttr("worldInverseMatrix", "wim")),
              multi(matrixAttr("parentMatrix", "pm")), multi(matrixAttr("parentInverseMatrix", "pim"))));
    dag.dag = true;
    dag.attrs.front()->keyable = true; // visibility
    out.push_back(std::move(dag));

    auto shear = compoundAttr(
        "shear", "sh",
        attrs(doubleAttr("shearXY", "shxy"), doubleAttr("shearXZ", "shxz"), doubleAttr("shearYZ", "shyz")),
        "double3");
    NodeTypeDef transform = typeDef(
        "transform", "dagNode", MFn::kTransform,
        attrs(triple("translate", "t", AttrType::Double), angleTriple("rotate", "r"),
              triple("scale", "s", AttrType::Double, 1.0), std::move(shear), enumAttr("rotateOrder", "ro", 0),
              angleTriple("rotateAxis", "ra"), triple("rotatePivot", "rp", AttrType::Double),
              triple("scalePivot", "sp", AttrType::Double),
              triple("rotatePivotTranslate", "rpt", AttrType::Double),
              triple("scalePivotTranslate", "spt", AttrType::Double),
              boolAttr("inheritsTransform", "it", true), boolAttr("displayHandle", "dh", false)));
    transform.transform = true;
    // Translate, rotate and scale are keyable, channel by channel.
    for (std::size_t i = 0; i < 3; ++i)
        for (auto& child : transform.attrs[i]->children) child->keyable = true;
    out.push_back(std::move(transform));

    out.push_back(
        typeDef("joint", "transform", MFn::kJoint,
                attrs(angleTriple("jointOrient", "jo"), boolAttr("segmentScaleCompensate", "ssc", true),
                      triple("inverseScale", "is", AttrType::Double, 1.0),
                      angleTriple("preferredAngle", "pa"), doubleAttr("radius", "radi", 1.0),
                      enumAttr("drawStyle", "ds", 0), matrixAttr("bindPose", "bps"))));

    NodeTypeDef shape = typeDef("shape", "dagNode", MFn::kShape, {});
    shape.shape = true;
    out.push_back(std::move(shape));
    out.push_back(typeDef("geometryShape", "shape", MFn::kGeometric, {}));
    out.push_back(typeDef("surfaceShape", "geometryShape", MFn::kSurface, {}));

    auto vrts = multi(triple("vrts", "vt", AttrType::Float, 0.0, "xyz", "xyz"));
    vrts->children[0]->longName = "vrtx";
    vrts->children[1]->longName = "vrty";
    vrts->children[2]->longName = "vrtz";
    vrts->children[0]->shortName = "vx";
    vrts->children[1]->shortName = "vy";
    vrts->children[2]->shortName = "vz";
    auto pnts = multi(triple("pnts", "pt", AttrType::Float, 0.0, "xyz", "xyz"));
    const char* pntLong[] = {"pntx", "pnty", "pntz"};
    const char* pntShort[] = {"px", "py", "pz"};
    for (int i = 0; i < 3; ++i) {
        pnts->children[static_cast<std::size_t>(i)]->longName = pntLong[i];
        pnts->children[static_cast<std::size_t>(i)]->shortName = pntShort[i];
    }
    auto uvSet = multi(compoundAttr(
        "uvSet", "uvst",
        attrs(stringAttr("uvSetName", "uvsn"),
              multi(compoundAttr("uvSetPoints", "uvsp",
                                 attrs(floatAttr("uvPointsU", "uvpu"), floatAttr("uvPointsV", "uvpv")),
                                 "float2")))));
    auto colorSet = multi(compoundAttr(
        "colorSet", "clst",
        attrs(stringAttr("colorName", "clsn"), boolAttr("clamped", "clam", false),
              enumAttr("representation", "rprt", 3),
              multi(compoundAttr(
                  "colorSetPoints", "clsp",
                  attrs(floatAttr("colorSetPointsR", "clpr"), floatAttr("colorSetPointsG", "clpg"),
                        floatAttr("colorSetPointsB", "clpb"), floatAttr("colorSetPointsA", "clpa")),
                  "float4")))));
    auto edge = multi(compoundAttr(
        "edge", "ed", attrs(intAttr("edg1", "e1"), intAttr("edg2", "e2"), intAttr("edgh", "eh")), "long3"));
    out.push_back(
        typeDef("mesh", "surfaceShape", MFn::kMesh,
                attrs(dataAttr("inMesh", "i", DataKind::Mesh, "mesh"),
                      dataAttr("outMesh", "o", DataKind::Mesh, "mesh"),
                      dataAttr("cachedInMesh", "ci", DataKind::Mesh, "mesh"),
                      multi(dataAttr("worldMesh", "w", DataKind::Mesh, "mesh")), std::move(vrts),
                      std::move(edge), multi(dataAttr("face", "fc", DataKind::PolyFaces, "polyFaces")),
                      std::move(pnts), std::move(uvSet), stringAttr("currentUVSet", "cuvs"),
                      std::move(colorSet), stringAttr("currentColorSet", "ccls"),
                      boolAttr("displayColors", "dcol", false), genericAttr("tweakLocation", "twl"))));
}

} // namespace host
