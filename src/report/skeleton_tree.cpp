// skeleton_tree: one line per node of the subtree of t, indented by depth,
// with the node number and its split variable or "* terminal *".
#include <ostream>
#include <stdexcept>
#include <string>

#include "numerics/format.hpp"
#include "report/tree_report.hpp"
#include "report/tree_walk.hpp"
#include "run/init.hpp"

namespace vardel {

void skeleton_tree(std::ostream& out, int t) {
  const std::optional<ReportNode> node = shown_node(t);
  if (!node) return;
  const Init& in = init();
  const std::string lead = join_text(
      {"(", std::to_string(2 * node_depth(t) + 5), "x,i", std::to_string(digit_count(t))});
  if (node->terminal()) {
    write_fmt(out, lead + ",a)", {t, "  * terminal *  "});
    return;
  }

  std::string split;
  switch (in.splittype) {
    case 1:
      split = trim(in.vname(read_univariate_split(node->y).var));
      break;
    case 2:
      split = " linear combination";
      break;
    default:
      throw std::logic_error("skeleton_tree: no skeleton lines for this split type");
  }
  // The name stands right-adjusted two blanks behind the node number.
  write_fmt(out, join_text({lead, ",a", std::to_string(split.size() + 2), ")"}), {t, split});

  for (int k = 1; k <= node->nchildren; ++k) skeleton_tree(out, child_number(t, k));
}

}  // namespace vardel
