#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace core {

// A read-only view of consecutive indices inside a flat array.
struct IndexRange {
    const int* first = nullptr;
    const int* last = nullptr;

    const int* begin() const { return first; }
    const int* end() const { return last; }
    int size() const { return static_cast<int>(last - first); }
    bool empty() const { return first == last; }
    int operator[](int i) const { return first[i]; }
};

// Rows of indices stored flat: row r holds items[offsets[r] .. offsets[r + 1]).
class CompressedRows {
public:
    // Replaces the rows with ready-made offsets (numRows + 1 entries, the last one items.size()) and items.
    void assign(std::vector<int> offsets, std::vector<int> items) {
        offsets_ = std::move(offsets);
        items_ = std::move(items);
    }

    // Builds the rows in two linear passes. `visit(emit)` must call emit(row, item) for every entry and
    // emit the same entries both times it is called; items keep their emission order within a row.
    template <class Visit> void build(int numRows, Visit&& visit) {
        offsets_.assign(static_cast<std::size_t>(numRows) + 1, 0);
        visit([this](int row, int) { ++offsets_[static_cast<std::size_t>(row) + 1]; });
        for (std::size_t r = 1; r < offsets_.size(); ++r) offsets_[r] += offsets_[r - 1];
        items_.resize(static_cast<std::size_t>(offsets_.back()));
        std::vector<int> next(offsets_.begin(), offsets_.end() - 1);
        visit([&](int row, int item) { items_[static_cast<std::size_t>(next[row]++)] = item; });
    }

    int numRows() const { return static_cast<int>(offsets_.size()) - 1; }

    // The indices of one row; empty for a row outside the table.
    IndexRange row(int r) const {
        if (r < 0 || r >= numRows()) return {};
        return {items_.data() + offsets_[r], items_.data() + offsets_[r + 1]};
    }

    const std::vector<int>& offsets() const { return offsets_; }
    const std::vector<int>& items() const { return items_; }

private:
    std::vector<int> offsets_{0};
    std::vector<int> items_;
};

} // namespace core
