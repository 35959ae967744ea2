#include "engine/SparseArray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace {

// The sparse array against a std::map under random inserts, erases and physical reads.
TEST(SparseArray, MatchesOrderedMapUnderRandomOperations) {
    std::mt19937 rng(7);
    host::SparseArray<int> array;
    std::map<uint32_t, int> reference;
    for (int step = 0; step < 20000; ++step) {
        const uint32_t key = rng() % 3000;
        switch (rng() % 4) {
        case 0:
        case 1:
            array.obtain(key) = step;
            reference[key] = step;
            break;
        case 2:
            EXPECT_EQ(array.erase(key), reference.erase(key) > 0);
            break;
        default: {
            const int* found = array.find(key);
            auto it = reference.find(key);
            ASSERT_EQ(found != nullptr, it != reference.end());
            if (found) {
                EXPECT_EQ(*found, it->second);
            }
        }
        }
    }
    ASSERT_EQ(array.size(), reference.size());
    std::size_t position = 0;
    for (const auto& [key, value] : reference) {
        EXPECT_EQ(array.keyAt(position), key);
        EXPECT_EQ(array.valueAt(position), value);
        ++position;
    }
}

TEST(SparseArray, DescendingWritesEndInAscendingPositions) {
    host::SparseArray<double> array;
    for (uint32_t k = 100; k-- > 0;) array.obtain(k * 7) = k;
    const auto& keys = array.keys();
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
    EXPECT_EQ(keys.size(), 100u);
    EXPECT_EQ(array.valueAt(3), 3.0);
}

} // namespace
