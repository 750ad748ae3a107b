#ifndef TESTS_SUPPORT_SYSTEMFAULTS_H
#define TESTS_SUPPORT_SYSTEMFAULTS_H

#include "util/platform/System_posix.h"

#include <cerrno>
#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

namespace testing_support
{

/// Stands in for the operating system while it lives: writes down the calls that are made, and has those fail that a
/// test names. One at a time, on one thread; it reaches the copy of the platform code that the test program is linked
/// with.
class SystemFaults
{
public:
    SystemFaults() : m_before(util::system::calls)
    {
        real() = m_before;
        current() = this;
        install<&util::system::Calls::openat>("openat");
        install<&util::system::Calls::close>("close");
        install<&util::system::Calls::read>("read");
        install<&util::system::Calls::write>("write");
        install<&util::system::Calls::fsync>("fsync");
        install<&util::system::Calls::fchmod>("fchmod");
        install<&util::system::Calls::fchown>("fchown");
        install<&util::system::Calls::fstat>("fstat");
        install<&util::system::Calls::fstatat>("fstatat");
        install<&util::system::Calls::faccessat>("faccessat");
        install<&util::system::Calls::rename>("rename");
        install<&util::system::Calls::unlinkat>("unlinkat");
        install<&util::system::Calls::flock>("flock");
        install<&util::system::Calls::readdir>("readdir");
    }
    ~SystemFaults()
    {
        util::system::calls = m_before;
        current() = nullptr;
    }
    SystemFaults(const SystemFaults&) = delete;
    SystemFaults& operator=(const SystemFaults&) = delete;

    /// Has calls of a name fail with an error number: `count` times, after the first `after` of them.
    void fail(const std::string& call, int error, int count = 1, int after = 0)
    {
        m_failing = call;
        m_error = error;
        m_count = count;
        m_after = after;
    }
    /// How many bytes a write takes at most.
    void limitWrites(std::size_t bytes) { m_writeLimit = bytes; }

    /// The names of the calls made so far.
    const std::vector<std::string>& calls() const { return m_calls; }
    /// How many calls were made to fail.
    int failures() const { return m_failures; }

private:
    static SystemFaults*& current()
    {
        static SystemFaults* faults = nullptr;
        return faults;
    }
    static util::system::Calls& real()
    {
        static util::system::Calls calls;
        return calls;
    }
    template <auto member>
    static const char*& name()
    {
        static const char* text = "";
        return text;
    }

    bool isToFail(const char* call)
    {
        m_calls.emplace_back(call);
        if (m_failing != call || m_after-- > 0 || m_count <= 0)
            return false;
        --m_count;
        ++m_failures;
        errno = m_error;
        return true;
    }

    template <auto member, class Result, class... Arguments>
    static void put(const char* call, Result (*util::system::Calls::*)(Arguments...))
    {
        name<member>() = call;
        util::system::calls.*member = [](Arguments... arguments) -> Result
        {
            if (current()->isToFail(name<member>()))
            {
                if constexpr (std::is_pointer_v<Result>)
                    return nullptr;
                else
                    return -1;
            }
            if constexpr (std::is_same_v<decltype(member), decltype(&util::system::Calls::write)>)
                return current()->shortWrite(arguments...);
            else
                return (real().*member)(arguments...);
        };
    }
    template <auto member>
    static void install(const char* call)
    {
        put<member>(call, member);
    }
    ssize_t shortWrite(int file, const void* bytes, std::size_t size) const
    {
        return real().write(file, bytes, size < m_writeLimit ? size : m_writeLimit);
    }

    util::system::Calls m_before;
    std::vector<std::string> m_calls;
    std::string m_failing;
    int m_error = 0;
    int m_count = 0;
    int m_after = 0;
    int m_failures = 0;
    std::size_t m_writeLimit = static_cast<std::size_t>(-1);
};

} // namespace testing_support

#endif
