#pragma once
// Fixture for the region map command: a 3 x 3 vertex plane "pl" (shape "plShape"), a blend shape
// "bs" and a region node "rg" connected to it, with helpers to set and read the six region arrays.
#include "EditWeightsSession.h"

#include <maya/MDoubleArray.h>
#include <maya/MFnDoubleArrayData.h>

class RegionMapSession : public EditWeightsSession {
public:
    using Row = std::array<double, 6>;
    using Rows = std::vector<Row>;

protected:
    void SetUp() override {
        EditWeightsSession::SetUp();
        makePlane();
        must("createNode TALVENRegion -n rg; connectAttr bs.message rg.TALVENRegion");
    }

    static host::CommandResult region(const std::string& arguments, bool expectOk = true) {
        return exec("kv_editRegionMap " + arguments, expectOk);
    }

    static MPlug plug(const std::string& name) {
        MSelectionList list;
        MPlug result;
        if (list.add(name.c_str())) list.getPlug(0, result);
        return result;
    }
    // The array on rg.<attribute><k>; empty when it holds no data.
    static std::vector<double> array(const std::string& attribute, int k) {
        const MObject data = plug("rg." + attribute + std::to_string(k)).asMObject();
        if (data.isNull()) return {};
        return MFnDoubleArrayData(data).array().vec();
    }
    static void setArray(const std::string& attribute, int k, const std::vector<double>& values) {
        MFnDoubleArrayData data;
        const MObject object =
            data.create(MDoubleArray(values.data(), static_cast<unsigned int>(values.size())));
        ASSERT_TRUE(plug("rg." + attribute + std::to_string(k)).setValue(object));
    }
    // The map as one row of six weights per vertex (region 0's length).
    static Rows rows() {
        Rows out(array("regionWeights", 0).size());
        for (int k = 0; k < 6; ++k) {
            const std::vector<double> weights = array("regionWeights", k);
            for (std::size_t v = 0; v < out.size() && v < weights.size(); ++v) out[v][k] = weights[v];
        }
        return out;
    }
    static void setRows(const Rows& map) {
        for (int k = 0; k < 6; ++k) {
            std::vector<double> weights;
            for (const Row& row : map) weights.push_back(row[k]);
            setArray("regionWeights", k, weights);
        }
    }
    static void setLocks(const std::array<int, 6>& locks) {
        for (int k = 0; k < 6; ++k)
            must("setAttr rg.regionLock[" + std::to_string(k) + "] " + std::to_string(locks[k]));
    }
    // Nine vertices: 0-2 in region 0, 3-5 split evenly between regions 1 and 2, 6-8 unassigned.
    static Rows planeMap() {
        Rows map(9, Row{});
        for (int v = 0; v < 3; ++v) map[v][0] = 1.0;
        for (int v = 3; v < 6; ++v) map[v][1] = map[v][2] = 0.5;
        return map;
    }
    static void expectRows(const Rows& actual, const Rows& expected, const std::string& label) {
        ASSERT_EQ(actual.size(), expected.size()) << label;
        for (std::size_t v = 0; v < actual.size(); ++v)
            for (int k = 0; k < 6; ++k)
                EXPECT_NEAR(actual[v][k], expected[v][k], 1e-5)
                    << label << " vertex " << v << " region " << k;
    }
};
