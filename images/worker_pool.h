// Running work on all cores within bounds: a fixed set of worker threads
// that take tasks in the order given, and a memory budget that holds a task
// back while others use the memory it needs.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace kiekbord {

class WorkerPool {
 public:
  // `threads` workers; with 0 every task runs at once on the thread that
  // submits it.
  explicit WorkerPool(int threads);
  // Drops the tasks not yet started and waits for the running ones.
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  // Queues `task`; the future gives its result, or the exception it threw.
  template <typename Task>
  std::future<std::invoke_result_t<Task>> Submit(Task task) {
    using Result = std::invoke_result_t<Task>;
    auto packaged = std::make_shared<std::packaged_task<Result()>>(std::move(task));
    std::future<Result> result = packaged->get_future();
    if (threads_.empty()) {
      (*packaged)();
    } else {
      Queue([packaged] { (*packaged)(); });
    }
    return result;
  }

  // The number of cores, at least 1.
  static int Cores();

 private:
  void Queue(std::function<void()> task);
  void Work();

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<void()>> queue_;
  bool stopping_ = false;
  std::vector<std::thread> threads_;
};

class MemoryBudget {
 public:
  explicit MemoryBudget(std::int64_t bytes) : budget_(bytes) {}
  MemoryBudget(const MemoryBudget&) = delete;
  MemoryBudget& operator=(const MemoryBudget&) = delete;

  // Memory reserved until this object goes.
  class Reservation {
   public:
    Reservation(MemoryBudget& budget, std::int64_t bytes) : budget_(&budget), bytes_(bytes) {}
    Reservation(Reservation&& other) noexcept
        : budget_(std::exchange(other.budget_, nullptr)), bytes_(other.bytes_) {}
    Reservation& operator=(Reservation&&) = delete;
    ~Reservation() {
      if (budget_ != nullptr) budget_->Release(bytes_);
    }

   private:
    MemoryBudget* budget_;
    std::int64_t bytes_;
  };

  // Waits until `bytes` fit beside what is reserved already. A request
  // larger than the whole budget waits until nothing else is reserved, so
  // it is never refused.
  Reservation Reserve(std::int64_t bytes);

 private:
  void Release(std::int64_t bytes);

  std::mutex mutex_;
  std::condition_variable freed_;
  const std::int64_t budget_;
  std::int64_t reserved_ = 0;
};

}  // namespace kiekbord
