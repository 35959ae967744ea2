#include "core/common/AtomicFile.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <random>

namespace common {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTemporaryMark = ".talven-tmp-";
// Links followed before giving up, as the system does.
constexpr int kMostLinks = 40;
// A temporary untouched for this long belongs to a write that will never finish; a younger one may
// be another process's save in progress.
constexpr auto kAbandonedAfter = std::chrono::minutes(5);

std::string failure(const std::string& path, const std::string& why) {
    return "Cannot save " + path + ": " + why;
}

// The file a path finally names once symbolic links are followed; false on a link loop.
bool resolveLinks(fs::path& path) {
    for (int hops = 0; hops < kMostLinks; ++hops) {
        std::error_code ec;
        if (!fs::is_symlink(fs::symlink_status(path, ec))) return true;
        const fs::path next = fs::read_symlink(path, ec);
        if (ec) return false;
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return false;
}

std::string temporaryName(const fs::path& target) {
    static std::mt19937_64 random{std::random_device{}()};
    static const char digits[] = "0123456789abcdef";
    std::string name = "." + target.filename().string() + kTemporaryMark;
    std::uint64_t bits = random();
    for (int k = 0; k < 16; ++k, bits >>= 4) name += digits[bits & 15];
    return (target.parent_path() / name).string();
}

void removeAbandonedTemporaries(const fs::path& folder) {
    std::error_code ec;
    const fs::path where = folder.empty() ? fs::path(".") : folder;
    const auto now = fs::file_time_type::clock::now();
    for (fs::directory_iterator it(where, ec), end; !ec && it != end; it.increment(ec)) {
        if (!isSaveTemporary(it->path().filename().string())) continue;
        std::error_code entryError;
        const auto written = fs::last_write_time(it->path(), entryError);
        if (!entryError && now - written > kAbandonedAfter && it->is_regular_file(entryError))
            fs::remove(it->path(), entryError);
    }
}

} // namespace

bool isSaveTemporary(const std::string& fileName) {
    return !fileName.empty() && fileName[0] == '.' && fileName.find(kTemporaryMark) != std::string::npos;
}

AtomicFile::~AtomicFile() {
    discard();
}

void AtomicFile::discard() {
    if (file_) std::fclose(file_);
    file_ = nullptr;
    if (!temporary_.empty()) std::remove(temporary_.c_str());
    temporary_.clear();
}

bool AtomicFile::open(const std::string& path, std::string& error) {
    discard();
    writeErrno_ = 0;
    path_ = path;
    if (path.empty()) {
        error = "Cannot save: no file name given.";
        return false;
    }
    fs::path target(path);
    if (!resolveLinks(target)) {
        error = failure(path, "too many levels of symbolic links.");
        return false;
    }
    std::error_code ec;
    const fs::file_status status = fs::status(target, ec);
    const bool exists = fs::exists(status);
    if (exists && fs::is_directory(status)) {
        error = failure(path, "it is a folder.");
        return false;
    }
    if (exists && !fs::is_regular_file(status)) {
        error = failure(path, "it is not a regular file.");
        return false;
    }
    if (exists) {
        // Opening for update changes nothing and tells whether we may write there.
        std::FILE* probe = std::fopen(target.c_str(), "r+b");
        if (!probe) {
            error = failure(path, errno == EACCES ? "the file is read-only." : std::strerror(errno));
            return false;
        }
        std::fclose(probe);
    }
    removeAbandonedTemporaries(target.parent_path());
    for (int attempt = 0; attempt < 8 && !file_; ++attempt) {
        temporary_ = temporaryName(target);
        file_ = std::fopen(temporary_.c_str(), "wbx");
        if (!file_ && errno != EEXIST) break;
    }
    if (!file_) {
        error = failure(path, std::strerror(errno));
        temporary_.clear();
        return false;
    }
    // A replaced file keeps its permissions.
    if (exists) fs::permissions(temporary_, status.permissions(), ec);
    target_ = target.string();
    return true;
}

void AtomicFile::write(std::string_view text) {
    if (!file_ || writeErrno_ != 0 || text.empty()) return;
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) writeErrno_ = errno ? errno : EIO;
}

bool AtomicFile::commit(std::string& error) {
    if (!file_) {
        error = failure(path_, "the file was not opened.");
        return false;
    }
    int why = writeErrno_;
    if (why == 0 && std::fflush(file_) != 0) why = errno ? errno : EIO;
    if (std::fclose(file_) != 0 && why == 0) why = errno ? errno : EIO;
    file_ = nullptr;
    std::error_code ec;
    if (why == 0) {
        fs::rename(temporary_, target_, ec);
        if (!ec) {
            temporary_.clear();
            return true;
        }
        error = failure(path_, ec.message());
    } else {
        error = failure(path_, std::strerror(why));
    }
    discard();
    return false;
}

bool writeFileAtomically(const std::string& path, std::string_view text, std::string& error) {
    AtomicFile file;
    if (!file.open(path, error)) return false;
    file.write(text);
    return file.commit(error);
}

} // namespace common
