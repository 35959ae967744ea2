#pragma once
// Storage shared by the host's array classes (MIntArray, MDoubleArray, MPointArray, ...):
// a contiguous vector with Maya's array interface on top.
#include <maya/MStatus.h>

#include <vector>

template <class T> class MHostArray {
public:
    MHostArray() = default;
    MHostArray(const T* src, unsigned int count) : data_(src, src + count) {}
    MHostArray(unsigned int initialSize, const T& initialValue) : data_(initialSize, initialValue) {}
    explicit MHostArray(unsigned int initialSize) : data_(initialSize) {}

    const T& operator[](unsigned int index) const { return data_[index]; }
    T& operator[](unsigned int index) { return data_[index]; }
    MStatus set(const T& element, unsigned int index) {
        if (index >= data_.size()) return MS::kFailure;
        data_[index] = element;
        return MS::kSuccess;
    }
    MStatus setLength(unsigned int length) {
        data_.resize(length);
        return MS::kSuccess;
    }
    unsigned int length() const { return static_cast<unsigned int>(data_.size()); }
    MStatus remove(unsigned int index) {
        if (index >= data_.size()) return MS::kFailure;
        data_.erase(data_.begin() + index);
        return MS::kSuccess;
    }
    MStatus insert(const T& element, unsigned int index) {
        if (index > data_.size()) return MS::kFailure;
        data_.insert(data_.begin() + index, element);
        return MS::kSuccess;
    }
    MStatus append(const T& element) {
        data_.push_back(element);
        return MS::kSuccess;
    }
    MStatus clear() {
        data_.clear();
        return MS::kSuccess;
    }
    MStatus get(T* out) const {
        for (std::size_t i = 0; i < data_.size(); ++i) out[i] = data_[i];
        return MS::kSuccess;
    }
    void setSizeIncrement(unsigned int) {}
    unsigned int sizeIncrement() const { return 1; }

    // Host access, not part of Maya's interface: never used by plugin code.
    const std::vector<T>& vec() const { return data_; }
    std::vector<T>& vec() { return data_; }

protected:
    std::vector<T> data_;
};

#define MHOST_ARRAY_CLASS(NAME, T)                                                                           \
    class NAME : public MHostArray<T> {                                                                      \
    public:                                                                                                  \
        NAME() = default;                                                                                    \
        NAME(const T* src, unsigned int count) : MHostArray<T>(src, count) {}                                \
        NAME(unsigned int initialSize, const T& initialValue) : MHostArray<T>(initialSize, initialValue) {}  \
        explicit NAME(unsigned int initialSize) : MHostArray<T>(initialSize) {}                              \
        explicit NAME(std::vector<T> values) { data_ = std::move(values); }                                  \
        MStatus copy(const NAME& source) {                                                                   \
            data_ = source.data_;                                                                            \
            return MS::kSuccess;                                                                             \
        }                                                                                                    \
    }
