#include "data/text_table.hpp"

#include <algorithm>

namespace vardel {

void TextTable::keep_rows(const std::vector<bool>& keep) {
  const std::size_t row_bytes = static_cast<std::size_t>(cols_) * width_;
  std::ptrdiff_t kept = 0;
  for (std::ptrdiff_t i = 0; i < rows_; ++i) {
    if (!keep[static_cast<std::size_t>(i)]) continue;
    if (kept != i) {
      std::copy_n(cells_.begin() + static_cast<std::ptrdiff_t>(i * row_bytes), row_bytes,
                  cells_.begin() + static_cast<std::ptrdiff_t>(kept * row_bytes));
    }
    ++kept;
  }
  rows_ = kept;
  cells_.resize(static_cast<std::size_t>(kept) * row_bytes);
}

}  // namespace vardel
