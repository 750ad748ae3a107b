#include "tests/command/Program.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr int longestSilence = 120000; // milliseconds

} // namespace

Program::Program(const std::string& folder, const std::vector<std::string>& arguments, Errors errors)
{
    int output[2];
    int error[2];
    winsize size = {};
    size.ws_row = 24;
    size.ws_col = 80;
    const bool opened = ::pipe(output) == 0 &&
                        (errors == Errors::intoTerminal ? ::openpty(&error[0], &error[1], nullptr, nullptr, &size) == 0
                                                        : ::pipe(error) == 0);
    if (!opened)
    {
        ADD_FAILURE() << "no pipe or terminal";
        return;
    }
    std::vector<std::string> texts{TESSARON_JOB};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    m_process = ::fork();
    if (m_process == 0)
    {
        ::dup2(output[1], STDOUT_FILENO);
        ::dup2(error[1], STDERR_FILENO);
        for (const int file : {output[0], output[1], error[0], error[1]})
            ::close(file);
        if (::chdir(folder.c_str()) == 0)
            ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    ::close(output[1]);
    ::close(error[1]);
    m_outputFile = output[0];
    m_errorFile = error[0];
}

Program::~Program()
{
    if (m_process > 0)
    {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    ::close(m_outputFile);
    ::close(m_errorFile);
}

void Program::signal(int number) const
{
    ::kill(m_process, number);
}

bool Program::read(int file, std::string& text) const
{
    pollfd wanted{file, POLLIN, 0};
    if (::poll(&wanted, 1, longestSilence) != 1)
    {
        ADD_FAILURE() << "the command is silent; so far: " << text;
        return false;
    }
    char bytes[4096];
    // A terminal that nobody writes to any more is an error here, and the end.
    const ssize_t count = ::read(file, bytes, sizeof bytes);
    if (count <= 0)
        return false;
    text.append(bytes, static_cast<std::size_t>(count));
    return true;
}

bool Program::waitForError(const std::string& text)
{
    while (m_errors.find(text) == std::string::npos)
        if (!read(m_errorFile, m_errors))
            return false;
    return true;
}

int Program::wait()
{
    while (read(m_errorFile, m_errors))
        continue;
    while (read(m_outputFile, m_output))
        continue;
    int status = 0;
    if (m_process <= 0 || ::waitpid(m_process, &status, 0) != m_process)
        return -1000;
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}
