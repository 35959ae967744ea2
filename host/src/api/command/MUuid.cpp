#include <maya/MUuid.h>

#include <cctype>
#include <random>
#include <string>

namespace {

constexpr std::size_t kTextLength = 36;

bool isDashPosition(std::size_t i) {
    return i == 8 || i == 13 || i == 18 || i == 23;
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

MUuid::MUuid(const MString& value, MStatus* ReturnStatus) {
    const MStatus status = copy(value);
    if (ReturnStatus) *ReturnStatus = status;
}

MStatus MUuid::copy(const MString& value) {
    const std::string& text = value.str();
    if (text.size() != kTextLength) return MS::kInvalidParameter;
    std::array<unsigned char, 16> bytes{};
    std::size_t digit = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDashPosition(i)) {
            if (text[i] != '-') return MS::kInvalidParameter;
            continue;
        }
        const int nibble = hexValue(text[i]);
        if (nibble < 0) return MS::kInvalidParameter;
        bytes[digit / 2] = static_cast<unsigned char>(bytes[digit / 2] << 4 | nibble);
        ++digit;
    }
    bytes_ = bytes;
    return MS::kSuccess;
}

// A random (version 4) identifier.
void MUuid::generate() {
    static std::mt19937_64 engine{std::random_device{}()};
    for (auto& byte : bytes_) byte = static_cast<unsigned char>(engine());
    bytes_[6] = static_cast<unsigned char>((bytes_[6] & 0x0F) | 0x40);
    bytes_[8] = static_cast<unsigned char>((bytes_[8] & 0x3F) | 0x80);
}

MString MUuid::asString() const {
    static const char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(kTextLength);
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
        if (isDashPosition(text.size())) text += '-';
        text += digits[bytes_[i] >> 4];
        text += digits[bytes_[i] & 0x0F];
    }
    return MString(text);
}

bool MUuid::valid() const {
    for (unsigned char byte : bytes_) {
        if (byte != 0) return true;
    }
    return false;
}
