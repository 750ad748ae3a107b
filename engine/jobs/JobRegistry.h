#ifndef ENGINE_JOBS_JOBREGISTRY_H
#define ENGINE_JOBS_JOBREGISTRY_H

#include "engine/jobs/Job.h"
#include "engine/jobs/ThreadGroup.h"

#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace exchange::jobs
{

/// Which job an id names: a job as a whole, or one of its workers.
struct JobRef
{
    std::shared_ptr<Job> job;
    /// The worker, counted from 0; -1 for the job as a whole.
    int worker = -1;
};

/// All jobs that the process knows, by id.
class JobRegistry
{
public:
    /// The one registry. It stays usable to the very end of the process: after shutDown it starts no more jobs.
    static JobRegistry& instance();

    /// How many jobs are kept after their end when nobody releases them.
    static constexpr std::size_t keptEndedJobs = 32;

    std::shared_ptr<Job> add(const std::string& source);
    /// Gives worker jobs to a job.
    void addWorkers(Job& job, int count);
    /// The job of an id; without a job when the id is unknown.
    JobRef find(int id) const;
    /// Forgets a job; returns it, or nothing when the id is not that of a job.
    std::shared_ptr<Job> remove(int id);
    /// Notes that a job is about to end, and forgets the one that ended longest ago when too many are kept. Called
    /// before the end is told, so that a caller who has seen jobs end knows which ones are kept.
    void noteEnd(const Job& job);

    ThreadGroup& threads() { return m_threads; }
    /// Cancels all jobs and waits for their threads.
    void shutDown();

private:
    JobRegistry() = default;
    std::shared_ptr<Job> removeLocked(int id);

    mutable std::mutex m_mutex;
    int m_lastId = 0;
    std::map<int, JobRef> m_refs;
    /// Ended jobs still known, in the order of their ends.
    std::deque<int> m_ended;
    ThreadGroup m_threads;
};

} // namespace exchange::jobs

#endif
