#include "run/init.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vardel {

Init& init() {
  static Init instance;
  return instance;
}

int Init::largest_numcat() const {
  int mc = 0;
  for (int v : numcat) mc = std::max(mc, v);
  return mc;
}

int maxnodeid_for(int nclass) {
  int power = 5;
  if (nclass <= 5) {
    power = 11;
  } else if (nclass <= 8) {
    power = 9;
  } else if (nclass == 9) {
    power = 8;
  } else if (nclass <= 12) {
    power = 7;
  } else if (nclass <= 15) {
    power = 6;
  }
  // 32-bit integer power that wraps on overflow, done in unsigned arithmetic
  // so that the wrap is defined.
  std::uint32_t result = 1;
  for (int i = 0; i < power; ++i) result *= static_cast<std::uint32_t>(nclass);
  return static_cast<int>(result);
}

int default_mindat(int nobs) {
  const float product = static_cast<float>(nobs) * 0.005f;
  const int rounded = static_cast<int>(std::lround(product));
  return rounded < 2 ? 2 : rounded;
}

void set_default_options(Init& in) {
  in.splittype = 1;
  in.varsel = 2;
  in.alpha = 0.05;
  in.meansstype = 1;
  in.priortype = 2;
  in.costtype = 1;
  for (int k = 1; k <= in.nclass; ++k)
    in.prob(k) = static_cast<double>(in.noc(k)) / static_cast<double>(in.nobs);
  for (int a = 1; a <= in.nclass; ++a)
    for (int p = 1; p <= in.nclass; ++p) in.cost(p, a) = p == a ? 0.0 : 1.0;
  in.treesize = 1;
  in.misstest = 'n';
  in.prunetype = 1;
  in.serule = 1.0;
  in.mindat = default_mindat(in.nobs);
  in.testtype = 3;
  in.folds = 10;
  in.seed = 2345;
  in.wantallclear = 1;
  in.splitsel = in.nclass > 2 ? 1 : 2;
  in.impbuild = 3;
  in.impprune = in.splitsel == 2 ? 2 : 5;
}

void compute_record_positions(Init& in) {
  const int k = in.nclass;
  const int p = in.nvar;
  const int nc = in.ncat;
  const int mc = in.largest_numcat();
  RecordPositions& pos = in.pos;
  pos = RecordPositions{};
  pos.noc_pos = 4;
  if (in.splittype == 3) {
    pos.pair_pos = k + 4;
    pos.grand_pos_2v = k + 6;
    pos.var_pos = k + 9;
    pos.xmm_pos = k + 10;
    pos.test_pos = 2 * k + 10;
    pos.gmean_pos = 2 * k + 11;
    pos.table_pos = 2 * k + 12;
    pos.coef2_pos = k * k + 2 * k + 12;
    pos.crim_pos_2v = k * k + 5 * k + 12;
    pos.cut_pos_nocrim = pos.crim_pos_2v;
    pos.cut_pos_crim = pos.crim_pos_2v + mc * nc;
    return;
  }
  pos.meanmode_pos = k + 4;
  pos.grand_pos = 2 * k + 4;
  pos.var_pos = 2 * k + 5;
  pos.test_pos = 2 * k + 6;
  pos.fk_pos = 2 * k + 7;
  pos.gmean_pos = 2 * k + 7 + p;
  pos.cut_pos = 2 * k + 8 + p;
  pos.cutcat_pos = 3 * k + 8 + p;
  pos.grand_pos_lin = k + 4;
  pos.remean_pos = k + 4 + p;
  pos.recoef_pos = k + 4 + p + p * k;
  pos.fk_pos_lin = k + 4 + p + p * k + (p + 1) * k;
  pos.recrim_pos = pos.fk_pos_lin + p;
}

}  // namespace vardel
