#ifndef ENGINE_JOBS_JOB_H
#define ENGINE_JOBS_JOB_H

#include "engine/jobs/CancelFlag.h"
#include <tessaron/engine/JobService.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace exchange::jobs
{

/// The state of one job: written by the job's threads, read by everybody. Every operation may be called from any
/// thread.
class Job
{
public:
    /// \param source the file that the job's input came from, or empty
    Job(int id, std::string source);

    int id() const { return m_id; }
    const CancelFlag& cancelFlag() const { return m_cancel; }

    /// Asks the job to stop, and tells the hook.
    void requestCancel();
    /// What to call, once, after a cancel request; called at once when the request was made before. Pass an empty
    /// function to take the hook back: it is not being called any more on return.
    void setCancelHook(std::function<void()> hook);

    /// Sets the one running stage of the job and the overall percentage, which is never lowered.
    void setStage(std::string_view stage, double value, double percent);
    /// Adds worker jobs in worker order.
    void addWorkers(const std::vector<int>& ids);
    /// Sets the one running stage of a worker, counted from 0.
    void setWorkerStage(int worker, std::string_view stage, double value);

    /// Ends the job. A job that was asked to stop ends as cancelled in either case; only the first end counts.
    void finish(boost::shared_ptr<const ToolpathRecords> toolpath, int status, std::vector<JobFinding> findings);
    void fail(int code, const std::string& text, const std::string& field);

    /// What to call, once, when the job has ended; called at once when it has. Runs on the thread that ends the job,
    /// which holds no lock.
    void onEnd(std::function<void()> call);

    JobInfo info() const;
    JobInfo workerInfo(int worker) const;
    JobState wait(int milliseconds) const;
    boost::shared_ptr<const ToolpathRecords> toolpath() const;
    std::vector<int> workerIds() const;

private:
    /// Ends the job, unless it has ended before; `change` sets what the end brings and returns the state.
    template <class Change>
    void end(const Change& change);

    const int m_id;
    const std::string m_source;
    CancelFlag m_cancel;

    std::mutex m_hookMutex;
    std::function<void()> m_cancelHook;

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_ended;
    JobInfo m_info;
    std::vector<util::Parameterized> m_workerStages;
    boost::shared_ptr<const ToolpathRecords> m_toolpath;
    std::vector<std::function<void()>> m_endCalls;
};

} // namespace exchange::jobs

#endif
