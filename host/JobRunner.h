#ifndef HOST_JOBRUNNER_H
#define HOST_JOBRUNNER_H

#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <boost/shared_ptr.hpp>

#include <functional>
#include <string>
#include <vector>

namespace host
{

/// What became of a job.
struct JobOutcome
{
    exchange::JobState state = exchange::JobState::unknown;
    /// What to tell the user; empty for a job that finished without a warning.
    std::string text;
    /// Of a finished job.
    boost::shared_ptr<const exchange::ToolpathRecords> toolpath;
    /// What of the input a finished job has not used, and what it has left out.
    std::vector<exchange::JobFinding> findings;
    /// From the start of the job to its end.
    double seconds = 0;
    /// What the call that showed the progress returned.
    int progressResult = 0;
};

/// Runs one job at a time in the engine while the module shows its progress.
class JobRunner
{
public:
    /// Shows the progress of a job and returns when that is over; the module's entry points do so.
    using ShowProgress = std::function<int(int jobId)>;

    /// Starts a job, shows its progress and waits for its end. Not to be called while one runs.
    JobOutcome run(const exchange::Tessaron2dInput& input, const ShowProgress& showProgress);

    bool running() const { return m_jobId != 0; }
    /// The running job; 0 when there is none.
    int jobId() const { return m_jobId; }
    /// Asks the running job to stop, if there is one. run returns soon after.
    void cancel();

private:
    int m_jobId = 0;
};

} // namespace host

#endif
