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

// Bare numbers behave as the elements they stand for, whichever operation comes first.
TEST(SparseArray, BareNumbersActAsElements) {
    const std::vector<uint32_t> keys{2, 5, 9};
    const std::vector<double> numbers{0.25, 0.5, 0.75};
    struct Case {
        const char* name;
        void (*act)(host::SparseArray<double>&);
        std::vector<uint32_t> keys;
        std::vector<double> values;
    };
    const Case cases[] = {
        {"find", [](host::SparseArray<double>& a) { *a.find(5) = 1.5; }, {2, 5, 9}, {0.25, 1.5, 0.75}},
        {"obtain new",
         [](host::SparseArray<double>& a) { a.obtain(3) = 3; },
         {2, 3, 5, 9},
         {0.25, 3, 0.5, 0.75}},
        {"obtain last",
         [](host::SparseArray<double>& a) { a.obtain(20) = 4; },
         {2, 5, 9, 20},
         {0.25, 0.5, 0.75, 4}},
        {"erase", [](host::SparseArray<double>& a) { a.erase(2); }, {5, 9}, {0.5, 0.75}},
        {"clone", [](host::SparseArray<double>& a) { a = a.clone(); }, {2, 5, 9}, {0.25, 0.5, 0.75}},
        {"clear", [](host::SparseArray<double>& a) { a.clear(); }, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        host::SparseArray<double> array;
        array.obtain(40) = 9; // replaced whole
        array.assignNumbers(keys, numbers);
        ASSERT_TRUE(array.holdsNumbers());
        EXPECT_EQ(array.keys(), keys);
        c.act(array);
        ASSERT_EQ(array.keys(), c.keys);
        for (std::size_t k = 0; k < c.values.size(); ++k) EXPECT_EQ(array.valueAt(k), c.values[k]);
        EXPECT_FALSE(array.holdsNumbers());
    }
}

// Numbers written one by one stay bare while they append or overwrite; anything else is refused.
TEST(SparseArray, WritesBareNumbersOnlyWhereTheyFit) {
    struct Case {
        const char* name;
        uint32_t key;
        bool written;
    };
    const Case cases[] = {
        {"after the last", 12, true}, {"over one held", 5, true}, {"between two", 6, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        host::SparseArray<double> array;
        ASSERT_TRUE(array.writeNumber(2, 0.25));
        ASSERT_TRUE(array.writeNumber(5, 0.5));
        ASSERT_TRUE(array.writeNumber(9, 0.75));
        EXPECT_EQ(array.writeNumber(c.key, 4.0), c.written);
        const double* found = array.findNumber(c.key);
        EXPECT_EQ(found != nullptr && *found == 4.0, c.written);
        EXPECT_EQ(array.findNumber(9) ? *array.findNumber(9) : -1.0, 0.75);
        EXPECT_EQ(array.size(), c.key == 12 ? 4u : 3u);
        // once an element is asked for, numbers go through elements
        array.find(2);
        EXPECT_FALSE(array.writeNumber(30, 1.0));
        EXPECT_EQ(array.findNumber(2), nullptr);
    }
}

} // namespace
