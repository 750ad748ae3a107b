#ifndef UTIL_PLATFORM_UNIQUEFD_POSIX_H
#define UTIL_PLATFORM_UNIQUEFD_POSIX_H

#include "util/platform/System_posix.h"

#include <utility>

namespace util
{

/// Owns a file descriptor; one below 0 is none.
class UniqueFd
{
public:
    explicit UniqueFd(int fd = -1) : m_fd(fd) {}
    ~UniqueFd() { close(); }
    UniqueFd(UniqueFd&& other) noexcept : m_fd(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }

    bool isOpen() const { return m_fd >= 0; }
    int get() const { return m_fd; }
    /// Gives the descriptor away.
    int release() { return std::exchange(m_fd, -1); }
    /// Closes early, for the error that closing may report.
    bool close()
    {
        const int fd = release();
        return fd < 0 || system::close(fd) == 0;
    }

private:
    int m_fd;
};

} // namespace util

#endif
