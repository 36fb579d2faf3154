// fork_join, parallel_for and parallel_blocks: independent work shared among
// a fixed pool of threads.
//
// fork_join(count, task) calls task(0) .. task(count - 1); parallel_for(first,
// last, cost, body) calls body(i) once for every i in first..last;
// parallel_blocks(first, last, cost, body) calls body(lo, hi) on contiguous
// blocks that together cover first..last once. The calls may run on several
// threads at once and in any order; each routine returns when every call has
// finished. All three may be called from any thread, also from inside a call
// of another (to any depth): a thread that waits for its own calls to finish
// runs calls of other jobs meanwhile, the newest job first.
//
// cost is a rough count of elementary steps per index (e.g. the cases a
// column holds): parallel_for and parallel_blocks run inline, in index order,
// on the calling thread when the whole range is too small to be worth a
// hand-off, or there is one core. Otherwise the range is listed for every
// thread, busy or not: one that comes free takes indices the caller has not
// reached. fork_join shares its tasks whenever there is more than one core
// (its tasks are meant to be coarse, such as subtrees).
//
// The calls must be independent: no two indices write the same element, and
// each keeps its own scratch. A call that throws ends its job's calls not yet
// started; after the started ones finish, the first exception in index order
// is rethrown to the caller. A floating-point sum must never be split across
// indices: results are then the same bit for bit whether the work was shared
// or not.
//
// The pool holds hardware_concurrency() - 1 workers (the caller is the last
// hand), at most kMaxThreads - 1, and is started on first use.
#pragma once

#include <cstddef>
#include <functional>

namespace vardel {

// Tasks 0..count-1, each meant to be coarse.
void fork_join(std::ptrdiff_t count, const std::function<void(std::ptrdiff_t)>& task);

// Indices first..last, each at about `cost` steps.
void parallel_for(std::ptrdiff_t first, std::ptrdiff_t last, std::size_t cost,
                  const std::function<void(std::ptrdiff_t)>& body);

// Contiguous blocks lo..hi of first..last, each index at about `cost` steps.
void parallel_blocks(std::ptrdiff_t first, std::ptrdiff_t last, std::size_t cost,
                     const std::function<void(std::ptrdiff_t, std::ptrdiff_t)>& body);

// Whether parallel_for over n indices of `cost` steps each would share them
// if called now: work worth speculating on only when a thread is free for it.
bool would_share(std::ptrdiff_t n, std::size_t cost);

// The threads that share work (1 when everything runs inline).
int parallel_threads();

}  // namespace vardel
