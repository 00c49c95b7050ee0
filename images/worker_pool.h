// Running work on all cores within a memory budget: a fixed set of worker
// threads that take the costliest task first (so no core is left with a
// long one at the end), where a task whose memory does not fit beside that
// of the running ones steps aside and others that do fit go first.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace kiekbord {

class WorkerPool {
 public:
  struct Task {
    // Gets the task ready (reads its photo, say) and returns the memory its
    // run will take.
    std::function<std::int64_t()> prepare;
    // The costly step; it starts once its memory fits. A task larger than
    // the whole budget runs alone.
    std::function<void()> run;
    // How costly the task is: higher goes first, equal ones in the order
    // given.
    std::int64_t cost = 0;
  };

  // `threads` workers sharing `memory_budget` bytes; with 0 threads every
  // task runs at once on the thread that submits it.
  WorkerPool(int threads, std::int64_t memory_budget);
  // Drops the tasks not yet started and waits for the running ones.
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  void Submit(Task task);

  // The number of cores, at least 1.
  static int Cores();

 private:
  struct Queued {
    std::uint64_t order = 0;
    std::int64_t cost = 0;
    Task task;
  };
  // A prepared task waiting for its memory.
  struct Aside {
    std::uint64_t order = 0;
    std::int64_t cost = 0;
    std::int64_t memory = 0;
    std::function<void()> run;
  };

  bool Fits(std::int64_t memory) const { return reserved_ == 0 || reserved_ + memory <= budget_; }
  void Work();
  // Runs `run` with `memory` reserved; called and returns with the lock held.
  void RunReserved(std::unique_lock<std::mutex>& lock, std::int64_t memory, const std::function<void()>& run);

  const std::int64_t budget_;
  std::mutex mutex_;
  std::condition_variable wake_;
  std::vector<Queued> queue_;
  std::vector<Aside> aside_;
  std::uint64_t next_order_ = 0;
  std::int64_t reserved_ = 0;
  bool stopping_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace kiekbord
