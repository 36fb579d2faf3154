// TextTable: a rows by columns table of fixed-width, blank-padded text items,
// stored in one block (the raw tokens of a data file before they become
// numbers). Cell (i, j) counts from 1.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace vardel {

class TextTable {
 public:
  TextTable() = default;
  TextTable(std::ptrdiff_t rows, std::ptrdiff_t cols, std::size_t width)
      : cells_(static_cast<std::size_t>(rows * cols) * width, ' '),
        rows_(rows),
        cols_(cols),
        width_(width) {}

  std::string_view operator()(std::ptrdiff_t i, std::ptrdiff_t j) const {
    return {cells_.data() + offset(i, j), width_};
  }
  // Stores text cut or blank-padded to the width.
  void set(std::ptrdiff_t i, std::ptrdiff_t j, std::string_view text) {
    char* cell = cells_.data() + offset(i, j);
    const std::size_t n = text.size() < width_ ? text.size() : width_;
    for (std::size_t k = 0; k < n; ++k) cell[k] = text[k];
    for (std::size_t k = n; k < width_; ++k) cell[k] = ' ';
  }
  std::ptrdiff_t rows() const { return rows_; }
  std::ptrdiff_t cols() const { return cols_; }
  std::size_t width() const { return width_; }

  // Keeps only the rows whose flag is true, in order.
  void keep_rows(const std::vector<bool>& keep);

 private:
  std::size_t offset(std::ptrdiff_t i, std::ptrdiff_t j) const {
    return static_cast<std::size_t>((i - 1) * cols_ + (j - 1)) * width_;
  }
  std::vector<char> cells_;
  std::ptrdiff_t rows_ = 0;
  std::ptrdiff_t cols_ = 0;
  std::size_t width_ = 0;
};

}  // namespace vardel
