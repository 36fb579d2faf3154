#include "run/init.hpp"

#include <gtest/gtest.h>

namespace vardel {
namespace {

TEST(Defaults, MindatRoundsTheSinglePrecisionProductAndIsAtLeastTwo) {
  EXPECT_EQ(default_mindat(100), 2);  // 0.5 rounds to 1, raised to 2
  EXPECT_EQ(default_mindat(300), 2);  // 1.5 in single precision rounds away from zero
  EXPECT_EQ(default_mindat(1000), 5);
  EXPECT_EQ(default_mindat(1), 2);
  EXPECT_EQ(default_mindat(1000000), 5000);
}

TEST(Defaults, MaxnodeidIsAPowerOfTheClassCountThatMayWrap) {
  EXPECT_EQ(maxnodeid_for(2), 2048);
  EXPECT_EQ(maxnodeid_for(3), 177147);
  EXPECT_EQ(maxnodeid_for(6), 10077696);
  EXPECT_EQ(maxnodeid_for(9), 43046721);
  EXPECT_EQ(maxnodeid_for(20), 3200000);
  // 5^11 fits; 16^5 fits; 8^9 = 2^27 fits. 12^7 = 35831808.
  EXPECT_EQ(maxnodeid_for(12), 35831808);
  EXPECT_EQ(maxnodeid_for(15), 11390625);
  // 100^5 = 10^10 wraps in 32 bits.
  EXPECT_EQ(maxnodeid_for(100), static_cast<int>(10000000000ULL % 4294967296ULL));
}

Init sample_with_classes(int nclass, int nobs) {
  Init in;
  in.nclass = nclass;
  in.nobs = nobs;
  in.noc.assign(nclass, nobs / nclass);
  in.prob.assign(nclass, 0.0);
  in.cost.assign(nclass, nclass, 0.0);
  return in;
}

TEST(Defaults, TwoClassesTakeExhaustiveSplitsAndNodewiseImputation) {
  Init two = sample_with_classes(2, 100);
  set_default_options(two);
  EXPECT_EQ(two.splitsel, 2);
  EXPECT_EQ(two.impprune, 2);
  Init three = sample_with_classes(3, 150);
  set_default_options(three);
  EXPECT_EQ(three.splitsel, 1);
  EXPECT_EQ(three.impprune, 5);
  EXPECT_EQ(three.cost(1, 1), 0.0);
  EXPECT_EQ(three.cost(2, 1), 1.0);
  EXPECT_DOUBLE_EQ(three.prob(3), 1.0 / 3.0);
  EXPECT_EQ(three.seed, 2345);
  EXPECT_EQ(three.folds, 10);
}

TEST(RecordPositions, UnivariateAndBivariateLayouts) {
  Init in = sample_with_classes(3, 30);
  in.nvar = 4;
  in.splittype = 1;
  compute_record_positions(in);
  EXPECT_EQ(in.pos.meanmode_pos, 7);
  EXPECT_EQ(in.pos.var_pos, 11);
  EXPECT_EQ(in.pos.gmean_pos, 17);
  EXPECT_EQ(in.pos.cut_pos, 18);
  EXPECT_EQ(in.pos.cutcat_pos, 21);
  EXPECT_EQ(in.pos.recoef_pos, 3 + 4 + 4 + 12);
  EXPECT_EQ(in.pos.recrim_pos, in.pos.fk_pos_lin + 4);

  in.splittype = 3;
  in.ncat = 2;
  in.numcat.assign(2, 0);
  in.numcat(1) = 4;
  in.numcat(2) = 6;
  compute_record_positions(in);
  EXPECT_EQ(in.pos.table_pos, 18);
  EXPECT_EQ(in.pos.coef2_pos, 27);
  EXPECT_EQ(in.pos.crim_pos_2v, 36);
  EXPECT_EQ(in.pos.cut_pos_crim, 36 + 12);
}

}  // namespace
}  // namespace vardel
