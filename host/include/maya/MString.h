#pragma once
// A character string with Maya's conversions and number formatting.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <string>

class MStringArray;

class MString {
public:
    MString() = default;
    MString(const char* charString);
    MString(const char* charString, int charLength);
    MString(const wchar_t* wideString);
    MString(const MString& other) = default;
    MString(MString&& other) noexcept = default;
    MString(const std::string& text) : text_(text) {}
    ~MString() = default;

    MString& operator=(const MString& other) = default;
    MString& operator=(MString&& other) noexcept = default;
    MString& operator=(const char* other);
    MString& operator=(double value);

    MString& operator+=(const MString& other);
    MString& operator+=(const char* other);
    MString& operator+=(double value);
    MString& operator+=(int value);
    MString& operator+=(unsigned int value);
    MString& operator+=(float value);
    MString& operator+=(long value);
    MString& operator+=(unsigned long value);

    MString operator+(const MString& other) const;
    MString operator+(const char* other) const;
    MString operator+(double value) const;
    MString operator+(int value) const;
    MString operator+(unsigned int value) const;
    MString operator+(float value) const;

    bool operator==(const MString& other) const { return text_ == other.text_; }
    bool operator==(const char* other) const;
    bool operator!=(const MString& other) const { return text_ != other.text_; }
    bool operator!=(const char* other) const { return !(*this == other); }
    bool operator<(const MString& other) const { return text_ < other.text_; }

    MStatus set(const char* charString);
    MStatus set(const char* charString, int charLength);
    MStatus set(double value);
    MStatus set(double value, int precision);

    const char* asChar() const { return text_.c_str(); }
    const char* asChar(int& length) const;
    const char* asUTF8() const { return text_.c_str(); }
    unsigned int length() const { return static_cast<unsigned int>(text_.size()); }
    unsigned int numChars() const { return length(); }
    void clear() { text_.clear(); }

    int index(char c) const;
    int rindex(char c) const;
    int indexW(const MString& s) const;
    int indexW(char c) const { return index(c); }
    int rindexW(char c) const { return rindex(c); }
    // Characters from start to end inclusive.
    MString substring(int start, int end) const;
    MString substringW(int start, int end) const { return substring(start, end); }
    MStatus split(char delimiter, MStringArray& output) const;
    MString toLowerCase() const;
    MString toUpperCase() const;
    MStatus substitute(const MString& match, const MString& replacement);
    MStatus substituteFirst(const MString& match, const MString& replacement);
    MString expandEnvironmentVariablesAndTilde(MStatus* ReturnStatus = NULL) const;

    short asShort(MStatus* ReturnStatus = NULL) const;
    int asInt(MStatus* ReturnStatus = NULL) const;
    unsigned int asUnsigned(MStatus* ReturnStatus = NULL) const;
    float asFloat(MStatus* ReturnStatus = NULL) const;
    double asDouble(MStatus* ReturnStatus = NULL) const;
    bool isShort(MStatus* ReturnStatus = NULL) const;
    bool isInt(MStatus* ReturnStatus = NULL) const;
    bool isUnsigned(MStatus* ReturnStatus = NULL) const;
    bool isFloat(MStatus* ReturnStatus = NULL) const;
    bool isDouble(MStatus* ReturnStatus = NULL) const;

    // Host access, not part of Maya's interface: never used by plugin code.
    const std::string& str() const { return text_; }
    std::string& str() { return text_; }

private:
    std::string text_;
};

MString operator+(const char* left, const MString& right);
std::ostream& operator<<(std::ostream& out, const MString& text);
