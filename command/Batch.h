#ifndef COMMAND_BATCH_H
#define COMMAND_BATCH_H

#include "command/Options.h"
#include "command/Terminal.h"

#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace command
{

/// Works on parts, some at a time. A part that fails is told and never stops the others.
class Batch
{
public:
    /// \param templateValues parameters in place of those of the archives
    Batch(const Options& options, std::vector<Task> tasks, util::Parameterized templateValues, Terminal& terminal);

    /// Runs to the end of all parts.
    /// \param isInterrupted asked a few times a second; when it holds, running jobs are cancelled and nothing more is
    ///     written
    void run(const std::function<bool()>& isInterrupted);

    std::size_t failures() const { return m_failures; }
    std::size_t warnings() const { return m_warnings; }

private:
    struct Running
    {
        const Task* task;
        int jobId;
        std::chrono::steady_clock::time_point begin;
        int tool; ///< the number of the part's tool; 0 for none
    };

    void start(const Task& task);
    void finish(const Running& running);
    void write(const Running& running);
    void tellFindings(const Running& running);
    void showProgress();
    void fail(const Task& task, const std::string& text, int code = 0);
    int threadsForEach() const;

    const Options& m_options;
    const std::vector<Task> m_tasks;
    const util::Parameterized m_templateValues;
    Terminal& m_terminal;
    std::deque<Running> m_running;
    std::size_t m_ended = 0;
    std::size_t m_failures = 0;
    std::size_t m_warnings = 0;
};

} // namespace command

#endif
