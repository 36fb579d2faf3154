#include "report/tree_walk.hpp"

#include <cmath>
#include <limits>

#include "numerics/text.hpp"
#include "report/string_sort.hpp"
#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel {
namespace {

// Integers and codes are held as doubles in a node record.
int record_int(const FView<double>& y, int pos) {
  return static_cast<int>(std::lround(y(pos)));
}

// Category labels are cut to this width in the report's lists.
constexpr std::size_t kCategoryWidth = 15;

// A line of category labels is closed once their trimmed lengths plus one
// pass this.
constexpr int kCategoryLineLength = 23;

}  // namespace

int ReportNode::count(int cls) const {
  return record_int(y, init().pos.noc_pos + cls - 1);
}

std::optional<ReportNode> shown_node(int t) {
  const TreeStore::Retrieved found = tree_store().retrieve(t);
  if (!found.found || found.y.size() < 2) return std::nullopt;
  ReportNode node;
  node.t = t;
  node.y = found.y;
  node.n = record_int(found.y, 1);
  node.iclass = record_int(found.y, 2);
  node.nchildren = static_cast<int>(found.children.size());
  if (node.n <= 0) return std::nullopt;
  return node;
}

int child_number(int t, int k) {
  return (t - 1) * init().nclass + k + 1;
}

int node_depth(int t) {
  const int k = init().nclass;
  int depth = 0;
  while (t > 1) {
    t = (t - 2) / k + 1;
    ++depth;
  }
  return depth;
}

int digit_count(long long value) {
  int d = 1;
  while (value >= 10) {
    value /= 10;
    ++d;
  }
  return d;
}

bool UnivariateSplit::levene() const {
  return init().varsel == 2 && test == 'L';
}

int UnivariateSplit::interaction() const {
  const Init& in = init();
  return in.varsel == 1 && test >= 1 && test <= in.nvar ? test : 0;
}

std::vector<std::string> UnivariateSplit::child_labels(int k) const {
  const Init& in = init();
  std::size_t first = 0;
  for (int j = 1; j < k; ++j) first += static_cast<std::size_t>(ncutcat[j - 1]);
  std::vector<std::string> labels;
  for (int j = 0; j < ncutcat[k - 1]; ++j)
    labels.push_back(fixed_text(in.catlabel(catord, cutcat[first + j]), kCategoryWidth));
  string_sort(labels, kCategoryWidth);
  return labels;
}

UnivariateSplit read_univariate_split(const FView<double>& y) {
  const Init& in = init();
  const RecordPositions& pos = in.pos;
  const int k = in.nclass;
  UnivariateSplit s;
  s.var = record_int(y, pos.var_pos);
  s.categorical = in.vtype(s.var) == 'c';
  s.test = record_int(y, pos.test_pos);
  if (!s.categorical) {
    s.gmean = y(pos.gmean_pos);
    // Points not in use hold guard values of the largest magnitude: low
    // guards lead the list where the first subnodes are empty, high guards
    // end it; the finite points between them are consecutive.
    for (int j = 0; j < k - 1; ++j) {
      const double c = y(pos.cut_pos + j);
      if (std::fabs(c) < std::numeric_limits<double>::max()) {
        if (s.cuts.empty()) s.first_cut = j + 1;
        s.cuts.push_back(c);
      }
    }
    return s;
  }
  s.catord = record_int(y, pos.gmean_pos);
  int total = 0;
  for (int j = 0; j < k; ++j) {
    s.ncutcat.push_back(record_int(y, pos.cut_pos + j));
    total += s.ncutcat.back();
  }
  for (int j = 0; j < total; ++j) s.cutcat.push_back(record_int(y, pos.cutcat_pos + j));
  return s;
}

std::string category_list_format(std::string head, const std::vector<std::string>& labels,
                                 int margin, std::size_t limit) {
  int running = 0;
  int count = 0;
  for (std::size_t i = 0; i < labels.size(); ++i) {
    running += static_cast<int>(trim(labels[i]).size()) + 1;
    ++count;
    // A line is never started without a label to put on it.
    const bool more = i + 1 < labels.size();
    if (running > kCategoryLineLength && more && head.size() <= limit) {
      head = join_text({head, ",", std::to_string(count), "a,/,", std::to_string(margin), "x"});
      running = 0;
      count = 0;
    }
  }
  if (count > 0) head = join_text({head, ",", std::to_string(count), "a"});
  return join_text({head, ")"});
}

}  // namespace vardel
