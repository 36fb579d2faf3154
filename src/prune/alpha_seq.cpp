// alpha_seq: weakest-link loop, compression of tied steps, the kept sequence
// and the printed table of subtrees.
#include "prune/alpha_seq.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "numerics/farray.hpp"
#include "numerics/format.hpp"
#include "numerics/text.hpp"
#include "prune/prune_arrays.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

// Strengths this close (absolutely) give the same subtree.
constexpr double kAlphaTie = std::numeric_limits<double>::epsilon();
// Geometric mean past the last subtree: no strength reaches it.
constexpr double kLastPalpha = std::numeric_limits<double>::max();

int count_of(const std::vector<int>& v, int value) {
  return static_cast<int>(std::count(v.begin(), v.end(), value));
}

// Position in the node lists of the split node with the smallest nalpha,
// the smallest node number among exact ties; 0 when there is none.
int weakest_link(const PruneArrays& pa) {
  const FView<const int> nid{std::span<const int>(pa.nid)};
  const FView<const int> nstat{std::span<const int>(pa.nstat)};
  const FView<const double> nalpha{std::span<const double>(pa.nalpha)};
  int best = 0;
  for (int i = 1; i <= pa.count; ++i) {
    if (nstat(i) != 0) continue;
    if (best == 0 || nalpha(i) < nalpha(best) ||
        (nalpha(i) == nalpha(best) && nid(i) < nid(best))) {
      best = i;
    }
  }
  return best;
}

// Merges the m recorded steps into subtrees; overwrites the first nsubtrees
// entries of talpha and pnodes with them and fills nomit.
void compress(PruneArrays& pa, int m) {
  const auto cap = static_cast<std::size_t>(2 * m + 1);  // at most two entries per step
  std::vector<double> talpha1(cap, 0.0);
  std::vector<int> pnodes1(cap, 0);
  pa.nomit.assign(cap, 0);
  FView<double> ta1{std::span<double>(talpha1)};
  FView<int> pn1{std::span<int>(pnodes1)};
  FView<int> nomit{std::span<int>(pa.nomit)};
  const FView<const double> talpha{std::span<const double>(pa.talpha)};
  const FView<const int> pnodes{std::span<const int>(pa.pnodes)};

  int c = 0;
  for (int i = 1; i <= m - 1; ++i) {
    if (kAlphaTie + talpha(i) >= talpha(i + 1)) {
      nomit(c + 1) += 1;
    } else {
      c += 1;
      ta1(c) = talpha(i);
      pn1(c) = pnodes(i);
    }
    if (pnodes(i + 1) == 1) {
      c += 1;
      ta1(c) = talpha(i + 1);
      pn1(c) = 1;
    }
  }
  if (m == 1) {
    ta1(1) = talpha(1);
    pn1(1) = pnodes(1);
    pa.nsubtrees = 1;
  } else {
    pa.nsubtrees = c;
  }

  const auto ns = static_cast<std::size_t>(pa.nsubtrees);
  if (pa.talpha.size() < ns) pa.talpha.resize(ns, 0.0);
  if (pa.pnodes.size() < ns) pa.pnodes.resize(ns, 0);
  std::copy_n(talpha1.begin(), ns, pa.talpha.begin());
  std::copy_n(pnodes1.begin(), ns, pa.pnodes.begin());
}

void keep_sequence(PruneArrays& pa, int m) {
  pa.pseq0 = pa.pseq;
  pa.nsteps = m;
  pa.talpha0 = pa.talpha;
  pa.pnodes0 = pa.pnodes;
  pa.palpha.assign(static_cast<std::size_t>(pa.nsubtrees), 0.0);
  const FView<const double> talpha0{std::span<const double>(pa.talpha0)};
  FView<double> palpha{std::span<double>(pa.palpha)};
  for (int i = 1; i <= pa.nsubtrees - 1; ++i) palpha(i) = std::sqrt(talpha0(i) * talpha0(i + 1));
  palpha(pa.nsubtrees) = kLastPalpha;
}

}  // namespace

void alpha_seq(int flag) {
  PruneArrays& pa = prune_arrays();
  refill_arrays();
  pa.nonempty_terminal = count_of(pa.nstattrue, 1);
  pa.nonempty_nodes = pa.count - count_of(pa.nstattrue, 2);
  init().nodesmax = pa.nonempty_nodes;
  fill_cost();
  const int nsplit = count_of(pa.nstat, 0);

  std::ofstream out(std::string(trim(init().outfile)), std::ios::app);
  write_fmt(out, "(a)", {"  Subtree pruning sequence:"});
  write_list(out, {" Subtree   True alpha   # Terminal Nodes"});
  write_fmt(out, "(a,1x,f9.4,i14)", {" (largest)", 0.0, pa.nonempty_terminal});
  if (nsplit == 0) return;

  pa.pseq.assign(static_cast<std::size_t>(nsplit), 0);
  pa.talpha.assign(static_cast<std::size_t>(nsplit), 0.0);
  pa.pnodes.assign(static_cast<std::size_t>(nsplit), 0);
  const FView<int> pseq{std::span<int>(pa.pseq)};
  const FView<double> talpha{std::span<double>(pa.talpha)};
  const FView<int> pnodes{std::span<int>(pa.pnodes)};
  int m = 0;
  for (int k = 1; k <= nsplit; ++k) {
    if (pa.nstat.front() == 1) break;  // the root is terminal
    // The node lists are refilled below: take what is needed from them first.
    const auto w = static_cast<std::size_t>(weakest_link(pa) - 1);
    pseq(k) = pa.nid[w];
    talpha(k) = pa.nalpha[w];
    prune_children(pseq(k), true);
    refill_arrays();
    pnodes(k) = count_of(pa.nstattrue, 1);
    fill_cost();
    m = k;
  }

  compress(pa, m);
  if (flag != 0) return;
  keep_sequence(pa, m);

  const FView<const double> talpha0{std::span<const double>(pa.talpha0)};
  const FView<const int> pnodes0{std::span<const int>(pa.pnodes0)};
  for (int i = 1; i <= pa.nsubtrees; ++i) {
    write_fmt(out, "(i7,4x,f9.4,i14)", {i, talpha0(i), pnodes0(i)});
  }
}

}  // namespace vardel
