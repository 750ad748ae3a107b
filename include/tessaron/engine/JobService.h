#ifndef TESSARON_ENGINE_JOBSERVICE_H
#define TESSARON_ENGINE_JOBSERVICE_H

// Stability: experimental.

#include <tessaron/util/Export.h>
#include <tessaron/util/Parameterized.h>

#include <boost/shared_ptr.hpp>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The job service: starts toolpath jobs in this process and answers for them by job id. Every function may be called
/// from any thread at any time and returns at once, waitForJob and the reading of an archive aside.
///
/// Job ids are positive and never used twice in a process. A job that the engine splits over worker threads has worker
/// jobs with ids of their own: they can be asked for their state, percentage and stages, and stop together with
/// the job they belong to.
///
/// Lifetime: a job is known until releaseJob, which cancels it when it still runs. Of the jobs that have ended and were
/// not released, the 32 that ended last are kept; older ones are forgotten, as if released. Worker jobs are forgotten
/// together with their job. When the library is unloaded or the process exits, running jobs are cancelled and waited
/// for.
namespace exchange
{

struct Tessaron2dInput;
struct ToolpathRecords;

enum class JobState
{
    unknown,   ///< no such job: never started, or released
    running,   ///< on its way, or cancelled and not yet stopped
    finished,  ///< ended with a toolpath; the status code is 0 or a warning
    failed,    ///< ended without a toolpath; the status code says why
    cancelled, ///< ended by a cancel; the status code is status::cancelled
};

/// Codes of findings beside the warnings of <tessaron/exchange/StatusTable.h>; the texts come with the findings.
namespace finding
{
constexpr int notUsed = -2003;       ///< something is set and does not change the toolpath
constexpr int unknownKey = -2004;    ///< a parameter that no list knows
constexpr int notReached = -2005;    ///< the tool does not fit into a part of the material
constexpr int leadLeftOut = -2006;   ///< there is no room for a lead
constexpr int preDrillPlace = -2007; ///< no fault: a place proposed for drilling
} // namespace finding

/// Something that the input asks for and the job does not do, or that the user should look at in the toolpath. Shown
/// beside the toolpath; it is no failure.
struct JobFinding
{
    /// A warning: -2000 and below.
    int code = 0;
    /// The name of the parameter it is about, such as "Holder Clearance"; empty when it is about none.
    std::string field;
    /// In words for the user.
    std::string text;
    /// Whether it is about a place, and the place in the host's unit.
    bool hasPlace = false;
    double x = 0;
    double y = 0;
};

/// What starting a job came to.
struct JobStart
{
    /// The id of the new job; 0 when none was started.
    int jobId = 0;
    /// status::ok, or why no job was started.
    int status = 0;
    /// Empty, or what is wrong, in words for the user; names the file.
    std::string text;
};

/// A state of one job, all values of the same moment.
struct JobInfo
{
    JobState state = JobState::unknown;
    /// status::unknownJob for an unknown id; 0 while the job runs; afterwards its status code, one of
    /// <tessaron/exchange/StatusTable.h>.
    int status = 0;
    /// 0 to 100, never falling while the job runs; 100 when it has finished.
    double percent = 0.0;
    /// The running stages, as in ProgressData::stages; empty once the job has ended.
    util::Parameterized stages;
    /// The ids of the worker jobs, in worker order; empty before they start.
    std::vector<int> workerIds;
    /// What is wrong, in words for the user, for a job that failed: the text of the status code or a more exact one. It
    /// starts with the file name when the job was started from a file.
    std::string text;
    /// The name of the parameter at fault, such as "Tool Diameter"; empty when no parameter is.
    std::string field;
    /// Of a finished job: what was set and not used, and what was left out. Empty for any other.
    std::vector<JobFinding> findings;
};

/// A finding of checkJobInput.
struct JobInputProblem
{
    /// status::ok when there is nothing to find fault with.
    int status = 0;
    /// The name of the parameter at fault, such as "Tool Diameter"; empty when no parameter is.
    std::string field;
    /// What is wrong, in words for the user.
    std::string text;
    /// With status::ok: what is set and will not be used.
    std::vector<JobFinding> findings;
};

/// Checks everything about an input that can be checked without computing: that there are boundaries and that every
/// parameter the job reads is there, of the right kind and in range. A job does this first and fails with the same
/// finding. docs/engine-jobs.md lists the parameters.
TESSARON_ENGINES_API JobInputProblem checkJobInput(const Tessaron2dInput& input);

/// Starts a 2-D pocketing job. The engine copies the record and shares its curves: the caller may let go of the record
/// and must not change the curves while the job runs.
/// \returns the job; status::internalError when the system refuses another thread.
TESSARON_ENGINES_API JobStart startJob(const Tessaron2dInput& input);

/// Reads a Tessaron2dInput archive, XML or binary, and starts the job that startJob starts. The whole file is read
/// before the call returns.
/// \returns the job; status::internalError with a text that names the file and what is wrong with it when it cannot be
///     read.
TESSARON_ENGINES_API JobStart startJobFromFile(const std::string& path);

/// As startJobFromFile, for an archive in memory. `name` stands for the file name in texts.
TESSARON_ENGINES_API JobStart startJobFromArchive(std::string_view archive, const std::string& name);

/// The state of a job or worker job.
TESSARON_ENGINES_API JobInfo jobInfo(int jobId);

/// Waits until a job has ended.
/// \param jobId a job or worker job
/// \param milliseconds how long to wait; 0 only looks, a negative value waits without limit
/// \returns the state at the end of the wait: JobState::running after a time-out, JobState::unknown for an unknown id
TESSARON_ENGINES_API JobState waitForJob(int jobId, int milliseconds);

/// Has a function called, once, when a job has ended: on a thread of the engine, or at once on this one when the job
/// has ended already. Also a job that is released, or that ends because the process does, ends. The function must not
/// throw and should be short: the job's thread waits for it.
/// \returns status::ok, or status::unknownJob; then the function is not called
TESSARON_ENGINES_API int notifyJobEnd(int jobId, std::function<void()> call);

/// The toolpath of a finished job, empty pointer for any other job. It is never changed and outlives the job as long as
/// the pointer is held.
TESSARON_ENGINES_API boost::shared_ptr<const ToolpathRecords> jobToolpath(int jobId);

/// Asks a job, or the job that a worker job belongs to, to stop and returns at once. The job ends within 50 ms. A
/// single polygon operation that is under way then cannot be broken off: on a very large part its thread may compute on
/// to the end of that operation, after the job has ended, and throws the result away. Does nothing to a job that has
/// ended.
/// \returns status::ok, or status::unknownJob
TESSARON_ENGINES_API int cancelJob(int jobId);

/// Forgets a job, after cancelling it when it still runs. Its id is unknown from then on.
/// \returns status::ok, or status::unknownJob; also for a worker id
TESSARON_ENGINES_API int releaseJob(int jobId);

} // namespace exchange

#endif
