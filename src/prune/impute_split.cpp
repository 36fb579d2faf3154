#include "prune/impute_split.hpp"

#include <cmath>
#include <limits>

#include "numerics/indexx.hpp"
#include "numerics/round_to_long.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

// Score of a class without cases: it can never be the largest.
constexpr double kNoScore = -std::numeric_limits<double>::max();

// The class with most cases in the node: the last entry of indexx on noc.
int largest_class(const FView<double>& y, PourWork& work) {
  const Init& in = init();
  const int k = in.nclass;
  indexx(y.span().subspan(static_cast<std::size_t>(in.pos.noc_pos - 1), k), work.indx.span());
  return work.indx(k);
}

// Ordinal of predictor var among the categorical predictors; 0 if none.
int categorical_ordinal(int var) {
  const Init& in = init();
  for (int i = 1; i <= in.ncat; ++i) {
    if (in.catpos(i) == var) return i;
  }
  return 0;
}

// Position q of the alternate block, behind the numerical split points or
// behind the category lists.
int alternate_pos(const FView<double>& y, int var) {
  const Init& in = init();
  if (in.vtype(var) != 'c') return in.pos.cut_pos + in.nclass - 1;
  const int c = read_record_int(y, in.pos.gmean_pos);
  return in.pos.cutcat_pos + in.numcat(c);
}

// The class that the alternate variable a (present in the case) predicts:
// largest d(i) = z coef5(i, 2) + coef5(i, 1), classes without cases excluded.
int alternate_class(const FView<double>& y, int q, int a, double z, PourWork& work) {
  const Init& in = init();
  const int k = in.nclass;
  if (in.vtype(a) == 'c') {
    const int ia = categorical_ordinal(a);
    const long code = round_to_long(z);
    if (ia > 0 && code >= 1 && code <= in.numcat(ia)) {
      z = y(q + 2 + 2 * k + static_cast<int>(code) - 1);  // crimcord5(code)
    }
  }
  for (int i = 1; i <= k; ++i) {
    if (read_record_int(y, in.pos.noc_pos + i - 1) < 1) {
      work.d(i) = kNoScore;
    } else {
      work.d(i) = z * y(q + k + i) + y(q + i);
    }
  }
  indexx(work.d.span(), work.indx.span());
  return work.indx(k);
}

}  // namespace

bool impute_split_value(const FView<double>& y, FArray<double>& x, const FArray<char>& mis, int row,
                        int var, PourWork& work) {
  const Init& in = init();
  auto meanmode = [&](int b) { return y(in.pos.meanmode_pos + b - 1); };
  switch (in.impprune) {
    case 1:
    case 3:
      x(row, var) = meanmode(largest_class(y, work));
      return true;
    case 2:
      x(row, var) = y(in.pos.grand_pos);
      return true;
    case 4:
      return false;
    case 5:
    case 6: {
      const int q = alternate_pos(y, var);
      const int a = read_record_int(y, q);
      if (a >= 1 && mis(row, a) != 'y') {
        x(row, var) = meanmode(alternate_class(y, q, a, x(row, a), work));
      } else {
        x(row, var) = meanmode(largest_class(y, work));
      }
      return true;
    }
    default:
      return true;
  }
}

}  // namespace vardel
