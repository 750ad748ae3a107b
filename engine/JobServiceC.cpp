#include <tessaron/engine/JobServiceC.h>

#include "util/text/Utf8.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <algorithm>
#include <exception>
#include <limits>
#include <string>
#include <string_view>

namespace
{

using exchange::JobInfo;
using exchange::JobStart;
using exchange::ToolpathRecord;

/// Copies a text for a caller in C; returns its whole length.
std::size_t copyText(std::string_view from, char* text, std::size_t size)
{
    if (!text || size == 0)
        return from.size();
    const std::size_t length = util::utf8CutLength(from, size - 1);
    from.copy(text, length);
    text[length] = '\0';
    return from.size();
}

/// Runs a function; no exception may reach a caller in C.
template <class Result, class Function>
Result guarded(Result onFailure, const Function& function) noexcept
{
    try
    {
        return function();
    }
    catch (const std::exception&)
    {
        return onFailure;
    }
}

int result(const JobStart& start, char* text, std::size_t size)
{
    copyText(start.text, text, size);
    return start.jobId > 0 ? start.jobId : start.status;
}

enum TessaronJobState plain(exchange::JobState state)
{
    return static_cast<enum TessaronJobState>(state);
}

/// The record at an index, or null.
const ToolpathRecord* recordAt(const boost::shared_ptr<const exchange::ToolpathRecords>& toolpath, std::size_t index)
{
    return toolpath && index < toolpath->records.size() ? &toolpath->records[index] : nullptr;
}

/// Fills in the values that a kind of record has.
class RecordFiller : public boost::static_visitor<void>
{
public:
    explicit RecordFiller(TessaronRecord& record) : m_record(record) {}

    void operator()(const exchange::RapidMove& move) const { setPoint(move.endPt); }
    void operator()(const exchange::LinearMove& move) const { setPoint(move.endPt); }
    template <int Sense>
    void operator()(const exchange::Arc<Sense>& arc) const
    {
        setPoint(arc.endPt);
        m_record.radius = arc.radius;
    }
    void operator()(const exchange::FeedRate& feed) const { m_record.value = feed.feedrate; }
    void operator()(const exchange::SpindleSpeed& spindle) const { m_record.value = spindle.speed; }
    void operator()(const exchange::CustomRecord&) const {}
    void operator()(const exchange::ToolAxis& axis) const { setPoint(axis.axis); }

private:
    template <class Coords>
    void setPoint(const Coords& coords) const
    {
        for (int i = 0; i < 3; ++i)
            m_record.point[i] = coords[i];
    }

    TessaronRecord& m_record;
};

} // namespace

int tessaronJobStartFile(const char* path, char* text, size_t size)
{
    return guarded(exchange::status::internalError,
                   [&] { return result(exchange::startJobFromFile(path), text, size); });
}

int tessaronJobStartMemory(const void* archive, size_t archiveSize, const char* name, char* text, size_t size)
{
    return guarded(exchange::status::internalError,
                   [&]
                   {
                       const std::string_view bytes(static_cast<const char*>(archive), archiveSize);
                       return result(exchange::startJobFromArchive(bytes, name ? name : ""), text, size);
                   });
}

enum TessaronJobState tessaronJobState(int jobId)
{
    return guarded(TESSARON_JOB_UNKNOWN, [&] { return plain(exchange::jobInfo(jobId).state); });
}

int tessaronJobStatus(int jobId)
{
    return guarded(exchange::status::internalError, [&] { return exchange::jobInfo(jobId).status; });
}

size_t tessaronJobText(int jobId, char* text, size_t size)
{
    return guarded(std::size_t{0}, [&] { return copyText(exchange::jobInfo(jobId).text, text, size); });
}

size_t tessaronJobFindingCount(int jobId)
{
    return guarded(std::size_t{0}, [&] { return exchange::jobInfo(jobId).findings.size(); });
}

int tessaronJobFinding(int jobId, size_t index, char* text, size_t size)
{
    return guarded(0,
                   [&]
                   {
                       const std::vector<exchange::JobFinding> findings = exchange::jobInfo(jobId).findings;
                       const bool known = index < findings.size();
                       copyText(known ? findings[index].text : std::string(), text, size);
                       return known ? findings[index].code : 0;
                   });
}

double tessaronJobPercent(int jobId)
{
    return guarded(-1.0,
                   [&]
                   {
                       const JobInfo info = exchange::jobInfo(jobId);
                       return info.state == exchange::JobState::unknown ? -1.0 : info.percent;
                   });
}

enum TessaronJobState tessaronJobWait(int jobId, int milliseconds)
{
    return guarded(TESSARON_JOB_UNKNOWN, [&] { return plain(exchange::waitForJob(jobId, milliseconds)); });
}

int tessaronJobWorkers(int jobId, int* ids, int capacity)
{
    return guarded(exchange::status::internalError,
                   [&]
                   {
                       const JobInfo info = exchange::jobInfo(jobId);
                       if (info.state == exchange::JobState::unknown)
                           return exchange::status::unknownJob;
                       const int count = static_cast<int>(info.workerIds.size());
                       if (ids && capacity > 0)
                           std::copy_n(info.workerIds.begin(), std::min(count, capacity), ids);
                       return count;
                   });
}

size_t tessaronJobRecordCount(int jobId)
{
    return guarded(std::size_t{0},
                   [&]
                   {
                       const auto toolpath = exchange::jobToolpath(jobId);
                       return toolpath ? toolpath->records.size() : 0;
                   });
}

int tessaronJobRecord(int jobId, size_t index, struct TessaronRecord* record)
{
    return guarded(0,
                   [&]
                   {
                       const auto toolpath = exchange::jobToolpath(jobId);
                       const ToolpathRecord* const found = recordAt(toolpath, index);
                       if (!found || !record)
                           return 0;
                       *record = TessaronRecord{};
                       record->kind = found->which();
                       boost::apply_visitor(RecordFiller(*record), *found);
                       return 1;
                   });
}

size_t tessaronJobRecordText(int jobId, size_t index, char* text, size_t size)
{
    return guarded(std::size_t{0},
                   [&]
                   {
                       const auto toolpath = exchange::jobToolpath(jobId);
                       const ToolpathRecord* const found = recordAt(toolpath, index);
                       const auto* const custom = found ? boost::get<exchange::CustomRecord>(found) : nullptr;
                       return copyText(custom ? std::string_view(custom->string) : std::string_view(), text, size);
                   });
}

int tessaronJobSaveToolpath(int jobId, const char* path, char* text, size_t size)
{
    copyText("", text, size);
    const auto fail = [&](int status, const std::string& what)
    {
        copyText(what, text, size);
        return status;
    };
    return guarded(exchange::status::internalError,
                   [&]
                   {
                       const auto toolpath = exchange::jobToolpath(jobId);
                       if (!toolpath)
                       {
                           const JobInfo info = exchange::jobInfo(jobId);
                           const bool known = info.state != exchange::JobState::unknown;
                           return fail(known && info.status == 0 ? exchange::status::noToolpath : info.status,
                                       known ? "The job has no toolpath." : info.text);
                       }
                       try
                       {
                           exchange::writeArchiveFile(path, *toolpath);
                           return exchange::status::ok;
                       }
                       catch (const std::exception& error)
                       {
                           return fail(exchange::status::internalError, error.what());
                       }
                   });
}

int tessaronJobCancel(int jobId)
{
    return guarded(exchange::status::internalError, [&] { return exchange::cancelJob(jobId); });
}

int tessaronJobRelease(int jobId)
{
    return guarded(exchange::status::internalError, [&] { return exchange::releaseJob(jobId); });
}
