#include "split/classify.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "run/init.hpp"
#include "split/guards.hpp"
#include "tree/node_class.hpp"

namespace vardel {
namespace {

// A node holding every case of a sample of numerical predictors.
class Classify : public ::testing::Test {
 protected:
  void TearDown() override { init().reset(); }
  NodeSample node_of(const std::vector<std::vector<double>>& columns, const std::vector<int>& y,
                     int k) {
    Init& in = init();
    in.reset();
    const int n = static_cast<int>(y.size());
    const int p = static_cast<int>(columns.size());
    in.nvar = p;
    in.nclass = k;
    in.vtype.assign(p, 'n');
    in.alpha = 0.05;
    in.varsel = 2;
    in.priortype = 2;
    in.costtype = 1;
    in.cost.assign(k, k, 1.0);
    for (int c = 1; c <= k; ++c) in.cost(c, c) = 0.0;
    x_.assign(n, p, 0.0);
    mis_.assign(n, p, 'n');
    NodeSample s;
    s.n = n;
    s.xdat = x_;
    s.misind = mis_;
    s.ydat.assign(n, 0);
    s.noc.assign(k, 0);
    for (int i = 1; i <= n; ++i) {
      for (int j = 1; j <= p; ++j) {
        const double v = columns[j - 1][i - 1];
        if (std::isnan(v)) s.misind(i, j) = 'y';
        s.xdat(i, j) = std::isnan(v) ? 0.0 : v;
      }
      s.ydat(i) = y[i - 1];
      ++s.noc(y[i - 1]);
    }
    for (int c : s.noc) s.m += c > 0;
    s.csize = s.noc;
    s.nobs = n;
    s.prob.assign(k, 1.0 / k);
    FArray<double> pr;
    geticlasswithtie(s.noc.span(), s.csize.span(), s.prob.span(), n, s.altpr, pr);
    return s;
  }

 private:
  FArray<double> x_;  // the node's cases, shown by the node sample
  FArray<char> mis_;
};

TEST_F(Classify, ClassesThatDifferOnlyInSpreadAreSplitOnAbsoluteDeviations) {
  // Every class is symmetric about 0, so the F test sees nothing; the spread
  // grows from class to class, which the Levene test finds.
  std::vector<double> x;
  std::vector<double> noise;
  std::vector<int> y;
  for (int c = 1; c <= 3; ++c) {
    for (int i = 1; i <= 10; ++i) {
      const double v = c * c * (0.5 + i % 5);
      x.push_back(i % 2 == 0 ? v : -v);
      noise.push_back((i * 7 + c * 3) % 11);
      y.push_back(c);
    }
  }
  NodeSample node = node_of({noise, x}, y, 3);
  const SplitResult s = classify(Member::c0, node);
  ASSERT_TRUE(s.success);
  EXPECT_EQ(s.var, 2);
  EXPECT_EQ(s.test, 'L');
  EXPECT_DOUBLE_EQ(s.gmean, 0.0);
  // Points on the scale of |x - 0|, between the spreads of the classes.
  ASSERT_TRUE(is_real_point(s.cutpt(1)));
  EXPECT_GT(s.cutpt(1), 0.0);
  for (int i = 1; i <= node.n; ++i) {
    const double d = std::fabs(node.xdat(i, 2));
    const int expected =
        d <= s.cutpt(1) ? 1 : (!is_real_point(s.cutpt(2)) || d > s.cutpt(2) ? 3 : 2);
    EXPECT_EQ(s.py(i), expected) << i;
  }
}

TEST_F(Classify, AvailableCasesFitAndTheAlternateIsTheNextBestVariable) {
  // Variable 1 separates the classes best but is missing in two cases;
  // variable 2 separates them less well; variable 3 is noise.
  const double nan = std::nan("");
  std::vector<double> best{1, 2, 3, nan, 11, 12, 13, 14, nan, 21, 22, 23};
  std::vector<double> second{1, 5, 2, 6, 8, 12, 7, 11, 15, 18, 14, 19};
  std::vector<double> noise{5, 1, 4, 2, 3, 5, 1, 4, 2, 3, 5, 1};
  std::vector<int> y{1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3};
  NodeSample node = node_of({best, second, noise}, y, 3);
  // Missing cells as growth leaves them: filled with their class means.
  node.xdat(4, 1) = 2.0;
  node.xdat(9, 1) = 22.0;
  const SplitResult s = classify(Member::c5, node);
  ASSERT_TRUE(s.success);
  EXPECT_EQ(s.var, 1);
  EXPECT_EQ(s.test, 'F');
  EXPECT_EQ(s.alt_var, 2);
  // The alternate's discriminant lines: slopes rise with the class means.
  EXPECT_LT(s.coef5(1, 2), s.coef5(2, 2));
  EXPECT_LT(s.coef5(2, 2), s.coef5(3, 2));
  // Every case, the filled ones too, is sent by the points found.
  EXPECT_EQ(s.py(4), 1);
  EXPECT_EQ(s.py(9), 3);
  EXPECT_EQ(s.py(5), 2);
}

TEST_F(Classify, CategoricalVariableIsSplitByCategoryLists) {
  // Category 1 is mostly class 1, category 2 mostly class 2, category 3
  // mostly class 3; the numerical variable is noise. Category 4 never occurs.
  std::vector<double> kind;
  std::vector<double> noise;
  std::vector<int> y;
  const int table[3][3] = {{8, 1, 1}, {1, 8, 1}, {1, 1, 8}};  // cases of (category, class)
  for (int cat = 1; cat <= 3; ++cat)
    for (int cls = 1; cls <= 3; ++cls)
      for (int r = 0; r < table[cat - 1][cls - 1]; ++r) {
        kind.push_back(cat);
        noise.push_back((cat * 5 + cls * 3 + r) % 7);
        y.push_back(cls);
      }
  NodeSample node = node_of({noise, kind}, y, 3);
  Init& in = init();
  in.ncat = 1;
  in.vtype(2) = 'c';
  in.catpos.assign(1, 2);
  in.numcat.assign(1, 4);
  const SplitResult s = classify(Member::c0, node);
  ASSERT_TRUE(s.success);
  EXPECT_EQ(s.var, 2);
  EXPECT_EQ(s.c, 1);
  // Every category code, the unseen one too, is listed once.
  ASSERT_EQ(s.ncutcat.size(), 3);
  EXPECT_EQ(s.ncutcat(1) + s.ncutcat(2) + s.ncutcat(3), 4);
  std::vector<int> codes(s.cutcat.begin(), s.cutcat.end());
  std::sort(codes.begin(), codes.end());
  EXPECT_EQ(codes, (std::vector<int>{1, 2, 3, 4}));
  // Each case went to the subnode whose list holds its category.
  for (int i = 1; i <= node.n; ++i) {
    int first = 1;
    int subnode = 0;
    for (int k = 1; k <= 3; ++k) {
      for (int j = first; j < first + s.ncutcat(k); ++j)
        if (s.cutcat(j) == static_cast<int>(node.xdat(i, 2))) subnode = k;
      first += s.ncutcat(k);
    }
    EXPECT_EQ(s.py(i), subnode) << i;
  }
}

TEST_F(Classify, ConstantVariableCannotBeSplit) {
  NodeSample node = node_of({{4, 4, 4, 4, 4, 4}}, {1, 1, 2, 2, 3, 3}, 3);
  EXPECT_FALSE(classify(Member::c0, node).success);
}

}  // namespace
}  // namespace vardel
