#include <tessaron/engine/JobService.h>

#include "engine/jobs/JobError.h"
#include "engine/jobs/JobRegistry.h"
#include "engine/pocketing/Findings.h"
#include "engine/pocketing/PocketingJob.h"
#include "engine/pocketing/PocketingParameters.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron2dInput.h>

#include <exception>
#include <memory>
#include <new>
#include <utility>

namespace exchange
{

namespace
{

using jobs::Job;
using jobs::JobRegistry;

void failJob(Job& job, int status, const std::string& text, const std::string& field = std::string())
{
    JobRegistry::instance().noteEnd(job);
    job.fail(status, text.empty() ? statusText(status) : text, field);
}

/// Computes a job; runs on a thread of its own.
void drive(const std::shared_ptr<Job>& job, std::shared_ptr<const Tessaron2dInput> input)
{
    JobRegistry& registry = JobRegistry::instance();
    // Declared outside, so that its data are freed after the end of the job has been told.
    pocketing::PocketingJob pocketing(job, std::move(input));
    try
    {
        pocketing.start(registry.threads(), [&](int workers) { registry.addWorkers(*job, workers); });
        pocketing::PocketingResult result = pocketing.compute();
        registry.noteEnd(*job);
        const int code = pocketing::statusOf(result.findings);
        job->finish(std::move(result.toolpath), code, std::move(result.findings));
    }
    catch (const jobs::Cancelled&)
    {
        failJob(*job, status::cancelled, {});
    }
    catch (const jobs::JobError& error)
    {
        failJob(*job, error.status(), error.what(), error.field());
    }
    catch (const std::bad_alloc&)
    {
        failJob(*job, status::internalError, "There is not enough memory for this job.");
    }
    catch (const std::exception& error)
    {
        failJob(*job, status::internalError, statusText(status::internalError) + " (" + error.what() + ")");
    }
}

JobStart start(std::shared_ptr<const Tessaron2dInput> input, const std::string& source)
{
    JobRegistry& registry = JobRegistry::instance();
    std::shared_ptr<Job> job;
    try
    {
        job = registry.add(source);
        registry.threads().run([job, input = std::move(input)]() mutable { drive(job, std::move(input)); });
        return {job->id(), status::ok, {}};
    }
    catch (const std::exception& error)
    {
        if (job)
            registry.remove(job->id());
        return {0, status::internalError, std::string("The job could not be started: ") + error.what()};
    }
}

/// Starts a job from what `read` reads into a record; every exception becomes a text that begins with the name.
template <class Read>
JobStart startFrom(const std::string& name, const Read& read)
{
    auto input = std::make_shared<Tessaron2dInput>();
    try
    {
        read(*input);
    }
    catch (const std::exception& error)
    {
        const std::string what = error.what();
        const bool named = name.empty() || what.find(name) != std::string::npos;
        return {0, status::internalError, named ? what : name + ": " + what};
    }
    return start(std::move(input), name);
}

} // namespace

JobInputProblem checkJobInput(const Tessaron2dInput& input)
{
    try
    {
        return {status::ok, {}, {}, pocketing::findInput(input, pocketing::readParameters(input))};
    }
    catch (const jobs::JobError& error)
    {
        return {error.status(), error.field(), error.what(), {}};
    }
}

JobStart startJob(const Tessaron2dInput& input)
{
    return start(std::make_shared<const Tessaron2dInput>(input), {});
}

JobStart startJobFromFile(const std::string& path)
{
    return startFrom(path, [&path](Tessaron2dInput& input) { readArchiveFile(path, input); });
}

JobStart startJobFromArchive(std::string_view archive, const std::string& name)
{
    return startFrom(name, [archive](Tessaron2dInput& input) { readArchive(archive, input); });
}

JobInfo jobInfo(int jobId)
{
    const jobs::JobRef ref = JobRegistry::instance().find(jobId);
    if (ref.job)
        return ref.worker < 0 ? ref.job->info() : ref.job->workerInfo(ref.worker);
    JobInfo info;
    info.status = status::unknownJob;
    info.text = statusText(status::unknownJob);
    return info;
}

JobState waitForJob(int jobId, int milliseconds)
{
    const jobs::JobRef ref = JobRegistry::instance().find(jobId);
    return ref.job ? ref.job->wait(milliseconds) : JobState::unknown;
}

int notifyJobEnd(int jobId, std::function<void()> call)
{
    const jobs::JobRef ref = JobRegistry::instance().find(jobId);
    if (!ref.job)
        return status::unknownJob;
    ref.job->onEnd(std::move(call));
    return status::ok;
}

boost::shared_ptr<const ToolpathRecords> jobToolpath(int jobId)
{
    const jobs::JobRef ref = JobRegistry::instance().find(jobId);
    return ref.job && ref.worker < 0 ? ref.job->toolpath() : nullptr;
}

int cancelJob(int jobId)
{
    const jobs::JobRef ref = JobRegistry::instance().find(jobId);
    if (!ref.job)
        return status::unknownJob;
    ref.job->requestCancel();
    return status::ok;
}

int releaseJob(int jobId)
{
    const std::shared_ptr<Job> job = JobRegistry::instance().remove(jobId);
    if (!job)
        return status::unknownJob;
    job->requestCancel();
    return status::ok;
}

} // namespace exchange
