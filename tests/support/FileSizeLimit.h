#pragma once
// Runs work with the process's file size limit set low, so that any write past `bytes` fails the
// way a full disk fails it.
#include <csignal>
#include <functional>
#include <sys/resource.h>

inline bool withFileSizeLimit(rlim_t bytes, const std::function<bool()>& work) {
    rlimit saved{};
    getrlimit(RLIMIT_FSIZE, &saved);
    const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limited = saved;
    limited.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limited);
    const bool ok = work();
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, previousHandler);
    return ok;
}
