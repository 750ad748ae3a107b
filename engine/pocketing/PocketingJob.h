#ifndef ENGINE_POCKETING_POCKETINGJOB_H
#define ENGINE_POCKETING_POCKETINGJOB_H

#include "engine/jobs/Job.h"
#include "engine/jobs/ThreadGroup.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <functional>
#include <memory>
#include <vector>

namespace exchange::pocketing
{

class PocketingWork;

/// What a pocketing job comes to.
struct PocketingResult
{
    boost::shared_ptr<const ToolpathRecords> toolpath;
    std::vector<JobFinding> findings;
};

/// Computes the toolpath that clears a 2-D pocket. docs/engine-jobs.md describes what it does.
class PocketingJob
{
public:
    PocketingJob(std::shared_ptr<jobs::Job> job, std::shared_ptr<const Tessaron2dInput> input);
    PocketingJob(const PocketingJob&) = delete;
    PocketingJob& operator=(const PocketingJob&) = delete;
    ~PocketingJob();

    /// Checks the input and starts the workers.
    /// \param addWorkers is told how many workers there are
    /// \throws jobs::JobError, std::system_error
    void start(jobs::ThreadGroup& threads, const std::function<void(int)>& addWorkers);
    /// Computes the toolpath; after start.
    /// \throws jobs::JobError, jobs::Cancelled and whatever the library throws when memory ends
    PocketingResult compute();

private:
    std::shared_ptr<PocketingWork> m_work;
};

} // namespace exchange::pocketing

#endif
