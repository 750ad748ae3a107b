#include "util/platform/System_posix.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace util::system
{

namespace
{

template <class Call>
auto retryOnEintr(Call call)
{
    for (;;)
    {
        const auto result = call();
        if (result != -1 || errno != EINTR)
            return result;
    }
}

} // namespace

constinit Calls calls = {
    [](int folder, const char* path, int flags, mode_t mode) { return ::openat(folder, path, flags, mode); },
    ::close,
    ::read,
    ::write,
    ::fsync,
    ::fchmod,
    ::fchown,
    ::fstat,
    ::fstatat,
    ::faccessat,
    ::rename,
    ::unlinkat,
    ::flock,
    ::readdir,
};

int open(const char* path, int flags, mode_t mode)
{
    return openat(AT_FDCWD, path, flags, mode);
}

int openat(int folder, const char* path, int flags, mode_t mode)
{
    return retryOnEintr([&] { return calls.openat(folder, path, flags, mode); });
}

int close(int file)
{
    const int result = calls.close(file);
    return result != 0 && errno == EINTR ? 0 : result;
}

ssize_t read(int file, void* bytes, std::size_t size)
{
    return retryOnEintr([&] { return calls.read(file, bytes, size); });
}

ssize_t write(int file, const void* bytes, std::size_t size)
{
    return retryOnEintr([&] { return calls.write(file, bytes, size); });
}

int fsync(int file)
{
    return retryOnEintr([&] { return calls.fsync(file); });
}

int fchmod(int file, mode_t mode)
{
    return retryOnEintr([&] { return calls.fchmod(file, mode); });
}

int fchown(int file, uid_t user, gid_t group)
{
    return retryOnEintr([&] { return calls.fchown(file, user, group); });
}

int fstat(int file, struct stat* result)
{
    return calls.fstat(file, result);
}

int fstatat(int folder, const char* path, struct stat* result, int flags)
{
    return calls.fstatat(folder, path, result, flags);
}

int faccessat(int folder, const char* path, int rights, int flags)
{
    return calls.faccessat(folder, path, rights, flags);
}

int rename(const char* from, const char* to)
{
    return calls.rename(from, to);
}

int unlinkat(int folder, const char* path, int flags)
{
    return calls.unlinkat(folder, path, flags);
}

int flock(int file, int operation)
{
    return retryOnEintr([&] { return calls.flock(file, operation); });
}

dirent* readdir(DIR* stream)
{
    return calls.readdir(stream);
}

} // namespace util::system
