#include "engine/jobs/WorkerPool.h"

#include <chrono>
#include <utility>

namespace exchange::jobs
{

WorkerPool::WorkerPool(ThreadGroup& threads, int workers, const std::shared_ptr<const CancelFlag>& cancel)
    : m_shared(std::make_shared<Shared>(cancel))
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
