#pragma once
// Cost comparisons for scaling guards: the same work timed at two sizes, never a time on its own.
#include <algorithm>
#include <chrono>
#include <functional>

// The best of three run times of `work` after `setup`, in seconds.
inline double bestRunTime(const std::function<void()>& setup, const std::function<void()>& work) {
    double best = 1e9;
    for (int k = 0; k < 3; ++k) {
        setup();
        const auto start = std::chrono::steady_clock::now();
        work();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}
