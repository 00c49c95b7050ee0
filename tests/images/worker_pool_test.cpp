#include "images/worker_pool.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <vector>

namespace kiekbord {
namespace {

using namespace std::chrono_literals;

// Records the order in which tasks start, the most memory in use at once and
// how many tasks have ended.
struct Boekhouding {
  std::mutex mutex;
  std::condition_variable geteld;
  std::vector<char> volgorde;
  std::int64_t in_gebruik = 0, hoogste = 0;
  std::size_t klaar = 0;

  WorkerPool::Task Taak(char naam, std::int64_t geheugen, std::function<void()> werk = [] {}, std::int64_t kosten = 0) {
    return {[geheugen] { return geheugen; },
            [=, this] {
              Boek(naam, geheugen);
              werk();
              Boek(0, -geheugen);
            },
            kosten};
  }
  // A task starts with its name, and ends without one.
  void Boek(char naam, std::int64_t erbij) {
    const std::lock_guard lock(mutex);
    naam != 0 ? volgorde.push_back(naam) : static_cast<void>(++klaar);
    hoogste = std::max(hoogste, in_gebruik += erbij);
    geteld.notify_all();
  }
  void WachtOp(std::size_t aantal) {
    std::unique_lock lock(mutex);
    geteld.wait(lock, [&] { return klaar == aantal; });
  }
};

TEST(WorkerPool, TaskThatDoesNotFitStepsAsideForOneThatDoes) {
  Boekhouding boek;
  std::promise<void> a_loopt, c_klaar;
  const std::shared_future<void> c_gedaan = c_klaar.get_future().share();
  WorkerPool pool(2, 100);
  // A holds 80 until C has run; B (80), given only once A runs, cannot fit
  // beside it, C (10) can.
  pool.Submit(boek.Taak('A', 80, [&] {
    a_loopt.set_value();
    EXPECT_EQ(c_gedaan.wait_for(10s), std::future_status::ready) << "C had to wait behind B";
  }));
  a_loopt.get_future().wait();
  pool.Submit(boek.Taak('B', 80));
  pool.Submit(boek.Taak('C', 10, [&] { c_klaar.set_value(); }));
  boek.WachtOp(3);
  EXPECT_EQ(boek.volgorde, (std::vector<char>{'A', 'C', 'B'}));
  EXPECT_EQ(boek.hoogste, 90);
}

TEST(WorkerPool, TaskLargerThanTheBudgetRunsAlone) {
  Boekhouding boek;
  WorkerPool pool(4, 100);
  for (int i = 0; i < 20; ++i) pool.Submit(boek.Taak('a', i % 5 == 0 ? 250 : 30));
  boek.WachtOp(20);
  EXPECT_LE(boek.hoogste, 250) << "a task over the budget had company";
}

TEST(WorkerPool, CostliestTaskGoesFirst) {
  Boekhouding boek;
  std::promise<void> loopt, los;
  WorkerPool pool(1, 100);
  // The one worker is held in 'a' while the others queue up.
  pool.Submit(boek.Taak('a', 1, [&] {
    loopt.set_value();
    los.get_future().wait();
  }));
  loopt.get_future().wait();
  for (const auto& [naam, kosten] : {std::pair{'b', 10}, {'c', 30}, {'d', 10}, {'e', 20}}) {
    pool.Submit(boek.Taak(naam, 1, [] {}, kosten));
  }
  los.set_value();
  boek.WachtOp(5);
  EXPECT_EQ(boek.volgorde, (std::vector<char>{'a', 'c', 'e', 'b', 'd'}));
}

TEST(WorkerPool, TasksNotStartedAreDroppedAtTheEnd) {
  Boekhouding boek;
  std::promise<void> loopt, leeg;
  const std::shared_future<void> wachtrij_leeg = leeg.get_future().share();
  {
    // Set when the last queued task holding it is gone.
    std::shared_ptr<void> verwijderd(nullptr, [&](void*) { leeg.set_value(); });
    WorkerPool pool(1, 100);
    // The one worker stays in 'a' until the pool has dropped the queue.
    pool.Submit(boek.Taak('a', 1, [&] {
      loopt.set_value();
      EXPECT_EQ(wachtrij_leeg.wait_for(10s), std::future_status::ready);
    }));
    for (int i = 0; i < 5; ++i) pool.Submit(boek.Taak('b', 1, [verwijderd] {}));
    verwijderd.reset();
    loopt.get_future().wait();
  }
  EXPECT_EQ(boek.volgorde, std::vector<char>{'a'});
}

TEST(WorkerPool, WithoutThreadsEveryTaskRunsAtOnce) {
  Boekhouding boek;
  WorkerPool pool(0, 1);
  pool.Submit(boek.Taak('x', 5));
  pool.Submit(boek.Taak('y', 5));
  EXPECT_EQ(boek.volgorde, (std::vector<char>{'x', 'y'}));
}

}  // namespace
}  // namespace kiekbord
