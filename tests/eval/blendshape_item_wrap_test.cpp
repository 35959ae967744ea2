// blendShape -e -t: a weight becomes an item number modulo 2^32, so weights made from item numbers
// below 5000 in unsigned arithmetic land back on those items, and large weights are not mistaken
// for weight 0.
#include "DeformTestSupport.h"

#include "deform/BlendShapeBuild.h"

#include <limits>
#include <optional>

namespace {

class BlendShapeItemWrap : public DeformTest {};

TEST_F(BlendShapeItemWrap, WeightsBecomeItemsModuloTwoToThe32) {
    const struct {
        double weight;
        std::optional<uint32_t> item;
    } cases[] = {
        {1.0, 6000u},
        {0.5, 5500u},
        {-0.5, 4500u},
        {0.0, std::nullopt},
        {2147482.0, 2147487000u},    // past the signed range
        {4294966.796, 4500u},        // (4500 - 5000) wrapped, over 1000
        {4294962.295, 4294967295u},  // the largest item
        {4294967.296, std::nullopt}, // wraps onto the zero shape
        {-10.0, 4294962296u},        // below zero wraps the other way
        {std::numeric_limits<double>::infinity(), std::nullopt},
        {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(host::itemForWeight(c.weight), c.item) << c.weight;
}

TEST_F(BlendShapeItemWrap, CommandStoresTheWrappedItem) {
    must("polyCube -n box; polyCube -n shape; blendShape -n bs box");
    must("setAttr shapeShape.pnts[0] 0 1 0");
    must("blendShape -e -t box 7 shape 4294966.796 bs");
    EXPECT_EQ(host::scene().findPlug("bs.it[0].itg[7].iti").existingIndices(), (std::vector<uint32_t>{4500}));
    must("blendShape -e -ib -t box 7 shape 2147482.5 bs");
    EXPECT_EQ(host::scene().findPlug("bs.it[0].itg[7].iti").existingIndices(),
              (std::vector<uint32_t>{4500, 2147487500u}));
}

} // namespace
