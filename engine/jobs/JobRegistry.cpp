#include "engine/jobs/JobRegistry.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace exchange::jobs
{

namespace
{

/// Stops the jobs before the library goes away.
struct ShutDownAtExit
{
    ShutDownAtExit() = default;
    ShutDownAtExit(const ShutDownAtExit&) = delete;
    ShutDownAtExit& operator=(const ShutDownAtExit&) = delete;
    ~ShutDownAtExit() { JobRegistry::instance().shutDown(); }
};

const ShutDownAtExit shutDownAtExit;

} // namespace

JobRegistry& JobRegistry::instance()
{
    // Never destroyed: a host may ask for jobs in its own clean-up, whatever the order.
    static JobRegistry* const registry = new JobRegistry;
    return *registry;
}

std::shared_ptr<Job> JobRegistry::add(const std::string& source)
{
    const std::lock_guard lock(m_mutex);
    if (m_lastId == std::numeric_limits<int>::max())
        throw std::runtime_error("no job ids are left");
    auto job = std::make_shared<Job>(m_lastId + 1, source);
    m_refs[job->id()] = {job, -1};
    m_lastId = job->id();
    return job;
}

void JobRegistry::addWorkers(Job& job, int count)
{
    const std::lock_guard lock(m_mutex);
    if (count > std::numeric_limits<int>::max() - m_lastId)
        throw std::runtime_error("no job ids are left");
    const auto it = m_refs.find(job.id());
    std::vector<int> ids;
    for (int worker = 0; worker < count; ++worker)
    {
        ids.push_back(++m_lastId);
        // A job that was released meanwhile winds down unseen.
        if (it != m_refs.end())
            m_refs[ids.back()] = {it->second.job, worker};
    }
    job.addWorkers(ids);
}

JobRef JobRegistry::find(int id) const
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_refs.find(id);
    return it == m_refs.end() ? JobRef() : it->second;
}

std::shared_ptr<Job> JobRegistry::remove(int id)
{
    const std::lock_guard lock(m_mutex);
    return removeLocked(id);
}

std::shared_ptr<Job> JobRegistry::removeLocked(int id)
{
    const auto it = m_refs.find(id);
    if (it == m_refs.end() || it->second.worker >= 0)
        return nullptr;
    std::shared_ptr<Job> job = it->second.job;
    m_refs.erase(it);
    for (const int worker : job->workerIds())
        m_refs.erase(worker);
    std::erase(m_ended, id);
    return job;
}

void JobRegistry::noteEnd(const Job& job)
{
    // Destroyed outside the lock: freeing a large toolpath takes time.
    std::shared_ptr<Job> forgotten;
    const std::lock_guard lock(m_mutex);
    if (m_refs.count(job.id()) == 0)
        return;
    m_ended.push_back(job.id());
    if (m_ended.size() > keptEndedJobs)
        forgotten = removeLocked(m_ended.front());
}

void JobRegistry::shutDown()
{
    std::vector<std::shared_ptr<Job>> jobs;
    {
        const std::lock_guard lock(m_mutex);
        for (const auto& [id, ref] : m_refs)
            if (ref.worker < 0)
                jobs.push_back(ref.job);
    }
    for (const auto& job : jobs)
        job->requestCancel();
    m_threads.joinAll();
}

} // namespace exchange::jobs
