#include "tree/node_class.hpp"

#include <limits>

#include "run/init.hpp"

namespace vardel {

namespace {

constexpr double kTiny = 2.2250738585072014e-308;  // smallest positive normal double

// Cost of predicting class j for weights w: the sum over i of w(i) cost(j, i).
double class_cost(const FArray<double>& cost, const FArray<double>& w, int j) {
  double c = 0.0;
  for (int i = 1; i <= w.size(); ++i) c += w(i) * cost(j, i);
  return c;
}

// The first class of least cost, and the last class sharing that cost (0 if none).
NodeClass least_cost_class(const FArray<double>& cost, const FArray<double>& w) {
  NodeClass found;
  double best = std::numeric_limits<double>::max();
  for (int j = 1; j <= w.size(); ++j) {
    const double c = class_cost(cost, w, j);
    if (c < best || found.iclass == 0) {
      best = c;
      found.iclass = j;
      found.tie = 0;
    } else if (c == best) {
      found.tie = j;
    }
  }
  return found;
}

}  // namespace

NodeClass geticlasswithtie(std::span<const int> noc, std::span<const int> csize,
                           std::span<const double> prob, int nobs, FArray<double>& altpr,
                           FArray<double>& pr) {
  const Init& in = init();
  const int k_classes = static_cast<int>(noc.size());
  pr.assign(k_classes, 0.0);
  altpr.assign(k_classes, 0.0);
  for (int k = 1; k <= k_classes; ++k) {
    if (csize[k - 1] > 0)
      pr(k) = static_cast<double>(noc[k - 1]) / static_cast<double>(csize[k - 1]);
  }

  if (in.costtype == 2) {
    FArray<double> r(k_classes, 0.0);
    double total = 0.0;
    for (int k = 1; k <= k_classes; ++k) {
      double column = 0.0;
      for (int j = 1; j <= k_classes; ++j) column += in.cost(j, k);
      r(k) = prob[k - 1] * column;
      total += r(k);
    }
    for (int k = 1; k <= k_classes; ++k) altpr(k) = pr(k) * (r(k) / total);
  } else if (in.priortype == 2) {
    for (int k = 1; k <= k_classes; ++k)
      altpr(k) = static_cast<double>(noc[k - 1]) / static_cast<double>(nobs);
  } else {
    for (int k = 1; k <= k_classes; ++k) altpr(k) = pr(k) * prob[k - 1];
  }

  for (int k = 1; k <= k_classes; ++k) {
    if (in.priortype == 2)
      pr(k) = static_cast<double>(noc[k - 1]) / static_cast<double>(nobs);
    else
      pr(k) = pr(k) * prob[k - 1];
  }
  return least_cost_class(in.cost, pr);
}

int getprior(std::span<const int> noc, std::span<const int> csize, std::span<const double> prob,
             int nobs, FArray<double>& altpr, FArray<double>& pr) {
  return geticlasswithtie(noc, csize, prob, nobs, altpr, pr).iclass;
}

int geticlass(int node, NodeClass found, std::span<const int> termnode,
              std::span<const int> classes, std::span<const int> csize,
              std::span<const double> prob) {
  const int k_classes = static_cast<int>(csize.size());
  if (node <= 1 || found.tie == 0) return found.iclass;

  // The siblings are the children 1..K of the parent, numbered consecutively.
  const int parent = (node - 2) / k_classes + 1;
  const int first = (parent - 1) * k_classes + 2;
  FArray<int> count(k_classes, k_classes, 0);  // count(class, sibling)
  FArray<int> size(k_classes, 0);
  for (std::size_t c = 0; c < termnode.size(); ++c) {
    const int s = termnode[c] - first + 1;
    if (s < 1 || s > k_classes) continue;
    ++count(classes[c], s);
    ++size(s);
  }
  return settle_tie(node, found, count, size, csize, prob);
}

int settle_tie(int node, NodeClass found, const FArray<int>& count, const FArray<int>& size,
               std::span<const int> csize, std::span<const double> prob) {
  const Init& in = init();
  const int k_classes = static_cast<int>(csize.size());
  if (node <= 1 || found.tie == 0) return found.iclass;
  const int first = ((node - 2) / k_classes) * k_classes + 2;
  FArray<double> w(k_classes, 0.0);
  for (int s = 1; s <= k_classes; ++s) {
    if (first + s - 1 == node || size(s) == 0) continue;
    for (int i = 1; i <= k_classes; ++i) {
      w(i) = csize[i - 1] > 0 ? prob[i - 1] * static_cast<double>(count(i, s)) /
                                    static_cast<double>(csize[i - 1])
                              : 0.0;
    }
    const int sibling_class = least_cost_class(in.cost, w).iclass;
    if (sibling_class == found.tie) return found.iclass;
    if (sibling_class == found.iclass) return found.tie;
  }
  return found.iclass;
}

double getrt(const FArray<double>& pr) {
  bool all_tiny = true;
  for (double p : pr) all_tiny = all_tiny && p < kTiny;
  if (all_tiny) return 0.0;
  const FArray<double>& cost = init().cost;
  double rt = 0.0;
  for (int j = 1; j <= pr.size(); ++j) {
    const double c = class_cost(cost, pr, j);
    if (j == 1 || c < rt) rt = c;
  }
  return rt;
}

}  // namespace vardel
