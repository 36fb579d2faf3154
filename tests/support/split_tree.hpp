// Test support: a run of two classes and one numeric predictor, univariate
// trees built by hand for it, and a test sample given by groups of cases.
#pragma once

#include <string>
#include <vector>

#include "numerics/format.hpp"
#include "run/init.hpp"
#include "tree/tree_store.hpp"

namespace vardel::testing_support {

// Estimated priors (printed as 1/2), unit costs, output to out.txt; the
// store started.
inline void two_class_run(const char* label1, const char* label2) {
  Init& in = init();
  in.nclass = 2;
  in.nvar = 1;
  in.vtype.assign(1, 'n');
  in.varsel = 2;
  in.splittype = 1;
  in.priortype = 2;
  in.outfile = fixed_text("out.txt", kFileNameLen);
  in.clabel.assign(2, fixed_text(label1, kNameLen));
  in.clabel(2) = fixed_text(label2, kNameLen);
  in.prob.assign(2, 0.5);
  in.cost.assign(2, 2, 1.0);
  in.cost(1, 1) = in.cost(2, 2) = 0.0;
  compute_record_positions(in);
  tree_store().start();
}

// Record: n, class, rt, counts, class means, grand mean, variable, test "F",
// fk, gmean, cut. x <= cut goes to the first child.
inline void add_split(int id, int parent, int iclass, double rt, double cut) {
  tree_store().add_node(
      id, parent, std::vector<double>{10, double(iclass), rt, 5, 5, 0, 0, cut, 1, 70, 0, cut, cut});
}

// A leaf of 5 cases of its class.
inline void add_leaf(int id, int parent, int iclass, double rt) {
  tree_store().add_node(
      id, parent,
      std::vector<double>{5, double(iclass), rt, 5.0 * (2 - iclass), 5.0 * (iclass - 1)});
}

struct CaseGroup {
  double x;
  int cls, count;
};

inline void set_test_sample(const std::vector<CaseGroup>& groups) {
  Init& in = init();
  std::vector<double> x;
  std::vector<int> y;
  for (const CaseGroup& g : groups) {
    x.insert(x.end(), g.count, g.x);
    y.insert(y.end(), g.count, g.cls);
  }
  in.ntest = static_cast<int>(y.size());
  in.xtest.assign(in.ntest, 1, 0.0);
  in.xtest.vector() = x;
  in.ytest.assign(in.ntest, 0);
  in.ytest.vector() = y;
  in.misindtest.assign(in.ntest, 1, 'n');
}

}  // namespace vardel::testing_support
