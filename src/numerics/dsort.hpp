// In-place sorts with an optional companion array: dsort (double) and ssort
// (float).
//
// x is sorted; y, when not empty, receives the same rearrangement as x.
// order absent or non-zero: ascending; order present and 0: descending.
// With an empty x, or a non-empty y whose length differs from x, a message is
// written to std::cout and nothing is changed; the run goes on.
#pragma once

#include <optional>
#include <span>

namespace vardel {

void dsort(std::span<double> x, std::span<double> y = {}, std::optional<int> order = std::nullopt);
void ssort(std::span<float> x, std::span<float> y = {}, std::optional<int> order = std::nullopt);

}  // namespace vardel
