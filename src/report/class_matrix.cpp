#include "report/class_matrix.hpp"

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "numerics/format.hpp"
#include "report/class_order.hpp"
#include "report/tree_walk.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

// Narrowest label column; "Actual class" fits in it.
constexpr int kLabelColumnMin = 12;
// Narrowest count column.
constexpr int kCountColumnMin = 4;

}  // namespace

int count_width(const FArray<int>& table, const FArray<int>& totals) {
  long long largest = 0;
  for (const int v : table) largest = std::max<long long>(largest, v);
  long long n = 0;
  for (const int v : totals) {
    largest = std::max<long long>(largest, v);
    n += v;
  }
  largest = std::max(largest, n);
  return digit_count(largest);
}

int diagonal_sum(const FArray<int>& table) {
  int sum = 0;
  for (FArray<int>::Index i = 1; i <= table.extent1(); ++i) sum += table(i, i);
  return sum;
}

void write_class_matrix(std::ostream& out, const FArray<int>& table, const FArray<int>& totals,
                        const FArray<double>& prob) {
  const Init& in = init();
  const int k = in.nclass;
  const FArray<int> indx = class_order(in.clabel);
  const int lw = label_width(in.clabel);
  const int d = count_width(table, totals);
  const std::string first = std::to_string(std::max(lw, kLabelColumnMin));
  const std::string col = std::to_string(std::max({lw, kCountColumnMin, d}));
  const std::string digits = std::to_string(d);

  std::string head = join_text({"(2x,a", first});
  std::string row = head;
  for (int j = 1; j <= k; ++j) {
    head += join_text({",1x,a", col});
    row += join_text({",1x,i", col});
  }
  head += ",2x,a6,1x,a)";
  row += join_text({",2x,f6.3,2x,i", digits, ")"});

  // Column heads stand right-aligned over their counts.
  std::vector<std::string> labels;
  for (int j = 1; j <= k; ++j) labels.emplace_back(trim(in.clabel(indx(j))));
  std::vector<FmtItem> items{"Actual class"};
  for (const std::string& label : labels) items.emplace_back(label);
  // The rows give the prior (f6.3) before the number of cases.
  items.emplace_back("Prior");
  items.emplace_back("#obs");
  const std::string head_line = format(head, items);
  out << head_line;

  // The rule runs from the label column to the end of the head.
  const std::string rule(head_line.size() - 3, '-');
  write_fmt(out, "(2x,a)", {rule});

  for (int i = 1; i <= k; ++i) {
    const int a = indx(i);
    items.assign({in.clabel(a)});
    for (int j = 1; j <= k; ++j) items.emplace_back(table(indx(j), a));
    items.emplace_back(prob(a));
    items.emplace_back(totals(a));
    write_fmt(out, row, items);
  }
  write_fmt(out, "(2x,a)", {rule});
}

}  // namespace vardel
