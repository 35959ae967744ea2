// kv_editRegionMap -export / -import: the layouts the command writes, round trips, and files that
// are broken or do not fit the mesh, which must leave the map as it was.
#include "RegionMapSession.h"

namespace {

using host::CommandResult;

class EditRegionMapFiles : public RegionMapSession {
protected:
    static CommandResult withFile(const std::string& mode, const std::string& path,
                                  const std::string& rest = "") {
        return region(mode + " -fn \"" + path + "\" -m plShape " + rest + " rg");
    }
};

TEST_F(EditRegionMapFiles, ExportLayouts) {
    Rows map = planeMap();
    map.resize(2);
    map[1] = {0.5, 0.25, 0.125, 0.0001, 0.00001, 0.1234567};
    setRows(map);
    must("setAttr rg.regions -type \"string\" \"front back\"");
    const struct {
        std::string name, flags, text;
    } cases[] = {
        {"m.txt", "", "front back\n0 1 0 0 0 0 0\n1 0.5 0.25 0.125 0.0001 1e-05 0.123457"},
        {"m.JSON", "", "front back\n0 1 0 0 0 0 0\n1 0.5 0.25 0.125 0.0001 1e-05 0.123457"},
        {"m.json", "",
         "{\n\t\"settings\": \"front back\",\n\t\"0\": "
         "[\n\t\t1,\n\t\t0,\n\t\t0,\n\t\t0,\n\t\t0,\n\t\t0\n\t],\n"
         "\t\"1\": [\n\t\t0.5,\n\t\t0.25,\n\t\t0.125,\n\t\t0.0001,\n\t\t1e-05,\n\t\t0.123457\n\t]\n}"},
        {"mjson", "-i 1", "{\n\t\"0\": 0,\n\t\"1\": 0.25\n}"},
        {"m.txt", "-i 5", "0 0\n1 0.123457"},
        {"m.txt", "-i 6", ""},
        {"m.json", "-i -1", "{\n}"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(withFile("-ex", file(c.name), c.flags), CommandResult(1)) << c.name << " " << c.flags;
        EXPECT_EQ(readFile(file(c.name)), c.text) << c.name << " " << c.flags;
    }
    clearMessages();
    EXPECT_EQ(withFile("-ex", file("no/folder/m.txt")), CommandResult(0));
    EXPECT_EQ(withFile("-ex", ""), CommandResult(0));
    EXPECT_EQ(errors(), (Lines{"Unable to open file for writing", "Unable to open file for writing"}));
}

TEST_F(EditRegionMapFiles, RoundTripInBothLayouts) {
    Rows map(9);
    for (int v = 0; v < 9; ++v)
        for (int k = 0; k < 6; ++k) map[v][k] = (v * 6 + k) / 53.0 + (k == 5 ? 1e-7 : 0.0);
    for (const char* name : {"r.json", "r.txt"}) {
        setRows(map);
        must("setAttr rg.regions -type \"string\" \"a; b\"");
        EXPECT_EQ(withFile("-ex", file(name)), CommandResult(1)) << name;
        setRows(planeMap());
        must("setAttr rg.regions -type \"string\" \"\"");
        EXPECT_EQ(withFile("-im", file(name)), CommandResult(1)) << name;
        const Rows read = rows();
        ASSERT_EQ(read.size(), 9u) << name;
        for (int v = 0; v < 9; ++v)
            for (int k = 0; k < 6; ++k)
                EXPECT_NEAR(read[v][k], map[v][k], 5e-6 * map[v][k]) << name << " " << v << " " << k;
        MString settings;
        ASSERT_TRUE(run("getAttr rg.regions", settings));
        EXPECT_EQ(settings, "a; b") << name;
    }
}

TEST_F(EditRegionMapFiles, BrokenFilesChangeNothingOrReadTolerantly) {
    const std::string mismatch =
        "The stored vertex count doesn't match the resolution of the currently loaded mesh";
    std::string nine;
    for (int v = 0; v < 9; ++v) nine += "\n" + std::to_string(v) + " 0.5 0 0 0 0 0.5";
    const struct {
        std::string name, text;
        Lines errors;
        Row vertex0; // after a successful import; the plane map stays on failure
    } cases[] = {
        {"eight.txt", "s" + nine.substr(0, nine.rfind('\n')), {mismatch}, {}},
        {"ten.txt", "s" + nine + "\n9 1 0 0 0 0 0", {mismatch}, {}},
        {"eight.json", "{\"settings\": \"s\", \"0\": [1,0,0,0,0,0]}", {mismatch}, {}},
        {"quote.txt", "say \"hi\"" + nine, {}, {}},
        {"short.txt", "s\n0 0.5 0.25" + nine.substr(nine.find('\n', 1)), {mismatch}, {}},
        {"extra.txt",
         "s\n0 0.5 0 0 0 0 0.5 9 9" + nine.substr(nine.find('\n', 1)),
         {},
         {0.5, 0, 0, 0, 0, 0.5}},
        {"letters.txt", "s\n0 x 0.5 y 0 0 0" + nine.substr(nine.find('\n', 1)), {}, {0, 0.5, 0, 0, 0, 0}},
        {"empty.txt", "", {mismatch}, {}},
    };
    for (const auto& c : cases) {
        setRows(planeMap());
        must("setAttr rg.regions -type \"string\" \"before\"");
        clearMessages();
        const bool imported = c.errors.empty() && c.name != "quote.txt";
        EXPECT_EQ(withFile("-im", writeFile(c.name, c.text)), CommandResult(imported ? 1 : 0)) << c.name;
        if (!c.errors.empty()) {
            EXPECT_EQ(errors(), c.errors) << c.name;
        }
        MString settings;
        run("getAttr rg.regions", settings);
        if (!imported) {
            expectRows(rows(), planeMap(), c.name);
            EXPECT_EQ(settings, "before") << c.name;
            continue;
        }
        EXPECT_EQ(settings, "s") << c.name;
        Rows expected(9, Row{0.5, 0, 0, 0, 0, 0.5});
        expected[0] = c.vertex0;
        expectRows(rows(), expected, c.name);
    }
    clearMessages();
    EXPECT_EQ(withFile("-im", file("missing.json")), CommandResult(0));
    EXPECT_EQ(withFile("-im", file("")), CommandResult(0)); // the test's folder
    EXPECT_EQ(errors(), (Lines{"Unable to open file for reading", "Unable to open file for reading"}));
    expectRows(rows(), planeMap(), "unreadable");
}

} // namespace
