#include "images/worker_pool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <mutex>
#include <vector>

namespace kiekbord {
namespace {

using namespace std::chrono_literals;

// Records the order in which tasks start and the most memory in use at
// once.
struct Boekhouding {
  std::mutex mutex;
  std::vector<char> volgorde;
  std::int64_t in_gebruik = 0;
  std::int64_t hoogste = 0;

  WorkerPool::Task Taak(char naam, std::int64_t geheugen, std::function<void()> werk = [] {},
                        std::int64_t kosten = 0) {
    return {[geheugen] { return geheugen; },
            [this, naam, geheugen, werk] {
              {
                std::lock_guard lock(mutex);
                volgorde.push_back(naam);
                in_gebruik += geheugen;
                hoogste = std::max(hoogste, in_gebruik);
              }
              werk();
              std::lock_guard lock(mutex);
              in_gebruik -= geheugen;
            },
            kosten};
  }
};

// Counts finished tasks down; Gedaan() waits (at most ten seconds) for all.
struct Aftelling {
  explicit Aftelling(int aantal) : te_gaan(aantal) {}
  void Klaar() {
    if (--te_gaan == 0) alles.set_value();
  }
  bool Gedaan() { return alles.get_future().wait_for(10s) == std::future_status::ready; }
  std::atomic<int> te_gaan;
  std::promise<void> alles;
};

TEST(WorkerPool, TaskThatDoesNotFitStepsAsideForOneThatDoes) {
  Boekhouding boek;
  std::promise<void> c_klaar;
  std::shared_future<void> c_gedaan = c_klaar.get_future().share();
  Aftelling aftelling(3);
  const auto klaar = [&] { aftelling.Klaar(); };
  {
    WorkerPool pool(2, 100);
    // A holds 80 until C has run; B (80) cannot fit beside A, C (10) can.
    pool.Submit(boek.Taak('A', 80, [&] {
      EXPECT_EQ(c_gedaan.wait_for(10s), std::future_status::ready) << "C had to wait behind B";
      klaar();
    }));
    pool.Submit(boek.Taak('B', 80, klaar));
    pool.Submit(boek.Taak('C', 10, [&] {
      c_klaar.set_value();
      klaar();
    }));
    ASSERT_TRUE(aftelling.Gedaan());
  }
  EXPECT_EQ(boek.volgorde, (std::vector<char>{'A', 'C', 'B'}));
  EXPECT_EQ(boek.hoogste, 90);
}

TEST(WorkerPool, TaskLargerThanTheBudgetRunsAlone) {
  Boekhouding boek;
  Aftelling aftelling(20);
  const auto klaar = [&] { aftelling.Klaar(); };
  {
    WorkerPool pool(4, 100);
    for (int i = 0; i < 20; ++i) pool.Submit(boek.Taak(static_cast<char>('a' + i), i % 5 == 0 ? 250 : 30, klaar));
    ASSERT_TRUE(aftelling.Gedaan());
  }
  EXPECT_EQ(boek.volgorde.size(), 20u);
  EXPECT_LE(boek.hoogste, 250) << "a task over the budget had company";
  EXPECT_GE(boek.hoogste, 90) << "small tasks ran side by side";
}

TEST(WorkerPool, CostliestTaskGoesFirst) {
  Boekhouding boek;
  std::promise<void> los;
  std::shared_future<void> losgelaten = los.get_future().share();
  std::promise<void> loopt;
  Aftelling aftelling(5);
  const auto klaar = [&] { aftelling.Klaar(); };
  {
    WorkerPool pool(1, 100);
    // The one worker is held in 'a' while the others queue up.
    pool.Submit(boek.Taak('a', 1, [&] {
      loopt.set_value();
      EXPECT_EQ(losgelaten.wait_for(10s), std::future_status::ready);
      klaar();
    }));
    loopt.get_future().wait();
    pool.Submit(boek.Taak('b', 1, klaar, 10));
    pool.Submit(boek.Taak('c', 1, klaar, 30));
    pool.Submit(boek.Taak('d', 1, klaar, 10));
    pool.Submit(boek.Taak('e', 1, klaar, 20));
    los.set_value();
    ASSERT_TRUE(aftelling.Gedaan());
  }
  EXPECT_EQ(boek.volgorde, (std::vector<char>{'a', 'c', 'e', 'b', 'd'}));
}

TEST(WorkerPool, WithoutThreadsEveryTaskRunsAtOnce) {
  Boekhouding boek;
  WorkerPool pool(0, 1);
  pool.Submit(boek.Taak('x', 5));
  pool.Submit(boek.Taak('y', 5));
  EXPECT_EQ(boek.volgorde, (std::vector<char>{'x', 'y'}));
}

// Sets its promise when the last task holding it is destroyed.
struct Verwijderd {
  std::promise<void> promise;
  ~Verwijderd() { promise.set_value(); }
};

TEST(WorkerPool, TasksNotStartedAreDroppedAtTheEnd) {
  Boekhouding boek;
  auto verwijderd = std::make_shared<Verwijderd>();
  std::shared_future<void> wachtrij_leeg = verwijderd->promise.get_future().share();
  std::promise<void> loopt;
  {
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

}  // namespace
}  // namespace kiekbord
