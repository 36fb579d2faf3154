// The table of subtree costs (see cv_table.hpp).
#include "prune/cv_table.hpp"

#include <ostream>

#include "numerics/farray.hpp"
#include "numerics/format.hpp"

namespace vardel {

void write_cv_table(std::ostream& out, const std::vector<SubtreeCost>& costs,
                    const TreeChoice& choice, int largest_terminal, std::span<const int> pnodes0) {
  write_subtree_cost_table(out,
                           {"  CV misclassification cost and SE of subtrees:",
                            "  Subtree      CV R(t)           CV SE       # Terminal Nodes"},
                           costs, choice, largest_terminal, pnodes0);
}

void write_subtree_cost_table(std::ostream& out, const CostTableHead& head,
                              const std::vector<SubtreeCost>& costs, const TreeChoice& choice,
                              int largest_terminal, std::span<const int> pnodes0) {
  FView<const int> nodes(pnodes0);
  write_list(out, {});
  write_fmt(out, "(a)", {head.title});
  write_fmt(out, "(a)", {head.columns});

  const int nsub = static_cast<int>(costs.size()) - 1;
  for (int s = 0; s <= nsub; ++s) {
    const auto& c = costs[static_cast<std::size_t>(s)];
    if (s == 0) {
      // The largest tree can be the 0-SE tree but never the given-SE tree
      // alone: the given-SE tree is never larger than the 0-SE tree.
      if (choice.zero_se == 0)
        write_fmt(out, "(a,f11.6,4x,g15.4,i12)", {" (largest)*", c.total, c.se, largest_terminal});
      else
        write_fmt(out, "(a,1x,f11.6,4x,g15.4,i12)",
                  {" (largest)", c.total, c.se, largest_terminal});
    } else if (s == choice.zero_se) {
      write_fmt(out, "(i7,a,3x,f11.6,4x,g15.4,i12)", {s, "*", c.total, c.se, nodes(s)});
    } else if (s == choice.given_se) {
      write_fmt(out, "(i7,a,2x,f11.6,4x,g15.4,i12)", {s, "**", c.total, c.se, nodes(s)});
    } else {
      write_fmt(out, "(i7,4x,f11.6,4x,g15.4,i12)", {s, c.total, c.se, nodes(s)});
    }
  }

  write_fmt(out, "(a)", {"  * denotes 0-SE Tree"});
  write_fmt(out, "(a)", {"  ** denotes given-SE Tree"});
  if (choice.zero_se == choice.given_se) write_fmt(out, "(a)", {" * tree is same as ** tree"});
  write_list(out, {});
}

}  // namespace vardel
