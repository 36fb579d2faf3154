// A fixed pool of worker threads that share fork-join jobs, for fork_join,
// parallel_for and parallel_blocks (see parallel_for.hpp).
//
// A job is one call's tasks 0..count-1. Jobs wait on a stack under one mutex;
// any thread takes the next index of the newest job with indices left. The
// caller of a job runs its own indices first, then helps on other jobs until
// every index of its own has finished.
#include "numerics/parallel_for.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace vardel {
namespace {

using Index = std::ptrdiff_t;
using Task = std::function<void(Index)>;

// Guards the pool size: more threads than this gain nothing on the column
// counts of a node and only cost start-up.
constexpr int kMaxThreads = 8;
// Guards the hand-off: a range of fewer steps than this runs inline, since
// waking a worker costs about as much as this many steps.
constexpr std::size_t kMinSharedSteps = 32768;
// Blocks per thread for parallel_blocks, so that a slow thread is caught up.
constexpr Index kBlocksPerThread = 4;
// Guards the waits: a thread with nothing to do keeps checking for work this
// long before it sleeps. Waking a sleeping thread of a virtual machine costs
// far more than a node's hand-off, and the serial stretches of a large node
// (a split point, a Box-Cox walk) last milliseconds.
constexpr std::chrono::milliseconds kSpinTime{10};
// Checks between two looks at the clock (a pause is some 20 ns).
constexpr int kChecksPerClock = 256;

// Tasks this thread is running, nested: work speculated on inside one
// (would_share) waits for an idle thread.
thread_local int t_task_depth = 0;

void cpu_pause() {
#if defined(__x86_64__)
  __builtin_ia32_pause();
#endif
}

// Checks ready() for up to kSpinTime; returns its last answer.
template <class Ready>
bool spin_until(Ready ready) {
  const auto end = std::chrono::steady_clock::now() + kSpinTime;
  do {
    for (int check = 0; check < kChecksPerClock; ++check) {
      if (ready()) return true;
      cpu_pause();
    }
  } while (std::chrono::steady_clock::now() < end);
  return ready();
}

// One call's tasks. The fields marked "mutex" are guarded by Pool::mutex_.
struct Job {
  Job(const Task* t, Index n) : task(t), count(n), failed_at(n) {}
  const Task* task;  // the caller's; never called once next has passed count
  const Index count;
  std::atomic<Index> next{0};      // the next index to hand out
  std::atomic<Index> finished{0};  // indices run, or dropped after a failure
  Index failed_at;                 // mutex: the first failed index so far
  std::exception_ptr error;        // mutex: its exception
  bool owner_asleep = false;       // mutex: the caller sleeps until it ends

  bool has_work() const { return next.load(std::memory_order_relaxed) < count; }
  bool done() const { return finished.load(std::memory_order_acquire) == count; }
};
using JobPtr = std::shared_ptr<Job>;

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
  bool someone_idle() const { return idle_.load(std::memory_order_relaxed) > 0; }

  // Runs task(0) .. task(count - 1) on this thread and whoever helps.
  void run(Index count, const Task& task) {
    const JobPtr job = std::make_shared<Job>(&task, count);
    bool wake = false;
    {
      std::lock_guard lock(mutex_);
      jobs_.push_back(job);
      listed_.store(jobs_.size(), std::memory_order_relaxed);
      wake = sleepers_ > 0;
    }
    if (wake) wake_.notify_all();
    while (run_one(*job)) {
    }
    wait_for(*job);
    if (job->error) std::rethrow_exception(job->error);
  }

 private:
  void work() {
    for (;;) {
      JobPtr job = take();
      if (!job) job = wait_for_work();
      if (!job) return;  // closing
      while (run_one(*job)) {
      }
    }
  }

  // Runs the next index of `job`; false when none was left.
  bool run_one(Job& job) {
    const Index k = job.next.fetch_add(1);
    if (k >= job.count) {
      drop(job);
      return false;
    }
    Index ended = 1;
    ++t_task_depth;
    try {
      (*job.task)(k);
    } catch (...) {
      ended += fail(job, k);
    }
    --t_task_depth;
    if (job.finished.fetch_add(ended, std::memory_order_acq_rel) + ended == job.count) {
      std::lock_guard lock(mutex_);
      if (job.owner_asleep) wake_.notify_all();
    }
    return true;
  }

  // Records the failure of index k and stops the job's handing out; returns
  // the indices that will now never start.
  Index fail(Job& job, Index k) {
    {
      std::lock_guard lock(mutex_);
      if (k < job.failed_at) {
        job.failed_at = k;
        job.error = std::current_exception();
      }
    }
    const Index handed = job.next.exchange(job.count);
    return handed < job.count ? job.count - handed : 0;
  }

  // The caller of `job` helps on other jobs until every index has finished.
  void wait_for(Job& job) {
    while (!job.done()) {
      if (const JobPtr other = take()) {
        run_one(*other);  // one at a time, so that the caller returns soon
        continue;
      }
      idle_.fetch_add(1, std::memory_order_relaxed);
      if (!spin_until([&] { return job.done() || listed_.load(std::memory_order_relaxed) > 0; })) {
        std::unique_lock lock(mutex_);
        job.owner_asleep = true;
        ++sleepers_;
        wake_.wait(lock, [&] { return job.done() || !jobs_.empty(); });
        --sleepers_;
        job.owner_asleep = false;
      }
      idle_.fetch_sub(1, std::memory_order_relaxed);
    }
  }

  // A worker with nothing to do: spins, then sleeps until a job is listed.
  // Returns null when the pool closes.
  JobPtr wait_for_work() {
    idle_.fetch_add(1, std::memory_order_relaxed);
    spin_until([&] { return closing_.load() || listed_.load(std::memory_order_relaxed) > 0; });
    JobPtr job;
    std::unique_lock lock(mutex_);
    while (!closing_.load() && !(job = take_locked())) {
      ++sleepers_;
      wake_.wait(lock);
      --sleepers_;
    }
    idle_.fetch_sub(1, std::memory_order_relaxed);
    return job;
  }

  JobPtr take() {
    std::lock_guard lock(mutex_);
    return take_locked();
  }

  // The newest job with indices left; jobs passed over have none and leave.
  JobPtr take_locked() {
    JobPtr found;
    while (!jobs_.empty()) {
      if (jobs_.back()->has_work()) {
        found = jobs_.back();
        break;
      }
      jobs_.pop_back();
    }
    listed_.store(jobs_.size(), std::memory_order_relaxed);
    return found;
  }

  // Takes a job with no indices left off the stack.
  void drop(const Job& job) {
    std::lock_guard lock(mutex_);
    const auto at =
        std::find_if(jobs_.begin(), jobs_.end(), [&](const JobPtr& j) { return j.get() == &job; });
    if (at != jobs_.end()) jobs_.erase(at);
    listed_.store(jobs_.size(), std::memory_order_relaxed);
  }

  std::vector<std::thread> workers_;
  std::mutex mutex_;
  std::condition_variable wake_;        // a job listed or ended, or the pool closing
  std::vector<JobPtr> jobs_;            // mutex: newest last
  int sleepers_ = 0;                    // mutex: threads in wake_.wait
  std::atomic<std::size_t> listed_{0};  // jobs_.size(), for spinning threads
  std::atomic<int> idle_{0};            // threads spinning or sleeping
  std::atomic<bool> closing_{false};
};

Pool& pool() {
  static Pool p;
  return p;
}

// Whether n indices of `cost` steps each are worth sharing. They are listed
// even when every thread is busy: a thread that comes free a moment later
// takes what is left, instead of waiting for the caller to finish alone.
bool worth_sharing(Index n, std::size_t cost) {
  if (n < 2) return false;
  const std::size_t steps = static_cast<std::size_t>(n) * std::max<std::size_t>(cost, 1);
  return steps >= kMinSharedSteps && pool().threads() >= 2;
}

}  // namespace

void fork_join(Index count, const Task& task) {
  if (count < 2 || pool().threads() < 2) {
    for (Index k = 0; k < count; ++k) task(k);
    return;
  }
  pool().run(count, task);
}

void parallel_for(Index first, Index last, std::size_t cost, const Task& body) {
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

bool would_share(Index n, std::size_t cost) {
  return worth_sharing(n, cost) && (t_task_depth == 0 || pool().someone_idle());
}

int parallel_threads() {
  return pool().threads();
}

}  // namespace vardel
