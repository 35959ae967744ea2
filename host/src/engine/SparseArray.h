#pragma once
// The elements of a multi attribute: values by logical index, kept in ascending index order so
// physical positions are array positions. Appending in ascending order is O(1); out-of-order
// inserts are gathered in a side buffer and merged in one sort when positions are next needed, so
// writing a million elements in any order stays n log n.
// A multi of plain numbers may also be held as bare numbers, 12 bytes an element instead of a whole
// element each: bulk writers store them so, readers that only want numbers read them so, and the
// elements are built the first time anything asks for one.
#include "engine/HugePages.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace host {

template <class T> class SparseArray {
public:
    std::size_t size() const { return keys_.size() + pendingKeys_.size(); }
    bool empty() const { return size() == 0; }

    T* find(uint32_t key) {
        // A key that bare numbers lack needs no elements built to say so.
        if (!numbers_.empty() && !findNumber(key)) return nullptr;
        expand();
        const std::size_t position = positionOf(key);
        if (position < keys_.size() && keys_[position] == key) {
            lastFound_ = position;
            return &values_[position];
        }
        if (pendingKeys_.empty()) return nullptr;
        auto p = pendingIndex_.find(key);
        return p == pendingIndex_.end() ? nullptr : &pendingValues_[p->second];
    }
    const T* find(uint32_t key) const { return const_cast<SparseArray*>(this)->find(key); }

    // The element at `key`, created (default value) when missing.
    T& obtain(uint32_t key) {
        expand();
        // Writing in ascending order appends without a search.
        if (pendingKeys_.empty() && (keys_.empty() || key > keys_.back())) {
            keys_.push_back(key);
            values_.emplace_back();
            return values_.back();
        }
        if (T* existing = find(key)) return *existing;
        pendingIndex_.emplace(key, pendingKeys_.size());
        pendingKeys_.push_back(key);
        pendingValues_.emplace_back();
        return pendingValues_.back();
    }

    bool erase(uint32_t key) {
        merge();
        expand();
        auto it = std::lower_bound(keys_.begin(), keys_.end(), key);
        if (it == keys_.end() || *it != key) return false;
        auto pos = it - keys_.begin();
        keys_.erase(it);
        values_.erase(values_.begin() + pos);
        return true;
    }

    // Room for `count` elements; a large one asks for huge pages before it is filled.
    void reserve(std::size_t count) {
        expand();
        keys_.reserve(count);
        values_.reserve(count);
        preferHugePages(keys_.data(), keys_.capacity() * sizeof(uint32_t));
        preferHugePages(values_.data(), values_.capacity() * sizeof(T));
    }

    void clear() {
        keys_.clear();
        values_.clear();
        pendingKeys_.clear();
        pendingValues_.clear();
        pendingIndex_.clear();
        numbers_.clear();
    }

    // Whether the elements are held as bare numbers, one per key.
    bool holdsNumbers() const { return !numbers_.empty(); }
    const std::vector<double>& numbers() const { return numbers_; }
    std::vector<double>& numbers() { return numbers_; }

    // The bare number at `key`; null when the elements are not bare numbers or none is at `key`.
    const double* findNumber(uint32_t key) const {
        if (numbers_.empty()) return nullptr;
        const std::size_t position = positionOf(key);
        if (position == keys_.size() || keys_[position] != key) return nullptr;
        lastFound_ = position;
        return &numbers_[position];
    }

    // Writes a bare number at `key` when the elements are bare numbers, or there are none, and
    // `key` is held or comes after the last; false, with nothing written, otherwise.
    bool writeNumber(uint32_t key, double number) {
        if (!values_.empty() || !pendingKeys_.empty()) return false;
        if (keys_.empty() || key > keys_.back()) {
            keys_.push_back(key);
            numbers_.push_back(number);
            return true;
        }
        const std::size_t position = positionOf(key);
        if (keys_[position] != key) return false;
        lastFound_ = position;
        numbers_[position] = number;
        return true;
    }

    // Replaces every element by numbers at ascending, distinct keys (the caller's guarantee).
    void assignNumbers(std::vector<uint32_t> keys, std::vector<double> numbers) {
        clear();
        keys_ = std::move(keys);
        numbers_ = std::move(numbers);
        numbers_.resize(keys_.size());
        lastFound_ = 0;
    }

    // Physical access: positions in ascending logical order.
    uint32_t keyAt(std::size_t position) const {
        merge();
        return keys_[position];
    }
    T& valueAt(std::size_t position) {
        merge();
        expand();
        return values_[position];
    }
    const T& valueAt(std::size_t position) const {
        merge();
        expand();
        return values_[position];
    }
    const std::vector<uint32_t>& keys() const {
        merge();
        return keys_;
    }

    SparseArray clone() const {
        merge();
        SparseArray copy;
        copy.keys_ = keys_;
        copy.numbers_ = numbers_;
        copy.values_.reserve(values_.size());
        for (const T& v : values_) copy.values_.push_back(cloneValue(v));
        return copy;
    }

private:
    // Where key is, or would go, among the merged keys. Elements visited in ascending order (as
    // commands read and write whole maps) are found at or just after the last one found, without a
    // search.
    std::size_t positionOf(uint32_t key) const {
        for (std::size_t p = lastFound_; p < keys_.size() && p <= lastFound_ + 1; ++p)
            if (keys_[p] == key) return p;
        return static_cast<std::size_t>(std::lower_bound(keys_.begin(), keys_.end(), key) - keys_.begin());
    }

    static T cloneValue(const T& v) {
        if constexpr (std::is_copy_constructible_v<T>)
            return v;
        else
            return v.clone();
    }

    // Builds the elements of bare numbers, once, when an element itself is wanted.
    void expand() const {
        if (numbers_.empty()) return;
        values_.reserve(numbers_.size());
        preferHugePages(values_.data(), values_.capacity() * sizeof(T));
        values_.resize(numbers_.size());
        for (std::size_t k = 0; k < numbers_.size(); ++k) {
            if constexpr (std::is_arithmetic_v<T>)
                values_[k] = static_cast<T>(numbers_[k]);
            else
                values_[k].value = numbers_[k];
        }
        std::vector<double>().swap(numbers_);
    }

    void merge() const {
        if (pendingKeys_.empty()) return;
        std::vector<std::size_t> order(pendingKeys_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::sort(order.begin(), order.end(),
                  [this](std::size_t a, std::size_t b) { return pendingKeys_[a] < pendingKeys_[b]; });
        std::vector<uint32_t> keys;
        std::vector<T> values;
        keys.reserve(size());
        values.reserve(size());
        std::size_t i = 0, j = 0;
        while (i < keys_.size() || j < order.size()) {
            bool takeMain = j == order.size() || (i < keys_.size() && keys_[i] < pendingKeys_[order[j]]);
            if (takeMain) {
                keys.push_back(keys_[i]);
                values.push_back(std::move(values_[i++]));
            } else {
                keys.push_back(pendingKeys_[order[j]]);
                values.push_back(std::move(pendingValues_[order[j++]]));
            }
        }
        keys_ = std::move(keys);
        values_ = std::move(values);
        pendingKeys_.clear();
        pendingValues_.clear();
        pendingIndex_.clear();
    }

    mutable std::vector<uint32_t> keys_;
    mutable std::vector<T> values_;
    mutable std::vector<double> numbers_; // the elements as bare numbers, or empty
    mutable std::vector<uint32_t> pendingKeys_;
    mutable std::vector<T> pendingValues_;
    mutable std::unordered_map<uint32_t, std::size_t> pendingIndex_;
    // Only a guess, checked before use.
    mutable std::size_t lastFound_ = 0;
};

} // namespace host
