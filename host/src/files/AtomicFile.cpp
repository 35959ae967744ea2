#include "files/AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {

namespace {

std::string failure(const std::string& path, const std::string& why) {
    return "Cannot save " + path + ": " + why;
}

std::string temporaryName(const std::string& path) {
    static std::atomic<unsigned> counter{0};
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    const std::string base = slash == std::string::npos ? path : path.substr(slash + 1);
    return folder + "." + base + ".tmp" + std::to_string(getpid()) + "_" + std::to_string(counter++);
}

bool writeAll(int fd, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(fd, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

bool writeFileAtomically(const std::string& path, std::string_view text, std::string& error) {
    if (path.empty()) {
        error = "Cannot save: no file name given.";
        return false;
    }
    struct stat existing {};
    const bool exists = ::stat(path.c_str(), &existing) == 0;
    if (exists && S_ISDIR(existing.st_mode)) {
        error = failure(path, "it is a folder.");
        return false;
    }
    if (exists && ::access(path.c_str(), W_OK) != 0) {
        error = failure(path, "the file is read-only.");
        return false;
    }
    const std::string temporary = temporaryName(path);
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
        error = failure(path, std::strerror(errno));
        return false;
    }
    // A replaced file keeps its permissions.
    bool ok =
        (!exists || ::fchmod(fd, existing.st_mode & 07777) == 0) && writeAll(fd, text) && ::fsync(fd) == 0;
    int why = ok ? 0 : errno;
    if (::close(fd) != 0 && ok) {
        ok = false;
        why = errno;
    }
    if (ok && ::rename(temporary.c_str(), path.c_str()) != 0) {
        ok = false;
        why = errno;
    }
    if (ok) return true;
    error = failure(path, std::strerror(why));
    ::unlink(temporary.c_str());
    return false;
}

} // namespace host
