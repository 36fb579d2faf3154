// A fixed pool of worker threads for parallel_for and parallel_blocks (see
// parallel_for.hpp).
#include "numerics/parallel_for.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace vardel {
namespace {

using Index = std::ptrdiff_t;

// Guards the pool size: more threads than this gain nothing on the column
// counts of a node and only cost start-up.
constexpr int kMaxThreads = 8;
// Guards the hand-off: a range of fewer steps than this runs inline, since
// waking a worker costs about as much as this many steps.
constexpr std::size_t kMinSharedSteps = 32768;
// Blocks per thread for parallel_blocks, so that a slow thread is caught up.
constexpr Index kBlocksPerThread = 4;

// True on a pool worker, and on the caller while it shares a job: a nested
// call then runs inline.
thread_local bool t_in_task = false;

// Guards the waits: a thread that expects work (or a worker's check-in) soon
// spins this long before it sleeps, since waking a sleeping thread of a
// virtual machine costs far more than a node's hand-off.
constexpr auto kSpin = std::chrono::microseconds(200);

// Spins until ready() holds or kSpin has passed; returns ready().
template <class Ready>
bool spin_until(Ready ready) {
  const auto until = std::chrono::steady_clock::now() + kSpin;
  for (int round = 1;; ++round) {
    if (ready()) return true;
    if (round % 64 == 0 && std::chrono::steady_clock::now() > until) return ready();
  }
}

class Pool {
 public:
  Pool() {
    const unsigned hw = std::thread::hardware_concurrency();
    const int threads = std::clamp(static_cast<int>(hw), 1, kMaxThreads);
    for (int w = 1; w < threads; ++w) workers_.emplace_back([this] { work(); });
  }
  ~Pool() {
    {
      std::lock_guard lock(mutex_);
      closing_.store(true);
    }
    wake_.notify_all();
    for (std::thread& t : workers_) t.join();
  }
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

  int threads() const { return static_cast<int>(workers_.size()) + 1; }

  // Runs task(0) .. task(count - 1) on the workers and the calling thread.
  void run(Index count, const std::function<void(Index)>& task) {
    std::unique_lock caller(busy_, std::try_to_lock);
    if (!caller.owns_lock()) {
      // Another thread is sharing a job: this one does its own work alone.
      for (Index k = 0; k < count; ++k) task(k);
      return;
    }
    task_ = &task;
    count_ = count;
    next_.store(0);
    failed_at_ = count;
    error_ = nullptr;
    pending_.store(static_cast<int>(workers_.size()));
    {
      std::lock_guard lock(mutex_);
      generation_.fetch_add(1);
    }
    wake_.notify_all();
    t_in_task = true;
    take_tasks();
    t_in_task = false;
    // Every worker checks in before the job's fields may change again.
    if (!spin_until([this] { return pending_.load() == 0; })) {
      while (pending_.load() != 0) std::this_thread::yield();
    }
    task_ = nullptr;
    if (error_) std::rethrow_exception(error_);
  }

 private:
  void work() {
    t_in_task = true;
    unsigned long seen = 0;
    for (;;) {
      auto ready = [&] { return closing_.load() || generation_.load() != seen; };
      if (!spin_until(ready)) {
        std::unique_lock lock(mutex_);
        wake_.wait(lock, ready);
      }
      if (closing_.load()) return;
      seen = generation_.load();
      take_tasks();
      pending_.fetch_sub(1);
    }
  }

  // Takes tasks in index order until none is left or one has failed.
  void take_tasks() {
    for (;;) {
      const Index k = next_.fetch_add(1);
      if (k >= count_) return;
      try {
        (*task_)(k);
      } catch (...) {
        std::lock_guard lock(mutex_);
        if (k < failed_at_) {
          failed_at_ = k;
          error_ = std::current_exception();
        }
        next_.store(count_);
      }
    }
  }

  std::vector<std::thread> workers_;
  std::mutex busy_;   // held by the thread sharing a job
  std::mutex mutex_;  // for sleeping workers, and the failure fields
  std::condition_variable wake_;
  // The job: set by the caller before generation_ moves on, read by the
  // workers after they see it move.
  const std::function<void(Index)>* task_ = nullptr;
  Index count_ = 0;
  std::atomic<Index> next_{0};
  Index failed_at_ = 0;
  std::exception_ptr error_;
  std::atomic<int> pending_{0};  // workers yet to check in
  std::atomic<unsigned long> generation_{0};
  std::atomic<bool> closing_{false};
};

Pool& pool() {
  static Pool p;
  return p;
}

// Whether n indices of `cost` steps each are worth sharing.
bool worth_sharing(Index n, std::size_t cost) {
  if (n < 2 || t_in_task) return false;
  const std::size_t steps = static_cast<std::size_t>(n) * std::max<std::size_t>(cost, 1);
  return steps >= kMinSharedSteps && pool().threads() > 1;
}

}  // namespace

void parallel_for(Index first, Index last, std::size_t cost,
                  const std::function<void(Index)>& body) {
  const Index n = last - first + 1;
  if (!worth_sharing(n, cost)) {
    for (Index i = first; i <= last; ++i) body(i);
    return;
  }
  pool().run(n, [&](Index k) { body(first + k); });
}

void parallel_blocks(Index first, Index last, std::size_t cost,
                     const std::function<void(Index, Index)>& body) {
  const Index n = last - first + 1;
  if (n < 1) return;
  if (!worth_sharing(n, cost)) {
    body(first, last);
    return;
  }
  // Blocks of at least kMinSharedSteps / 2 steps, a few per thread.
  const std::size_t per_index = std::max<std::size_t>(cost, 1);
  const Index min_size =
      static_cast<Index>(std::max<std::size_t>(1, kMinSharedSteps / 2 / per_index));
  const Index blocks = std::clamp<Index>(n / min_size, 1, kBlocksPerThread * pool().threads());
  const Index size = (n + blocks - 1) / blocks;
  const Index used = (n + size - 1) / size;
  pool().run(used, [&](Index k) {
    const Index lo = first + k * size;
    body(lo, std::min(last, lo + size - 1));
  });
}

int parallel_threads() {
  return pool().threads();
}

}  // namespace vardel
