#ifndef TESTS_COMMAND_PROGRAM_H
#define TESTS_COMMAND_PROGRAM_H

#include <string>
#include <vector>

#include <sys/types.h>

/// The command tessaron-job as a process.
class Program
{
public:
    enum class Errors
    {
        intoPipe,
        intoTerminal, ///< one of 80 columns, of the process's own
    };

    /// Starts the command in a folder.
    Program(const std::string& folder, const std::vector<std::string>& arguments, Errors errors = Errors::intoPipe);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    /// Kills it if it still runs.
    ~Program();

    void signal(int number) const;
    /// Reads what the process writes to its errors until a text comes; false when the process closes them before.
    bool waitForError(const std::string& text);
    /// Waits for the end.
    /// \returns the exit status, or minus the number of the signal that ended it
    int wait();

    /// What came so far; all of it after wait().
    const std::string& output() const { return m_output; }
    const std::string& errors() const { return m_errors; }

private:
    bool read(int file, std::string& text) const;

    pid_t m_process = -1;
    int m_outputFile = -1;
    int m_errorFile = -1;
    std::string m_output;
    std::string m_errors;
};

#endif
