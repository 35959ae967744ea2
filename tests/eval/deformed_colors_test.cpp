// Vertex colours written through MFnMesh to a shape a blend shape deforms read back from that
// shape, while its points still come from the deformer chain.
#include "DeformTestSupport.h"

#include <maya/MColorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>

namespace {

TEST_F(DeformTest, ColoursWrittenToADeformedShapeReadBackFromIt) {
    must("polyCube -n base; polyCube -n target; move -r -os 0 1 0 target.vtx[2:3]; blendShape -n bs target "
         "base;"
         "setAttr bs.w[0] 1");
    MFnMesh shape(node("baseShape"));
    ASSERT_EQ(shape.numColorSets(), 0);
    MColorArray colors;
    colors.append(MColor(1.f, 0.f, 0.f));
    colors.append(MColor(0.f, 0.5f, 1.f));
    MIntArray vertices;
    vertices.append(2);
    vertices.append(6);
    ASSERT_TRUE(shape.setVertexColors(colors, vertices));

    EXPECT_EQ(shape.numColorSets(), 1);
    MColorArray read;
    ASSERT_TRUE(shape.getVertexColors(read));
    ASSERT_EQ(read.length(), 8u);
    EXPECT_EQ(read[2], MColor(1.f, 0.f, 0.f));
    EXPECT_EQ(read[6], MColor(0.f, 0.5f, 1.f));
    EXPECT_EQ(read[0].a, -1.f); // unset
    // The shape still shows the blend shape's result.
    expectNear(shown("baseShape", 2), {-0.5f, 1.5f, 0.5f}, "deformed vertex 2");
    // The original shape keeps no colours of its own.
    EXPECT_EQ(MFnMesh(node("baseShapeOrig")).numColorSets(), 0);
}

} // namespace
