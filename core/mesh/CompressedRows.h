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

// Filling rows of a flat array through cursors: `offsets` holds numRows + 1 entries with the count of row r
// at r + 1 (entry 0 is 0). Turns entry r + 1 into the start of row r, the cursor where its items go, and
// returns the total count. Advancing each cursor past its row's items leaves offsets[r] .. offsets[r + 1]
// as row r.
inline int countsToCursors(std::vector<int>& offsets) {
    int running = 0;
    for (std::size_t r = 1; r < offsets.size(); ++r) {
        const int count = offsets[r];
        offsets[r] = running;
        running += count;
    }
    return running;
}

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
        fill(
            numRows, [&](auto&& emit) { visit([&](int row, int item) { emit(row, item, 0); }); }, nullptr);
    }

    // The same with a second list laid out like the items: emit(row, item, second) also places `second`,
    // read back with row(r, parallel).
    template <class Visit> void build(int numRows, Visit&& visit, std::vector<int>& parallel) {
        fill(numRows, visit, &parallel);
    }

    int numRows() const { return static_cast<int>(offsets_.size()) - 1; }

    // The indices of one row; empty for a row outside the table.
    IndexRange row(int r) const {
        if (r < 0 || r >= numRows()) return {};
        return {items_.data() + offsets_[r], items_.data() + offsets_[r + 1]};
    }

    // Row r of a list laid out like the items (same length, same rows); empty for a row outside the table
    // or a list of another length.
    IndexRange row(int r, const std::vector<int>& parallel) const {
        if (r < 0 || r >= numRows() || parallel.size() != items_.size()) return {};
        return {parallel.data() + offsets_[r], parallel.data() + offsets_[r + 1]};
    }

    const std::vector<int>& offsets() const { return offsets_; }
    const std::vector<int>& items() const { return items_; }

private:
    template <class Visit> void fill(int numRows, Visit&& visit, std::vector<int>* parallel) {
        offsets_.assign(static_cast<std::size_t>(numRows) + 1, 0);
        visit([this](int row, int, int) { ++offsets_[static_cast<std::size_t>(row) + 1]; });
        const int running = countsToCursors(offsets_);
        items_.resize(static_cast<std::size_t>(running));
        if (parallel) parallel->resize(static_cast<std::size_t>(running));
        visit([&](int row, int item, int second) {
            const std::size_t at = static_cast<std::size_t>(offsets_[static_cast<std::size_t>(row) + 1]++);
            items_[at] = item;
            if (parallel) (*parallel)[at] = second;
        });
    }

    std::vector<int> offsets_{0};
    std::vector<int> items_;
};

} // namespace core
