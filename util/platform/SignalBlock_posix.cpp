#include "util/platform/SignalBlock.h"

#include <signal.h>

namespace util
{

struct SignalBlock::Saved
{
    sigset_t mask;
};

SignalBlock::SignalBlock() : m_saved(std::make_unique<Saved>())
{
    sigset_t all;
    sigfillset(&all);
    // Faults of the thread's own cannot wait.
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT})
        sigdelset(&all, fault);
    pthread_sigmask(SIG_BLOCK, &all, &m_saved->mask);
}

SignalBlock::~SignalBlock()
{
    pthread_sigmask(SIG_SETMASK, &m_saved->mask, nullptr);
}

} // namespace util
