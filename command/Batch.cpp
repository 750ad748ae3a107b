#include "command/Batch.h"

#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/gcode/GcodeWriter.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <thread>
#include <utility>

namespace command
{

namespace
{

namespace keys = util::keys;

constexpr int pollMilliseconds = 20;
constexpr int greatestTool = 99999;

std::string codeText(int code)
{
    return code == 0 ? std::string() : " (" + std::to_string(code) + ")";
}

int toolOf(const util::Parameterized& parameters)
{
    const int tool = parameters.intOr(keys::toolNumber, 0);
    return tool > 0 && tool <= greatestTool ? tool : 0;
}

} // namespace

Batch::Batch(const Options& options, std::vector<Task> tasks, util::Parameterized templateValues, Terminal& terminal)
    : m_options(options), m_tasks(std::move(tasks)), m_templateValues(std::move(templateValues)), m_terminal(terminal)
{
}

void Batch::run(const std::function<bool()>& isInterrupted)
{
    std::size_t next = 0;
    while (!isInterrupted() && (next < m_tasks.size() || !m_running.empty()))
    {
        if (next < m_tasks.size() && m_running.size() < static_cast<std::size_t>(m_options.jobs))
        {
            start(m_tasks[next++]);
            continue;
        }
        exchange::waitForJob(m_running.front().jobId, pollMilliseconds);
        for (auto running = m_running.begin(); running != m_running.end();)
        {
            if (exchange::waitForJob(running->jobId, 0) == exchange::JobState::running || isInterrupted())
            {
                ++running;
                continue;
            }
            finish(*running);
            running = m_running.erase(running);
        }
        showProgress();
    }
    for (const Running& running : m_running)
        exchange::cancelJob(running.jobId);
    for (const Running& running : m_running)
    {
        exchange::waitForJob(running.jobId, -1);
        exchange::releaseJob(running.jobId);
        fail(*running.task, exchange::statusText(exchange::status::cancelled));
    }
    m_running.clear();
}

int Batch::threadsForEach() const
{
    const auto processors = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    return std::max(1, processors / std::min(m_options.jobs, static_cast<int>(m_tasks.size())));
}

void Batch::start(const Task& task)
{
    exchange::Tessaron2dInput input;
    try
    {
        exchange::readArchiveFile(task.input, input);
    }
    catch (const exchange::ArchiveFileError& error)
    {
        const bool isThere = std::filesystem::exists(task.input);
        fail(task, std::string(error.what()) + (isThere ? ". The archive of a 2-D input is expected." : ""));
        return;
    }
    util::Parameterized& parameters = input.parameters;
    for (const auto& [key, value] : m_templateValues.params())
        parameters.set(key, value);
    // A person who works on several parts at a time wants the processors shared among them.
    if (m_options.threads > 0)
        parameters.set(keys::numberOfConcurrentThreads, m_options.threads);
    else if (m_options.jobs > 1 && !parameters.has(keys::numberOfConcurrentThreads))
        parameters.set(keys::numberOfConcurrentThreads, threadsForEach());
    for (const auto& [key, value] : m_options.set.params())
        parameters.set(key, value);
    const exchange::JobStart started = exchange::startJob(input);
    if (started.jobId == 0)
        fail(task, started.text, started.status);
    else
        m_running.push_back({&task, started.jobId, std::chrono::steady_clock::now(), toolOf(parameters)});
}

void Batch::finish(const Running& running)
{
    const exchange::JobInfo info = exchange::jobInfo(running.jobId);
    if (info.state == exchange::JobState::finished)
    {
        tellFindings(running);
        write(running);
    }
    else
        fail(*running.task, info.text, info.status);
    exchange::releaseJob(running.jobId);
    m_ended += info.state == exchange::JobState::finished;
}

void Batch::tellFindings(const Running& running)
{
    for (const exchange::JobFinding& finding : exchange::jobInfo(running.jobId).findings)
    {
        const bool isNote = finding.code == exchange::finding::preDrillPlace;
        m_warnings += !isNote;
        if (!m_options.quiet)
            m_terminal.message(running.task->input + (isNote ? ": note: " : ": warning: ") + finding.text +
                               codeText(finding.code));
    }
}

void Batch::write(const Running& running)
{
    const Task& task = *running.task;
    const auto toolpath = exchange::jobToolpath(running.jobId);
    try
    {
        if (task.format == Format::xml)
            exchange::writeArchiveFile(task.output, *toolpath);
        else
        {
            exchange::GcodeSettings settings = m_options.gcode;
            if (!m_options.gcodeToolSet)
                settings.tool = running.tool;
            if (!m_options.gcodeTitleSet)
                settings.title = std::filesystem::path(task.input).stem().string();
            exchange::writeGcodeFile(task.output, *toolpath, settings);
        }
    }
    catch (const std::exception& error)
    {
        fail(task, error.what());
        return;
    }
    if (!m_options.verbose)
        return;
    char seconds[40];
    std::snprintf(seconds, sizeof seconds, "%.2f",
                  std::chrono::duration<double>(std::chrono::steady_clock::now() - running.begin).count());
    m_terminal.message(task.input + ": " + std::to_string(toolpath->records.size()) + " records into " + task.output +
                       " in " + seconds + " s");
}

void Batch::showProgress()
{
    if (!m_terminal.showsProgress())
        return;
    std::string text = std::to_string(m_ended + m_failures) + " of " + std::to_string(m_tasks.size());
    for (const Running& running : m_running)
    {
        const auto percent = static_cast<int>(exchange::jobInfo(running.jobId).percent);
        text += "  " + std::filesystem::path(running.task->input).filename().string() + " " + std::to_string(percent) +
                " %";
    }
    m_terminal.progress(text);
}

void Batch::fail(const Task& task, const std::string& text, int code)
{
    ++m_failures;
    m_terminal.message(task.input + ": error: " + text + codeText(code));
}

} // namespace command
