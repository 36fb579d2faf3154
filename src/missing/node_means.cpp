#include "missing/node_means.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "numerics/parallel_for.hpp"
#include "numerics/round_to_long.hpp"
#include "run/init.hpp"

namespace vardel {

namespace {

// Guards the sharing of a column's filling: steps per row.
constexpr std::size_t kFillSteps = 2;

// The ordinal of predictor j among the categorical predictors, 0 if numerical.
FArray<int> categorical_ordinals(const Init& in) {
  FArray<int> ordinal(in.nvar, 0);
  for (int c = 1; c <= in.ncat; ++c) ordinal(in.catpos(c)) = c;
  return ordinal;
}

// Centres of column j in one pass over the cases: centre(0) over all cases,
// centre(k) over the cases of class k (k = 1..classes; cdat may be empty when
// classes is 0). Each class's sum runs over its own cases in case order, as
// a pass over that class's block alone would.
void column_centres(FMatrixView<const double> xdat, std::span<const int> cdat,
                    FMatrixView<const char> misind, int n, int j, int numcat, int classes,
                    std::vector<double>& centre, std::vector<double>& sums,
                    std::vector<int>& counts) {
  const std::size_t groups = static_cast<std::size_t>(classes) + 1;
  centre.assign(groups, 0.0);
  const auto rows = static_cast<std::size_t>(n);
  const std::span<const double> x = xdat.column(j).first(rows);
  const std::span<const char> mis = misind.column(j).first(rows);
  if (numcat == 0) {
    sums.assign(groups, 0.0);
    counts.assign(groups, 0);
    double total = 0.0;
    int present = 0;
    for (std::size_t i = 0; i < rows; ++i) {
      if (mis[i] != 'n') continue;
      const double v = x[i];
      total += v;
      ++present;
      if (classes > 0) {
        const auto k = static_cast<std::size_t>(cdat[i]);
        sums[k] += v;
        ++counts[k];
      }
    }
    sums[0] = total;
    counts[0] = present;
    for (std::size_t g = 0; g < groups; ++g)
      if (counts[g] > 0) centre[g] = sums[g] / counts[g];
    return;
  }
  // counts[g * (numcat + 1) + code]
  const std::size_t width = static_cast<std::size_t>(numcat) + 1;
  counts.assign(groups * width, 0);
  for (std::size_t i = 0; i < rows; ++i) {
    if (mis[i] != 'n') continue;
    const long code = round_to_long(x[i]);
    if (code < 1 || code > numcat) continue;
    ++counts[static_cast<std::size_t>(code)];
    if (classes > 0)
      ++counts[static_cast<std::size_t>(cdat[i]) * width + static_cast<std::size_t>(code)];
  }
  for (std::size_t g = 0; g < groups; ++g) {
    int best = 0;
    for (std::size_t code = 1; code < width; ++code) {
      if (counts[g * width + code] > best) {  // the smallest code wins a tie
        best = counts[g * width + code];
        centre[g] = static_cast<double>(code);
      }
    }
  }
}

}  // namespace

bool holds_flag(std::span<const char> flags, char v) {
  return std::string_view(flags.data(), flags.size()).find(v) != std::string_view::npos;
}

void getgrand(FMatrixView<const double> xdat, FMatrixView<const char> misind, int n,
              FArray<double>& grand) {
  const Init& in = init();
  const FArray<int> ordinal = categorical_ordinals(in);
  std::vector<double> centre, sums;
  std::vector<int> counts;
  grand.assign(in.nvar, 0.0);
  for (int j = 1; j <= in.nvar; ++j) {
    const int numcat = ordinal(j) > 0 ? in.numcat(ordinal(j)) : 0;
    column_centres(xdat, {}, misind, n, j, numcat, 0, centre, sums, counts);
    grand(j) = centre[0];
  }
}

void getmeanmode(FMatrixView<const double> xdat, std::span<const int> cdat,
                 FMatrixView<const char> misind, std::span<const int> noc, int n,
                 FArray<double>& grand, FArray<double>& meanmode, int only) {
  const Init& in = init();
  const int classes = static_cast<int>(noc.size());
  const FArray<int> ordinal = categorical_ordinals(in);
  std::vector<double> centre, sums;
  std::vector<int> counts;
  meanmode.assign(classes, in.nvar, 0.0);
  grand.assign(in.nvar, 0.0);
  for (int j = 1; j <= in.nvar; ++j) {
    if (only > 0 && j != only) continue;
    const int numcat = ordinal(j) > 0 ? in.numcat(ordinal(j)) : 0;
    column_centres(xdat, cdat, misind, n, j, numcat, classes, centre, sums, counts);
    grand(j) = centre[0];
    for (int k = 1; k <= classes; ++k)
      if (noc[k - 1] != 0) meanmode(k, j) = centre[static_cast<std::size_t>(k)];
  }
}

void meanmode_sub(FMatrixView<double> xdat, std::span<const int> cdat,
                  FMatrixView<const char> misind, std::span<const int> noc, int n,
                  FArray<double>& grand, FArray<double>& meanmode) {
  getmeanmode(xdat, cdat, misind, noc, n, grand, meanmode);
  fill_missing_cells(xdat, cdat, misind, n, meanmode);
}

void fill_node_missing(FMatrixView<double> xdat, std::span<const int> cdat,
                       FMatrixView<const char> misind, std::span<const int> noc, int n,
                       const Moments* present, int only) {
  const Init& in = init();
  const int classes = static_cast<int>(noc.size());
  const FArray<int> ordinal = categorical_ordinals(in);
  const int first = only > 0 ? only : 1;
  const int last = only > 0 ? only : in.nvar;
  parallel_for(first, last, static_cast<std::size_t>(n), [&](std::ptrdiff_t j) {
    const std::span<const char> flags = misind.column(j).first(static_cast<std::size_t>(n));
    if (!holds_flag(flags, 'y')) return;
    const int numcat = ordinal(j) > 0 ? in.numcat(ordinal(j)) : 0;
    std::vector<double> centre, sums;
    std::vector<int> counts;
    if (numcat == 0 && present != nullptr) {
      centre.assign(static_cast<std::size_t>(classes) + 1, 0.0);
      for (int k = 1; k <= classes; ++k) centre[static_cast<std::size_t>(k)] = present->xmean(k, j);
    } else {
      column_centres(xdat, cdat, misind, n, static_cast<int>(j), numcat, classes, centre, sums,
                     counts);
    }
    // Each cell is filled on its own: the rows are shared out in blocks.
    const std::span<double> x = xdat.column(j);
    parallel_blocks(0, n - 1, kFillSteps, [&](std::ptrdiff_t lo, std::ptrdiff_t hi) {
      for (auto i = static_cast<std::size_t>(lo); i <= static_cast<std::size_t>(hi); ++i) {
        if (flags[i] == 'n') continue;
        const auto k = static_cast<std::size_t>(cdat[i]);
        x[i] = noc[k - 1] != 0 ? centre[k] : 0.0;
      }
    });
  });
}

void fill_missing_cells(FMatrixView<double> xdat, std::span<const int> cdat,
                        FMatrixView<const char> misind, int n, const FArray<double>& meanmode) {
  for (int j = 1; j <= init().nvar; ++j)
    for (int i = 1; i <= n; ++i)
      if (misind(i, j) != 'n') xdat(i, j) = meanmode(cdat[i - 1], j);
}

}  // namespace vardel
