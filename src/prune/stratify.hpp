// stratify: the cross-validation fold of every case.
//
// Input: the number of folds v (at least 1) and the seed of the generator.
// Output: mcv(i) in 1..v for each case i, in case order. The cases are taken
// in blocks of v consecutive cases; each full block is one random
// permutation of the folds 1..v, and a trailing partial block takes the
// first entries of one more permutation. So fold sizes differ by at most
// one, and folds are balanced by position in the file, not by class.
//
// The shared generator is restarted here (luxury level 4, the given seed),
// so the folds depend on nothing drawn before.
#pragma once

#include <span>

namespace vardel {

void stratify(int folds, int seed, std::span<int> mcv);

}  // namespace vardel
