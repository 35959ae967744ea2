// Doubles written without a stream must read exactly as a default-formatted stream writes them,
// ties and digit carries included.
#include <gtest/gtest.h>

#include "core/common/StreamNumbers.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace {

std::string written(double value) {
    char text[common::kStreamDoubleChars];
    return std::string(text, common::writeStreamDouble(text, value));
}

std::string printed(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

TEST(StreamNumbers, DoublesMatchTheStreamFormat) {
    const double cases[] = {0.0,
                            -0.0,
                            1.0,
                            0.5,
                            0.0125,
                            -1.5e-05,
                            1e-4,
                            9.99995e-5,
                            0.000099999949999,
                            999999.5,
                            999999.4999,
                            9.999995,
                            9.9999949999,
                            0.1234565,
                            123456.5,
                            1e6,
                            1e-5,
                            0.0001000005,
                            1e300,
                            -1e-300,
                            std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::denorm_min()};
    for (const double value : cases) {
        EXPECT_EQ(written(value), printed(value)) << value;
        EXPECT_EQ(written(-value), printed(-value)) << value;
    }
}

TEST(StreamNumbers, RandomDoublesMatchTheStreamFormat) {
    std::mt19937_64 random(5);
    std::uniform_real_distribution<> delta(-0.05, 0.05);
    for (int i = 0; i < 200000; ++i) {
        const double value = delta(random);
        ASSERT_EQ(written(value), printed(value)) << value;
    }
    // Halfway cases at every exponent the fixed notation covers, and their neighbours.
    for (int exponent = -6; exponent < 8; ++exponent)
        for (int i = 0; i < 10000; ++i) {
            const double value = static_cast<double>(random() % 2000000) / 2 * std::pow(10.0, exponent - 6);
            for (const double v : {value, std::nextafter(value, 0.0), std::nextafter(value, 1e300)})
                ASSERT_EQ(written(v), printed(v)) << v;
        }
    for (int i = 0; i < 200000; ++i) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isnan(value)) continue;
        ASSERT_EQ(written(value), printed(value)) << value;
    }
}

} // namespace
