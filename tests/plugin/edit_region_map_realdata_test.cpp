// A six-region map painted on the scanned head by height bands, moved in through a region file and
// shown as colours: the colours of a few vertices and the partial count match the painting rule.
#include "RegionMapSession.h"

#include <maya/MColorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MPointArray.h>

#include <algorithm>
#include <cmath>

namespace {

using host::CommandResult;

const std::string headFile = std::string(TALVEN_DATA_DIR) + "/ict-facekit/generic_neutral_mesh.obj";

class EditRegionMapRealData : public RegionMapSession {};

TEST_F(EditRegionMapRealData, HeightBandsShowAsColours) {
    if (!std::filesystem::exists(headFile)) GTEST_SKIP() << "test data not found: " << headFile;
    must("file -i -type \"OBJ\" \"" + headFile + "\"; select -cl");
    MSelectionList list;
    list.add("generic_neutral_mesh");
    MDagPath head;
    ASSERT_TRUE(list.getDagPath(0, head));
    head.extendToShape();
    MFnMesh mesh(head);
    const std::string shape = head.partialPathName().asChar();
    MPointArray points;
    mesh.getPoints(points);
    ASSERT_EQ(points.length(), 26719u);

    // Six equal height bands, one region each, bottom to top; the right half (x < 0) is painted at
    // half strength, so those vertices stay partial.
    double low = points[0].y, high = points[0].y;
    for (unsigned int v = 0; v < points.length(); ++v) {
        low = std::min(low, points[v].y);
        high = std::max(high, points[v].y);
    }
    const auto band = [&](unsigned int v) {
        return std::min(5, static_cast<int>((points[v].y - low) / (high - low) * 6.0));
    };
    const auto strength = [&](unsigned int v) { return points[v].x < 0.0 ? 0.5 : 1.0; };
    std::string text = "bands";
    std::size_t halfPainted = 0;
    for (unsigned int v = 0; v < points.length(); ++v) {
        text += "\n" + std::to_string(v);
        for (int k = 0; k < 6; ++k) text += k == band(v) ? " " + std::to_string(strength(v)) : " 0";
        halfPainted += strength(v) < 1.0;
    }
    EXPECT_EQ(region("-im -fn \"" + writeFile("head.txt", text) + "\" -m " + shape + " rg"), CommandResult(1))
        << allMessages();

    mesh.createColorSetWithName("regions");
    EXPECT_EQ(region("-col 1 -m " + shape + " rg"), CommandResult(1));
    MColorArray colors;
    mesh.getVertexColors(colors);
    ASSERT_EQ(colors.length(), points.length());
    // Worked out by hand from the OBJ: the head spans y -19.31 .. 14.50, so the bands are 5.635 high.
    const struct {
        unsigned int vertex;
        float r, g, b;
    } checks[] = {
        {0, 0, 1, 0},           // y -2.48 on x = 0: band 2, green
        {4000, 0, 0, 1},        // y 4.42: band 4, blue
        {9408, 1, 0, 0},        // y -15.43: band 0, red
        {15000, 0, 0.5f, 0},    // y -5.32 at x < 0: band 2 at half strength
        {26718, 0, 0.5f, 0.5f}, // y 2.84 at x < 0: band 3, cyan at half strength
        {1000, 0, 0, 0.5f},     // y 6.83 at x < 0: band 4 at half strength
    };
    for (const auto& c : checks) {
        EXPECT_NEAR(colors[c.vertex].r, c.r, 1e-6) << c.vertex;
        EXPECT_NEAR(colors[c.vertex].g, c.g, 1e-6) << c.vertex;
        EXPECT_NEAR(colors[c.vertex].b, c.b, 1e-6) << c.vertex;
    }

    clearMessages();
    EXPECT_EQ(region("-col 0 -m " + shape + " rg"), CommandResult(1));
    EXPECT_EQ(halfPainted, 13168u); // vertices with x < 0, counted in the OBJ
    EXPECT_EQ(infos(), Lines{"Partial weights found: 13168"});
    mesh.getVertexColors(colors);
    EXPECT_NEAR(colors[15000].r, 0.5, 1e-6); // grey: half assigned
    EXPECT_NEAR(colors[9408].r, 0.0, 1e-6);
}

} // namespace
