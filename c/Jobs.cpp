#include <tessaron/c/Jobs.h>

#include "c/Failure.h"
#include "c/Inputs.h"
#include "c/Toolpaths.h"
#include "util/platform/ReadySignal.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/StatusTable.h>

#include <boost/variant/apply_visitor.hpp>

#include <iterator>
#include <memory>
#include <string>

namespace
{

using c_interface::Failure;
using c_interface::guarded;
using c_interface::indexBelow;
using c_interface::needed;

Failure failureOf(int status)
{
    return {status, exchange::statusText(status)};
}

exchange::JobInfo knownJob(int job)
{
    exchange::JobInfo info = exchange::jobInfo(job);
    if (info.state == exchange::JobState::unknown)
        throw failureOf(exchange::status::unknownJob);
    return info;
}

boost::shared_ptr<const exchange::ToolpathRecords> finishedToolpath(int job)
{
    boost::shared_ptr<const exchange::ToolpathRecords> toolpath = exchange::jobToolpath(job);
    if (!toolpath)
    {
        knownJob(job);
        throw failureOf(TESSARON_NOT_READY);
    }
    return toolpath;
}

/// A value of a stage as a number.
struct StageNumber : boost::static_visitor<double>
{
    double operator()(double value) const { return value; }
    double operator()(const std::string&) const { return 0; }
};

void require(int status)
{
    if (status != exchange::status::ok)
        throw failureOf(status);
}

} // namespace

int tessaronJobStart(const TessaronInput* input, int* job)
{
    return guarded(
        [&]
        {
            needed(job, "job");
            const exchange::JobStart start = exchange::startJob(needed(input, "input")->record());
            if (start.jobId == 0)
                throw Failure(start.status, start.text);
            *job = start.jobId;
        });
}

int tessaronJobQuery(int job, TessaronJobInfo* info)
{
    return guarded(
        [&]
        {
            TessaronJobInfo& target = c_interface::sized(info, "info");
            const exchange::JobInfo known = knownJob(job);
            const boost::shared_ptr<const exchange::ToolpathRecords> toolpath = exchange::jobToolpath(job);
            target.state = static_cast<int>(known.state);
            target.status = known.status;
            target.percent = known.percent;
            target.workerCount = known.workerIds.size();
            target.findingCount = known.findings.size();
            target.recordCount = toolpath ? toolpath->records.size() : 0;
        });
}

int tessaronJobFailure(int job, const char** text, const char** field)
{
    return guarded(
        [&]
        {
            needed(text, "text");
            needed(field, "field");
            thread_local exchange::JobInfo info;
            info = knownJob(job);
            *text = info.text.c_str();
            *field = info.field.c_str();
        });
}

int tessaronJobFinding(int job, size_t index, TessaronFinding* finding)
{
    return guarded(
        [&]
        {
            TessaronFinding& target = c_interface::sized(finding, "finding");
            thread_local exchange::JobFinding kept;
            exchange::JobInfo info = knownJob(job);
            kept = std::move(info.findings[indexBelow(index, info.findings.size())]);
            c_interface::fillIn(kept, target);
        });
}

int tessaronJobStage(int job, size_t index, const char** stage, double* value)
{
    return guarded(
        [&]
        {
            needed(stage, "stage");
            needed(value, "value");
            thread_local std::string kept;
            const exchange::JobInfo info = knownJob(job);
            const auto& stages = info.stages.params();
            const auto it = std::next(stages.begin(), static_cast<std::ptrdiff_t>(indexBelow(index, stages.size())));
            kept = it->first;
            *stage = kept.c_str();
            *value = boost::apply_visitor(StageNumber(), it->second);
        });
}

int tessaronJobWorker(int job, size_t index, int* worker)
{
    return guarded(
        [&]
        {
            const std::vector<int> ids = knownJob(job).workerIds;
            *needed(worker, "worker") = ids[indexBelow(index, ids.size())];
        });
}

int tessaronJobWait(int job, int milliseconds, int* state)
{
    return guarded(
        [&]
        {
            needed(state, "state");
            const exchange::JobState reached = exchange::waitForJob(job, milliseconds);
            if (reached == exchange::JobState::unknown)
                throw failureOf(exchange::status::unknownJob);
            *state = static_cast<int>(reached);
        });
}

int tessaronJobNotify(int job, void (*ended)(int job, void* data), void* data)
{
    return guarded(
        [&]
        {
            needed(ended, "ended");
            require(exchange::notifyJobEnd(job, [=] { ended(job, data); }));
        });
}

int tessaronJobDescriptor(int job, int* descriptor)
{
    return guarded(
        [&]
        {
            needed(descriptor, "descriptor");
            const auto signal = std::make_shared<util::ReadySignal>();
            require(exchange::notifyJobEnd(job, [signal] { signal->set(); }));
            *descriptor = signal->descriptor();
        });
}

int tessaronJobCancel(int job)
{
    return guarded([&] { require(exchange::cancelJob(job)); });
}

int tessaronJobRelease(int job)
{
    return guarded([&] { require(exchange::releaseJob(job)); });
}

int tessaronJobToolpath(int job, TessaronToolpath** created)
{
    return guarded([&] { *needed(created, "created") = new TessaronToolpath{finishedToolpath(job), nullptr}; });
}

int tessaronJobRecords(int job, size_t first, size_t count, TessaronRecord* records)
{
    return guarded([&] { c_interface::copyRecords(*finishedToolpath(job), first, count, records); });
}
