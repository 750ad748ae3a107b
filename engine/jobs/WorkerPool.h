#ifndef ENGINE_JOBS_WORKERPOOL_H
#define ENGINE_JOBS_WORKERPOOL_H

#include "engine/jobs/CancelFlag.h"
#include "engine/jobs/ThreadGroup.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>

namespace exchange::jobs
{

/// The worker threads of one job. Tasks are started in the order of their submission; a task may submit further ones.
///
/// A task that cannot be broken off may outlive the wait after a cancel. Tasks therefore share the ownership of
/// whatever they touch.
class WorkerPool
{
public:
    /// Receives the number of the worker that runs it, counted from 0.
    using Task = std::function<void(int)>;

    /// Starts the workers.
    /// \throws std::system_error when the system refuses a thread.
    WorkerPool(ThreadGroup& threads, int workers, const std::shared_ptr<const CancelFlag>& cancel);
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;
    /// Drops the tasks not yet started and lets the workers end; does not wait for them.
    ~WorkerPool();

    void submit(Task task);
    /// Waits until every task has ended.
    /// \throws what the first task to fail threw, or Cancelled; the tasks not yet started are dropped then. After a
    ///     cancel the wait ends at the latest when the grace time is over.
    void wait();
    /// Calls a function for each number from 0 to below a count, on this thread and on workers that have nothing else
    /// to do, and waits for all calls. May be called from a task.
    /// \throws what the first call to fail threw; no further ones are begun then
    void forEach(std::size_t count, const std::function<void(std::size_t)>& call);
    /// Has wait() look at the cancel flag.
    void wake();

    /// How long wait() gives running tasks to notice a cancel.
    static constexpr int graceMilliseconds = 25;

private:
    struct Shared
    {
        explicit Shared(std::shared_ptr<const CancelFlag> flag) : cancel(std::move(flag)) {}
        void work(int worker);

        const std::shared_ptr<const CancelFlag> cancel;
        std::mutex mutex;
        std::condition_variable taskReady;
        std::condition_variable progressed;
        std::deque<Task> tasks;
        int running = 0;
        bool stopping = false;
        std::exception_ptr failure;
    };

    /// The calls of one forEach.
    struct Calls;

    std::shared_ptr<Shared> m_shared;
    const int m_workers;
};

} // namespace exchange::jobs

#endif
