#include "images/worker_pool.h"

namespace kiekbord {

WorkerPool::WorkerPool(int threads) {
  for (int i = 0; i < threads; ++i) threads_.emplace_back([this] { Work(); });
}

WorkerPool::~WorkerPool() {
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
    queue_.clear();
  }
  wake_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

int WorkerPool::Cores() {
  const unsigned cores = std::thread::hardware_concurrency();
  return cores == 0 ? 1 : static_cast<int>(cores);
}

void WorkerPool::Queue(std::function<void()> task) {
  {
    std::lock_guard lock(mutex_);
    queue_.push_back(std::move(task));
  }
  wake_.notify_one();
}

void WorkerPool::Work() {
  for (;;) {
    std::function<void()> task;
    {
      std::unique_lock lock(mutex_);
      wake_.wait(lock, [this] { return stopping_ || !queue_.empty(); });
      if (stopping_) return;
      task = std::move(queue_.front());
      queue_.pop_front();
    }
    task();
  }
}

MemoryBudget::Reservation MemoryBudget::Reserve(std::int64_t bytes) {
  std::unique_lock lock(mutex_);
  freed_.wait(lock, [&] { return reserved_ == 0 || reserved_ + bytes <= budget_; });
  reserved_ += bytes;
  return Reservation(*this, bytes);
}

void MemoryBudget::Release(std::int64_t bytes) {
  {
    std::lock_guard lock(mutex_);
    reserved_ -= bytes;
  }
  freed_.notify_all();
}

}  // namespace kiekbord
