#include <maya/MString.h>
#include <maya/MStringArray.h>

#include "api/StatusOut.h"
#include "core/common/TextNumbers.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <ostream>

using host::setStatus;

namespace {

// Numbers appended to a string read as Maya writes them: integers plainly, others with up to
// fifteen significant digits and no trailing zeros.
std::string formatNumber(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

} // namespace

MString::MString(const char* charString) : text_(charString ? charString : "") {}

MString::MString(const char* charString, int charLength) {
    if (charString && charLength > 0) text_.assign(charString, static_cast<std::size_t>(charLength));
}

MString::MString(const wchar_t* wideString) {
    if (!wideString) return;
    for (const wchar_t* p = wideString; *p; ++p) text_.push_back(static_cast<char>(*p));
}

MString& MString::operator=(const char* other) {
    text_ = other ? other : "";
    return *this;
}

MString& MString::operator=(double value) {
    text_ = formatNumber(value);
    return *this;
}

MString& MString::operator+=(const MString& other) {
    text_ += other.text_;
    return *this;
}
MString& MString::operator+=(const char* other) {
    if (other) text_ += other;
    return *this;
}
MString& MString::operator+=(double value) {
    text_ += formatNumber(value);
    return *this;
}
MString& MString::operator+=(int value) {
    text_ += std::to_string(value);
    return *this;
}
MString& MString::operator+=(unsigned int value) {
    text_ += std::to_string(value);
    return *this;
}
MString& MString::operator+=(float value) {
    text_ += formatNumber(value);
    return *this;
}
MString& MString::operator+=(long value) {
    text_ += std::to_string(value);
    return *this;
}
MString& MString::operator+=(unsigned long value) {
    text_ += std::to_string(value);
    return *this;
}

MString MString::operator+(const MString& other) const {
    return MString(*this) += other;
}
MString MString::operator+(const char* other) const {
    return MString(*this) += other;
}
MString MString::operator+(double value) const {
    return MString(*this) += value;
}
MString MString::operator+(int value) const {
    return MString(*this) += value;
}
MString MString::operator+(unsigned int value) const {
    return MString(*this) += value;
}
MString MString::operator+(float value) const {
    return MString(*this) += value;
}

bool MString::operator==(const char* other) const {
    return text_ == (other ? other : "");
}

MStatus MString::set(const char* charString) {
    *this = charString;
    return MS::kSuccess;
}
MStatus MString::set(const char* charString, int charLength) {
    *this = MString(charString, charLength);
    return MS::kSuccess;
}
MStatus MString::set(double value) {
    text_ = formatNumber(value);
    return MS::kSuccess;
}
MStatus MString::set(double value, int precision) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, "%.*f", std::clamp(precision, 0, 100), value);
    text_ = buffer;
    return MS::kSuccess;
}

const char* MString::asChar(int& length) const {
    length = static_cast<int>(text_.size());
    return text_.c_str();
}

int MString::index(char c) const {
    auto pos = text_.find(c);
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}
int MString::rindex(char c) const {
    auto pos = text_.rfind(c);
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}
int MString::indexW(const MString& s) const {
    auto pos = text_.find(s.text_);
    return pos == std::string::npos ? -1 : static_cast<int>(pos);
}

MString MString::substring(int start, int end) const {
    const int size = static_cast<int>(text_.size());
    start = std::max(start, 0);
    end = std::min(end, size - 1);
    if (start > end) return MString();
    return MString(text_.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start + 1)));
}

MStatus MString::split(char delimiter, MStringArray& output) const {
    output.clear();
    std::size_t start = 0;
    // Maya drops empty pieces: "a..b" split at '.' gives a, b.
    while (start <= text_.size()) {
        std::size_t pos = text_.find(delimiter, start);
        if (pos == std::string::npos) pos = text_.size();
        if (pos > start) output.append(MString(text_.substr(start, pos - start)));
        start = pos + 1;
    }
    return MS::kSuccess;
}

MString MString::toLowerCase() const {
    MString copy(*this);
    for (char& c : copy.text_) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return copy;
}
MString MString::toUpperCase() const {
    MString copy(*this);
    for (char& c : copy.text_) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return copy;
}

MStatus MString::substitute(const MString& match, const MString& replacement) {
    if (match.text_.empty()) return MS::kFailure;
    std::string out;
    std::size_t start = 0;
    for (std::size_t pos; (pos = text_.find(match.text_, start)) != std::string::npos;
         start = pos + match.text_.size()) {
        out.append(text_, start, pos - start);
        out += replacement.text_;
    }
    out.append(text_, start, std::string::npos);
    text_ = std::move(out);
    return MS::kSuccess;
}

MStatus MString::substituteFirst(const MString& match, const MString& replacement) {
    if (match.text_.empty()) return MS::kFailure;
    auto pos = text_.find(match.text_);
    if (pos != std::string::npos) text_.replace(pos, match.text_.size(), replacement.text_);
    return MS::kSuccess;
}

// A leading "~" (alone or before '/') becomes $HOME; $NAME and ${NAME} become the variable's value.
// "~user" and unset variables are left as written.
MString MString::expandEnvironmentVariablesAndTilde(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    const std::size_t size = text_.size();
    std::string out;
    std::size_t i = 0;
    const char* home = std::getenv("HOME");
    if (home && size > 0 && text_[0] == '~' && (size == 1 || text_[1] == '/')) {
        out = home;
        i = 1;
    }
    while (i < size) {
        if (text_[i] == '$') {
            const bool braced = i + 1 < size && text_[i + 1] == '{';
            const std::size_t start = i + (braced ? 2 : 1);
            std::size_t end = start;
            while (end < size && (std::isalnum(static_cast<unsigned char>(text_[end])) || text_[end] == '_'))
                ++end;
            const bool closed = !braced || (end < size && text_[end] == '}');
            const char* value =
                end > start && closed ? std::getenv(text_.substr(start, end - start).c_str()) : nullptr;
            if (value) {
                out += value;
                i = end + (braced ? 1 : 0);
                continue;
            }
        }
        out += text_[i++];
    }
    return MString(out);
}

short MString::asShort(MStatus* ReturnStatus) const {
    return static_cast<short>(asInt(ReturnStatus));
}

int MString::asInt(MStatus* ReturnStatus) const {
    int value = 0;
    setStatus(ReturnStatus, common::parseInt(text_, value));
    return value;
}

unsigned int MString::asUnsigned(MStatus* ReturnStatus) const {
    long long value = 0;
    bool ok =
        common::parseLong(text_, value) && value >= 0 && value <= std::numeric_limits<unsigned int>::max();
    setStatus(ReturnStatus, ok);
    return ok ? static_cast<unsigned int>(value) : 0u;
}

float MString::asFloat(MStatus* ReturnStatus) const {
    const double value = asDouble(ReturnStatus);
    // Converting a double beyond float's range is undefined: such values become infinities.
    if (std::abs(value) > std::numeric_limits<float>::max())
        return value > 0.0 ? std::numeric_limits<float>::infinity() : -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

double MString::asDouble(MStatus* ReturnStatus) const {
    double value = 0.0;
    setStatus(ReturnStatus, common::parseDouble(text_, value));
    return value;
}

bool MString::isShort(MStatus* ReturnStatus) const {
    long long value = 0;
    bool ok = common::parseLong(text_, value) && value >= std::numeric_limits<short>::min() &&
              value <= std::numeric_limits<short>::max();
    setStatus(ReturnStatus, true);
    return ok;
}
bool MString::isInt(MStatus* ReturnStatus) const {
    int value = 0;
    setStatus(ReturnStatus, true);
    return common::parseInt(text_, value);
}
bool MString::isUnsigned(MStatus* ReturnStatus) const {
    long long value = 0;
    bool ok =
        common::parseLong(text_, value) && value >= 0 && value <= std::numeric_limits<unsigned int>::max();
    setStatus(ReturnStatus, true);
    return ok;
}
bool MString::isFloat(MStatus* ReturnStatus) const {
    return isDouble(ReturnStatus);
}
bool MString::isDouble(MStatus* ReturnStatus) const {
    double value = 0.0;
    setStatus(ReturnStatus, true);
    return common::parseDouble(text_, value);
}

MString operator+(const char* left, const MString& right) {
    return MString(left) += right;
}

std::ostream& operator<<(std::ostream& out, const MString& text) {
    return out << text.str();
}
