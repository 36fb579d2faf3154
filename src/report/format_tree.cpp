// format_tree: the indented tree structure of the subtree of t. A terminal
// node shows its predicted class and its class counts; an inner node shows,
// for each child with cases, the condition that leads to it, followed by the
// child's own subtree.
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

// Upper bound on the length of the format of a category line; past it the
// remaining labels stay on one line.
constexpr std::size_t kStructureFormatLimit = 160;

void terminal_lines(std::ostream& out, const ReportNode& node, const std::string& lead, int indent,
                    int width) {
  const Init& in = init();
  const int k = in.nclass;
  write_fmt(out, lead + ",a35,a)",
            {" Node ", node.t, ": Terminal Node, predicted class = ", in.clabel(node.iclass)});

  const FArray<int> indx = class_order(in.clabel);
  const std::string margin =
      join_text({"(", std::to_string(indent + 2), "x,a15,", std::to_string(k)});
  const std::string field = join_text({std::to_string(width + 1), ")"});
  // Trimmed, so that each label stands right-adjusted in its field.
  std::vector<std::string> labels;
  for (int j = 1; j <= k; ++j) labels.emplace_back(trim(in.clabel(indx(j))));
  std::vector<FmtItem> items{" Class label :"};
  for (const std::string& label : labels) items.emplace_back(label);
  write_fmt(out, join_text({margin, "a", field}), items);

  items.assign({" Class size  :"});
  for (int j = 1; j <= k; ++j) items.emplace_back(node.count(indx(j)));
  write_fmt(out, join_text({margin, "i", field}), items);
  write_list(out, {});
}

// The condition of a numerical split for child k: the child at the first
// finite point lies at or below it, the child after the last finite point
// above that, the others between two. Children before the first finite
// point (behind leading guards) receive no case and are not shown.
void numerical_line(std::ostream& out, const ReportNode& node, const UnivariateSplit& s,
                    const std::string& lead, int child) {
  const std::string var(trim(init().vname(s.var)));
  const int ncuts = static_cast<int>(s.cuts.size());
  const int k = child - s.first_cut + 1;  // the child's place among the finite points
  const bool first = k <= 1;
  const bool last = !first && k > ncuts;
  std::string piece;
  std::string tail;
  std::vector<FmtItem> items{" Node ", node.t};
  if (s.levene()) {
    piece = join_text({": ABS(", var, " - "});
    items.emplace_back(piece);
    items.emplace_back(s.gmean);
    if (first || last) {
      tail = ",g12.6,a4,g12.6)";
      items.emplace_back(first ? ") <=" : ") > ");
      items.emplace_back(first ? s.cuts.front() : s.cuts.back());
    } else {
      tail = ",g12.6,a6,g12.6,a1,g12.6,a1)";
      for (FmtItem item : {FmtItem(") in ("), FmtItem(s.cuts[k - 2]), FmtItem(","),
                           FmtItem(s.cuts[k - 1]), FmtItem("]")})
        items.push_back(item);
    }
  } else if (first || last) {
    piece = join_text({": ", var, first ? " <= " : " > "});
    items.emplace_back(piece);
    items.emplace_back(first ? s.cuts.front() : s.cuts.back());
    tail = ",g12.6)";
  } else {
    piece = join_text({": ", var, " in ("});
    items.emplace_back(piece);
    for (FmtItem item :
         {FmtItem(s.cuts[k - 2]), FmtItem(","), FmtItem(s.cuts[k - 1]), FmtItem("]")})
      items.push_back(item);
    tail = ",g12.6,a1,g12.6,a1)";
  }
  write_fmt(out, join_text({lead, ",a", std::to_string(piece.size()), tail}), items);
}

// The categories that lead to child k; further lines start under the first.
void categorical_line(std::ostream& out, const ReportNode& node, const UnivariateSplit& s,
                      const std::string& lead, int indent, int k) {
  const std::string piece = ": " + std::string(trim(init().vname(s.var))) + " = ";
  const std::vector<std::string> labels = s.child_labels(k);
  const int margin = indent + 6 + digit_count(node.t) + static_cast<int>(piece.size());
  const std::string fmt = category_list_format(
      join_text({lead, ",a", std::to_string(piece.size())}), labels, margin, kStructureFormatLimit);
  std::vector<FmtItem> items{" Node ", node.t, piece};
  for (const std::string& label : labels) items.emplace_back(label);
  write_fmt(out, fmt, items);
}

}  // namespace

void format_tree(std::ostream& out, int t, int width) {
  const std::optional<ReportNode> node = shown_node(t);
  if (!node) return;
  const Init& in = init();
  const int indent = 2 * node_depth(t) + 1;
  const std::string lead =
      join_text({"(", std::to_string(indent), "x,a6,i", std::to_string(digit_count(t))});
  if (node->terminal()) {
    terminal_lines(out, *node, lead, indent, width);
    return;
  }

  switch (in.splittype) {
    case 1: {
      const UnivariateSplit s = read_univariate_split(node->y);
      if (!s.categorical && s.cuts.empty())
        throw std::logic_error("format_tree: numerical split without a split point");
      for (int k = 1; k <= node->nchildren; ++k) {
        const int child = child_number(t, k);
        if (!shown_node(child)) continue;
        if (s.categorical)
          categorical_line(out, *node, s, lead, indent, k);
        else
          numerical_line(out, *node, s, lead, k);
        format_tree(out, child, width);
      }
      break;
    }
    case 2:
      for (int k = 1; k <= node->nchildren; ++k) {
        const int child = child_number(t, k);
        if (!shown_node(child)) continue;
        write_fmt(out, lead + ",a2)", {" Node ", t, ": "});
        format_tree(out, child, width);
      }
      break;
    default:
      throw std::logic_error("format_tree: no structure lines for this split type");
  }
}

}  // namespace vardel
