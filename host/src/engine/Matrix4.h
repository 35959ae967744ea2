#pragma once
// 4x4 matrix arithmetic shared by MMatrix (double) and MFloatMatrix (float). Matrices are row-major
// and act on row vectors, as Maya's do: v' = v * M, and A * B applies A first.
#include <cmath>
#include <utility>

namespace talven::matrix4 {

template <class T> using Rows = T[4][4];

template <class T> void setIdentity(Rows<T>& m) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) m[r][c] = r == c ? T(1) : T(0);
}

// Copies between matrices of either precision.
template <class S, class D> void copy(const S src[4][4], D dst[4][4]) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) dst[r][c] = static_cast<D>(src[r][c]);
}

// out = a * b; out may alias a or b.
template <class T> void multiply(const Rows<T>& a, const Rows<T>& b, Rows<T>& out) {
    T result[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            T sum = 0;
            for (int k = 0; k < 4; ++k) sum += a[r][k] * b[k][c];
            result[r][c] = sum;
        }
    copy(result, out);
}

template <class T> void transpose(const Rows<T>& m, Rows<T>& out) {
    T result[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) result[r][c] = m[c][r];
    copy(result, out);
}

// Determinant of the 3x3 matrix left after removing row `skipRow` and column `skipCol`.
template <class T> T minor3(const Rows<T>& m, int skipRow, int skipCol) {
    int rows[3], cols[3];
    for (int i = 0, r = 0, c = 0; i < 4; ++i) {
        if (i != skipRow) rows[r++] = i;
        if (i != skipCol) cols[c++] = i;
    }
    auto at = [&](int r, int c) { return m[rows[r]][cols[c]]; };
    return at(0, 0) * (at(1, 1) * at(2, 2) - at(1, 2) * at(2, 1)) -
           at(0, 1) * (at(1, 0) * at(2, 2) - at(1, 2) * at(2, 0)) +
           at(0, 2) * (at(1, 0) * at(2, 1) - at(1, 1) * at(2, 0));
}

template <class T> T det4x4(const Rows<T>& m) {
    T det = 0;
    for (int c = 0; c < 4; ++c) det += (c % 2 ? -m[0][c] : m[0][c]) * minor3(m, 0, c);
    return det;
}

template <class T> T det3x3(const Rows<T>& m) {
    return minor3(m, 3, 3);
}

// Classical adjugate: the transposed cofactor matrix.
template <class T> void adjoint(const Rows<T>& m, Rows<T>& out) {
    T result[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) result[c][r] = ((r + c) % 2 ? -1 : 1) * minor3(m, r, c);
    copy(result, out);
}

// Gauss-Jordan elimination with partial pivoting. A singular matrix has no inverse: the result is
// then the identity, so callers never see infinities or NaNs. A matrix holding a value that is not
// finite, or a pivot so small that the inverse overflows, counts as singular too.
template <class T> void inverse(const Rows<T>& m, Rows<T>& out) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (!std::isfinite(m[r][c])) {
                setIdentity(out);
                return;
            }
    T a[4][4], inv[4][4];
    copy(m, a);
    setIdentity(inv);
    for (int col = 0; col < 4; ++col) {
        int pivot = col;
        for (int r = col + 1; r < 4; ++r)
            if (std::abs(a[r][col]) > std::abs(a[pivot][col])) pivot = r;
        if (a[pivot][col] == T(0)) {
            setIdentity(out);
            return;
        }
        for (int c = 0; c < 4; ++c) {
            std::swap(a[col][c], a[pivot][c]);
            std::swap(inv[col][c], inv[pivot][c]);
        }
        const T scale = T(1) / a[col][col];
        for (int c = 0; c < 4; ++c) {
            a[col][c] *= scale;
            inv[col][c] *= scale;
        }
        for (int r = 0; r < 4; ++r) {
            if (r == col || a[r][col] == T(0)) continue;
            const T factor = a[r][col];
            for (int c = 0; c < 4; ++c) {
                a[r][c] -= factor * a[col][c];
                inv[r][c] -= factor * inv[col][c];
            }
        }
    }
    for (const auto& row : inv)
        for (T value : row)
            if (!std::isfinite(value)) {
                setIdentity(out);
                return;
            }
    copy(inv, out);
}

template <class T> bool isEquivalent(const Rows<T>& a, const Rows<T>& b, T tolerance) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (!(std::abs(a[r][c] - b[r][c]) <= tolerance)) return false;
    return true;
}

template <class T> bool equal(const Rows<T>& a, const Rows<T>& b) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (a[r][c] != b[r][c]) return false;
    return true;
}

} // namespace talven::matrix4
