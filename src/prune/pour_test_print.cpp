#include "prune/pour_test_print.hpp"

#include <algorithm>
#include <fstream>
#include <optional>
#include <string>

#include "numerics/format.hpp"
#include "prune/pour_test.hpp"
#include "report/class_order.hpp"
#include "report/tree_walk.hpp"
#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

namespace {

std::string label_of(const Init& in, int cls) {
  if (cls < 1 || cls > in.nclass) return "";
  return std::string(trim(in.clabel(cls)));
}

}  // namespace

void pour_test_print(FArray<int>& table, FArray<double>& x, std::span<const int> y,
                     const FArray<char>& mis, int n, FArray<int>& termid) {
  const Init& in = init();
  const int k = in.nclass;
  PourWork work(k);
  FArray<int> py(n, 0);
  termid.assign(n, 0);
  const PourTree tree(tree_store());
  for (int row = 1; row <= n; ++row) {
    const std::optional<Landing> landing = land_case(tree, x, mis, row, work);
    if (!landing) return;
    py(row) = landing->iclass;
    termid(row) = landing->node;
  }
  table.assign(k, k, 0);
  for (int row = 1; row <= n; ++row) {
    const int actual = y[static_cast<std::size_t>(row - 1)];
    if (actual < 1 || actual > k || py(row) < 1 || py(row) > k) continue;
    ++table(py(row), actual);
  }

  int largest_node = 0;
  for (int t : termid) largest_node = std::max(largest_node, t);
  const std::string w = std::to_string(digit_count(n));
  const std::string v = std::to_string(digit_count(largest_node));
  const std::string width = std::to_string(label_width(in.clabel) + 1);
  std::ofstream out(std::string(trim(in.predictfile)), std::ios::trunc);
  if (in.testlabel == 'y') {
    write_fmt(out, "(a)", {"Case_id, Terminal_id, Actual_label, Predicted_label"});
    const std::string row_fmt = join_text({"(i", w, ",1x,i", v, ",2a", width, ")"});
    for (int row = 1; row <= n; ++row) {
      const int actual = y[static_cast<std::size_t>(row - 1)];
      if (actual < 0) continue;
      write_fmt(out, row_fmt, {row, termid(row), label_of(in, actual), label_of(in, py(row))});
    }
  } else {
    write_fmt(out, "(a)", {"Case_id, Terminal_id, Predicted_label"});
    const std::string row_fmt = join_text({"(i", w, ",1x,i", v, ",a", width, ")"});
    for (int row = 1; row <= n; ++row)
      write_fmt(out, row_fmt, {row, termid(row), label_of(in, py(row))});
  }
}

}  // namespace vardel
