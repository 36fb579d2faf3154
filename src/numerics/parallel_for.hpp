// parallel_for and parallel_blocks: independent work shared among a fixed
// pool of threads.
//
// parallel_for(first, last, cost, body) calls body(i) once for every i in
// first..last; parallel_blocks(first, last, cost, body) calls body(lo, hi)
// on contiguous blocks that together cover first..last once. The calls may
// run on several threads at once and in any order; both return when every
// call has finished. cost is a rough count of elementary steps per index
// (e.g. the cases a column holds): when the whole range is too small to be
// worth a hand-off, or there is one core, or the caller is itself inside a
// shared task, the calls run inline, in index order, on the calling thread.
//
// The bodies must be independent: no two indices write the same element, and
// each keeps its own scratch. A body that throws ends the sharing after the
// calls under way; the first exception in index order is rethrown to the
// caller. A floating-point sum must never be split across indices: results
// are then the same bit for bit whether the work was shared or not.
//
// The pool holds hardware_concurrency() - 1 workers (the caller is the last
// hand), at most kMaxThreads - 1, and is started on first use.
#pragma once

#include <cstddef>
#include <functional>

namespace vardel {

// Indices first..last, each at about `cost` steps.
void parallel_for(std::ptrdiff_t first, std::ptrdiff_t last, std::size_t cost,
                  const std::function<void(std::ptrdiff_t)>& body);

// Contiguous blocks lo..hi of first..last, each index at about `cost` steps.
void parallel_blocks(std::ptrdiff_t first, std::ptrdiff_t last, std::size_t cost,
                     const std::function<void(std::ptrdiff_t, std::ptrdiff_t)>& body);

// The threads that share work (1 when everything runs inline).
int parallel_threads();

}  // namespace vardel
