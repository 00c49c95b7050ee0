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
    const std::int64_t cost = task.cost;
    queue_.push_back(Queued{next_order_++, cost, std::move(task)});
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

namespace {

// The costliest of `items` for which `eligible` holds, the earliest given
// among equals; end() when none.
template <typename Items, typename Eligible>
auto Costliest(Items& items, Eligible eligible) {
  auto best = items.end();
  for (auto it = items.begin(); it != items.end(); ++it) {
    if (!eligible(*it)) continue;
    if (best == items.end() || it->cost > best->cost || (it->cost == best->cost && it->order < best->order)) {
      best = it;
    }
  }
  return best;
}

}  // namespace

void WorkerPool::Work() {
  std::unique_lock lock(mutex_);
  while (!stopping_) {
    // A task set aside that fits now comes first.
    const auto fitting = Costliest(aside_, [this](const Aside& a) { return Fits(a.memory); });
    if (fitting != aside_.end()) {
      Aside aside = std::move(*fitting);
      aside_.erase(fitting);
      RunReserved(lock, aside.memory, aside.run);
      continue;
    }
    const auto next = Costliest(queue_, [](const Queued&) { return true; });
    if (next != queue_.end()) {
      Queued queued = std::move(*next);
      queue_.erase(next);
      lock.unlock();
      const std::int64_t memory = queued.task.prepare();
      lock.lock();
      if (stopping_) break;
      if (Fits(memory)) {
        RunReserved(lock, memory, queued.task.run);
      } else {
        aside_.push_back(Aside{queued.order, queued.cost, memory, std::move(queued.task.run)});
      }
      continue;
    }
    wake_.wait(lock);
  }
}

}  // namespace kiekbord
