#include "engine/jobs/WorkerPool.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace exchange::jobs
{

WorkerPool::WorkerPool(ThreadGroup& threads, int workers, const std::shared_ptr<const CancelFlag>& cancel)
    : m_shared(std::make_shared<Shared>(cancel)), m_workers(workers)
{
    try
    {
        for (int worker = 0; worker < workers; ++worker)
            threads.run([shared = m_shared, worker] { shared->work(worker); });
    }
    catch (...)
    {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->stopping = true;
        m_shared->taskReady.notify_all();
        throw;
    }
}

WorkerPool::~WorkerPool()
{
    std::deque<Task> dropped;
    const std::lock_guard lock(m_shared->mutex);
    m_shared->stopping = true;
    dropped.swap(m_shared->tasks);
    m_shared->taskReady.notify_all();
}

void WorkerPool::submit(Task task)
{
    const std::lock_guard lock(m_shared->mutex);
    if (m_shared->failure || m_shared->stopping)
        return;
    m_shared->tasks.push_back(std::move(task));
    m_shared->taskReady.notify_one();
}

void WorkerPool::wait()
{
    Shared& shared = *m_shared;
    // Tasks are destroyed without the lock: they may own the pool.
    std::deque<Task> dropped;
    std::unique_lock lock(shared.mutex);
    const auto idle = [&shared] { return shared.running == 0 && (shared.tasks.empty() || shared.failure); };
    shared.progressed.wait(lock, [&] { return idle() || shared.cancel->isSet(); });
    if (shared.cancel->isSet())
    {
        shared.stopping = true;
        dropped.swap(shared.tasks);
        shared.progressed.wait_for(lock, std::chrono::milliseconds(graceMilliseconds), idle);
        throw Cancelled();
    }
    if (shared.failure)
        std::rethrow_exception(shared.failure);
}

struct WorkerPool::Calls
{
    Calls(const std::function<void(std::size_t)>* function, std::size_t number) : call(function), count(number) {}

    const std::function<void(std::size_t)>* const call;
    const std::size_t count;
    std::mutex mutex;
    std::condition_variable ended;
    std::size_t next = 0;
    int running = 0;
    std::exception_ptr failure;

    /// Makes calls until none is left to begin. Whoever comes later than that does not touch the function.
    void work()
    {
        std::unique_lock lock(mutex);
        while (next < count)
        {
            const std::size_t number = next++;
            ++running;
            lock.unlock();
            std::exception_ptr thrown;
            try
            {
                (*call)(number);
            }
            catch (...)
            {
                thrown = std::current_exception();
            }
            lock.lock();
            --running;
            if (thrown)
            {
                next = count;
                if (!failure)
                    failure = thrown;
            }
        }
        if (running == 0)
            ended.notify_all();
    }
};

void WorkerPool::forEach(std::size_t count, const std::function<void(std::size_t)>& call)
{
    const auto calls = std::make_shared<Calls>(&call, count);
    for (std::size_t helper = 1; helper < std::min(count, static_cast<std::size_t>(m_workers)); ++helper)
        submit([calls](int) { calls->work(); });
    calls->work();
    std::unique_lock lock(calls->mutex);
    calls->ended.wait(lock, [&calls] { return calls->running == 0; });
    if (calls->failure)
        std::rethrow_exception(calls->failure);
}

void WorkerPool::wake()
{
    const std::lock_guard lock(m_shared->mutex);
    m_shared->progressed.notify_all();
}

void WorkerPool::Shared::work(int worker)
{
    std::unique_lock lock(mutex);
    for (;;)
    {
        taskReady.wait(lock, [this] { return stopping || !tasks.empty(); });
        if (stopping)
            return;
        Task task = std::move(tasks.front());
        tasks.pop_front();
        ++running;
        lock.unlock();
        std::exception_ptr thrown;
        try
        {
            cancel->check();
            task(worker);
        }
        catch (...)
        {
            thrown = std::current_exception();
        }
        task = nullptr;
        std::deque<Task> dropped;
        lock.lock();
        --running;
        if (thrown && !failure)
        {
            failure = thrown;
            dropped.swap(tasks);
        }
        progressed.notify_all();
        lock.unlock();
        dropped.clear();
        lock.lock();
    }
}

} // namespace exchange::jobs
