#ifndef UTIL_PLATFORM_SIGNALBLOCK_H
#define UTIL_PLATFORM_SIGNALBLOCK_H

#include <memory>

namespace util
{

/// While it lives, the calling thread takes no signals from outside; a thread started meanwhile never does. A host's
/// signal handlers so run on the host's threads only.
class SignalBlock
{
public:
    SignalBlock();
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;
    ~SignalBlock();

private:
    struct Saved;
    std::unique_ptr<Saved> m_saved;
};

} // namespace util

#endif
