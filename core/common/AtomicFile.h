#pragma once
// Writing a file so that a failure never leaves it cut short: the text goes to a temporary file
// beside the target, which replaces the target only once it is complete. A symbolic link is
// followed and the file it names is replaced; anything but a regular file (a folder, a FIFO, a
// device) is refused. Temporaries have recognisable names, and those left behind by a process that
// died while writing are removed by a later write to the same folder.
#include <cstdio>
#include <string>
#include <string_view>

namespace common {

class AtomicFile {
public:
    AtomicFile() = default;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    // Removes the temporary unless commit() put it in place.
    ~AtomicFile();

    // Starts a new version of the file at `path`; false with the reason in `error`
    // ("Cannot save <path>: …").
    bool open(const std::string& path, std::string& error);
    // Appends text; a failure is remembered and reported by commit().
    void write(std::string_view text);
    // Replaces the target with everything written; false with the reason in `error`, the target
    // unchanged and the temporary removed, when anything failed.
    bool commit(std::string& error);

private:
    void discard();

    std::FILE* file_ = nullptr;
    std::string path_;      // as the caller named it, for messages
    std::string target_;    // the regular file replaced, links resolved
    std::string temporary_; // beside the target
    int writeErrno_ = 0;
};

// The whole file in one go, as above.
bool writeFileAtomically(const std::string& path, std::string_view text, std::string& error);

// Whether a file name is one of the temporaries above.
bool isSaveTemporary(const std::string& fileName);

} // namespace common
