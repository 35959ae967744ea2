#include "files/WholeFile.h"

#include "engine/HugePages.h"

#include <filesystem>
#include <fstream>

namespace host {

bool readWholeFile(const std::string& path, std::string& text, std::string& error) {
    // A folder would "open" and report a nonsense size; a FIFO would wait for a writer.
    std::error_code statusError;
    const std::filesystem::file_status status = std::filesystem::status(path, statusError);
    if (std::filesystem::is_directory(status)) {
        error = path + " is a folder, not a file.";
        return false;
    }
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        error = path + " is not a regular file.";
        return false;
    }
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    if (!in) {
        error = "File not found: " + path;
        return false;
    }
    const std::streamoff size = in.tellg();
    in.seekg(0);
    text.reserve(size > 0 ? static_cast<std::size_t>(size) : 0);
    preferHugePages(text.data(), text.capacity());
    text.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    if (size < 0 || !in.read(text.data(), size)) {
        error = "Could not read file: " + path;
        return false;
    }
    return true;
}

} // namespace host
