// Class and misclassification cost of a node.
//
// geticlasswithtie: from the node's class counts noc, the sample's class
//   counts csize, the priors prob and the sample size nobs, fills pr (joint
//   probability of class and node under the priors) and altpr (the same under
//   the cost-altered priors), and returns the first class of least cost and,
//   if several classes share that cost, the last of them as tie (else 0).
// geticlass, settle_tie: settle such a tie against the node's siblings.
// getrt: the node's resubstitution cost from pr.
//
// Costs, costtype and priortype are the run's (module init). Sums over
// classes run in class order 1..K from 0.0.
#pragma once

#include <span>

#include "numerics/farray.hpp"

namespace vardel {

struct NodeClass {
  int iclass = 0;
  int tie = 0;
};

NodeClass geticlasswithtie(std::span<const int> noc, std::span<const int> csize,
                           std::span<const double> prob, int nobs, FArray<double>& altpr,
                           FArray<double>& pr);

// The same weights as geticlasswithtie, and the first class of least cost,
// for a reduced set of cases (the complete or available cases of a node).
int getprior(std::span<const int> noc, std::span<const int> csize, std::span<const double> prob,
             int nobs, FArray<double>& altpr, FArray<double>& pr);

// node: the node's number; termnode: node membership of each case of the
// sample; classes: class of each case. Returns the settled class.
int geticlass(int node, NodeClass found, std::span<const int> termnode,
              std::span<const int> classes, std::span<const int> csize,
              std::span<const double> prob);
// The same from the siblings' counts: count(class, sibling) and size(sibling)
// over the cases that stand in sibling s = 1..K of the node's parent.
int settle_tie(int node, NodeClass found, const FArray<int>& count, const FArray<int>& size,
               std::span<const int> csize, std::span<const double> prob);

double getrt(const FArray<double>& pr);

}  // namespace vardel
