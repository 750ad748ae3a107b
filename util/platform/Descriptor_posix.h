#ifndef UTIL_PLATFORM_DESCRIPTOR_POSIX_H
#define UTIL_PLATFORM_DESCRIPTOR_POSIX_H

#include <cerrno>

#include <unistd.h>

namespace util
{

/// Repeats a system call that a signal interrupts.
template <class Call>
auto uninterrupted(Call call)
{
    for (;;)
    {
        const auto result = call();
        if (result != -1 || errno != EINTR)
            return result;
    }
}

/// Owns a file descriptor; a number below 0 is none.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }
    /// Closes early, for the error that closing may report.
    bool close()
    {
        const int number = m_number;
        m_number = -1;
        return number < 0 || ::close(number) == 0;
    }

private:
    int m_number;
};

} // namespace util

#endif
