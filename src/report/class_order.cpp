#include "report/class_order.hpp"

#include <algorithm>

#include "numerics/format.hpp"
#include "numerics/indexx.hpp"

namespace vardel {

FArray<int> class_order(const FArray<std::string>& clabel) {
  const auto k = clabel.size();
  FArray<int> first_char(k, 0);
  for (FArray<int>::Index i = 1; i <= k; ++i)
    first_char(i) = clabel(i).empty() ? ' ' : static_cast<unsigned char>(clabel(i)[0]);
  FArray<int> indx(k, 0);
  indexx_i4b(first_char.span(), indx.span());
  return indx;
}

int label_width(const FArray<std::string>& clabel) {
  int w = 1;
  for (const std::string& label : clabel) w = std::max(w, static_cast<int>(trim(label).size()));
  return w;
}

}  // namespace vardel
