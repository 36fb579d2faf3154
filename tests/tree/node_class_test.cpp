#include "tree/node_class.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "run/init.hpp"

namespace vardel {
namespace {

class NodeClassTest : public ::testing::Test {
 protected:
  void SetUp() override {
    init().reset();
    set_classes(3);
  }
  void TearDown() override { init().reset(); }
  void set_classes(int k) {
    Init& in = init();
    in.nclass = k;
    in.cost.assign(k, k, 1.0);
    for (int i = 1; i <= k; ++i) in.cost(i, i) = 0.0;
    in.costtype = 1;
    in.priortype = 2;
  }
  FArray<double> pr, altpr;
};

TEST_F(NodeClassTest, EqualCountsTieFirstAgainstLast) {
  std::vector<int> noc{5, 5, 5}, csize{10, 10, 10};
  std::vector<double> prob{1.0 / 3, 1.0 / 3, 1.0 / 3};
  NodeClass c = geticlasswithtie(noc, csize, prob, 30, altpr, pr);
  EXPECT_EQ(c.iclass, 1);
  EXPECT_EQ(c.tie, 3);
  EXPECT_DOUBLE_EQ(getrt(pr), 10.0 / 30.0);
}

TEST_F(NodeClassTest, PriorsAndCostsMoveTheClass) {
  Init& in = init();
  std::vector<int> noc{6, 4}, csize{60, 20};
  std::vector<double> prob{0.5, 0.5};
  set_classes(2);
  in.priortype = 1;  // equal priors: class 2 has the larger share of its class
  NodeClass c = geticlasswithtie(noc, csize, prob, 80, altpr, pr);
  EXPECT_EQ(c.iclass, 2);
  EXPECT_EQ(c.tie, 0);
  EXPECT_DOUBLE_EQ(pr(1), 0.1 * 0.5);
  EXPECT_DOUBLE_EQ(getrt(pr), 0.05);

  in.priortype = 2;  // estimated priors: counts decide
  c = geticlasswithtie(noc, csize, prob, 80, altpr, pr);
  EXPECT_EQ(c.iclass, 1);
  EXPECT_DOUBLE_EQ(altpr(2), 4.0 / 80.0);

  in.costtype = 2;  // misclassifying class 2 is now expensive
  in.cost(1, 2) = 5.0;
  c = geticlasswithtie(noc, csize, prob, 80, altpr, pr);
  EXPECT_EQ(c.iclass, 2);
  // altpr uses the cost-altered priors: r = (0.5*1, 0.5*5) normalised.
  EXPECT_DOUBLE_EQ(altpr(2), (4.0 / 20.0) * (2.5 / 3.0));
}

TEST_F(NodeClassTest, NegligibleNodeHasNoCost) {
  FArray<double> tiny(3, 1e-310);
  EXPECT_EQ(getrt(tiny), 0.0);
}

TEST_F(NodeClassTest, SiblingsSettleATie) {
  // Node 3 is child 2 of the root (3 classes): siblings are nodes 2 and 4.
  std::vector<int> csize{4, 4, 4};
  std::vector<double> prob{1.0 / 3, 1.0 / 3, 1.0 / 3};
  // Node 2 is empty and skipped; node 4 holds class 3 cases only.
  std::vector<int> classes{1, 3, 3, 3, 1, 2};
  std::vector<int> termnode{3, 4, 4, 4, 3, 9};
  NodeClass tied{1, 3};
  // The sibling's class equals the tie class: the node keeps class 1.
  EXPECT_EQ(geticlass(3, tied, termnode, classes, csize, prob), 1);
  // The sibling's class equals iclass: the node takes the tie class.
  NodeClass reversed{3, 1};
  EXPECT_EQ(geticlass(3, reversed, termnode, classes, csize, prob), 1);
  // A sibling of another class decides nothing.
  NodeClass other{1, 2};
  EXPECT_EQ(geticlass(3, other, termnode, classes, csize, prob), 1);
  // The root has no siblings.
  EXPECT_EQ(geticlass(1, tied, termnode, classes, csize, prob), 1);
}

}  // namespace
}  // namespace vardel
