// The two region file readers on files written by hand (the written layouts are checked through the
// command).
#include <gtest/gtest.h>

#include "core/json/RegionFile.h"

#include <string>

namespace {

using core::RegionMap;

struct ReadCase {
    const char* label;
    std::string text;
    std::string settings;
    std::vector<std::vector<double>> regions; // regions 0..5 as read, before lengths are matched
};

void expectRead(const ReadCase& c, const RegionMap& map, const std::string& settings) {
    EXPECT_EQ(settings, c.settings) << c.label;
    for (int k = 0; k < core::kRegionCount; ++k)
        EXPECT_EQ(map.regions[k], c.regions[k]) << c.label << " region " << k;
}

TEST(RegionFileRead, TextLayoutToleratesBrokenRows) {
    const ReadCase cases[] = {
        {"plain",
         "set up\n0 1 0 0 0 0 0\n1 0 0.5 0 0 0 0.5",
         "set up",
         {{1, 0}, {0, 0.5}, {0, 0}, {0, 0}, {0, 0}, {0, 0.5}}},
        {"tabs, form feeds, CRLF", "s\r\n7\t1 \f0  0 0 0 0.25\r\n", "s", {{1}, {0}, {0}, {0}, {0}, {0.25}}},
        {"index not checked",
         "\n5 1 2 3 4 5 6\n5 6 5 4 3 2 1",
         "",
         {{1, 6}, {2, 5}, {3, 4}, {4, 3}, {5, 2}, {6, 1}}},
        {"short row", "s\n0 1 2 3\n1 1 2 3 4 5 6", "s", {{1, 1}, {2, 2}, {3, 3}, {4}, {5}, {6}}},
        {"extra columns", "s\n0 1 2 3 4 5 6 7 8", "s", {{1}, {2}, {3}, {4}, {5}, {6}}},
        {"non-numeric fields", "s\n0 x 0.5y 3 4 5 6", "s", {{0}, {0.5}, {3}, {4}, {5}, {6}}},
        {"empty lines and index-only rows",
         "s\n\n   \n3\n0 1 1 1 1 1 1\n",
         "s",
         {{1}, {1}, {1}, {1}, {1}, {1}}},
        {"settings only", "only", "only", {{}, {}, {}, {}, {}, {}}},
        {"empty file", "", "", {{}, {}, {}, {}, {}, {}}},
    };
    for (const ReadCase& c : cases) {
        RegionMap map;
        std::string settings;
        json::readRegionText(c.text, map, settings);
        expectRead(c, map, settings);
    }
}

TEST(RegionFileRead, JsonLayoutReadsListsInFileOrder) {
    const ReadCase cases[] = {
        {"as written",
         "{\n\t\"settings\": \"a b\",\n\t\"0\": [\n\t\t1,\n\t\t0,\n\t\t0,\n\t\t0,\n\t\t0,\n\t\t0\n\t]\n}",
         "a b",
         {{1}, {0}, {0}, {0}, {0}, {0}}},
        {"keys ignored, one line, CRLF",
         "{\"1\":[1,2,3,4,5,6],\r\n\"0\": [ 6 , 5,4,3,2,1 ]}",
         "",
         {{1, 6}, {2, 5}, {3, 4}, {4, 3}, {5, 2}, {6, 1}}},
        {"settings after rows, other keys",
         "{\"x\": \"settings\", \"0\": [1,1,1,1,1,1], \"settings\": \"late\"}",
         "late",
         {{1}, {1}, {1}, {1}, {1}, {1}}},
        {"short and long rows",
         "{\"0\": [1, 2], \"1\": [1,2,3,4,5,6,7,8]}",
         "",
         {{1, 1}, {2, 2}, {3}, {4}, {5}, {6}}},
        {"non-numeric values", "{\"0\": [a, 0.5, 1e-3, , --1, 6]}", "", {{0}, {0.5}, {0.001}, {0}, {0}, {6}}},
        {"empty list", "{\"settings\": \"s\", \"0\": []}", "s", {{}, {}, {}, {}, {}, {}}},
        {"unterminated", "{\"settings\": \"s", "s", {{}, {}, {}, {}, {}, {}}},
        {"unterminated list", "{\"0\": [1, 2", "", {{1}, {}, {}, {}, {}, {}}},
    };
    for (const ReadCase& c : cases) {
        RegionMap map;
        std::string settings;
        json::readArray6(c.text, map, settings);
        expectRead(c, map, settings);
    }
}

} // namespace
