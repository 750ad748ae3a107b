#ifndef UTIL_PLATFORM_READYSIGNAL_H
#define UTIL_PLATFORM_READYSIGNAL_H

#include <memory>

namespace util
{

/// Makes a descriptor readable, for event loops that wait for descriptors. It stays so.
class ReadySignal
{
public:
    /// \throws std::system_error when the system has no descriptor left.
    ReadySignal();
    ~ReadySignal();
    ReadySignal(const ReadySignal&) = delete;
    ReadySignal& operator=(const ReadySignal&) = delete;

    /// A descriptor of the caller's own, which outlives this object.
    /// \throws std::system_error when the system has none left.
    int descriptor() const;
    void set() const noexcept;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace util

#endif
