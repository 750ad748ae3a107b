#include "engine/jobs/WorkerPool.h"
#include "tests/engine/RunningJob.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <system_error>

using namespace exchange::jobs;

namespace
{

class WorkerPools : public testing::Test
{
protected:
    ~WorkerPools() override { m_threads.joinAll(); }

    ThreadGroup m_threads;
    std::shared_ptr<CancelFlag> m_cancel = std::make_shared<CancelFlag>();
};

} // namespace

TEST_F(WorkerPools, RunsAllTasksAndThoseThatTasksSubmit)
{
    std::atomic<int> count{0};
    {
        WorkerPool pool(m_threads, 3, m_cancel);
        for (int i = 0; i < 50; ++i)
            pool.submit(
                [&](int worker)
                {
                    EXPECT_GE(worker, 0);
                    EXPECT_LT(worker, 3);
                    ++count;
                    pool.submit([&](int) { ++count; });
                });
        pool.wait();
        EXPECT_EQ(count, 100);
        pool.wait();
    }
}

TEST_F(WorkerPools, FirstFailureEndsTheWait)
{
    WorkerPool pool(m_threads, 1, m_cancel);
    std::atomic<int> later{0};
    pool.submit([](int) { throw std::runtime_error("broken"); });
    for (int i = 0; i < 10; ++i)
        pool.submit([&](int) { ++later; });
    try
    {
        pool.wait();
        ADD_FAILURE() << "no exception";
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ(std::string(error.what()), "broken");
    }
    EXPECT_EQ(later, 0);
}

TEST_F(WorkerPools, ForEachMakesAllCallsEvenFromTasksThatKeepAllWorkersBusy)
{
    WorkerPool pool(m_threads, 2, m_cancel);
    std::atomic<int> sum{0};
    for (int task = 0; task < 8; ++task)
        pool.submit([&](int) { pool.forEach(100, [&](std::size_t number) { sum += static_cast<int>(number); }); });
    pool.wait();
    EXPECT_EQ(sum, 8 * 4950);
    pool.forEach(0, [](std::size_t) { ADD_FAILURE(); });

    std::atomic<int> begun{0};
    const auto failing = [&begun](std::size_t)
    {
        ++begun;
        throw std::runtime_error("broken");
    };
    pool.submit([&](int) { pool.forEach(1000, failing); });
    EXPECT_THROW(pool.wait(), std::runtime_error);
    EXPECT_LE(begun, 2);
}

TEST_F(WorkerPools, CancelDoesNotWaitForATaskThatDoesNotEnd)
{
    std::atomic<bool> started{false};
    const auto mayEnd = std::make_shared<std::atomic<bool>>(false);
    std::atomic<int> later{0};
    {
        WorkerPool pool(m_threads, 1, m_cancel);
        pool.submit(
            [&started, mayEnd](int)
            {
                started = true;
                while (!*mayEnd)
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
            });
        pool.submit([&](int) { ++later; });
        ASSERT_TRUE(testing_support::becomesTrue([&] { return started.load(); }));
        m_cancel->set();
        pool.wake();
        EXPECT_THROW(pool.wait(), Cancelled);
        EXPECT_FALSE(*mayEnd);
    }
    *mayEnd = true;
    m_threads.joinAll();
    EXPECT_EQ(later, 0);
}

TEST_F(WorkerPools, TasksMayOwnThePool)
{
    // The last owner of the pool is a task on one of its workers.
    auto pool = std::make_shared<WorkerPool>(m_threads, 2, m_cancel);
    std::atomic<bool> ran{false};
    pool->submit(
        [owner = pool, &ran](int)
        {
            while (owner.use_count() > 1)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            ran = true;
        });
    pool.reset();
    m_threads.joinAll();
    EXPECT_TRUE(ran);
}

TEST(ThreadGroup, RefusesThreadsAfterItsEnd)
{
    ThreadGroup threads;
    std::atomic<int> count{0};
    for (int i = 0; i < 20; ++i)
        threads.run([&] { ++count; });
    threads.joinAll();
    EXPECT_EQ(count, 20);
    EXPECT_THROW(threads.run([] {}), std::system_error);
}
