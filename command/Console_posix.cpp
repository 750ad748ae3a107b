#include "command/Console.h"

#include <csignal>
#include <cstdlib>
#include <initializer_list>

#include <sys/ioctl.h>
#include <unistd.h>

namespace command
{

namespace
{

constexpr std::size_t usualWidth = 80;

volatile std::sig_atomic_t caught = 0;

void note(int signal)
{
    caught = signal;
}

} // namespace

bool isErrorTerminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

std::size_t errorTerminalWidth()
{
    winsize size = {};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1 ? size.ws_col : usualWidth;
}

void catchInterrupts()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    {
        struct sigaction before = {};
        // What the caller ignores, as nohup does, stays ignored.
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN)
            continue;
        struct sigaction action = {};
        action.sa_handler = note;
        ::sigemptyset(&action.sa_mask);
        action.sa_flags = SA_RESTART;
        ::sigaction(signal, &action, nullptr);
    }
}

int interruption()
{
    return caught;
}

void endBy(int signal)
{
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::_Exit(128 + signal);
}

} // namespace command
