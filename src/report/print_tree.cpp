// print_tree: the detailed table of the subtree of t. Each node gets its
// rows (the split and the subnodes it leads to, or the predicted class),
// then its class counts with, for an inner node, each class's mean or mode of
// the split variable. Counts the nodes with a class and the terminal nodes.
#include <cmath>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "numerics/format.hpp"
#include "report/class_order.hpp"
#include "report/tree_report.hpp"
#include "report/tree_walk.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

// Upper bound on the length of the format of a category row; past it the
// remaining labels stay on one line.
constexpr std::size_t kTableFormatLimit = 284;

// Continuation lines of a category row start in column 57.
constexpr int kTableMargin = 56;

struct Table {
  std::ostream& out;
  FArray<int> indx;  // class order
  std::string w;     // width of the labels, as format text
  std::string d;     // width of the counts, as format text
};

void terminal_rows(Table& tab, const ReportNode& node) {
  const Init& in = init();
  write_fmt(tab.out, "(i8,i8,a40,a)",
            {node.t, node.n, "  **** terminal, predicted class: ", trim(in.clabel(node.iclass))});
  write_list(tab.out, {"                        # obs"});
  const std::string fmt = "(11x,a7,a" + tab.w + ",a4,i" + tab.d + ")";
  for (int j = 1; j <= in.nclass; ++j) {
    const int cls = tab.indx(j);
    write_fmt(tab.out, fmt, {" Class ", in.clabel(cls), " :  ", node.count(cls)});
  }
  write_list(tab.out, {});
}

// One row per finite split point and a last row for the cases above them
// all. These rows follow the split points, so a child without cases keeps
// its row.
void numerical_rows(Table& tab, const ReportNode& node, const UnivariateSplit& s) {
  const Init& in = init();
  if (s.cuts.empty()) throw std::logic_error("print_tree: numerical split without a split point");
  const std::string& var = in.vname(s.var);
  const int t = node.t;
  if (s.levene()) {
    write_fmt(tab.out, "(i8,i8,i11,2x,a6,3x,a4,a,a,g8.3,a4,g10.5)",
              {t, node.n, child_number(t, s.first_cut), "Levene", "ABS(", var, " - ", s.gmean,
               ") <=", s.cuts[0]});
  } else if (in.varsel == 2) {
    write_fmt(tab.out, "(i8,i8,i11,a9,6x,a9,4x,a2,g13.5)",
              {t, node.n, child_number(t, s.first_cut), "F", var, "<=", s.cuts[0]});
  } else {
    const int inter = s.interaction();
    const std::string& second = inter > 0 ? in.vname(inter) : std::string(8, ' ');
    write_fmt(tab.out, "(i8,i8,i11,3x,a9,7x,a9,a2,g13.5)",
              {t, node.n, child_number(t, s.first_cut), second, var, "<=", s.cuts[0]});
  }
  const int ncuts = static_cast<int>(s.cuts.size());
  for (int k = 2; k <= ncuts; ++k)
    write_fmt(tab.out, "(16x,i11,28x,a2,g13.5)",
              {child_number(t, s.first_cut + k - 1), "<=", s.cuts[k - 1]});
  write_fmt(tab.out, "(16x,i11,28x,a12)", {child_number(t, s.first_cut + ncuts), "<   infinity"});

  write_list(tab.out, {"                     # obs   mean/mode of ", var});
  const std::string fmt = "(11x,a7,a" + tab.w + ",a4,i" + tab.d + ",5x,g12.6)";
  for (int j = 1; j <= in.nclass; ++j) {
    const int cls = tab.indx(j);
    const double mean = node.y(in.pos.meanmode_pos + cls - 1);
    write_fmt(tab.out, fmt, {" Class ", in.clabel(cls), " :  ", node.count(cls), mean});
  }
  write_list(tab.out, {});
}

// One row per child that receives categories, listing them; the first row
// also names the node, its size and the split.
void categorical_rows(Table& tab, const ReportNode& node, const UnivariateSplit& s) {
  const Init& in = init();
  const std::string& var = in.vname(s.var);
  std::string second(8, ' ');
  if (in.varsel == 2)
    second = std::string(1, static_cast<char>(s.test));
  else if (s.interaction() > 0)
    second = in.vname(s.interaction());

  bool first = true;
  for (int k = 1; k <= in.nclass; ++k) {
    if (s.ncutcat[k - 1] <= 0) continue;
    const std::vector<std::string> labels = s.child_labels(k);
    std::vector<FmtItem> items;
    if (first) items.insert(items.end(), {node.t, node.n});
    items.emplace_back(child_number(node.t, k));
    if (first) items.insert(items.end(), {second, var});
    items.emplace_back("=");
    for (const std::string& label : labels) items.emplace_back(label);
    const char* head = first ? "(i8,i8,i11,3x,a9,7x,a9,a1" : "(16x,i11,28x,a1";
    write_fmt(tab.out, category_list_format(head, labels, kTableMargin, kTableFormatLimit), items);
    first = false;
  }

  write_list(tab.out, {"                     # obs   mean/mode of ", var});
  const std::string fmt = "(11x,a7,a" + tab.w + ",a4,i" + tab.d + ",5x,a)";
  for (int j = 1; j <= in.nclass; ++j) {
    const int cls = tab.indx(j);
    const int count = node.count(cls);
    const long mode = std::lround(node.y(in.pos.meanmode_pos + cls - 1));
    // A class without cases in the node has no mode.
    const bool has_mode = count > 0 && mode >= 1 && mode <= in.numcat(s.catord);
    const std::string none = "NONE";
    const std::string& label = has_mode ? in.catlabel(s.catord, mode) : none;
    write_fmt(tab.out, fmt, {" Class ", in.clabel(cls), " :  ", count, label});
  }
  write_list(tab.out, {});
}

void walk(Table& tab, int t) {
  const std::optional<ReportNode> node = shown_node(t);
  if (!node) return;
  Init& in = init();
  if (node->iclass > 0) ++in.nodesfinal;
  if (node->terminal()) {
    ++in.nodesterminal;
    terminal_rows(tab, *node);
    return;
  }

  switch (in.splittype) {
    case 1: {
      const UnivariateSplit s = read_univariate_split(node->y);
      if (s.categorical)
        categorical_rows(tab, *node, s);
      else
        numerical_rows(tab, *node, s);
      break;
    }
    // Split type 2 (the discriminant coefficients of each node) comes in here.
    default:
      throw std::logic_error("print_tree: no table rows for this split type");
  }

  for (int k = 1; k <= node->nchildren; ++k) walk(tab, child_number(t, k));
}

}  // namespace

void print_tree(std::ostream& out, int t, int w, int d) {
  Table tab{out, class_order(init().clabel), std::to_string(w), std::to_string(d)};
  walk(tab, t);
}

}  // namespace vardel
