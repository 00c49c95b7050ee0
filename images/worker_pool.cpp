#include "images/worker_pool.h"

#include <algorithm>

namespace kiekbord {

WorkerPool::WorkerPool(int threads, std::int64_t memory_budget) : budget_(memory_budget) {
  for (int i = 0; i < threads; ++i) threads_.emplace_back([this] { Work(); });
}

WorkerPool::~WorkerPool() {
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
    queue_.clear();
    aside_.clear();
  }
  wake_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

int WorkerPool::Cores() {
  const unsigned cores = std::thread::hardware_concurrency();
  return cores == 0 ? 1 : static_cast<int>(cores);
}

void WorkerPool::Submit(Task task) {
  if (threads_.empty()) {
    task.prepare();
    task.run();
    return;
  }
  {
    std::lock_guard lock(mutex_);
    queue_.push_back(std::move(task));
  }
  wake_.notify_one();
}

void WorkerPool::RunReserved(std::unique_lock<std::mutex>& lock, std::int64_t memory,
                             const std::function<void()>& run) {
  reserved_ += memory;
  lock.unlock();
  run();
  lock.lock();
  reserved_ -= memory;
  // Memory came free: a task set aside may fit now.
  wake_.notify_all();
}

void WorkerPool::SetAside(Aside aside) {
  const auto later = std::find_if(aside_.begin(), aside_.end(),
                                  [&](const Aside& other) { return other.order > aside.order; });
  aside_.insert(later, std::move(aside));
}

void WorkerPool::Work() {
  std::unique_lock lock(mutex_);
  while (!stopping_) {
    // The oldest task set aside that fits now comes first.
    const auto fitting = std::find_if(aside_.begin(), aside_.end(), [this](const Aside& a) { return Fits(a.memory); });
    if (fitting != aside_.end()) {
      Aside aside = std::move(*fitting);
      aside_.erase(fitting);
      RunReserved(lock, aside.memory, aside.run);
      continue;
    }
    if (!queue_.empty()) {
      Task task = std::move(queue_.front());
      queue_.pop_front();
      const std::uint64_t order = next_order_++;
      lock.unlock();
      const std::int64_t memory = task.prepare();
      lock.lock();
      if (stopping_) break;
      if (Fits(memory)) {
        RunReserved(lock, memory, task.run);
      } else {
        SetAside(Aside{order, memory, std::move(task.run)});
      }
      continue;
    }
    wake_.wait(lock);
  }
}

}  // namespace kiekbord
