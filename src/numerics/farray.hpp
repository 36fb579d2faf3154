// FArray: the one array type of the program.
//
// Every algorithm here counts positions from 1 and flattens matrices column by
// column, the first index running fastest. FArray stores its elements in one
// contiguous vector and exposes exactly that view, so that a flattened block
// reads as the algorithm writes it: a(i) for a vector, a(i, j) for element
// (i, j) of an n1 by n2 matrix, at flat position i + (j - 1) * n1.
//
// Construction: FArray(n) or FArray(n, fill) is a vector of n elements;
// FArray(n1, n2, fill) is an n1 by n2 matrix. A matrix always names its fill
// value, so two arguments can never be mistaken for two extents.
//
// Bounds are checked when VARDEL_BOUNDS_CHECK is defined (the sanitizer build).
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <type_traits>
#include <vector>

namespace vardel {

// Stops the program when index i is outside 1..n, in builds with bounds checks.
inline void check_index([[maybe_unused]] const char* type, [[maybe_unused]] std::ptrdiff_t i,
                        [[maybe_unused]] std::ptrdiff_t n) {
#ifdef VARDEL_BOUNDS_CHECK
  if (i < 1 || i > n) {
    std::fprintf(stderr, "%s: index %td outside 1..%td\n", type, i, n);
    std::abort();
  }
#endif
}

template <class T>
class FArray {
 public:
  using Index = std::ptrdiff_t;

  FArray() = default;
  explicit FArray(Index n1, const T& init = T{}) : v_(to_size(n1), init), n1_(n1), n2_(1) {}
  FArray(Index n1, Index n2, const T& init)
      : v_(to_size(n1) * to_size(n2), init), n1_(n1), n2_(n2) {}

  // Element i of the flat storage, counted from 1.
  T& operator()(Index i) {
    check(i, size());
    return v_[static_cast<std::size_t>(i - 1)];
  }
  const T& operator()(Index i) const {
    check(i, size());
    return v_[static_cast<std::size_t>(i - 1)];
  }

  // Element (i, j) of the n1 by n2 matrix, column-major, both counted from 1.
  T& operator()(Index i, Index j) {
    check(i, n1_);
    check(j, n2_);
    return v_[static_cast<std::size_t>((i - 1) + (j - 1) * n1_)];
  }
  const T& operator()(Index i, Index j) const {
    check(i, n1_);
    check(j, n2_);
    return v_[static_cast<std::size_t>((i - 1) + (j - 1) * n1_)];
  }

  // Reshape and fill: the old contents are discarded.
  void assign(Index n1, const T& init = T{}) { assign(n1, 1, init); }
  void assign(Index n1, Index n2, const T& init) {
    v_.assign(to_size(n1) * to_size(n2), init);
    n1_ = n1;
    n2_ = n2;
  }
  // Reshape for a caller that writes every element next: storage already
  // held keeps whatever it holds (no pass over it), new storage gets `init`.
  void reshape_for_overwrite(Index n1, Index n2, const T& init) {
    v_.resize(to_size(n1) * to_size(n2), init);
    n1_ = n1;
    n2_ = n2;
  }
  // Keeps the first n1 rows of every column, moved together in place: no
  // second array is made (the storage keeps its capacity).
  void keep_rows(Index n1) {
    check(n1 + 1, n1_ + 1);
    for (Index j = 2; j <= n2_; ++j) {
      const auto from = v_.begin() + (j - 1) * n1_;
      std::copy(from, from + n1, v_.begin() + (j - 1) * n1);
    }
    v_.resize(to_size(n1) * to_size(n2_));
    n1_ = n1;
  }
  void fill(const T& value) { v_.assign(v_.size(), value); }
  void clear() {
    v_.clear();
    v_.shrink_to_fit();
    n1_ = 0;
    n2_ = 1;
  }

  Index size() const { return static_cast<Index>(v_.size()); }
  bool empty() const { return v_.empty(); }
  bool allocated() const { return !v_.empty(); }
  Index extent1() const { return n1_; }
  Index extent2() const { return n2_; }

  // Column j as a contiguous span of extent1() elements.
  std::span<T> column(Index j) {
    check(j, n2_);
    return std::span<T>(v_.data() + (j - 1) * n1_, static_cast<std::size_t>(n1_));
  }
  std::span<const T> column(Index j) const {
    check(j, n2_);
    return std::span<const T>(v_.data() + (j - 1) * n1_, static_cast<std::size_t>(n1_));
  }

  T* data() { return v_.data(); }
  const T* data() const { return v_.data(); }
  std::span<T> span() { return v_; }
  std::span<const T> span() const { return v_; }
  auto begin() { return v_.begin(); }
  auto end() { return v_.end(); }
  auto begin() const { return v_.begin(); }
  auto end() const { return v_.end(); }
  std::vector<T>& vector() { return v_; }
  const std::vector<T>& vector() const { return v_; }

  friend bool operator==(const FArray& a, const FArray& b) {
    return a.n1_ == b.n1_ && a.n2_ == b.n2_ && a.v_ == b.v_;
  }

 private:
  static std::size_t to_size(Index n) { return n > 0 ? static_cast<std::size_t>(n) : 0; }
  static void check(Index i, Index n) { check_index("FArray", i, n); }

  std::vector<T> v_;
  Index n1_ = 0;
  Index n2_ = 1;
};

// A 1-based window onto contiguous storage that someone else owns, such as a
// node record or a column of a matrix: v(1) is the first element of the span.
template <class T>
class FView {
 public:
  using Index = std::ptrdiff_t;
  FView() = default;
  FView(std::span<T> s) : s_(s) {}  // NOLINT: implicit from spans is intended
  FView(T* p, Index n) : s_(p, static_cast<std::size_t>(n)) {}

  T& operator()(Index i) const {
    check_index("FView", i, size());
    return s_[static_cast<std::size_t>(i - 1)];
  }
  Index size() const { return static_cast<Index>(s_.size()); }
  std::span<T> span() const { return s_; }
  T* data() const { return s_.data(); }

 private:
  std::span<T> s_;
};

// A 1-based n1 by n2 block of a column-major matrix that someone else owns:
// rows r0 + 1 .. r0 + n1 of an FArray, say, whose columns lie `stride`
// elements apart. a(i, j) and column(j) read as on an FArray of the block's
// shape. An FArray converts to a view of the whole of it.
template <class T>
class FMatrixView {
 public:
  using Index = std::ptrdiff_t;
  using Plain = std::remove_const_t<T>;

  FMatrixView() = default;
  FMatrixView(T* first, Index n1, Index n2, Index stride)
      : p_(first), n1_(n1), n2_(n2), stride_(stride) {}
  FMatrixView(FArray<Plain>& a)  // NOLINT: implicit by design
      : p_(a.data()), n1_(a.extent1()), n2_(a.extent2()), stride_(a.extent1()) {}
  template <class U = T, class = std::enable_if_t<std::is_const_v<U>>>
  FMatrixView(const FArray<Plain>& a)  // NOLINT: implicit by design
      : p_(a.data()), n1_(a.extent1()), n2_(a.extent2()), stride_(a.extent1()) {}
  template <class U = T, class = std::enable_if_t<std::is_const_v<U>>>
  FMatrixView(FMatrixView<Plain> v)  // NOLINT: implicit by design
      : p_(v.data()), n1_(v.extent1()), n2_(v.extent2()), stride_(v.stride()) {}

  T& operator()(Index i, Index j) const {
    check(i, n1_);
    check(j, n2_);
    return p_[(i - 1) + (j - 1) * stride_];
  }
  Index extent1() const { return n1_; }
  Index extent2() const { return n2_; }
  Index stride() const { return stride_; }
  T* data() const { return p_; }
  std::span<T> column(Index j) const {
    check(j, n2_);
    return std::span<T>(p_ + (j - 1) * stride_, static_cast<std::size_t>(n1_));
  }
  // Rows r0 + 1 .. r0 + n of this block.
  FMatrixView rows(Index r0, Index n) const { return FMatrixView(p_ + r0, n, n2_, stride_); }

 private:
  static void check(Index i, Index n) { check_index("FMatrixView", i, n); }

  T* p_ = nullptr;
  Index n1_ = 0;
  Index n2_ = 0;
  Index stride_ = 0;
};

}  // namespace vardel
