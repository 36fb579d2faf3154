// meanss, meanss1 and their single-column entries against a plain two-pass
// loop over each column, bit for bit, on random nodes of many shapes.
#include <gtest/gtest.h>

#include <cmath>

#include <limits>

#include <cstring>
#include <ostream>
#include <random>
#include <vector>

#include "split/class_moments.hpp"

namespace vardel {
namespace {

// The moments of column j, one sequential sum after another in case order.
void reference_column(FMatrixView<const double> x, const FMatrixView<const char>* mis,
                      const std::vector<int>& y, int nclass, int j, Moments& mom) {
  const auto n_all = static_cast<int>(x.extent1());
  std::vector<double> mean(static_cast<std::size_t>(nclass) + 1, 0.0);
  std::vector<int> noc(static_cast<std::size_t>(nclass) + 1, 0);
  auto present = [&](int i) { return mis == nullptr || (*mis)(i, j) != 'y'; };
  double total = 0.0;
  int n = 0;
  for (int i = 1; i <= n_all; ++i) {
    if (!present(i)) continue;
    mean[y[i - 1]] += x(i, j);
    total += x(i, j);
    ++noc[y[i - 1]];
    ++n;
  }
  int m = 0;
  for (int k = 1; k <= nclass; ++k) {
    if (noc[k] > 0) ++m;
    if (noc[k] != 0) mean[k] = mean[k] / noc[k];
  }
  const double g = n > 0 ? total / n : 0.0;
  double between = 0.0;
  for (int k = 1; k <= nclass; ++k) {
    if (noc[k] == 0) continue;
    const double d = mean[k] - g;
    between += noc[k] * (d * d);
  }
  double within = 0.0;
  double spread = 0.0;
  for (int i = 1; i <= n_all; ++i) {
    if (!present(i)) continue;
    const double dw = x(i, j) - mean[y[i - 1]];
    within += dw * dw;
    const double dt = x(i, j) - g;
    spread += dt * dt;
  }
  auto ms = [](double s, int df) { return df > 0 ? s / df : 0.0; };
  for (int k = 1; k <= nclass; ++k) {
    mom.xmean(k, j) = mean[k];
    mom.noc_used(k, j) = noc[k];
  }
  mom.gmean(j) = g;
  mom.mst(j) = ms(between, m - 1);
  mom.mse(j) = ms(within, n - m);
  mom.tss(j) = ms(spread, n - 1);
  mom.n_used(j) = n;
  mom.m_used(j) = m;
}

template <class T>
bool same_bits(const FArray<T>& a, const FArray<T>& b) {
  return a.extent1() == b.extent1() && a.extent2() == b.extent2() &&
         std::memcmp(a.data(), b.data(), sizeof(T) * static_cast<std::size_t>(a.size())) == 0;
}

void expect_same(const Moments& a, const Moments& b, const char* what) {
  EXPECT_TRUE(same_bits(a.xmean, b.xmean) && same_bits(a.gmean, b.gmean) &&
              same_bits(a.mst, b.mst) && same_bits(a.mse, b.mse) && same_bits(a.tss, b.tss) &&
              same_bits(a.n_used, b.n_used) && same_bits(a.m_used, b.m_used) &&
              same_bits(a.noc_used, b.noc_used))
      << what;
}

struct Shape {
  int n, nclass, nvar;
  double missing;  // share of missing cells
};

// Names the shape in test listings (the default shows its bytes, padding included).
void PrintTo(const Shape& s, std::ostream* os) {
  *os << "n" << s.n << "_K" << s.nclass << "_P" << s.nvar << "_missing" << s.missing;
}

class ClassMomentsBits : public testing::TestWithParam<Shape> {};

TEST_P(ClassMomentsBits, MatchPlainTwoPassLoop) {
  const Shape s = GetParam();
  std::mt19937_64 rng(static_cast<unsigned>(s.n * 131 + s.nclass * 17 + s.nvar));
  std::uniform_real_distribution<double> value(-1e3, 1e3);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  // The last class never occurs, and the node is a block of rows of a
  // larger table, as the growth hands it over.
  std::uniform_int_distribution<int> cls(1, s.nclass > 2 ? s.nclass - 1 : s.nclass);
  const int pad = 3;
  FArray<double> table(s.n + 2 * pad, s.nvar, 0.0);
  FArray<char> flags(s.n + 2 * pad, s.nvar, 'n');
  for (int i = 1; i <= table.size(); ++i) {
    table(i) = value(rng) * unit(rng);  // many magnitudes, so rounding shows
    if (unit(rng) < s.missing) flags(i) = 'y';
  }
  if (s.nvar > 1 && s.n > 0) {
    for (int i = 1; i <= s.n + 2 * pad; ++i) flags(i, 2) = 'y';  // a column with no case
  }
  std::vector<int> y(static_cast<std::size_t>(s.n));
  std::vector<int> noc(static_cast<std::size_t>(s.nclass), 0);
  for (int& c : y) ++noc[static_cast<std::size_t>((c = cls(rng)) - 1)];
  int m = 0;
  for (int c : noc) m += c > 0;
  const FMatrixView<const double> x = FMatrixView<const double>(table).rows(pad, s.n);
  const FMatrixView<const char> mis = FMatrixView<const char>(flags).rows(pad, s.n);

  Moments want_all;
  Moments want_present;
  for (Moments* w : {&want_all, &want_present}) {
    w->xmean.assign(s.nclass, s.nvar, 0.0);
    w->noc_used.assign(s.nclass, s.nvar, 0);
    for (FArray<double>* a : {&w->gmean, &w->mst, &w->mse, &w->tss}) a->assign(s.nvar, 0.0);
    for (FArray<int>* a : {&w->n_used, &w->m_used}) a->assign(s.nvar, 0);
  }
  for (int j = 1; j <= s.nvar; ++j) {
    reference_column(x, nullptr, y, s.nclass, j, want_all);
    reference_column(x, &mis, y, s.nclass, j, want_present);
  }

  Moments got;
  Moments got_one;
  meanss(x, y, noc, m, got);
  expect_same(got, want_all, "meanss");
  for (int j = s.nvar; j >= 1; --j) meanss_column(x, y, noc, m, j, got_one);
  expect_same(got_one, want_all, "meanss_column");

  meanss1(x, mis, y, s.nclass, got);  // the storage of the first call is reused
  expect_same(got, want_present, "meanss1");
  for (int j = s.nvar; j >= 1; --j) meanss1_column(x, mis, y, s.nclass, j, got_one);
  expect_same(got_one, want_present, "meanss1_column");

  // Without the total square every other moment is the same and tss is
  // left as the caller had it.
  for (Moments* w : {&want_all, &want_present}) w->tss.fill(-1.0);
  for (Moments* g : {&got, &got_one}) g->tss.assign(s.nvar, -1.0);
  meanss(x, y, noc, m, got, Squares::tests_only);
  expect_same(got, want_all, "meanss for the tests");
  meanss1(x, mis, y, s.nclass, got_one, Squares::tests_only);
  expect_same(got_one, want_present, "meanss1 for the tests");

  // The same moments from a table whose missing cells hold +0.0, which then
  // hold their class's mean.
  FArray<double> zeroed_table = table;
  std::vector<std::vector<int>> missing(static_cast<std::size_t>(s.nvar));
  const FMatrixView<double> zx = FMatrixView<double>(zeroed_table).rows(pad, s.n);
  for (int j = 1; j <= s.nvar; ++j)
    for (int i = 1; i <= s.n; ++i)
      if (mis(i, j) == 'y') {
        zx(i, j) = 0.0;
        missing[static_cast<std::size_t>(j - 1)].push_back(i);
      }
  Moments got_zeroed;
  meanss1_zeroed({zx, missing}, mis, y, noc, got_zeroed);
  got_zeroed.tss.fill(-1.0);
  expect_same(got_zeroed, want_present, "meanss1 on zeroed cells");
  bool filled = true;
  for (int j = 1; j <= s.nvar; ++j)
    for (int i : missing[static_cast<std::size_t>(j - 1)])
      filled = filled &&
               std::memcmp(&zx(i, j), &want_present.xmean(y[static_cast<std::size_t>(i - 1)], j),
                           sizeof(double)) == 0;
  EXPECT_TRUE(filled);
}

TEST(ClassMomentsZeroed, ColumnWithAnInfiniteValueIsWorkedOutWithTheMask) {
  // Class 1's present values overflow to +inf: inf - inf is no +0.0, so the
  // missing cells cannot stand in for present ones in the squares.
  const double big = std::numeric_limits<double>::max();
  FArray<double> table(6, 2, 0.0);
  const std::vector<int> y = {1, 1, 1, 2, 2, 2};
  const std::vector<int> noc = {3, 3};
  FArray<char> flags(6, 2, 'n');
  const double column1[] = {big, big, 0.0, 1.0, 0.0, 3.0};
  const double column2[] = {1.0, 2.0, 3.0, 0.0, 5.0, 6.0};
  for (int i = 1; i <= 6; ++i) {
    table(i, 1) = column1[i - 1];
    table(i, 2) = column2[i - 1];
  }
  flags(3, 1) = flags(5, 1) = flags(4, 2) = 'y';
  Moments want;
  meanss1(table, flags, y, 2, want, Squares::tests_only);
  const std::vector<std::vector<int>> missing = {{3, 5}, {4}};
  Moments got;
  meanss1_zeroed({table, missing}, flags, y, noc, got);
  expect_same(got, want, "overflowing column");
  EXPECT_TRUE(std::isinf(want.xmean(1, 1)));
}

INSTANTIATE_TEST_SUITE_P(Shapes, ClassMomentsBits,
                         testing::Values(Shape{0, 2, 3, 0.0}, Shape{1, 2, 1, 0.0},
                                         Shape{2, 3, 4, 0.2}, Shape{7, 7, 5, 0.3},
                                         Shape{7, 9, 9, 0.0}, Shape{1000, 2, 21, 0.1},
                                         Shape{1000, 3, 9, 0.0}, Shape{1000, 9, 5, 0.5},
                                         Shape{1000, 7, 4, 0.05}, Shape{1000, 3, 16, 0.1},
                                         Shape{1000, 4, 15, 0.0}, Shape{100003, 2, 21, 0.0},
                                         Shape{100003, 3, 5, 0.1}, Shape{100003, 9, 4, 0.02}));

}  // namespace
}  // namespace vardel
