#pragma once
// Cost comparisons for scaling guards: the same work timed at two sizes, never a time on its own.
// The time is the calling thread's CPU time, so that other load on the machine does not skew a ratio.
#include <algorithm>
#include <ctime>
#include <functional>

inline double threadCpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// The best of three CPU times of `work` after `setup`, in seconds.
inline double bestRunTime(const std::function<void()>& setup, const std::function<void()>& work) {
    double best = 1e9;
    for (int k = 0; k < 3; ++k) {
        setup();
        const double start = threadCpuSeconds();
        work();
        best = std::min(best, threadCpuSeconds() - start);
    }
    return best;
}
