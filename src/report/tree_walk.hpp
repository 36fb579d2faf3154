// The walk over the final tree shared by the views of the tree report.
//
// Nodes are reached by number, never through the order of a child list:
// child k of node t is (t - 1) K + k + 1 (K = nclass), k = 1 .. number of
// children. A node that is not in the store, or has no cases, is left out of
// every view together with its subtree.
//
// read_univariate_split decodes the split of an inner node of a univariate
// tree from its record, using the positions held in init().pos.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "numerics/farray.hpp"

namespace vardel {

// A node of the final tree as the views see it.
struct ReportNode {
  int t = 0;
  FView<double> y;    // the node record, owned by the tree store
  int n = 0;          // cases in the node
  int iclass = 0;     // class assigned to the node
  int nchildren = 0;  // 0 for a terminal node
  bool terminal() const { return nchildren == 0; }
  // Cases of class cls (1..K) in the node.
  int count(int cls) const;
};

// Node t of the tree store, when it is there and has cases.
std::optional<ReportNode> shown_node(int t);

// Number of child k (1..K) of node t.
int child_number(int t, int k);

// Steps from node t up to the root; the root has depth 0.
int node_depth(int t);

// Decimal digits of a non-negative whole number, at least 1.
int digit_count(long long value);

// The split of a univariate inner node.
struct UnivariateSplit {
  int var = 0;  // split variable, 1..nvar
  bool categorical = false;
  int test = 0;  // test entry: 'F' or 'L' under the 1D method, the second variable under 2D
  // Numerical split variable.
  double gmean = 0.0;        // centre of the absolute deviations under the "L" test
  std::vector<double> cuts;  // the finite split points, ascending
  int first_cut = 1;         // position of cuts[0] in the record's list (after leading guards)
  // Categorical split variable.
  int catord = 0;            // ordinal among the categorical predictors
  std::vector<int> ncutcat;  // categories sent to each subnode, 1..K
  std::vector<int> cutcat;   // their codes, subnode after subnode

  // Won on its spread (Levene test) under the 1D method.
  bool levene() const;
  // Index of the interaction variable under the 2D method; 0 when there is none.
  int interaction() const;
  // Labels of the categories sent to subnode k, each cut to 15 characters,
  // in ascending order.
  std::vector<std::string> child_labels(int k) const;
};

UnivariateSplit read_univariate_split(const FView<double>& y);

// Completes a format that writes a list of category labels, one "a" item
// each. head is the format so far, without its closing parenthesis. The
// labels are counted onto a line until their trimmed lengths plus one pass
// 23; the next line starts with `margin` blanks. Once the format text is
// longer than `limit` no more lines are started.
std::string category_list_format(std::string head, const std::vector<std::string>& labels,
                                 int margin, std::size_t limit);

}  // namespace vardel
